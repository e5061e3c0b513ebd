#include "documents/templatecheck.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/files.h"
#include "core/text.h"
#include "documents/shippedtemplates.h"
#include "documents/template.h"
#include "tests/documents/template_xml.h"

namespace lm {
namespace {

using test::Attributes;
using test::Document;
using test::Item;
using test::Section;
using test::Template;

bool LogoIsThere(std::string_view name) { return name == "logo.png"; }

// "3! fault" or "3 note", one line a finding.
std::string Findings(const std::string& bytes) {
  std::string all;
  for (const TemplateFinding& finding : CheckTemplate(bytes, LogoIsThere))
    all += std::to_string(finding.line) + (finding.note ? " " : "! ") + finding.text + "\n";
  return all;
}

// The item in a section "session" of 10 mm, on A4 with margins of 20 and 15.5 mm.
std::string FindingsOfItem(const std::string& item) {
  return Findings(Template("\n" + Section("session", "\n" + item)));
}

TEST(TemplateCheck, NothingIsWrongWithAWholeTemplate) {
  const std::string xml =
      Template(Section("session", Item("T") + Item("S") + Item("P", {{"filename", "logo.png"}})) +
                   Section("invfooter", Item("T", {{"halign", "right"}, {"top", "-100"}}), "40") +
                   Section("backgroundall", Item("S", {{"top", "0"}, {"height", "297"}})),
               Document({{"page_backgrounds", "same on all pages"}, {"show_expenses", "no"}}));
  for (const std::string& bytes :
       {xml, xml + "\n", "\xEF\xBB\xBF" + xml, "\n" + xml, EncipherTemplate(xml)})
    EXPECT_EQ(Findings(bytes), "");
}

TEST(TemplateCheck, WhatIsNoTemplateHasOneFinding) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "0! This is neither the XML of a template nor a template file.\n"},
      {EncipherTemplate(Template("")).substr(1),
       "0! This is neither the XML of a template nor a template file.\n"},
      {"<template>\n<document\n</template>",
       "3! Error code 11: Error parsing start element tag.\n"},
      {"<template>\n<document></template>", "2! Error code 14: Start-end tags mismatch.\n"},
      {"\n<invoice></invoice>", "2! The root element is 'invoice' where 'template' is wanted.\n"},
  };
  for (const auto& [bytes, findings] : cases) EXPECT_EQ(Findings(bytes), findings);
}

struct Case {
  Attributes changes;
  const char* finding;  // "" for none
};

void ExpectFindings(const std::string& kind, const std::vector<Case>& cases) {
  for (const Case& each : cases) {
    const std::string found = FindingsOfItem(Item(kind, each.changes));
    const std::string wanted = each.finding;
    EXPECT_EQ(found, wanted.empty() ? "" : wanted + "\n");
  }
}

TEST(TemplateCheck, ValuesOfTexts) {
  ExpectFindings(
      "T",
      {{{{"halign", "centre"}, {"valign", "Bottom"}, {"textcase", "uppercase"}}, ""},
       {{{"halign", "middle"}}, "3! halign 'middle' is not LEFT, CENTRE, CENTER or RIGHT."},
       {{{"valign", ""}}, "3! valign '' is not TOP, MIDDLE or BOTTOM."},
       {{{"textcase", "up"}}, "3! textcase 'up' is not UPPER, LOWER, INITIAL or NONE."},
       {{{"gradient", "SIDEWAYS"}},
        "3! gradient 'SIDEWAYS' is not ACROSS, DOWN, DIAGONAL DOWN, DIAGONAL UP, RADIAL or NONE."},
       {{{"backstyle", "OPAQE"}}, "3! backstyle 'OPAQE' is not OPAQUE, TRANSPARENT or NONE."},
       {{{"fontbold", "yes"}}, "3! fontbold 'yes' is not TRUE or FALSE."},
       {{{"textcolor", "16777215"}}, ""},
       {{{"textcolor", "16777216"}}, "3! textcolor '16777216' is a colour beyond 16777215."},
       {{{"bordercolor", "#FF0000"}}, "3! bordercolor '#FF0000' is no decimal colour number."},
       {{{"fillcolor1", "-1"}}, "3! fillcolor1 '-1' is no decimal colour number."},
       {{{"left", "1e3"}}, "3! left '1e3' is no number."},
       {{{"height", "12mm"}}, "3! height '12mm' is no number."},
       {{{"width", "-5"}}, "3! width '-5' is no length."},
       {{{"fontsize", "0"}}, "3! fontsize '0' is no number above 0."},
       {{{"horizontalscaling", ""}}, "3! horizontalscaling '' is no number."},
       {{{"fontname", "times  new roman"}}, ""},
       {{{"fontname", "VERDANA"}}, ""},
       {{{"fontname", "Comic Sans"}},
        "3! fontname 'Comic Sans' is no font of the PDF writer; Arial is used in its place."},
       {{{"caption", "\xE6\x97\xA5"}},
        "3! The attribute 'caption' holds a character that the PDF has not; it becomes a question "
        "mark."},
       {{{"caption", "-"}}, "3! The attribute 'caption' is missing."},
       {{{"weblink", "-"}}, "3! The attribute 'weblink' is missing."},
       {{{"Caption", "x"}}, "3! Unknown attribute 'Caption'; it is written 'caption'."},
       {{{"bold", "1"}}, "3! Unknown attribute 'bold'."},
       {{{"filename", "x"}}, "3 The attribute 'filename' is not used by an object of kind 'T'."}});
}

