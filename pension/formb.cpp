#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "pension/forms.h"
#include "pension/months.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

int RowOfMonth(const Grid& forms, std::string_view monthKey) {
  if (monthKey.empty()) return -1;
  const int month = forms.ColIndex("MONTH");
  for (int row = forms.FixedRows(); row < forms.Rows(); ++row)
    if (!forms.IsSubtotal(row) && MonthKeyOf(forms.TextMatrix(row, month)) == monthKey) return row;
  return -1;
}

// The Forms A that came back in a month, and the sessions that belong to them.
class ReturnedForms {
 public:
  ReturnedForms(const Ledger& ledger, std::string_view monthKey) {
    const Grid& forms = ledger.fgPensionA;
    if (monthKey.empty()) return;  // damaged dates are of no month
    const int received = forms.ColIndex("RCVDFROMPRACTICE");
    for (int row = forms.FixedRows(); row < forms.Rows(); ++row) {
      if (forms.IsSubtotal(row) || MonthKeyOf(forms.TextMatrix(row, received)) != monthKey)
        continue;
      rows_.push_back(row);
      const std::string month = MonthKeyOf(forms.TextMatrix(row, "MONTH"));
      if (!month.empty()) months_[forms.TextMatrix(row, "PRACTICE")].insert(month);
    }
  }

  const std::vector<int>& Rows() const { return rows_; }

  // Of all types.
  std::vector<int> Sessions(const Ledger& ledger) const {
    const Grid& sessions = ledger.fgSessions;
    const int practice = sessions.ColIndex("PRACTICE");
    const int startDate = sessions.ColIndex("SDATE");
    std::vector<int> found;
    for (int row = sessions.FixedRows(); row < sessions.Rows(); ++row) {
      if (sessions.IsSubtotal(row)) continue;
      const auto months = months_.find(sessions.TextMatrix(row, practice));
      if (months != months_.end() &&
          months->second.contains(MonthKeyOf(sessions.TextMatrix(row, startDate))))
        found.push_back(row);
    }
    return found;
  }

 private:
  std::vector<int> rows_;                                                    // of fgPensionA
  std::unordered_map<std::string, std::unordered_set<std::string>> months_;  // by the practice
};

struct ReturnedSums {
  Currency amount, pensionable, employer;
};

ReturnedSums SumForms(const Grid& forms, const std::vector<int>& rows) {
  ReturnedSums sums;
  for (const int row : rows) {
    sums.amount += Currency::FromText(forms.TextMatrix(row, "AMOUNT"));
    sums.pensionable += Currency::FromText(forms.TextMatrix(row, "PENSIONABLE"));
    sums.employer += Currency::FromText(forms.TextMatrix(row, "EMPLOYERCONTRIB"));
  }
  return sums;
}

void PutOnFormB(Ledger& ledger, const ReturnedForms& returned) {
  const RedrawOff sessionsOff(ledger.fgSessions);
  for (const int row : returned.Sessions(ledger))
    if (SessionTypeOf(ledger, row) == kTypeNormal &&
        ledger.fgSessions.TextMatrix(row, "FORMS") == "A")
      AddFormLetter(ledger, row, "B");
}

Single VoluntaryContribution(const Ledger& ledger, Double amount) {
  const std::string option = GetOption(ledger, optDefaultAVC);
  if (!option.ends_with('%')) return static_cast<Single>(Val(option));
  return static_cast<Single>(amount * 0.9 * (Val(option) / 100));
}

void AddFormB(Ledger& ledger, std::string_view monthKey, const ReturnedSums& sums) {
  const Double amount = sums.amount.ToDouble();
  const auto rate = static_cast<Single>(Val(GetOption(ledger, optMandatoryContribution)) / 100);
  const auto own = static_cast<Single>(Val(Money(amount * kFormPensionableShare * rate)));
  const Single avc = VoluntaryContribution(ledger, amount);
  const auto yearsRate = static_cast<Single>(Val(GetOption(ledger, optExtraYearsContrib)) / 100);
  const auto years = static_cast<Single>(amount * 0.9 * yearsRate);

  Grid& forms = ledger.fgPensionB;
  const int row = AddRecord(ledger, forms);
  const std::pair<std::string_view, std::string> cells[] = {
      {"MONTH", MonthCell(monthKey)},
      {"AMOUNT", Format(sums.amount, "0.00")},
      {"PENSIONABLE", Format(sums.pensionable, "0.00")},
      {"EMPLOYERCONTRIB", sums.employer.ToText()},
      {"CONTRIBUTION", Format(own, "#0.00")},
      {"AVC", Format(avc, "#0.00")},
      {"EXTRA_YEARS", Money(years)},
      {"ERRBO", "0"},
      {"ADDITIONAL", "0"},
      {"TOTAL_CONTRIB", Money(avc + own + years)}};
  for (const auto& [key, text] : cells) forms.SetTextMatrix(row, key, text);
}

