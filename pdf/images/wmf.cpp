#include "pdf/images/wmf.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <unordered_map>

#include "pdf/images/bytes.h"

namespace lm::pdf {

namespace {

using Kind = VectorOperator::Kind;

constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr std::size_t kPlaceableHeader = 22;
constexpr std::size_t kMaxObjects = 65536;
constexpr std::size_t kMaxSaved = 256;
constexpr int kNullPen = 5, kNullBrush = 1;
constexpr int kAlternate = 1;
constexpr double kCircle = 0.5523;  // a quarter circle's control points, in radii

// By the pen's style.
constexpr std::string_view kDashes[] = {"[ ] 0 d", "[3 1] 0 d", "[0.5 0.5] 0 d", "[2 1 0.5 1] 0 d",
                                        "[2 1 0.5 1 0.5 1] 0 d"};

struct Point {
  double x = 0, y = 0;
};

struct Pen {
  int style = 0;
  double width = 0;  // logical units
  std::uint32_t colour = 0;
  bool operator==(const Pen&) const = default;
};

struct Brush {
  int style = 0;
  std::uint32_t colour = 0xFFFFFF;
};

// What a file keeps under a number; fonts, palettes and regions only take their place.
struct Object {
  std::optional<Pen> pen;
  std::optional<Brush> brush;
};

// The state that records set and SaveDC keeps.
struct Context {
  Pen pen;
  Brush brush;
  Point origin, extent;
  Point current;
  int fillMode = kAlternate;
};

struct Box {
  double left = 0, top = 0, right = 0, bottom = 0;
};

std::vector<double> Rgb(std::uint32_t colour) {
  return {(colour & 255) / 255.0, (colour >> 8 & 255) / 255.0, (colour >> 16 & 255) / 255.0};
}

class WmfReader {
 public:
  VectorPicture Read(std::string_view file) {
    const Bytes bytes(file);
    std::size_t at = 0;
    if (bytes.Little32(0) == kPlaceableKey) {
      ReadPlaceable(bytes);
      at = kPlaceableHeader;
    }
    const unsigned type = bytes.Little16(at);
    if ((type != 1 && type != 2) || bytes.Little16(at + 2) != 9) {
      throw Error("This is no Windows metafile");
    }
    for (at += 18;;) {
      const std::size_t size = std::size_t{2} * bytes.Little32(at);
      const unsigned function = bytes.Little16(at + 4);
      if (function == 0) break;
      if (size < 6) throw Error("The metafile is damaged");
      Act(function, Bytes(bytes.Part(at + 6, size - 6)));
      at += size;
    }
    if (!painted_) throw Error("The file has no drawing that can be read");
    return std::move(picture_);
  }

 private:
  using Handler = void (WmfReader::*)(const Bytes&);

  void ReadPlaceable(const Bytes& bytes) {
    const double left = bytes.Signed16(6), top = bytes.Signed16(8);
    context_.origin = {left, top};
    context_.extent = {bytes.Signed16(10) - left, bytes.Signed16(12) - top};
    const double unitsPerInch = bytes.Little16(14);
    SetOwnSize(unitsPerInch > 0 ? 72 / unitsPerInch : 1);
  }

  void Act(unsigned function, const Bytes& record) {
    static const std::unordered_map<unsigned, Handler> kHandlers = {
        {0x001E, &WmfReader::SaveDC},
        {0x0127, &WmfReader::RestoreDC},
        {0x0106, &WmfReader::SetFillMode},
        {0x020B, &WmfReader::SetWindowOrigin},
        {0x020C, &WmfReader::SetWindowExtent},
        {0x020F, &WmfReader::MoveWindowOrigin},
        {0x02FA, &WmfReader::CreatePen},
        {0x02FC, &WmfReader::CreateBrush},
        {0x00F7, &WmfReader::CreateOther},
        {0x02FB, &WmfReader::CreateOther},
        {0x06FF, &WmfReader::CreateOther},
        {0x0142, &WmfReader::CreatePatternBrush},
        {0x01F9, &WmfReader::CreatePatternBrush},
        {0x012D, &WmfReader::Select},
        {0x01F0, &WmfReader::Delete},
        {0x0214, &WmfReader::MoveTo},
        {0x0213, &WmfReader::LineTo},
        {0x0324, &WmfReader::Polygon},
        {0x0325, &WmfReader::Polyline},
        {0x0538, &WmfReader::PolyPolygon},
        {0x041B, &WmfReader::Rectangle},
        {0x061C, &WmfReader::RoundRectangle},
        {0x0418, &WmfReader::Ellipse},
        {0x0817, &WmfReader::Arc},
        {0x081A, &WmfReader::Pie},
        {0x0830, &WmfReader::Chord},
    };
    const auto handler = kHandlers.find(function);
    if (handler != kHandlers.end()) (this->*handler->second)(record);
  }

