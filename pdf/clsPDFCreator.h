// A PDF writer, and a reader of pages to draw on. One instance writes one file: BeginDoc, pages,
// EndDoc.
//
// Units. Lengths are user units by SetScale (the documents of this program choose millimetres),
// from the top left, Y downwards; font sizes and spacings are points. Angles are degrees: of
// DrawArc and texts counter-clockwise as seen, of AxisRotation and BeginSpace clockwise, for the
// page's matrix is turned over. Pages count from 1. Texts are Windows-1252 bytes, on the page bytes
// of the font's code page. Colours are texts, see SetColorFill. Names of events, targets, dashes,
// blend modes and layers' usage are read in any case.
//
// Failures. No operation throws. What is an error below is kept in ErrNumber, ErrSource and
// ErrDescription, gives back 0, "" or false, and leaves the document as it was; the writer goes on.
// Settings out of their range are ignored without an error. A number that is not finite is written
// as 0. What has no place to go to, because nothing is open, is lost if it only draws, and an error
// if it writes an object. The comments tell what is an error besides.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/platform.h"
#include "pdf/document.h"

namespace lm {

class FileBatch;

namespace pdf {
class Annotations;
class FileCache;
class Fonts;
class Graphics;
class Images;
class Import;
class Pages;
class Texts;
struct FileInfo;
}  // namespace pdf

class clsPDFCreator {
 public:
  // The clock tells the moment of creation.
  explicit clsPDFCreator(ClockPort& clock);
  ~clsPDFCreator();  // gives up a document that is not ended
  clsPDFCreator(const clsPDFCreator&) = delete;
  clsPDFCreator& operator=(const clsPDFCreator&) = delete;

  // Gives up the open document, of which no file remains, and sets everything back to the
  // beginning: settings and the last error, too.
  void Abort();

  // Puts a file into the document. Errors: 53 when it is missing; larger than 256 MiB; PDF/A.
  void AddAttach(std::string_view path, std::string_view description = "");

  // Returns the bookmark's number, from 1, which may be the parent of others; parent 0 is the root.
  // page 0 is the page in hand, one beyond the last becomes the last. fit: "Fit", "FitB", "FitH",
  // "FitBH", "FitV", "FitBV", "FitR" (from x, y to the page's lower right corner) or "XYZ"; zoom is
  // a factor, 0 as it is. colour may be empty. style: 1 italic, 2 bold, added up. open: its
  // children are seen. Errors: an unknown parent, fit or colour.
  int AddBookmark(std::string_view title, int parent = 0, int page = 0,
                  std::string_view fit = "XYZ", double x = 0, double y = 0, double zoom = 0,
                  std::string_view colour = "", int style = 0, bool open = true);

  // Adds a TrueType font for SetFont; returns its resource name. An empty name takes the font's
  // own; a name that was added before keeps its first font. embed: the file goes into the document,
  // under PDF/A always. codePage: as SetFont. Errors: 53 when the file is missing; a damaged one;
  // under PDF/A a code page and a font of symbols.
  std::string AddFont(std::string_view path, std::string_view name = "", bool embed = true,
                      int codePage = 0);

  // A colour that changes, to be chosen by its name. kind 0 along a line from x1, y1 to x2, y2; 1
  // between two circles. exponent bends the change, 0 and below count as 1. extend paints beyond
  // the ends: 1 the first, 2 the second, 0 and 3 both. Coordinates are the page's, also inside a
  // space. Errors: another kind, a negative radius, colours that are not of one colour space, a
  // name that is taken or reads as a colour.
  void AddGradient(std::string_view name, int kind, std::string_view colour1,
                   std::string_view colour2, double x1, double y1, double x2, double y2,
                   double r1 = 0, double r2 = 0, double exponent = 1, int extend = 3);

  // Reads a picture without drawing it; returns its resource name. Files and maskColour as
  // DrawImage, but no vector files.
  std::string AddImage(std::string_view file, std::int32_t maskColour = -1);

