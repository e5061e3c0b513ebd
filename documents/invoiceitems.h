// The items of a template's sections: where each one lies by its attributes and its merged text,
// and one or two calls of the PDF writer to draw it.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/ledger.h"
#include "core/numbers.h"
#include "documents/mergefields.h"
#include "documents/template.h"
#include "documents/templatetexts.h"
#include "pdf/clsPDFCreator.h"

namespace lm {

struct ItemBox {
  double left = 0, top = 0, width = 0, height = 0;  // millimetres on the page
  double radius = 0;                                // of its corners
  double Bottom() const { return top + height; }
};

// An item that is to be drawn, its box and its text.
struct LaidItem {
  const TemplateItem* item = nullptr;
  ItemBox box;
  std::string text;
  double fontSize = 0;  // points
  int alignment = 0;    // the writer's flags
};

// What the items of a section have come to so far.
struct SectionGrowth {
  double stretch = 0;  // how much higher than its height the section will be
  double bottom = 0;   // lowest edge of the items, from the top of the section
  bool grown = false;
  std::vector<ItemBox> texts;  // those drawn, from the top of the section
  double TextBottom() const;   // lowest edge of the texts
};

// True when the item grows, and goes on on the next page where this one ends.
bool FlowsOverPages(const TemplateItem& item);
bool StretchesWithSection(const TemplateItem& item);

class InvoiceItems {
 public:
  // All outlive it; the context is the one of the moment. `told` as in InvoicePages.
  InvoiceItems(Ledger& ledger, const MergeFields& fields, const MergeContext& context,
               clsPDFCreator& pdf, std::set<std::string>& told)
      : ledger_(ledger), fields_(fields), context_(context), pdf_(pdf), told_(told) {}

  // Empty for an item that hides. The writer's font is the item's then, for Draw. Throws
  // TemplateError for an attribute that it lacks. `y`: where its section begins on the page.
  std::optional<LaidItem> Lay(const TemplateItem& item, Single y, SectionGrowth& growth);
  // Before an item is drawn that others were laid after.
  void ChooseFontOf(const LaidItem& laid);
  // What found no room above `foot`, of an item that flows over pages; "" when all is drawn, and
  // always where `foot` is infinite.
  std::string Draw(const LaidItem& laid, double foot);
  // The text goes on as far as `foot`, at least by one line; laid.text becomes what is left.
  // Returns where it ends, in millimetres on the page.
  double DrawRest(LaidItem& laid, double top, double foot);
  // Called when all pages are there; without it page numbers stay blank.
  void FillPageNumbers();

 private:
  std::string MergedText(const TemplateItem& item) const;
  bool Hides(const TemplateItem& item, const std::string& kind, const std::string& text) const;
  void ChooseFont(const TemplateItem& item, double size);
  void LayText(LaidItem& laid, const std::string& merged);
  bool FitsOnALine(const LaidItem& laid) const;
  void Shrink(LaidItem& laid);
  TextMeasure WidthOfText() const;
  double NeededHeight(std::string_view text, double width) const;

  std::string DrawTextItem(const LaidItem& laid, double foot);
  void DrawPageNumber(const LaidItem& laid);
  void DrawShape(const LaidItem& laid);
  void DrawPicture(const LaidItem& laid);
  void Link(const TemplateItem& item);
  void ChooseColours(const LaidItem& laid);
  std::string AddFill(const LaidItem& laid);  // a colour, or a gradient's name

  Ledger& ledger_;
  const MergeFields& fields_;
  const MergeContext& context_;
  clsPDFCreator& pdf_;
  std::set<std::string>& told_;
  int gradients_ = 0;
  std::vector<std::string> pageNumbers_;  // texts of the place holders
};

}  // namespace lm
