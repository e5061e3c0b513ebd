#include "pdf/patterns.h"

#include <cmath>

#include "core/text.h"
#include "pdf/colours.h"
#include "pdf/notation.h"

namespace lm::pdf {
namespace {

std::string Values(std::string_view stored) { return "[" + std::string(stored.substr(1)) + "]"; }

}  // namespace

void Patterns::RequireFree(std::string_view name) const {
  if (document_.resources.Has(ResourceKind::Pattern, PatternResource(name, document_))) {
    throw Error("There is a pattern \"" + std::string(name) + "\" already.");
  }
  if (name != Trim(name) || IsColourNotation(name)) {
    throw Error("A pattern cannot be called \"" + std::string(name) + "\".");
  }
}

void Patterns::Register(std::string_view name, int object) {
  document_.resources.Add(ResourceKind::Pattern, PatternResource(name, document_), object);
}

void Patterns::AddGradient(std::string_view name, int kind, std::string_view colour1,
                           std::string_view colour2, const Circle& from, const Circle& to,
                           double exponent, int extend) {
  RequireFree(name);
  const std::string first = StoredColour(colour1, document_);
  const std::string second = StoredColour(colour2, document_);
  const ColourSpace* space = SpaceOf(first);
  if (!space || SpaceOf(second) != space) {
    throw Error("A gradient needs two colours of the same kind.");
  }
  if (kind != 0 && kind != 1) throw Error("There is no such kind of gradient.");
  if (from.radius < 0 || to.radius < 0) throw Error("A radius cannot be negative.");

  const auto ends = [&](const Circle& c) {
    return document_.Units(c.x) + " " + document_.Units(c.y) +
           (kind == 1 ? " " + document_.Units(c.radius) : "");
  };
  const auto extends = [&](int bit) {
    return extend == 0 || (extend & bit) != 0 ? "true" : "false";
  };
  const std::string power = document_.Points(exponent);
  const std::string body =
      "<</Type /Pattern /PatternType 2 /Matrix [ 1 0 0 -1 0 " +
      document_.Points(document_.pageHeight) + "] /Shading <<\r\n/ColorSpace " +
      std::string(space->device) + " /ShadingType " + (kind == 0 ? "2" : "3") + " /Coords [" +
      ends(from) + " " + ends(to) + "] /Extend [" + extends(1) + " " + extends(2) +
      "] /Function <</FunctionType 2 /Domain [0 1] /C0 " + Values(first) + " /C1 " +
      Values(second) + " /N " + (exponent > 0 && power != "0" ? power : "1") + ">> >> >>";
  Register(name, document_.out.WriteNewObject(body));
}

void Patterns::AddImage(std::string_view name, std::string_view imageResource, double width,
                        double height) {
  const Tile tile = MakeTile(name, width, height, 0, 0, true);
  const std::string high = document_.Points(tile.height);
  Write(tile, document_.Points(tile.width) + " 0 0 -" + high + " 0 " + high + " cm " +
                  document_.Name(imageResource) + " Do\n");
}

Patterns::Tile Patterns::MakeTile(std::string_view name, double width, double height, double stepX,
                                  double stepY, bool coloured) const {
  RequireFree(name);
  Tile tile{std::string(name),
            document_.ToPoints(width),
            document_.ToPoints(height),
            document_.ToPoints(stepX == 0 ? width : stepX),
            document_.ToPoints(stepY == 0 ? height : stepY),
            coloured};
  for (const double size : {tile.width, tile.height, std::abs(tile.stepX), std::abs(tile.stepY)}) {
    if (!(size > 0) || document_.Points(size) == "0") {
      throw Error("A tiling pattern needs a width and a height.");
    }
  }
  return tile;
}

void Patterns::BeginTiling(std::string_view name, double width, double height, double stepX,
                           double stepY, bool coloured) {
  if (!document_.out.IsOpen()) throw Error("No document is open");
  open_ = MakeTile(name, width, height, stepX, stepY, coloured);
  document_.tilingBuffer.clear();
}

void Patterns::EndTiling() {
  Write(open_, document_.tilingBuffer);
  if (!open_.coloured) uncoloured_.insert(open_.name);
  document_.tilingBuffer.clear();
  open_ = Tile();
}

void Patterns::Write(const Tile& tile, std::string_view operators) {
  const auto points = [&](double value) { return document_.Points(value); };
  const int object = document_.out.BeginNewObject();
  document_.out.WriteStream(
      StreamClass::Contents,
      "<< /Type /Pattern /PatternType 1 /PaintType " + std::string(tile.coloured ? "1" : "2") +
          " /TilingType 1 /BBox [0 0 " + points(tile.width) + " " + points(tile.height) +
          "] /Resources " + document_.resources.UsedBy(operators) + " /XStep " +
          points(tile.stepX) + " /YStep " + points(tile.stepY) + " /Matrix [1 0 0 1 0 0] ",
      "1 0 0 -1 0 " + points(tile.height) + " cm \r" + std::string(operators));
  document_.out.EndObject();
  Register(tile.name, object);
}

}  // namespace lm::pdf
