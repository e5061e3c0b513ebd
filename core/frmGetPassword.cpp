#include "core/frmGetPassword.h"

#include "core/messagebox.h"

namespace lm {

frmGetPassword::frmGetPassword(Ledger& ledger, std::string_view filename)
    : Screen(ledger, "frmGetPassword", "Enter Password") {
  lblFilename.SetText(filename);
  txtPassword.password = true;
  cmdOk.SetText("&OK");
  cmdCancel.SetText("&Cancel");
  cmdHelp.SetText("&Help");
  defaultButton = &cmdOk;
  cancelButton = &cmdCancel;
  cmdOk.onPressed = [this] { Close(); };
  cmdCancel.onPressed = [this] {
    txtPassword.SetText("");
    Close();
  };
  cmdHelp.onPressed = [this] { ShowHelp(); };
}

void frmGetPassword::ShowHelp() {
  ShowMessage(
      ledger, "Password Help",
      "Enter the password that was set for this data file on the Options screen.\\n\\nIf you "
      "have never set a password, being asked for one means that the file is corrupted. Try "
      "loading a backup file.",
      Buttons::Ok, Icon::Information, "", WebPage("/UnableToLoad.php"));
}

std::string AskPassword(Ledger& ledger, std::string_view filename) {
  frmGetPassword window(ledger, filename);
  ShowModal(window);
  return window.txtPassword.Text();
}

}  // namespace lm