  // Parameters stand last first: y before x.
  static Point PointAt(const Bytes& record, std::size_t at) {
    return {static_cast<double>(record.Signed16(at + 2)), static_cast<double>(record.Signed16(at))};
  }
  // In lists x comes first.
  static std::vector<Point> PointList(const Bytes& record, std::size_t at, std::size_t count) {
    const Bytes list(record.Part(at, count * 4));
    std::vector<Point> points;
    for (std::size_t i = 0; i < count; ++i) {
      points.push_back({static_cast<double>(list.Signed16(i * 4)),
                        static_cast<double>(list.Signed16(i * 4 + 2))});
    }
    return points;
  }
  static Box BoxAt(const Bytes& record, std::size_t at) {
    const Point end = PointAt(record, at), start = PointAt(record, at + 4);
    return {std::min(start.x, end.x), std::min(start.y, end.y), std::max(start.x, end.x),
            std::max(start.y, end.y)};
  }

  void SaveDC(const Bytes&) {
    if (saved_.size() >= kMaxSaved) throw Error("The metafile is nested too deeply");
    saved_.push_back(context_);
  }

  // Below 0 counts back from the last one saved, above from the first.
  void RestoreDC(const Bytes& record) {
    const int which = record.Signed16(0);
    const int place = which < 0 ? static_cast<int>(saved_.size()) + which : which - 1;
    if (place < 0 || place >= static_cast<int>(saved_.size())) return;
    context_ = saved_[static_cast<std::size_t>(place)];
    saved_.resize(static_cast<std::size_t>(place));
  }

  void SetFillMode(const Bytes& record) { context_.fillMode = record.Signed16(0); }
  void SetWindowOrigin(const Bytes& record) { context_.origin = PointAt(record, 0); }
  void MoveWindowOrigin(const Bytes& record) {
    const Point by = PointAt(record, 0);
    context_.origin = {context_.origin.x + by.x, context_.origin.y + by.y};
  }
  void SetWindowExtent(const Bytes& record) {
    context_.extent = PointAt(record, 0);
    usedPen_.reset();  // its width is written as a share of the window
    if (picture_.width == 0 || picture_.height == 0) SetOwnSize(1);
  }
  void SetOwnSize(double pointsPerUnit) {
    picture_.width = std::abs(context_.extent.x) * pointsPerUnit;
    picture_.height = std::abs(context_.extent.y) * pointsPerUnit;
  }

  // A new object takes the first free number.
  void Create(const Object& object) {
    const auto free =
        std::find(objects_.begin() + static_cast<long>(firstFree_), objects_.end(), std::nullopt);
    firstFree_ = static_cast<std::size_t>(free - objects_.begin()) + 1;
    if (free != objects_.end()) {
      *free = object;
    } else if (objects_.size() < kMaxObjects) {
      objects_.push_back(object);
    } else {
      throw Error("The metafile has too many objects");
    }
  }
  void CreatePen(const Bytes& record) {
    Object object;
    object.pen = Pen{record.Little16(0) & 15, std::abs(static_cast<double>(record.Signed16(2))),
                     record.Little32(6)};
    Create(object);
  }
  void CreateBrush(const Bytes& record) {
    Object object;
    object.brush = Brush{record.Little16(0), record.Little32(2)};
    Create(object);
  }
  // Its pattern is a picture: a gray in the middle stands for it.
  void CreatePatternBrush(const Bytes&) {
    Object object;
    object.brush = Brush{0, 0x808080};
    Create(object);
  }
  void CreateOther(const Bytes&) { Create(Object()); }

