#include "shell/pages/comingpages.h"

namespace lm {
namespace {

constexpr PageSpec kToday{
    Page::LMToday,
    "LM Today",
    "lmtoday",
    "mnuViewLMToday",
    "",
    "LM Today will show your coming sessions and what is left to do. It is not available in this "
    "version yet."};

}  // namespace

TodayPage::TodayPage(frmMain& theWindow) : MainPage(theWindow, kToday) {}

}  // namespace lm
