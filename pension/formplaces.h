// Short names for the rows of the coordinate tables.
#pragma once

#include "pension/formcoordinates.h"

namespace lm::places {

constexpr std::string_view kDateBoxes = "00 00 0000";
constexpr std::string_view kInsuranceBoxes = "000000000";

constexpr FormPlace Text(int page, FormItem item, double x, double y, double size) {
  return {.page = page, .item = item, .kind = PlaceKind::Text, .x = x, .y = y, .size = size};
}

constexpr FormPlace Right(int page, FormItem item, double x, double y, double size) {
  return {.page = page, .item = item, .kind = PlaceKind::RightText, .x = x, .y = y, .size = size};
}

constexpr FormPlace Boxes(int page, FormItem item, double x, double y, double size, double pitch,
                          std::string_view boxes) {
  return {.page = page,
          .item = item,
          .kind = PlaceKind::DigitBoxes,
          .x = x,
          .y = y,
          .size = size,
          .pitch = pitch,
          .boxes = boxes};
}

constexpr FormPlace Money(int page, FormItem item, double x, double penceX, double y, double size) {
  return {.page = page,
          .item = item,
          .kind = PlaceKind::PoundsAndPence,
          .x = x,
          .y = y,
          .size = size,
          .penceX = penceX};
}

constexpr FormPlace Tick(int page, double tier, double x, double y, double size) {
  return {.page = page,
          .item = FormItem::Tier,
          .kind = PlaceKind::Tick,
          .x = x,
          .y = y,
          .size = size,
          .tier = tier};
}

constexpr FormPlace Picture(int page, FormItem item, double x, double y, double width,
                            double height) {
  return {.page = page,
          .item = item,
          .kind = PlaceKind::Picture,
          .x = x,
          .y = y,
          .width = width,
          .height = height};
}

constexpr FormPlace Field(int page, FormItem item, double x, double y, double width, double height,
                          double size) {
  return {.page = page,
          .item = item,
          .kind = PlaceKind::Field,
          .x = x,
          .y = y,
          .size = size,
          .width = width,
          .height = height};
}

// The item on so many lines below each other.
constexpr FormPlace Down(FormPlace place, double step, int rows) {
  place.step = step;
  place.rows = rows;
  return place;
}

constexpr FormPlace IfLong(LongText longText, FormPlace place) {
  place.longText = longText;
  return place;
}

}  // namespace lm::places

namespace lm {

extern const std::span<const FormPlace> kFormA202404, kFormB202404, kFormSolo202404;
extern const std::span<const FormPlace> kFormA202304, kFormB202304, kFormSolo202304;
extern const std::span<const FormPlace> kFormA202210, kFormB202210, kFormSolo202210;

}  // namespace lm
