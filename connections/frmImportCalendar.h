// Makes sessions of the appointments of a calendar, in a file or on the web.
#pragma once

#include <optional>
#include <string>

#include "connections/icalimport.h"
#include "core/screen.h"

namespace lm {

class frmImportCalendar : public Screen {
 public:
  explicit frmImportCalendar(Ledger& ledger);

  TextField txtICalAddress{this, "txtICalAddress"};
  Button cmdSelectCalendar{this, "cmdSelectCalendar"};
  LabelField lblLastSync_ICal{this, "lblLastSync_ICal"};
  LabelField lblStatus{this, "lblStatus"};
  Button cmdImportFromICal{this, "cmdImportFromICal"};
  Button cmdOptions{this, "cmdOptions"};
  Button cmdClose{this, "cmdClose"};

  bool HasImported() const { return hasImported_; }  // a calendar was read to its end

 private:
  void SelectCalendar();
  void ChangeOptions();
  void ShowLastImport();
  void ShowStatus(int percent, std::string_view text);

  void Import();
  // Nothing after its message, or when the user cancelled.
  std::optional<std::string> TextOf(const std::string& address);
  std::optional<std::string> TextOfFile(const std::string& address);
  bool MayBeRead(const CalendarText& calendar);
  void RefuseTooMany();
  CalendarImport Read(const CalendarText& calendar);
  void StoreLastImport(const std::string& address);
  void ShowResult(const CalendarImport& import);

  bool hasImported_ = false;
};

}  // namespace lm
