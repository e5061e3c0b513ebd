#include "documents/invoicepages.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/dates.h"
#include "core/messagebox.h"
#include "core/text.h"

namespace lm {
namespace {

enum class Placing {
  Flow,         // below what stands there, on a new page when it does not fit
  Continued,    // below what stands there, at the top of a page that goes on with something
  InvoiceFoot,  // at the foot of the page, on a new one when the flow has reached it
  PageFoot,
  PageTop,
  Stay,
};

bool AnyItem(const std::vector<const TemplateSection*>& sections, bool (*is)(const TemplateItem&)) {
  return std::ranges::any_of(sections, [&](const TemplateSection* section) {
    return std::ranges::any_of(section->items, is);
  });
}

}  // namespace

struct InvoicePages::SectionKind {
  std::string_view name;
  Placing placing;
  std::string_view continued = "";  // what stands above its rest on a further page
};

InvoicePages::InvoicePages(Ledger& ledger, const RecordIndex& index, const DocumentTemplate& layout,
                           clsPDFCreator& pdf, std::set<std::string>& told)
    : ledger_(ledger),
      index_(index),
      layout_(layout),
      pdf_(pdf),
      told_(told),
      fields_(ledger, index),
      items_(ledger, fields_, context_, pdf, told) {}

void InvoicePages::Draw(const std::string& invoiceId) {
  context_ = {};
  context_.invoice = invoiceId;
  DrawDocument(SessionsByDate(invoiceId), &MergeContext::session);
}

void InvoicePages::Draw(const Statement& statement) {
  context_ = {};
  context_.statement = &statement;
  context_.invoice = statement.invoices.front();
  DrawDocument(statement.invoices, &MergeContext::invoice);
}

void InvoicePages::DrawDocument(const std::vector<std::string>& rows,
                                std::string MergeContext::*rowOf) {
  context_.pageNumbers = layout_.pageNumbers != PageNumbers::None;
  pdf_.BeginPage();
  y_ = 0;
  if (layout_.backgrounds == PageBackgrounds::DifferentOnPage1) RenderSection("background1");
  if (layout_.backgrounds == PageBackgrounds::SameOnAllPages) RenderSection("backgroundall");
  for (const std::string_view section : {"pageheader", "pagefooter", "invheader"})
    RenderSection(section);
  y_ = static_cast<Single>(layout_.HeightOf("invheader"));

  for (const std::string& row : rows) {
    context_.*rowOf = row;
    if (layout_.keepTogether) KeepTogether(&row == &rows.back());
    RenderRow();
    rowsOnPage_ = true;
  }
  RenderSection("invfooter");
  if (layout_.pageNumbers == PageNumbers::Always || pdf_.GetPages() > 1) items_.FillPageNumbers();
  pdf_.EndPage();
}

std::vector<std::string> InvoicePages::SessionsByDate(const std::string& invoiceId) const {
  struct Worked {
    double day;
    int row;
  };
  std::vector<Worked> sessions;
  for (const int row : index_.SessionsOfInvoice(invoiceId))
    sessions.push_back(
        {CellDate(ledger_.fgSessions.TextMatrix(row, "SDATE")).value_or(-HUGE_VAL), row});
  std::ranges::stable_sort(sessions, {}, &Worked::day);
  std::vector<std::string> ids;
  for (const Worked& session : sessions)
    ids.push_back(ledger_.fgSessions.TextMatrix(session.row, "ID"));
  return ids;
}

// Breaks

double InvoicePages::FlowEnd() const { return layout_.height - layout_.marginBottom; }

// Higher than its section's height asks for where texts in it grow over pages.
double InvoicePages::FooterTop() {
  constexpr std::string_view kFooter = "invfooter";
  double top = layout_.height - layout_.HeightOf(kFooter);
  if (!AnyItem(layout_.Sections(kFooter), FlowsOverPages)) return top;
  for (const TemplateSection* section : layout_.Sections(kFooter))
    top = std::min(top, FlowEnd() - Measure(*section).TextBottom());
  return std::max(top, layout_.marginTop);
}

double InvoicePages::RowHeight() {
  const Single y = y_;
  y_ = 0;
  measuring_ = true;
  RenderRow();
  measuring_ = false;
  const double height = y_;
  y_ = y;
  return height;
}

// Before a row is drawn. A page on which no row stands yet gains nothing from a break.
void InvoicePages::KeepTogether(bool last) {
  constexpr double kTolerance = 0.001;  // millimetres
  measured_.clear();
  if (!rowsOnPage_) return;
  const double height = RowHeight() - kTolerance;
  const auto parts = [&](double end) {
    return y_ + height > end && layout_.marginTop + height <= end;
  };
  if (parts(FlowEnd()) || (last && parts(std::min(FooterTop(), FlowEnd())))) BeginFlowPage();
}

void InvoicePages::BeginFurtherPage() {
  pdf_.BeginPage();
  y_ = 0;
  if (layout_.backgrounds != PageBackgrounds::None) RenderSection("backgroundall");
  RenderSection("pageheader");
  RenderSection("pagefooter");
}

void InvoicePages::BeginFlowPage() {
  BeginFurtherPage();
  y_ = static_cast<Single>(layout_.marginTop);
  rowsOnPage_ = false;
}

// Sections

void InvoicePages::RenderSection(std::string_view name) {
  constexpr std::string_view kSession = "sessioncontinued";
  static constexpr SectionKind kKinds[] = {{"session", Placing::Flow},
                                           {"owedinvoice", Placing::Flow},
                                           {"sessionfooter", Placing::Flow, kSession},
                                           {"extra", Placing::Flow, kSession},
                                           {"expense", Placing::Flow, kSession},
                                           {"sessioncontinued", Placing::Continued},
                                           {"invfooter", Placing::InvoiceFoot},
                                           {"invfootercontinued", Placing::Continued},
                                           {"pagefooter", Placing::PageFoot},
                                           {"invheader", Placing::PageTop},
                                           {"background1", Placing::PageTop},
                                           {"backgroundall", Placing::PageTop},
                                           {"pageheader", Placing::Stay}};
  const auto kind = std::ranges::find(kKinds, name, &SectionKind::name);
  for (const TemplateSection* section : layout_.Sections(name)) {
    try {
      if (measuring_)
        MeasureSection(*section, *kind);
      else
        DrawSection(*section, *kind);
    } catch (const TemplateError& fault) {
      constexpr int kFaultInTemplate = 5;
      if (told_.insert(section->id + "\n" + fault.what()).second)
        TellFault(section->id, kFaultInTemplate, fault.what());
    }
    // The writer keeps its last error, and the sections after it would tell it again.
    if (pdf_.ErrNumber() != 0 && told_.insert(pdf_.ErrDescription()).second)
      TellFault(section->id, pdf_.ErrNumber(), pdf_.ErrDescription());
  }
}

void InvoicePages::DrawSection(const TemplateSection& section, const SectionKind& kind) {
  if (PlaceSection(kind)) {
    if (kind.placing == Placing::InvoiceFoot) {
      BeginFurtherPage();
      y_ = static_cast<Single>(FooterTop());
    } else {
      BeginFlowPage();
      if (!kind.continued.empty()) RenderSection(kind.continued);
    }
  }
  if (section.items.empty()) pdf_.WriteText(" ", 0, 66);  // so that the section writes something
  SectionGrowth growth;
  std::vector<LaidItem> rests = DrawItems(section, kind, growth);
  Advance(growth, kind);
  if (!rests.empty()) DrawRests(std::move(rests), kind);
  if (kind.name == "session") RenderItemsOfSession();
}

std::vector<LaidItem> InvoicePages::DrawItems(const TemplateSection& section,
                                              const SectionKind& kind, SectionGrowth& growth) {
  // Of what stands on every page nothing can go on on the next one.
  const bool mayGoOn = kind.placing == Placing::Flow || kind.placing == Placing::InvoiceFoot;
  const double foot = mayGoOn ? FlowEnd() : HUGE_VAL;
  std::vector<LaidItem> rests;
  const auto draw = [&](LaidItem& laid) {
    laid.text = items_.Draw(laid, foot);
    if (!laid.text.empty()) rests.push_back(std::move(laid));
  };
  if (!measured_.empty() && measured_.front().section == &section) {
    MeasuredSection measured = std::move(measured_.front());
    measured_.pop_front();
    growth = measured.growth;
    for (LaidItem& laid : measured.items) {
      laid.box.top += y_;
      items_.ChooseFontOf(laid);
      draw(laid);
    }
    return rests;
  }
  growth.stretch = StretchOf(section, kind);
  for (const TemplateItem& item : section.items)
    if (std::optional<LaidItem> laid = items_.Lay(item, y_, growth)) draw(*laid);
  return rests;
}

void InvoicePages::MeasureSection(const TemplateSection& section, const SectionKind& kind) {
  MeasuredSection measured{&section, {}, {}};
  measured.growth.stretch = StretchOf(section, kind);
  for (const TemplateItem& item : section.items)
    if (std::optional<LaidItem> laid = items_.Lay(item, 0, measured.growth))
      measured.items.push_back(std::move(*laid));
  Advance(measured.growth, kind);
  measured_.push_back(std::move(measured));
  if (kind.name == "session") RenderItemsOfSession();
}

SectionGrowth InvoicePages::Measure(const TemplateSection& section) {
  SectionGrowth growth;
  try {
    for (const TemplateItem& item : section.items) items_.Lay(item, 0, growth);
  } catch (const TemplateError&) {
    // The section ends there; it is told when the section is drawn.
  }
  return growth;
}

double InvoicePages::StretchOf(const TemplateSection& section, const SectionKind& kind) {
  if (!std::ranges::any_of(section.items, StretchesWithSection)) return 0;
  if (kind.placing == Placing::InvoiceFoot)
    return layout_.height - layout_.HeightOf(kind.name) - FooterTop();
  const SectionGrowth growth = Measure(section);
  return growth.grown ? std::max(0.0, growth.bottom - section.height) : 0;
}

void InvoicePages::Advance(const SectionGrowth& growth, const SectionKind& kind) {
  if (kind.placing == Placing::Flow || kind.placing == Placing::Continued)
    y_ += static_cast<Single>(growth.grown ? growth.bottom : layout_.HeightOf(kind.name));
}

// What the page of their section had no room for, side by side on as many pages as it takes.
void InvoicePages::DrawRests(std::vector<LaidItem> rests, const SectionKind& kind) {
  const bool ofFooter = kind.placing == Placing::InvoiceFoot;
  while (!rests.empty()) {
    BeginFlowPage();
    RenderSection(ofFooter ? "invfootercontinued" : "sessioncontinued");
    double bottom = y_;
    for (LaidItem& rest : rests) bottom = std::max(bottom, items_.DrawRest(rest, y_, FlowEnd()));
    y_ = static_cast<Single>(bottom);
    std::erase_if(rests, [](const LaidItem& rest) { return rest.text.empty(); });
  }
}

bool InvoicePages::PlaceSection(const SectionKind& kind) {
  const bool isFooter = kind.placing == Placing::InvoiceFoot;
  const double foot = isFooter ? FooterTop() : layout_.height - layout_.HeightOf(kind.name);
  const Single flowEnd = static_cast<Single>(foot - layout_.marginBottom);
  bool newPage = false;
  switch (kind.placing) {
    case Placing::Flow:
      return flowEnd < y_;
    case Placing::InvoiceFoot:
      newPage = static_cast<Single>(foot) < y_;
      y_ = static_cast<Single>(foot);
      break;
    case Placing::PageFoot:
      y_ = static_cast<Single>(foot);
      break;
    case Placing::PageTop:
      y_ = 0;
      break;
    case Placing::Continued:
    case Placing::Stay:
      break;
  }
  return newPage;
}

void InvoicePages::RenderRow() {
  if (context_.statement)
    RenderSection("owedinvoice");
  else
    RenderSession();
}

void InvoicePages::RenderSession() {
  RenderSection("session");
  if (layout_.showSessionFooter) RenderSection("sessionfooter");
}

void InvoicePages::RenderItemsOfSession() {
  if (layout_.showExtras)
    for (const int row : index_.ExtrasOfSession(context_.session)) {
      context_.extra = ledger_.fgExtras.TextMatrix(row, "ID");
      RenderSection("extra");
    }
  if (layout_.showExpenses)
    for (const int row : index_.ExpensesOfSession(context_.session)) {
      context_.expense = ledger_.fgSessionExpenses.TextMatrix(row, "ID");
      RenderSection("expense");
    }
}

void InvoicePages::TellFault(std::string_view sectionId, int number, std::string_view description) {
  const std::string heading = "Section: " + std::string(sectionId) +
                              "\\nError: E0412\\nDetails : " + PlainText(number) + " " +
                              std::string(description);
  ShowMessage(ledger_, heading,
              "\\n\\nLedgerMinder will attempt to complete the document being created but it will "
              "probably fail or be incorrect. Please contact LedgerMinder with the above error "
              "code, and details of the invoice template you are using, or pension form you are "
              "trying to create.",
              Buttons::Ok, Icon::Exclamation, "Error while processing document template");
}

}  // namespace lm
