// A template's sections drawn down the pages of one document: a cursor, page breaks by the heights
// of the sections, and one or two calls of the PDF writer for each item.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "core/ledger.h"
#include "documents/mergefields.h"
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
  // the writer has been begun.
  void Draw(const std::string& invoiceId);

 private:
  struct SectionKind;
  struct Box {
    double left, top, width, height;  // millimetres on the page
    double radius = 0;                // of its corners
  };
  struct Growth {
    double bottom = 0;  // lowest edge of the items so far, from the top of the section
    bool grown = false;
  };

  // Every section of this id. A fault ends the section that it stands in, after its message.
  void RenderSection(std::string_view name);
  void DrawSection(const TemplateSection& section, const SectionKind& kind);
  bool PlaceSection(const SectionKind& kind);  // moves the cursor; true when a new page is needed
  void BeginFurtherPage();
  void RenderItemsOfSession();

  void DrawItem(const TemplateItem& item, Growth& growth);
  // The box may grow downwards to hold the text.
  void DrawTextItem(const TemplateItem& item, Box& box, const std::string& text);
  void DrawShape(const TemplateItem& item, const Box& box);
  void DrawPicture(const TemplateItem& item, const Box& box);
  void Link(const TemplateItem& item);
  std::string MergedCaption(const TemplateItem& item) const;
  void ChooseFont(const TemplateItem& item);
  void ChooseColours(const TemplateItem& item, const Box& box);
  std::string AddFill(const TemplateItem& item, const Box& box);  // a colour, or a gradient's name
  double NeededHeight(std::string_view text, double width) const;
  void TellFault(std::string_view sectionId, int number, std::string_view description);

  Ledger& ledger_;
  const RecordIndex& index_;
  const DocumentTemplate& layout_;
  clsPDFCreator& pdf_;
  std::set<std::string>& told_;
  MergeFields fields_;
  MergeContext context_;
  Single y_ = 0;  // millimetres from the top of the page
  int gradients_ = 0;
};

}  // namespace lm
