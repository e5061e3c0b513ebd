#include "cli/pdfsample_files.h"

#include <cmath>
#include <fstream>
#include <initializer_list>
#include <stdexcept>

#include "cli/pdfsample_raster.h"
#include "core/files.h"

namespace lm::sample {
namespace {

Rgb Between(Rgb a, Rgb b, double share) {
  const auto mix = [&](int from, int to) {
    return static_cast<std::uint8_t>(std::lround(from + (to - from) * share));
  };
  return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue)};
}

// An evening at the sea: sky, sun, hills, water and a boat.
Rgb SceneAt(double x, double y) {
  constexpr int kHorizon = 50, kSunX = 84, kSunY = 37;
  const double fromSun = std::hypot(x - kSunX, y - kSunY);
  constexpr double mast = 36;
  if (y >= 34 && y < 56 && x < mast && mast - x <= (y - 34) / 2) return {250, 246, 238};
  if (y >= 38 && y < 56 && x > mast && x - mast <= (y - 38) / 3) return {226, 218, 205};
  if (y >= 57 && y < 61 && x >= mast - 12 + (y - 57) && x <= mast + 9 - (y - 57))
    return {122, 56, 40};
  if (y >= kHorizon) {
    const int row = static_cast<int>(y), column = static_cast<int>(x);
    const bool glitter = row % 3 != 0 && std::abs(x - kSunX) < 3 + (row - kHorizon) / 3;
    if (glitter && (column + 2 * row) % 5 != 0) return {248, 214, 160};

    return Between({70, 116, 166}, {18, 44, 78}, (y - kHorizon) / 29.0);
  }
  if (y > 46 - 5 * std::sin(x / 13.0) - 3 * std::sin(x / 5.0 + 1)) return {52, 78, 108};
  if (y > 41 - 6 * std::sin(x / 19.0 + 2)) return {94, 112, 146};
  if (fromSun < 11) return {255, 243, 205};
  if (fromSun < 14) return {252, 224, 170};
  return Between({52, 96, 160}, {246, 190, 138}, y / 49.0);
}

// A disc with a cross on a flat ground that can be left out.
Rgb EmblemAt(int x, int y) {
  const int dx = x - 32, dy = y - 32;
  if (dx * dx + dy * dy > 30 * 30) return {255, 0, 255};
  if (dx * dx + dy * dy > 26 * 26) return {20, 60, 110};
  const bool cross =
      (std::abs(dx) < 6 && std::abs(dy) < 18) || (std::abs(dy) < 6 && std::abs(dx) < 18);
  return cross ? Rgb{255, 255, 255} : Rgb{32, 96, 160};
}

constexpr int kFiner = 6;

template <typename Paint>
Raster MakeRaster(int width, int height, Paint paint) {
  Raster raster{width, height, {}};
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) raster.pixels.push_back(paint(x, y));
  return raster;
}

constexpr const char* kBoat = R"(%!PS-Adobe-3.0 EPSF-3.0
%%BoundingBox: 0 0 240 160
%%EndProlog
0.08 0 0 0 k 0 0 m 240 0 l 240 160 l 0 160 l f
0 0.3 0.85 0 k 190 122 m 190 134 180 144 168 144 c 156 144 146 134 146 122 c
146 110 156 100 168 100 c 180 100 190 110 190 122 c f
0 0.05 0.12 0 k 116 142 m 116 50 l 56 50 l 72 84 92 116 116 142 c f
0 0.55 0.75 0 k 122 132 m 122 50 l 168 50 l 160 82 146 110 122 132 c f
0.4 0.75 0.8 0.35 k 48 44 m 180 44 l 172 30 162 22 146 20 c 82 20 l 64 22 54 30 48 44 c f
1 J 1 j 3 w 0.2 0.6 0.7 0.5 K 119 146 m 119 44 l S
2 w 0.8 0.4 0.1 0 K [6 5] 0 d
8 14 m 28 22 44 22 60 14 c 76 6 92 6 108 14 c 124 22 140 22 156 14 c 172 6 188 6 204 14 c
216 20 224 20 232 16 c S
[] 0 d
showpage
%%EOF
)";

// A metafile of records, each a function with 16-bit parameters.
std::string WmfRecord(int function, const std::string& parameters) {
  return Little(static_cast<std::uint32_t>(3 + parameters.size() / 2), 4) +
         Little(static_cast<std::uint32_t>(function), 2) + parameters;
}