void SetBlankToZero(Grid& forms, int row, std::string_view key) {
  if (Trim(forms.TextMatrix(row, key)).empty()) forms.SetTextMatrix(row, key, "0");
}

void RefuseScottishAvc(Ledger& ledger, Grid& forms, int row) {
  forms.SetTextMatrix(row, "AVC", "0");
  ShowMessage(
      ledger, "AVCs on Scottish Pension Forms",
      "You currently have your pension options set to use the Scottish pension "
      "forms.\\n\\nScottish pension Form B has no provision for AVCs. These must be entered "
      "on a seperate form. This has not been implemented in LedgerMinder yet.\\n\\nYou can "
      "change the country for your pension calculations on the Options screen.");
}

}  // namespace

int FormBRow(const Ledger& ledger, std::string_view monthKey) {
  return RowOfMonth(ledger.fgPensionB, monthKey);
}

bool FormBExists(const Ledger& ledger, std::string_view monthKey, std::string_view letter) {
  return RowOfMonth(letter == "B" ? ledger.fgPensionB : ledger.fgPensionD, monthKey) >= 0;
}

bool MayOverwriteFormB(Ledger& ledger, std::string_view monthKey) {
  const int row = FormBRow(ledger, monthKey);
  if (row < 0) return true;
  std::string question = "Do you wish to overwrite it?";
  if (!ledger.fgPensionB.TextMatrix(row, "SENTTOHA").empty())
    question = "This form has already been sent to the HA.\\n" + question;
  if (!Ask(ledger,
           "A Locum Form B has already been calculated for " + MonthText(monthKey, "mmmm yy") + ".",
           question, "Create Form B"))
    return false;
  RemoveFormB(ledger, monthKey);
  return true;
}

bool CreateFormB(Ledger& ledger, FormPrinter& printer, std::string_view monthKey) {
  const ReturnedForms returned(ledger, monthKey);
  if (returned.Rows().empty()) return false;
  PutOnFormB(ledger, returned);
  AddFormB(ledger, monthKey, SumForms(ledger.fgPensionA, returned.Rows()));
  printer.Write(FormKind::B, monthKey);  // without a document the form stands too
  return true;
}

bool DeleteFormB(Ledger& ledger, std::string_view monthKey) {
  if (FormBRow(ledger, monthKey) < 0) return false;
  if (!Ask(ledger, "Delete Pension Form",
           "Delete Pension Form B for " + MonthText(monthKey, "mmmm yyyy") + "?"))
    return false;
  if (!DeleteFormDocument(ledger, FormKind::B, monthKey)) return false;
  RemoveFormB(ledger, monthKey);
  return true;
}

void RemoveFormB(Ledger& ledger, std::string_view monthKey) {
  const RedrawOff sessionsOff(ledger.fgSessions);
  for (const int row : ReturnedForms(ledger, monthKey).Sessions(ledger))
    RemoveFormLetter(ledger, row, "B");
  const int row = FormBRow(ledger, monthKey);
  if (row >= 0) ledger.fgPensionB.RemoveItem(row);
}

std::optional<Single> RateOfFormB(const Ledger& ledger, std::string_view monthKey) {
  const int row = FormBRow(ledger, monthKey);
  const Double pensionable = Val(ledger.fgPensionB.TextMatrix(row, "PENSIONABLE"));
  if (row < 0 || pensionable == 0) return std::nullopt;
  const Double contribution = Val(ledger.fgPensionB.TextMatrix(row, "CONTRIBUTION"));
  return static_cast<Single>(RoundMoney(100 * (contribution / pensionable)));
}

void RecalculateFormB(Ledger& ledger, Grid& forms, int row, std::string_view editedKey) {
  constexpr std::string_view kExtras[] = {"ERRBO", "ADDITIONAL", "EXTRA_YEARS"};
  constexpr std::string_view kSummed[] = {"AVC", "CONTRIBUTION", "EXTRA_YEARS", "ERRBO",
                                          "ADDITIONAL"};
  const auto isEdited = [&](std::string_view key) { return EqualsIgnoreCase(key, editedKey); };
  if (isEdited("AVC")) {
    SetBlankToZero(forms, row, "AVC");
    if (ToUpper(GetOption(ledger, optPensionCountry)) == "SCOTLAND")
      RefuseScottishAvc(ledger, forms, row);
  } else if (std::ranges::any_of(kExtras, isEdited)) {
    for (const std::string_view key : kExtras) SetBlankToZero(forms, row, key);
  } else {
    return;
  }
  Double total = 0;
  for (const std::string_view key : kSummed) total += Val(forms.TextMatrix(row, key));
  forms.SetTextMatrix(row, "TOTAL_CONTRIB", Format(total, "#,##0.00"));
  MarkEdited(ledger, forms, row);
}

}  // namespace lm
