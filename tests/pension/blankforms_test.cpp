#include "pension/blankforms.h"

#include <gtest/gtest.h>

#include <functional>

#include "core/files.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/import.h"
#include "pension/shippedforms.h"
#include "tests/pdf/rendered_page.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

// The form of five pages that the cases below are made for.
const FormBlank& FormOfFivePages() { return BlankOf("A", FormEdition::April2024); }

// A document whose pages are of these millimetres.
void Write(const fs::path& file, int pages, double width = 210, double height = 297, int view = 0,
           bool locked = false) {
  clsPDFCreator pdf(test::StandingClock());
  pdf.SetScale(2);
  if (locked) pdf.SetProtection(4, "", "owner");
  pdf.SetPageView(view);
  pdf.BeginDoc(PathText(file));
  for (int page = 1; page <= pages; ++page) {
    pdf.SetPaperSize(255, width, height);
    pdf.BeginPage();
    pdf.DrawText(20, 20, "official");
  }
  pdf.EndDoc();
  ASSERT_EQ(pdf.ErrNumber(), 0) << pdf.ErrDescription();
}

void WriteBytes(const fs::path& file, std::string_view bytes) {
  std::string error;
  ASSERT_TRUE(ReplaceFile(file, bytes, error)) << error;
}

TEST(BlankForms, TellWhatIsWrongWithAFile) {
  struct Case {
    const char* what;
    std::function<void(const fs::path& file)> make;
    const char* fault;  // how the first one begins; "" for none
    bool hasProof;
  };
  const std::string_view standIn = ShippedForms()[0].bytes;
  const Case cases[] = {
      {"no file", [](const fs::path&) {}, "is not there", false},
      {"empty", [](const fs::path& file) { WriteBytes(file, ""); }, "cannot be read: ", false},
      {"a text", [](const fs::path& file) { WriteBytes(file, "Form A\r\n"); },
       "cannot be read: ", false},
      {"a folder", [](const fs::path& file) { fs::create_directory(file); },
       "cannot be read: ", false},
      {"its first bytes", [&](const fs::path& file) { WriteBytes(file, standIn.substr(0, 700)); },
       "cannot be read: ", false},
      {"encrypted, though it opens without asking",
       [](const fs::path& file) { Write(file, 5, 210, 297, 0, true); }, "cannot be read: ", false},
      {"a page less", [](const fs::path& file) { Write(file, 4); }, "has 4 pages and not 5", true},
      {"a page more", [](const fs::path& file) { Write(file, 6); }, "has 6 pages and not 5", true},
      {"A5", [](const fs::path& file) { Write(file, 5, 148, 210); },
       "page 1 is 148 x 210 mm and not A4", true},
      {"lying", [](const fs::path& file) { Write(file, 5, 297, 210); },
       "page 1 is 297 x 210 mm and not A4", true},
      {"lying, turned upright", [](const fs::path& file) { Write(file, 5, 297, 210, 3); }, "",
       true},
      {"upright, turned", [](const fs::path& file) { Write(file, 5, 210, 297, 3); },
       "page 1 is 297 x 210 mm and not A4", true},
      {"a little off", [](const fs::path& file) { Write(file, 5, 210.9, 296.1); }, "", true},
      {"too far off", [](const fs::path& file) { Write(file, 5, 210, 298.2); },
       "page 1 is 210 x 298 mm and not A4", true},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    test::TestLedger test;
    const fs::path folder = test.ledger.File(kBlankFolder);
    fs::create_directories(folder);
    const fs::path proof = folder / "Proof GP A 2024-04.pdf";
    WriteBytes(proof, "of a form that was there before");
    each.make(folder / FormOfFivePages().file);

    const BlankFormReport report = CheckBlankForm(test, FormOfFivePages());
    const std::string first = report.faults.empty() ? "" : report.faults.front();
    EXPECT_EQ(first.substr(0, std::string_view(each.fault).size()), each.fault);
    EXPECT_EQ(first.empty(), *each.fault == '\0') << first;
    EXPECT_FALSE(report.isStandIn);
    EXPECT_EQ(report.proof, each.hasProof ? proof : "");
    EXPECT_EQ(fs::exists(proof), each.hasProof);
    if (each.hasProof) {
      EXPECT_EQ(test::CheckPdf(proof), 0);
    }
  }
}

