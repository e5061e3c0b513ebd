// Where the program reaches out to: the product's own website and the two booking services. A build
// may name others: cmake -DLEDGERMINDER_WEBSITE=https://... (docs/dependencies.md).
#pragma once

#include <string_view>

#ifndef LEDGERMINDER_WEBSITE
#define LEDGERMINDER_WEBSITE "https://www.ledgerminder.example"
#endif
#ifndef LEDGERMINDER_GPNETWORKS
#define LEDGERMINDER_GPNETWORKS "https://www.gpnetworks.example"
#endif
#ifndef LEDGERMINDER_NETWORK_LOCUM
#define LEDGERMINDER_NETWORK_LOCUM "https://api.networklocum.example"
#endif

namespace lm {

// Schemes and hosts, without a slash at the end.
constexpr std::string_view kWebsite = LEDGERMINDER_WEBSITE;
constexpr std::string_view kGPnetworks = LEDGERMINDER_GPNETWORKS;
constexpr std::string_view kNetworkLocum = LEDGERMINDER_NETWORK_LOCUM;

constexpr std::string_view kSupportAddress = "support@ledgerminder.example";

}  // namespace lm
