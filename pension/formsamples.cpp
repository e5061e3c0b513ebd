#include "pension/formsamples.h"

#include <algorithm>

namespace lm {
namespace {

struct ItemSample {
  FormItem item;
  std::string_view text;
};

constexpr ItemSample kSamples[] = {
    {FormItem::MonthLong, "September"},
    {FormItem::YearLong, "9999"},
    {FormItem::TodayInWords, "99 Mmm 9999"},
    {FormItem::PracticeCode, "A99999"},
    {FormItem::PracticeName, "A Practice's Name"},
    {FormItem::PracticeFirstDay, "99/99/9999"},
    {FormItem::PracticeLastDay, "99/99/9999"},
    {FormItem::PracticeReceived, "99/99/9999"},
    {FormItem::SoloD, "99.9"},
};

constexpr std::string_view kMoney = "99,999.99";

std::string_view SampleOfText(FormItem item) {
  const auto* found = std::ranges::find(kSamples, item, &ItemSample::item);
  return found == std::end(kSamples) ? "" : found->text;
}

}  // namespace

std::string FormPlaceSample(const FormPlace& place) {
  std::string boxes(place.boxes);
  switch (place.kind) {
    case PlaceKind::DigitBoxes:
      std::ranges::replace(boxes, '0', '9');
      return boxes;
    case PlaceKind::RightText:
    case PlaceKind::PoundsAndPence:
      return std::string(kMoney);
    case PlaceKind::Tick:
      return "X";
    default:
      return std::string(HasFixedLength(place) ? SampleOfText(place.item)
                                               : FormItemLabel(place.item));
  }
}

bool HasFixedLength(const FormPlace& place) { return !SampleOfText(place.item).empty(); }

}  // namespace lm
