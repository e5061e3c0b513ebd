// embed-files OUT.cpp HEADER FUNCTION FOLDER FILE...: writes the source file that holds the files
// which the program places in FOLDER of the program directory; HEADER declares FUNCTION, which
// tells them. The XML of a document template is enciphered and becomes NAME.tmpl; any other file
// goes in as it is. Made of the core and documents/templatecipher.cpp alone, since the rooms hold
// what this writes.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>

#include "core/files.h"
#include "core/text.h"
#include "documents/template.h"

namespace {

namespace fs = std::filesystem;

// The bytes as numbers: compilers limit the length of a text.
void WriteBytes(std::ostream& out, const std::string& array, const std::string& bytes) {
  constexpr std::size_t kOfLine = 24;
  out << "const unsigned char " << array << "[] = {";
  for (std::size_t i = 0; i < bytes.size(); ++i)
    out << (i % kOfLine == 0 ? "\n" : "") << int{static_cast<unsigned char>(bytes[i])} << ',';
  out << "};\n";
}

std::string Quoted(const std::string& text) {
  return '"' + lm::Replace(lm::Replace(text, "\\", "\\\\"), "\"", "\\\"") + '"';
}

// The name and the bytes that ship for a file; empty, after its message, where it cannot be read or
// is no template.
std::optional<std::string> ShippedBytes(fs::path& file) {
  std::string error;
  std::optional<std::string> bytes = lm::ReadFile(file, error);
  if (!bytes) {
    std::cerr << file.string() << ": " << error << '\n';
    return std::nullopt;
  }
  if (file.extension() != ".xml") return bytes;
  std::string enciphered = lm::EncipherTemplate(*bytes);
  if (!lm::DecipherTemplate(enciphered)) {
    std::cerr << file.string() << ": does not end in </template>\n";
    return std::nullopt;
  }
  file.replace_extension(".tmpl");
  return enciphered;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 6) {
    std::cerr << "embed-files OUT.cpp HEADER FUNCTION FOLDER FILE...\n";
    return 2;
  }
  const std::string header = argv[2];
  const std::string function = argv[3];
  const std::string folder = argv[4];
  std::ofstream out(argv[1], std::ios::binary);
  out << "// Written by tools/embed_files.cpp.\n#include " << Quoted(header)
      << "\n\nnamespace lm {\nnamespace {\n\n";
  std::string table;
  for (int i = 5; i < argc; ++i) {
    fs::path file = argv[i];
    const std::optional<std::string> bytes = ShippedBytes(file);
    if (!bytes) return 1;
    const std::string array = "kBytes" + std::to_string(i);
    WriteBytes(out, array, *bytes);
    table += "    {" + Quoted(folder) + ", " + Quoted(file.filename().string()) +
             ", {reinterpret_cast<const char*>(" + array + "), sizeof " + array + "}},\n";
  }
  out << "\nconst ShippedFile kFiles[] = {\n"
      << table << "};\n\n}  // namespace\n\nstd::span<const ShippedFile> " << function
      << "() { return kFiles; }\n\n}  // namespace lm\n";
  return out.flush() ? 0 : 1;
}
