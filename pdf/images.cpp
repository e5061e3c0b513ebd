#include "pdf/images.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/text.h"
#include "pdf/graphics.h"
#include "pdf/images/bmp.h"
#include "pdf/images/eps.h"
#include "pdf/images/gif.h"
#include "pdf/images/jpeg.h"
#include "pdf/images/png.h"
#include "pdf/images/tga.h"
#include "pdf/images/wmf.h"
#include "pdf/pdfa.h"

namespace lm::pdf {

namespace {

constexpr int kFileNotFound = 53;
constexpr int kVersionOf16Bits = 2;  // PDF 1.5

template <typename Result>
struct Format {
  std::string_view extension;
  Result (*read)(std::string_view bytes);
};
constexpr Format<Picture> kRasters[] = {{".PNG", ReadPng}, {".JPG", ReadJpeg}, {".JPEG", ReadJpeg},
                                        {".BMP", ReadBmp}, {".GIF", ReadGif},  {".TGA", ReadTga}};
constexpr Format<VectorPicture> kVectors[] = {
    {".EPS", ReadEps}, {".AI", ReadEps}, {".WMF", ReadWmf}};

// The format that the extension names, nullptr when none does.
template <typename Formats>
auto FormatOf(std::string_view upperPath, const Formats& formats) -> decltype(&formats[0]) {
  const auto found = std::find_if(std::begin(formats), std::end(formats), [&](const auto& format) {
    return upperPath.ends_with(format.extension);
  });
  return found == std::end(formats) ? nullptr : found;
}

std::string ReadBytes(std::string_view file) {
  const std::filesystem::path path = PathFromText(file);
  std::error_code ignored;
  if (!std::filesystem::exists(path, ignored)) {
    throw Error("The picture does not exist", kFileNotFound);
  }
  std::string reason;
  auto bytes = ReadFile(path, reason);
  if (!bytes) throw Error("The picture cannot be read: " + reason);
  return *std::move(bytes);
}

struct Size {
  double width = 0, height = 0;
};

// The size to draw in, in the unit of `box`; `own` in that unit too.
Size DrawnSize(Size box, const Size& own) {
  const bool hasWidth = std::isfinite(box.width) && box.width > 0;
  const bool hasHeight = std::isfinite(box.height) && box.height > 0;
  if (!hasWidth && !hasHeight) return own;
  if (!hasWidth) box.width = box.height * own.width / own.height;
  if (!hasHeight) box.height = box.width * own.height / own.width;
  return box;
}

}  // namespace

std::string Images::AddImage(std::string_view file, std::int32_t maskColour) {
  return document_.prefix + Load(file, maskColour).resource;
}

void Images::AddImagePattern(std::string_view name, std::string_view file, double width,
                             double height) {
  const Record& record = Load(file, -1);
  const Size own = {document_.ToUnits(record.width), document_.ToUnits(record.height)};
  const Size size = DrawnSize({width, height}, own);
  graphics_.WriteImagePattern(name, record.resource, size.width, size.height);
}

void Images::DrawImage(std::string_view file, double x, double y, double width, double height,
                       int /*mode*/, std::int32_t maskColour, double transparency) {
  const bool isVector = FormatOf(ToUpper(file), kVectors) != nullptr;
  const VectorPicture* drawing = isVector ? &LoadVector(file) : nullptr;
  const Record* record = isVector ? nullptr : Named(file);
  if (!isVector && record == nullptr) record = &Load(file, maskColour);

  const Size own =
      isVector ? Size{drawing->width, drawing->height}
               : Size{static_cast<double>(record->width), static_cast<double>(record->height)};
  const Size asked = {document_.ToPoints(width), document_.ToPoints(height)};
  const Size size = DrawnSize(asked, own);
  const std::string alpha = transparency > 0 ? graphics_.AlphaOperator(100 - transparency) : "";
  graphics_.SetXY(x, y);
  const double left = document_.state.x, top = document_.state.y;
  document_.RememberBox(left, top, left + size.width, top + size.height);

  if (!alpha.empty()) document_.Draw("q " + alpha);
  if (isVector) {
    document_.Draw(DrawnIn(*drawing, {left, top, size.width, size.height}, document_));
  } else {
    // The box's height is negative, as the page matrix would turn the picture upside down.
    document_.Draw("q " + document_.Points(size.width) + " 0 0 " + document_.Points(-size.height) +
                   " " + document_.Points(left) + " " + document_.Points(top + size.height) +
                   " cm " + document_.Name(record->resource) + " Do Q\n");
  }
  if (!alpha.empty()) document_.Draw("Q\n");
}

// A name counts with and without the document's prefix.
const Images::Record* Images::Named(std::string_view name) const {
  if (name.starts_with(document_.prefix)) name.remove_prefix(document_.prefix.size());
  const auto found = std::find_if(records_.begin(), records_.end(),
                                  [&](const Record& record) { return record.resource == name; });
  return found == records_.end() ? nullptr : &*found;
}

const Images::Record& Images::Load(std::string_view file, std::int32_t maskColour) {
  const std::string key = ToUpper(file);
  maskColour = maskColour > 0 ? maskColour & 0xFFFFFF : -1;
  const auto known = std::find_if(records_.begin(), records_.end(), [&](const Record& record) {
    return record.key == key && record.maskColour == maskColour;
  });
  if (known != records_.end()) return *known;

  const Format<Picture>* format = FormatOf(key, kRasters);
  if (format == nullptr) throw Error("This kind of picture is not supported");
  if (!document_.out.IsOpen()) throw Error("No document is open");
  Picture picture = format->read(ReadBytes(file));
  if (document_.pdfA && picture.bits == 16) {
    throw Error("A PDF/A file cannot hold a picture of 16 bits");
  }
  if (picture.colourSpace == "DeviceCMYK") RefuseInPdfA(document_, "CMYK pictures");
  if (maskColour >= 0) picture.mask = MaskOfColour(picture, static_cast<std::uint32_t>(maskColour));

  Record record = {key,
                   maskColour,
                   picture.width,
                   picture.height,
                   0,
                   "IMG_" + std::to_string(records_.size() + 1)};
  record.object = WriteObject(record.resource, picture);
  document_.resources.Add(ResourceKind::XObject, document_.Name(record.resource), record.object);
  document_.usesImages = true;
  if (picture.bits == 16) document_.RaiseVersion(kVersionOf16Bits);
  return records_.emplace_back(std::move(record));
}

const VectorPicture& Images::LoadVector(std::string_view file) {
  const std::string key = ToUpper(file);
  const auto known = vectors_.find(key);
  if (known != vectors_.end()) return known->second;
  return vectors_.emplace(key, FormatOf(key, kVectors)->read(ReadBytes(file))).first->second;
}

// Returns the object's number. A palette goes before it, in a stream of its own.
int Images::WriteObject(std::string_view resource, const Picture& picture) {
  Output& out = document_.out;
  std::string colourSpace = "/" + picture.colourSpace;
  if (!picture.palette.empty()) {
    const int palette = out.BeginNewObject();
    out.WriteStream(StreamClass::Images, "<< ", picture.palette);
    out.EndObject();
    const std::size_t last = picture.palette.size() / 3 - 1;
    colourSpace = "[/Indexed " + colourSpace + " " + std::to_string(last) + " " +
                  std::to_string(palette) + " 0 R]";
  }

  std::string dictionary = "<< /Type /XObject /Subtype /Image /Name " + document_.Name(resource) +
                           " /Width " + std::to_string(picture.width) + " /Height " +
                           std::to_string(picture.height);
  if (!picture.mask.empty()) dictionary += " /Mask [" + picture.mask + "]";
  dictionary +=
      " /ColorSpace " + colourSpace + " /BitsPerComponent " + std::to_string(picture.bits);
  if (!picture.decode.empty()) dictionary += " /Decode " + picture.decode;
  if (!picture.decodeParms.empty()) dictionary += " /DecodeParms " + picture.decodeParms;
  dictionary += "\r";

  Output::StreamOptions options;
  options.filter = picture.filter;
  const int object = out.BeginNewObject();
  out.WriteStream(StreamClass::Images, dictionary, picture.data, options);
  out.EndObject();
  return object;
}

}  // namespace lm::pdf
