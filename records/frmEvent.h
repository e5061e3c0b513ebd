// The window of a calendar event. Each field is named after the column that it edits.
#pragma once

#include <string>

#include "core/screen.h"

namespace lm {

class frmEvent : public Screen {
 public:
  explicit frmEvent(Ledger& ledger);

  // A new event on this day, dd/mm/yyyy; today where there is none.
  void New(std::string_view date);
  bool Open(std::string_view id);  // false when there is no such event

  LabelField cID{this, "cID"};
  TextField cTitle{this, "cTitle"};
  TextField cLocation{this, "cLocation"};
  ComboField cCategory{this, "cCategory"};
  TextField cSDate{this, "cSDate"};
  Button cmdSDate{this, "cmdSDate"};
  TextField cEDate{this, "cEDate"};
  Button cmdEDate{this, "cmdEDate"};
  TextField cNotes{this, "cNotes"};
  Button cmdDelete{this, "cmdDelete"};
  Button cmdOk{this, "cmdOk"};
  Button cmdCancel{this, "cmdCancel"};

 private:
  Field* FieldOf(int col) const;
  std::string_view WhatIsWrong() const;
  void Ok();
  void Delete();

  std::string storedCategory_;  // one that the options no longer have stays in the row
};

}  // namespace lm
