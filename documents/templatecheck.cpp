#include "documents/templatecheck.h"

#include <algorithm>
#include <optional>
#include <set>

#include "core/numbers.h"
#include "core/text.h"
#include "documents/mergefields.h"
#include "documents/template.h"
#include "documents/templateattributes.h"
#include "documents/templatexml.h"

namespace lm {
namespace {

constexpr double kTolerance = 0.005;  // millimetres

// Where a section stands on the page: a flowing one anywhere from the top margin to its limit, one
// that goes on with something at the top margin.
enum class Place { Top, Foot, Flow, Continued };

struct SectionRule {
  std::string_view id;
  Place place;
};

constexpr SectionRule kSections[] = {
    {"background1", Place::Top},
    {"backgroundall", Place::Top},
    {"pageheader", Place::Top},
    {"pagefooter", Place::Foot},
    {"invheader", Place::Top},
    {"invfooter", Place::Foot},
    {"session", Place::Flow},
    {"owedinvoice", Place::Flow},
    {"sessionfooter", Place::Flow},
    {"extra", Place::Flow},
    {"expense", Place::Flow},
    {"sessioncontinued", Place::Continued},
    {"invfootercontinued", Place::Continued},
};

std::string Quoted(std::string_view text) {
  constexpr std::size_t kMost = 60;
  return "'" + std::string(text.substr(0, kMost)) + (text.size() > kMost ? "...'" : "'");
}

const AttributeRule* RuleOf(std::span<const AttributeRule> rules, std::string_view name) {
  const auto found = std::ranges::find(rules, name, &AttributeRule::name);
  return found == rules.end() ? nullptr : &*found;
}

std::string NameIn(std::span<const AttributeRule> rules, std::string_view name) {
  for (const AttributeRule& rule : rules)
    if (EqualsIgnoreCase(rule.name, name)) return std::string(rule.name);
  return "";
}

class Checker {
 public:
  Checker(const TemplateXml& xml, const PictureTest& pictureIsThere)
      : xml_(xml), pictureIsThere_(pictureIsThere) {}

  std::vector<TemplateFinding> Check() {
    CheckDocuments();
    CheckElements(xml_.Root(), {"document", "section"});
    CheckAttributes(xml_.Root(), {});
    for (const pugi::xml_node section : xml_.Root().children("section")) CheckSection(section);
    CheckUse();
    std::ranges::stable_sort(findings_, {}, &TemplateFinding::line);
    return std::move(findings_);
  }

 private:
  template <class Node>
  void Wrong(Node node, std::string text) {
    findings_.push_back({xml_.Line(node), false, std::move(text)});
  }
  template <class Node>
  void Note(Node node, std::string text) {
    findings_.push_back({xml_.Line(node), true, std::move(text)});
  }

  static std::string Value(pugi::xml_node element, const char* name) {
    return FromUtf8(element.attribute(name).value());
  }
  // Empty where the attribute is missing or no number; that is found on its own.
  static std::optional<double> Number(pugi::xml_node element, const char* name) {
    const std::string text = Value(element, name);
    return IsTemplateNumber(text) ? std::optional(Val(text)) : std::nullopt;
  }

  void CheckDocuments();
  void CheckElements(pugi::xml_node parent, const std::vector<std::string_view>& names);
  void CheckAttributes(pugi::xml_node element, std::span<const AttributeRule> rules,
                       std::string_view owner = "");
  void CheckValue(pugi::xml_attribute attribute, const AttributeRule& rule);
  void CheckSection(pugi::xml_node section);
  const SectionRule* CheckSectionId(pugi::xml_node section);
  void CheckSectionHeight(pugi::xml_node section, const SectionRule& rule);
  void CheckItem(pugi::xml_node item, pugi::xml_node section, const SectionRule* rule);
  void CheckPlace(pugi::xml_node item, pugi::xml_node section, const SectionRule& rule);
  void CheckCaption(pugi::xml_attribute caption);
  void CheckAlignment(pugi::xml_node item);
  void CheckPicture(pugi::xml_attribute filename);
  void CheckUse();

