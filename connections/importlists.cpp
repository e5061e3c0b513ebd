#include "connections/importlists.h"

#include <span>
#include <utility>

#include "core/formatting.h"
#include "core/tables.h"
#include "entry/ticks.h"

namespace lm {
namespace {

constexpr std::string_view kActions =
    "#-2;<Ignore this practice>|#-1;<Create as new Practice in LedgerMinder>";
constexpr Colour kClashColour = Rgb(255, 150, 150);

constexpr ColumnSpec kPracticeColumns[] = {
    {"NAME", "Practice", DataType::Text, "", 2400, true},
    {"MATCH", "", DataType::Text, "", 6000},
    {"ACTION", "Options to resolve this missing practice", DataType::Text, "", 5000},
    {"ADDR0", "Address 0", DataType::Text, "", -1, true},
    {"ADDR1", "Address 1", DataType::Text, "", -1, true},
    {"ADDR2", "Address 2", DataType::Text, "", -1, true},
    {"TOWN", "Town", DataType::Text, "", -1, true},
    {"POSTCODE", "Postcode", DataType::Text, "", -1, true},
    {"PHONE", "Phone", DataType::Text, "", -1, true},
    {"EMAIL", "E-mail", DataType::Text, "", -1, true},
};

constexpr ColumnSpec kSessionColumns[] = {
    {"PRACTICE", "Practice", DataType::Text, "", 2600},
    {"DATE", "Date", DataType::Date, "", 1250},
    {"PERIOD", "Period", DataType::Text, "", 1050},
    {"STIME", "Start Time", DataType::Date, "", 1050},
    {"ETIME", "End Time", DataType::Date, "", 1050},
    {"RATE", "Rate", DataType::Money, kAmountFormat, 1000},
    {"STATUS", "Status", DataType::Text, "", 1150},
    {"IMPORT", "Import", DataType::Text, "", 750},
    {"COLLISION", "Collision", DataType::Text, "", 3400},
    {"NOTES", "Notes", DataType::Text, "", 1400},
};

void Make(Grid& lines, std::span<const ColumnSpec> columns) {
  MakeBlank(lines, {lines.Name(), columns});
  lines.SetColWidth(0, 0);  // there are no markers: nothing here is a record yet
  for (const ColumnSpec& column : columns) {
    const int col = lines.ColIndex(column.key);
    lines.SetColHidden(col, column.hidden);
    lines.SetColDataType(col, column.type);
    lines.SetColFormat(col, column.format);
  }
}

}  // namespace

void MakeUnmatchedList(Ledger& ledger, Grid& lines, std::string_view feedName) {
  Make(lines, kPracticeColumns);
  lines.SetTextMatrix(CaptionRow(lines), "MATCH",
                      "Practice name and address imported from\n" + std::string(feedName) +
                          " but not in LedgerMinder");
  const std::string practices = PracticeList(ledger);
  lines.SetColComboList(lines.ColIndex("ACTION"), practices.empty()
                                                      ? std::string(kActions)
                                                      : std::string(kActions) + "|" + practices);
}

void AddUnmatched(Grid& lines, const UnmatchedPractice& unmatched) {
  const FeedPractice& practice = unmatched.practice;
  const int row = lines.AddItem("");
  const std::pair<std::string_view, std::string_view> cells[] = {
      {"NAME", practice.name},      {"MATCH", unmatched.key},        {"ACTION", kCreatePractice},
      {"ADDR0", practice.address0}, {"ADDR1", practice.address1},    {"ADDR2", practice.address2},
      {"TOWN", practice.town},      {"POSTCODE", practice.postcode}, {"PHONE", practice.phone},
      {"EMAIL", practice.email}};
  for (const auto& [key, text] : cells) lines.SetTextMatrix(row, key, text);
}

void MakeOfferedList(const Ledger& ledger, Grid& lines) {
  Make(lines, kSessionColumns);
  const Grid& sessions = ledger.fgSessions;
  const std::pair<std::string_view, std::string_view> likeThere[] = {
      {"DATE", "SDATE"}, {"STIME", "STIME"}, {"ETIME", "ETIME"}};
  for (const auto& [key, there] : likeThere)
    lines.SetColFormat(lines.ColIndex(key), sessions.ColFormat(sessions.ColIndex(there)));
  MakeTickColumn(lines, "IMPORT");
}

int AddOffered(Grid& lines, const OfferedSession& session, std::string_view practiceName) {
  const int row = lines.AddItem("");
  lines.SetDataOfRow(row, session.practice);
  const std::pair<std::string_view, std::string_view> cells[] = {
      {"PRACTICE", practiceName},   {"DATE", session.date},     {"PERIOD", session.period},
      {"STIME", session.startTime}, {"ETIME", session.endTime}, {"RATE", session.rate},
      {"STATUS", session.status},   {"NOTES", session.notes}};
  for (const auto& [key, text] : cells) lines.SetTextMatrix(row, key, text);
  if (session.startSuggested)
    lines.SetCell(CellSetting::flexcpFontBold, row, lines.ColIndex("STIME"), "TRUE");
  if (session.endSuggested)
    lines.SetCell(CellSetting::flexcpFontBold, row, lines.ColIndex("ETIME"), "TRUE");
  SetTick(lines, row, "IMPORT", true);
  return row;
}

OfferedSession OfferedOf(const Grid& lines, int row) {
  const auto cell = [&](std::string_view key) { return lines.TextMatrix(row, key); };
  OfferedSession session;
  session.practice = lines.DataOfRow(row);
  session.date = cell("DATE");
  session.period = cell("PERIOD");
  session.startTime = cell("STIME");
  session.endTime = cell("ETIME");
  session.rate = cell("RATE");
  session.status = cell("STATUS");
  session.notes = cell("NOTES");
  return session;
}

void SetClash(Grid& lines, int row, std::string_view sessionId) {
  if (lines.TextMatrix(row, "COLLISION") == sessionId) return;
  lines.SetTextMatrix(row, "COLLISION", sessionId);
  lines.SetCellColour(CellSetting::flexcpBackColor, {row, 0, row, lines.Cols() - 1},
                      sessionId.empty() ? kNoColour : kClashColour);
}

}  // namespace lm
