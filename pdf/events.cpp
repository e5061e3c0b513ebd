#include "pdf/events.h"

#include <algorithm>

#include "core/text.h"
#include "pdf/annots.h"
#include "pdf/error.h"
#include "pdf/pdfa.h"

namespace lm::pdf {
namespace {

constexpr std::string_view kOpen = "Open", kGlobal = "Global";

constexpr EventKind kDocumentKinds[] = {
    {"WC", "WillClose"}, {"WS", "WillSave"},    {"DS", "DidSave"}, {"WP", "WillPrint"},
    {"DP", "DidPrint"},  {kOpen, "OpenAction"}, {kGlobal, ""}};
constexpr EventKind kPageKinds[] = {{"O", "Open"}, {"C", "Close"}};

struct Transition {
  std::string_view entries;
  int versionStep;
};
// By SetPageTransition's kind, from 1.
constexpr Transition kTransitions[] = {{"/S /Split /Dm /H /M /I >> ", 0},
                                       {"/S /Split /Dm /V /M /I >> ", 0},
                                       {"/S /Split /Dm /H /M /O >> ", 0},
                                       {"/S /Split /Dm /V /M /O >> ", 0},
                                       {"/S /Wipe /Di 180 >> ", 0},
                                       {"/S /Wipe /Di 0 >> ", 0},
                                       {"/S /Wipe /Di 270 >> ", 0},
                                       {"/S /Wipe /Di 90 >> ", 0},
                                       {"/S /Box /M /I >> ", 0},
                                       {"/S /Box /M /O >> ", 0},
                                       {"/S /Blinds /Dm /H >> ", 0},
                                       {"/S /Blinds /Dm /V >> ", 0},
                                       {"/S /Dissolve >> ", 0},
                                       {"/S /Glitter /Di 0 >> ", 0},
                                       {"/S /Glitter /Di 270 >> ", 0},
                                       {"/S /Glitter /Di 315 >> ", 0},
                                       {"/S /R >> ", 0},
                                       {"/S /Fly /M /I >> ", 2},
                                       {"/S /Fly /M /O >> ", 2},
                                       {"/S /Push /Di 0 >> ", 2},
                                       {"/S /Push /Di 270 >> ", 2},
                                       {"/S /Push /Di 180 >> ", 2},
                                       {"/S /Push /Di 90 >> ", 2},
                                       {"/S /Cover /Di 0 >> ", 2},
                                       {"/S /Cover /Di 270 >> ", 2},
                                       {"/S /Cover /Di 180 >> ", 2},
                                       {"/S /Cover /Di 90 >> ", 2},
                                       {"/S /Fade >> ", 2}};

}  // namespace

std::string WriteScript(Document& document, std::string_view script) {
  const int object = document.out.BeginNewObject();
  document.out.WriteStream(StreamClass::Contents, "<< ", ShownText(script));
  document.out.EndObject();
  return "/S /JavaScript /JS " + std::to_string(object) + " 0 R >>";
}

std::string WriteScriptAction(Document& document, std::string_view script) {
  return "<< /Type /Action " + WriteScript(document, script);
}

std::string WriteScriptActions(Document& document,
                               const std::map<std::string, std::string>& scriptsByKey) {
  std::string out;
  for (const auto& [key, script] : scriptsByKey)
    out += " /" + key + " " + WriteScriptAction(document, script);
  return out;
}

std::string FindEventKey(std::span<const EventKind> kinds, std::string_view kind) {
  const auto found = std::find_if(kinds.begin(), kinds.end(), [&](const EventKind& known) {
    return EqualsIgnoreCase(known.key, kind) || EqualsIgnoreCase(known.word, kind);
  });
  if (found == kinds.end()) throw Error("Unknown event " + std::string(kind));
  return std::string(found->key);
}

void Events::OnDocEvent(std::string_view kind, std::string_view script) {
  RefuseInPdfA(document_, "scripts");
  const std::string key = FindEventKey(kDocumentKinds, kind);
  if (key == kGlobal) {
    globalScript_ += (globalScript_.empty() ? "" : "\r") + std::string(script);
  } else if (key == kOpen) {
    openScript_ = script;
  } else {
    ofDocument_[key] = script;
    document_.RaiseVersion(1);
  }
}

// The dictionary of a page that was written before is already made up.
void Events::CheckNewPage() const {
  RequirePage(document_);
  if (!document_.pages[document_.openPage].contents.empty())
    throw Error("The page was written before");
}

void Events::OnPageEvent(std::string_view kind, std::string_view script) {
  RefuseInPdfA(document_, "scripts");
  CheckNewPage();
  page_[FindEventKey(kPageKinds, kind)] = script;
}

void Events::SetPageTransition(int kind, double duration, double shownFor) {
  CheckNewPage();
  if (kind < 0 || kind > static_cast<int>(std::size(kTransitions))) return;
  transition_.clear();
  if (kind > 0) {
    const Transition& transition = kTransitions[kind - 1];
    transition_ = "/Trans << /Type /Trans /D " + document_.Points(duration > 0 ? duration : 1) +
                  " " + std::string(transition.entries);
    document_.RaiseVersion(transition.versionStep);
  }
  if (shownFor > 0) transition_ += "/Dur " + document_.Points(shownFor) + " ";
}

void Events::AtPageBegin() {
  transition_.clear();
  page_.clear();
}

std::string Events::AtPageEnd() {
  std::string entries = transition_;
  if (!page_.empty()) entries += "/AA <<" + WriteScriptActions(document_, page_) + " >> ";
  AtPageBegin();
  return entries;
}

void Events::WriteAtEnd() {
  actions_ = WriteScriptActions(document_, ofDocument_);
  if (!openScript_.empty()) openAction_ = WriteScriptAction(document_, openScript_);
  if (!globalScript_.empty()) globalAction_ = "<< " + WriteScript(document_, globalScript_);
}

std::string Events::NameEntries() const {
  if (globalAction_.empty()) return "";
  return "/JavaScript << /Names [ " + document_.out.Text("globalscript") + " " + globalAction_ +
         " ] >> ";
}

std::string Events::CatalogEntries() const {
  std::string out;
  if (!openAction_.empty()) out += "/OpenAction " + openAction_ + " ";
  if (!actions_.empty()) out += "/AA <<" + actions_ + " >> ";
  return out;
}

}  // namespace lm::pdf
