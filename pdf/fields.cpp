#include "pdf/fields.h"

#include <algorithm>

#include "core/text.h"
#include "pdf/bookmarks.h"
#include "pdf/colours.h"
#include "pdf/error.h"
#include "pdf/events.h"
#include "pdf/fonts.h"
#include "pdf/notation.h"
#include "pdf/pdfa.h"
#include "pdf/scope.h"
#include "pdf/textbox.h"

namespace lm::pdf {
namespace {

constexpr int kList = 3, kRadio = 5;
constexpr std::string_view kDingbats = "/ZaDb";
constexpr std::size_t kLongestName = 1000;

// Bits of /Ff that every field takes: read only, required, not exported.
constexpr int kAnyField = 7;
constexpr int kSeveralLines = 0x1000, kPassword = 0x2000;
constexpr int kSorted = 0x80000, kSeveralChoices = 0x200000;

enum class Holds { Text, Caption, Choice, State };

struct FieldType {
  std::string_view entry;
  Holds holds;
  int flags;                 // that make it this type
  int mayHave;               // that the caller may set
  std::string_view caption;  // sign of the dingbats font for viewers that draw it themselves
};
// By DrawField's type.
constexpr FieldType kFieldTypes[] = {
    {"/Tx", Holds::Text, 0, kAnyField | kSeveralLines | kPassword | 0x400000 | 0x800000, ""},
    {"/Btn", Holds::Caption, 0x10000, kAnyField, ""},
    {"/Ch", Holds::Choice, 0x20000, kAnyField | 0x40000 | kSorted | 0x400000, ""},
    {"/Ch", Holds::Choice, 0, kAnyField | kSorted | kSeveralChoices, ""},
    {"/Btn", Holds::State, 0, kAnyField, "4"},
    {"/Btn", Holds::State, 0x8000, kAnyField | 0x4000, "l"},
};

// By BorderStyle.
constexpr std::string_view kBorderStyles[] = {"/S /S", "/S /D /D [ 1 1 ]", "/S /B", "/S /I",
                                              "/S /U"};

constexpr std::string_view kOffValues[] = {"", "Off", "No", "False", "0"};

constexpr std::string_view kActionKey = "A";
constexpr EventKind kFieldKinds[] = {{"K", "Keystroke"},     {"V", "Validate"},  {"C", "Calculate"},
                                     {"F", "Format"},        {"D", "MouseDown"}, {"E", "Enter"},
                                     {"X", "Exit"},          {"Fo", "Focus"},    {"Bl", "Blur"},
                                     {kActionKey, "MouseUp"}};

const FieldType& TypeOf(int type) { return kFieldTypes[static_cast<std::size_t>(type)]; }

bool IsOff(std::string_view value) {
  return std::any_of(std::begin(kOffValues), std::end(kOffValues),
                     [&](std::string_view off) { return EqualsIgnoreCase(off, value); });
}

std::string Reference(int object) { return std::to_string(object) + " 0 R "; }

std::string References(const std::vector<int>& objects) {
  std::string out;
  for (const int object : objects) out += Reference(object);
  return out;
}

// "" is the state of a button that is off.
std::string StateName(std::string_view state) {
  return state.empty() ? "/Off" : "/" + EscapedName(state);
}

std::string ColourEntry(std::string_view key, std::string_view stored) {
  const std::string numbers = ColourNumbers(stored);
  return numbers.empty() ? "" : std::string(key) + "[ " + numbers + " ] ";
}

}  // namespace

void Fields::DrawField(int type, std::string_view name, double x, double y, double width,
                       double height, std::string_view value, std::string_view toolTip, int flags,
                       std::string_view borderColour, std::string_view backColour,
                       double borderWidth, int borderStyle, std::string_view items) {
  RequirePage(document_);
  if (type < 0 || type >= static_cast<int>(std::size(kFieldTypes)))
    throw Error("Unknown type of field");
  const FieldType& rule = TypeOf(type);
  CheckName(name, type == kRadio);
  if (rule.holds == Holds::State) CheckState(name, items);

  Field field;
  field.type = type;
  field.value = value;
  field.toolTip = toolTip;
  if (rule.holds == Holds::State)
    field.state = items;
  else if (!items.empty())
    for (const std::string_view item : Split(items, '|')) field.items.emplace_back(item);
  field.flags = rule.flags | (flags & rule.mayHave);
  if (field.flags & kSorted)
    std::ranges::sort(field.items, [](const std::string& a, const std::string& b) {
      return CompareIgnoreCase(a, b) < 0;
    });
  field.box = BoxInUnits(document_, x, y, width, height);
  field.frame = {.width = field.box.Width(),
                 .height = field.box.Height(),
                 .borderWidth = document_.ToPoints(std::max(borderWidth, 0.0)),
                 .borderColour = StoredColour(borderColour, document_),
                 .backColour = StoredColour(backColour, document_),
                 .round = type == kRadio};
  if (borderStyle > 0 && borderStyle < static_cast<int>(std::size(kBorderStyles)))
    field.frame.style = static_cast<BorderStyle>(borderStyle);
  DrawPicture(field);

  field.object = document_.out.ReserveObject();
  AddToPage(document_, field.object);
  if (type == kRadio)
    PlaceInGroup(field, std::string(name));
  else
    Place(field, std::string(name));
  pending_.push_back(std::move(field));
}

// Viewers that draw ticks and dots themselves look for the font under this name and no other.
std::string Fields::UseDingbats() {
  if (dingbats_ == 0) {
    const Restored<TextState> restored(document_.state.text);
    fonts_.Set("ZapfDingbats", 0, 0, 0);
    dingbats_ = fonts_.Current().object;
  }
  return std::string(kDingbats);
}

// The picture and the text of /DA. Under PDF/A no viewer draws ticks and dots itself, so that the
// font for them, which is in no file, is left out.
void Fields::DrawPicture(Field& field) {
  const std::string& textColour = document_.state.colours.text;
  field.picture = TopDown(document_, field.frame.height, DrawFrame(document_, field.frame));
  if (TypeOf(field.type).holds == Holds::State) {
    field.onOperators =
        TopDown(document_, field.frame.height, DrawMark(document_, field.frame, textColour));
    if (!document_.pdfA)
      field.defaultAppearance = UseDingbats() + " 0 Tf " + ColourOperator(textColour, false);
    return;
  }
  texts_.EnsureFont();
  field.defaultAppearance = texts_.DefaultAppearance();
  const std::string text = TopDown(document_, field.frame.height, TextOperators(field));
  // Viewers that draw a text again put it in the place of the marked one.
  field.picture += TypeOf(field.type).holds == Holds::Caption ? text : "/Tx BMC\r" + text + "EMC\r";
}

std::string Fields::TextOperators(const Field& field) const {
  const Frame& frame = field.frame;
  if (TypeOf(field.type).holds == Holds::Caption)
    return texts_.Line(frame, field.value, kTextCentre);
  if (field.type == kList) return texts_.Rows(frame, field.items, Chosen(field));
  if (field.flags & kPassword)
    return texts_.Line(frame, std::string(field.value.size(), '*'), kTextLeft);
  if (field.flags & kSeveralLines) return texts_.Paragraphs(frame, field.value, kTextLeft);
  return texts_.Line(frame, field.value, kTextLeft);
}

// The chosen items of a combo or list.
std::vector<std::string> Fields::Chosen(const Field& field) {
  if (!(field.flags & kSeveralChoices)) return {field.value};
  std::vector<std::string> chosen;
  for (const std::string_view item : Split(field.value, '|')) chosen.emplace_back(item);
  return chosen;
}

// A name is used by one field, or by one group of radio buttons, or stands above others.
void Fields::CheckName(std::string_view name, bool radio) const {
  const std::vector<std::string_view> parts = Split(name, '.');
  if (name.size() > kLongestName ||
      std::any_of(parts.begin(), parts.end(), [](std::string_view part) { return part.empty(); }))
    throw Error("A field needs a name");
  const auto same = parents_.find(name);
  bool taken = names_.contains(name) || (same != parents_.end() && !(radio && same->second.radio));
  for (std::size_t dot = name.find('.'); dot != std::string_view::npos;
       dot = name.find('.', dot + 1)) {
    const auto above = parents_.find(name.substr(0, dot));
    taken = taken || names_.contains(name.substr(0, dot)) ||
            (above != parents_.end() && above->second.radio);
  }
  if (taken) throw Error("The name of the field is taken");
}

// The name that a button is given for its "on" is none that the writer gave: to what is off, or to
// a button of the group that has no name of its own.
void Fields::CheckState(std::string_view name, std::string_view state) const {
  if (state.empty()) return;
  if (EqualsIgnoreCase(EscapedName(state), "Off")) throw Error("A button's own name cannot be Off");
  const auto group = parents_.find(name);
  if (group != parents_.end() && group->second.numbered.contains(state))
    throw Error("The button's own name is taken");
}

// The parents for all parts of a name but its last; null for a name of one part.
Fields::Parent* Fields::MakeParentsOf(const std::string& name) {
  Parent* above = nullptr;
  std::size_t begin = 0;
  for (std::size_t dot = name.find('.'); dot != std::string::npos; dot = name.find('.', begin)) {
    Parent& parent = parents_[name.substr(0, dot)];
    if (parent.object == 0) {
      parent.object = document_.out.ReserveObject();
      parent.partialName = name.substr(begin, dot - begin);
      parent.parent = above ? above->object : 0;
      (above ? above->kids : roots_).push_back(parent.object);
    }
    above = &parent;
    begin = dot + 1;
  }
  return above;
}

void Fields::Place(Field& field, const std::string& name) {
  Parent* above = MakeParentsOf(name);
  field.partialName = name.substr(name.rfind('.') + 1);
  field.parent = above ? above->object : 0;
  (above ? above->kids : roots_).push_back(field.object);
  names_.insert(name);
  if (TypeOf(field.type).holds != Holds::State) return;
  if (field.state.empty()) field.state = "Yes";
  field.on = !IsOff(field.value);
}

// The place in the group, or the next number that is free.
std::string Fields::NumberButton(Parent& group) {
  std::size_t number = group.kids.size();
  while (group.states.contains(std::to_string(number))) ++number;
  return *group.numbered.insert(std::to_string(number)).first;
}

// Of a group the first button that is chosen stays chosen.
void Fields::PlaceInGroup(Field& field, const std::string& name) {
  Parent* above = MakeParentsOf(name);
  Parent& group = parents_[name];
  if (group.object == 0) {
    group.object = document_.out.ReserveObject();
    group.partialName = name.substr(name.rfind('.') + 1);
    group.parent = above ? above->object : 0;
    group.radio = true;
    group.first = field;
    (above ? above->kids : roots_).push_back(group.object);
  }
  group.kids.push_back(field.object);
  field.parent = group.object;
  if (field.state.empty()) field.state = NumberButton(group);
  group.states.insert(field.state);
  field.on = group.chosen.empty() && field.state == field.value;
  if (field.on) group.chosen = field.state;
}

void Fields::OnFieldEvent(std::string_view kind, std::string_view script) {
  RefuseInPdfA(document_, "scripts");
  const std::string key = FindEventKey(kFieldKinds, kind);
  if (pending_.empty()) throw Error("No field on the page");
  pending_.back().scripts[key] = script;
}

void Fields::WritePage() {
  std::vector<Written> written;
  for (const Field& field : pending_) written.push_back(WriteBefore(field));
  for (std::size_t i = 0; i < pending_.size(); ++i)
    WriteField(pending_[i], written[i], PageObject(document_, document_.openPage));
  pending_.clear();
}

Fields::Written Fields::WriteBefore(const Field& field) {
  Written written;
  auto scripts = field.scripts;
  if (const auto action = scripts.extract(std::string(kActionKey)))
    written.actions = " /A " + WriteScriptAction(document_, action.mapped());
  if (scripts.contains("C")) calculated_.push_back(field.object);
  if (!scripts.empty())
    written.actions += " /AA <<" + WriteScriptActions(document_, scripts) + " >>";

  const int picture = WriteAppearance(document_, field.box, field.picture);
  written.appearance = " /AP << /N " + Reference(picture) + ">>";
  if (TypeOf(field.type).holds == Holds::State) {
    const int on = WriteAppearance(document_, field.box, field.picture + field.onOperators);
    written.appearance = " /AS " + StateName(field.on ? field.state : "") + " /AP << /N << " +
                         StateName(field.state) + " " + Reference(on) + "/Off " +
                         Reference(picture) + ">> >>";
  } else if (document_.pdfA && TypeOf(field.type).holds == Holds::Caption) {
    // There every button has pictures by its states, one without states too.
    written.appearance = " /AS /Off /AP << /N << /Off " + Reference(picture) + ">> >>";
  }
  return written;
}

void Fields::WriteField(const Field& field, const Written& written, int page) {
  Output& out = document_.out;
  out.BeginObject(field.object);
  std::string body = "<< /Type /Annot /Subtype /Widget ";
  body += " /Rect [ " + field.box.Text(document_) + " ] /F 4 ";
  body += "/BS << /Type /Border /W " + document_.Points(field.frame.borderWidth) + " " +
          std::string(kBorderStyles[static_cast<std::size_t>(field.frame.style)]) + " >>\r";
  if (field.type != kRadio)
    body += " /T " + out.Text(field.partialName) + " " + FieldEntries(field) + ValueEntries(field);
  if (field.parent != 0) body += " /Parent " + Reference(field.parent);

  const FieldType& rule = TypeOf(field.type);
  body += " /MK << " + ColourEntry("/BC ", field.frame.borderColour) +
          ColourEntry("/BG ", field.frame.backColour);
  const std::string_view caption = rule.holds == Holds::Caption ? field.value : rule.caption;
  if (!caption.empty()) body += "/CA " + out.Text(caption) + " ";
  body += ">>" + written.appearance + written.actions + " /P " + Reference(page) + ">>";
  out.Write(body);
  out.EndObject();
}

// What a field has, and a group of radio buttons has for all of them.
std::string Fields::FieldEntries(const Field& field) const {
  const Output& out = document_.out;
  std::string entries =
      "/FT " + std::string(TypeOf(field.type).entry) + " /Ff " + std::to_string(field.flags);
  if (!field.defaultAppearance.empty()) entries += " /DA " + out.Text(field.defaultAppearance);
  if (!field.toolTip.empty()) entries += " /TU " + out.Text(field.toolTip);
  return entries;
}

std::string Fields::ValueEntries(const Field& field) const {
  const Output& out = document_.out;
  const Holds holds = TypeOf(field.type).holds;
  std::string value, options;
  if (holds == Holds::State) {
    value = StateName(field.on ? field.state : "");
  } else if (const auto chosen = Chosen(field); holds == Holds::Choice && chosen.size() > 1) {
    for (const std::string& item : chosen) value += out.Text(item) + " ";
    value = "[ " + value + "]";
  } else if (holds != Holds::Caption && !field.value.empty()) {
    value = out.Text(field.value);
  }
  if (holds == Holds::Choice) {
    options = " /Opt [ ";
    for (const std::string& item : field.items) options += out.Text(item) + " ";
    options += "]";
  }
  return value.empty() ? options : " /V " + value + " /DV " + value + options;
}

void Fields::WriteAtEnd() {
  for (const auto& [name, parent] : parents_) {
    Output& out = document_.out;
    out.BeginObject(parent.object);
    std::string body = "<< /T " + out.Text(parent.partialName) + " ";
    if (parent.radio) {
      const std::string chosen = StateName(parent.chosen);
      body += FieldEntries(parent.first) + " /V " + chosen + " /DV " + chosen + " ";
    }
    if (parent.parent != 0) body += "/Parent " + Reference(parent.parent);
    out.Write(body + "/Kids [ " + References(parent.kids) + "] >>");
    out.EndObject();
  }
}

std::string Fields::CatalogEntries() const {
  if (roots_.empty()) return "";
  std::string fonts = document_.resources.Entries(ResourceKind::Font);
  if (dingbats_ != 0) fonts.append(kDingbats).append(" ") += Reference(dingbats_);
  return "/AcroForm <<" + std::string(document_.pdfA ? "" : "/NeedAppearances true ") +
         "/Fields [ " + References(roots_) + "] /CO [ " + References(calculated_) +
         "] /DR << /Font << " + fonts + ">> >> >> ";
}

}  // namespace lm::pdf
