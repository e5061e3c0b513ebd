// The cipher alone: the tool that enciphers the shipped templates during the build is made of this
// file and the core.
#include "core/clsRC4.h"
#include "core/keys.h"
#include "documents/template.h"

namespace lm {

std::string EncipherTemplate(std::string_view xml) {
  return clsRC4().EncryptString(xml.substr(0, xml.find_last_not_of(" \t\r\n") + 1), TemplateKey());
}

std::optional<std::string> DecipherTemplate(std::string_view bytes) {
  std::string xml = clsRC4().DecryptString(bytes, TemplateKey());
  if (!xml.ends_with("</template>")) return std::nullopt;
  return xml;
}

}  // namespace lm
