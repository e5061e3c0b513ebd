// Merge fields: "{NAME}" and "{NAME|format}" in the captions of templates and e-mails, replaced by
// what the records hold. Names ignore case; an unknown name gives nothing. There is no sign for a
// bracket that is meant as one, and a "{" without "}" takes the rest.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger.h"
#include "core/numbers.h"
#include "records/recordindex.h"

namespace lm {

struct Statement;

// The records that fields draw on, by ID; an empty or unknown ID leaves its fields empty.
struct MergeContext {
  std::string invoice{}, session{}, extra{}, expense{};
  const Statement* statement = nullptr;  // outlives the context; null: its fields are empty
  bool pageNumbers = false;  // PAGE and PAGES are the writer's place holders, otherwise empty
};

// Sums over the sessions of one invoice.
struct MergedSums {
  std::string invoice;  // its ID
  Single rates = 0, extras = 0, expenses = 0, pensionable = 0;
  bool elsewhere = false;  // a session was not at the invoice's practice
};

// Many captions over the same records, which do not change meanwhile: the sums of the invoice that
// was merged last are kept, since a template may ask for them on every page. Ledger and index
// outlive it.
class MergeFields {
 public:
  MergeFields(const Ledger& ledger, const RecordIndex& index) : ledger_(ledger), index_(index) {}
  std::string Merge(std::string_view caption, const MergeContext& context) const;

 private:
  const Ledger& ledger_;
  const RecordIndex& index_;
  mutable MergedSums sums_;
};

// A single caption; builds its own index.
std::string Merge(const Ledger& ledger, std::string_view caption, const MergeContext& context);

// True for a name of the vocabulary, in any case.
bool IsMergeField(std::string_view name);

}  // namespace lm
