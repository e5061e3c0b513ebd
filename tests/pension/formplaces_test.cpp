// Measures printed forms: each figure's ink against that of a page which is written here by hand,
// operator by operator, from the places that the forms' measurements give.
#include <algorithm>
#include <map>
#include <regex>

#include "tests/pension/paper_desk.h"

namespace lm::test {
namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;
constexpr int kPixelsPerMillimetre = 10;
constexpr int kAllowed = 3;                                            // pixels: 0.3 mm
constexpr double kWidthOfSign = 0.6, kCapitals = 0.66, kBelow = 0.16;  // of the size

// ---- What is expected.

struct Mark {
  std::string text;  // empty: a black rectangle of this width and height
  double x, y, size;
  double stretch = 1;
  double width = 0, height = 0;

  double Em() const { return size / kPointsPerMillimetre; }
  double Width() const {
    return text.empty() ? width : static_cast<double>(text.size()) * kWidthOfSign * Em() * stretch;
  }
};
using Pages = std::map<int, std::vector<Mark>>;

Mark Right(const std::string& text, double x, double y, double size) {
  Mark mark{text, x, y, size};
  mark.x -= mark.Width();
  return mark;
}

void Boxes(std::vector<Mark>& page, const std::string& text, double x, double y, double size,
           double pitch) {
  for (const char sign : text) {
    if (sign != ' ') page.push_back({{sign}, x, y, size});
    x += pitch;
  }
}

void Money(std::vector<Mark>& page, const std::string& pounds, const std::string& pence, double x,
           double penceX, double y) {
  page.push_back(Right(pounds, x, y, 10));
  page.push_back({pence, penceX, y, 10});
}

// A PDF file of these marks alone, with as many pages as any form prints on.
std::string ReferencePdf(const Pages& pages) {
  constexpr int kPages = 7;
  std::string file = "%PDF-1.4\n";
  std::vector<std::size_t> offsets;
  const auto object = [&](const std::string& body) {
    offsets.push_back(file.size());
    file += std::to_string(offsets.size()) + " 0 obj\n" + body + "\nendobj\n";
  };
  std::string kids;
  for (int i = 0; i < kPages; ++i) kids += std::to_string(4 + 2 * i) + " 0 R ";
  object("<</Type/Catalog/Pages 2 0 R>>");
  object("<</Type/Pages/Count " + std::to_string(kPages) + "/Kids[" + kids + "]>>");
  object("<</Type/Font/Subtype/Type1/BaseFont/Courier>>");
  for (int i = 0; i < kPages; ++i) {
    object("<</Type/Page/Parent 2 0 R/MediaBox[0 0 595.2756 841.8898]/Contents " +
           std::to_string(5 + 2 * i) + " 0 R/Resources<</Font<</F 3 0 R>>>>>>");
    std::string stream;
    const auto marks = pages.find(i + 1);
    if (marks != pages.end())
      for (const Mark& mark : marks->second) {
        char line[300];
        const double x = mark.x * kPointsPerMillimetre;
        const double y = (297 - mark.y) * kPointsPerMillimetre;
        if (mark.text.empty())
          std::snprintf(line, sizeof line, "%.3f %.3f %.3f %.3f re f\n", x, y,
                        mark.width * kPointsPerMillimetre, -mark.height * kPointsPerMillimetre);
        else
          std::snprintf(line, sizeof line,
                        "BT /F %.1f Tf %.0f Tz 1 0 0 1 %.3f %.3f Tm (%s) Tj ET\n", mark.size,
                        100 * mark.stretch, x, y, mark.text.c_str());
        stream += line;
      }
    object("<</Length " + std::to_string(stream.size()) + ">>stream\n" + stream + "endstream");
  }
  const std::size_t table = file.size();
  file += "xref\n0 " + std::to_string(offsets.size() + 1) + "\n0000000000 65535 f \n";
  for (const std::size_t offset : offsets) {
    char line[21];
    std::snprintf(line, sizeof line, "%010zu 00000 n \n", offset);
    file += line;
  }
  return file + "trailer<</Root 1 0 R/Size " + std::to_string(offsets.size() + 1) +
         ">>\nstartxref\n" + std::to_string(table) + "\n%%EOF\n";
}

// ---- What is there.

struct Box {
  int left = 1 << 20, top = 1 << 20, right = -1, bottom = -1;
  bool Empty() const { return right < 0; }
};

class Picture {
 public:
  Picture(const fs::path& pdf, int page) {
    const fs::path out = pdf.parent_path() / "page";
    OutputOf("pdftoppm -singlefile -gray -r 254 -f " + std::to_string(page) + " -l " +
             std::to_string(page) + " '" + pdf.string() + "' '" + out.string() + "' 2>&1");
    std::ifstream in(out.string() + ".pgm", std::ios::binary);
    std::string kind;
    int most = 0;
    in >> kind >> width_ >> height_ >> most;
    in.get();
    pixels_.assign(std::istreambuf_iterator<char>(in), {});
    pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), '\xFF');
    in.close();
    fs::remove(out.string() + ".pgm");
  }
  int Width() const { return width_; }
  int Height() const { return height_; }

  Box Ink(const Box& window) const {
    Box ink;
    for (int y = std::max(window.top, 0); y <= std::min(window.bottom, height_ - 1); ++y)
      for (int x = std::max(window.left, 0); x <= std::min(window.right, width_ - 1); ++x)
        if (IsInk(x, y)) {
          ink.left = std::min(ink.left, x);
          ink.right = std::max(ink.right, x);
          ink.top = std::min(ink.top, y);
          ink.bottom = std::max(ink.bottom, y);
        }
    return ink;
  }
  void Clear(const Box& window) {
    for (int y = std::max(window.top, 0); y <= std::min(window.bottom, height_ - 1); ++y)
      for (int x = std::max(window.left, 0); x <= std::min(window.right, width_ - 1); ++x)
        pixels_[Index(x, y)] = '\xFF';
  }

 private:
  std::size_t Index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(x);
  }
  bool IsInk(int x, int y) const { return static_cast<unsigned char>(pixels_[Index(x, y)]) < 128; }

  int width_ = 0, height_ = 0;
  std::string pixels_;
};

