// The template commands: for people who make document templates of their own.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace lm {

// words: "encipher IN OUT", "decipher IN OUT" (an OUT of "-" is `output`) or "check FILE", which
// takes the XML or the enciphered file and writes a line for each finding and one with their count.
// A picture is looked for in the program directory and beside FILE. Reasons of a failure go to
// `errors`. Returns the exit status: 0, 1 when something failed or is wrong with the template, 2
// for other words.
int RunTemplateCommand(const std::vector<std::string>& words,
                       const std::filesystem::path& programDirectory, std::ostream& output,
                       std::ostream& errors);

}  // namespace lm
