#include "core/keys.h"

#include "core/text.h"

namespace lm {
namespace {

std::string OptionsKey() {
  return std::string("tq7") + ToUpper("harbour") + '\x23' + "Lantern" + ToLower("WEIR") + "09";
}

std::string DefaultDataKey() {
  return ToLower("Kestrel") + std::string("58_") + ToUpper("meadow") + '\x7E' + "Ferry" + '\x2B' +
         "31c";
}

}  // namespace

std::string TableKey(std::string_view table, std::string_view password) {
  if (EqualsIgnoreCase(table, "fgOptions")) return OptionsKey();
  return password.empty() ? DefaultDataKey() : std::string(password);
}

std::string HeaderKey() { return "Rook4Tidal!"; }

std::string TemplateKey() {
  return std::string("Plumb") + '\x2D' + ToUpper("quarry") + "66" + ToLower("SLATE") + '\x40' +
         "vz";
}

std::string SecurityLogKey() {
  return ToUpper("gorse") + std::string("-12-") + ToLower("BEACON") + '\x5E' + "Hollow7";
}

}  // namespace lm