Box WindowOf(const Mark& mark) {
  constexpr double kMargin = 0.8;
  const double top = mark.text.empty() ? mark.y : mark.y - kCapitals * mark.Em();
  const double bottom = mark.text.empty() ? mark.y + mark.height : mark.y + kBelow * mark.Em();
  const auto pixel = [](double millimetres) {
    return static_cast<int>(millimetres * kPixelsPerMillimetre);
  };
  return {pixel(mark.x - kMargin), pixel(top - kMargin), pixel(mark.x + mark.Width() + kMargin),
          pixel(bottom + kMargin)};
}

void ExpectNear(const Box& expected, const Box& found, const std::string& what) {
  ASSERT_FALSE(expected.Empty()) << what;
  ASSERT_FALSE(found.Empty()) << what << " is not there";
  EXPECT_NEAR(found.left, expected.left, kAllowed) << what;
  EXPECT_NEAR(found.right, expected.right, kAllowed) << what;
  EXPECT_NEAR(found.top, expected.top, kAllowed) << what;
  EXPECT_NEAR(found.bottom, expected.bottom, kAllowed) << what;
}

void ExpectPages(const fs::path& form, const Pages& pages) {
  const fs::path reference = form.parent_path() / "reference.pdf";
  WriteBytes(reference, ReferencePdf(pages));
  for (const auto& [number, marks] : pages) {
    const std::string place = form.filename().string() + " page " + std::to_string(number);
    const Picture expected(reference, number);
    Picture found(form, number);
    ASSERT_NEAR(found.Width(), 2100, kAllowed) << place;
    ASSERT_NEAR(found.Height(), 2970, kAllowed) << place;
    for (const Mark& mark : marks)
      ExpectNear(expected.Ink(WindowOf(mark)), found.Ink(WindowOf(mark)),
                 place + ": '" + mark.text + "' at " + std::to_string(mark.x) + ", " +
                     std::to_string(mark.y));
    for (const Mark& mark : marks) found.Clear(WindowOf(mark));
    const Box other = found.Ink({0, 0, found.Width(), found.Height()});
    EXPECT_TRUE(other.Empty()) << place << ": more ink at " << other.left << ", " << other.bottom;
  }
}

// Two by two pixels, all of them black.
std::string BlackBitmap() {
  std::string bytes("BM\x46\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x02\0\0\0\x02\0\0\0\x01\0\x18\0", 30);
  bytes.resize(0x46, '\0');
  bytes[34] = 0x10;
  return bytes;
}

// ---- The three forms. Where a row has three values they are of April 2024, April 2023 and October
// 2022, in the order of kMonths.

struct Point {
  double x, y;
};

