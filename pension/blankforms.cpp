#include "pension/blankforms.h"

#include <cmath>

#include "core/files.h"
#include "core/format.h"
#include "core/platform.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/import.h"
#include "pension/blankproof.h"
#include "pension/shippedforms.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr double kPointsOfMillimetre = 72 / 25.4;
constexpr double kWidth = 210, kHeight = 297;  // of A4, in millimetres
constexpr double kTolerance = 1;               // paper of office programs is rounded to points

bool IsNear(double length, double wanted) { return std::abs(length - wanted) <= kTolerance; }

void CheckPageSize(clsPDFCreator& reader, const std::string& file, int page,
                   std::vector<std::string>& faults) {
  double width = 0;
  double height = 0;
  if (!reader.GetImportSize(file, page, width, height)) {
    faults.push_back("page " + std::to_string(page) + " cannot be read");
    return;
  }
  width /= kPointsOfMillimetre;
  height /= kPointsOfMillimetre;
  if (IsNear(width, kWidth) && IsNear(height, kHeight)) return;
  faults.push_back("page " + std::to_string(page) + " is " + Format(width, "0") + " x " +
                   Format(height, "0") + " mm and not A4");
}

}  // namespace

BlankFormReport CheckBlankForm(Ledger& ledger, const FormBlank& blank) {
  BlankFormReport report;
  const fs::path folder = ledger.File(kBlankFolder);
  const std::string file = PathText(folder / blank.file);
  const fs::path proof = folder / ("Proof " + std::string(blank.file));
  std::error_code ignored;
  fs::remove(proof, ignored);
  if (!MayExist(folder / blank.file)) {
    report.faults.push_back("is not there");
    return report;
  }
  clsPDFCreator reader(ledger.platform.clock);
  pdf::FileInfo info;
  if (reader.GetInfo(file, info) == 0) {
    report.faults.push_back("cannot be read: " + reader.ErrDescription());
    return report;
  }
  report.isStandIn = info.subject == kStandInSubject;
  if (info.pages != blank.pages)
    report.faults.push_back("has " + std::to_string(info.pages) + " pages and not " +
                            std::to_string(blank.pages));
  for (int page = 1; page <= info.pages; ++page) CheckPageSize(reader, file, page, report.faults);
  const std::string error = WriteBlankProof(ledger, blank, info.pages, proof);
  if (error.empty())
    report.proof = proof;
  else
    report.faults.push_back(error);
  return report;
}

}  // namespace lm
