// Whether a document on the disk is whole.
#pragma once

#include <filesystem>

namespace lm {

// False for a file that is missing, cannot be read, or does not end as a PDF does: what a power cut
// or a full disk left of one.
bool IsWholePdf(const std::filesystem::path& path);

}  // namespace lm
