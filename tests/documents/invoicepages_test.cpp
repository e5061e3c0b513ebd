// A template's sections down the pages: the flow, page breaks, what every page has, and what a
// faulty template does. Read back with PDF tools.
#include "documents/invoicepages.h"

#include "core/text.h"
#include "tests/documents/paper.h"
#include "tests/pdf/rendered_page.h"

namespace lm {
namespace {

using test::Attributes;
using test::FindWord;
using test::Item;
using test::kNear;
using test::Paper;
using test::Section;
using test::Text;

TEST(InvoicePages, SectionsFlowDownThePage) {
  Paper paper(3);
  const auto words = paper.Write(
      Section("pageheader", Text("PH"), "50") + Section("invheader", Text("IH"), "30") +
      Section("session", Text("S{Session Total}")) + Section("sessionfooter", Text("F"), "4.5") +
      Section("pagefooter", Text("PF"), "20") + Section("invfooter", Text("IF"), "40"));
  const double in = FindWord(words, "PH").top;  // what an item's top makes on the page
  EXPECT_NEAR(in, 2, 1.5);
  const std::pair<const char*, double> kTops[] = {{"IH", 0},  {"S1", 30},  {"S2", 40},
                                                  {"S3", 50}, {"PF", 277}, {"IF", 257}};
  for (const auto& [word, top] : kTops)
    EXPECT_NEAR(FindWord(words, word).top, top + in, kNear) << word;
  EXPECT_EQ(FindWord(words, "F").text, "") << "not asked for";

  const auto footers = paper.Write(
      Section("session", Text("S{Session Total}")) + Section("sessionfooter", Text("F"), "4.5"),
      {{"show_sessionfooter", "yes"}});
  EXPECT_NEAR(FindWord(footers, "S2").top - FindWord(footers, "S1").top, 14.5, kNear);
  EXPECT_NEAR(FindWord(footers, "F").top - FindWord(footers, "S1").top, 10, kNear);
}

TEST(InvoicePages, SessionsStandByDate) {
  Paper paper;
  for (const char* date : {"02/03/2026", "10/02/2026", "banana", "1/3/2026", "", "10/02/2026"})
    paper.AddSession("1", date, "10", {"INVOICE=1"});
  paper.AddSession("1", "01/01/2026", "10", {"INVOICE=2"});
  EXPECT_EQ(paper.WriteText(Section("session", Text("{Start Date} {Session Practice}"))),
            "1:banana 1:Riverside 1:Riverside 1:10/02/2026 1:Riverside 1:10/02/2026 1:Riverside "
            "1:1/3/2026 1:Riverside 1:02/03/2026 1:Riverside");
}

TEST(InvoicePages, PagesBreakBeforeWhatDoesNotFit) {
  // A4 of 297 with 15.5 kept free: a session of 10 may begin at 271.5 and no lower.
  const struct {
    int sessions;
    const char *header, *session, *footer;
    int lastSession, footerPage;
  } kCases[] = {
      {0, "30", "10", "10", 0, 1},    {25, "30", "10", "10", 1, 1},  // the last one from 270 to 280
      {25, "31.5", "10", "10", 1, 1},                                // from 271.5
      {25, "31.6", "10", "10", 2, 2},                                //
      {26, "30", "10", "10", 2, 2},                                  //
      {24, "30", "10", "27", 1, 1},    // the flow ends where the footer begins
      {24, "30", "10", "27.1", 1, 2},  //
      {2, "30", "400", "10", 3, 4},    // taller than a page: each on its own, the footer still fits
      {81, "0.5", "3.5", "10", 2, 2},  // 80 of them end at 280.5
      {80, "0.5", "3.5", "10", 1, 1},
  };
  for (const auto& [sessions, header, session, footer, lastSession, footerPage] : kCases) {
    Paper paper(sessions);
    paper.Write(Section("invheader", Text("IH"), header) +
                Section("session", Text("S{Session Total}"), session) +
                Section("invfooter", Text("IF"), footer));
    const auto words = test::WordsOf(paper.File());
    SCOPED_TRACE(std::to_string(sessions) + " of " + session);
    EXPECT_EQ(FindWord(words, "S" + std::to_string(sessions)).page, lastSession);
    EXPECT_EQ(FindWord(words, "IF").page, footerPage) << footer;
  }
}

TEST(InvoicePages, FurtherPagesBeginAtTheTopMargin) {
  Paper paper(30);
  const auto words = paper.Write(
      Section("invheader", Text("IH"), "30") + Section("session", Text("S{Session Total}")),
      {{"margin_top", "55"}});
  EXPECT_NEAR(FindWord(words, "S26").top, FindWord(words, "IH").top + 55, kNear);
  EXPECT_EQ(FindWord(words, "S26").page, 2);
}

TEST(InvoicePages, BackgroundsHeadersAndFootersOfPages) {
  const struct {
    const char* backgrounds;
    const char* text;
  } kCases[] = {
      {"Different on page 1", "1:B1 1:PH 1:IH 1:PF 2:BA 2:PH 2:PF"},
      {"SAME ON ALL PAGES", "1:BA 1:PH 1:IH 1:PF 2:BA 2:PH 2:PF"},
      {"none", "1:PH 1:IH 1:PF 2:PH 2:PF"},
      {"another", "1:PH 1:IH 1:PF 2:BA 2:PH 2:PF"},
  };
  for (const auto& [backgrounds, text] : kCases) {
    Paper paper(1);
    EXPECT_EQ(
        paper.WriteText(Section("background1", Text("B1", {{"top", "20"}})) +
                            Section("BackgroundAll", Text("BA", {{"top", "20"}})) +
                            Section("pageheader", Text("PH", {{"top", "30"}})) +
                            Section("pagefooter", Text("PF")) + Section("unknown", Text("XX")) +
                            Section("invheader", Text("IH", {{"top", "50"}}), "280") +
                            Section("session", Item("S")),
                        {{"page_backgrounds", backgrounds}}),
        text);
  }
}

TEST(InvoicePages, SectionsIgnoreTheCaseOfTheirIds) {
  Paper paper(2);
  const auto words = paper.Write(Section("INVHEADER", Text("IH"), "30") +
                                 Section("Session", Text("A{Session Total}"), "10") +
                                 Section("session", Text("B{Session Total}"), "25"));
  // The height is that of the id as it is read, and both sections are drawn for each session.
  const double top = FindWord(words, "A1").top;
  EXPECT_NEAR(top, FindWord(words, "IH").top, kNear) << "no height was read";
  EXPECT_NEAR(FindWord(words, "B1").top, top + 25, kNear);
  EXPECT_NEAR(FindWord(words, "A2").top, top + 50, kNear);
}

TEST(InvoicePages, ExtrasAndExpensesFollowTheirSession) {
  const struct {
    const char *extras, *expenses;
    const char* text;
  } kCases[] = {
      {"YES", "yes", "1:S1 1:Report 1:Visit 1:Mileage 1:S2"},
      {"Yes", "-", "1:S1 1:Report 1:Visit 1:S2"},
      {"NO", "YES", "1:S1 1:Mileage 1:S2"},
      {"TRUE", "1", "1:S1 1:S2"},
  };
  for (const auto& [extras, expenses, text] : kCases) {
    Paper paper(2);
    for (const char* item : {"ITEM=Report", "ITEM=Visit"})
      paper.AddRow(paper.ledger.fgExtras, {"SESSID=1", item});
    paper.AddRow(paper.ledger.fgExtras, {"SESSID=9", "ITEM=Other"});
    paper.AddRow(paper.ledger.fgSessionExpenses, {"SESSID=1", "ITEM=Mileage"});
    EXPECT_EQ(paper.WriteText(Section("session", Text("S{Session Total}")) +
                                  Section("extra", Text("{Extra Item}"), "5") +
                                  Section("expense", Text("{Expense Item}"), "5"),
                              {{"show_extras", extras}, {"show_expenses", expenses}}),
              text);
  }
}

TEST(InvoicePages, WithoutSessionsHeadersAndFootersOnly) {
  Paper paper;
  EXPECT_EQ(
      paper.WriteText(Section("invheader", Text("{Practice}")) + Section("session", Text("S")) +
                      Section("extra", "") + Section("invfooter", Text("{Invoice Total}"))),
      "1:Riverside 1:1234.5");
  EXPECT_EQ(paper.WriteText(Section("invheader") + Section("invfooter")), "") << "nothing in them";
}

TEST(InvoicePages, PageSizes) {
  const struct {
    const char *paper, *orientation;
    const char* points;
  } kCases[] = {
      {"A4", "PORTRAIT", "595.276 x 841.89 pts (A4)"},
      {"a4", "Landscape", "841.89 x 595.276 pts (A4)"},
      {"Letter", "", "612.283 x 790.866 pts"},
      {"LEGAL", "x", "612.283 x 1009.13 pts"},
  };
  for (const auto& [paper, orientation, points] : kCases) {
    Paper sheet;
    sheet.Write(Section("invheader", Text("x")),
                {{"papersize", paper}, {"orientation", orientation}});
    EXPECT_NE(test::OutputOf("pdfinfo '" + sheet.File().string() + "'").find(points),
              std::string::npos)
        << paper << orientation;
  }
}

// Faults

TEST(InvoicePages, AFaultEndsItsSection) {
  Paper paper(2);
  const auto words =
      paper.Write(Section("pageheader", Text("PH")) +
                  Section("session", Text("S{Session Total}") + Text("lost", {{"fontbold", "-"}}) +
                                         Text("more")) +
                  Section("extra", Text("{Extra Item}")) + Section("invfooter", Text("IF")));
  for (const char* drawn : {"PH", "S1", "S2", "IF"}) EXPECT_EQ(FindWord(words, drawn).page, 1);
  EXPECT_EQ(words.size(), 4u) << "what stands behind the fault is lost";
  EXPECT_NEAR(FindWord(words, "S1").top, FindWord(words, "S2").top, kNear)
      << "the flow stays where it was";
  ASSERT_EQ(paper.shown.messages.size(), 1u) << "not for every session";
  const MessageBoxText& told = paper.shown.messages[0];
  EXPECT_EQ(told.title, "Error while processing document template");
  EXPECT_EQ(told.mainPrompt,
            "Section: session\r\nError: E0412\r\nDetails : 5 Line 1: The attribute 'fontbold' is "
            "missing.");
  EXPECT_EQ(told.minorPrompt.find("\r\n\r\nLedgerMinder will attempt to complete the document"),
            0u);
}

TEST(InvoicePages, EveryAttributeOfAnItemIsNeeded) {
  const std::pair<const char*, const char*> kAttributes[] = {
      {"T",
       "left top width height cornerradius caption hideifempty textcolor fontname fontsize "
       "allowexpansion fontbold fontitalic fontunderline fontstrikethrough halign valign "
       "textcase fillcolor1 fillcolor2 gradient borderwidth bordercolor backstyle"},
      {"S",
       "left top width height cornerradius fillcolor1 fillcolor2 gradient borderwidth "
       "bordercolor backstyle objectshape"},
      {"P", "left top width height filename"}};
  for (const auto& [kind, names] : kAttributes)
    for (const std::string_view name : Split(names, ' ')) {
      Paper paper;
      // Red where the item is drawn: nothing of it may be.
      const Attributes changes{{std::string(name), "-"}, {"fillcolor1", "255"},
                               {"left", "20"},           {"top", "20"},
                               {"width", "100"},         {"height", "50"},
                               {"backstyle", "OPAQUE"},  {"filename", "x"}};
      Attributes used = changes;
      used[std::string(name)] = "-";
      EXPECT_EQ(paper.WriteText(Section("invheader", Item(kind, used) + Text("lost")) +
                                Section("invfooter", Text("IF"))),
                "1:IF")
          << kind << name;
      EXPECT_EQ(paper.Messages(),
                "Section: invheader\r\nError: E0412\r\nDetails : 5 Line 1: The attribute '" +
                    std::string(name) + "' is missing.");
      EXPECT_NE(test::RenderedPage(paper.File(), 1).At(198, 128), (test::Pixel{255, 0, 0}))
          << kind << name;
    }
  // The link comes when the item is drawn.
  Paper paper;
  EXPECT_EQ(paper.WriteText(Section("invheader", Text("first", {{"weblink", "-"}}) + Text("lost"))),
            "1:first");
}

TEST(InvoicePages, HostileTemplatesEnd) {
  const std::string many(1000, '9');
  const struct {
    std::string sections;
    Attributes document;
    const char* message;
  } kCases[] = {
      {Section("session", Text("x", {{"left", "1e308"}})), {}, "Section: session"},
      {Section("session", Text("x", {{"width", many}})), {}, "Section: session"},
      {Section("session", Text("x", {{"height", "99999"}})), {}, "Section: session"},
      {Section("session", Text("x", {{"fontsize", "1e9"}})), {}, "Section: session"},
      {Section("session", Text("x", {{"borderwidth", "-4"}})), {}, ""},
      {Section("session", Text("x", {{"fontsize", "-3"}, {"width", "-50"}, {"height", "-9"}})),
       {},
       ""},
      {Section("session", Text(std::string(20000, 'x'), {{"allowexpansion", "DOWN"}})), {}, ""},
      {Section("session", Text(std::string(50000, ' '), {{"allowexpansion", "DOWN"}})), {}, ""},
      {Section("session", Item("X") + Item("t")), {}, ""},
      {Section("session", "<item/>"), {}, "Section: session"},
      {Section("session", Item("S", {{"cornerradius", "9999"}, {"gradient", "RADIAL"}})), {}, ""},
      {Section("session", Text("x")), {{"papersize", "A0"}}, ""},
      {Section("session", Text("x")), {{"margin_top", "9999"}, {"margin_bottom", "9999"}}, ""},
      {Section("session", Text("x"), "9999") + Section("pagefooter", Text("y"), "-9999"), {}, ""},
  };
  for (const auto& [sections, document, message] : kCases) {
    Paper paper(3);
    paper.Write(sections, document);
    EXPECT_EQ(paper.Messages().substr(0, 16), message) << sections.substr(0, 300);
  }
}

}  // namespace
}  // namespace lm
