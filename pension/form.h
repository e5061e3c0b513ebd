// What a pension form is. Forms A, B and SOLO and the retired C and D are described once each, in
// forma.cpp, formb.cpp, formsolo.cpp and retiredforms.cpp. Lists, windows, locks, documents and
// paper go by the description.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/ledger.h"
#include "core/pounds.h"
#include "core/tables.h"
#include "pension/formcoordinates.h"
#include "pension/month.h"

namespace lm {

class MonthSessions;
class SessionsByMonth;
struct FormFigures;
struct PensionForm;

// A cell as Form A sums up a session's amounts: a single, converted.
Currency SessionPounds(std::string_view cell);

// A form's row, in its table or in a working copy with the same columns.
struct FormRow {
  const PensionForm& form;
  const Grid& cells;
  int row;

  std::string Cell(std::string_view key) const { return cells.TextMatrix(row, key); }
  Double Pounds(std::string_view key) const { return PoundsOf(Cell(key)); }
  Month InMonth() const { return Month::OfCell(Cell("MONTH")); }
  std::string Practice() const;  // "" for a form of a month alone
};

// A figure of a form: a line of its window, a box on paper, and where it may be typed over a column
// of its list.
struct FormFigure {
  std::string_view label;
  std::string_view letter = "";                // of the box
  std::string_view key = "";                   // the cell that holds it,
  Double (*worked)(const FormRow&) = nullptr;  // or how it is worked out from several
  FormItem item = FormItem::None;
  bool blankPrints = true;         // 0, as what is no number does
  std::string_view inWindow = "";  // "" for the format of the window's column
  bool editable = false;           // until the form is sent
  void (*help)(Ledger&, const FormRow&) = nullptr;
};

// The dates of a form: while one of them is set it cannot be deleted, and is not overwritten
// without a word of it.
struct SentLock {
  std::span<const std::string_view> dates;
  // How a deletion is refused. The texts of list and window differ a little.
  struct Words {
    std::string_view title, heading, text;
  } inList, inWindow;
  // What overwriting goes by, the first that is set.
  struct Step {
    std::string_view date, words;
  };
  std::span<const Step> steps;
};

struct PensionForm {
  std::string_view letter;  // on the sessions, in titles, in file names
  std::string_view name;    // in messages
  Grid Ledger::*table;
  bool ofPractice;  // of a practice's month; the others are of a month alone
  int sessionType = -1;
  const SentLock* sent;
  std::span<const FormFigure> figures{};
  std::string_view onPaper = kAmountFormat;  // the figures

  // Of a form that a practice sends back: the form of the month in which it comes back, and how a
  // date of a month that is done is refused.
  const PensionForm* takenUpBy = nullptr;
  std::string_view refusedInList = "", refusedInWindow = "";
  const PensionForm* madeOf = nullptr;  // the other way round

  // As look-ups compare the cell MONTH.
  bool (*isOfMonth)(std::string_view monthCell, Month month) =
      [](std::string_view cell, Month month) { return month.Has(cell); };

  // Forms C and D lack what follows: they can be looked at and deleted, and made no more.

  // Why the form of one practice was not made.
  std::string_view noSessions = "";
  // Asks when something about the sessions speaks against making a form of them.
  bool (*mayMake)(Ledger&, const MonthSessions&, const std::string& practiceId) = nullptr;
  // The letters and the row, which is returned; -1, with nothing changed, without any sessions.
  int (*make)(Ledger&, const MonthSessions&, const std::string& practiceId) = nullptr;
  // After an edit of one of the editable figures.
  void (*recalculate)(Ledger&, Grid& cells, int row, std::string_view editedKey) = nullptr;
  // What the paper has beside the figures.
  void (*print)(const Ledger&, SessionsByMonth&, const FormRow&, FormFigures&) = nullptr;
  bool (*open)(Ledger&, int row) = nullptr;

  bool IsRetired() const { return make == nullptr; }
  // Null for a column that is no figure to type over.
  const FormFigure* EditableFigure(std::string_view key) const;
};

extern const PensionForm kFormA, kFormB, kFormSolo, kFormC, kFormD;
extern const SentLock kSentByPractice, kSentToHA, kSoloSentToHA;

// Null for a table that holds no forms.
const PensionForm* FormOfTable(const Grid& table);

}  // namespace lm
