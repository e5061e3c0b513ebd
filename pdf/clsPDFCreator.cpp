#include "pdf/clsPDFCreator.h"

#include <utility>

#include "pdf/annotations.h"
#include "pdf/error.h"
#include "pdf/fonts.h"
#include "pdf/graphics.h"
#include "pdf/images.h"
#include "pdf/import.h"
#include "pdf/pages.h"
#include "pdf/reader/parsedfile.h"
#include "pdf/texts.h"

namespace lm {
namespace {

constexpr int kOtherError = 5;

}  // namespace

clsPDFCreator::clsPDFCreator(ClockPort& clock) : clock_(clock) { Abort(); }

clsPDFCreator::~clsPDFCreator() = default;

// Runs an operation; its result is an empty one when it fails.
template <typename Act>
auto clsPDFCreator::Trap(const char* method, std::string_view detail, Act act) -> decltype(act()) {
  try {
    return act();
  } catch (const pdf::Error& error) {
    Record(method, detail, error.Number(), error.what());
  } catch (const std::exception& error) {
    Record(method, detail, kOtherError, error.what());
  }
  return decltype(act())();
}

template <typename Act>
auto clsPDFCreator::Trap(const char* method, Act act) -> decltype(act()) {
  return Trap(method, "", act);
}

void clsPDFCreator::Record(const char* method, std::string_view detail, int number,
                           std::string_view reason) {
  errNumber_ = number;
  errSource_ = std::string("PageWriter.") + method;
  errDescription_ = detail;
  if (!detail.empty()) errDescription_ += " - ";
  errDescription_ += reason;
}

void clsPDFCreator::Build() {
  // Parts hold on to those they were built with: the last one goes first.
  pages_.reset();
  import_.reset();
  annotations_.reset();
  images_.reset();
  texts_.reset();
  graphics_.reset();
  fonts_.reset();
  document_ = std::make_unique<pdf::Document>();
  fonts_ = std::make_unique<pdf::Fonts>(*document_);
  graphics_ = std::make_unique<pdf::Graphics>(*document_, *fonts_);
  texts_ = std::make_unique<pdf::Texts>(*document_, *fonts_, *graphics_);
  images_ = std::make_unique<pdf::Images>(*document_, *graphics_);
  annotations_ = std::make_unique<pdf::Annotations>(*document_, *fonts_);
  import_ = std::make_unique<pdf::Import>(*document_);
  import_->Share(fileCache_);
  pages_ =
      std::make_unique<pdf::Pages>(*document_, *texts_, *graphics_, *annotations_, clock_.Now());
}

void clsPDFCreator::LeaveTo(FileBatch& batch) { document_->out.LeaveTo(&batch); }

void clsPDFCreator::SetNamesNumber(std::uint32_t number) { document_->namesNumber = number; }

void clsPDFCreator::ShareFiles(std::shared_ptr<pdf::FileCache> cache) {
  fileCache_ = std::move(cache);
  import_->Share(fileCache_);
}

void clsPDFCreator::Abort() {
  Build();
  errNumber_ = 0;
  errSource_.clear();
  errDescription_.clear();
}

// For a document after another.
void clsPDFCreator::Restart() {
  const pdf::Settings settings = pages_->AllSettings();
  Build();
  pages_->TakeSettings(settings);
}

void clsPDFCreator::AddAttach(std::string_view path, std::string_view description) {
  Trap("AddAttach", path, [&] { annotations_->AddAttach(path, description); });
}

int clsPDFCreator::AddBookmark(std::string_view title, int parent, int page, std::string_view fit,
                               double x, double y, double zoom, std::string_view colour, int style,
                               bool open) {
  return Trap("AddBookmark", title, [&] {
    return annotations_->AddBookmark(title, parent, page, fit, x, y, zoom, colour, style, open);
  });
}

std::string clsPDFCreator::AddFont(std::string_view path, std::string_view name, bool embed,
                                   int codePage) {
  return Trap("AddFont", path, [&] { return fonts_->Add(path, name, embed, codePage); });
}

void clsPDFCreator::AddGradient(std::string_view name, int kind, std::string_view colour1,
                                std::string_view colour2, double x1, double y1, double x2,
                                double y2, double r1, double r2, double exponent, int extend) {
  Trap("AddGradient", [&] {
    graphics_->AddGradient(name, kind, colour1, colour2, x1, y1, x2, y2, r1, r2, exponent, extend);
  });
}

std::string clsPDFCreator::AddImage(std::string_view file, std::int32_t maskColour) {
  return Trap("AddImage", file, [&] { return images_->AddImage(file, maskColour); });
}

void clsPDFCreator::AddImagePattern(std::string_view name, std::string_view file, double width,
                                    double height) {
  Trap("AddImagePattern", file, [&] { images_->AddImagePattern(name, file, width, height); });
}

void clsPDFCreator::AxisRotation(double angle) {
  Trap("AxisRotation", [&] { graphics_->AxisRotation(angle); });
}

void clsPDFCreator::AxisScaling(double x, double y) {
  Trap("AxisScaling", [&] { graphics_->AxisScaling(x, y); });
}

void clsPDFCreator::AxisSkewing(double a, double b) {
  Trap("AxisSkewing", [&] { graphics_->AxisSkewing(a, b); });
}

void clsPDFCreator::AxisTranslation(double x, double y) {
  Trap("AxisTranslation", [&] { graphics_->AxisTranslation(x, y); });
}

std::string clsPDFCreator::BeginDoc(std::string_view fileName) {
  return Trap("BeginDoc", fileName, [&] {
    if (pages_->Used()) Restart();
    return pages_->BeginDoc(fileName);
  });
}

void clsPDFCreator::BeginConditionalLayer(std::string_view names, int kind) {
  Trap("BeginConditionalLayer", [&] { graphics_->BeginConditionalLayer(names, kind); });
}

void clsPDFCreator::BeginLayer(std::string_view name, bool viewOn, bool printOn,
                               std::string_view usage) {
  Trap("BeginLayer", [&] { graphics_->BeginLayer(name, viewOn, printOn, usage); });
}

void clsPDFCreator::BeginObject(std::string_view name, int flag) {
  Trap("BeginObject", [&] { graphics_->BeginObject(name, flag); });
}

void clsPDFCreator::BeginOnPage(int position) {
  Trap("BeginOnPage", [&] { pages_->BeginOnPage(position); });
}

int clsPDFCreator::BeginPage(int position) {
  return Trap("BeginPage", [&] { return pages_->BeginPage(position); });
}

void clsPDFCreator::BeginSpace(double x, double y, double scaleX, double scaleY, double angle) {
  Trap("BeginSpace", [&] { graphics_->BeginSpace(x, y, scaleX, scaleY, angle); });
}

void clsPDFCreator::BeginTable(double x, double y, std::string_view columnWidths, double rowHeight,
                               int borderMask) {
  Trap("BeginTable", [&] { texts_->BeginTable(x, y, columnWidths, rowHeight, borderMask); });
}

void clsPDFCreator::BeginTiling(std::string_view name, double width, double height, double stepX,
                                double stepY, bool coloured) {
  Trap("BeginTiling", [&] { graphics_->BeginTiling(name, width, height, stepX, stepY, coloured); });
}

void clsPDFCreator::DefineRef(std::string_view name, std::string_view page, double x, double y) {
  Trap("DefineRef", [&] { annotations_->DefineRef(name, page, x, y); });
}

void clsPDFCreator::DrawArc(double x, double y, double rx, double ry, double startAngle,
                            double endAngle, int mode, bool pie) {
  Trap("DrawArc", [&] { graphics_->DrawArc(x, y, rx, ry, startAngle, endAngle, mode, pie); });
}

void clsPDFCreator::DrawBarCode(int kind, std::string_view code, double x, double y, double width,
                                double height, bool withText) {
  Trap("DrawBarCode", [&] { graphics_->DrawBarCode(kind, code, x, y, width, height, withText); });
}

void clsPDFCreator::DrawCircle(double x, double y, double radius, int mode) {
  Trap("DrawCircle", [&] { graphics_->DrawCircle(x, y, radius, mode); });
}

void clsPDFCreator::DrawCurve(double x1, double y1, double x2, double y2, double x3, double y3,
                              int form) {
  Trap("DrawCurve", [&] { graphics_->DrawCurve(x1, y1, x2, y2, x3, y3, form); });
}

void clsPDFCreator::DrawEllipse(double x, double y, double rx, double ry, int mode) {
  Trap("DrawEllipse", [&] { graphics_->DrawEllipse(x, y, rx, ry, mode); });
}

void clsPDFCreator::DrawField(int type, std::string_view name, double x, double y, double width,
                              double height, std::string_view value, std::string_view toolTip,
                              int flags, std::string_view borderColour, std::string_view backColour,
                              double borderWidth, int borderStyle, std::string_view items) {
  Trap("DrawField", name, [&] {
    annotations_->DrawField(type, name, x, y, width, height, value, toolTip, flags, borderColour,
                            backColour, borderWidth, borderStyle, items);
  });
}

void clsPDFCreator::DrawImage(std::string_view file, double x, double y, double width,
                              double height, int mode, std::int32_t maskColour,
                              double transparency) {
  Trap("DrawImage", file,
       [&] { images_->DrawImage(file, x, y, width, height, mode, maskColour, transparency); });
}

void clsPDFCreator::DrawLine(double x1, double y1, double x2, double y2, double width) {
  Trap("DrawLine", [&] { graphics_->DrawLine(x1, y1, x2, y2, width); });
}

void clsPDFCreator::DrawLineTo(double x, double y) {
  Trap("DrawLineTo", [&] { graphics_->DrawLineTo(x, y); });
}

void clsPDFCreator::DrawNote(int type, std::string_view text, double x, double y, double width,
                             double height, std::string_view title, std::string_view colour,
                             int alignment) {
  Trap("DrawNote",
       [&] { annotations_->DrawNote(type, text, x, y, width, height, title, colour, alignment); });
}

void clsPDFCreator::DrawObject(std::string_view name) {
  Trap("DrawObject", [&] { graphics_->DrawObject(name); });
}

void clsPDFCreator::DrawPlaceHolder(std::string_view name, double x, double y, double width,
                                    int flags) {
  Trap("DrawPlaceHolder", [&] { texts_->DrawPlaceHolder(name, x, y, width, flags); });
}

void clsPDFCreator::SetPlaceHolder(std::string_view name, std::string_view text) {
  Trap("SetPlaceHolder", [&] { texts_->SetPlaceHolder(name, text); });
}

void clsPDFCreator::DrawPolygon(std::string_view points, int mode) {
  Trap("DrawPolygon", [&] { graphics_->DrawPolygon(points, mode); });
}

void clsPDFCreator::DrawPolyline(std::string_view points, int mode) {
  Trap("DrawPolyline", [&] { graphics_->DrawPolyline(points, mode); });
}

void clsPDFCreator::DrawRect(double x, double y, double width, double height, int mode, int borders,
                             double radius) {
  Trap("DrawRect", [&] { graphics_->DrawRect(x, y, width, height, mode, borders, radius); });
}

void clsPDFCreator::DrawText(double x, double y, std::string_view text, int flags) {
  Trap("DrawText", [&] { texts_->DrawText(x, y, text, flags); });
}

void clsPDFCreator::DrawTextBox(double x, double y, double width, double height,
                                std::string_view text, int flags, int rectMode,
                                std::string* leftover) {
  Trap("DrawTextBox",
       [&] { texts_->DrawTextBox(x, y, width, height, text, flags, rectMode, leftover); });
}

const std::vector<std::string>& clsPDFCreator::CutTexts() const { return texts_->CutTexts(); }

void clsPDFCreator::DrawTextCircular(double x, double y, double radius, std::string_view text,
                                     double startAngle, int flags) {
  Trap("DrawTextCircular",
       [&] { texts_->DrawTextCircular(x, y, radius, text, startAngle, flags); });
}

void clsPDFCreator::DrawTextRich(double x, double y, double width, double height,
                                 std::string_view text, int flags) {
  Trap("DrawTextRich", [&] { texts_->DrawTextRich(x, y, width, height, text, flags); });
}

void clsPDFCreator::EndConditionalLayer() {
  Trap("EndConditionalLayer", [&] { graphics_->EndConditionalLayer(); });
}

bool clsPDFCreator::EndDoc() {
  return Trap("EndDoc", [&] {
    pages_->EndDoc();
    return true;
  });
}

void clsPDFCreator::EndLayer() {
  Trap("EndLayer", [&] { graphics_->EndLayer(); });
}

void clsPDFCreator::EndObject() {
  Trap("EndObject", [&] { graphics_->EndObject(); });
}

void clsPDFCreator::EndOnPage() {
  Trap("EndOnPage", [&] { pages_->EndOnPage(); });
}

void clsPDFCreator::EndPage() {
  Trap("EndPage", [&] { pages_->EndPage(); });
}

void clsPDFCreator::EndSpace() {
  Trap("EndSpace", [&] { graphics_->EndSpace(); });
}

void clsPDFCreator::EndTable() {
  Trap("EndTable", [&] { texts_->EndTable(); });
}

void clsPDFCreator::EndTiling() {
  Trap("EndTiling", [&] { graphics_->EndTiling(); });
}

std::int64_t clsPDFCreator::FileSize() const { return pages_->FileSize(); }

std::string clsPDFCreator::GetContentPage(std::string_view file, int page) {
  return Trap("GetContentPage", file, [&] { return import_->GetContentPage(file, page); });
}

bool clsPDFCreator::GetImportSize(std::string_view file, int page, double& width, double& height) {
  return Trap("GetImportSize", file,
              [&] { return import_->GetImportSize(file, page, width, height); });
}

int clsPDFCreator::GetInfo(std::string_view file, pdf::FileInfo& information) {
  return Trap("GetInfo", file, [&] { return import_->GetInfo(file, information); });
}

bool clsPDFCreator::GetInfoPage(std::string_view file, int page, double& width, double& height,
                                int& rotate) {
  return Trap("GetInfoPage", file,
              [&] { return import_->GetInfoPage(file, page, width, height, rotate); });
}

int clsPDFCreator::GetPage() const { return pages_->GetPage(); }

double clsPDFCreator::GetPageHeight(bool userUnits) const {
  return pages_->GetPageHeight(userUnits);
}

double clsPDFCreator::GetPageWidth(bool userUnits) const { return pages_->GetPageWidth(userUnits); }

int clsPDFCreator::GetPages() const { return pages_->GetPages(); }

double clsPDFCreator::GetTextBoxHeight(double width, std::string_view text, int flags) {
  double height = 0;
  Trap("GetTextBoxHeight", [&] { height = texts_->TextBoxHeight(width, text, flags); });
  return height;
}

double clsPDFCreator::GetTextDescent() const { return texts_->GetTextDescent(); }

double clsPDFCreator::GetTextHeight() const { return texts_->GetTextHeight(); }

double clsPDFCreator::GetTextWidth(std::string_view text) const {
  return texts_->GetTextWidth(text);
}

double clsPDFCreator::GetX() const { return pages_->GetX(); }

double clsPDFCreator::GetY() const { return pages_->GetY(); }

bool clsPDFCreator::ImportPage(std::string_view file, int page, double x, double y, double width,
                               double height) {
  return Trap("ImportPage", file, [&] {
    import_->ImportPage(file, page, x, y, width, height);
    return true;
  });
}

void clsPDFCreator::LinkTo(std::string_view target, double borderWidth, int highlight) {
  Trap("LinkTo", target, [&] { annotations_->LinkTo(target, borderWidth, highlight); });
}

void clsPDFCreator::MoveTo(double x, double y) {
  Trap("MoveTo", [&] { graphics_->MoveTo(x, y); });
}

void clsPDFCreator::OnDocEvent(std::string_view kind, std::string_view script) {
  Trap("OnDocEvent", [&] { annotations_->OnDocEvent(kind, script); });
}

void clsPDFCreator::OnFieldEvent(std::string_view kind, std::string_view script) {
  Trap("OnFieldEvent", [&] { annotations_->OnFieldEvent(kind, script); });
}

void clsPDFCreator::OnPageEvent(std::string_view kind, std::string_view script) {
  Trap("OnPageEvent", [&] { annotations_->OnPageEvent(kind, script); });
}

void clsPDFCreator::OpenDoc(const std::function<void(std::string_view file)>& open) {
  Trap("OpenDoc", [&] { pages_->OpenDoc(open); });
}

void clsPDFCreator::SetAlpha(double percent) {
  Trap("SetAlpha", [&] { graphics_->SetAlpha(percent); });
}

void clsPDFCreator::SetAlphaFill(double percent) {
  Trap("SetAlphaFill", [&] { graphics_->SetAlphaFill(percent); });
}

void clsPDFCreator::SetAlphaLine(double percent) {
  Trap("SetAlphaLine", [&] { graphics_->SetAlphaLine(percent); });
}

void clsPDFCreator::SetBlend(std::string_view mode) {
  Trap("SetBlend", [&] { graphics_->SetBlend(mode); });
}

void clsPDFCreator::SetBoxStyle(double lineFactor, double indent, double left, double top,
                                double right, double bottom, int borderMask, double radius) {
  Trap("SetBoxStyle", [&] {
    texts_->SetBoxStyle(lineFactor, indent, left, top, right, bottom, borderMask, radius);
  });
}

void clsPDFCreator::SetCharSpacing(double points) {
  Trap("SetCharSpacing", [&] { texts_->SetCharSpacing(points); });
}

void clsPDFCreator::SetColorFill(std::string_view colour) {
  Trap("SetColorFill", [&] { graphics_->SetColorFill(colour); });
}

void clsPDFCreator::SetColorLine(std::string_view colour) {
  Trap("SetColorLine", [&] { graphics_->SetColorLine(colour); });
}

void clsPDFCreator::SetColorText(std::string_view colour) {
  Trap("SetColorText", [&] { graphics_->SetColorText(colour); });
}

void clsPDFCreator::SetCompression(int contents, int images, int fonts) {
  Trap("SetCompression", [&] { pages_->SetCompression(contents, images, fonts); });
}

void clsPDFCreator::SetDash(std::string_view name, double phase) {
  Trap("SetDash", [&] { graphics_->SetDash(name, phase); });
}

void clsPDFCreator::SetDocProperty(std::string_view title, std::string_view subject,
                                   std::string_view author, std::string_view creator,
                                   std::string_view producer, std::string_view keywords) {
  Trap("SetDocProperty",
       [&] { pages_->SetDocProperty(title, subject, author, creator, producer, keywords); });
}

void clsPDFCreator::SetFont(std::string_view name, double size, int style, int codePage) {
  Trap("SetFont", name, [&] { fonts_->Set(name, size, style, codePage); });
}

void clsPDFCreator::SetFontSize(double points) {
  Trap("SetFontSize", [&] { texts_->SetFontSize(points); });
}

void clsPDFCreator::SetLabel(int kind, std::string_view prefix, int start) {
  Trap("SetLabel", [&] { annotations_->SetLabel(kind, prefix, start); });
}

void clsPDFCreator::SetLineStyle(int cap, int join, double miter) {
  Trap("SetLineStyle", [&] { graphics_->SetLineStyle(cap, join, miter); });
}

void clsPDFCreator::SetLineWidth(double width) {
  Trap("SetLineWidth", [&] { graphics_->SetLineWidth(width); });
}

void clsPDFCreator::SetMargins(double left, double right, double top, double bottom, bool clip) {
  Trap("SetMargins", [&] { pages_->SetMargins(left, right, top, bottom, clip); });
}

void clsPDFCreator::SetMemoryUsage(int step) {
  Trap("SetMemoryUsage", [&] { pages_->SetMemoryUsage(step); });
}

void clsPDFCreator::SetPageTransition(int kind, double duration, double shownFor) {
  Trap("SetPageTransition", [&] { annotations_->SetPageTransition(kind, duration, shownFor); });
}

void clsPDFCreator::SetPageView(int orientation) {
  Trap("SetPageView", [&] { pages_->SetPageView(orientation); });
}

void clsPDFCreator::SetPaperSize(int code, double width, double height) {
  Trap("SetPaperSize", [&] { pages_->SetPaperSize(code, width, height); });
}

void clsPDFCreator::SetPDFa(bool on) {
  Trap("SetPDFa", [&] { pages_->SetPDFa(on); });
}

void clsPDFCreator::SetPrecision(int decimals) {
  Trap("SetPrecision", [&] { pages_->SetPrecision(decimals); });
}

void clsPDFCreator::SetProtection(int flags, std::string_view userPassword,
                                  std::string_view ownerPassword) {
  Trap("SetProtection", [&] { pages_->SetProtection(flags, userPassword, ownerPassword); });
}

void clsPDFCreator::SetScale(int kind, double factor) {
  Trap("SetScale", [&] { pages_->SetScale(kind, factor); });
}

void clsPDFCreator::SetTextHorizontalScaling(double percent) {
  Trap("SetTextHorizontalScaling", [&] { texts_->SetTextHorizontalScaling(percent); });
}

void clsPDFCreator::SetTextMode(int mode) {
  Trap("SetTextMode", [&] { texts_->SetTextMode(mode); });
}

void clsPDFCreator::SetTextTag(std::string_view tag, std::string_view fontName, double size,
                               int style, std::string_view colour) {
  Trap("SetTextTag", [&] { texts_->SetTextTag(tag, fontName, size, style, colour); });
}

void clsPDFCreator::SetViewerPreferences(std::int32_t flags) {
  Trap("SetViewerPreferences", [&] { pages_->SetViewerPreferences(flags); });
}

void clsPDFCreator::SetWordSpacing(double points) {
  Trap("SetWordSpacing", [&] { texts_->SetWordSpacing(points); });
}

void clsPDFCreator::SetXY(double x, double y) {
  Trap("SetXY", [&] { graphics_->SetXY(x, y); });
}

void clsPDFCreator::SwapPages(int a, int b) {
  Trap("SwapPages", [&] { pages_->SwapPages(a, b); });
}

void clsPDFCreator::TableCell(std::string_view text, int flags, int span) {
  Trap("TableCell", [&] { texts_->TableCell(text, flags, span); });
}

void clsPDFCreator::TableRowHeight(double height) {
  Trap("TableRowHeight", [&] { texts_->TableRowHeight(height); });
}

std::string clsPDFCreator::Version() const { return pages_->Version(); }

void clsPDFCreator::WriteText(std::string_view text, int mode, double percent) {
  Trap("WriteText", [&] { texts_->WriteText(text, mode, percent); });
}

void clsPDFCreator::WriteTextLn(std::string_view text) {
  Trap("WriteTextLn", [&] { texts_->WriteTextLn(text); });
}

}  // namespace lm
