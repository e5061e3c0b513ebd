#include "pension/formoverlay.h"

#include <filesystem>

#include "core/files.h"
#include "core/format.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/text.h"

namespace lm {
namespace {

// In the order of preference.
constexpr std::string_view kSignatureFiles[] = {"signature.jpg", "signature.gif", "signature.bmp"};

std::string SignatureFile(const Ledger& ledger) {
  if (!OptionIsTrue(ledger, optSignatureOnForms)) return "";
  for (const std::string_view name : kSignatureFiles) {
    std::error_code ignored;
    if (std::filesystem::is_regular_file(ledger.File(name), ignored))
      return PathText(ledger.File(name));
  }
  return "";
}

// For its boxes.
std::string InsuranceNumber(const Ledger& ledger) {
  return RemoveAny(ToUpper(MyDetail(ledger, kInsuranceNumberField)), "-./\\, ");
}

// Name, numbers, signature and today's date.
void AddLocum(const Ledger& ledger, FormFigures& figures) {
  const Date today = ledger.platform.clock.Now();
  figures.texts[FormItem::TitleAndName] = {TitleAndName(ledger)};
  figures.texts[FormItem::Authority] = {MyDetail(ledger, kAuthorityField)};
  figures.texts[FormItem::InsuranceNumber] = {InsuranceNumber(ledger)};
  figures.texts[FormItem::GmcNumber] = {MyDetail(ledger, kGmcNumberField)};
  figures.texts[FormItem::Signature] = {SignatureFile(ledger)};
  figures.texts[FormItem::Today] = {FormatDate(today, "dd mm yyyy")};
  figures.texts[FormItem::TodayInWords] = {FormatDate(today, "dd mmm yyyy")};
}

std::string Printed(const FormRow& record, const FormFigure& figure) {
  if (figure.worked) return Format(figure.worked(record), record.form.onPaper);
  const bool blank = Trim(record.Cell(figure.key)).empty();
  return blank && !figure.blankPrints ? "" : Format(record.Pounds(figure.key), record.form.onPaper);
}

}  // namespace

FormFigures FiguresOf(const Ledger& ledger, SessionsByMonth& sessions, const FormRow& record) {
  FormFigures figures;
  AddLocum(ledger, figures);
  for (const FormFigure& figure : record.form.figures)
    if (figure.item != FormItem::None) figures.texts[figure.item] = {Printed(record, figure)};
  record.form.print(ledger, sessions, record, figures);
  return figures;
}

std::string TitleAndName(const Ledger& ledger) {
  return std::string(Trim(MyDetail(ledger, kMyTitleField) + " " + MyName(ledger)));
}

}  // namespace lm
