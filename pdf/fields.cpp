#include "pdf/fields.h"

#include <algorithm>

#include "core/text.h"
#include "pdf/bookmarks.h"
#include "pdf/colours.h"
#include "pdf/error.h"
#include "pdf/events.h"
#include "pdf/fieldpictures.h"
#include "pdf/notation.h"

namespace lm::pdf {
namespace {

constexpr int kRadio = 5;
constexpr std::size_t kLongestName = 1000;

// Bits of /Ff that every field takes: read only, required, not exported.
constexpr int kAnyField = 7;
constexpr int kSeveralChoices = 0x200000;

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
    {"/Tx", Holds::Text, 0, kAnyField | 0x1000 | 0x2000 | 0x400000 | 0x800000, ""},
    {"/Btn", Holds::Caption, 0x10000, kAnyField, ""},
    {"/Ch", Holds::Choice, 0x20000, kAnyField | 0x40000 | 0x80000 | 0x400000, ""},
    {"/Ch", Holds::Choice, 0, kAnyField | 0x80000 | kSeveralChoices, ""},
    {"/Btn", Holds::State, 0, kAnyField, "4"},
    {"/Btn", Holds::State, 0x8000, kAnyField | 0x4000, "l"},
};

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
  if (rule.holds == Holds::State && EqualsIgnoreCase(items, "Off"))
    throw Error("A button's own name cannot be Off");

  Field field;
  field.type = type;
  field.value = value;
  field.toolTip = toolTip;
  if (rule.holds == Holds::State)
    field.state = items;
  else if (!items.empty())
    for (const std::string_view item : Split(items, '|')) field.items.emplace_back(item);
  field.flags = rule.flags | (flags & rule.mayHave);
  field.box = BoxInUnits(document_, x, y, width, height);
  if (!borderColour.empty()) field.borderColour = StoredColour(borderColour, document_);
  if (!backColour.empty()) field.backColour = StoredColour(backColour, document_);
  field.textColour = document_.state.colours.text;
  field.borderWidth = document_.ToPoints(std::max(borderWidth, 0.0));
  if (borderStyle > 0 && borderStyle < static_cast<int>(std::size(kBorderStyles)))
    field.borderStyle = static_cast<std::size_t>(borderStyle);
  field.defaultAppearance = rule.holds == Holds::State
                                ? UseDingbats() + " 0 Tf " + ColourOperator(field.textColour, false)
                                : DefaultAppearance(document_);

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
  if (dingbats_ == 0) dingbats_ = WriteFont(document_, kDingbats);
  return "/" + std::string(kDingbats.resource);
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
  if (field.state.empty()) field.state = std::to_string(group.kids.size());
  field.on = group.chosen.empty() && field.state == field.value;
  if (field.on) group.chosen = field.state;
}

void Fields::OnFieldEvent(std::string_view kind, std::string_view script) {
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

  if (TypeOf(field.type).holds == Holds::State) {
    const double width = field.box.Width(), height = field.box.Height();
    const ButtonPicture picture = {
        field.type == kRadio, width,           height, field.borderWidth, field.borderColour,
        field.backColour,     field.textColour};
    const int on = WriteAppearance(document_, width, height, DrawButton(document_, picture, true));
    const int off =
        WriteAppearance(document_, width, height, DrawButton(document_, picture, false));
    written.appearance = " /AS " + StateName(field.on ? field.state : "") + " /AP << /N << " +
                         StateName(field.state) + " " + Reference(on) + "/Off " + Reference(off) +
                         ">> >>";
  }
  return written;
}

void Fields::WriteField(const Field& field, const Written& written, int page) {
  Output& out = document_.out;
  out.BeginObject(field.object);
  std::string body = "<< /Type /Annot /Subtype /Widget ";
  body += " /Rect [ " + field.box.Text(document_) + " ] /F 4 ";
  body += "/BS << /Type /Border /W " + document_.Points(field.borderWidth) + " " +
          std::string(kBorderStyles[field.borderStyle]) + " >>\r";
  if (field.type != kRadio) {
    body += "/T " + out.Text(field.partialName) + " " + FieldEntries(field) + ValueEntries(field);
  }
  if (field.parent != 0) body += " /Parent " + Reference(field.parent);

  const FieldType& rule = TypeOf(field.type);
  body +=
      " /MK << " + ColourEntry("/BC ", field.borderColour) + ColourEntry("/BG ", field.backColour);
  const std::string_view caption = rule.holds == Holds::Caption ? field.value : rule.caption;
  if (!caption.empty()) body += "/CA " + out.Text(caption) + " ";
  body += ">>" + written.appearance + written.actions + " /P " + Reference(page) + ">>";
  out.Write(body);
  out.EndObject();
}

// What a field has, and a group of radio buttons has for all of them.
std::string Fields::FieldEntries(const Field& field) const {
  const Output& out = document_.out;
  std::string entries = "/FT " + std::string(TypeOf(field.type).entry) + " /Ff " +
                        std::to_string(field.flags) + " /DA " + out.Text(field.defaultAppearance);
  if (!field.toolTip.empty()) entries += " /TU " + out.Text(field.toolTip);
  return entries;
}

std::string Fields::ValueEntries(const Field& field) const {
  const Output& out = document_.out;
  const Holds holds = TypeOf(field.type).holds;
  std::string value, options;
  if (holds == Holds::State) {
    value = StateName(field.on ? field.state : "");
  } else if (holds == Holds::Choice && (field.flags & kSeveralChoices) != 0 &&
             field.value.find('|') != std::string::npos) {
    for (const std::string_view chosen : Split(field.value, '|')) value += out.Text(chosen) + " ";
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
  std::string fonts = document_.fonts;
  if (dingbats_ != 0)
    fonts.append("/").append(kDingbats.resource).append(" ") += Reference(dingbats_);
  return "/AcroForm <</NeedAppearances true /Fields [ " + References(roots_) + "] /CO [ " +
         References(calculated_) + "] /DR << /Font << " + fonts + ">> >> >> ";
}

}  // namespace lm::pdf
