// What is installed: version, folder, and the libraries that the program is built on.
#pragma once

#include "core/screen.h"

namespace lm {

class frmAbout : public Screen {
 public:
  explicit frmAbout(Ledger& ledger);

  TabField tabTab{this, "tabTab", {"Details", "Licences"}};
  LabelField frameDetails{this, "frameDetails"};  // what stands behind each tab
  LabelField frameLicences{this, "frameLicences"};
  LabelField lblProduct{this, "lblProduct"};
  LabelField lblVersion{this, "lblVersion"};
  LabelField lblVersionDate{this, "lblVersionDate"};
  LabelField lblInstalDir{this, "lblInstalDir"};
  LabelField lblEULA{this, "lblEULA"};
  CheckField chkOpenWith{this, "chkOpenWith"};  // on systems where the program offers itself
  Grid fgLicences{"fgLicences"};                // a double click opens the library's page
  Button cmdCheckForUpdates{this, "cmdCheckForUpdates"};
  Button cmdOK{this, "cmdOK"};

 private:
  class OpensPages : public GridRules {
   public:
    explicit OpensPages(frmAbout& window) : window_(window) {}
    void Opened(int row) override;

   private:
    frmAbout& window_;
  } pages_{*this};

  void ShowFrame();
  void FillLicences();
};

}  // namespace lm