  // A colour made of a picture in tiles of this size; a size that is not above 0 as DrawImage.
  // Errors: as AddImage, and for the name as AddGradient.
  void AddImagePattern(std::string_view name, std::string_view file, double width, double height);

  // Change the coordinates of what follows on the page, or up to EndSpace. Errors: an angle that is
  // not finite, a scale of 0, a skew that makes the page flat.
  void AxisRotation(double angle);
  void AxisScaling(double x, double y);
  void AxisSkewing(double a, double b);      // tangents: a of X towards Y, b of Y towards X
  void AxisTranslation(double x, double y);  // moves the cursor as well

  // Begins a document and returns its name; an empty name makes one, "~1A2B3C.pdf", in the current
  // folder. The file grows beside the target and takes its place in EndDoc: until then, and if that
  // fails, a file of that name stays as it was. A document that is still open is given up. Settings
  // stay as they are; after another document, all that is not a setting begins anew: fonts,
  // colours, text state and tags, place holders' texts, patterns, objects, layers, bookmarks. Error
  // 75 when the folder is missing or takes no file, or the old file cannot be replaced: it is
  // read-only, or open in another program.
  std::string BeginDoc(std::string_view fileName = "");

  // Contents that a viewer shows or hides. A name used before is the same layer, with the settings
  // of its first use. usage "SCREEN" shows it on the screen only, "PRINTER" on paper only.
  // Conditional ones go by other layers, their names parted by ",": kind 0 any is on, 1 any is off,
  // 2 all are on, 3 all are off. Page, object and tiling close what is open. Ignored under PDF/A.
  // Errors: an unknown kind or name; an end of what is not open.
  void BeginLayer(std::string_view name, bool viewOn = true, bool printOn = true,
                  std::string_view usage = "");
  void BeginConditionalLayer(std::string_view names, int kind);
  void EndLayer();
  void EndConditionalLayer();

  // A drawing of the page's size, made once and drawn by its name. flag: the pages that get it by
  // themselves, 7 all, 4 odd, 2 even, 1 the first, 0 none; 16 more: at their end, not their
  // beginning. Inside an object a name may be defined later; what then never comes, or would
  // contain itself, is not drawn. Errors: a name that is taken, empty or unknown; an object or
  // tiling that is open already; an end of what is not open.
  void BeginObject(std::string_view name, int flag = 0);
  void EndObject();
  void DrawObject(std::string_view name);

  // Opens a written page once more, behind its contents: in the size and the coordinates that it
  // ended with, in the colours, line width and spacings now in force. Errors: no such page; an end
  // of what is not open.
  void BeginOnPage(int position);
  void EndOnPage();

  // Begins a page at the position, and returns it; 0 and what is behind the last page append. Ends
  // the open page. Font, colours and line width stay; spacings are 0, scaling 100, line factor 1,
  // text mode 0, the cursor 0, 0. EndPage: error without an open page.
  int BeginPage(int position = 0);
  void EndPage();

  // Coordinates of their own: moved to x, y, scaled and turned; the cursor is 0, 0. EndSpace brings
  // back the state of drawing. Errors: a scale of 0, an angle that is not finite, no space to end.
  void BeginSpace(double x, double y, double scaleX = 1, double scaleY = 1, double angle = 0);
  void EndSpace();

  // Cells fill row after row; columnWidths "30;40;20". A row is drawn when its last column is
  // filled, as high as its highest cell and at least rowHeight; one that does not fit above the
  // bottom margin begins a page. borderMask: sides as DrawRect around each cell, 0 none. flags as
  // DrawTextBox. span: columns, as far as the row has them. EndTable fills up the last row; the
  // cursor is below the table. Errors: a width that is not above 0, a negative height, a table in a
  // table, no table.
  void BeginTable(double x, double y, std::string_view columnWidths, double rowHeight,
                  int borderMask = 15);
  void EndTable();
  void TableCell(std::string_view text, int flags = 0, int span = 1);
  void TableRowHeight(double height);  // of the row in hand and those that follow

