#include "pdf/pages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <random>
#include <utility>

#include "core/files.h"
#include "core/text.h"
#include "pdf/colours.h"

namespace lm::pdf {
namespace {

constexpr int kFirstRoom = 10;  // records

std::string Hexadecimal(std::uint32_t number) {
  std::array<char, 8> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number, 16).ptr;
  return ToUpper(std::string_view(text.data(), end));
}

// Room for one more. `step` trades memory for moving the records less often.
template <class Record>
void MakeRoom(std::vector<Record>& records, int step) {
  const std::size_t count = records.size();
  if (count < records.capacity()) return;
  const auto factor = static_cast<std::size_t>(step);
  records.reserve(count == 0 ? factor * kFirstRoom : factor * count / 5 + count + kFirstRoom);
}

}  // namespace

Pages::Pages(Document& document, Texts& texts, Graphics& graphics, Annotations& annotations,
             Date now)
    : document_(document), texts_(texts), graphics_(graphics), annotations_(annotations) {
  settings_.information.creationDate = CreationDate(now);
  texts_.SetPageFlow(Flow());
}

// A table leaves the margins free on the pages that it begins. Outside of pages it never ends.
PageFlow Pages::Flow() {
  const auto bottom = [this] {
    if (document_.target != Target::Page) return std::numeric_limits<double>::infinity();
    return document_.ToUnits(document_.pageHeight - settings_.bottom);
  };
  const auto newPage = [this] {
    BeginPage(0);
    return document_.ToUnits(settings_.top);
  };
  return {bottom, newPage};
}

void Pages::RequireDocument() const {
  if (!document_.out.IsOpen()) throw Error("No document is open");
}

std::string Pages::BeginDoc(std::string_view fileName) {
  const std::uint32_t number = document_.namesNumber.value_or(std::random_device()()) & 0xFFFFFF;
  const std::string hexadecimal = Hexadecimal(number);
  const std::string name =
      fileName.empty() ? "~" + PadLeft(hexadecimal, 6, '0') + ".pdf" : std::string(fileName);

  Output& out = document_.out;
  out.Open(PathFromText(name));
  fileName_ = name;
  document_.prefix = "A" + hexadecimal + "+";
  out.Write("%PDF-1.3");
  out.Write("%\xFF\xFF\xFF\xFF");
  out.Write("% PageWriter Library " + Version());
  out.SetObjectCount(kReservedObjects);
  for (const ColourSpace& space : ColourSpaces())
    document_.resources.Add(ResourceKind::ColorSpace, "/" + std::string(space.patternSpace),
                            "[ /Pattern " + std::string(space.device) + " ]");
  return name;
}

void Pages::OpenDoc(const std::function<void(std::string_view file)>& open) {
  if (!finished_) throw Error("No finished document");
  if (open) open(fileName_);
}

int Pages::BeginPage(int position) {
  RequireDocument();
  CloseWhatIsOpen();

  const int count = GetPages() + 1;
  position_ = position <= 0 || position > count ? count : position;
  MakeRoom(document_.pages, settings_.memoryStep);
  MakeRoom(document_.order, settings_.memoryStep);
  document_.openPage = document_.pages.size();
  document_.pages.emplace_back().view = settings_.view;
  document_.order.insert(document_.order.begin() + (position_ - 1), document_.openPage);

  document_.pageBuffer.clear();
  document_.target = Target::Page;
  pageOpen_ = true;
  annotations_.AtPageBegin();
  graphics_.AtPageStart();

  ResetCursor();
  TextState& text = document_.state.text;
  text.charSpacing = 0;
  text.wordSpacing = 0;
  text.horizontalScaling = 100;
  text.lineFactor = 1;
  text.mode = 0;  // what the format begins a page with
  return position_;
}