TEST(TemplateCheck, FieldsOfCaptions) {
  ExpectFindings("T",
                 {{{{"caption", "{ invoice total | #,##0.00 } {MY NAME}{My Phonenumer|}"}}, ""},
                  {{{"caption", "} a"}}, ""},
                  {{{"caption", "{INVOICE TOTALS}"}},
                   "3! There is no field '{INVOICE TOTALS}'; nothing is drawn for it."},
                  {{{"caption", "{}"}}, "3! There is no field '{}'; nothing is drawn for it."},
                  {{{"caption", "Page {page}"}}, "3 The field '{PAGE}' is never filled."},
                  {{{"caption", "{pages}"}}, "3 The field '{PAGES}' is never filled."},
                  {{{"shownwith", "{Practice Faxes}"}},
                   "3! There is no field '{Practice Faxes}'; nothing is drawn for it."},
                  {{{"fit", "SHRINK"}, {"emptylines", "CLOSE"}, {"below", "2"}}, ""},
                  {{{"fit", "LARGER"}}, "3! fit 'LARGER' is not SHRINK or NONE."},
                  {{{"caption", "{DATE} and {MY NAME"}},
                   "3! A '{' is not closed; the text from it on is not drawn: '{MY NAME'."}});
}

TEST(TemplateCheck, AlignmentNeedsHorizontalScaling) {
  const auto without = [](const char* across, const char* down) {
    return Attributes{{"horizontalscaling", "-"}, {"halign", across}, {"valign", down}};
  };
  ExpectFindings(
      "T", {{without("left", "top"), ""},
            {without("Right", "TOP"),
             "3! Without horizontalscaling=\"100\" the text is drawn top-left and not RIGHT, and a "
             "rectangle is drawn behind it."},
            {without("CENTER", "TOP"),
             "3! Without horizontalscaling=\"100\" the text is drawn top-left and not CENTER, and "
             "a rectangle is filled behind it."},
            {without("LEFT", "middle"),
             "3 Without horizontalscaling=\"100\" the text is drawn at the top and not MIDDLE."}});
}

TEST(TemplateCheck, ShapesAndPictures) {
  ExpectFindings("S",
                 {{{{"objectshape", "circle"}}, ""},
                  {{{"objectshape", "STAR"}}, "3! objectshape 'STAR' is not RECTANGLE or CIRCLE."},
                  {{{"cornerradius", "-"}}, "3! The attribute 'cornerradius' is missing."},
                  {{{"objectsubtype", "s"}},
                   "3! objectsubtype 's' is not T, S or P; the object is not drawn."},
                  {{{"objectsubtype", "-"}}, "3! The attribute 'objectsubtype' is missing."}});
  ExpectFindings("P", {{{{"filename", "logo.png"}}, ""},
                       {{{"filename", ""}}, "3 The picture has no file; nothing is drawn."},
                       {{{"filename", "a.png"}}, "3! There is no picture file 'a.png'."},
                       {{{"filename", "-"}}, "3! The attribute 'filename' is missing."}});
}

TEST(TemplateCheck, ObjectsStayOnThePage) {
  struct Place {
    const char *section, *left, *width, *top, *height;
    const char* finding;  // its end; "" for none
  };
  const Place places[] = {
      {"session", "0", "210", "0", "25.5", ""},  // down to the bottom margin's end
      {"session", "-0.1", "10", "0", "5", "from -0.1 to 9.9 mm across; the page is 210 mm wide.\n"},
      {"session", "200", "10.1", "0", "5", "to 210.1 mm across; the page is 210 mm wide.\n"},
      {"session", "0", "1", "20", "6", "'session'; there the page reaches from -20 to 25.5 mm.\n"},
      {"session", "0", "1", "-21", "6", "there the page reaches from -20 to 25.5 mm.\n"},
      {"invheader", "0", "1", "290", "7", ""},  // out of the section, but on the page
      {"invheader", "0", "1", "290", "8", "there the page reaches from 0 to 297 mm.\n"},
      {"pageheader", "0", "1", "-1", "8", "there the page reaches from 0 to 297 mm.\n"},
      {"invfooter", "0", "1", "-287", "297", ""},
      {"invfooter", "0", "1", "5", "6", "there the page reaches from -287 to 10 mm.\n"},
  };
  for (const Place& place : places) {
    const std::string item = Item("S", {{"left", place.left},
                                        {"width", place.width},
                                        {"top", place.top},
                                        {"height", place.height}});
    std::string xml = Template(Section(place.section, item));
    if (std::string_view(place.section) != "session")
      xml = Template(Section("session") + Section(place.section, item));
    const std::string found = Findings(xml);
    EXPECT_TRUE(*place.finding ? found.ends_with(place.finding) : found.empty()) << found;
  }
}

