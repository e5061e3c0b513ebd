// What is typed into the box above a list: the list shows the records that hold all the words in
// what its columns show, or in their notes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/periodfilter.h"
#include "shell/textsearch.h"

namespace lm {

class ListFilter : private GridObserver {
 public:
  // The table outlives the filter.
  explicit ListFilter(Grid& table);
  ~ListFilter() override;
  ListFilter(const ListFilter&) = delete;
  ListFilter& operator=(const ListFilter&) = delete;

  // False when it asks for no other words than before.
  bool SetText(std::string_view typed);
  const std::string& Text() const { return text_; }
  bool IsOn() const { return !words_.empty(); }

  // Reads the texts of the table, unless they are known as they are now: before the first key
  // stroke, which need not wait for it then.
  void Prepare();
  // For a pass over all rows, by the table as it is now.
  RowTest TestOfAll();
  // For single rows.
  bool Shows(int row) const;

  // While rows are only hidden and shown, and groups made anew, what was read stays true.
  class OnlyHiding {
   public:
    explicit OnlyHiding(ListFilter& filter) : filter_(filter) { filter_.hiding_ = true; }
    ~OnlyHiding() { filter_.hiding_ = false; }
    OnlyHiding(const OnlyHiding&) = delete;
    OnlyHiding& operator=(const OnlyHiding&) = delete;

   private:
    ListFilter& filter_;
  };

 private:
  std::vector<int> SearchedColumns() const;
  void Changed() {
    if (!hiding_) index_.reset();
  }
  void CellsChanged(Grid&, const CellRange&) override { Changed(); }
  void RowsInserted(Grid&, int, int) override { Changed(); }
  void RowsRemoved(Grid&, int, int) override { Changed(); }
  void LayoutChanged(Grid&) override { Changed(); }
  void CursorMoved(Grid&) override {}
  void GridReset(Grid&) override { Changed(); }

  Grid& table_;
  std::string text_;
  std::vector<SearchWord> words_;
  std::optional<TextIndex> index_;  // none when the table has changed since
  bool hiding_ = false;
};

}  // namespace lm
