#include "pdf/data/srgb.h"

namespace lm::pdf {
namespace {

constexpr unsigned char kProfile[] = {
#include "pdf/data/srgb.inc"
};

}  // namespace

std::string_view SrgbProfile() {
  return {reinterpret_cast<const char*>(kProfile), sizeof kProfile};
}

}  // namespace lm::pdf
