#include "pdf/annotations.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/text.h"
#include "pdf/annots.h"
#include "pdf/error.h"
#include "pdf/pdfa.h"

namespace lm::pdf {
namespace {

enum class Action { Address, OtherDocument, Reference, Script, Layer, Bookmark, Page };

struct TargetKind {
  std::string_view prefix;
  Action action;
};
constexpr TargetKind kTargetKinds[] = {
    {"http:", Action::Address},  {"https:", Action::Address},      {"mailto:", Action::Address},
    {"ref:", Action::Reference}, {"file:", Action::OtherDocument}, {"script:", Action::Script},
    {"layer:", Action::Layer},   {"bookmark:", Action::Bookmark},  {"page:", Action::Page}};

const TargetKind& FindTarget(std::string_view target) {
  const auto* found =
      std::find_if(std::begin(kTargetKinds), std::end(kTargetKinds), [&](const TargetKind& kind) {
        return EqualsIgnoreCase(target.substr(0, kind.prefix.size()), kind.prefix);
      });
  if (found == std::end(kTargetKinds)) throw Error("Unknown target " + std::string(target));
  return *found;
}

constexpr std::string_view kHighlights[] = {" /H /N", " /H /I", " /H /O", " /H /P"};

struct LayerCommand {
  std::string_view word;
  std::string_view before, after;  // of "ocgArray[i].state", the new state
};
constexpr LayerCommand kLayerCommands[] = {
    {"ON", "true", ""}, {"OFF", "false", ""}, {"TOGGLE", "!", "ocgArray[i].state"}};

// Addresses are ASCII: blanks and what is beyond stand as the "%" codes of their UTF-8.
std::string EncodedAddress(std::string_view address) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string out;
  for (const char c : ToUtf8(address)) {
    const unsigned code = static_cast<unsigned char>(c);
    if (code > 0x20 && code < 0x7F)
      out += c;
    else
      out.append("%").append(1, kDigits[code >> 4]).append(1, kDigits[code & 15]);
  }
  return out;
}

// As the format writes file names, parted by "/", without the two slashes of an address; a drive
// stands as a folder: "/C/terms.pdf".
std::string FileName(std::string_view target) {
  std::string name = Replace(target, "\\", "/");
  if (name.starts_with("///")) name.erase(0, 2);
  const std::size_t drive = name.starts_with("/") ? 1 : 0;
  if (name.find(":/", drive) == drive + 1)
    return "/" + name.substr(drive, 1) + name.substr(drive + 2);
  return name;
}

std::string ScriptText(std::string_view text) {
  std::string out = Replace(Replace(text, "\\", "\\\\"), "'", "\\'");
  return Replace(Replace(out, "\r", "\\r"), "\n", "\\n");
}

std::string LayerLoopBody(const LayerCommand& command, std::string_view names) {
  std::string out;
  for (const std::string_view part : Split(names, ',')) {
    const std::string_view name = Trim(part);
    if (name.empty()) continue;
    out += "if (ocgArray[i].name == '" + ScriptText(name) + "') { ocgArray[i].state = ";
    out.append(command.before).append(command.after) += "; };\r";
  }
  return out;
}

// "ON(A,B)OFF(C)" as a script. Throws Error for anything else, and when no layer is named.
std::string LayerScript(std::string_view commands) {
  std::string body;
  for (commands = Trim(commands); !commands.empty(); commands = Trim(commands)) {
    const std::size_t open = commands.find('('), close = commands.find(')');
    const std::string_view word = Trim(commands.substr(0, open));
    const auto* found = std::find_if(
        std::begin(kLayerCommands), std::end(kLayerCommands),
        [&](const LayerCommand& command) { return EqualsIgnoreCase(command.word, word); });
    if (found == std::end(kLayerCommands) || close == std::string_view::npos || close < open)
      throw Error("Unknown command for layers");
    body += LayerLoopBody(*found, commands.substr(open + 1, close - open - 1));
    commands.remove_prefix(close + 1);
  }
  if (body.empty()) throw Error("No layer is named");
  return "var ocgArray = this.getOCGs();\rfor (var i=0; i < ocgArray.length; i++) {\r" + body + "}";
}

}  // namespace

void Annotations::LinkTo(std::string_view target, double borderWidth, int highlight) {
  RequirePage(document_);
  const LastBox& last = document_.lastBox;
  const PageBox box = BoxOnPage(document_, last.left, last.top, last.right, last.bottom);
  std::string begin = "<< /Type /Annot /Subtype /Link /Rect [" + box.Text(document_) + "] ";
  begin += borderWidth > 0 ? "/Border [ 0 0 " + document_.Units(borderWidth) + "]\r"
                           : "/Border [ 0 0 0] ";
  if (highlight >= 0 && highlight < static_cast<int>(std::size(kHighlights)))
    begin += kHighlights[highlight];
  if (document_.pdfA) begin += " /F 4";  // every annotation is printed
  WriteLink(begin + " ", target);
}

void Annotations::WriteLink(const std::string& begin, std::string_view target) {
  const TargetKind& kind = FindTarget(target);
  const std::string_view rest = target.substr(kind.prefix.size());
  if (rest.empty()) throw Error("The link leads nowhere");
  Output& out = document_.out;

  if (kind.action == Action::Bookmark || kind.action == Action::Page) {
    const Destination destination =
        kind.action == Action::Page
            ? ParseDestination(document_, rest)
            : bookmarks_.Of(rest == "@" ? bookmarks_.Count() : ValInt(rest));
    pendingLinks_.push_back({out.ReserveObject(), begin, destination});
    AddToPage(document_, pendingLinks_.back().object);
    return;
  }

  std::string script;
  if (kind.action == Action::Script || kind.action == Action::Layer)
    RefuseInPdfA(document_, "scripts");
  if (kind.action == Action::Script) script = rest;
  if (kind.action == Action::Layer) script = LayerScript(rest);
  const std::string scriptAction = script.empty() ? "" : WriteScript(document_, script);

  const int object = out.BeginNewObject();
  std::string action;
  if (kind.action == Action::Address)
    action = "/A << /S /URI /URI " + out.Text(EncodedAddress(target)) + " >> ";
  else if (kind.action == Action::OtherDocument)
    action =
        "/A << /Type /Action /S /GoToR /F " + out.Text(FileName(rest)) + " /D [-1 /XYZ 0 0 0] >> ";
  else if (kind.action == Action::Reference)
    action = "/Dest " + Bookmarks::RefName(document_, rest) + " ";
  else
    action = "/A << " + scriptAction + " ";
  out.Write(begin + action + ">>");
  out.EndObject();
  AddToPage(document_, object);
}

void Annotations::AtPageBegin() { events_.AtPageBegin(); }

std::string Annotations::AtPageEnd() {
  const std::string entries = events_.AtPageEnd();
  fields_.WritePage();
  return entries;
}

void Annotations::WriteAtEnd() {
  const DestinationWriter destinations(document_);
  bookmarks_.WriteAtEnd(destinations);
  for (const PendingLink& link : pendingLinks_)
    document_.out.WriteObject(link.object,
                              link.begin + "/Dest " + destinations.Write(link.destination) + " >>");
  fields_.WriteAtEnd();
  events_.WriteAtEnd();
}

std::string Annotations::CatalogEntries() const {
  return bookmarks_.CatalogEntries() + LabelEntries() + NameEntries() + fields_.CatalogEntries() +
         events_.CatalogEntries();
}

}  // namespace lm::pdf