  const TemplateXml& xml_;
  const PictureTest& pictureIsThere_;
  std::vector<TemplateFinding> findings_;
  PageSize page_;
  double marginTop_ = 0, marginBottom_ = 0;
  bool numbersPages_ = false;
  std::set<std::string> found_;  // ids of the sections, in lower case
};

void Checker::CheckDocuments() {
  const pugi::xml_node document = xml_.Root().child("document");
  if (!document) return Wrong(xml_.Root(), "There is no element 'document'.");
  for (pugi::xml_node more = document.next_sibling("document"); more;
       more = more.next_sibling("document"))
    Wrong(more, "This is a second element 'document'; only the first is read.");
  CheckAttributes(document, DocumentAttributes());
  CheckElements(document, {});
  page_ = PageSizeOf(Value(document, "papersize"), Value(document, "orientation"));
  marginTop_ = Number(document, "margin_top").value_or(0);
  const std::string numbers = Value(document, "page_numbers");
  numbersPages_ = !numbers.empty() && !EqualsIgnoreCase(numbers, "NONE");
  marginBottom_ = Number(document, "margin_bottom").value_or(0);
}

void Checker::CheckElements(pugi::xml_node parent, const std::vector<std::string_view>& names) {
  for (const pugi::xml_node child : parent.children()) {
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
      Wrong(parent, "The text in the element " + Quoted(parent.name()) +
                        " is not read; everything stands in attributes.");
    if (child.type() == pugi::node_element && std::ranges::find(names, child.name()) == names.end())
      Wrong(child, "Unknown element " + Quoted(FromUtf8(child.name())) + " in the element " +
                       Quoted(FromUtf8(parent.name())) + ".");
  }
}

void Checker::CheckAttributes(pugi::xml_node element, std::span<const AttributeRule> rules,
                              std::string_view owner) {
  std::set<std::string> names;
  for (const pugi::xml_attribute attribute : element.attributes()) {
    const std::string name = FromUtf8(attribute.name());
    if (!names.insert(name).second) {
      Wrong(attribute, "The attribute " + Quoted(name) + " stands there twice.");
      continue;
    }
    const AttributeRule* rule = RuleOf(rules, name);
    if (!rule) {
      const std::string meant = NameIn(rules, name);
      Wrong(attribute, "Unknown attribute " + Quoted(name) +
                           (meant.empty() ? "." : "; it is written " + Quoted(meant) + "."));
    } else if (!owner.empty() && rule->owners.find(owner) == std::string_view::npos) {
      Note(attribute, "The attribute " + Quoted(name) + " is not used by an object of kind " +
                          Quoted(owner) + ".");
    } else {
      CheckValue(attribute, *rule);
    }
  }
  for (const AttributeRule& rule : rules)
    if (!rule.optional && rule.owners.find(owner) != std::string_view::npos &&
        !names.contains(std::string(rule.name)))
      Wrong(element, "The attribute " + Quoted(rule.name) + " is missing.");
}

void Checker::CheckValue(pugi::xml_attribute attribute, const AttributeRule& rule) {
  const std::string value = FromUtf8(attribute.value());
  if (ToUtf8(value) != attribute.value())
    Wrong(attribute, "The attribute " + Quoted(rule.name) +
                         " holds a character that the PDF has not; it becomes a question mark.");
  const std::string fault = FaultOfValue(rule, value);
  if (!fault.empty())
    Wrong(attribute, std::string(rule.name) + " " + Quoted(value) + " " + fault + ".");
}

void Checker::CheckSection(pugi::xml_node section) {
  CheckAttributes(section, SectionAttributes());
  const SectionRule* rule = CheckSectionId(section);
  if (rule) CheckSectionHeight(section, *rule);
  CheckElements(section, {"item"});
  for (const pugi::xml_node item : section.children("item")) CheckItem(item, section, rule);
}

// The rule of the section; null where its id is not known.
const SectionRule* Checker::CheckSectionId(pugi::xml_node section) {
  const pugi::xml_attribute attribute = section.attribute("id");
  if (!attribute) return nullptr;
  const std::string id = FromUtf8(attribute.value());
  const auto rule = std::ranges::find_if(
      kSections, [&](const SectionRule& each) { return EqualsIgnoreCase(each.id, id); });
  if (rule == std::end(kSections)) {
    Wrong(attribute, "Unknown section " + Quoted(id) + "; it is never drawn.");
    return nullptr;
  }
  if (rule->id != id)
    Wrong(attribute, "The section " + Quoted(id) + " is written " + Quoted(rule->id) +
                         "; in another case " +
                         (HasSectionHeight(rule->id) ? "its height is not read and stays 0."
                                                     : "it is drawn all the same."));
  if (!found_.insert(std::string(rule->id)).second)
    Note(attribute, "There is another section " + Quoted(rule->id) +
                        "; each of them is drawn, with the height of the last.");
  return &*rule;
}

void Checker::CheckSectionHeight(pugi::xml_node section, const SectionRule& rule) {
  if (!HasSectionHeight(rule.id)) return;
  if (!section.attribute("height")) return Wrong(section, "The attribute 'height' is missing.");
  const std::optional<double> height = Number(section, "height");
  if (!height || page_.height == 0) return;
  const bool flows = rule.place == Place::Flow;
  const double room = page_.height - (flows ? marginTop_ + marginBottom_ : 0);
  if (*height > room + kTolerance)
    Wrong(section, "The section " + Quoted(rule.id) + " is taller than the " + PlainText(room) +
                       " mm that a page has for it" +
                       (flows ? ": each begins a page and overruns it." : "."));
}

void Checker::CheckItem(pugi::xml_node item, pugi::xml_node section, const SectionRule* rule) {
  const std::string kind = Value(item, "objectsubtype");
  if (kind != "T" && kind != "S" && kind != "P") {
    if (item.attribute("objectsubtype"))
      Wrong(item.attribute("objectsubtype"),
            "objectsubtype " + Quoted(kind) + " is not T, S or P; the object is not drawn.");
    else
      Wrong(item, "The attribute 'objectsubtype' is missing.");
    return;
  }
  CheckAttributes(item, ItemAttributes(), kind);
  CheckElements(item, {});
  if (rule) CheckPlace(item, section, *rule);
  if (kind == "T") {
    CheckCaption(item.attribute("caption"));
    CheckAlignment(item);
  }
  CheckCaption(item.attribute("shownwith"));
  if (kind == "P") CheckPicture(item.attribute("filename"));
}

void Checker::CheckPicture(pugi::xml_attribute filename) {
  if (!filename) return;
  const std::string name = FromUtf8(filename.value());
  if (name.empty())
    Note(filename, "The picture has no file; nothing is drawn.");
  else if (!pictureIsThere_(name))
    Wrong(filename, "There is no picture file " + Quoted(name) + ".");
}

void Checker::CheckPlace(pugi::xml_node item, pugi::xml_node section, const SectionRule& rule) {
  const auto left = Number(item, "left"), top = Number(item, "top");
  const auto width = Number(item, "width"), height = Number(item, "height");
  if (!left || !top || !width || !height || page_.height == 0) return;
  if (*left < -kTolerance || *left + *width > page_.width + kTolerance)
    Wrong(item, "The object reaches from " + PlainText(*left) + " to " + PlainText(*left + *width) +
                    " mm across; the page is " + PlainText(page_.width) + " mm wide.");

  if (HasSectionHeight(rule.id) != HasSectionHeight(Value(section, "id"))) return;
  const std::optional<double> own =
      HasSectionHeight(rule.id) ? Number(section, "height") : std::optional(page_.height);
  if (!own) return;
  // A section that flows has the top margin above it at least, and the bottom margin below it.
  const bool belowMargin = rule.place == Place::Flow || rule.place == Place::Continued;
  const double least = rule.place == Place::Foot ? *own - page_.height
                       : belowMargin             ? -marginTop_
                                                 : 0;
  const double most = rule.place == Place::Foot        ? *own
                      : rule.place == Place::Flow      ? *own + marginBottom_
                      : rule.place == Place::Continued ? page_.height - marginTop_
                                                       : page_.height;
  if (*top < least - kTolerance || *top + *height > most + kTolerance)
    Wrong(item, "The object reaches from " + PlainText(*top) + " to " + PlainText(*top + *height) +
                    " mm down the section " + Quoted(rule.id) + "; there the page reaches from " +
                    PlainText(least) + " to " + PlainText(most) + " mm.");
}

void Checker::CheckCaption(pugi::xml_attribute caption) {
  const std::string text = FromUtf8(caption.value());
  for (std::size_t open = text.find('{'); open != std::string::npos; open = text.find('{', open)) {
    const std::size_t close = text.find('}', open);
    if (close == std::string::npos)
      return Wrong(caption, "A '{' is not closed; the text from it on is not drawn: " +
                                Quoted(std::string_view(text).substr(open)) + ".");
    const std::string_view field = std::string_view(text).substr(open + 1, close - open - 1);
    const std::string name(Trim(field.substr(0, field.find('|'))));
    if (!IsMergeField(name))
      Wrong(caption,
            "There is no field " + Quoted("{" + name + "}") + "; nothing is drawn for it.");
    else if (!numbersPages_ && (EqualsIgnoreCase(name, "PAGE") || EqualsIgnoreCase(name, "PAGES")))
      Note(caption, "The field '{" + ToUpper(name) + "}' is never filled.");
    open = close;
  }
}

// Without horizontalscaling the alignment does not reach the text, but the mode of a rectangle.
void Checker::CheckAlignment(pugi::xml_node item) {
  if (item.attribute("horizontalscaling")) return;
  const std::string across = ToUpper(Value(item, "halign"));
  const std::string down = ToUpper(Value(item, "valign"));
  if (across == "RIGHT" || across == "CENTRE" || across == "CENTER")
    Wrong(item.attribute("halign"),
          "Without horizontalscaling=\"100\" the text is drawn top-left and not " + across +
              ", and a rectangle is " + (across == "RIGHT" ? "drawn" : "filled") + " behind it.");
  else if (down == "MIDDLE" || down == "BOTTOM")
    Note(item.attribute("valign"),
         "Without horizontalscaling=\"100\" the text is drawn at the top and not " + down + ".");
}

// Sections that the document does not show, or shows and has not.
void Checker::CheckUse() {
  const pugi::xml_node document = xml_.Root().child("document");
  struct Use {
    const char* attribute;
    std::string_view value;
    std::string_view section;
  };
  constexpr Use kUses[] = {{"show_extras", "YES", "extra"},
                           {"show_expenses", "YES", "expense"},
                           {"show_sessionfooter", "YES", "sessionfooter"},
                           {"page_backgrounds", "DIFFERENT ON PAGE 1", "background1"}};
  for (const Use& use : kUses) {
    const bool shown = EqualsIgnoreCase(Value(document, use.attribute), use.value);
    const bool there = found_.contains(std::string(use.section));
    if (!document || shown == there) continue;
    Note(document, std::string(use.attribute) + ": the section " + Quoted(use.section) +
                       (shown ? " is shown, but there is none." : " is there, but never drawn."));
  }
  if (EqualsIgnoreCase(Value(document, "page_backgrounds"), "NONE") &&
      found_.contains("backgroundall"))
    Note(document, "page_backgrounds: the section 'backgroundall' is there, but never drawn.");
  if (!found_.contains("session") && !found_.contains("owedinvoice"))
    Note(xml_.Root(), "There is no section 'session'.");
}

// The XML behind the bytes of either kind of file; empty when they are neither.
std::optional<std::string> XmlOf(std::string_view bytes) {
  const std::size_t first = bytes.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
  if (first != std::string_view::npos && bytes[first] == '<') return std::string(bytes);
  return DecipherTemplate(bytes);
}

}  // namespace

std::vector<TemplateFinding> CheckTemplate(std::string_view bytes,
                                           const PictureTest& pictureIsThere) {
  const std::optional<std::string> text = XmlOf(bytes);
  if (!text) return {{0, false, "This is neither the XML of a template nor a template file."}};
  try {
    const TemplateXml xml(*text);
    std::vector<TemplateFinding> findings = Checker(xml, pictureIsThere).Check();
    if (!DecipherTemplate(EncipherTemplate(*text))) {
      TemplateFinding& last = findings.emplace_back();
      last.line = static_cast<int>(std::ranges::count(*text, '\n')) + 1;
      last.text = "The text does not end in '</template>'; enciphered it is not read.";
    }
    return findings;
  } catch (const TemplateError& fault) {
    return {{fault.line, false, fault.fault}};
  }
}

}  // namespace lm