  // A colour made of what is drawn between the two, in tiles of this size; a step of 0 is the size.
  // Not coloured: it takes the colour that was in force before it is chosen. Errors: a size of 0, a
  // name as AddGradient, a tiling in a tiling, no tiling to end.
  void BeginTiling(std::string_view name, double width, double height, double stepX = 0,
                   double stepY = 0, bool coloured = true);
  void EndTiling();

  // A place that "ref:" links lead to; the later definition of a name counts. page: a number, "+1"
  // and "-1" from the page in hand, which is "", "#FIRST", "#LAST", "#NEXT" or "#PREV". Errors: an
  // empty name, another page.
  void DefineRef(std::string_view name, std::string_view page = "", double x = 0, double y = 0);

  // Shapes. mode: 0 stroke, 1 nothing, 2 close and stroke, 3 close, 4 fill and stroke, 5 fill, 6
  // close, fill and stroke; 128 more makes the shape the clipping area.

  // Counter-clockwise from startAngle, 0 to the right; equal angles draw nothing, a whole turn or
  // more the ellipse. pie joins both ends with the centre. Error: an angle that is not finite.
  void DrawArc(double x, double y, double rx, double ry, double startAngle, double endAngle,
               int mode = 0, bool pie = false);
  void DrawCircle(double x, double y, double radius, int mode = 0);
  // From the cursor to x3, y3. form 0 has two control points; 1 the beginning for the first (x1, y1
  // unused); 2 the end for the second (x2, y2 unused). Error: another form.
  void DrawCurve(double x1, double y1, double x2, double y2, double x3, double y3, int form = 0);
  void DrawEllipse(double x, double y, double rx, double ry, int mode = 0);
  void DrawLine(double x1, double y1, double x2, double y2, double width = -1);  // -1: as set
  void DrawLineTo(double x, double y);                                           // from the cursor
  // points "x;y;x;y". A polygon is closed in any mode. Error: fewer than two points, odd numbers.
  void DrawPolygon(std::string_view points, int mode = 2);
  void DrawPolyline(std::string_view points, int mode = 0);
  // borders: sides 1 top, 2 right, 4 bottom, 8 left, of which a missing one is not stroked; round
  // corners 16 top left, 32 top right, 64 bottom right, 128 bottom left. The radius is cut to half
  // the shorter side.
  void DrawRect(double x, double y, double width, double height, int mode = 0, int borders = 15,
                double radius = 0);
  void MoveTo(double x, double y);  // the cursor

  // kind 0 Code 128, 1 Code 39, 2 EAN-13, 3 EAN-8 (the check digit may be left out), 4 Interleaved
  // 2 of 5, 5 Standard 2 of 5; bars and text in the box, in the text colour. Errors: another kind,
  // a code that it cannot hold, a box without size.
  void DrawBarCode(int kind, std::string_view code, double x, double y, double width, double height,
                   bool withText = true);

  // type 0 text, 1 button, 2 combo, 3 list, 4 check box, 5 radio button. Parts of a name are joined
  // by "."; only radio buttons share one, as a group.
  // value: the text; a button's caption; the chosen item or items; of a check box whether it is on
  //   ("", "Off", "No", "False", "0" are off); of a radio button the chosen one of its group.
  // items: of combo and list, parted by "|"; of check box and radio button the name of its "on",
  //   which no other button of the group was numbered with.
  // flags: 1 read only, 2 required, 4 not exported, 0x1000 several lines, 0x2000 password, 0x40000
  //   combo with an edit box, 0x80000 sorted, 0x200000 several choices, 0x400000 no spelling check,
  //   0x800000 no scrolling; those that do not go with the type are ignored.
  // borderStyle: 0 solid, 1 dashed, 2 bevelled, 3 inset, 4 underline; no border without a colour.
  // Errors: no open page, another type, a name that is empty or taken, a box without size, a colour
  //   that is none.
  void DrawField(int type, std::string_view name, double x, double y, double width, double height,
                 std::string_view value = "", std::string_view toolTip = "", int flags = 0,
                 std::string_view borderColour = "", std::string_view backColour = "",
                 double borderWidth = 1, int borderStyle = 0, std::string_view items = "");

