// The names that merge fields may have, each with the source of its value.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger.h"
#include "documents/mergefields.h"
#include "records/recordindex.h"

namespace lm {

// The rows that the fields of a caption draw on, -1 where there is none.
struct MergeRecords {
  MergeRecords(const Ledger& ledger, const RecordIndex& index, const MergeContext& context,
               MergedSums& sums);

  const Ledger& ledger;
  const RecordIndex& index;
  const int invoice, session, extra, expense;
  const int practice;  // of the invoice
  const Statement* const statement;
  const bool pageNumbers;
  MergedSums& sums;  // of whichever invoice was summed up last
};

struct MergeField {
  std::string_view name;  // in upper case
  std::string (*value)(const MergeRecords& records, std::string_view column);
  std::string_view column = "";  // for a value that is a cell
};

// Ignores the case of the name and blanks around it; null for an unknown one.
const MergeField* FindMergeField(std::string_view name);

}  // namespace lm
