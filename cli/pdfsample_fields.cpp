// Form fields.
#include <array>

#include "cli/pdfsample_book.h"

namespace lm::sample {
namespace {

constexpr std::string_view kBorder = "#8CA0B4", kBack = "#F6F8FA";

enum Type { kText, kButton, kCombo, kList, kCheck, kRadio };

struct FieldLook {
  std::string_view value = "", items = "";
  int flags = 0;
  double borderWidth = 0.25;
  int borderStyle = 0;
};

void Field(Book& book, int type, const char* name, Column place, double y, double height,
           const FieldLook& look) {
  book.Ink(9.5);
  book.pdf.DrawField(type, name, place.x, y, place.width, height, look.value, name, look.flags,
                     kBorder, kBack, look.borderWidth, look.borderStyle, look.items);
}

void DrawTypes(Book& book, double y) {
  const Column left = ColumnOf(2, 0), right = ColumnOf(2, 1);
  const auto in = [](Column column) { return Column{column.x + 30, column.width - 30}; };
  book.Section(y, "Types");
  const auto label = [&](Column column, double top, const char* text) {
    book.Caption(column.x, top + 4.6, text);
  };
  label(left, y + 5, "0 text");
  Field(book, kText, "Doctor", in(left), y + 5, 7, {.value = "Dr Alex Morgan"});
  label(left, y + 15, "several lines");
  Field(book, kText, "Remarks", in(left), y + 15, 19,
        {.value = "Locum for Dr Patel.\nKeys at the front desk.", .flags = 0x1000});
  label(left, y + 37, "a password");
  Field(book, kText, "Secret", in(left), y + 37, 7, {.flags = 0x2000});
  label(left, y + 47, "read only");
  Field(book, kText, "Fixed", in(left), y + 47, 7, {.value = "cannot be changed", .flags = 1});

  label(right, y + 5, "2 combo");
  Field(book, kCombo, "Kind", in(right), y + 5, 7,
        {.value = "Private", .items = "NHS Normal|NHS OOH|Private"});
  label(right, y + 15, "with an edit box");
  Field(book, kCombo, "Other", in(right), y + 15, 7,
        {.value = "Teaching", .items = "Appraisal|Teaching", .flags = 0x40000});
  label(right, y + 25, "3 list");
  Field(book, kList, "Day", in(right), y + 25, 13,
        {.value = "Tuesday", .items = "Monday|Tuesday|Friday"});
  label(right, y + 41, "several choices");
  Field(book, kList, "Days", in(right), y + 41, 13,
        {.value = "Monday|Friday", .items = "Monday|Tuesday|Friday", .flags = 0x200000});
}

void DrawButtons(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Buttons", "1 push, 4 check, 5 radio: buttons of one name make a group");
  Field(book, kButton, "Press", {kLeft, 38}, y + 5, 9,
        {.value = "Press me", .borderWidth = 0.6, .borderStyle = 2});
  pdf.OnFieldEvent("A", "app.alert('The button of the picture book was pressed.');");
  double x = ColumnOf(3, 1).x;
  for (const auto& [name, value] : {std::pair{"Invoiced", "Yes"}, {"Paid", "Off"}}) {
    Field(book, kCheck, name, {x, 5}, y + 7, 5, {.value = value});
    book.Text(x + 7, y + 11, name);
    x += 28;
  }
  x = ColumnOf(3, 2).x;
  for (const char* name : {"NHS", "Private"}) {
    Field(book, kRadio, "Scheme", {x, 5}, y + 7, 5, {.value = "NHS", .items = name});
    book.Text(x + 7, y + 11, name);
    x += 24;
  }
}

void DrawBorders(Book& book, double y) {
  book.Section(y, "Borders");
  constexpr std::array<const char*, 5> kStyles{"Solid", "Dashed", "Bevelled", "Inset", "Underline"};
  for (int style = 0; style < 5; ++style) {
    const Column column = ColumnOf(5, style);
    const char* name = kStyles[static_cast<std::size_t>(style)];
    Field(book, kText, name, column, y + 5, 8,
          {.value = name, .borderWidth = 0.5, .borderStyle = style});
  }
}

void DrawSums(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Events", "keystroke, format, validate, calculate, focus, mouse");
  const char* const kFormat = "AFNumber_Format(2, 0, 0, 0, '', false);";
  const char* const kKeystroke = "AFNumber_Keystroke(2, 0, 0, 0, '', false);";
  for (const auto& [index, name, value] : {std::tuple{0, "Sum.Sessions", "4"},
                                           {1, "Sum.Fee", "340.00"},
                                           {2, "Sum.Total", "1,360.00"}}) {
    const Column column = ColumnOf(3, index);
    Field(book, kText, name, column, y + 5, 8, {.value = value, .flags = index == 2 ? 1 : 0});
    pdf.OnFieldEvent("F", kFormat);
    if (index < 2) {
      pdf.OnFieldEvent("K", kKeystroke);
      pdf.OnFieldEvent("V", "if (event.value < 0) event.rc = false;");
      pdf.OnFieldEvent("Fo", "event.target.fillColor = color.white;");
      pdf.OnFieldEvent("Bl", "event.target.fillColor = ['RGB', 0.96, 0.97, 0.98];");
    } else {
      pdf.OnFieldEvent("C",
                       "event.value = this.getField('Sum.Sessions').value * "
                       "this.getField('Sum.Fee').value;");
      pdf.OnFieldEvent("E", "event.target.textColor = color.blue;");
      pdf.OnFieldEvent("X", "event.target.textColor = color.black;");
    }
    constexpr std::array<const char*, 3> kNames{"sessions", "fee of each",
                                                "their product, calculated"};
    book.Caption(column.x, y + 17, kNames[static_cast<std::size_t>(index)]);
  }
}

}  // namespace

void DrawFieldPage(Book& book) {
  book.Page("Form fields", "To be filled in, chosen from, ticked and pressed");
  DrawTypes(book, kTop);
  DrawButtons(book, 106);
  DrawBorders(book, 130);
  DrawSums(book, 152);
  book.pdf.EndPage();
}

}  // namespace lm::sample