  // A picture, by its extension PNG, JPG, JPEG, BMP, GIF, TGA, EPS, AI or WMF, or a name from
  // AddImage. It fills the box in every mode; a width or height that is not above 0 is filled in
  // from the other one and the picture's ratio, both from its pixels at 72 to the inch. maskColour:
  // the colour number that becomes transparent, 0 and below none, 16777216 black. transparency:
  // percent, 0 opaque, under PDF/A always. Errors: 53 when the file is missing; one of another kind
  // or damaged.
  void DrawImage(std::string_view file, double x, double y, double width = 0, double height = 0,
                 int mode = 0, std::int32_t maskColour = -1, double transparency = 0);

  // All of these but OnDocEvent: error without an open page.

  // type 0 a text in the box, 1 a note that opens, 2 a stamp by its name ("Draft") or other words.
  // alignment of a text: 0 left, 1 centre, 2 right. Errors: another type, a box without size, an
  // empty stamp, a colour that is none.
  void DrawNote(int type, std::string_view text, double x, double y, double width, double height,
                std::string_view title = "", std::string_view colour = "", int alignment = 0);
  // A link on the box of the last drawing. target: "http:...", "https:...", "mailto:...",
  // "file:NAME", "ref:NAME" (see DefineRef), "script:TEXT", "layer:ON(A,B)OFF(C)TOGGLE(D)",
  // "page:PAGE[,FIT[,x[,y[,zoom]]]]" (PAGE as DefineRef, FIT as AddBookmark), "bookmark:NUMBER",
  // "bookmark:@" the last one. borderWidth 0 none. highlight 0 none, 1 inverted, 2 outline, 3
  // pushed, others as the viewer likes. Errors: another target; scripts and layers under PDF/A.
  void LinkTo(std::string_view target, double borderWidth = 0, int highlight = 1);

  // Scripts; a second one of a kind replaces the first. Errors: another kind, PDF/A.

  // kind "Open", "WC" will close, "WS" will save, "DS" did save, "WP" will print, "DP" did print;
  // "" takes what all scripts can use, and each of these is kept.
  void OnDocEvent(std::string_view kind, std::string_view script);
  // Of the field drawn last on the page. kind "K" keystroke, "F" format, "V" validate, "C"
  // calculate, "D" mouse down, "A" mouse up, "E" enter, "X" exit, "Fo" focus, "Bl" blur.
  void OnFieldEvent(std::string_view kind, std::string_view script);
  // Of the open page. kind "O" when it opens, "C" when it closes. Error on a page that was written
  // before.
  void OnPageEvent(std::string_view kind, std::string_view script);

  // How viewers number the pages from this one on: kind 0 by the prefix alone, 1 "1", 2 "I", 3 "i",
  // 4 "A", 5 "a"; others are ignored. start: 1 to 65534, others leave it out.
  void SetLabel(int kind, std::string_view prefix = "", int start = 65535);
  // kind 0 none, 1 to 4 split, 5 to 8 wipe, 9 and 10 box, 11 and 12 blinds, 13 dissolve, 14 to 16
  // glitter, 17 replace, 18 and 19 fly, 20 to 23 push, 24 to 27 cover, 28 fade; others are ignored.
  // duration: seconds, 1 when not above 0. shownFor: seconds until the next page comes by itself, 0
  // never. Error on a page that was written before.
  void SetPageTransition(int kind, double duration = 1, double shownFor = 0);

  // Room for a text that is known at EndDoc, the one last set for its name: in it "#PAGES" is the
  // number of pages and "#PAGE" the one it is on. "#PAGES" and "#PAGE" are names that need no
  // setting; another name that was never set prints nothing. y is the baseline; flags as
  // DrawTextBox, for one line in that width.
  void DrawPlaceHolder(std::string_view name, double x, double y, double width, int flags = 0);
  void SetPlaceHolder(std::string_view name, std::string_view text);

