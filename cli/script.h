// Runs a script, one action a line, on the same screens that the desktop shows. What happened
// comes out as JSON objects, one a line, in the order in which it happened.
#pragma once

#include <deque>
#include <istream>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "cli/terminal.h"
#include "core/ledger.h"
#include "core/screen.h"
#include "shell/frmMain.h"

namespace lm {

// What ends a script: an unknown name, a disabled button, a bad word. The text is Windows-1252.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Script {
 public:
  Script(Terminal& terminal, Ledger& ledger, WindowCatalogue& windows);
  ~Script();

  // False when the script stopped at an error, which was emitted.
  bool Run(std::istream& lines);

 private:
  using Words = std::span<const std::string>;
  struct Action {
    std::string_view name;
    std::size_t leastWords;  // behind the action's name
    void (Script::*run)(Words words);
  };
  static const std::vector<Action>& Actions();

  void RunLines(Screen* until);
  void RunLine(const std::string& line);

  void DoLoad(Words words);
  void DoOpen(Words words);
  void DoSet(Words words);
  void DoPress(Words words);
  void DoSelect(Words words);
  void DoCell(Words words);
  void DoClick(Words words);
  void DoMenu(Words words);
  void DoCells(Words words);
  void DoHover(Words words);
  void DoDoubleClick(Words words);
  void DoDrag(Words words);
  void DoSort(Words words);
  void DoFoot(Words words);
  void DoSelectRows(Words words);
  void DoMoveColumn(Words words);
  void DoChart(Words words);
  void DoShow(Words words);
  void DoDump(Words words);
  void DoOption(Words words);
  void DoAnswers(Words words);
  void DoPath(Words words);
  void DoColour(Words words);
  void DoServe(Words words);
  void DoOutlook(Words words);
  void DoParse(Words words);
  void DoDigest(Words words);
  void DoWords(Words words);
  void DoFormat(Words words);
  void DoMerge(Words words);
  void DoSave(Words words);
  void DoUndo(Words words);
  void DoRedo(Words words);
  void Replay(const std::string& command, const std::string& step);

  // Blank tables and options must not replace the files.
  void RequireLoaded() const;
  Screen* Top() const;
  Field& NamedField(const std::string& name, bool alsoMainWindow) const;
  // A grid of the window on top, of the main window, or a table, by its name.
  Screen::ListedGrid NamedGrid(const std::string& name, Screen** owner = nullptr) const;
  // A cell of a grid that a window shows, by its numbers; the grid comes to the front.
  struct PointedCell {
    Screen* owner;
    Grid* grid;
    int row, col;
  };
  PointedCell Point(Words words);
  int NamedRow(const Grid& grid, const std::string& word) const;
  int NamedColumn(const Grid& grid, const std::string& key) const;
  void EmitField(const Field& field);
  void EmitRow(const Grid& grid, int row, Words keys, std::string_view edit = "");
  void EmitResult(std::string_view result, std::string_view message = "");

  Terminal& terminal_;
  Ledger& ledger_;
  WindowCatalogue& windows_;
  std::unique_ptr<frmMain> main_;
  std::vector<MenuEntry> menu_;  // the right-button menu that is open
  std::istream* lines_ = nullptr;
  std::exception_ptr failure_;
};

}  // namespace lm
