#include "shell/listfilter.h"

#include <algorithm>

#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"

namespace lm {
namespace {

bool IsNote(std::string_view key) { return ToUpper(key).find("NOTE") != std::string::npos; }

}  // namespace

ListFilter::ListFilter(Grid& table) : table_(table) { table_.AddObserver(*this); }

ListFilter::~ListFilter() { table_.RemoveObserver(*this); }

bool ListFilter::SetText(std::string_view typed) {
  text_ = typed;
  std::vector<SearchWord> words = SearchWords(typed);
  if (words == words_) return false;
  words_ = std::move(words);
  return true;
}

std::vector<int> ListFilter::SearchedColumns() const {
  std::vector<int> columns;
  for (int col = HasMarker(table_) ? 1 : 0; col < table_.Cols(); ++col)
    if (table_.ColVisible(col) || IsNote(table_.ColKey(col))) columns.push_back(col);
  return columns;
}

void ListFilter::Prepare() {
  if (index_) return;
  index_.emplace(table_);
  for (const int col : SearchedColumns()) index_->AddCell(col);
  index_->Read();
}

RowTest ListFilter::TestOfAll() {
  if (!table_.Redraw()) index_.reset();  // what has changed is told later
  Prepare();
  std::vector<std::size_t> rows;
  for (const int row : Records(table_)) rows.push_back(static_cast<std::size_t>(row));
  std::vector<bool> shown(static_cast<std::size_t>(table_.Rows()));
  for (const std::size_t place : index_->PlacesMatching(words_)) shown[rows[place]] = true;
  return [shown = std::move(shown)](int row) { return shown[static_cast<std::size_t>(row)]; };
}

bool ListFilter::Shows(int row) const {
  std::vector<std::string> texts;
  for (const int col : SearchedColumns())
    texts.push_back(ToLower(SearchedSpelling(table_, row, col)));
  return std::ranges::all_of(words_, [&](const SearchWord& word) {
    return std::ranges::any_of(texts, [&](const std::string& text) { return HasWord(text, word); });
  });
}

}  // namespace lm
