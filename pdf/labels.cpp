// What viewers call the pages.
#include "pdf/annotations.h"
#include "pdf/annots.h"

namespace lm::pdf {
namespace {

constexpr std::string_view kLabelStyles[] = {"", " /S /D", " /S /R", " /S /r", " /S /A", " /S /a"};
constexpr int kNoStart = 65535;

}  // namespace

void Annotations::SetLabel(int kind, std::string_view prefix, int start) {
  RequirePage(document_);
  if (kind < 0 || kind >= static_cast<int>(std::size(kLabelStyles))) return;
  labels_[document_.openPage] = {kind, std::string(prefix), start};
}

// A range begins where its page stands at the end; the format asks for one at the first page.
std::string Annotations::LabelEntries() const {
  if (labels_.empty()) return "";
  const DestinationWriter destinations(document_);
  std::map<int, std::string> ranges = {{0, "<< /S /D >>"}};
  for (const auto& [page, label] : labels_) {
    std::string range = "<<" + std::string(kLabelStyles[label.kind]);
    if (!label.prefix.empty()) range += " /P " + document_.out.Text(label.prefix);
    if (label.start > 0 && label.start < kNoStart) range += " /St " + std::to_string(label.start);
    ranges[destinations.Position({true, page, 0}) - 1] = range + " >>";
  }
  std::string out;
  for (const auto& [position, range] : ranges) out += std::to_string(position) + " " + range + " ";
  return "/PageLabels << /Nums [ " + out + "] >> ";
}

}  // namespace lm::pdf
