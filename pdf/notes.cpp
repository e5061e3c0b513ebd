// Notes: texts on the page, notes that open, and stamps.
#include <algorithm>

#include "core/text.h"
#include "pdf/annotations.h"
#include "pdf/annots.h"
#include "pdf/colours.h"
#include "pdf/error.h"
#include "pdf/notation.h"

namespace lm::pdf {
namespace {

constexpr std::string_view kNoteTypes[] = {"/FreeText", "/Text", "/Stamp"};  // by DrawNote's type
constexpr int kFreeText = 0, kTextNote = 1, kStamp = 2;

constexpr std::string_view kAlignments[] = {"", "/Q 1 ", "/Q 2 "};

struct Stamp {
  std::string_view name, words;
};
constexpr Stamp kStamps[] = {{"Approved", "APPROVED"},
                             {"AsIs", "AS IS"},
                             {"Confidential", "CONFIDENTIAL"},
                             {"Departmental", "DEPARTMENTAL"},
                             {"Draft", "DRAFT"},
                             {"Experimental", "EXPERIMENTAL"},
                             {"Expired", "EXPIRED"},
                             {"Final", "FINAL"},
                             {"ForComment", "FOR COMMENT"},
                             {"ForPublicRelease", "FOR PUBLIC RELEASE"},
                             {"NotApproved", "NOT APPROVED"},
                             {"NotForPublicRelease", "NOT FOR PUBLIC RELEASE"},
                             {"Sold", "SOLD"},
                             {"TopSecret", "TOP SECRET"}};

constexpr std::string_view kStampColour = "#0.8 0 0";
constexpr double kLetterWidth = 0.6;  // of every letter of the stamps' font, of its size

Stamp FindStamp(std::string_view name) {
  const auto* found = std::find_if(std::begin(kStamps), std::end(kStamps), [&](const Stamp& stamp) {
    return EqualsIgnoreCase(stamp.name, name);
  });
  return found == std::end(kStamps) ? Stamp{name, name} : *found;
}

// A frame with the words in its middle, as large as fits.
std::string DrawStamp(Document& document, std::string_view words, const PageBox& box,
                      std::string_view colour) {
  const double width = box.Width(), height = box.Height();
  const double line = std::min(width, height) * 0.06;
  const double letters = static_cast<double>(words.size()) * kLetterWidth;
  const double size = std::min(height * 0.7, width * 0.86 / letters);
  const auto number = [&](double points) { return document.Points(points) + " "; };
  return "q\r" + ColourOperator(colour, true) + "\r" + ColourOperator(colour, false) + "\r" +
         number(line) + "w\r" + number(line) + number(line) + number(width - 2 * line) +
         number(height - 2 * line) + "re S\rBT\r" + UseFont(document, kCourierBold) + " " +
         number(size) + "Tf\r" + number((width - size * letters) / 2) +
         number(height / 2 - size * 0.3) + "Td\r" + LiteralString(words) + " Tj\rET\rQ\r";
}

}  // namespace

void Annotations::DrawNote(int type, std::string_view text, double x, double y, double width,
                           double height, std::string_view title, std::string_view colour,
                           int alignment) {
  RequirePage(document_);
  if (type < 0 || type >= static_cast<int>(std::size(kNoteTypes)))
    throw Error("Unknown type of note");
  if (type == kStamp && text.empty()) throw Error("A stamp needs a name");
  const PageBox box = BoxInUnits(document_, x, y, width, height);
  const std::string stored = colour.empty() ? "" : StoredColour(colour, document_);

  std::string looks;
  if (type == kTextNote) looks = "/Name /Note ";
  if (type == kStamp) {
    const Stamp stamp = FindStamp(text);
    text = stamp.words;
    const std::string operators =
        DrawStamp(document_, stamp.words, box, stored.empty() ? kStampColour : stored);
    looks = " /Name /" + EscapedName(stamp.name) + " /AP << /N " +
            std::to_string(WriteAppearance(document_, box.Width(), box.Height(), operators)) +
            " 0 R >> ";
  }
  const std::string defaultAppearance = type == kFreeText ? DefaultAppearance(document_) : "";

  Output& out = document_.out;
  const int object = out.BeginNewObject();
  std::string body = "<< /Type /Annot /Subtype " + std::string(kNoteTypes[type]) + looks +
                     "/Rect [" + box.Text(document_) + "] /F 4 /Contents " + out.Text(text) + " ";
  if (type == kFreeText) {
    body += "/DA " + out.Text(defaultAppearance) + " ";
    if (alignment > 0 && alignment < static_cast<int>(std::size(kAlignments)))
      body += kAlignments[alignment];
    body += "/BS << /Type /Border /W 1 /S /S >> ";
  }
  if (!title.empty()) body += "/T " + out.Text(title) + " ";
  if (const std::string numbers = ColourNumbers(stored); !numbers.empty())
    body += "/C [" + numbers + "] ";
  out.Write(body + ">>");
  out.EndObject();
  AddToPage(document_, object);
}

}  // namespace lm::pdf
