// Finds records of every kind by words, as they are typed. The record that is chosen opens when the
// window has closed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/screen.h"
#include "shell/find.h"

namespace lm {

class frmMain;

class frmFind : public Screen, private GridRules {
 public:
  // With the words that were looked for last. The main window outlives it.
  explicit frmFind(frmMain& main);

  TextField txtFind{this, "txtFind"};
  LabelField lblFound{this, "lblFound"};  // how many there are, or that there are none
  // DATE, WHAT, AMOUNT, DETAILS, and hidden KIND and ID. Each kind has a row with its caption, and
  // one behind it that tells how many are not shown.
  Grid fgResults{"fgResults"};
  Button cmdOpen{this, "cmdOpen"};
  Button cmdClose{this, "cmdClose"};

  // After the window has closed: the record that was chosen in its window, or selected on its page
  // where it has none. Nothing when none was.
  void OpenChosen();

 private:
  struct Record {
    const SearchedKind* kind = nullptr;
    int row = -1;
  };

  void Opened(int row) override;
  void Search(std::string_view typed);
  void Fill(const std::vector<FoundRecords>& found);
  void AddKind(const FoundRecords& found);
  void AddRow(const Record& record, const FoundLine& line);
  void Tell(std::string_view typed);

  frmMain& main_;
  RecordSearch search_;
  std::vector<SearchWord> words_;
  std::size_t count_ = 0;
  std::vector<Record> records_;  // by row of fgResults
  Record chosen_;
};

}  // namespace lm
