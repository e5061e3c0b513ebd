// A template's sections drawn down the pages of one document: a cursor, and page breaks by the
// heights of the sections.
#pragma once

#include <deque>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/ledger.h"
#include "documents/invoiceitems.h"
#include "documents/mergefields.h"
#include "documents/statements.h"
#include "documents/template.h"
#include "pdf/clsPDFCreator.h"
#include "records/recordindex.h"

namespace lm {

class InvoicePages {
 public:
  // All outlive it. `told` keeps the faults that were shown already, so that a fault in a template
  // is told once and not for every session and every invoice.
  InvoicePages(Ledger& ledger, const RecordIndex& index, const DocumentTemplate& layout,
               clsPDFCreator& pdf, std::set<std::string>& told);

  // The whole document, from the first page's background to the invoice's footer; the document of
  // the writer has been begun. Its rows are the sessions of the invoice.
  void Draw(const std::string& invoiceId);
  // The rows are the invoices of the statement; it has one at least, whose practice is written to.
  void Draw(const Statement& statement);

 private:
  struct SectionKind;
  struct MeasuredSection {  // not yet drawn; as if it began at the top of a page
    const TemplateSection* section;
    SectionGrowth growth;
    std::vector<LaidItem> items;
  };

  std::vector<std::string> SessionsByDate(const std::string& invoiceId) const;  // IDs
  void DrawDocument(const std::vector<std::string>& rows, std::string MergeContext::*rowOf);
  void RenderRow();
  void RenderSession();
  void RenderItemsOfSession();

  double FlowEnd() const;  // lowest edge of what flows
  double FooterTop();      // of the invoice
  double RowHeight();      // with all that belongs to the session of the context
  void KeepTogether(bool last);
  void BeginFurtherPage();
  void BeginFlowPage();  // the cursor where its contents begin

  // Every section of this id. A fault ends the section that it stands in, after its message.
  void RenderSection(std::string_view name);
  void DrawSection(const TemplateSection& section, const SectionKind& kind);
  // Returns what the page had no room for.
  std::vector<LaidItem> DrawItems(const TemplateSection& section, const SectionKind& kind,
                                  SectionGrowth& growth);
  void MeasureSection(const TemplateSection& section, const SectionKind& kind);
  SectionGrowth Measure(const TemplateSection& section);
  double StretchOf(const TemplateSection& section, const SectionKind& kind);
  void Advance(const SectionGrowth& growth, const SectionKind& kind);
  void DrawRests(std::vector<LaidItem> rests, const SectionKind& kind);
  bool PlaceSection(const SectionKind& kind);  // moves the cursor; true when a new page is needed
  void TellFault(std::string_view sectionId, int number, std::string_view description);

  Ledger& ledger_;
  const RecordIndex& index_;
  const DocumentTemplate& layout_;
  clsPDFCreator& pdf_;
  std::set<std::string>& told_;
  MergeFields fields_;
  MergeContext context_;
  InvoiceItems items_;
  Single y_ = 0;                          // millimetres from the top of the page
  std::deque<MeasuredSection> measured_;  // of the session that comes, in the order of drawing
  bool rowsOnPage_ = false;
  bool measuring_ = false;  // the cursor moves and nothing is drawn
};

}  // namespace lm
