// The booking services that can be asked for sessions. Both answer in the same XML.
#pragma once

#include <string>
#include <string_view>

namespace lm {

struct BookingFeed {
  std::string_view word;  // by which the wizard is opened for it
  std::string_view name;  // as the user knows it
  std::string_view host;  // scheme and host
  std::string_view path;  // ends where the user's id follows
  std::string_view page;  // of the product's website, about this service
};

// The first one for the word ""; null for a word that names none.
const BookingFeed* FindBookingFeed(std::string_view word);

// Where the sessions of a user stand. The id goes in as it is.
std::string AddressOf(const BookingFeed& feed, std::string_view userId);

}  // namespace lm
