#include "pdf/import.h"

#include <algorithm>
#include <utility>

#include "core/files.h"
#include "pdf/error.h"
#include "pdf/pdfa.h"
#include "pdf/reader/annotationpictures.h"
#include "pdf/reader/fileinfo.h"
#include "pdf/reader/layerstates.h"
#include "pdf/reader/parsedfile.h"
#include "pdf/scope.h"

namespace lm::pdf {
namespace {

constexpr int kFormPrecision = 6;  // decimals: what is scaled up later must not be rough
constexpr int kFirstMinorVersion = 3;
constexpr int kLayersVersionStep = 2;
constexpr int kLastMinorVersion = 7;  // the header has no room for 2.0

// What a page counts on where it begins: colours, lines, text.
constexpr std::string_view kInitialState =
    "0 g 0 G 1 w 0 J 0 j 10 M [] 0 d 0 Tc 0 Tw 100 Tz 0 TL 0 Tr 0 Ts\n";

// The form's own space: its lower left corner, once it stands upright, is 0,0.
std::string MatrixText(const Document& document, const Box& box, int rotation, double unit) {
  const auto matrix = [&](double a, double b, double c, double d, double x, double y) {
    std::string text = "/Matrix [ ";
    for (const double number : {a, b, c, d, x, y}) text += document.Points(number * unit) + " ";
    return text + "]";
  };
  switch (rotation) {
    case 90:
      return matrix(0, -1, 1, 0, -box.y0, box.x1);
    case 180:
      return matrix(-1, 0, 0, -1, box.x1, box.y1);
    case 270:
      return matrix(0, 1, -1, 0, box.y1, -box.x0);
    default:
      if (box.x0 == 0 && box.y0 == 0 && unit == 1) return "";
      return matrix(1, 0, 0, 1, -box.x0, -box.y0);
  }
}

struct Size {
  double width = 0, height = 0;  // points
};

// As the page is seen: cropped, in its own unit, upright.
Size SeenSize(ParsedFile& file, const PageNode& page) {
  const Box box = file.CropBox(page);
  const double unit = file.UserUnit(page);
  const Size size{(box.x1 - box.x0) * unit, (box.y1 - box.y0) * unit};
  return file.Rotation(page) % 180 == 0 ? size : Size{size.height, size.width};
}

// True while nothing has been drawn that could have changed the state of drawing.
bool IsUntouched(const Document& document) {
  return document.target == Target::Page && document.pageBuffer.empty() &&
         document.pages[document.openPage].contents.empty();
}

struct Contents {
  std::string joined;                 // of several streams
  std::string_view bytes;             // `joined`, or the single stream's as they stand
  const Value* dictionary = nullptr;  // of the single stream
};

void ReadContents(ParsedFile& file, const PageNode& page, Contents& contents) {
  const auto streams = file.Contents(page);
  if (streams.size() == 1) {
    contents.bytes = streams[0]->data;
    contents.dictionary = &streams[0]->value;
  } else {
    contents.joined = file.JoinedContents(page);
    contents.bytes = contents.joined;
  }
}

// Entries of a form's dictionary, each "" or whole: "/Resources << ... >>".
struct FormEntries {
  std::string matrix, resources, group, filter, parameters;
};

void WriteForm(Document& document, int number, const Box& box, const FormEntries& entries,
               std::string_view contents) {
  Output& out = document.out;
  const auto write = [&out](const std::string& entry) {
    if (!entry.empty()) out.Write("   " + entry);
  };
  const std::string bytes = out.encryption.Encipher(contents, number);
  out.BeginObject(number);
  out.Write("<< /Type /XObject /Subtype /Form /FormType 1");
  write("/BBox [ " + document.Points(box.x0) + " " + document.Points(box.y0) + " " +
        document.Points(box.x1) + " " + document.Points(box.y1) + " ]");
  for (const auto& entry : {entries.matrix, entries.resources, entries.group}) write(entry);
  write("/Length " + std::to_string(bytes.size()));
  for (const auto& entry : {entries.filter, entries.parameters}) write(entry);
  out.Write(">>");
  out.Write("stream\r");
  out.Write(bytes + "\r");
  out.Write("endstream");
  out.EndObject();
}

// Layers that come along keep the state in which the source shows them.
void CarryLayers(Document& document, const LayerStates& states, const std::vector<int>& layers,
                 const CopiedObjects& copied) {
  for (const int source : layers) {
    document.importedLayers.push_back(
        {copied.at(source), !states.off.contains(source), states.byUse.contains(source)});
  }
  if (!layers.empty()) document.RaiseVersion(kLayersVersionStep);
}

void RefuseLayersOff(const LayerStates& states, const std::vector<int>& layers) {
  for (const int layer : layers) {
    if (states.off.contains(layer))
      throw Error("a PDF/A file cannot have the page's hidden layers");
  }
}

// The page, and on it the pictures of its annotations.
struct Drawing {
  std::string operators, resources;
};

Drawing DrawPictures(const Document& document, const ObjectCopier& copier, int page, int number,
                     const std::vector<AnnotationPicture>& pictures) {
  std::string xObjects = "/Page " + std::to_string(page) + " 0 R ";
  std::string properties;
  Drawing drawing{"/Page Do\n", ""};
  for (std::size_t i = 0; i < pictures.size(); ++i) {
    const AnnotationPicture& each = pictures[i];
    const std::string index = std::to_string(i + 1);
    const auto [a, b, c, d, e, f] = each.place;
    const bool hasLayer = each.layer.kind != ValueKind::Null;
    if (hasLayer) drawing.operators += "/OC /L" + index + " BDC\n";
    drawing.operators += "q ";
    for (const double x : {a, b, c, d, e, f}) drawing.operators += document.Points(x) + " ";
    drawing.operators += "cm /A" + index + " Do Q\n";
    if (hasLayer) drawing.operators += "EMC\n";
    xObjects += "/A" + index + " " + copier.Text(each.form, number) + " ";
    if (hasLayer) properties += "/L" + index + " " + copier.Text(each.layer, number) + " ";
  }
  drawing.resources = "/Resources << /XObject << " + xObjects + ">> ";
  if (!properties.empty()) drawing.resources += "/Properties << " + properties + ">> ";
  drawing.resources += ">>";
  return drawing;
}

// Copies what the page draws with, and writes the page as a Form XObject. Returns its number.
int WritePage(Document& document, ParsedFile& file, CopiedObjects& copied, const PageNode& page) {
  Contents contents;
  ReadContents(file, page, contents);
  const Value& group = page.dictionary->At("Group");
  const Value& resources = page.resources ? *page.resources : kNullValue;
  const Value& parameters =
      contents.dictionary ? contents.dictionary->At("DecodeParms") : kNullValue;
  const Box box = file.CropBox(page);
  const std::vector<AnnotationPicture> pictures = ReadAnnotationPictures(file, page);
  const LayerStates states = ReadLayerStates(file.objects);

  Output& out = document.out;
  ObjectCopier copier(file.objects, out, copied);
  for (const Value* each : {&resources, &group, &parameters}) copier.Gather(*each);
  for (const AnnotationPicture& each : pictures) {
    copier.GatherForm(each.form);
    copier.GatherReadable(each.layer);
  }
  const std::vector<int> layers = copier.OfType("OCG");
  if (document.pdfA) {
    RefuseLayersOff(states, layers);
    std::vector<const Value*> drawn = {&resources, &group};
    if (contents.dictionary) drawn.push_back(contents.dictionary);
    for (const AnnotationPicture& each : pictures) drawn.push_back(&each.form);
    RefuseUnarchivable(file.objects, file.JoinedContents(page), drawn);
  }
  FormEntries form;
  if (contents.dictionary) form.filter = copier.FilterText(*contents.dictionary);
  if (form.filter.find(' ') != std::string::npos) form.filter = "[" + form.filter + "]";
  if (!form.filter.empty()) form.filter.insert(0, "/Filter ");
  const bool hasResources = file.objects.Resolve(resources).IsDictionary();

  copier.Write();
  if (!document.pdfA) CarryLayers(document, states, layers, copied);
  const Restored precision(document.precision);
  document.precision = kFormPrecision;
  int number = out.ReserveObject();
  form.resources = "/Resources " + (hasResources ? copier.Text(resources, number) : "<< >>");
  if (parameters.kind != ValueKind::Null) {
    form.parameters = "/DecodeParms " + copier.Text(parameters, number);
  }
  Drawing drawing;
  if (!pictures.empty()) {
    WriteForm(document, number, box, form, contents.bytes);
    const int inner = std::exchange(number, out.ReserveObject());
    drawing = DrawPictures(document, copier, inner, number, pictures);
    contents.bytes = drawing.operators;
    form = FormEntries();
    form.resources = drawing.resources;
  }
  form.matrix = MatrixText(document, box, file.Rotation(page), file.UserUnit(page));
  if (group.kind != ValueKind::Null) form.group = "/Group " + copier.Text(group, number);
  WriteForm(document, number, box, form, contents.bytes);
  return number;
}

}  // namespace

Import::Record& Import::Open(std::string_view file) {
  Record*& known = byPath_[std::string(file)];
  if (known == nullptr) {
    const auto path = PathFromText(file);
    auto parsed = cache_ ? cache_->Open(path) : ParsedFile::Read(path);
    records_.push_back({static_cast<int>(records_.size()) + 1, std::move(parsed), {}, {}});
    known = &records_.back();
  }
  return *known;
}

int Import::GetInfo(std::string_view file, FileInfo& information) {
  Record& record = Open(file);
  information = ReadFileInfo(*record.file);
  return record.number;
}

bool Import::GetInfoPage(std::string_view file, int page, double& width, double& height,
                         int& rotate) {
  ParsedFile& source = *Open(file).file;
  const PageNode& node = source.Page(page);
  const Box box = source.MediaBox(node);
  const int rotation = source.Rotation(node);
  width = box.x1 - box.x0;
  height = box.y1 - box.y0;
  rotate = rotation;
  return true;
}

bool Import::GetImportSize(std::string_view file, int page, double& width, double& height) {
  ParsedFile& source = *Open(file).file;
  const Size size = SeenSize(source, source.Page(page));
  width = size.width;
  height = size.height;
  return true;
}

std::string Import::GetContentPage(std::string_view file, int page) {
  ParsedFile& source = *Open(file).file;
  return source.JoinedContents(source.Page(page));
}

void Import::ImportPage(std::string_view file, int page, double x, double y, double width,
                        double height) {
  if (!document_.out.IsOpen()) throw Error("No document is open");
  Record& record = Open(file);
  ParsedFile& source = *record.file;
  const PageNode& node = source.Page(page);
  const std::string name =
      document_.Name("PDF_" + std::to_string(record.number) + "." + std::to_string(page));

  if (!record.pages.contains(page)) {
    const int form = WritePage(document_, source, record.copied, node);
    document_.resources.Add(ResourceKind::XObject, name, form);
    document_.usesImages = true;
    document_.RaiseVersion(std::min(source.MinorVersion(), kLastMinorVersion) - kFirstMinorVersion);
    record.pages.insert(page);
  }

  const Size own = SeenSize(source, node);
  const double scaleX = width == 0 ? 1 : document_.ToPoints(width) / own.width;
  const double scaleY = height == 0 ? 1 : document_.ToPoints(height) / own.height;
  const std::string place =
      document_.Units(x) + " " + document_.Points(document_.ToPoints(y) + own.height * scaleY);
  const Restored precision(document_.precision);
  document_.precision = kFormPrecision;
  const bool touched = !IsUntouched(document_);
  if (touched) document_.Draw("q " + std::string(kInitialState));
  document_.Draw("q\n" + document_.Points(scaleX) + " 0 0 " + document_.Points(-scaleY) + " " +
                 place + " cm\n" + name + " Do\nQ\n");
  if (touched) document_.Draw("Q\n");
}

}  // namespace lm::pdf