TEST(FormPlaces, FormAStandsWhereItIsMeasured) {
  const Point kName[] = {{51, 30}, {51, 20}, {51, 34}}, kScheme[] = {{51, 40}, {51, 30}, {51, 44}},
              kAuthority[] = {{51, 51}, {51, 40}, {51, 54}},
              kField5[] = {{51, 63}, {51, 56}, {51, 70}},
              kOds[] = {{149, 64}, {149, 56}, {149, 70}},
              kSignature[] = {{44, 158}, {45, 151}, {45, 164}};
  const double kAmount[] = {194, 179, 192}, kPensionable[] = {202, 187, 200},
               kEmployer[] = {210, 195, 208};
  struct Runs {
    int page;
    double y, start, end, pitch;
  };
  const Runs kRuns[][2] = {{{4, 84, 28, 115, 8}, {5, 58, 28, 116, 8}},
                           {{4, 91, 27, 93, 5.9}, {5, 54, 27, 93, 5.9}},
                           {{4, 78, 27, 93, 5.9}, {7, 49, 27, 93, 5.9}}};
  const double kReference[] = {37, 42, 33};
  const std::string kDates[][4] = {{"02 04 2024", "03 04 2024", "10 04 2024", "10 04 2024"},
                                   {"02 05 2023", "03 05 2023", "10 05 2023", "10 05 2023"},
                                   {"02 01 2024", "03 01 2024", "10 01 2024", "10 01 2024"}};
  for (std::size_t i = 0; i < 3; ++i) {
    PaperDesk desk;
    desk.FillMonth(kMonths[i]);
    SetOption(desk.ledger, optSignatureOnForms, "TRUE");
    WriteBytes(desk.ledger.File("signature.bmp"), BlackBitmap());
    Pages pages;
    pages[1] = {};
    std::vector<Mark>& page = pages[4];
    page = {{"Dr Anna Longer-Than-Others", kName[i].x, kName[i].y, 12},
            {" sd/12345678", kScheme[i].x, kScheme[i].y, 12},
            {"NHS EXAMPLE", kAuthority[i].x, kAuthority[i].y, 12},
            {"01/02/1970", kField5[i].x, kField5[i].y, 12},
            {"A12345", kOds[i].x, kOds[i].y, 12},
            {"", kSignature[i].x, kSignature[i].y, 0, 1, 30, 6},
            Right("12,345.60", 191, kAmount[i], 12),
            Right("11,111.04", 191, kPensionable[i], 12),
            Right("1,597.77", 191, kEmployer[i], 12)};
    if (i == 0)
      Boxes(page, "03 02 2026", 112, 162, 12, 9);
    else
      page.push_back({"03 Feb 2026", 154, i == 1 ? 155.0 : 168.0, 12});
    for (const Runs& runs : kRuns[i])
      for (std::size_t run = 0; run < 2; ++run) {
        const double y = runs.y + 8 * static_cast<double>(run);
        Boxes(pages[runs.page], kDates[i][2 * run], runs.start, y, 12, runs.pitch);
        Boxes(pages[runs.page], kDates[i][2 * run + 1], runs.end, y, 12, runs.pitch);
      }
    Boxes(pages[kRuns[i][1].page], "AB123456C", 45, kReference[i], 12, 7);
    ExpectPages(desk.Write(kFormA, kMonths[i].key), pages);
  }
}

