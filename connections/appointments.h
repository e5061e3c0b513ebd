// What the ways in share: whose practice an appointment is, whether its session is known, and the
// sessions that are made of appointments.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/dates.h"
#include "core/ledger.h"
#include "core/options.h"
#include "core/sessiontypes.h"

namespace lm {

constexpr std::string_view kNoPractice = "-1";

// Practices by what an appointment says of its place: the name or the first line of the address,
// ignoring case. Of two practices that answer to a text the one in the higher row is it.
class PracticesByPlace {
 public:
  explicit PracticesByPlace(const Ledger& ledger);
  // The practice's ID; kNoPractice when none answers to the text.
  std::string IdOf(std::string_view place) const;

 private:
  std::unordered_map<std::string, std::string> ids_;
};

// Sessions by practice, day and time of their start, as the texts of the cells have them.
class KnownSessions {
 public:
  explicit KnownSessions(const Ledger& ledger);
  bool Has(std::string_view practiceId, Date start) const;
  bool Has(std::string_view practiceId, std::string_view date, std::string_view time) const;
  bool Add(std::string_view practiceId, Date start);  // false when it is known already

 private:
  std::unordered_set<std::string> keys_;
};

struct SessionSettings {
  int type = kTypeNormal;
  std::string rate = "0";
};
// What the lines of a description say of its session: "Rate: 95", "Private". Nothing for an empty
// one.
std::optional<SessionSettings> SettingsOf(std::string_view description);

struct AppointmentSession {
  Date start, end;
  std::string practice;                     // ID
  std::optional<SessionSettings> settings;  // none: neither rate nor contribution
};

// A session for each, as one change. `noteOption` is the option that holds their private note.
void CreateSessions(Ledger& ledger, const std::vector<AppointmentSession>& sessions,
                    int noteOption);

}  // namespace lm
