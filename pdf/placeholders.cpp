#include "pdf/placeholders.h"

#include "core/numbers.h"
#include "core/text.h"
#include "pdf/scope.h"
#include "pdf/textline.h"

namespace lm::pdf {

void PlaceHolders::Draw(std::string_view name, double x, double y, double width, int flags) {
  if (document_.target == Target::None) return;
  lines_.EnsureFont();
  Place place{std::string(name), document_.out.ReserveObject(), document_.ToPoints(width), flags};
  if (document_.openPage < document_.pages.size()) place.page = document_.openPage;
  place.state = document_.state;
  const std::string resource = document_.Name("PH_" + std::to_string(place.object));
  document_.resources.Add(ResourceKind::XObject, resource, place.object);
  document_.Draw("q 1 0 0 1 " + document_.Units(x) + " " + document_.Units(y) + " cm " + resource +
                 " Do Q\n");

  const double left = document_.ToPoints(x), bottom = document_.ToPoints(y) - lines_.Descent();
  document_.RememberBox(left, bottom - lines_.LineHeight(), left + place.width, bottom);
  document_.state.x = left + place.width;
  document_.state.y = document_.ToPoints(y);
  places_.push_back(std::move(place));
}

void PlaceHolders::Set(std::string_view name, std::string_view text) {
  texts_.insert_or_assign(std::string(name), std::string(text));
}

void PlaceHolders::WriteAtEnd(int pageCount) {
  std::vector<int> numbers(document_.pages.size(), 0);
  for (std::size_t position = 0; position < document_.order.size(); ++position)
    if (document_.order[position] < numbers.size())
      numbers[document_.order[position]] = static_cast<int>(position) + 1;
  for (const Place& place : places_) {
    const int number = place.page < numbers.size() ? numbers[place.page] : 0;
    Write(place, FinalText(place.name, PlainText(pageCount), number > 0 ? PlainText(number) : ""));
  }
  places_.clear();
}

std::string PlaceHolders::FinalText(const std::string& name, const std::string& pageCount,
                                    const std::string& pageNumber) const {
  const auto set = texts_.find(name);
  const bool builtIn = name == kPages || name == kPage;
  const std::string text = set != texts_.end() ? set->second : builtIn ? name : std::string();
  return Replace(Replace(text, kPages, pageCount), kPage, pageNumber);
}

// The form's origin is the text's; it is drawn on a page that has been turned top down.
void PlaceHolders::Write(const Place& place, std::string_view text) {
  const Restored<DrawState> restored(document_.state);
  document_.state = place.state;
  const ComposedLine line =
      lines_.Compose({.text = text, .available = place.width, .flags = place.flags});
  const double margin = document_.state.text.size;  // for what letters reach beyond their widths
  document_.out.BeginObject(place.object);
  document_.out.WriteStream(
      StreamClass::Contents,
      "<< /Type /XObject /Subtype /Form /FormType 1 /BBox [" +
          document_.Points(line.box.left - margin) + " " + document_.Points(line.box.top - margin) +
          " " + document_.Points(line.box.right + margin) + " " +
          document_.Points(line.box.bottom + margin) + "] /Matrix [1 0 0 1 0 0] /Resources " +
          document_.resources.UsedBy(line.operators) + " ",
      line.operators);
  document_.out.EndObject();
}

}  // namespace lm::pdf
