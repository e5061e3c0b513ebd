// Asks for the password of a locked data file.
#pragma once

#include <string>
#include <string_view>

#include "core/screen.h"

namespace lm {

class frmGetPassword : public Screen {
 public:
  static constexpr std::string_view kPrompt =
      "This file is locked and requires a password to open it.";

  frmGetPassword(Ledger& ledger, std::string_view filename);

  LabelField lblFilename{this, "lblFilename"};
  TextField txtPassword{this, "txtPassword"};
  Button cmdOk{this, "cmdOk"};
  Button cmdCancel{this, "cmdCancel"};
  Button cmdHelp{this, "cmdHelp"};

 private:
  void ShowHelp();
};

// The password that the user entered; "" when none was or the window was cancelled.
std::string AskPassword(Ledger& ledger, std::string_view filename);

}  // namespace lm