TEST(FormPlaces, FormBStandsWhereItIsMeasured) {
  const double kBoxes[][9] = {{169, 176, 183, 190, 199, 207, 214, 226, 234},
                              {199, 207, 215, 223, 230, 238, 246, 259, 266},
                              {178, 186, 194, 202, 209, 217, 225, 238, 245}};
  const double kTable[] = {72, 95, 77}, kCode[] = {11, 11, 9}, kPractice[] = {31, 31, 29};
  const Point kTick[] = {{75, 41}, {132, 63}, {185, 45}};
  const std::string kContribution[] = {"98.00", "100.00", "135.00"};
  const std::string kPounds[] = {"98", "100", "135"};
  for (std::size_t i = 0; i < 3; ++i) {
    PaperDesk desk;
    desk.FillMonth(kMonths[i]);
    desk.AddFormB(kMonths[i], kContribution[i]);
    const std::string days = kMonths[i].days;
    Pages pages;
    std::vector<Mark>& page = pages[2];
    page.push_back({"X", kTick[i].x, kTick[i].y, 10});
    const double y = kTable[i];
    page.insert(page.end(), {{"P01", kCode[i], y, 10},
                             {"Riverside", kPractice[i], y, 10},
                             {"02" + days, 77, y, 10},
                             {"10" + days, 98, y, 10},
                             {"15" + days, 119, y, 10}});
    Money(page, "12,345", "60", 154, 159, y);
    Money(page, "11,111", "04", 182, 187, y);
    page.insert(page.end(), {{"P02", kCode[i], y + 6, 10},
                             {"Abbey Medical Centre", kPractice[i], y + 6, 8},
                             {"15" + days, 119, y + 6, 10}});
    Money(page, "20", "05", 154, 159, y + 6);
    Money(page, "18", "05", 182, 187, y + 6);
    const std::string kFigures[][2] = {{"1,000", "00"}, {kPounds[i], "00"}, {"1,234", "50"},
                                       {"-12", "34"},   {"0", "00"},        {"0", "00"},
                                       {"1,320", "16"}, {"143", "80"},      {"1,463", "96"}};
    for (std::size_t box = 0; box < 9; ++box)
      Money(page, kFigures[box][0], kFigures[box][1], 187, 191, kBoxes[i][box]);
    if (i == 0) {
      page.insert(page.end(),
                  {{"NHS EXAMPLE", 45, 14, 10}, {"April", 100, 25, 10}, {"2024", 145, 25, 10}});
      std::vector<Mark>& first = pages[1];
      Boxes(first, "AB123456C", 93, 214, 10, 7);
      Boxes(first, "Apr", 160, 214, 10, 6);
      Boxes(first, "24", 194, 214, 10, 7);
      Boxes(first, "01 02 1970", 150, 231, 10, 5);
      first.insert(first.end(), {{"Longer-Than-Others", 12, 231, 10, 0.8},
                                 {"Anna", 68, 231, 10},
                                 {"sd/12345678", 12, 246, 10},
                                 {"01234 555001", 68, 246, 10},
                                 {"07700 900123", 144, 246, 10},
                                 {"anna@doctor.example", 44, 256, 10},
                                 {"1 High Street, Anytown, AN1 1AA", 44, 266, 10},
                                 {"NHS EXAMPLE", 44, 276, 10},
                                 {"April", 100, 284, 10},
                                 {"2024", 160, 284, 10}});
    }
    ExpectPages(desk.Write(kFormB, kMonths[i].key), pages);
  }
}

TEST(FormPlaces, FormSoloStandsWhereItIsMeasured) {
  const Point kName[] = {{77, 73}, {77, 84}, {76, 44}}, kScheme[] = {{77, 83}, {77, 94}, {76, 54}},
              kAuthority[] = {{77, 101}, {76, 112}, {75, 72}},
              kInsurance[] = {{139, 92}, {139, 103}, {138, 63}},
              kFirst[] = {{34, 118}, {34, 129}, {33, 89}},
              kLast[] = {{103, 118}, {103, 129}, {102, 89}};
  struct Line {
    const char* text;
    double y[3];
  };
  const Line kLines[] = {
      {"1,500.00", {127, 99, 140}}, {"NIL", {137, 111, 151}},    {"1500.00", {147, 121, 161}},
      {"147.00", {170, 143, 183}},  {"1.00", {180, 152, 192}},   {"2.00", {187, 159, 200}},
      {"3.00", {196, 168, 208}},    {"4.00", {207, 179, 219}},   {"157.00", {214, 186, 226}},
      {"1343.00", {222, 193, 233}}, {"215.70", {231, 202, 242}}, {"372.70", {243, 213, 253}}};
  const double kRate[] = {158, 131, 171}, kPage3[] = {68, 67, 67}, kSignature[] = {157, 158, 158};
  const std::string kDays[][2] = {
      {"06 04 2024", "28 04 2024"}, {"06 05 2023", "28 05 2023"}, {"06 01 2024", "28 01 2024"}};
  for (std::size_t i = 0; i < 3; ++i) {
    PaperDesk desk;
    desk.FillMonth(kMonths[i]);
    SetOption(desk.ledger, optMandatoryContribution, "6.5");
    SetOption(desk.ledger, optSignatureOnForms, "TRUE");
    WriteBytes(desk.ledger.File("signature.bmp"), BlackBitmap());
    Pages pages;
    std::vector<Mark>& page = pages[2];
    page = {{"Dr Anna Longer-Than-Others", kName[i].x, kName[i].y, 12},
            {"12345678", kScheme[i].x, kScheme[i].y, 12},
            {"NHS EXAMPLE", kAuthority[i].x, kAuthority[i].y, 12},
            {"6.50 %", 180, kRate[i], 12}};
    Boxes(page, "AB123456C", kInsurance[i].x, kInsurance[i].y, 12, 7.8);
    Boxes(page, kDays[i][0], kFirst[i].x, kFirst[i].y, 12, 6);
    Boxes(page, kDays[i][1], kLast[i].x, kLast[i].y, 12, 6);
    for (const Line& line : kLines) page.push_back(Right(line.text, 188, line.y[i], 12));
    std::vector<Mark>& last = pages[3];
    last = {{"Dr Anna Longer-Than-Others", kPage3[i], 151, 10},
            {"", kPage3[i], kSignature[i], 0, 1, 45, 9}};
    Boxes(last, "03 02 2026", kPage3[i], 174, 10, 7);
    ExpectPages(desk.Write(kFormSolo, kMonths[i].key), pages);
  }
}