std::string Shorts(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes += Little(static_cast<std::uint32_t>(value), 2);
  return bytes;
}

// A bar chart: styles of pens, colours of brushes.
std::string ChartWmf() {
  constexpr int kSelect = 0x012D, kPen = 0x02FA, kBrush = 0x02FC, kRectangle = 0x041B,
                kMove = 0x0214, kLine = 0x0213, kEllipse = 0x0418, kPolygon = 0x0324;
  std::string records = WmfRecord(0x020B, Shorts({0, 0})) + WmfRecord(0x020C, Shorts({160, 240}));
  int objects = 0;
  const auto choose = [&](int kind, const std::string& parameters) {
    records += WmfRecord(kind, parameters) + WmfRecord(kSelect, Shorts({objects++}));
  };
  const auto pen = [&](int style, int width, std::uint32_t colour) {
    choose(kPen, Shorts({style, width, 0}) + Little(colour, 4));
  };
  const auto brush = [&](std::uint32_t colour) {
    choose(kBrush, Shorts({0}) + Little(colour, 4) + Shorts({0}));
  };
  pen(5, 0, 0);
  brush(0xF8F4EE);
  records += WmfRecord(kRectangle, Shorts({160, 240, 0, 0}));
  for (int line = 0; line < 4; ++line) {
    pen(line + 1, 1, 0xA09080);
    records += WmfRecord(kMove, Shorts({30 + 30 * line, 16})) +
               WmfRecord(kLine, Shorts({30 + 30 * line, 228}));
  }
  pen(0, 1, 0x6E3C14);
  const std::uint32_t colours[] = {0xA06020, 0x3C8CE6, 0x78AA50, 0x5050C8, 0xA06020};
  const int heights[] = {54, 88, 70, 106, 94};
  for (int bar = 0; bar < 5; ++bar) {
    brush(colours[bar]);
    records +=
        WmfRecord(kRectangle, Shorts({140, 50 + 42 * bar, 140 - heights[bar], 24 + 42 * bar}));
  }
  pen(0, 2, 0x402010);
  records += WmfRecord(kMove, Shorts({140, 12})) + WmfRecord(kLine, Shorts({140, 230}));
  brush(0x30C8FA);
  records += WmfRecord(kEllipse, Shorts({28, 190, 12, 174})) +
             WmfRecord(kPolygon, Shorts({3, 206, 28, 222, 28, 214, 12}));
  return Little(0x9AC6CDD7, 4) + Shorts({0, 0, 0, 240, 160, 72, 0, 0, 0}) +
         Shorts({1, 9, 0x300, 0, 0, objects, 0, 0, 0}) + records + WmfRecord(0, "");
}

}  // namespace

SampleFiles::Folder::Folder(std::filesystem::path where) : path(std::move(where)) {
  std::error_code fault;
  if (!std::filesystem::create_directory(path, fault))
    throw std::runtime_error(PathText(path) + ": " +
                             (fault ? fault.message() : "is there already"));
}

SampleFiles::Folder::~Folder() {
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}

SampleFiles::SampleFiles(const std::filesystem::path& folder) : folder_(folder) {
  const Raster scene = MakeRaster(kSceneWidth, kSceneHeight, SceneAt);
  Write("evening.png",
        PngFile(MakeRaster(kFiner * kSceneWidth, kFiner * kSceneHeight, [](int x, int y) {
          return SceneAt(static_cast<double>(x) / kFiner, static_cast<double>(y) / kFiner);
        })));
  Write("scene.png", PngFile(scene));
  Write("scene.jpg", JpegFile(scene));
  Write("scene.gif", GifFile(scene));
  Write("scene.bmp", BmpFile(scene));
  Write("scene.tga", TgaFile(scene));
  const Raster emblem = MakeRaster(64, 64, EmblemAt);
  const Rgb ground = emblem.At(0, 0);
  Write("emblem.bmp", BmpFile(emblem));
  Write("emblem.gif", GifFile(emblem, &ground));
  Write("boat.eps", kBoat);
  Write("chart.wmf", ChartWmf());
  Write("note.txt", "A text file that travels inside the document.\r\n");
}

std::string SampleFiles::Path(const std::string& name) const {
  return PathText(folder_.path / name);
}

void SampleFiles::Write(const std::string& name, const std::string& bytes) const {
  std::ofstream file(folder_.path / name, std::ios::binary);
  file << bytes;
  if (!file.flush()) throw std::runtime_error("cannot write " + Path(name));
}

}  // namespace lm::sample
