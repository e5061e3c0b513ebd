// What happens by itself: scripts of the document and of pages, and page transitions. Scripts are
// carried as text; nothing here runs or reads them.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

#include "pdf/document.h"

namespace lm::pdf {

// Writes a script as a stream; returns "/S /JavaScript /JS n 0 R >>", the end of its action.
std::string WriteScript(Document& document, std::string_view script);
// The same with the beginning that the actions of events have.
std::string WriteScriptAction(Document& document, std::string_view script);
// "/KEY action" of each script.
std::string WriteScriptActions(Document& document,
                               const std::map<std::string, std::string>& scriptsByKey);

// A kind of event: its key in the format, and in words.
struct EventKind {
  std::string_view key, word;
};
// The key of a kind told in either way, in any case. Throws Error when there is none.
std::string FindEventKey(std::span<const EventKind> kinds, std::string_view kind);

class Events {
 public:
  explicit Events(Document& document) : document_(document) {}

  // Kinds: "WC" will close, "WS" will save, "DS" did save, "WP" will print, "DP" did print, "Open"
  // when the document opens; "" and "Global" take a script that every other one can use. Also by
  // the words "WillClose" and so on; case does not matter. A second script of a kind replaces the
  // first; global ones are joined. Throws Error for another kind and under PDF/A.
  void OnDocEvent(std::string_view kind, std::string_view script);

  // "O" ("Open") and "C" ("Close") of the open page. Throws Error for another kind, without an open
  // page, on a page that was written before, and under PDF/A.
  void OnPageEvent(std::string_view kind, std::string_view script);

  // kind: 0 none; 1 to 4 split (across in, down in, across out, down out); 5 to 8 wipe (to the
  // left, to the right, down, up); 9 and 10 box (in, out); 11 and 12 blinds (across, down); 13
  // dissolve; 14 to 16 glitter (to the right, down, to the lower right); 17 replace; 18 and 19 fly
  // (in, out); 20 to 23 push and 24 to 27 cover (each to the right, down, to the left, up); 28
  // fade. Others are ignored. duration: seconds of the transition, 1 when not above 0. shownFor:
  // seconds until the next page turns up by itself, 0 never. Throws Error without an open page and
  // on one that was written before.
  void SetPageTransition(int kind, double duration, double shownFor);

  void AtPageBegin();
  std::string AtPageEnd();  // /Trans, /Dur and /AA of the page; writes its scripts
  void WriteAtEnd();

  // Complete between WriteAtEnd and the end of the document.
  std::string NameEntries() const;     // /JavaScript of /Names; call while the catalog is open
  std::string CatalogEntries() const;  // /OpenAction and /AA

 private:
  using Scripts = std::map<std::string, std::string>;  // by key of the dictionary

  void CheckNewPage() const;

  Document& document_;
  Scripts page_;
  std::string transition_;  // entries of the page's dictionary
  Scripts ofDocument_;
  std::string openScript_, globalScript_;
  std::string openAction_, actions_, globalAction_;
};

}  // namespace lm::pdf
