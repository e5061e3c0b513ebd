// Drawing: colours, line state, shapes, patterns, transparency, spaces, objects, layers, bar codes.
//
// The page matrix turns Y downwards, so a matrix that turns counter-clockwise on paper turns
// clockwise here. Angles of DrawArc are counter-clockwise as seen, 0 to the right. AxisRotation and
// BeginSpace write the plain matrix "cos sin -sin cos": a positive angle turns what follows
// clockwise as seen. Gradients and tiling patterns do not pass through the page matrix and bring
// their own.
//
// Alpha, blending, dashes and line ends hold until the page, object or space ends; colours and line
// width are taken over to the next page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pdf/document.h"
#include "pdf/fonts.h"
#include "pdf/formobjects.h"
#include "pdf/layers.h"
#include "pdf/patterns.h"

namespace lm::pdf {

// Bits of a shape's paint mode: 0 stroke, 1 nothing, 2 close and stroke, 3 close, 4 fill and
// stroke, 5 fill, 6 close, fill and stroke; 128 more makes the shape the clipping area as well.
constexpr int kNoStroke = 1;
constexpr int kClosed = 2;
constexpr int kFilled = 4;
constexpr int kClip = 128;

// The operators that end a path, with a blank in front.
std::string PaintOperator(int mode);

class Graphics {
 public:
  Graphics(Document& document, Fonts& fonts);

  // An empty colour and -1 write nothing: the colour in force stays. An uncoloured tiling pattern
  // is painted in the colour that was in force before it. Patterns cannot be chosen inside an
  // object or a tiling pattern.
  void SetColorFill(std::string_view colour);
  void SetColorLine(std::string_view colour);
  void SetColorText(std::string_view colour);  // only kept: each text selects it

  void SetLineWidth(double width);                     // negative is ignored
  void SetLineStyle(int cap, int join, double miter);  // each ignored when out of range
  // "SOLID", "DASH", "DOT", "DASHDOT", "DASHDOTDOT" in any case, by the line width; or lengths of
  // dashes and gaps joined by ";". Lengths and phase in user units.
  void SetDash(std::string_view name, double phase = 0);

  // 0 invisible to 100 opaque. A PDF/A file takes only what is opaque, and the mode Normal.
  void SetAlpha(double percent);
  void SetAlphaFill(double percent);
  void SetAlphaLine(double percent);
  void SetBlend(std::string_view mode);       // "Multiply" and so on, in any case
  std::string AlphaOperator(double percent);  // what SetAlpha writes

  // Sets the cursor. DrawLineTo and DrawCurve begin there, stroke, and leave it at their end.
  void SetXY(double x, double y);
  void MoveTo(double x, double y) { SetXY(x, y); }
  void DrawLine(double x1, double y1, double x2, double y2, double width = -1);
  void DrawLineTo(double x, double y);
  // form 0 two control points; 1 the beginning for the first (x1, y1 unused); 2 the end for the
  // second (x2, y2 unused).
  void DrawCurve(double x1, double y1, double x2, double y2, double x3, double y3, int form = 0);
  void DrawPolyline(std::string_view points, int mode = 0);  // "x;y;x;y", two points or more
  void DrawPolygon(std::string_view points, int mode = 0);   // closed in any mode
  // borders: sides 1 top, 2 right, 4 bottom, 8 left; round corners 16 top left, 32 top right,
  // 64 bottom right, 128 bottom left, the others square. The radius is cut to half the shorter
  // side.
  void DrawRect(double x, double y, double width, double height, int mode = 0, int borders = 15,
                double radius = 0);
  void DrawEllipse(double x, double y, double rx, double ry, int mode = 0);
  void DrawCircle(double x, double y, double radius, int mode = 0) {
    DrawEllipse(x, y, radius, radius, mode);
  }
  // From startAngle counter-clockwise to endAngle; equal angles draw nothing, a whole turn or more
  // the ellipse. pie joins both ends with the centre.
  void DrawArc(double x, double y, double rx, double ry, double startAngle, double endAngle,
               int mode = 0, bool pie = false);
  // Bars and text fill the box, in the text colour. The light margins at both sides are the
  // caller's.
  void DrawBarCode(int kind, std::string_view code, double x, double y, double width, double height,
                   bool withText = true);

