#include "pdf/import.h"

#include <algorithm>

#include "core/files.h"
#include "pdf/error.h"
#include "pdf/reader/fileinfo.h"
#include "pdf/reader/parsedfile.h"
#include "pdf/scope.h"

namespace lm::pdf {
namespace {

constexpr int kFormPrecision = 6;  // decimals: what is scaled up later must not be rough
constexpr int kFirstMinorVersion = 3;
constexpr int kLastMinorVersion = 7;  // the header has no room for 2.0

// What a page counts on where it begins: colours, lines, text.
constexpr std::string_view kInitialState =
    "0 g 0 G 1 w 0 J 0 j 10 M [] 0 d 0 Tc 0 Tw 100 Tz 0 TL 0 Tr 0 Ts\n";

// The form's own space: its lower left corner, once it stands upright, is 0,0.
std::string MatrixText(const Document& document, const Box& box, int rotation) {
  const auto move = [&](double x, double y) {
    return document.Points(x) + " " + document.Points(y);
  };
  switch (rotation) {
    case 90:
      return "0 -1 1 0 " + move(-box.y0, box.x1);
    case 180:
      return "-1 0 0 -1 " + move(box.x1, box.y1);
    case 270:
      return "0 1 -1 0 " + move(box.y1, -box.x0);
    default:
      return box.x0 == 0 && box.y0 == 0 ? "" : "1 0 0 1 " + move(-box.x0, -box.y0);
  }
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

// Copies what the page draws with, and writes the page as a Form XObject. Returns its number.
int WriteForm(Document& document, ParsedFile& file, CopiedObjects& copied, const PageNode& page) {
  Contents contents;
  ReadContents(file, page, contents);
  const Value& group = page.dictionary->At("Group");
  const Value& resources = page.resources ? *page.resources : kNullValue;
  const Value& parameters =
      contents.dictionary ? contents.dictionary->At("DecodeParms") : kNullValue;
  const Box box = file.MediaBox(page);
  const int rotation = file.Rotation(page);

  Output& out = document.out;
  ObjectCopier copier(file.objects, out, copied);
  for (const Value* each : {&resources, &group, &parameters}) copier.Gather(*each);
  std::string filter = contents.dictionary ? copier.FilterText(*contents.dictionary) : "";
  if (filter.find(' ') != filter.npos) filter = "[" + filter + "]";
  const bool hasResources = file.objects.Resolve(resources).IsDictionary();

  copier.Write();
  const Restored precision(document.precision);
  document.precision = kFormPrecision;
  const int number = out.BeginNewObject();
  const std::string bytes = out.encryption.Encipher(contents.bytes, number);
  out.Write("<< /Type /XObject /Subtype /Form /FormType 1");
  out.Write("   /BBox [ " + document.Points(box.x0) + " " + document.Points(box.y0) + " " +
            document.Points(box.x1) + " " + document.Points(box.y1) + " ]");
  if (const std::string matrix = MatrixText(document, box, rotation); !matrix.empty()) {
    out.Write("   /Matrix [ " + matrix + " ]");
  }
  out.Write("   /Resources " + (hasResources ? copier.Text(resources, number) : "<< >>"));
  if (group.kind != ValueKind::Null) out.Write("   /Group " + copier.Text(group, number));
  out.Write("   /Length " + std::to_string(bytes.size()));
  if (!filter.empty()) out.Write("   /Filter " + filter);
  if (parameters.kind != ValueKind::Null) {
    out.Write("   /DecodeParms " + copier.Text(parameters, number));
  }
  out.Write(">>");
  out.Write("stream\r");
  out.Write(bytes + "\r");
  out.Write("endstream");
  out.EndObject();
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
    const int form = WriteForm(document_, source, record.copied, node);
    document_.xObjects += name + " " + std::to_string(form) + " 0 R ";
    document_.usesImages = true;
    document_.RaiseVersion(std::min(source.MinorVersion(), kLastMinorVersion) - kFirstMinorVersion);
    record.pages.insert(page);
  }

  const Box box = source.MediaBox(node);
  const bool turned = source.Rotation(node) % 180 != 0;
  const double ownWidth = turned ? box.y1 - box.y0 : box.x1 - box.x0;
  const double ownHeight = turned ? box.x1 - box.x0 : box.y1 - box.y0;
  const double scaleX = width == 0 ? 1 : document_.ToPoints(width) / ownWidth;
  const double scaleY = height == 0 ? 1 : document_.ToPoints(height) / ownHeight;
  const std::string place =
      document_.Units(x) + " " + document_.Points(document_.ToPoints(y) + ownHeight * scaleY);
  const Restored precision(document_.precision);
  document_.precision = kFormPrecision;
  const bool touched = !IsUntouched(document_);
  if (touched) document_.Draw("q " + std::string(kInitialState));
  document_.Draw("q\n" + document_.Points(scaleX) + " 0 0 " + document_.Points(-scaleY) + " " +
                 place + " cm\n" + name + " Do\nQ\n");
  if (touched) document_.Draw("Q\n");
}

}  // namespace lm::pdf