// However a copy broke off: an answer, and nothing worse.
TEST(BlankForms, SurviveAnyTruncation) {
  test::TestLedger test;
  const fs::path file = test.ledger.File(kBlankFolder) / FormOfFivePages().file;
  fs::create_directories(file.parent_path());
  const std::string_view standIn = ShippedForms()[0].bytes;
  for (std::size_t size = 0; size < standIn.size(); size += standIn.size() / 40) {
    WriteBytes(file, standIn.substr(0, size));
    const BlankFormReport report = CheckBlankForm(test, FormOfFivePages());
    EXPECT_EQ(report.proof.empty(), !fs::exists(test.ledger.File("Form Templates/Proof GP A "
                                                                 "2024-04.pdf")));
    if (report.faults.empty()) {
      EXPECT_FALSE(report.proof.empty()) << size;
    }
  }
}

TEST(BlankForms, AProofThatCannotBeWrittenIsAFault) {
  test::TestLedger test;
  ASSERT_TRUE(PlaceShippedForms(test));
  const fs::path proof = test.ledger.File(kBlankFolder) / "Proof GP A 2024-04.pdf";
  fs::create_directories(proof / "something");
  const BlankFormReport report = CheckBlankForm(test, FormOfFivePages());
  ASSERT_EQ(report.faults.size(), 1u);
  EXPECT_TRUE(report.faults[0].starts_with("the proof cannot be written: ")) << report.faults[0];
  EXPECT_TRUE(report.isStandIn);
}

constexpr int kPixelsPerInch = 144;

int Pixel(double millimetres) { return static_cast<int>(millimetres * kPixelsPerInch / 25.4); }

bool IsRed(const test::Pixel& pixel) { return pixel[0] > 150 && pixel[1] < 60 && pixel[2] < 60; }

bool HasRed(const test::RenderedPage& page, double left, double top, double right, double bottom) {
  for (int y = Pixel(top); y <= Pixel(bottom); ++y)
    for (int x = Pixel(left); x <= Pixel(right); ++x)
      if (IsRed(page.At(x, y))) return true;
  return false;
}

// Where a sample's ink must be, on one of its rows.
bool HasSample(const test::RenderedPage& page, const FormPlace& place, int row) {
  constexpr double kCharacter = 3;
  const double y = place.y + row * place.step;
  switch (place.kind) {
    case PlaceKind::Picture:
    case PlaceKind::Field:
      return HasRed(page, place.x + 2, y - 0.3, place.x + 3, y + 0.3) &&
             HasRed(page, place.x + place.width - 0.3, y + 1, place.x + place.width + 0.3, y + 2);
    case PlaceKind::RightText:
      return HasRed(page, place.x - kCharacter, y - kCharacter, place.x, y) &&
             !HasRed(page, place.x + 0.3, y - kCharacter, place.x + kCharacter, y);
    case PlaceKind::PoundsAndPence:
      return HasRed(page, place.x - kCharacter, y - kCharacter, place.x, y) &&
             HasRed(page, place.penceX, y - kCharacter, place.penceX + kCharacter, y);
    case PlaceKind::DigitBoxes: {
      const double last = place.x + place.pitch * static_cast<double>(place.boxes.size() - 1);
      return HasRed(page, place.x, y - kCharacter, place.x + kCharacter, y) &&
             HasRed(page, last, y - kCharacter, last + kCharacter, y);
    }
    default:
      return HasRed(page, place.x, y - kCharacter, place.x + kCharacter, y);
  }
}

TEST(BlankForms, EachStandInCanBeUsedAndItsProofShowsAllPlaces) {
  test::TestLedger test;
  ASSERT_TRUE(PlaceShippedForms(test));
  for (const FormBlank& blank : FormBlanks()) {
    SCOPED_TRACE(blank.file);
    EXPECT_EQ(test::CheckPdf(test.ledger.File(kBlankFolder) / blank.file), 0);
    const BlankFormReport report = CheckBlankForm(test, blank);
    EXPECT_TRUE(report.isStandIn);
    ASSERT_TRUE(report.faults.empty()) << report.faults[0];
    EXPECT_EQ(test::CheckPdf(report.proof), 0);
    clsPDFCreator reader(test::StandingClock());
    pdf::FileInfo info;
    reader.GetInfo(PathText(report.proof), info);
    EXPECT_EQ(info.pages, blank.pages);
    for (int number = 1; number <= blank.pages; ++number) {
      const test::RenderedPage page(report.proof, number, kPixelsPerInch);
      for (const FormPlace& place : blank.places) {
        if (place.page != number || FormItemLabel(place.item).empty()) continue;
        for (int row = 0; row < place.rows; ++row)
          EXPECT_TRUE(HasSample(page, place, row))
              << "page " << number << ", " << FormItemLabel(place.item) << ", row " << row;
      }
    }
  }
}

}  // namespace
}  // namespace lm