TEST(TemplateCheck, SectionsAndDocument) {
  const std::string session = Section("session");
  const std::pair<std::string, std::string> cases[] = {
      {Template(session, Document({{"papersize", "A5"}, {"orientation", "-"}})),
       "1! papersize 'A5' is not A4, LETTER or LEGAL.\n"
       "1! The attribute 'orientation' is missing.\n"},
      {Template(session, ""), "1! There is no element 'document'.\n"},
      {Template(session + "\n" + Document()),
       "2! This is a second element 'document'; only the first is read.\n"},
      {Template(session + "\n<page/>"), "2! Unknown element 'page' in the element 'template'.\n"},
      {Template(session + "\nsome words"),
       "1! The text in the element 'template' is not read; everything stands in attributes.\n"},
      {Template(session + "\n" + Section("header")),
       "2! Unknown section 'header'; it is never drawn.\n"},
      {Template(session + "\n" + Section("PageHeader")),
       "2! The section 'PageHeader' is written 'pageheader'; in another case its height is not "
       "read and stays 0.\n"},
      {Template(session + "\n<section id='pageheader'/>"),
       "2! The attribute 'height' is missing.\n"},
      {Template(session + "\n<section height='5'/>"), "2! The attribute 'id' is missing.\n"},
      {Template(session + "\n" + session),
       "2 There is another section 'session'; each of them is drawn, with the height of the "
       "last.\n"},
      {Template(Section("session", "", "262")),
       "1! The section 'session' is taller than the 261.5 mm that a page has for it: each begins a "
       "page and overruns it.\n"},
      {Template(session + Section("invheader", "", "297.5")),
       "1! The section 'invheader' is taller than the 297 mm that a page has for it.\n"},
      {Template(session + Section("extra") + Section("backgroundall")),
       "1 show_extras: the section 'extra' is there, but never drawn.\n"
       "1 page_backgrounds: the section 'backgroundall' is there, but never drawn.\n"},
      {Template("", Document({{"show_expenses", "YES"}})),
       "1 show_expenses: the section 'expense' is shown, but there is none.\n"
       "1 There is no section 'session'.\n"},
      {Template(session) + "\n<!-- end -->",
       "2! The text does not end in '</template>'; enciphered it is not read.\n"},
      {Template(session, Document({{"margin_top", "2' margin_top='2"}})),
       "1! The attribute 'margin_top' stands there twice.\n"},
  };
  for (const auto& [xml, findings] : cases) EXPECT_EQ(Findings(xml), findings);
}

TEST(TemplateCheck, LinesAreThoseOfTheAttributes) {
  std::string item = Item("T", {{"fontbold", "maybe"}, {"left", "300"}});
  item = Replace(item, " ", "\n");
  EXPECT_EQ(FindingsOfItem(item),
            "3! The object reaches from 300 to 350 mm across; the page is 210 mm wide.\n" +
                std::to_string(
                    3 + std::count(item.begin(),
                                   item.begin() + static_cast<int>(item.find("fontbold")), '\n')) +
                "! fontbold 'maybe' is not TRUE or FALSE.\n");
}

TEST(TemplateCheck, FindsWhatTheReaderRefuses) {
  // Whatever the check lets pass is read.
  const std::string xml = Template(Section("session", Item("T") + Item("P")) + Section("extra"));
  for (std::size_t i = 0; i < xml.size(); ++i) {
    for (const std::string& changed :
         {xml.substr(0, i) + xml.substr(i + 1), xml.substr(0, i) + "'" + xml.substr(i + 1)}) {
      const auto findings = CheckTemplate(changed, LogoIsThere);
      if (std::ranges::all_of(findings, &TemplateFinding::note)) {
        EXPECT_NO_THROW(ParseTemplate(changed)) << changed;
      }
    }
  }
}

TEST(TemplateCheck, ShippedTemplatesAreRight) {
  const auto shipped = ShippedTemplates();
  const auto pictureIsThere = [&](std::string_view filename) {
    return std::ranges::any_of(shipped, [&](const ShippedFile& file) {
      return Replace(filename, "\\", "/") ==
             "../" + std::string(file.folder) + "/" + std::string(file.name);
    });
  };
  for (const ShippedFile& file : shipped) {
    if (!file.name.ends_with(".tmpl")) continue;
    for (const TemplateFinding& finding : CheckTemplate(file.bytes, pictureIsThere))
      ADD_FAILURE() << file.name << " line " << finding.line << ": " << finding.text;
  }
}

}  // namespace
}  // namespace lm
