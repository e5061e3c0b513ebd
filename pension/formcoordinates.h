// Where each figure of a pension form stands on the blank forms, as data: one table an edition
// (formcoordinates202404.cpp and its fellows), from which the overlay prints and the stand-in
// blanks are drawn. Needs no ledger.
//
// Lengths are millimetres from the top left of an A4 page, y is a text's baseline, sizes are points
// of Courier, in which a character is 0.6 of the size wide.
//
// The first page of Form B on the editions before April 2024 carries the same kinds of items as
// that of April 2024, at places of our own stand-in blanks, until they are measured on the official
// ones.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace lm {

enum class FormEdition { October2022, April2023, April2024 };

// By the form's month. Both numbers are compared each on its own, so that January to March of any
// year go on the blank of October 2022.
FormEdition EditionOf(int year, int month);

// What is printed. The text comes from the form's overlay.
enum class FormItem {
  None,
  // Of the locum.
  TitleAndName,
  SchemeNumber,
  Authority,
  InsuranceNumber,
  GmcNumber,
  LastName,
  FirstName,
  DateOfField5,
  Telephone,
  Mobile,
  Email,
  Address,
  // Of the form.
  MonthShort,
  MonthLong,
  YearShort,
  YearLong,
  Signature,
  Today,
  TodayInWords,
  // Form A.
  LocumOwnUse,
  OdsCode,
  RunFirstDay,
  RunLastDay,
  Amount,
  Pensionable,
  Employer,
  // Form B.
  Tier,
  PracticeCode,
  PracticeName,
  PracticeFirstDay,
  PracticeLastDay,
  PracticeReceived,
  PracticeAmount,
  PracticePensionable,
  TooManyPractices,
  BoxA,
  BoxB,
  BoxC,
  BoxD,
  BoxE,
  BoxF,
  BoxG,
  BoxH,
  BoxI,
  // Form SOLO.
  FirstDay,
  LastDay,
  SoloA,
  SoloB,
  SoloC,
  SoloD,
  SoloE,
  SoloAddedYears,
  SoloAdditional,
  SoloAvc,
  SoloG,
  SoloH,
  SoloI,
  SoloJ,
  SoloK,
};

// A few plain words of our own for the stand-in blank. Empty for the message of an overfull table,
// for which no blank has room.
std::string_view FormItemLabel(FormItem item);

enum class PlaceKind {
  Text,            // begins at x
  RightText,       // ends at x
  DigitBoxes,      // a character at x, the next at x + pitch ...
  PoundsAndPence,  // pounds end at x, pence begin at penceX
  Tick,            // an X, beginning at x, where the form's rate is `tier`
  Picture,         // x, y is its top left corner
  Field,           // to be typed into in a viewer; x, y is its top left corner
};

// What a text of so many characters or more does for its room.
enum class LongText { AsItIs, Smaller, Narrower };

struct FormPlace {
  int page = 1;
  FormItem item = FormItem::None;
  PlaceKind kind = PlaceKind::Text;
  double x = 0, y = 0;
  double size = 0;

  double pitch = 0;          // DigitBoxes
  std::string_view boxes{};  // DigitBoxes: "00 00 0000", a sign a box, a blank a gap
  double penceX = 0;         // PoundsAndPence
  double tier = 0;           // Tick: percent
  double width = 0;          // Picture, Field
  double height = 0;         // Picture, Field
  double step = 0;           // from row to row of an item that repeats; 0 for all others
  int rows = 1;              // that the blank has lines for
  LongText longText = LongText::AsItIs;
};

// What stands for the figure where a blank is tried out: a figure as wide as it comes, or the name
// of an item whose text can be anything.
std::string FormPlaceSample(const FormPlace& place);
// Of a text: true when the sample is as long as it can get.
bool HasFixedLength(const FormPlace& place);

constexpr int kLongText = 18;            // characters
constexpr double kSmallerSize = 8;       // points
constexpr double kNarrowerPercent = 80;  // horizontal scale

// A practice table of so many rows says so after as many rows as are told here.
constexpr int kTooManyPractices = 9;
constexpr int kPracticesShownThen = 6;

struct FormBlank {
  std::string_view form;  // "A", "B" or "SOLO"
  FormEdition edition;
  std::string_view file;  // in the folder "Form Templates"
  int pages;
  std::span<const FormPlace> places;
};

constexpr std::string_view kBlankFolder = "Form Templates";

// All nine.
std::span<const FormBlank> FormBlanks();
const FormBlank& BlankOf(std::string_view form, FormEdition edition);

}  // namespace lm
