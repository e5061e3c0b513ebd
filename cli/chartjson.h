// A chart on the screen, as JSON.
#pragma once

#include "cli/terminal.h"
#include "reports/chartseries.h"

namespace lm {

// {"chart":{"type":0,"group":"Practice","labels":[...],"series":[{"name":"...","values":[...]}]}};
// hours are told in minutes.
Json ChartLine(const Chart& chart);

}  // namespace lm
