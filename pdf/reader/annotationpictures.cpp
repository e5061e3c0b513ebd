#include "pdf/reader/annotationpictures.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "pdf/error.h"

namespace lm::pdf {
namespace {

// Flags of an annotation.
constexpr long long kHidden = 2;
constexpr long long kPrint = 4;
constexpr long long kNoRotate = 16;
constexpr long long kNoView = 32;

constexpr double kLargestFactor = 1e6;

Matrix ReadMatrix(Objects& objects, const Value& value) {
  const Value& found = objects.Resolve(value);
  if (found.kind != ValueKind::Array || found.items.size() < 6) return {};
  const auto at = [&](std::size_t i) {
    return objects.Resolve(found.items[i]).Number().value_or(0);
  };
  return {at(0), at(1), at(2), at(3), at(4), at(5)};
}

// The upright box around a box that was transformed.
Box Around(const Matrix& m, const Box& box) {
  const auto [xLow, xHigh] =
      std::minmax({m.a * box.x0 + m.c * box.y0, m.a * box.x1 + m.c * box.y0,
                   m.a * box.x0 + m.c * box.y1, m.a * box.x1 + m.c * box.y1});
  const auto [yLow, yHigh] =
      std::minmax({m.b * box.x0 + m.d * box.y0, m.b * box.x1 + m.d * box.y0,
                   m.b * box.x0 + m.d * box.y1, m.b * box.x1 + m.d * box.y1});
  return {xLow + m.e, yLow + m.f, xHigh + m.e, yHigh + m.f};
}

// Fits the picture, which its own matrix has turned already, into the annotation's rectangle.
std::optional<Matrix> Fit(const Box& picture, const Box& rectangle) {
  Matrix place;
  place.a = (rectangle.x1 - rectangle.x0) / (picture.x1 - picture.x0);
  place.d = (rectangle.y1 - rectangle.y0) / (picture.y1 - picture.y0);
  place.e = rectangle.x0 - picture.x0 * place.a;
  place.f = rectangle.y0 - picture.y0 * place.d;
  for (const double number : {place.a, place.d, place.e, place.f}) {
    if (!(std::fabs(number) <= kLargestFactor)) return std::nullopt;  // no number either
  }
  return place;
}

// Turned around a point so that it stands upright on a page that is shown turned.
Matrix Upright(const Matrix& place, double x, double y, int rotation) {
  const double cosine = rotation == 0 ? 1 : rotation == 180 ? -1 : 0;
  const double sine = rotation == 90 ? 1 : rotation == 270 ? -1 : 0;
  const double left = place.e - x;
  const double top = place.f - y;
  return {cosine * place.a,
          sine * place.a,
          -sine * place.d,
          cosine * place.d,
          x + cosine * left - sine * top,
          y + sine * left + cosine * top};
}

class PictureReader {
 public:
  PictureReader(ParsedFile& file, const PageNode& page)
      : objects_(file.objects), rotation_(file.Rotation(page)) {}

  std::optional<AnnotationPicture> Read(const Value& annotation) {
    const long long flags = objects_.Find(annotation, "F").Integer().value_or(0);
    if ((flags & (kPrint | kHidden | kNoView)) != kPrint) return std::nullopt;
    if (objects_.Find(annotation, "Subtype").IsName("Popup")) return std::nullopt;
    const Value& form = NormalAppearance(annotation);
    if (form.kind != ValueKind::Reference) return std::nullopt;
    const Object& object = objects_.Get(objects_.Target(form.object));
    const auto rectangle = ReadBox(objects_, annotation.At("Rect"));
    const auto box = ReadBox(objects_, object.value.At("BBox"));
    if (!object.isStream || !rectangle || !box) return std::nullopt;

    const Matrix own = ReadMatrix(objects_, object.value.At("Matrix"));
    auto place = Fit(Around(own, *box), *rectangle);
    if (!place) return std::nullopt;
    if (flags & kNoRotate) place = Upright(*place, rectangle->x0, rectangle->y1, rotation_);
    const Value& layer = annotation.At("OC");
    return AnnotationPicture{form, *place, layer.kind == ValueKind::Reference ? layer : kNullValue};
  }

 private:
  // A field with several states, a tick box say, has a picture for each.
  const Value& NormalAppearance(const Value& annotation) {
    const Value& normal = objects_.Find(annotation, "AP").At("N");
    const Value& found = objects_.Resolve(normal);
    if (!found.IsDictionary() || IsStream(normal)) return normal;
    const std::string state = objects_.Find(annotation, "AS").Name();
    return found.At(state.empty() ? "Off" : state);
  }

  bool IsStream(const Value& value) {
    return value.kind == ValueKind::Reference &&
           objects_.Get(objects_.Target(value.object)).isStream;
  }

  Objects& objects_;
  int rotation_;
};

}  // namespace

std::vector<AnnotationPicture> ReadAnnotationPictures(ParsedFile& file, const PageNode& page) {
  Objects& objects = file.objects;
  std::vector<AnnotationPicture> pictures;
  PictureReader reader(file, page);
  for (const Value& item : objects.Find(*page.dictionary, "Annots").items) {
    try {
      if (auto found = reader.Read(objects.Resolve(item))) {
        pictures.push_back(std::move(*found));
      }
    } catch (const Error&) {  // the page itself may be sound
      continue;
    }
  }
  return pictures;
}

}  // namespace lm::pdf
