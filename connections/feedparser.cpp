#include "connections/feedparser.h"

#include <algorithm>
#include <pugixml.hpp>

#include "core/text.h"
#include "core/xmltext.h"

namespace lm {
namespace {

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view WithoutSpaceAround(std::string_view text) {
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  return text;
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' && !IsSpace(c); }

// The texts of an element and of all within it, joined.
class Texts : public pugi::xml_tree_walker {
 public:
  std::string joined;
  bool for_each(pugi::xml_node& node) override {
    joined += node.value();  // of texts alone: comments and the like are not read
    return true;
  }
};

std::string TextOf(pugi::xml_node element) {
  Texts texts;
  element.traverse(texts);
  std::string text = FromUtf8(WithoutSpaceAround(texts.joined));
  std::erase_if(text, IsControl);
  std::ranges::replace(text, '\t', ' ');
  return WithCrLf(text);
}

FeedSession ReadSession(pugi::xml_node session) {
  const auto child = [](pugi::xml_node of, const char* name) { return TextOf(of.child(name)); };
  FeedSession read;
  read.status = child(session, "status");
  read.notes = child(session, "notes");
  read.rate = child(session, "rate");

  const pugi::xml_node practice = session.child("practice");
  read.practice = {child(practice, "name"),     child(practice, "address0"),
                   child(practice, "address1"), child(practice, "address2"),
                   child(practice, "town"),     child(practice, "postcode"),
                   child(practice, "email"),    child(practice, "phone")};

  const pugi::xml_node timing = session.child("timing");
  read.period = child(timing, "period");
  read.date = child(timing, "sdate");
  read.startTime = child(timing, "stime");
  read.endTime = child(timing, "etime");
  return read;
}

// One element and nothing beside it but comments, which are not read.
bool IsWholeDocument(const pugi::xml_document& tree) {
  const auto nodes = tree.children();
  return std::distance(nodes.begin(), nodes.end()) == 1 &&
         tree.first_child().type() == pugi::node_element;
}

std::optional<Feed> ReadTree(const pugi::xml_document& tree) {
  Feed feed;
  if (const pugi::xml_node message = tree.child("error").child("message")) {
    feed.error = TextOf(message);
    return feed;
  }
  for (const pugi::xml_node sessions : tree.child("import").children("sessions"))
    for (const pugi::xml_node session : sessions.children("session")) {
      if (feed.sessions.size() == kMostFeedSessions) return std::nullopt;
      feed.sessions.push_back(ReadSession(session));
    }
  return feed;
}

}  // namespace

std::optional<Feed> ReadFeed(std::string_view body) {
  if (body.size() > kMostFeedBytes || std::ranges::count(body, '<') > kMostFeedTags)
    return std::nullopt;
  auto text = XmlInUtf8(WithoutSpaceAround(body));
  // The parser would take what stands before a zero for the whole.
  if (!text || text->find('\0') != std::string::npos) return std::nullopt;

  // As a fragment, so that what stands beside the root element is seen.
  pugi::xml_document tree;
  const auto parsed = tree.load_buffer_inplace(
      text->data(), text->size(), pugi::parse_default | pugi::parse_fragment | pugi::parse_doctype,
      pugi::encoding_utf8);
  if (!parsed || !IsWholeDocument(tree)) return std::nullopt;
  return ReadTree(tree);
}

}  // namespace lm
