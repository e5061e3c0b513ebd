// What a feed of a booking service comes to: the sessions that are offered to the user, the
// practices that he must tell first, and the records that are made of both.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "connections/feedparser.h"
#include "core/ledger.h"

namespace lm {

struct WantedStatuses {
  bool accepted = false;
  bool confirmed = false;
};

// Dates, times and money as cells have them; "" for what the feed lacks or what cannot be read.
struct OfferedSession {
  std::string practice;     // ID; "" until the user has told which it is
  std::string practiceKey;  // what the feed says of it
  std::string date, period;
  std::string startTime, endTime;
  bool startSuggested = false, endSuggested = false;  // by the period, not by the feed
  std::string rate, status, notes;
};

struct UnmatchedPractice {
  FeedPractice practice;
  std::string key;
};

struct FeedOffer {
  std::vector<OfferedSession> sessions;
  std::vector<UnmatchedPractice> practices;  // each once
};

// Name and first line of the address joined by ", ": what GPNET_MATCH remembers.
std::string KeyOf(const FeedPractice& practice);

// The pounds that a rate text tells, "0" for none, and whether they are for an hour.
struct FeedRate {
  std::string pounds;
  bool hourly = false;
};
FeedRate ReadFeedRate(std::string_view text);

// The sessions of the wanted statuses, and of none, with their practices looked up.
FeedOffer OfferOf(const Ledger& ledger, const std::vector<FeedSession>& sessions,
                  WantedStatuses wanted);

// What becomes of an unmatched practice; else the ID of the practice that it is.
constexpr std::string_view kIgnorePractice = "-2";
constexpr std::string_view kCreatePractice = "-1";

enum class PracticesApplied { All, Nameless, Some };

// Carries out the actions, one for each unmatched practice of the offer, as one change, gives the
// sessions their practices and drops those of ignored ones. Nameless: nothing was done, for a
// practice without a name was to be created. Some: a practice that was chosen is not there; its
// sessions are dropped.
PracticesApplied ApplyPractices(Ledger& ledger, FeedOffer& offer,
                                const std::vector<std::string>& actions);

// Takes off what is a session already, by practice, date and time.
void DropKnownSessions(const Ledger& ledger, std::vector<OfferedSession>& sessions);

// The day on which it ends, as a cell: "" for the day on which it starts, or for no date.
std::string EndDateOf(std::string_view date, std::string_view period);

// Records of the sessions, as one change, with the note above their own. Returns how many of them
// were not made, because their date cannot be read.
std::size_t CreateSessions(Ledger& ledger, const std::vector<OfferedSession>& sessions,
                           std::string_view defaultNote);

}  // namespace lm
