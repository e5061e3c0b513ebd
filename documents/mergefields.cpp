#include "documents/mergefields.h"

#include <algorithm>

#include "core/format.h"
#include "core/text.h"
#include "documents/mergevocabulary.h"
#include "documents/words.h"

namespace lm {
namespace {

constexpr std::string_view kMoneyAsWords = "[MONEY AS WORDS]";

// What stands for a field; `inner` is the text between its brackets.
std::string FieldText(std::string_view inner, const MergeRecords& records) {
  const std::size_t bar = std::min(inner.find('|'), inner.size());
  const MergeField* field = FindMergeField(inner.substr(0, bar));
  if (!field) return "";
  const std::string value = field->value(records, field->column);
  const std::string_view format = Trim(inner.substr(std::min(bar + 1, inner.size())));
  return EqualsIgnoreCase(format, kMoneyAsWords) ? MoneyInWords(value) : Format(value, format);
}

}  // namespace

std::string MergeFields::Merge(std::string_view caption, const MergeContext& context) const {
  std::size_t open = caption.find('{');
  if (open == std::string_view::npos) return std::string(caption);
  const MergeRecords records(ledger_, index_, context, sums_);
  std::string result;
  while (open != std::string_view::npos) {
    result += caption.substr(0, open);
    caption.remove_prefix(open + 1);
    const std::size_t close = std::min(caption.find('}'), caption.size());
    result += FieldText(caption.substr(0, close), records);
    caption.remove_prefix(std::min(close + 1, caption.size()));
    open = caption.find('{');
  }
  return result.append(caption);
}

std::string Merge(const Ledger& ledger, std::string_view caption, const MergeContext& context) {
  const RecordIndex index(ledger);
  return MergeFields(ledger, index).Merge(caption, context);
}

bool IsMergeField(std::string_view name) { return FindMergeField(name) != nullptr; }

}  // namespace lm
