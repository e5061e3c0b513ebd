// The XML of the booking services, read into texts. It is hostile until parsed: what it refers to
// is never fetched, and its size is limited.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lm {

// Texts as the feed has them, without what is no text and without white space around them; "" for
// an element that is not there. Line breaks inside are CR LF.
struct FeedPractice {
  std::string name, address0, address1, address2, town, postcode, email, phone;
};

struct FeedSession {
  std::string status, notes, rate;
  FeedPractice practice;
  std::string period, date, startTime, endTime;
};

struct Feed {
  std::optional<std::string> error;  // what the service says went wrong; no sessions then
  std::vector<FeedSession> sessions;
};

// More than these is no list of anybody's bookings.
constexpr std::size_t kMostFeedBytes = std::size_t{1} << 24;
constexpr std::ptrdiff_t kMostFeedTags = 1'000'000;
constexpr std::size_t kMostFeedSessions = 10'000;

// A body as it came, in the encoding that it declares, UTF-8 without one. Nothing when it is no
// whole XML document or beyond the limits. A document type is refused too: it could bring texts
// from elsewhere, and an error page of a web server begins with one.
std::optional<Feed> ReadFeed(std::string_view body);

}  // namespace lm
