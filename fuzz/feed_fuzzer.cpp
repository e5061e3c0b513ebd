// Feeds the reader of booking feeds, and what is made of the sessions that it read, without a
// window. Each session that is offered has times, a date and a rate that the records can hold.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "connections/clashes.h"
#include "connections/feedimport.h"
#include "core/numbers.h"
#include "tests/support/scripted_platform.h"

namespace {

bool IsTimeOrEmpty(const std::string& text) { return text.empty() || lm::CellTime(text); }

void Check(const lm::OfferedSession& session) {
  const bool dated = session.date.empty() || lm::CellDate(session.date);
  if (!dated || !IsTimeOrEmpty(session.startTime) || !IsTimeOrEmpty(session.endTime) ||
      !lm::IsNumeric(session.rate) || lm::Val(session.rate) < 0)
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto feed = lm::ReadFeed({reinterpret_cast<const char*>(data), size});
  if (!feed) return 0;
  static lm::test::TestLedger test;
  lm::Ledger& ledger = test.ledger;
  lm::FeedOffer offer = lm::OfferOf(ledger, feed->sessions, {true, true});
  std::ranges::for_each(offer.sessions, Check);
  std::vector<std::string> actions(offer.practices.size(), std::string(lm::kCreatePractice));
  for (std::size_t i = 0; i < actions.size(); ++i)
    if (offer.practices[i].practice.name.empty()) actions[i] = lm::kIgnorePractice;
  lm::ApplyPractices(ledger, offer, actions);
  lm::CreateSessions(ledger, offer.sessions, "note");
  const lm::Clashes clashes(ledger);
  for (const lm::OfferedSession& session : offer.sessions)
    if (const auto stretch =
            lm::StretchOf(session.date, session.startTime,
                          lm::EndDateOf(session.date, session.period), session.endTime))
      if (!clashes.With(*stretch)) std::abort();  // with itself
  ledger.fgSessions.ClearData();
  ledger.fgPractices.ClearData();
  ledger.history.Clear();
  return 0;
}