// The first page of Form B on the older editions has the same items, at places of our own: each on
// the page, and none over another.
TEST(FormPlaces, EveryItemHasItsOwnPlace) {
  std::set<FormItem> firstPage[3];
  for (const FormBlank& blank : FormBlanks()) {
    for (const FormPlace& place : blank.places) {
      EXPECT_GE(place.page, 1);
      EXPECT_LE(place.page, blank.pages);
      EXPECT_TRUE(place.x > 0 && place.x < 205 && place.y > 10 && place.y < 290) << place.y;
      EXPECT_EQ(FormItemLabel(place.item).empty(), place.item == FormItem::TooManyPractices);
      if (blank.form == "B" && place.page == 1)
        firstPage[static_cast<std::size_t>(blank.edition)].insert(place.item);
      for (const FormPlace& other : blank.places)
        EXPECT_TRUE(&place == &other || place.page != other.page || place.x != other.x ||
                    place.y != other.y)
            << blank.file << " " << place.x << ", " << place.y;
    }
  }
  EXPECT_EQ(firstPage[0], firstPage[2]);
  EXPECT_EQ(firstPage[1], firstPage[2]);
}

TEST(FormPlaces, OnlyTheRatesOfTheEditionAreTicked) {
  struct Tier {
    const char* contribution;  // to 1000.00
    double x[3];               // 0: no tick
  };
  const Tier kTiers[] = {
      {"52.00", {22, 0, 0}},     {"65.00", {40, 0, 0}},     {"83.00", {57.5, 0, 0}},
      {"98.00", {75, 118, 118}}, {"107.00", {94.2, 0, 0}},  {"125.00", {113, 168, 168}},
      {"51.00", {0, 21, 21}},    {"57.00", {0, 37, 37}},    {"61.00", {0, 54, 54}},
      {"68.00", {0, 71, 71}},    {"77.00", {0, 87, 87}},    {"88.00", {0, 103, 103}},
      {"100.00", {0, 132, 132}}, {"116.00", {0, 150, 150}}, {"135.00", {0, 185, 185}},
      {"73.00", {0, 0, 0}},      {"98.10", {0, 0, 0}},      {"banana", {0, 0, 0}}};
  const std::regex kX(R"re(<word xMin="([0-9.]+)"[^>]*>X</word>)re");
  for (std::size_t i = 0; i < 3; ++i)
    for (const Tier& tier : kTiers) {
      PaperDesk desk;
      desk.AddFormB(kMonths[i], tier.contribution);
      const std::string words = OutputOf(
          "pdftotext -bbox '" + desk.Write(kFormB, kMonths[i].key).string() + "' - 2> /dev/null");
      std::smatch match;
      const bool ticked = std::regex_search(words, match, kX);
      EXPECT_EQ(ticked, tier.x[i] != 0) << kMonths[i].key << " " << tier.contribution;
      if (ticked) {
        EXPECT_NEAR(std::stod(match[1]) / kPointsPerMillimetre, tier.x[i], 0.1);
      }
    }
}

TEST(FormPlaces, FormAHasAFieldForTheLocumsOwnUse) {
  for (const EditionMonth& month : kMonths) {
    PaperDesk desk;
    desk.FillMonth(month);
    const std::string objects = OutputOf("qpdf --qdf --object-streams=disable '" +
                                         desk.Write(kFormA, month.key).string() + "' -");
    std::smatch rect;
    ASSERT_TRUE(std::regex_search(
        objects, rect,
        std::regex(R"(/Rect \[\s+([0-9.]+)\s+([0-9.]+)\s+([0-9.]+)\s+([0-9.]+)\s+\])")));
    const double expected[] = {147, 297 - 52.6 - 9, 147 + 52.5, 297 - 52.6};
    for (std::size_t i = 0; i < 4; ++i)
      EXPECT_NEAR(std::stod(rect[i + 1]) / kPointsPerMillimetre, expected[i], 0.1);
    EXPECT_NE(objects.find("(fldLocumOwnUse)"), std::string::npos);
    EXPECT_NE(objects.find(" 8 Tf"), std::string::npos);
  }
}

}  // namespace
}  // namespace lm::test
