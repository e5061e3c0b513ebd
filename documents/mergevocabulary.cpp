#include "documents/mergevocabulary.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/dates.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/sessiontypes.h"
#include "core/text.h"
#include "documents/moneyowed.h"
#include "documents/statements.h"

namespace lm {
namespace {

using Records = const MergeRecords&;
using Column = std::string_view;

std::string SessionCell(Records r, Column column) {
  return r.ledger.fgSessions.TextMatrix(r.session, column);
}
std::string ExtraCell(Records r, Column column) {
  return r.ledger.fgExtras.TextMatrix(r.extra, column);
}
std::string ExpenseCell(Records r, Column column) {
  return r.ledger.fgSessionExpenses.TextMatrix(r.expense, column);
}
std::string PracticeCell(Records r, Column column) {
  return r.ledger.fgPractices.TextMatrix(r.practice, column);
}
std::string InvoiceCell(Records r, Column column) {
  return r.ledger.fgInvoices.TextMatrix(r.invoice, column);
}

template <int field>
std::string Detail(Records r, Column) {
  return MyDetail(r.ledger, field);
}

template <int option>
std::string OptionText(Records r, Column) {
  return GetOption(r.ledger, option);
}

Single SessionNumber(const Ledger& ledger, int row, Column column) {
  return static_cast<Single>(Val(ledger.fgSessions.TextMatrix(row, column)));
}

std::string SessionPensionable(Records r, Column) {
  if (r.session < 0) return "";
  return PlainText(SessionNumber(r.ledger, r.session, "RATE") +
                   SessionNumber(r.ledger, r.session, "EXTRAS"));
}

std::string SessionPractice(Records r, Column) {
  const int practice = r.index.Practice(SessionCell(r, "PRACTICE"));
  return r.ledger.fgPractices.TextMatrix(practice, "NAME");
}

// Deputising sessions have no text.
std::string SessionTypeText(Records r, Column) {
  const std::string code = SessionCell(r, "SESS_TYPE");
  for (const SessionType& type : kSessionTypes)
    if (PlainText(type.code) == code) return std::string(type.shortCaption);
  return "";
}

// In single precision, in the order of the table.
MergedSums SumUp(Records r, const std::string& invoiceId) {
  MergedSums sums{.invoice = invoiceId};
  for (const int row : r.index.SessionsOfInvoice(invoiceId)) {
    const Single rate = SessionNumber(r.ledger, row, "RATE");
    const Single extras = SessionNumber(r.ledger, row, "EXTRAS");
    sums.rates += rate;
    sums.extras += extras;
    sums.expenses += SessionNumber(r.ledger, row, "EXPENSES");
    sums.pensionable = sums.pensionable + rate + extras;
    sums.elsewhere |=
        r.index.Practice(r.ledger.fgSessions.TextMatrix(row, "PRACTICE")) != r.practice;
  }
  return sums;
}

const MergedSums& SumsOfInvoice(Records r) {
  const std::string invoiceId = InvoiceCell(r, "ID");
  if (r.sums.invoice != invoiceId) r.sums = SumUp(r, invoiceId);
  return r.sums;
}

template <Single MergedSums::*sum>
std::string Sum(Records r, Column) {
  return r.invoice < 0 ? "" : PlainText(SumsOfInvoice(r).*sum);
}

// The session's practice, unless all sessions of the invoice are at the one that it goes to.
std::string SessionBranch(Records r, Column column) {
  return r.invoice >= 0 && SumsOfInvoice(r).elsewhere ? SessionPractice(r, column) : "";
}

std::string Request(Records r, Column) { return PaymentRequest(r.ledger, r.invoice); }
std::string Reminder(Records r, Column) { return PaymentReminder(r.ledger, r.invoice); }
std::string ReminderAsk(Records r, Column) { return ReminderRequest(r.ledger, r.invoice); }
std::string Heading(Records r, Column) { return ReminderHeading(r.ledger, r.invoice); }
std::string OverdueDays(Records r, Column) {
  const int days =
      DaysOverdue(PaymentStateOf(r.ledger.fgInvoices, r.invoice), r.ledger.platform.clock.Now());
  return days == 0 ? "" : PlainText(days);
}
template <Currency Statement::*sum>
std::string StatementSum(Records r, Column) {
  return r.statement ? (r.statement->*sum).ToText() : "";
}
std::string StatementWords(Records r, Column) {
  return r.statement ? StatementRequest(r.ledger, *r.statement) : "";
}
std::string StatementList(Records r, Column) {
  return r.statement ? StatementLines(r.ledger, *r.statement) : "";
}
std::string Salutation(Records r, Column) {
  const std::string manager = PracticeCell(r, "PMANAGER");
  return "Dear " + (Trim(manager).empty() ? "Practice Manager" : manager) + ",";
}
std::string Today(Records r, Column) { return CellText(r.ledger.platform.clock.Now()); }
std::string TimeNow(Records r, Column) { return CellTimeText(r.ledger.platform.clock.Now()); }
std::string PageMark(Records r, Column mark) {
  return r.pageNumbers ? std::string(mark) : std::string();
}

std::string MyFullName(Records r, Column) {
  return MyDetail(r.ledger, kFirstNameField) + " " + MyDetail(r.ledger, kLastNameField);
}

// Aliases stand together; "MY PHONENUMER" is in templates that users have.
constexpr MergeField kFields[] = {
    {"START DATE", SessionCell, "SDATE"},
    {"START TIME", SessionCell, "STIME"},
    {"END DATE", SessionCell, "EDATE"},
    {"END TIME", SessionCell, "ETIME"},
    {"SESSION RATE", SessionCell, "RATE"},
    {"RATE", SessionCell, "RATE"},
    {"SESSION EXTRAS", SessionCell, "EXTRAS"},
    {"EXTRAS", SessionCell, "EXTRAS"},
    {"SESSION EXPENSES", SessionCell, "EXPENSES"},
    {"EXPENSES", SessionCell, "EXPENSES"},
    {"SESSION TOTAL", SessionCell, "TOTAL"},
    {"SESSION PENSIONABLE", SessionPensionable},
    {"SESSION EMPLOYERCONTRIB", SessionCell, "EMPLOYERCONTRIB"},
    {"SESSION EMPLOYERCONTRIBRATE", SessionCell, "EMPLOYERCONTRIBRATE"},
    {"SESSION NOTE", SessionCell, "PUBLICNOTE"},
    {"SESSION PRACTICE", SessionPractice},
    {"SESSION BRANCH", SessionBranch},
    {"EMPLOYERCONTRIBRATE", OptionText<optEmployerContribRate>},
    {"SESSION TYPE", SessionTypeText},
    {"EXTRA ITEM", ExtraCell, "ITEM"},
    {"EXTRA RATE", ExtraCell, "RATE"},
    {"EXPENSE ITEM", ExpenseCell, "ITEM"},
    {"EXPENSE RATE", ExpenseCell, "RATE"},
    {"EXPENSE CATEGORY", ExpenseCell, "CATEGORY"},
    {"PRACTICE NAME", PracticeCell, "NAME"},
    {"PRACTICE", PracticeCell, "NAME"},
    {"PRACTICE MANAGER", PracticeCell, "PMANAGER"},
    {"PRACTICE ADDRESS 1", PracticeCell, "ADDR1"},
    {"PRACTICE ADDRESS 2", PracticeCell, "ADDR2"},
    {"PRACTICE ADDRESS 3", PracticeCell, "ADDR3"},
    {"PRACTICE ADDRESS 4", PracticeCell, "ADDR4"},
    {"PRACTICE POSTCODE", PracticeCell, "POSTCODE"},
    {"PRACTICE POST CODE", PracticeCell, "POSTCODE"},
    {"PRACTICE EMAIL", PracticeCell, "EMAIL"},
    {"PRACTICE PHONE", PracticeCell, "PHONE"},
    {"PRACTICE FAX", PracticeCell, "FAX"},
    {"PRACTICE EA CODE", PracticeCell, "PCODE"},
    {"PRACTICE ODS CODE", PracticeCell, "ODS_CODE"},
    {"PRACTICE WEBSITE", PracticeCell, "WEB"},
    {"INVOICE TOTAL", InvoiceCell, "AMOUNT"},
    {"INVOICE AMOUNT", InvoiceCell, "AMOUNT"},
    {"INVOICE NUMBER", InvoiceCell, "NUMBER"},
    {"INVOICE NOTE", InvoiceCell, "PUBLICNOTE"},
    {"INVOICE NOTES", InvoiceCell, "PUBLICNOTE"},
    {"INVOICE DATE", InvoiceCell, "IDATE"},
    {"INVOICE DUE DATE", InvoiceCell, "DUEDATE"},
    {"PAYMENT REQUEST", Request},
    {"PAYMENT REMINDER", Reminder},
    {"REMINDER REQUEST", ReminderAsk},
    {"REMINDER HEADING", Heading},
    {"INVOICE DAYS OVERDUE", OverdueDays},
    {"SALUTATION", Salutation},
    {"STATEMENT TOTAL", StatementSum<&Statement::total>},
    {"STATEMENT OVERDUE", StatementSum<&Statement::overdue>},
    {"STATEMENT REQUEST", StatementWords},
    {"STATEMENT INVOICES", StatementList},
    {"INVOICE PENSIONABLE", Sum<&MergedSums::pensionable>},
    {"INVOICE RATES", Sum<&MergedSums::rates>},
    {"INVOICE EMPLOYERCONTRIB", InvoiceCell, "EMPLOYERCONTRIB"},
    {"INVOICE EXPENSES", Sum<&MergedSums::expenses>},
    {"INVOICE EXTRAS", Sum<&MergedSums::extras>},
    {"DATE", Today},
    {"TIME", TimeNow},
    {"NOW", TimeNow},
    {"PAGE", PageMark, "#PAGE"},
    {"PAGES", PageMark, "#PAGES"},
    {"MY NAME", MyFullName},
    {"MY FULLNAME", MyFullName},
    {"MY FIRST NAME", Detail<kFirstNameField>},
    {"MY FIRSTNAME", Detail<kFirstNameField>},
    {"MY LAST NAME", Detail<kLastNameField>},
    {"MY LASTNAME", Detail<kLastNameField>},
    {"MY SURNAME", Detail<kLastNameField>},
    {"MY TITLE", Detail<kMyTitleField>},
    {"MY ADDRESS 1", Detail<kAddress1Field>},
    {"MY ADDRESS 2", Detail<kAddress2Field>},
    {"MY ADDRESS 3", Detail<kAddress3Field>},
    {"MY ADDRESS 4", Detail<kAddress4Field>},
    {"MY POSTCODE", Detail<kPostcodeField>},
    {"MY POST CODE", Detail<kPostcodeField>},
    {"MY EMAIL", Detail<kEmailField>},
    {"MY PHONE", Detail<kTelephoneField>},
    {"MY PHONE NUMBER", Detail<kTelephoneField>},
    {"MY PHONENUMER", Detail<kTelephoneField>},
    {"MY DOB", Detail<kBirthDateField>},
    {"MY D.O.B.", Detail<kBirthDateField>},
    {"MY QUALIFICATIONS", Detail<kQualificationsField>},
    {"MY GMCNUMBER", Detail<kGmcNumberField>},
    {"MY GMC NUMBER", Detail<kGmcNumberField>},
    {"MY SUPPLISTNUMBER", Detail<kPerformersNumberField>},
    {"MY PROFINDCOMPANY", Detail<kIndemnityCompanyField>},
    {"MY PROFINDNUMBER", Detail<kIndemnityNumberField>},
    {"MY ODSCODE", Detail<kOdsCodeField>},
    {"MY BANK DETAILS", Detail<kBankDetailsField>},
    {"MY ACCOUNT NAME", Detail<kAccountNameField>},
    {"MY SORT CODE", Detail<kSortCodeField>},
    {"MY ACCOUNT NUMBER", Detail<kAccountNumberField>},
    {"MY DAYS TO PAY", Detail<kDaysToPayField>},
};

}  // namespace

MergeRecords::MergeRecords(const Ledger& ledger, const RecordIndex& index,
                           const MergeContext& context, MergedSums& sums)
    : ledger(ledger),
      index(index),
      invoice(index.Invoice(context.invoice)),
      session(index.Session(context.session)),
      extra(index.Extra(context.extra)),
      expense(index.Expense(context.expense)),
      practice(index.Practice(ledger.fgInvoices.TextMatrix(invoice, "PRACTICE"))),
      statement(context.statement),
      pageNumbers(context.pageNumbers),
      sums(sums) {}

const MergeField* FindMergeField(std::string_view name) {
  const std::string upper = ToUpper(Trim(name));
  const auto* field = std::find_if(std::begin(kFields), std::end(kFields),
                                   [&](const MergeField& each) { return each.name == upper; });
  return field == std::end(kFields) ? nullptr : field;
}

}  // namespace lm
