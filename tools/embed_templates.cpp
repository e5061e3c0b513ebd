// embed-templates OUT.cpp FILE...: writes the source file that holds the shipped templates. The XML
// of a template is enciphered and becomes NAME.tmpl; any other file, the pictures, goes in as it
// is. Made of the core and documents/templatecipher.cpp alone, since `documents` holds what this
// writes.

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
void WriteBytes(std::ostream& out, int number, const std::string& bytes) {
  constexpr std::size_t kOfLine = 24;
  out << "const unsigned char kBytes" << number << "[] = {";
  for (std::size_t i = 0; i < bytes.size(); ++i)
    out << (i % kOfLine == 0 ? "\n" : "") << int{static_cast<unsigned char>(bytes[i])} << ',';
  out << "};\n";
}

std::string Quoted(const std::string& text) {
  return '"' + lm::Replace(lm::Replace(text, "\\", "\\\\"), "\"", "\\\"") + '"';
}

// The name and the bytes that ship for a file; empty, after its message, where it is no template.
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
  if (argc < 3) {
    std::cerr << "embed-templates OUT.cpp FILE...\n";
    return 2;
  }
  std::ofstream out(argv[1], std::ios::binary);
  out << "// Written by tools/embed_templates.cpp.\n#include \"documents/shippedtemplates.h\"\n\n"
         "namespace lm {\nnamespace {\n\n";
  std::string table;
  for (int i = 2; i < argc; ++i) {
    fs::path file = argv[i];
    const std::optional<std::string> bytes = ShippedBytes(file);
    if (!bytes) return 1;
    WriteBytes(out, i, *bytes);
    const std::string array = "kBytes" + std::to_string(i);
    table += "    {\"Invoice Templates\", " + Quoted(file.filename().string()) +
             ", {reinterpret_cast<const char*>(" + array + "), sizeof " + array + "}},\n";
  }
  out << "\nconst ShippedFile kFiles[] = {\n"
      << table
      << "};\n\n}  // namespace\n\nstd::span<const ShippedFile> ShippedTemplates() { return "
         "kFiles; }\n"
         "\n}  // namespace lm\n";
  return out.flush() ? 0 : 1;
}