  // Texts, in Arial when no font was chosen. y of a single line is its baseline.

  // flags 2: the text ends at x, 4: it is centred there.
  void DrawText(double x, double y, std::string_view text, int flags = 0);
  // Wrapped; y is the top. width 0: up to the page's edge; height 0: as high as the text. rectMode
  // 1 draws no rectangle, others are DrawRect's modes. What found no room goes to leftover, to be
  // drawn in a further box.
  // flags: one of 1 left, 2 right, 4 centre, 64 justify, 128 narrowed to fit, 256 narrowed or
  // stretched; 8 top, 16 bottom, 32 middle; 512 overflow ends in an ellipsis and leaves nothing
  // over. Two of the first act as none.
  void DrawTextBox(double x, double y, double width, double height, std::string_view text,
                   int flags = 0, int rectMode = 1, std::string* leftover = nullptr);
  // What text boxes did not draw so far: words that an ellipsis shortened, whole, and what found no
  // room where no leftover took it.
  const std::vector<std::string>& CutTexts() const;
  // Around the outside of a circle, clockwise, from startAngle (0 to the right, counter-clockwise);
  // flags 2: up to there, 4: centred there. Error: a radius that is not above 0.
  void DrawTextCircular(double x, double y, double radius, std::string_view text, double startAngle,
                        int flags = 0);
  // With tags: <b> <i> <u> <s> <sup> <sub> <color=red> <size=12> <font=Arial> <br>, &lt; &gt; &amp;
  // and those of SetTextTag. What is no tag is printed as it stands; lines that do not fit are
  // dropped. Error: a colour that is none.
  void DrawTextRich(double x, double y, double width, double height, std::string_view text,
                    int flags = 0);
  // At the cursor, which stays behind the text. mode 0 plain, 1 superscript, 2 subscript, 3 small,
  // the last three in that percent of the size. Errors: another mode, a percent not above 0.
  void WriteText(std::string_view text, int mode = 0, double percent = 60);
  // At the cursor, which goes to the page's left edge, one line down.
  void WriteTextLn(std::string_view text);

  // Ends what is open, writes the rest and puts the file in its place; a document without a page
  // gets a blank one. Error 75 when the disk did not take it: the document is then lost, the old
  // file is not. True when the file is in its place.
  bool EndDoc();

  // The last error, kept until the next one or Abort. Numbers: 53 file not found, 75 file cannot be
  // written, 5 any other. The source is "PageWriter." and the operation's name.
  const std::string& ErrDescription() const { return errDescription_; }
  int ErrNumber() const { return errNumber_; }
  const std::string& ErrSource() const { return errSource_; }

  // Bytes written so far, or of the finished file; 0 without a document and after a failed EndDoc.
  std::int64_t FileSize() const;

  // Other PDF files. Errors: 53 when the file is missing; what is no PDF, encrypted or damaged
  // beyond repair; a page that it does not have.

  // The page's contents, decoded.
  std::string GetContentPage(std::string_view file, int page);
  // Returns the file's number in this document, from 1.
  int GetInfo(std::string_view file, pdf::FileInfo& information);
  // The page's size in points as ImportPage draws it: cropped and upright.
  bool GetImportSize(std::string_view file, int page, double& width, double& height);
  // Size in points before the page is cropped and turned; rotate 0, 90, 180 or 270.
  bool GetInfoPage(std::string_view file, int page, double& width, double& height, int& rotate);
  // Draws the page as it is printed; a width or height of 0 is its own. False, and an error,
  // without a document; under PDF/A for what that does not allow: transparency, fonts that are not
  // embedded, CMYK, LZW.
  bool ImportPage(std::string_view file, int page, double x = 0, double y = 0, double width = 0,
                  double height = 0);
  // A file is parsed once for all writers that share a cache: forms are printed over by hundreds.
  void ShareFiles(std::shared_ptr<pdf::FileCache> cache);
  int GetPages() const;  // so far, of this document

