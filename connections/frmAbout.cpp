#include "connections/frmAbout.h"

#include "connections/updatecheck.h"
#include "core/dates.h"
#include "core/files.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/tables.h"

namespace lm {
namespace {

constexpr ColumnSpec kColumns[] = {
    {"NAME", "Library", DataType::Text, "", 2300},
    {"USE", "Serves", DataType::Text, "", 2500},
    {"LICENCE", "Licence", DataType::Text, "", 1000},
    {"PAGE", "Website", DataType::Text, "", 3400},
};

// What the program is linked with, as docs/dependencies.md has it.
constexpr struct {
  std::string_view name, use, licence, page;
} kLibraries[] = {
    {"Qt 6", "windows, drawing, printing", "LGPL-3.0", "https://www.qt.io"},
    {"libdeflate", "packing documents", "MIT", "https://github.com/ebiggers/libdeflate"},
    {"zlib", "unpacking documents", "Zlib", "https://zlib.net"},
    {"pugixml", "reading XML", "MIT", "https://pugixml.org"},
#if !defined(_WIN32)
    {"libcurl", "reading the web", "curl", "https://curl.se"},
#endif
    {"JSON for Modern C++", "the command line", "MIT", "https://json.nlohmann.me"},
};

std::string VersionDate(const Ledger& ledger) {
  const std::string date = GetOption(ledger, optUpgradeDate);
  const auto day = CellDate(date);
  return day ? FormatDate(*day, "ddd d mmmm yyyy") : date;
}

}  // namespace

frmAbout::frmAbout(Ledger& theLedger)
    : Screen(theLedger, "frmAbout", "About " + std::string(kProductName)) {
  lblProduct.SetText(kProductName);
  lblVersion.SetText("Version " + std::string(ProgramVersion()));
  lblVersionDate.SetText(VersionDate(ledger));
  lblInstalDir.SetText(NativePathText(ledger.programDirectory));
  lblEULA.SetText("Licence agreement");
  lblEULA.onPressed = [this] { OpenLink(ledger, WebPage("/EULA.php")); };
  const auto offered = ledger.platform.system.OpenWithOffered();
  chkOpenWith.SetVisible(offered.has_value());
  chkOpenWith.SetChecked(offered.value_or(false));
  chkOpenWith.onEntered = [this] {
    if (ledger.platform.system.OfferOpenWith(chkOpenWith.Checked())) return true;
    ShowMessage(ledger, "Windows did not take the change");
    return false;
  };
  FillLicences();
  ShowFrame();
  tabTab.onEntered = [this] {
    ShowFrame();
    return true;
  };
  cmdCheckForUpdates.onPressed = [this] { CheckForUpdates(ledger); };
  cmdOK.onPressed = [this] { Close(); };
  defaultButton = cancelButton = &cmdOK;
  Focus(cmdOK);
}

void frmAbout::ShowFrame() {
  frameDetails.SetVisible(tabTab.Selected() == 0);
  frameLicences.SetVisible(tabTab.Selected() == 1);
}

void frmAbout::FillLicences() {
  MakeBlank(fgLicences, {fgLicences.Name(), kColumns});
  for (const auto& library : kLibraries) {
    const int row = fgLicences.AddItem("");
    fgLicences.SetTextMatrix(row, "NAME", library.name);
    fgLicences.SetTextMatrix(row, "USE", library.use);
    fgLicences.SetTextMatrix(row, "LICENCE", library.licence);
    fgLicences.SetTextMatrix(row, "PAGE", library.page);
  }
  AddGrid(fgLicences, &pages_);
}

void frmAbout::OpensPages::Opened(int row) {
  OpenLink(window_.ledger, window_.fgLicences.TextMatrix(row, "PAGE"));
}

}  // namespace lm
