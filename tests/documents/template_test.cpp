#include "documents/template.h"

#include <gtest/gtest.h>

#include <chrono>

#include "core/files.h"
#include "core/messagebox.h"
#include "core/text.h"
#include "tests/documents/template_xml.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using test::Document;
using test::Item;
using test::Section;
using test::Template;

// The fault that a text is refused with; "" when it is read.
std::string FaultOf(const std::string& xml) {
  try {
    ParseTemplate(xml);
    return "";
  } catch (const TemplateError& fault) {
    return fault.what();
  }
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(Template, ReadsMeasuresFlagsAndSections) {
  const DocumentTemplate layout = ParseTemplate(
      Template(Section("session", Item("T") + Item("S"), "7.25") + "<section id='background1'/>\n" +
                   Section("Extra", "", "9") + Section("session", "", "8"),
               Document({{"orientation", "LANDSCAPE"},
                         {"papersize", "letter"},
                         {"show_extras", "yes"},
                         {"page_backgrounds", "Different on page 1"}})));
  EXPECT_EQ(layout.width, 279);
  EXPECT_EQ(layout.height, 216);
  EXPECT_EQ(layout.marginTop, 20);
  EXPECT_EQ(layout.marginBottom, 15.5);
  EXPECT_TRUE(layout.showExtras);
  EXPECT_FALSE(layout.showExpenses || layout.showSessionFooter) << "they may be absent";
  EXPECT_EQ(layout.backgrounds, PageBackgrounds::DifferentOnPage1);
  ASSERT_EQ(layout.sections.size(), 4u);
  EXPECT_EQ(layout.sections[0].items.size(), 2u);
  EXPECT_EQ(layout.sections[2].line, 2);
  EXPECT_EQ(layout.Sections("SESSION").size(), 2u);
  EXPECT_EQ(layout.HeightOf("session"), 8) << "the last one's";
  EXPECT_EQ(layout.Sections("extra").size(), 1u);
  EXPECT_EQ(layout.HeightOf("extra"), 0) << "an id in another case is drawn, its height not read";
  EXPECT_EQ(layout.HeightOf("Extra"), 0);
}

TEST(Template, PaperAndBackgroundsByTheirNames) {
  const std::tuple<const char*, const char*, double, double> papers[] = {
      {"A4", "", 210, 297},
      {"legal", "portrait", 216, 356},
      {"A5", "LANDSCAPE", 0, 0},
      {"", "", 0, 0}};
  for (const auto& [size, orientation, width, height] : papers) {
    const DocumentTemplate layout =
        ParseTemplate(Template("", Document({{"papersize", size}, {"orientation", orientation}})));
    EXPECT_EQ(layout.width, width) << size;
    EXPECT_EQ(layout.height, height) << size;
  }
  const std::pair<const char*, PageBackgrounds> backgrounds[] = {
      {"none", PageBackgrounds::None},
      {"SAME ON ALL PAGES", PageBackgrounds::SameOnAllPages},
      {"sometimes", PageBackgrounds::Other}};
  for (const auto& [name, kind] : backgrounds)
    EXPECT_EQ(ParseTemplate(Template("", Document({{"page_backgrounds", name}}))).backgrounds,
              kind);
}

TEST(Template, AttributesBecomeTheProgramsText) {
  const auto caption = [](const std::string& xml) {
    return ParseTemplate(xml).sections.at(0).items.at(0).Text("caption");
  };
  const auto with = [](const std::string& text) {
    return Template(Section("session", Item("T", {{"caption", text}})));
  };
  const std::string declared = "<?xml version='1.0' encoding='";
  const std::tuple<std::string, std::string> cases[] = {
      {with("caf\xC3\xA9 \xC2\xA3 \xE2\x82\xAC"), "caf\xE9 \xA3 \x80"},
      {"\xEF\xBB\xBF" + with("\xC2\xA3"), "\xA3"},
      {declared + "utf-8'?>" + with("\xC2\xA3"), "\xA3"},
      {declared + "Windows-1252'?>" + with("\x80 \xA3"), "\x80 \xA3"},
      {declared + "ISO-8859-1'?>" + with("\xA3"), "\xA3"},
      {with("\xE6\x97\xA5 \xA3"), "? ?"},  // no place in Windows-1252; no UTF-8
      {with("a&#10;b&amp;&lt;&#xA3;"), "a\nb&<\xA3"},
      {with("a\nb"), "a b"},
      {with("&nosuch;"), "&nosuch;"},
  };
  for (const auto& [xml, text] : cases) EXPECT_EQ(caption(xml), text);
}

TEST(Template, ItemsTellWhatTheyLack) {
  const DocumentTemplate layout = ParseTemplate(
      Template(Section("session", "\n\n" + Item("T", {{"left", "1e308"},
                                                      {"top", "-10000"},
                                                      {"width", "10000.5"},
                                                      {"height", "banana"},
                                                      {"fontsize", std::string(400, '9')},
                                                      {"caption", "-"}}))));
  const TemplateItem& item = layout.sections[0].items[0];
  EXPECT_EQ(item.Number("top"), -10000);
  EXPECT_EQ(item.Number("height"), 0);
  EXPECT_EQ(item.Find("caption"), nullptr);
  EXPECT_EQ(item.Find("Left"), nullptr);
  const std::pair<const char*, std::string> faults[] = {
      {"width", "Line 3: The attribute 'width' lies beyond any page: 10000.5."},
      {"left", "Line 3: The attribute 'left' lies beyond any page: 1e308."},
      {"fontsize",
       "Line 3: The attribute 'fontsize' lies beyond any page: " + std::string(40, '9') + "."},
      {"caption", "Line 3: The attribute 'caption' is missing."}};
  for (const auto& [name, text] : faults) {
    try {
      item.Number(name);
      ADD_FAILURE() << name;
    } catch (const TemplateError& fault) {
      EXPECT_EQ(fault.what(), text);
    }
  }
}

TEST(Template, RefusesWhatIsNone) {
  const std::string section = "\n" + Section("session");
  const std::pair<std::string, const char*> cases[] = {
      {"", "Error code 16"},
      {"   ", "Error code 16"},
      {"<template>", "Line 1: Error code 14: Start-end tags mismatch."},
      {Template(section).substr(0, 150), "Error code"},
      {std::string("<\0t\0>\0", 6), "zero byte"},
      {Template(section) + std::string(1, '\0') + "</template>", "zero byte"},
      {"<invoice>" + Document() + "</invoice>", "root element is 'invoice'"},
      {"<Template>" + Document() + "</Template>", "root element is 'Template'"},
      {Template(section) + "<template></template>", "Line 2: A second root element"},
      {Template(section, ""), "no element 'document'"},
      {Template("", Document({{"margin_top", "-"}})), "'margin_top' is missing"},
      {Template("", Document({{"margin_bottom", "99999"}})), "beyond any page"},
      {Template("", Document({{"show_extras", "-"}})), "'show_extras' is missing"},
      {Template("", Document({{"page_backgrounds", "-"}})), "'page_backgrounds' is missing"},
      {Template("", Document({{"papersize", "-"}})), "'papersize' is missing"},
      {Template("", Document({{"orientation", "-"}})), "'orientation' is missing"},
      {Template("\n<section height='1'/>"), "Line 2: The attribute 'id' is missing"},
      {Template("\n<section id='extra'/>"), "Line 2: The attribute 'height' is missing"},
      {Template("<section id='extra' height='-10001'/>"), "beyond any page"},
      {"<?xml version='1.0' encoding='UTF-16'?>" + Template(section), "'UTF-16' is not understood"},
      {"<?xml version='1.0' encoding='\xFF'?>" + Template(section), "'?' is not understood"},
      {"<!DOCTYPE template>" + Template(section), "document type declaration"},
  };
  for (const auto& [xml, fault] : cases)
    EXPECT_NE(FaultOf(xml).find(fault), std::string::npos) << xml << "\n" << FaultOf(xml);
}

TEST(Template, HostileSizesEndSoon) {
  const std::string bomb =
      "<!DOCTYPE template [<!ENTITY a 'lol'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;'>"
      "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'>]>" +
      Template(Section("session", Item("T", {{"caption", "&c;"}})));
  const std::string attributes = Repeated(" a='1'", 1'000'000);
  const std::string sections = Repeated("<section id='x'/>", 1000);
  const std::pair<std::string, bool> cases[] = {
      {bomb, true},
      {Template(Repeated("<section/>", 1'000'000)), true},
      {Template(sections), false},
      {Template(sections + "<section id='x'/>"), true},
      {Template(Section("session", Repeated("<item/>", 10'000))), false},
      {Template(Section("session", Repeated("<item/>", 10'001))), true},
      {Template(Repeated("<a>", 49'000) + Repeated("</a>", 49'000)), false},
      {Template(Repeated("<a>", 1'000'000)), true},
      {Template("<section id='session' height='1'><item" + attributes + "/></section>"), false},
      {Template("<!--" + std::string(std::size_t{1} << 24, ' ') + "-->"), true},
      {Repeated("<!DOCTYPE ", 90'000), true},
      {"<!DOCTYPE a " + Repeated("<!b ", 90'000), true},
  };
  const auto begin = std::chrono::steady_clock::now();
  for (const auto& [xml, refused] : cases)
    EXPECT_EQ(!FaultOf(xml).empty(), refused) << xml.substr(0, 60) << FaultOf(xml);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

TEST(Template, EveryCutAndEveryChangedByteIsReadOrRefused) {
  const std::string xml = Template(Section("session", Item("T") + Item("P")) + Section("extra"));
  int refused = 0;
  for (std::size_t i = 0; i < xml.size(); ++i) {
    std::string changed = xml;
    for (const char c : {'<', '>', '\'', '&', '\0', '\xC3'}) {
      changed[i] = c;
      refused += FaultOf(changed).empty() ? 0 : 1;
    }
    EXPECT_NE(FaultOf(xml.substr(0, i)), "") << i;
  }
  EXPECT_GT(refused, 100);
}

TEST(Template, CipherGoesBothWays) {
  const std::string xml = Template(Section("session"));
  const std::string bytes = EncipherTemplate(xml + " \r\n\n");
  EXPECT_EQ(bytes.find("template"), std::string::npos);
  EXPECT_EQ(DecipherTemplate(bytes), xml);
  for (const std::string& bad : {std::string(), xml, bytes.substr(1), bytes.substr(0, 40),
                                 bytes + "\n", EncipherTemplate(xml + "<!-- end -->")})
    EXPECT_EQ(DecipherTemplate(bad), std::nullopt);
}

TEST(Template, LoadingTellsEachFailure) {
  test::TestLedger test;
  const auto file = test.ledger.File("A b.tmpl");
  const auto load = [&](const std::string& bytes) {
    std::string error;
    EXPECT_TRUE(ReplaceFile(file, bytes, error));
    return LoadTemplate(test, file);
  };
  const std::string good = EncipherTemplate(Template(Section("session")));
  EXPECT_TRUE(load(good));
  EXPECT_TRUE(test.shown.messages.empty());

  struct Case {
    std::string bytes;
    const char *title, *heading, *reason;
  };
  const char* kTitle = "Template Loading Error";
  const char* kUndeciphered = "Unable to load and decrypt template file";
  const char* kCorrupt = "The file is either corrupt, or is not of the correct type. ";
  const Case cases[] = {
      {"", kTitle, kUndeciphered, kCorrupt},
      {good.substr(0, good.size() / 2), kTitle, kUndeciphered, kCorrupt},
      {Template(""), kTitle, kUndeciphered, kCorrupt},
      {EncipherTemplate("<a></template>"), "LedgerMinder", "Invalid XML.", "Line 1: Error code 14"},
      {EncipherTemplate("<a/><template></template>"), "LedgerMinder", "Invalid XML.",
       "second root"},
      {EncipherTemplate("<template></template>"), kTitle, "Unable to use template file",
       "no element 'document'"},
  };
  for (const Case& each : cases) {
    EXPECT_FALSE(load(each.bytes));
    ASSERT_FALSE(test.shown.messages.empty());
    const MessageBoxText& message = test.shown.messages.back();
    EXPECT_EQ(message.title, each.title);
    EXPECT_NE(message.minorPrompt.find("File: " + PathInMessage(file)), std::string::npos);
    EXPECT_NE(message.minorPrompt.find(each.reason), std::string::npos) << message.minorPrompt;
    EXPECT_EQ(test.shown.TakeMessage(), each.heading);
  }
  std::filesystem::remove(file);
  EXPECT_FALSE(LoadTemplate(test, file));
  EXPECT_EQ(test.shown.TakeMessage(), kUndeciphered);
}

}  // namespace
}  // namespace lm