  void Select(const Bytes& record) {
    const std::size_t number = record.Little16(0);
    if (number >= objects_.size() || !objects_[number]) return;
    if (objects_[number]->pen) context_.pen = *objects_[number]->pen;
    if (objects_[number]->brush) context_.brush = *objects_[number]->brush;
  }
  void Delete(const Bytes& record) {
    const std::size_t number = record.Little16(0);
    if (number >= objects_.size()) return;
    objects_[number].reset();
    firstFree_ = std::min(firstFree_, number);
  }

  void MoveTo(const Bytes& record) { context_.current = PointAt(record, 0); }
  void LineTo(const Bytes& record) {
    const Point to = PointAt(record, 0);
    AddLines({context_.current, to});
    Stroke();
    context_.current = to;
  }
  void Polyline(const Bytes& record) {
    AddLines(PointList(record, 2, record.Little16(0)));
    Stroke();
  }
  void Polygon(const Bytes& record) {
    AddLines(PointList(record, 2, record.Little16(0)));
    FillAndStroke();
  }
  void PolyPolygon(const Bytes& record) {
    const std::size_t count = record.Little16(0);
    std::size_t at = 2 + count * 2;
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t points = record.Little16(2 + i * 2);
      AddLines(PointList(record, at, points));
      if (!path_.empty()) AddPath("h", {});
      at += points * 4;
    }
    FillAndStroke();
  }
  void Rectangle(const Bytes& record) {
    const Box box = BoxAt(record, 0);
    AddLines({{box.left, box.top},
              {box.right, box.top},
              {box.right, box.bottom},
              {box.left, box.bottom}});
    FillAndStroke();
  }
  void RoundRectangle(const Bytes& record) {
    const Point corner = PointAt(record, 0);
    const Box box = BoxAt(record, 4);
    AddRounded(box, std::min(std::abs(corner.x), box.right - box.left) / 2,
               std::min(std::abs(corner.y), box.bottom - box.top) / 2);
    FillAndStroke();
  }
  void Ellipse(const Bytes& record) {
    const Box box = BoxAt(record, 0);
    AddRounded(box, (box.right - box.left) / 2, (box.bottom - box.top) / 2);
    FillAndStroke();
  }
  void Arc(const Bytes& record) {
    AddArc(record);
    Stroke();
  }
  void Pie(const Bytes& record) {
    const Box box = BoxAt(record, 8);
    AddArc(record);
    AddPath("l", {{(box.left + box.right) / 2, (box.top + box.bottom) / 2}});
    FillAndStroke();
  }
  void Chord(const Bytes& record) {
    AddArc(record);
    FillAndStroke();
  }

  // Logical units become shares of the window, which the picture's box is.
  void AddPath(std::string_view name, const std::vector<Point>& points) {
    const Context& c = context_;
    if (c.extent.x == 0 || c.extent.y == 0) throw Error("The metafile's window has no size");
    std::vector<double> shares;
    for (const Point& point : points) {
      shares.push_back((point.x - c.origin.x) / c.extent.x);
      shares.push_back((point.y - c.origin.y) / c.extent.y);
    }
    Append(path_, {Kind::Points, std::string(name), std::move(shares)});
  }
  void AddLines(const std::vector<Point>& points) {
    for (std::size_t i = 0; i < points.size(); ++i) AddPath(i == 0 ? "m" : "l", {points[i]});
  }

  // A box with corners of these radii, an ellipse when they are half its sides.
  void AddRounded(const Box& box, double rx, double ry) {
    const double cx = rx * (1 - kCircle), cy = ry * (1 - kCircle);
    const auto& [l, t, r, b] = box;
    AddPath("m", {{r, b - ry}});
    AddPath("c", {{r, b - cy}, {r - cx, b}, {r - rx, b}});
    AddPath("l", {{l + rx, b}});
    AddPath("c", {{l + cx, b}, {l, b - cy}, {l, b - ry}});
    AddPath("l", {{l, t + ry}});
    AddPath("c", {{l, t + cy}, {l + cx, t}, {l + rx, t}});
    AddPath("l", {{r - rx, t}});
    AddPath("c", {{r - cx, t}, {r, t + cy}, {r, t + ry}});
    AddPath("h", {});
  }

