// Templates for tests, built up from the attributes that matter to them.
#pragma once

#include <map>
#include <string>

namespace lm::test {

using Attributes = std::map<std::string, std::string>;

// An element's start without its end: "<item left='1'". A value of "-" leaves the attribute out.
inline std::string Start(const std::string& name, Attributes attributes,
                         const Attributes& changes) {
  for (const auto& [key, value] : changes) attributes[key] = value;
  std::string text = "<" + name;
  for (const auto& [key, value] : attributes)
    if (value != "-") text += " " + key + "='" + value + "'";
  return text;
}

inline std::string Document(const Attributes& changes = {}) {
  return Start("document",
               {{"papersize", "A4"},
                {"orientation", "PORTRAIT"},
                {"margin_top", "20"},
                {"margin_bottom", "15.5"},
                {"show_extras", "NO"},
                {"page_backgrounds", "NONE"}},
               changes) +
         "/>";
}

inline std::string Item(const std::string& kind, const Attributes& changes = {}) {
  Attributes attributes{{"objectsubtype", kind}, {"left", "10"},  {"top", "2"},
                        {"width", "50"},         {"height", "6"}, {"weblink", ""}};
  const auto add = [&](const Attributes& more) { attributes.insert(more.begin(), more.end()); };
  if (kind != "P")
    add({{"cornerradius", "0"},
         {"fillcolor1", "16777215"},
         {"fillcolor2", "0"},
         {"gradient", "NONE"},
         {"borderwidth", "0"},
         {"bordercolor", "0"},
         {"backstyle", "TRANSPARENT"}});
  if (kind == "P") add({{"filename", ""}});
  if (kind == "S") add({{"objectshape", "RECTANGLE"}});
  if (kind == "T")
    add({{"caption", "Invoice {Invoice Number}"},
         {"hideifempty", "FALSE"},
         {"textcolor", "0"},
         {"fontname", "Arial"},
         {"fontsize", "10"},
         {"allowexpansion", "NONE"},
         {"fontbold", "FALSE"},
         {"fontitalic", "FALSE"},
         {"fontunderline", "FALSE"},
         {"fontstrikethrough", "FALSE"},
         {"halign", "LEFT"},
         {"valign", "TOP"},
         {"textcase", "NONE"},
         {"horizontalscaling", "100"}});
  return Start("item", attributes, changes) + "/>";
}

inline std::string Section(const std::string& id, const std::string& items = "",
                           const std::string& height = "10") {
  return Start("section", {{"id", id}, {"height", height}}, {}) + ">" + items + "</section>";
}

inline std::string Template(const std::string& sections, const std::string& document = Document()) {
  return "<template>" + document + sections + "</template>";
}

}  // namespace lm::test
