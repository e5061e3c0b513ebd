// What is done to several selected records of a list at once: one question, one step of Undo.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/screen.h"
#include "shell/recordlist.h"

namespace lm {

// Rows are those of records, in ascending order, as RecordList::SelectedRows gives them.
using RowNumbers = std::vector<int>;

// "3 sessions selected, £1,152.00"; "" for fewer than two.
std::string SelectionText(const RecordList& list);

// Asks once, with what the first ones are. What may not be deleted stays and is told afterwards.
void DeleteSeveral(Ledger& ledger, const RecordList& list, GridRules& rules);

// Sessions onto their practices' unsent invoices or new ones; those on an invoice stay there.
void PutOnInvoices(Ledger& ledger, const RecordList& list);

// The day of an event of invoices, "SDATE" or "PAYDATE", dd/mm/yyyy. Invoices that have one keep
// it; how many is told.
void MarkInvoices(Ledger& ledger, const RecordList& list, std::string_view key,
                  std::string_view day);

// The columns in sight, with their headings, parted by tabs as spreadsheets take them: amounts
// without thousands commas, dates as dd/mm/yyyy, no line breaks in a cell. Windows-1252.
std::string CopiedRows(const RecordList& list);

}  // namespace lm