  // The arc runs counter-clockwise as seen, from the ray to one point to the ray to the other; the
  // same ray twice is the whole ellipse.
  void AddArc(const Bytes& record) {
    const Point end = PointAt(record, 0), start = PointAt(record, 4);
    const Box box = BoxAt(record, 8);
    const Point centre = {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
    const double rx = (box.right - box.left) / 2, ry = (box.bottom - box.top) / 2;
    if (rx == 0 || ry == 0) {
      AddLines({{box.left, box.top}, {box.right, box.bottom}});
      return;
    }
    const auto angle = [&](const Point& p) {
      return std::atan2(-(p.y - centre.y) / ry, (p.x - centre.x) / rx);
    };
    const auto at = [&](double a, double dx, double dy) {
      return Point{centre.x + rx * (std::cos(a) + dx), centre.y - ry * (std::sin(a) + dy)};
    };
    const double from = angle(start);
    double sweep = angle(end) - from;
    if (sweep <= 0) sweep += 2 * std::numbers::pi;
    const int pieces = static_cast<int>(std::ceil(sweep / (std::numbers::pi / 2) - 1e-9));
    const double step = sweep / pieces;
    const double reach = 4.0 / 3 * std::tan(step / 4);
    AddPath("m", {at(from, 0, 0)});
    for (int i = 0; i < pieces; ++i) {
      const double a = from + i * step, b = a + step;
      AddPath("c", {at(a, -reach * std::sin(a), reach * std::cos(a)),
                    at(b, reach * std::sin(b), -reach * std::cos(b)), at(b, 0, 0)});
    }
  }

  bool HasPen() const { return context_.pen.style != kNullPen; }
  bool HasBrush() const { return context_.brush.style != kNullBrush; }

  void Stroke() { Paint(HasPen() ? "S" : ""); }

  void FillAndStroke() {
    std::string painting = HasBrush() ? (HasPen() ? "b" : "f") : (HasPen() ? "s" : "");
    if (HasBrush() && context_.fillMode == kAlternate) painting += "*";
    Paint(painting);
  }

  void Paint(std::string_view painting) {
    if (!painting.empty() && !path_.empty()) {
      if (HasPen() && painting[0] != 'f') UsePen();
      if (HasBrush() && (painting[0] == 'f' || painting[0] == 'b')) {
        picture_.Add(Kind::Plain, "rg", Rgb(context_.brush.colour));
      }
      for (VectorOperator& part : path_) {
        picture_.Add(part.kind, part.name, std::move(part.numbers));
      }
      picture_.Add(Kind::Plain, painting);
      painted_ = true;
    }
    path_.clear();
  }

  void UsePen() {
    const Pen& pen = context_.pen;
    if (usedPen_ == pen) return;
    usedPen_ = pen;
    const double window = std::sqrt(std::abs(context_.extent.x * context_.extent.y));
    picture_.Add(Kind::Plain, "RG", Rgb(pen.colour));
    picture_.Add(Kind::Lengths, "w", {pen.width / window});
    const bool dashed = pen.style > 0 && pen.style < static_cast<int>(std::size(kDashes));
    picture_.Add(Kind::Plain, kDashes[dashed ? pen.style : 0]);
  }

  VectorPicture picture_;
  Context context_;
  std::vector<Context> saved_;
  std::vector<std::optional<Object>> objects_;
  std::size_t firstFree_ = 0;  // no free number is below it
  std::vector<VectorOperator> path_;
  std::optional<Pen> usedPen_;
  bool painted_ = false;
};

}  // namespace

VectorPicture ReadWmf(std::string_view bytes) { return WmfReader().Read(bytes); }

}  // namespace lm::pdf
