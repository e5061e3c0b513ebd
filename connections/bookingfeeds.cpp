#include "connections/bookingfeeds.h"

#include "core/hosts.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr BookingFeed kFeeds[] = {
    {"GPnetworks", "GPnetworks", kGPnetworks, "/lm/?uid=", "/GPnetworks"},
    {"NetworkLocum", "Network Locum", kNetworkLocum,
     "/0.1/lm/import-sessions/?apikey=6f1d2c3e-8a4b-4c7d-9e21-5b0a7c9d3e14&uid=", "/NetworkLocum"},
};

}  // namespace

const BookingFeed* FindBookingFeed(std::string_view word) {
  if (word.empty()) return &kFeeds[0];
  for (const BookingFeed& feed : kFeeds)
    if (EqualsIgnoreCase(feed.word, word)) return &feed;
  return nullptr;
}

std::string AddressOf(const BookingFeed& feed, std::string_view userId) {
  return std::string(feed.host).append(feed.path).append(userId);
}

}  // namespace lm
