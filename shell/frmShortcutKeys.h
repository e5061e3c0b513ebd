// The window that changes the keys of the commands.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/screen.h"

namespace lm {

class frmMain;

class frmShortcutKeys : public Screen, private GridObserver {
 public:
  explicit frmShortcutKeys(frmMain& main);
  ~frmShortcutKeys() override;

  // ACTION, SHORTCUT, NOTE (who else has the key), and hidden IDENTIFIER, KEY, KEYSHIFT. A row of a
  // group has no identifier.
  Grid fgKeys{"fgKeys"};
  ComboField cboKeys{this, "cboKeys"};
  CheckField chkSHIFT{this, "chkSHIFT"};
  CheckField chkCTRL{this, "chkCTRL"};
  CheckField chkALT{this, "chkALT"};
  Button cmdResetShortcuts{this, "cmdResetShortcuts"};
  Button cmdOK{this, "cmdOK"};
  Button cmdCancel{this, "cmdCancel"};

 private:
  struct Stored {
    std::string identifier, key, keyShift;
  };

  void FillKeys();
  void ShowRow();
  void StoreRow();
  void ShowTexts(int row);
  void NoteOthers();
  void Reset();
  void Ok();
  void Cancel();

  std::array<Field*, 4> KeyFields();
  bool OnAction() const;
  std::vector<int> RowsInForce() const;

  void CellsChanged(Grid&, const CellRange&) override {}
  void RowsInserted(Grid&, int, int) override {}
  void RowsRemoved(Grid&, int, int) override {}
  void LayoutChanged(Grid&) override {}
  void CursorMoved(Grid&) override { ShowRow(); }
  void GridReset(Grid&) override { ShowRow(); }

  frmMain& main_;
  std::vector<Stored> before_;  // fgShortcuts when the window was opened, for Cancel
};

}  // namespace lm
