#include "records/batchpreview.h"

#include <cmath>

#include "core/format.h"
#include "core/platform.h"
#include "core/pounds.h"
#include "core/text.h"

namespace lm {

BatchPreview::BatchPreview(const Ledger& ledger)
    : ledger_(ledger), today_(std::floor(ledger.platform.clock.Now())) {}

void BatchPreview::Add(int session, Currency pounds) {
  const Grid& sessions = ledger_.fgSessions;
  ++sessions_;
  pounds_ += pounds;
  withoutFee_ += PoundsOf(sessions.TextMatrix(session, "RATE")) == 0;
  const auto day = CellDate(sessions.TextMatrix(session, "SDATE"));
  inFuture_ += day && *day > today_;
}

std::string BatchPreview::Sum() const {
  return Counted(sessions_, "session", "sessions") + ", " + std::string("£"_w) +
         Format(pounds_.ToText(), "#,##0.00");
}

std::string BatchPreview::Cautions() const {
  std::string text;
  if (withoutFee_ > 0)
    text += " " + Counted(withoutFee_, "session has", "sessions have") + " no fee.";
  if (inFuture_ > 0)
    text += " " + Counted(inFuture_, "session lies", "sessions lie") + " in the future.";
  return text;
}

}  // namespace lm