  int GetPage() const;  // position of the open or last page, 0 before any
  double GetPageHeight(bool userUnits = true) const;  // of the open or next page; else in points
  double GetPageWidth(bool userUnits = true) const;

  double GetTextBoxHeight(double width, std::string_view text, int flags = 0);  // all of it drawn
  double GetTextDescent() const;  // below the baseline
  double GetTextHeight() const;   // of a line, without the line factor
  double GetTextWidth(std::string_view text) const;

  double GetX() const;  // the cursor
  double GetY() const;

  // Calls `open`, the platform's way of opening a file, with the finished file's name. Error
  // without one.
  void OpenDoc(const std::function<void(std::string_view file)>& open);

  // Until the page, object or space ends. percent: 0 invisible to 100 opaque, cut to that range.
  // mode: "Normal", "Multiply", "Screen" and so on. Errors: another mode; under PDF/A what is not
  // opaque or not Normal.
  void SetAlpha(double percent);
  void SetAlphaFill(double percent);
  void SetAlphaLine(double percent);
  void SetBlend(std::string_view mode);
  // A colour is a name ("RED"), "#RRGGBB", "#r g b" of 0 to 1, "@r;g;b" in bytes, "@c;m;y;k" of 0
  // to 1, "@g" or "%g" a gray of 0 to 1, a number blue x 65536 + green x 256 + red, or the name of
  // a pattern. "" and -1 leave the colour as it is. Errors: what is none of these; a pattern inside
  // an object or a tiling.
  void SetColorFill(std::string_view colour);
  void SetColorLine(std::string_view colour);
  void SetColorText(std::string_view colour);
  // "SOLID", "DASH", "DOT", "DASHDOT", "DASHDOTDOT" by the line width, or lengths of dashes and
  // gaps "3;1". Error: another name, a negative length, no length above 0.
  void SetDash(std::string_view name, double phase = 0);
  void SetLineStyle(int cap, int join, double miter);  // 0 to 2, 0 to 2, 1 and above
  void SetLineWidth(double width);                     // 0 and above

  // lineFactor: of the line height, a negative one keeps; indent of a paragraph's first line; the
  // padding of a box; its borders and corners as DrawRect. Ignored when one of them is not finite.
  void SetBoxStyle(double lineFactor, double indent, double left, double top, double right,
                   double bottom, int borderMask = 15, double radius = 0);
  void SetCharSpacing(double points);
  // Arial (Helvetica), Times (TimesNewRoman), Courier (CourierNew), Symbol, ZapfDingbats or an
  // added font; any other name gives Arial. size 0 keeps the size, or takes 10 when that is 0.
  // style: 1 bold, 2 italic, 4 underline, 8 overline, 16 strike-through, added up. codePage: 161
  // Greek, 162 Turkish, 186 Baltic, 204 Cyrillic, 238 Central European, any other the standard one.
  // Error under PDF/A: a font that was not added.
  void SetFont(std::string_view name, double size = 0, int style = 0, int codePage = 0);
  void SetFontSize(double points);                // 0 and above
  void SetTextHorizontalScaling(double percent);  // above 0
  void SetTextMode(int mode);  // 0 fill, 1 stroke, 2 both, 3 invisible, 4 to 7 and clip
  // Defines <tag> for DrawTextRich; an empty font or colour, a size of 0 and a style of -1 keep
  // what is in force. Error: a tag that is empty or has one of "<>=/" in it.
  void SetTextTag(std::string_view tag, std::string_view fontName, double size, int style,
                  std::string_view colour);
  void SetWordSpacing(double points);

  // Before BeginDoc: the number (its lowest 24 bits count) behind the prefix of all resource names,
  // which is drawn by chance otherwise. With the same number and clock the same document comes out.
  void SetNamesNumber(std::uint32_t number);

