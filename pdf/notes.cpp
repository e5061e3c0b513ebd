// Notes: texts on the page, notes that open, and stamps.
#include <algorithm>

#include "core/text.h"
#include "pdf/annotations.h"
#include "pdf/annots.h"
#include "pdf/colours.h"
#include "pdf/error.h"
#include "pdf/fonts.h"
#include "pdf/notation.h"
#include "pdf/scope.h"
#include "pdf/textbox.h"

namespace lm::pdf {
namespace {

constexpr std::string_view kNoteTypes[] = {"/FreeText", "/Text", "/Stamp"};  // by DrawNote's type
constexpr int kFreeText = 0, kTextNote = 1, kStamp = 2;

struct Alignment {
  std::string_view entry;
  int flag;
};
constexpr Alignment kAlignments[] = {
    {"", kTextLeft}, {"/Q 1 ", kTextCentre}, {"/Q 2 ", kTextRight}};

bool IsAlignment(int alignment) {
  return alignment >= 0 && alignment < static_cast<int>(std::size(kAlignments));
}

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

constexpr std::string_view kStampColour = "#0.8 0 0", kSheetColour = "#1 1 0.6";
constexpr int kBold = 1;

// Bits of /F. A note that opens keeps its size and stands upright on a turned page.
constexpr int kPrinted = 4, kKeepsSize = 8 + 16;

Stamp FindStamp(std::string_view name) {
  const auto* found = std::find_if(std::begin(kStamps), std::end(kStamps), [&](const Stamp& stamp) {
    return EqualsIgnoreCase(stamp.name, name);
  });
  return found == std::end(kStamps) ? Stamp{name, name} : *found;
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
  const std::string stored = StoredColour(colour, document_);
  const std::string numbers = RgbNumbers(document_, stored);
  const Stamp stamp = type == kStamp ? FindStamp(text) : Stamp{};
  if (type == kStamp) text = stamp.words;
  if (type != kTextNote) texts_.EnsureFont();
  std::string look;
  if (type == kFreeText) look = FreeTextLook(box, text, stored, alignment);
  if (type == kTextNote) look = SheetLook(box, numbers.empty() ? kSheetColour : stored);
  if (type == kStamp) look = StampLook(box, text, numbers.empty() ? kStampColour : stored);
  const int appearance = WriteAppearance(document_, box, look);

  Output& out = document_.out;
  const int object = out.BeginNewObject();
  std::string body = "<< /Type /Annot /Subtype " + std::string(kNoteTypes[type]);
  if (type == kTextNote) body += " /Name /Note";
  if (type == kStamp) body += " /Name /" + EscapedName(stamp.name);
  body += "/Rect [" + box.Text(document_) + "] /F " +
          std::to_string(type == kTextNote ? kPrinted + kKeepsSize : kPrinted) + " /Contents " +
          out.Text(text) + " /AP << /N " + std::to_string(appearance) + " 0 R >> ";
  if (type == kFreeText) {
    body += "/DA " + out.Text(texts_.DefaultAppearance()) + " ";
    if (IsAlignment(alignment)) body += kAlignments[alignment].entry;
    body += "/BS << /Type /Border /W 1 /S /S >> ";
  }
  if (!title.empty()) body += "/T " + out.Text(title) + " ";
  if (!numbers.empty()) body += "/C [" + numbers + "] ";
  out.Write(body + ">>");
  out.EndObject();
  AddToPage(document_, object);
}

// The text in a box with a thin border, on the note's colour.
std::string Annotations::FreeTextLook(const PageBox& box, std::string_view text,
                                      std::string_view ground, int alignment) const {
  const Frame frame{.width = box.Width(),
                    .height = box.Height(),
                    .borderWidth = 1,
                    .borderColour = document_.state.colours.text,
                    .backColour = std::string(ground)};
  const int flags = IsAlignment(alignment) ? kAlignments[alignment].flag : kTextLeft;
  return FramedLook(frame, texts_.Paragraphs(frame, text, flags));
}

// A frame with the words in its middle, as large as fits. Under PDF/A every font is in the file, so
// they are written in the one that the caller chose.
std::string Annotations::StampLook(const PageBox& box, std::string_view words,
                                   std::string_view colour) const {
  const Restored<DrawState> restored(document_.state);
  if (!document_.pdfA) fonts_.Set("Arial", 0, kBold, 0);
  document_.state.text.size = 0;
  document_.state.colours.text = colour;
  const Frame frame{.width = box.Width(),
                    .height = box.Height(),
                    .borderWidth = std::min(box.Width(), box.Height()) * 0.06,
                    .borderColour = std::string(colour),
                    .backColour = ""};
  return FramedLook(frame, texts_.Line(frame, words, kTextCentre));
}

std::string Annotations::SheetLook(const PageBox& box, std::string_view colour) const {
  const Frame frame{.width = box.Width(),
                    .height = box.Height(),
                    .borderWidth = std::min(box.Width(), box.Height()) * 0.06,
                    .borderColour = "#0 0 0",
                    .backColour = std::string(colour)};
  return TopDown(document_, frame.height,
                 DrawFrame(document_, frame) + DrawWriting(document_, frame));
}

std::string Annotations::FramedLook(const Frame& frame, std::string_view text) const {
  return TopDown(document_, frame.height, DrawFrame(document_, frame)) +
         TopDown(document_, frame.height, text);
}

}  // namespace lm::pdf
