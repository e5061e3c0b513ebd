#include "shell/windows.h"

#include "documents/windows.h"
#include "pension/windows.h"
#include "records/windows.h"

namespace lm {

void AddWindows(WindowCatalogue& catalogue) {
  AddRecordWindows(catalogue);
  AddDocumentWindows(catalogue);
  AddPensionWindows(catalogue);
}

void AddMainWindows(WindowCatalogue& /*catalogue*/, frmMain& /*main*/) {}

}  // namespace lm