  // Before BeginDoc: EndDoc leaves the file to the batch, which outlives this; it then stands under
  // its name, and on the disk, when the batch has finished. Without one it stands there at once,
  // but a power cut may lose it.
  void LeaveTo(FileBatch& batch);

  // Settings of the document, before or after BeginDoc.

  // Filters of contents, images and other data, fonts; added up: 1 run length, 2 deflate, 4 LZW, 8
  // ASCII85, 16 hexadecimal, and 256 times the level of deflate, 1 to 9.
  void SetCompression(int contents, int images, int fonts);
  // Empty author, creator and producer keep what is there, the others are always taken. Control
  // characters become blanks.
  void SetDocProperty(std::string_view title, std::string_view subject = "",
                      std::string_view author = "", std::string_view creator = "",
                      std::string_view producer = "", std::string_view keywords = "");
  // What tables keep free; clip: and everything else on the pages.
  void SetMargins(double left, double right, double top, double bottom, bool clip = false);
  void SetMemoryUsage(int step);  // 1 to 10: the more, the fewer times page records move
  // Turns the open page, with none open all pages to come: 0 not, 1 by 270, 2 by 180, 3 by 90
  // degrees.
  void SetPageView(int orientation);
  // Of the open page, unless it is opened once more, and of those to come. code: 0 A4, 1 A4 lying;
  // 255 takes width and height, above 0; the others from -8 (A0) to 17 are in pagesettings.cpp.
  void SetPaperSize(int code, double width = 0, double height = 0);
  // PDF/A-1b. Fonts are to be added ones, and CMYK colours become RGB; CMYK pictures, transparency,
  // scripts, attachments and pages of other files that are not fit for it are refused, layers left
  // out. Errors: with protection, and once something is drawn.
  void SetPDFa(bool on);
  void SetPrecision(int decimals);  // 0 to 6, of the numbers written
  // flags: what the user may do, 4 print, 8 change, 16 copy, 32 annotate, and with a key of 128
  // bits (0x1000) 256 fill in, 512 extract, 1024 assemble, 2048 print well. An empty user password
  // opens without asking, an empty owner password is the user's. Errors: PDF/A, objects that are
  // written.
  void SetProtection(int flags, std::string_view userPassword, std::string_view ownerPassword);
  // 0 point, 1 inch, 2 millimetre, 3 centimetre, 255 so many points as factor, above 0.
  void SetScale(int kind, double factor = 1);
  // Added up, one of each line: -32768 two columns with odd pages left, 16384 one column, 65536 two
  // columns with odd pages right;
  // 1 full screen, 2 bookmarks (when there are any), 4 thumbnails, 8 layers, 16 attachments.
  // And 32 hides the menu, 64 the tool bar, 128 the window's controls, 256 shows the title, 512
  // centres and 4096 fits the window. Under PDF/A only 512 counts, and the window is bare.
  void SetViewerPreferences(std::int32_t flags);

  void SetXY(double x, double y);  // the cursor
  void SwapPages(int a, int b);    // error when there is no such page
  std::string Version() const;     // "2020.1"

 private:
  template <typename Act>
  auto Trap(const char* method, std::string_view detail, Act act) -> decltype(act());
  template <typename Act>
  auto Trap(const char* method, Act act) -> decltype(act());
  void Record(const char* method, std::string_view detail, int number, std::string_view reason);
  void Build();
  void Restart();

  ClockPort& clock_;
  std::shared_ptr<pdf::FileCache> fileCache_;
  std::unique_ptr<pdf::Document> document_;
  std::unique_ptr<pdf::Pages> pages_;
  std::unique_ptr<pdf::Fonts> fonts_;
  std::unique_ptr<pdf::Texts> texts_;
  std::unique_ptr<pdf::Graphics> graphics_;
  std::unique_ptr<pdf::Images> images_;
  std::unique_ptr<pdf::Annotations> annotations_;
  std::unique_ptr<pdf::Import> import_;
  int errNumber_ = 0;
  std::string errSource_;
  std::string errDescription_;
};

}  // namespace lm
