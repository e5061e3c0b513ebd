// Which section of the user guide speaks of a window, or of a page of the main window.
#pragma once

#include <span>
#include <string_view>

namespace lm {

struct GuideTopic {
  std::string_view place;    // a window's name, or a page's caption
  std::string_view heading;  // as links in the guide write it: "general-expenses"
};

std::span<const GuideTopic> GuideTopics();
// "", the top of the guide, for a place that it does not know.
std::string_view GuideHeading(std::string_view place);

}  // namespace lm
