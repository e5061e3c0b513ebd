// Everything that was recorded, or one grid, as a file that other programs read. Each is written
// beside the file that it replaces, so that a disk that fills up leaves the old one.
#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

#include "core/clsStringBuilder.h"
#include "core/ledger.h"

namespace lm {

// All records as XML in iso-8859-1, whatever the lists hide.
void WriteAllData(const Ledger& ledger, clsStringBuilder& file);
// The same as a workbook, a sheet for each table or for `only` this one, which must have one:
// SpreadsheetML as Excel 2003 has it.
void WriteWorkbook(const Ledger& ledger, clsStringBuilder& file, const Grid* only = nullptr);
bool HasSheet(const Ledger& ledger, const Grid& table);

// A grid as it stands on the screen.
struct ExportedGrid {
  const Grid* grid = nullptr;
  std::string_view itemTag = "item";  // of a row in XML
  int firstCol = 1;                   // columns before it are markers or blank
  bool allRows = false;               // those out of sight too, as of closed sections
};

enum class GridFormat { Csv, Pipe, Xml };

// Texts are as shown, in Windows-1252; captions are the first line. XML holds values, as that of
// all records does.
void WriteGrid(const Ledger& ledger, const ExportedGrid& exported, GridFormat format,
               clsStringBuilder& file);

// Runs one of the writers above on a file. False after its message, also for a file that the
// program itself lives on.
bool WriteExportFile(Ledger& ledger, const std::filesystem::path& path,
                     const std::function<void(clsStringBuilder& file)>& write);

}  // namespace lm