  void AddGradient(std::string_view name, int kind, std::string_view colour1,
                   std::string_view colour2, double x1, double y1, double x2, double y2,
                   double r1 = 0, double r2 = 0, double exponent = 1, int extend = 3) {
    patterns_.AddGradient(name, kind, colour1, colour2, {x1, y1, r1}, {x2, y2, r2}, exponent,
                          extend);
  }
  void BeginTiling(std::string_view name, double width, double height, double stepX = 0,
                   double stepY = 0, bool coloured = true);
  void EndTiling();
  // A pattern of an image's copies. imageResource without the document's prefix ("IMG_1"); size in
  // user units, above 0.
  void WriteImagePattern(std::string_view name, std::string_view imageResource, double width,
                         double height) {
    patterns_.AddImage(name, imageResource, width, height);
  }

  void AxisRotation(double angle);
  void AxisScaling(double x, double y);
  void AxisSkewing(double a, double b);  // tangents: a of X towards Y, b of Y towards X
  void AxisTranslation(double x, double y);
  // The cursor is at the new origin inside. Scales other than 0.
  void BeginSpace(double x, double y, double scaleX = 1, double scaleY = 1, double angle = 0);
  void EndSpace();

  // flag: pages that get the object by themselves, 4 odd, 2 even, 1 the first, 7 all, 0 none; 16 at
  // their end, else at their beginning.
  void BeginObject(std::string_view name, int flag = 0);
  void EndObject();
  // Inside an object the name may be one that is defined later; what then never comes, or would
  // contain itself, is not drawn.
  void DrawObject(std::string_view name) { objects_.Draw(name); }

  void BeginLayer(std::string_view name, bool viewOn = true, bool printOn = true,
                  std::string_view usage = "") {
    layers_.Begin(name, viewOn, printOn, usage);
  }
  void BeginConditionalLayer(std::string_view names, int kind) {
    layers_.BeginConditional(names, kind);
  }
  void EndLayer() { layers_.End(false); }
  void EndConditionalLayer() { layers_.End(true); }

  // Selects fill colour, line colour and line width again, for a new contents stream.
  void ReapplyState();
  // Finishes an object and a tiling pattern that are still open, and the spaces and layers of the
  // page. To be called before a page begins or ends.
  void CloseTargets();
  void AtPageStart();
  // Closes what is still open and draws the objects for the page's end.
  void AtPageEnd();
  void WriteAtEnd();
  std::string CatalogEntries() const { return layers_.CatalogEntries(); }

 private:
  struct Saved {
    DrawState state;
    Target target;
    bool fillSelected;
  };

  std::string ChosenColour(std::string_view colour, std::string_view inForce) const;
  std::string Allowed(const std::string& colourOperators) const;
  // The operator that uses a graphics state; its object is written once.
  std::string UseOf(const std::string& resource, const std::string& entries);
  std::string Alpha(double percent, std::string_view resource,
                    std::initializer_list<std::string_view> keys);
  void Paint(const std::string& path, int mode);
  void DrawPoints(std::string_view points, int mode);
  void RememberBox(double x1, double y1, double x2, double y2);
  std::string Point(double x, double y) const;
  void Enter(Target target);
  void Leave();
  void CloseSpacesAndLayers();

  Document& document_;
  Fonts& fonts_;
  Patterns patterns_;
  FormObjects objects_;
  Layers layers_;
  std::vector<Saved> spaces_;
  std::vector<Saved> targets_;  // what was the target before an object or a tiling pattern began
  // A new page fills in black, though white is the fill colour until one is chosen: white is
  // selected before the first filled shape, not before pictures and pages that count on black.
  bool fillSelected_ = false;
};

}  // namespace lm::pdf
