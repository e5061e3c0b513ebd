#include "core/format.h"
#include "core/options.h"
#include "core/text.h"
#include "pension/dateruns.h"
#include "pension/formoverlay.h"
#include "pension/monthsessions.h"
#include "records/practices.h"

namespace lm {
namespace {

constexpr int kSchemeNumber = 18;

struct Sum {
  FormItem item;
  std::string_view key;
};

constexpr Sum kSums[] = {
    {FormItem::Amount, "AMOUNT"},
    {FormItem::Pensionable, "PENSIONABLE"},
    {FormItem::Employer, "EMPLOYERCONTRIB"},
};

}  // namespace

FormFigures FiguresOfFormA(const Ledger& ledger, const SessionsOf& sessionsOf, int row,
                           const std::string& monthKey, const std::string& practiceId) {
  FormFigures figures;
  AddLocum(ledger, figures);
  figures.texts[FormItem::SchemeNumber] = {" " +
                                           std::string(Trim(MyDetail(ledger, kSchemeNumber)))};
  figures.texts[FormItem::OdsCode] = {PracticeCell(ledger, practiceId, "ODS_CODE")};
  for (const Sum& sum : kSums)
    figures.texts[sum.item] = {Format(Figure(ledger.fgPensionA, row, sum.key), "#,##0.00")};
  for (const DateRun& run : RunsOfFormA(ledger, sessionsOf(monthKey), practiceId)) {
    figures.texts[FormItem::RunFirstDay].push_back(FormatDate(run.first, "dd mm yyyy"));
    figures.texts[FormItem::RunLastDay].push_back(FormatDate(run.last, "dd mm yyyy"));
  }
  return figures;
}

}  // namespace lm
