// What a session row means: its type, how its money columns come about, what locks it.
//
// The money rules name the kind of number at each step, and the kinds and the order of operations
// are part of the result. The session window and the list recalculate in slightly different
// orders, so that there are two variants of the fee and of the recalculation; they are not to be
// merged. Fees, sums and contributions are texts in pounds; what is not a number reads as 0.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ledger.h"
#include "core/numbers.h"
#include "core/sessiontypes.h"

namespace lm {

// Pounds an hour: the practice's own rate for the type or, with no practice ("" or an unknown ID)
// or an empty cell there, the default of option 64. Empty when neither is set. Codes that are no
// type have the rates of NHS Normal.
std::optional<Single> HourlyRate(const Ledger& ledger, int typeCode, std::string_view practiceId);

// The texts of the four date and time fields or cells; endDate is "" for a same-day session.
struct SessionTimes {
  std::string_view startDate, startTime, endDate, endTime;
};

// The fee for the hours worked, as the window writes it ("120.00"). Empty, and the fee is to be
// left as it stands, when there is no hourly rate or when start date, start time or end time is
// missing or damaged. An end before the start gives "0.00".
std::optional<std::string> FeeFromTimes(const Ledger& ledger, int typeCode,
                                        std::string_view practiceId, const SessionTimes& times);
// The same, but below zero when the session ends before it starts.
std::optional<std::string> HourlyFee(const Ledger& ledger, int typeCode,
                                     std::string_view practiceId, const SessionTimes& times);
// The same rule on a row of fgSessions: RATE receives the plain text of a Single ("120").
void GridFeeFromTimes(Ledger& ledger, int row);

// The calculated fields of the window, each with two decimals.
struct SessionSums {
  std::string pensionable;  // the whole of rate and extras, whatever the type
  std::string employerContrib;
  std::string total;
};
// From the window's texts; contribRate is the percentage that the window shows.
SessionSums WindowRecalculation(int typeCode, std::string_view rate, std::string_view extras,
                                std::string_view expenses, std::string_view contribRate);
// EMPLOYERCONTRIB and TOTAL of a row of fgSessions, by the percentage stored on the row.
void GridRecalculation(Ledger& ledger, int row);

// The sum of the RATE cells of a working grid of extras or expenses, with two decimals. Hidden rows
// are deleted ones and do not count.
std::string SumOfItems(const Grid& items);

// What a date or time that cannot be read is told with.
constexpr std::string_view kInvalidStartDate = "Please enter a valid start date.";
constexpr std::string_view kInvalidEndDate = "Please enter a valid end date.";
constexpr std::string_view kInvalidStartTime = "Please enter a valid start time.";
constexpr std::string_view kInvalidEndTime = "Please enter a valid end time.";

// Row of the session with this ID, never a group row; -1 when there is none.
int SessionRow(const Ledger& ledger, std::string_view id);
int SessionTypeOf(const Ledger& ledger, int row);

// A session that stands on a pension form or an invoice is locked against change.
inline bool IsLocked(std::string_view forms, std::string_view invoice) {
  return !forms.empty() || !invoice.empty();
}
bool IsSessionLocked(const Ledger& ledger, int row);

// Whether another session than `exceptId` ("" for a new one) starts on this date at this time, by
// the texts of the cells and wherever it is worked. False while either text is empty.
bool StartsTogether(const Ledger& ledger, std::string_view date, std::string_view time,
                    std::string_view exceptId = "");

// Why a locked session cannot be deleted; the invoice is named first. Empty when it is not locked.
struct LockMessage {
  std::string_view mainPrompt;
  std::string_view minorPrompt;
};
std::optional<LockMessage> DeleteRefusal(std::string_view forms, std::string_view invoice);

// Asks and removes the session with its extras and expenses. True when the user said yes: also
// for "", a new session that no table holds yet. False after its message when the session is
// locked, without one when there is no such session.
bool DeleteSession(Ledger& ledger, std::string_view id);
// The same of a session's row, which may be damaged and have no ID.
bool DeleteSessionOfRow(Ledger& ledger, int row);

// The FORMS cell with a form's letter ("A", "B", "SOLO") put in, once, or taken out.
std::string WithFormLetter(std::string_view forms, std::string_view letter);
std::string WithoutFormLetter(std::string_view forms, std::string_view letter);
// The same on a row of fgSessions; a row that changes is marked as edited.
void AddFormLetter(Ledger& ledger, int row, std::string_view letter);
void RemoveFormLetter(Ledger& ledger, int row, std::string_view letter);

// "Not invoiced yet", or the number of the invoice. `row` -1 is a new session.
std::string InvoiceStatusText(const Ledger& ledger, int row);
// What a session on no form shows: "Not pensioned yet" or "Not pensionable".
std::string_view UnpensionedText(int typeCode);

// The contribution and its rate are shown to users in England only; they are calculated everywhere.
bool ShowsEmployerContrib(const Ledger& ledger);
// What the help icons beside it tell.
std::string EmployerContribHelp(const Ledger& ledger);

}  // namespace lm
