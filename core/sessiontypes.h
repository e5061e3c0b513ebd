// Session types: the code that SESS_TYPE stores, and what each means to lists, rates and forms.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "core/numbers.h"
#include "core/options.h"

namespace lm {

constexpr int kTypePrivate = 0;
constexpr int kTypeNormal = 1;
constexpr int kTypeOohStandard = 2;
constexpr int kTypeOohDeputising = 3;
constexpr int kTypeUnpensioned = 4;

// The share of an NHS Normal fee that is pensionable: 0.9 as a Single has it.
constexpr Single kPensionableShare = 0.899999976158142f;

struct SessionType {
  int code;
  std::string_view caption;       // where retired forms are in use
  std::string_view shortCaption;  // elsewhere; "" is not offered there
  std::string_view forms;         // the pension forms it stands on, "" for none
  std::string_view formsHelp;     // the same told to the user
  Single contributionShare;     // of rate and extras, that the employer's rate is taken of; 0 none
  std::string_view rateColumn;  // of fgPractices
  std::size_t defaultRate;      // item of option 64
  Option colour;
};

// In the order of every list.
constexpr std::array<SessionType, 5> kSessionTypes{{
    {kTypeNormal, "NHS Normal", "NHS Normal", "A,B", "Forms A & B", kPensionableShare,
     "RATE_NORMAL", 0, optColourSessNormal},
    {kTypeOohStandard, "NHS OOH Standard", "NHS OOH", "SOLO", "Form SOLO", 1, "RATE_OOHS", 1,
     optColourSessOOH},
    {kTypeOohDeputising, "NHS OOH Deputising", "", "C,D", "Forms C & D", 0, "RATE_OOHD", 2,
     optColourSessOOH},
    {kTypeUnpensioned, "NHS Unpensioned", "NHS Unpensioned", "",
     "No forms (no pension claim is made)", 0, "RATE_UNPENSIONED", 4, optColourSessUnpensioned},
    {kTypePrivate, "Private", "Private", "", "No forms (not pensioned by the NHS)", 0,
     "RATE_PRIVATE", 3, optColourSessPrivate},
}};

// Null for a code that is no type.
constexpr const SessionType* FindSessionType(int code) {
  for (const SessionType& type : kSessionTypes)
    if (type.code == code) return &type;
  return nullptr;
}

// Whether all five are offered, because retired forms are in use.
inline bool OffersRetiredTypes(const Ledger& ledger) {
  return OptionIsTrue(ledger, optHasRetiredForms);
}
// As the lists show it; "" for a type that they do not offer.
inline std::string_view CaptionOf(const SessionType& type, bool withRetired) {
  return withRetired ? type.caption : type.shortCaption;
}

}  // namespace lm
