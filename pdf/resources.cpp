#include "pdf/resources.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <vector>

#include "pdf/reader/tokens.h"

namespace lm::pdf {
namespace {

// By ResourceKind.
constexpr std::string_view kKeys[] = {"/Font",      "/Properties", "/XObject",
                                      "/ExtGState", "/ColorSpace", "/Pattern"};

// What an operator takes the names in front of it for.
struct NamingOperator {
  std::string_view name;
  ResourceKind kind;
};
constexpr NamingOperator kNamingOperators[] = {
    {"Tf", ResourceKind::Font},       {"BDC", ResourceKind::Properties},
    {"Do", ResourceKind::XObject},    {"gs", ResourceKind::ExtGState},
    {"cs", ResourceKind::ColorSpace}, {"CS", ResourceKind::ColorSpace},
    {"scn", ResourceKind::Pattern},   {"SCN", ResourceKind::Pattern},
};

std::string Keyed(ResourceKind kind, std::string_view entries) {
  if (entries.empty()) return "";
  std::string text(kKeys[static_cast<std::size_t>(kind)]);
  return text.append(" << ").append(entries) += ">>\r";
}

}  // namespace

void Resources::Add(ResourceKind kind, std::string_view name, std::string_view value) {
  Names& names = kinds_[static_cast<std::size_t>(kind)];
  const std::size_t begin = names.entries.size();
  names.entries.append(name).append(" ").append(value) += ' ';
  names.places.emplace(name, Place{begin, names.entries.size() - begin});
}

bool Resources::Has(ResourceKind kind, std::string_view name) const {
  return Of(kind).places.contains(std::string(name));
}

const std::string& Resources::Entries(ResourceKind kind) const { return Of(kind).entries; }

std::string Resources::Dictionary(ResourceKind kind) const { return Keyed(kind, Entries(kind)); }

std::string Resources::UsedBy(std::string_view operators) const {
  std::array<std::set<std::string_view>, std::size(kKeys)> used;
  std::vector<std::string_view> operands;
  Tokens tokens(operators);
  for (Token token = tokens.Next(); token.kind != TokenKind::End; token = tokens.Next()) {
    if (token.kind == TokenKind::Name) operands.push_back(token.text);
    if (token.kind != TokenKind::Keyword) continue;
    const auto* naming = std::ranges::find(kNamingOperators, token.text, &NamingOperator::name);
    if (naming != std::end(kNamingOperators))
      used[static_cast<std::size_t>(naming->kind)].insert(operands.begin(), operands.end());
    operands.clear();
  }

  std::string text = "<< /ProcSet " + std::to_string(kProcedureSets) + " 0 R ";
  for (std::size_t kind = 0; kind < used.size(); ++kind) {
    std::string entries;
    for (const std::string_view name : used[kind]) {
      const auto known = kinds_[kind].places.find(std::string(name));
      if (known == kinds_[kind].places.end()) continue;
      entries.append(kinds_[kind].entries, known->second.begin, known->second.length);
    }
    text += Keyed(static_cast<ResourceKind>(kind), entries);
  }
  return text + ">>";
}

}  // namespace lm::pdf
