#include "shell/nativeoutlook.h"

#if !defined(_WIN32)

namespace lm::native {

std::unique_ptr<OutlookPort> MakeOutlook() { return nullptr; }

}  // namespace lm::native

#endif
