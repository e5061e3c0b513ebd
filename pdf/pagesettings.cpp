// The settings of a document. They may be made before or after BeginDoc.
#include <array>
#include <cmath>

#include "pdf/colours.h"
#include "pdf/pages.h"

namespace lm::pdf {
namespace {

struct Paper {
  int code;
  double width, height;  // points
};

constexpr std::array kPapers{
    Paper{-8, 2384, 3371}, Paper{-7, 3371, 2384}, Paper{-6, 1685, 2384}, Paper{-5, 2384, 1685},
    Paper{-4, 1192, 1685}, Paper{-3, 1685, 1192}, Paper{-2, 842, 1192},  Paper{-1, 1192, 842},
    Paper{0, 596, 842},    Paper{1, 842, 596},    Paper{2, 421, 596},    Paper{3, 596, 421},
    Paper{4, 298, 421},    Paper{5, 421, 298},    Paper{6, 210, 298},    Paper{7, 298, 210},
    Paper{8, 612, 792},    Paper{9, 792, 612},    Paper{10, 792, 1224},  Paper{11, 1224, 792},
    Paper{12, 612, 1008},  Paper{13, 1008, 612},  Paper{14, 396, 612},   Paper{15, 612, 396},
    Paper{16, 522, 756},   Paper{17, 756, 522},
};
constexpr int kOwnPaper = 255;

constexpr std::array kScales{1.0, 72.0, 2.834645510, 28.34645653};  // point, inch, mm, cm
constexpr int kOwnScale = 255;

// What PDF/A leaves of the viewer's flags: one of them, and the window is bare.
std::int32_t PreferencesInPdfA(std::int32_t flags) {
  constexpr std::int32_t kCentred = 0x200, kAlways = static_cast<std::int32_t>(0xFFFFF1E7);
  return (flags & kCentred) | kAlways;
}

// Lengths that a page can have.
bool IsLength(double value) { return std::isfinite(value) && value > 0; }

}  // namespace

Settings Pages::AllSettings() const {
  Settings settings = settings_;
  settings.scale = document_.scale;
  settings.precision = document_.precision;
  settings.pageWidth = onPage_ ? nextWidth_ : document_.pageWidth;
  settings.pageHeight = onPage_ ? nextHeight_ : document_.pageHeight;
  settings.pdfA = document_.pdfA;
  settings.compression = document_.out.Compression();
  return settings;
}

void Pages::TakeSettings(const Settings& settings) {
  const std::string creationDate = settings_.information.creationDate;
  settings_ = settings;
  settings_.information.creationDate = creationDate;
  document_.scale = settings.scale;
  document_.precision = settings.precision;
  document_.pageWidth = settings.pageWidth;
  document_.pageHeight = settings.pageHeight;
  const auto [contents, images, fonts] = settings.compression;
  SetCompression(contents, images, fonts);
  if (settings.protection) Encrypt();
  if (settings.pdfA) SetPDFa(true);
}

void Pages::SetCompression(int contents, int images, int fonts) {
  document_.out.SetCompression(contents, images, fonts);
}

void Pages::SetDocProperty(std::string_view title, std::string_view subject,
                           std::string_view author, std::string_view creator,
                           std::string_view producer, std::string_view keywords) {
  Information& information = settings_.information;
  information.title = WithoutControls(title);
  information.subject = WithoutControls(subject);
  information.keywords = WithoutControls(keywords);
  if (!author.empty()) information.author = WithoutControls(author);
  if (!creator.empty()) information.creator = WithoutControls(creator);
  if (!producer.empty()) information.producer = WithoutControls(producer);
}

void Pages::SetMargins(double left, double right, double top, double bottom, bool clip) {
  for (const double margin : {left, right, top, bottom})
    if (!std::isfinite(margin)) return;
  settings_.left = document_.ToPoints(left);
  settings_.right = document_.ToPoints(right);
  settings_.top = document_.ToPoints(top);
  settings_.bottom = document_.ToPoints(bottom);
  settings_.clip = clip;
}

void Pages::SetMemoryUsage(int step) {
  if (step >= 1 && step <= 10) settings_.memoryStep = step;
}

void Pages::SetPageView(int orientation) {
  if (orientation < 0 || orientation > 3) return;
  if (pageOpen_)
    OpenPage().view = orientation;
  else
    settings_.view = orientation;
}

void Pages::SetPaperSize(int code, double width, double height) {
  double& pageWidth = onPage_ ? nextWidth_ : document_.pageWidth;
  double& pageHeight = onPage_ ? nextHeight_ : document_.pageHeight;
  if (code == kOwnPaper) {
    if (!IsLength(document_.ToPoints(width)) || !IsLength(document_.ToPoints(height))) return;
    pageWidth = document_.ToPoints(width);
    pageHeight = document_.ToPoints(height);
  }
  for (const Paper& paper : kPapers) {
    if (paper.code != code) continue;
    pageWidth = paper.width;
    pageHeight = paper.height;
  }
}

void Pages::SetPDFa(bool on) {
  if (on && settings_.protection) throw Error("PDF/A allows no encryption");
  if (on && !document_.pdfA && HasContents())
    throw Error("Objects that are written already may be such as PDF/A does not allow");
  document_.pdfA = on;
  document_.out.pdfA = on;
  if (!on) return;
  document_.RaiseVersion(1);
  std::int32_t& preferences = settings_.viewerPreferences;
  if (preferences != Settings().viewerPreferences) preferences = PreferencesInPdfA(preferences);
  Colours& colours = document_.state.colours;
  for (std::string* colour : {&colours.fill, &colours.line, &colours.text})
    if (colour->starts_with('@')) *colour = RgbColour(*colour, document_);
}

// What was drawn or reserved counts, too: it may be on no page yet.
bool Pages::HasContents() const {
  const bool isDrawing = document_.target == Target::Object || document_.target == Target::Tiling;
  return document_.out.IsOpen() && (document_.out.ObjectCount() > kReservedObjects || isDrawing ||
                                    !document_.pageBuffer.empty());
}

void Pages::SetPrecision(int decimals) {
  if (decimals >= 0 && decimals <= 6) document_.precision = decimals;
}

void Pages::SetProtection(int flags, std::string_view userPassword,
                          std::string_view ownerPassword) {
  if (document_.pdfA) throw Error("PDF/A allows no encryption");
  if (document_.out.HasObjects())
    throw Error("Objects that are written already cannot be enciphered any more");
  settings_.protection = {flags, std::string(userPassword), std::string(ownerPassword)};
  Encrypt();
}

void Pages::Encrypt() {
  const Protection& protection = *settings_.protection;
  document_.out.encryption =
      Encryption(protection.flags, protection.userPassword, protection.ownerPassword, DocumentId());
  if (protection.flags & kKey128) document_.RaiseVersion(1);
}

std::string Pages::DocumentId() const { return Md5(settings_.information.creationDate); }

void Pages::SetScale(int kind, double factor) {
  if (kind == kOwnScale && IsLength(factor)) document_.scale = factor;
  if (kind >= 0 && kind < static_cast<int>(kScales.size()))
    document_.scale = kScales[static_cast<std::size_t>(kind)];
}

void Pages::SetViewerPreferences(std::int32_t flags) {
  settings_.viewerPreferences = document_.pdfA ? PreferencesInPdfA(flags) : flags;
}

}  // namespace lm::pdf
