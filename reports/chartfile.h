// Charts as files: pictures of a lying A4 page, on light ground.
#pragma once

#include <filesystem>
#include <string>

#include "core/platform.h"
#include "reports/chartdrawing.h"

namespace lm {

constexpr ChartBox kChartPage{0, 0, 842, 595};  // points
constexpr ChartBox kChartOnPage{30, 26, 782, 543};

std::string ChartSvg(const Chart& chart, const ChartTitles& titles);

// False, with the reason in `error`, when it cannot be written; the file that was there then stays.
bool WriteChartPdf(const Chart& chart, const ChartTitles& titles, ClockPort& clock,
                   const std::filesystem::path& path, std::string& error);

}  // namespace lm