void Pages::EndPage() {
  if (onPage_) return EndOnPage();
  if (!pageOpen_) throw Error("No page is open");
  graphics_.AtPageEnd();
  document_.target = Target::None;
  pageOpen_ = false;

  document_.pageBuffer.insert(0, ContentsPrefix());
  const std::string additions = annotations_.AtPageEnd();
  const int contents = WriteContents();
  document_.out.ReserveObject();

  Page& page = OpenPage();
  page.contents.push_back(contents);
  page.width = document_.pageWidth;
  page.height = document_.pageHeight;
  page.toPage = document_.state.toPage;
  const std::string box =
      "[0 0 " + document_.Points(page.width) + " " + document_.Points(page.height) + "]\r";
  page.dictionary = "/Parent 1 0 R\r/MediaBox " + box + "/CropBox " + box + "/BleedBox " + box +
                    "/Resources 2 0 R " + additions;
}

// Turns the page so that Y grows downwards, and keeps drawing inside the margins when asked to.
std::string Pages::ContentsPrefix() const {
  const double left = settings_.left, top = settings_.top;
  const double width = document_.pageWidth - left - settings_.right;
  const double height = document_.pageHeight - top - settings_.bottom;
  std::string prefix = "1 0 0 -1 0 " + document_.Points(document_.pageHeight) + " cm \r";
  if (settings_.clip)
    prefix += document_.Points(left) + " " + document_.Points(top) + " " + document_.Points(width) +
              " " + document_.Points(height) + " re W n\r";
  return prefix;
}

int Pages::WriteContents() {
  Output& out = document_.out;
  const int number = out.BeginNewObject();
  out.WriteStream(StreamClass::Contents, "<< ", document_.pageBuffer);
  out.EndObject();
  document_.pageBuffer.clear();
  return number;
}

std::size_t Pages::IndexAt(int position) const {
  if (position < 1 || position > GetPages())
    throw Error("There is no page " + std::to_string(position));
  return document_.order[static_cast<std::size_t>(position - 1)];
}

// Streams of one page are read as one, so that the page is turned and clipped already.
void Pages::BeginOnPage(int position) {
  RequireDocument();
  const std::size_t index = IndexAt(position);
  CloseWhatIsOpen();
  document_.openPage = index;
  position_ = position;
  nextWidth_ = std::exchange(document_.pageWidth, OpenPage().width);
  nextHeight_ = std::exchange(document_.pageHeight, OpenPage().height);

  document_.pageBuffer.clear();
  document_.target = Target::Page;
  pageOpen_ = onPage_ = true;
  annotations_.AtPageBegin();
  graphics_.ReapplyState();
  ReapplyTextState();
  ResetCursor();
  document_.state.toPage = OpenPage().toPage;
}

// The page was left with its own spacings, texts are measured with those in force.
void Pages::ReapplyTextState() {
  const TextState& text = document_.state.text;
  texts_.SetCharSpacing(text.charSpacing);
  texts_.SetWordSpacing(text.wordSpacing);
  texts_.SetTextHorizontalScaling(text.horizontalScaling);
  texts_.SetTextMode(text.mode);
}

void Pages::EndOnPage() {
  if (!onPage_) throw Error("No page is open again");
  graphics_.CloseTargets();
  document_.target = Target::None;
  pageOpen_ = onPage_ = false;
  document_.pageWidth = nextWidth_;
  document_.pageHeight = nextHeight_;
  OpenPage().dictionary += annotations_.AtPageEnd();
  OpenPage().contents.push_back(WriteContents());
  OpenPage().toPage = document_.state.toPage;
}

void Pages::SwapPages(int a, int b) {
  IndexAt(a);
  IndexAt(b);
  std::swap(document_.order[static_cast<std::size_t>(a - 1)],
            document_.order[static_cast<std::size_t>(b - 1)]);
  if (position_ == a)
    position_ = b;
  else if (position_ == b)
    position_ = a;
}

void Pages::CloseWhatIsOpen() {
  graphics_.CloseTargets();
  if (pageOpen_) EndPage();
}

double Pages::GetPageHeight(bool userUnits) const {
  return userUnits ? document_.ToUnits(document_.pageHeight) : document_.pageHeight;
}

double Pages::GetPageWidth(bool userUnits) const {
  return userUnits ? document_.ToUnits(document_.pageWidth) : document_.pageWidth;
}

void Pages::ResetCursor() {
  document_.state.x = 0;
  document_.state.y = 0;
  document_.state.toPage = {};
}

}  // namespace lm::pdf
