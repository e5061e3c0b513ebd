// What every part of the writer works with: the output file, the open drawing target, the state of
// drawing, the resources, the pages. One for each document.
//
// The caller's coordinates are user units from the top left, Y downwards. Every page's contents
// begin with "1 0 0 -1 0 H cm", so operators take top-down points.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/output.h"
#include "pdf/resources.h"

namespace lm::pdf {

// A colour in its stored form: "#r g b", "@c m y k", "%g" with values 0 to 1, or the name of a
// pattern; "" none.
struct Colours {
  std::string fill = "#1 1 1";
  std::string line = "#0 0 0";
  std::string text = "#0 0 0";
};

struct TextState {
  std::string fontName;
  int fontStyle = 0;  // 1 bold, 2 italic, 4 underline, 8 overline, 16 strike-through
  int codePage = 0;
  double size = 10;          // points
  std::string fontResource;  // without the document's prefix
  int fontIndex = -1;
  double charSpacing = 0;          // points
  double wordSpacing = 0;          // points
  double horizontalScaling = 100;  // percent
  double lineFactor = 1;
  int mode = 0;
  // Box style, points.
  double indent = 0, padLeft = 0, padTop = 0, padRight = 0, padBottom = 0;
  int borderMask = 15;
  double radius = 0;
};

// As a cm operator has it: (x, y) goes to (ax + cy + e, bx + dy + f).
struct Matrix {
  double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;
};

// Everything that BeginSpace saves and EndSpace restores.
struct DrawState {
  Colours colours;
  TextState text;
  double lineWidth = 1;  // points
  double x = 0, y = 0;   // cursor, points from the top left
  Matrix toPage;         // from the coordinates in force to those of the page
};

// The box of the last drawing, in points from the top left of the page: what LinkTo takes.
struct LastBox {
  double left = 0, top = 0, right = 0, bottom = 0;
};

struct Page {
  std::vector<int> contents;     // object numbers; the page's own is the first one's successor
  std::string dictionary;        // from "/Parent" on, without the closing ">>"
  int view = 0;                  // 0 none, 1 /Rotate 270, 2 /Rotate 180, 3 /Rotate 90
  std::string annotations;       // "n 0 R " joined
  double width = 0, height = 0;  // points
  Matrix toPage;                 // in force where the contents end
};

// A layer of another file, which an imported page brings along.
struct ImportedLayer {
  int object = 0;
  bool on = true;
  bool byUse = false;  // viewers switch it for the screen and for paper
};

enum class Target { None, Page, Object, Tiling };

struct Document {
  Output out;
  std::string prefix;                        // "A1F3+", before every resource name
  std::optional<std::uint32_t> namesNumber;  // behind the prefix; drawn by chance when unset
  double scale = 1;                          // points per user unit
  int precision = 3;                         // decimals of written numbers
  int versionStep = 0;                       // minor version less 3
  bool pdfA = false;
  double pageWidth = 596, pageHeight = 842;  // points, of the open or next page

  DrawState state;
  LastBox lastBox;

  Resources resources;      // names with the prefix
  bool usesImages = false;  // an image or an imported page exists
  std::vector<ImportedLayer> importedLayers;

  std::vector<Page> pages;         // in the order of creation
  std::vector<std::size_t> order;  // page position to page
  std::size_t openPage = 0;        // index into pages, while a page is open
  Target target = Target::None;
  std::string pageBuffer, objectBuffer, tilingBuffer;

  // Appends operators to the open target; with none open they are lost.
  void Draw(std::string_view operators);
  // Draws a "cm" and counts with it from then on.
  void Transform(const Matrix& matrix);
  // Sets lastBox from a box in the coordinates in force; in a turned space, the box around it.
  void RememberBox(double left, double top, double right, double bottom);
  void RaiseVersion(int step) { versionStep = versionStep < step ? step : versionStep; }

  // A number as PDF writes it, rounded to the precision, halves away from zero, a point always,
  // no trailing zeros, never an exponent; what is not finite is 0.
  std::string Points(double points) const;
  void AppendPoints(double points, std::string& out) const;
  std::string Units(double userUnits) const { return Points(userUnits * scale); }
  double ToPoints(double userUnits) const { return userUnits * scale; }
  double ToUnits(double points) const { return points / scale; }
  std::string Name(std::string_view resource) const { return "/" + prefix + std::string(resource); }
};

}  // namespace lm::pdf
