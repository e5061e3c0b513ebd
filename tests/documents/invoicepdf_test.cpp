// Invoices on paper, read back with PDF tools: where things stand, which page they are on, and what
// a faulty template does.
#include "documents/invoicepdf.h"

#include "core/text.h"
#include "tests/documents/invoice_desk.h"
#include "tests/pdf/picture_bytes.h"
#include "tests/pdf/rendered_page.h"

namespace lm {
namespace {

namespace fs = std::filesystem;
using test::Attributes;
using test::FindWord;
using test::InvoiceDesk;
using test::Item;
using test::Section;
using test::Word;

constexpr double kNear = 0.2;    // millimetres
constexpr double kLine = 4.307;  // height of a line of Arial 10

std::string Text(const std::string& caption, Attributes changes = {}) {
  changes["caption"] = caption;
  return Item("T", changes);
}

// An invoice of this many sessions "1.00", "2.00" ... on the days from 1 March on.
struct Paper : InvoiceDesk {
  explicit Paper(int sessions = 0) {
    ledger.fgInvoices.AddItem("");
    const std::pair<const char*, const char*> kCells[] = {{"ID", "1"},
                                                          {"NUMBER", "INV-1"},
                                                          {"PRACTICE", "1"},
                                                          {"AMOUNT", "1234.5"},
                                                          {"PUBLICNOTE", ""}};
    for (const auto& [key, text] : kCells) ledger.fgInvoices.SetTextMatrix(2, key, text);
    for (int i = 1; i <= sessions; ++i)
      AddSession("1", CellText(DateSerial(2026, 3, i)), std::to_string(i), {"INVOICE=1"});
  }

  fs::path File() { return Document("1"); }
  // Writes the invoice by this template; its words.
  std::vector<Word> Write(const std::string& sections, const Attributes& document = {}) {
    UseTemplate(test::Template(sections, test::Document(document)));
    EXPECT_TRUE(CreateInvoice(ledger, "1"));
    EXPECT_TRUE(test::IsSoundPdf(File()));
    return test::WordsOf(File());
  }
  // What stands on each page, "1:INV 2:INV".
  std::string WriteText(const std::string& sections, const Attributes& document = {}) {
    Write(sections, document);
    return test::PagedText(File());
  }
  std::string Objects() {
    return test::OutputOf("qpdf --qdf --object-streams=disable '" + File().string() + "' -");
  }
};

// Flow

TEST(InvoicePdf, SectionsFlowDownThePage) {
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

TEST(InvoicePdf, SessionsStandByDate) {
  Paper paper;
  for (const char* date : {"02/03/2026", "10/02/2026", "banana", "1/3/2026", "", "10/02/2026"})
    paper.AddSession("1", date, "10", {"INVOICE=1"});
  paper.AddSession("1", "01/01/2026", "10", {"INVOICE=2"});
  EXPECT_EQ(paper.WriteText(Section("session", Text("{Start Date} {Session Practice}"))),
            "1:banana 1:Riverside 1:Riverside 1:10/02/2026 1:Riverside 1:10/02/2026 1:Riverside "
            "1:1/3/2026 1:Riverside 1:02/03/2026 1:Riverside");
}

TEST(InvoicePdf, PagesBreakBeforeWhatDoesNotFit) {
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

TEST(InvoicePdf, FurtherPagesBeginAtTheTopMargin) {
  Paper paper(30);
  const auto words = paper.Write(
      Section("invheader", Text("IH"), "30") + Section("session", Text("S{Session Total}")),
      {{"margin_top", "55"}});
  EXPECT_NEAR(FindWord(words, "S26").top, FindWord(words, "IH").top + 55, kNear);
  EXPECT_EQ(FindWord(words, "S26").page, 2);
}

TEST(InvoicePdf, BackgroundsHeadersAndFootersOfPages) {
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

TEST(InvoicePdf, SectionsIgnoreTheCaseOfTheirIds) {
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

TEST(InvoicePdf, ExtrasAndExpensesFollowTheirSession) {
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

TEST(InvoicePdf, WithoutSessionsHeadersAndFootersOnly) {
  Paper paper;
  EXPECT_EQ(
      paper.WriteText(Section("invheader", Text("{Practice}")) + Section("session", Text("S")) +
                      Section("extra", "") + Section("invfooter", Text("{Invoice Total}"))),
      "1:Riverside 1:1234.5");
  EXPECT_EQ(paper.WriteText(Section("invheader") + Section("invfooter")), "") << "nothing in them";
}

TEST(InvoicePdf, PageSizes) {
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

// Items

TEST(InvoicePdf, AlignmentNeedsHorizontalScaling) {
  // A box of 80 by 30 at 20, 40.
  const struct {
    const char *halign, *valign;
    double across, down;  // where the text stands: 0 at the left or top, 1 at the right or bottom
  } kCases[] = {{"LEFT", "TOP", 0, 0},        {"centre", "Middle", 0.5, 0.5},
                {"Center", "BOTTOM", 0.5, 1}, {"RIGHT", "TOP", 1, 0},
                {"right", "bottom", 1, 1},    {"none", "none", 0, 0}};
  for (const auto& [halign, valign, across, down] : kCases) {
    Paper paper;
    Attributes box{{"left", "20"},     {"top", "40"},        {"width", "80"},
                   {"height", "30"},   {"halign", halign},   {"valign", valign},
                   {"fontsize", "20"}, {"fillcolor1", "255"}};
    const Word aligned = FindWord(paper.Write(Section("invheader", Text("Amount", box))), "Amount");
    const double width = aligned.right - aligned.left;
    const double height = aligned.bottom - aligned.top;
    EXPECT_NEAR(aligned.left, 20 + across * (80 - width), kNear) << halign;
    EXPECT_NEAR(aligned.top, 40 + down * (30 - height), 2.2) << valign;
    EXPECT_EQ(test::RenderedPage(paper.File(), 1).At(230, 180), (test::Pixel{255, 255, 255}));

    // Without it the number says how a rectangle is drawn: 4 fills, 2 strokes, 1 does nothing.
    box["horizontalscaling"] = "-";
    const Word plain = FindWord(paper.Write(Section("invheader", Text("Amount", box))), "Amount");
    EXPECT_NEAR(plain.left, 20, kNear) << halign;
    EXPECT_NEAR(plain.top, 40, 2.2) << valign;
    const test::RenderedPage page(paper.File(), 1);
    const bool filled = across == 0.5;
    const bool stroked = filled || across == 1;
    EXPECT_EQ(page.At(230, 180) == (test::Pixel{255, 0, 0}), filled) << halign;
    // With neither side named and none of the bits, mode 0 strokes.
    const bool border = stroked || std::string(halign) == "none";
    const auto isDark = [&](int x) { return page.At(x, 180)[0] < 128; };
    EXPECT_EQ(isDark(56) || isDark(57), border) << halign;
  }
}

TEST(InvoicePdf, HorizontalScalingIsOfItsItemAlone) {
  Paper paper;
  const auto words = paper.Write(
      Section("invheader", Text("wide", {{"horizontalscaling", "200"}}) +
                               Text("half", {{"horizontalscaling", "50"}, {"top", "20"}}) +
                               Text("wide.", {{"horizontalscaling", "-"}, {"top", "40"}}) +
                               Text("half.", {{"horizontalscaling", "x"}, {"top", "60"}})));
  const auto width = [&](const char* text) {
    const Word word = FindWord(words, text);
    return word.right - word.left;
  };
  EXPECT_NEAR(width("wide") / width("wide."), 2, 0.4);
  EXPECT_NEAR(width("half.") / width("half"), 2, 0.4);
}

TEST(InvoicePdf, TextsAsTheyAreWritten) {
  const struct {
    Attributes changes;
    const char* caption;
    const char* text;
  } kCases[] = {
      {{}, "{Practice} and {NoSuch} {Invoice Total|#,##0.00}", "1:Riverside 1:and 1:1,234.50"},
      {{{"textcase", "uppercase"}}, "{Practice} road", "1:RIVERSIDE 1:ROAD"},
      {{{"textcase", "Low"}}, "{Practice} ROAD", "1:riverside 1:road"},
      {{{"textcase", "INITIAL"}, {"height", "20"}},
       "st JOHN&apos;s&#10;mill road",
       "1:St 1:John&apos;s 1:Mill 1:Road"},
      {{{"textcase", "UP"}}, "{Practice}", "1:Riverside"},
      {{{"hideifempty", "TRUE"}}, "{Invoice Note}", ""},
      {{{"hideifempty", "true"}}, "  {Invoice Note} ", ""},
      {{{"hideifempty", "true"}}, "{Invoice Note}.", "1:."},
      {{{"hideifempty", "-1"}}, "{Invoice Note}", ""},
      {{{"hideifempty", "no"}}, "x", "1:x"},
      {{{"fontname", "VERDANA"}, {"fontbold", "True"}}, "Bold", "1:Bold"},
      {{{"fontname", "No Such Family"}}, "Plain", "1:Plain"},
      {{{"fontsize", "0"}}, "Size", "1:Size"},
      {{{"width", "0"}}, "Wide", "1:Wide"},
      {{{"width", "1"}}, "Narrow", ""},
      {{{"textcolor", "99999999999999999999999"}, {"fillcolor1", "-5"}}, "Colour", "1:Colour"},
  };
  for (const auto& [changes, caption, text] : kCases) {
    Paper paper;
    const std::string read = paper.WriteText(Section("invheader", Text(caption, changes)));
    if (std::string(text).empty())
      EXPECT_EQ(read.find("Riverside"), std::string::npos) << caption << read;
    else
      EXPECT_EQ(read, text) << caption;
    EXPECT_EQ(paper.Messages(), "") << caption;
  }
}

TEST(InvoicePdf, TheTwoFontFilesOfEverySystemAreBaseFonts) {
  Paper paper;
  paper.Write(Section("invheader", Text("a", {{"fontname", "Verdana"}, {"fontitalic", "TRUE"}}) +
                                       Text("b", {{"fontname", "GEORGIA"}, {"fontbold", "TRUE"}})));
  const std::string fonts = test::OutputOf("pdffonts '" + paper.File().string() + "'");
  EXPECT_EQ(fonts.find("erdana"), std::string::npos) << fonts;
  for (const char* name : {"Arial,Italic", "TimesNewRoman,Bold"})
    EXPECT_NE(fonts.find(name), std::string::npos) << fonts;
}

TEST(InvoicePdf, TextsGrowAndTakeTheirSectionAlong) {
  const std::string note = "one two three four five six seven eight nine ten";
  const struct {
    const char* caption;
    const char* expansion;
    const char *height, *width;
    double advance;  // of the section, 10 by itself
  } kCases[] = {
      {"short", "DOWN", "6", "50", 10},
      {"{Session Note}", "NONE", "6", "20", 10},
      {"{Session Note}", "down", "6", "200", 10},
      // Three lines, from 2 on: the section ends with its lowest item.
      {"{Session Note}", "DOWN", "6", "30", 2 + 3 * kLine},
      {"a&#10;b&#10;c", "DOWN", "1", "50", 2 + 3 * kLine},
      {"a", "DOWN", "1", "50", 2 + kLine},
  };
  for (const auto& [caption, expansion, height, width, advance] : kCases) {
    Paper paper(2);
    for (int row : {2, 3}) paper.ledger.fgSessions.SetTextMatrix(row, "PUBLICNOTE", note);
    const auto words = paper.Write(Section(
        "session",
        Text(caption, {{"allowexpansion", expansion}, {"height", height}, {"width", width}}) +
            Text("S{Session Total}", {{"left", "150"}, {"top", "0"}, {"height", "5"}})));
    EXPECT_NEAR(FindWord(words, "S2").top - FindWord(words, "S1").top, advance, 0.3)
        << caption << " " << expansion << " " << width;
  }
}

TEST(InvoicePdf, HiddenTextsLeaveNoGap) {
  Paper paper(2);
  const auto words = paper.Write(
      Section("session",
              Text("{Session Note}",
                   {{"hideifempty", "TRUE"}, {"height", "90"}, {"allowexpansion", "DOWN"}}) +
                  Text("S{Session Total}&#10;x", {{"allowexpansion", "DOWN"}, {"height", "5"}})));
  EXPECT_NEAR(FindWord(words, "S2").top - FindWord(words, "S1").top, 2 + 2 * kLine, 0.3);
}

TEST(InvoicePdf, ShapesAndFills) {
  const test::Pixel white{255, 255, 255}, red{255, 0, 0}, blue{0, 0, 255};
  const auto pixels = [&](const Attributes& changes, const std::string& kind = "S") {
    Attributes shape{{"left", "20"},         {"top", "20"},         {"width", "100"},
                     {"height", "50"},       {"fillcolor1", "255"}, {"fillcolor2", "16711680"},
                     {"backstyle", "OPAQUE"}};
    for (const auto& [key, value] : changes) shape[key] = value;
    Paper paper;
    paper.Write(Section("invheader", Item(kind, shape)));
    const test::RenderedPage page(paper.File(), 1);
    // The middle, a corner, and the middles of the left and the right edge.
    return std::array{page.At(198, 128), page.At(59, 59), page.At(60, 128), page.At(336, 128)};
  };
  const auto plain = pixels({});
  EXPECT_EQ(plain[0], red);
  EXPECT_EQ(plain[1], red);
  EXPECT_EQ(pixels({{"cornerradius", "10"}})[1], white);
  const auto circle = pixels({{"objectshape", "Circle"}});
  EXPECT_EQ(circle[0], red);
  EXPECT_EQ(circle[1], white);
  EXPECT_EQ(pixels({{"backstyle", "none"}})[0], white);
  EXPECT_EQ(pixels({{"objectshape", "STAR"}})[0], white);
  EXPECT_EQ(pixels({{"caption", "x"}}, "T")[0], red);

  const auto across = pixels({{"gradient", "Across"}});
  EXPECT_GT(across[2][0], 240);
  EXPECT_GT(across[3][2], 240);
  EXPECT_NEAR(across[0][0], 128, 8);
  const auto radial = pixels({{"gradient", "RADIAL"}});
  EXPECT_GT(radial[0][0], 240);
  EXPECT_GT(radial[1][2], 230);
  const auto up = pixels({{"gradient", "DIAGONAL UP"}});
  EXPECT_GT(up[2][0], up[3][0]);
  EXPECT_EQ(pixels({{"gradient", "sideways"}})[3], red);

  // A border of 30 tenths is 3 mm wide, half of it inside.
  const auto bordered = pixels({{"borderwidth", "30"}, {"bordercolor", "16711680"}});
  EXPECT_EQ(bordered[0], red);
  EXPECT_EQ(bordered[2], blue);
  EXPECT_EQ(pixels({{"borderwidth", "30"}, {"bordercolor", "16711680"}, {"caption", ""}}, "T")[2],
            blue);
}

TEST(InvoicePdf, Pictures) {
  const std::string bytes =
      test::PngHeader(1, 1, 8, test::kPngRgb) + test::PngEnd(std::string("\0\xFF\0\0", 4));
  Paper paper(2);
  std::string error;
  ASSERT_TRUE(ReplaceFile(paper.ledger.File("Invoice Templates/dot.png"), bytes, error));
  const auto picture = [](const std::string& file) {
    return Item("P", {{"filename", file}, {"left", "20"}, {"width", "40"}, {"height", "40"}});
  };
  for (const std::string& file :
       {std::string("..\\Invoice Templates\\dot.png"), std::string("../Invoice Templates/dot.png"),
        (paper.ledger.programDirectory / "Invoice Templates/dot.png").string()}) {
    paper.Write(Section("invheader", picture(file)));
    EXPECT_EQ(test::RenderedPage(paper.File(), 1).At(110, 60), (test::Pixel{255, 0, 0})) << file;
  }
  EXPECT_EQ(paper.Messages(), "");
  EXPECT_EQ(paper.WriteText(Section("invheader", picture("") + Text("after"))), "1:after");
  EXPECT_EQ(paper.Messages(), "");

  // Missing in every session: told once, and the rest is drawn.
  EXPECT_EQ(paper.WriteText(Section("session", picture("..\\no.png") + Text("after"))),
            "1:after 1:after");
  ASSERT_EQ(paper.shown.messages.size(), 1u);
  EXPECT_EQ(paper.shown.messages[0].mainPrompt, "Unable to find file");
  EXPECT_EQ(
      paper.shown.messages[0].minorPrompt,
      "The invoice template is trying to load a file which does not exist. The file is;\r\n " +
          PathText(paper.ledger.programDirectory) +
          "/no.png\r\n\r\nThe invoice will still be created but without this picture.");
  paper.Messages();

  // Damaged: told as a fault of the section, and the rest is drawn.
  ASSERT_TRUE(ReplaceFile(paper.ledger.File("dot.png"), bytes.substr(0, 40), error));
  EXPECT_EQ(paper.WriteText(Section("session", picture("../dot.png") + Text("after"))),
            "1:after 1:after");
  ASSERT_EQ(paper.shown.messages.size(), 1u);
  EXPECT_EQ(paper.shown.messages[0].title, "Error while processing document template");
}

TEST(InvoicePdf, Links) {
  Paper paper(0);
  paper.Write(Section("invheader", Text("a", {{"weblink", "www.riverside.example"}}) +
                                       Text("b", {{"weblink", "https://b.example"}}) +
                                       Text("{Invoice Note}", {{"weblink", "http://hidden.example"},
                                                               {"hideifempty", "TRUE"}}) +
                                       Item("S", {{"weblink", "mailto:c@c.example"}})));
  const std::string objects = paper.Objects();
  for (const char* uri :
       {"http://www.riverside.example", "https://b.example", "mailto:c@c.example"})
    EXPECT_NE(objects.find(uri), std::string::npos) << uri;
  EXPECT_EQ(objects.find("hidden.example"), std::string::npos);
}

// Faults

TEST(InvoicePdf, AFaultEndsItsSection) {
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

TEST(InvoicePdf, EveryAttributeOfAnItemIsNeeded) {
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

TEST(InvoicePdf, HostileTemplatesEnd) {
  const std::string many(1000, '9');
  const struct {
    std::string sections;
    Attributes document;
    const char* message;
  } kCases[] = {
      {Section("session", Text("x", {{"left", "1e308"}})), {}, ""},
      {Section("session", Text("x", {{"width", many}})), {}, ""},
      {Section("session", Text("x", {{"height", "99999"}})), {}, "Section: session"},
      {Section("session", Text("x", {{"fontsize", "1e9"}, {"borderwidth", "-4"}})), {}, ""},
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

TEST(InvoicePdf, AnOlderDocumentStaysWhenNoneIsWritten) {
  const std::pair<const char*, void (*)(Paper&)> kFailures[] = {
      {"No Template", [](Paper& paper) { SetOption(paper, optInvoiceTemplate, ""); }},
      {"No Template", [](Paper& paper) { SetOption(paper, optInvoiceTemplate, "gone.tmpl"); }},
      {"Unable to load and decrypt template file",
       [](Paper& paper) { paper.UseTemplateBytes("x"); }},
      {"Unable to use template file", [](Paper& paper) { paper.UseTemplate("<x></template>"); }},
      {"", [](Paper& paper) { paper.ledger.fgInvoices.SetTextMatrix(2, "ID", "2"); }},
  };
  for (const auto& [message, fail] : kFailures) {
    Paper paper(1);
    paper.Write(Section("session", Text("good")));
    const fs::path file = paper.File();
    std::string error;
    const auto before = ReadFile(file, error);
    fail(paper);
    EXPECT_FALSE(CreateInvoice(paper, "1"));
    const std::string told = paper.Messages();
    EXPECT_TRUE(told == message || told == "Invalid XML.") << told;
    EXPECT_EQ(ReadFile(file, error), before);
  }
}

TEST(InvoicePdf, MessagesTellTheFile) {
  Paper paper(1);
  fs::create_directories(paper.File());
  EXPECT_FALSE(CreateInvoice(paper, "1"));
  EXPECT_EQ(paper.shown.messages[0].minorPrompt,
            "File '" + PathText(paper.File()) +
                "' is currently open.\r\n\r\nYou must close it before it can be overwritten.");
  fs::remove(paper.File());
  SetOption(paper, optInvoiceTemplate, "My.tmpl");
  EXPECT_FALSE(CreateInvoice(paper, "1"));
  EXPECT_EQ(
      paper.shown.messages[1].minorPrompt,
      "Unable to find the invoice template 'My.tmpl'.\r\nPlease check this template exists in "
      "the templates directory;\r\n" +
          PathText(paper.ledger.File("Invoice Templates")) +
          "\r\n\r\nOr select a different invoice template from the Options screen.");
  SetOption(paper, optInvoiceTemplate, "");
  EXPECT_FALSE(CreateInvoice(paper, "1"));
  EXPECT_EQ(paper.shown.messages[2].minorPrompt,
            "No template has been chosen for creating invoices.\r\nSelect a template from the "
            "Options screen.");
}

// The document

TEST(InvoicePdf, NameAndProperties) {
  Paper paper(1);
  SetMyDetail(paper, kFirstNameField, "Ann");
  SetMyDetail(paper, kLastNameField, "Morgan");
  paper.ledger.fgPractices.SetTextMatrix(2, "NAME", "St John's: \"Mill/Road\" <Surgery>?");
  paper.ledger.fgInvoices.SetTextMatrix(2, "NUMBER", "26/0*1|");
  EXPECT_EQ(paper.File().filename(), "2601 St John's MillRoad Surgery.pdf");
  EXPECT_TRUE(CreateInvoice(paper, "  1 ")) << "the ID is trimmed";
  const std::string info = test::OutputOf("pdfinfo \"" + paper.File().string() + "\"");
  for (const char* line :
       {"Title:           Invoice for practice St John's: \"Mill/Road\" <Surgery>?",
        "Subject:         Invoice from Ann Morgan", "Author:          Ann Morgan",
        "Creator:         LedgerMinder ", "   https://www.ledgerminder.example",
        "Producer:        LedgerMinder PDF Library"})
    EXPECT_NE(info.find(line), std::string::npos) << line << "\n" << info;
  const std::string objects =
      test::OutputOf("qpdf --qdf --object-streams=disable \"" + paper.File().string() + "\" -");
  EXPECT_NE(objects.find("/PageLayout /OneColumn"), std::string::npos);
}

TEST(InvoicePdf, ThePreviewIsAFileOfItsOwn) {
  Paper paper(1);
  paper.UseTemplate(test::Template(Section("session", Text("other"))), "Other.tmpl");
  SetOption(paper, optInvoiceTemplate, "");
  ASSERT_TRUE(CreateInvoice(paper, "1", "Other.tmpl"));
  EXPECT_EQ(PreviewFile(paper), paper.ledger.File("Invoices/_PreviewTemplate.pdf"));
  EXPECT_EQ(test::PagedText(PreviewFile(paper)), "1:other");
  EXPECT_FALSE(fs::exists(paper.File()));
  EXPECT_FALSE(CreateInvoice(paper, "1", "Gone.tmpl"));
  EXPECT_EQ(paper.Messages(), "No Template");
}

TEST(InvoicePdf, EachShippedTemplateMakesASoundDocument) {
  for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "data/templates")) {
    if (entry.path().extension() != ".xml") continue;
    std::string error;
    Paper paper(40);
    for (const auto& other : fs::directory_iterator(entry.path().parent_path()))
      if (other.path().extension() == ".png")
        fs::copy(other.path(), paper.ledger.File("Invoice Templates"));
    paper.UseTemplate(ReadFile(entry.path(), error).value_or(""));
    EXPECT_TRUE(CreateInvoice(paper, "1")) << entry.path();
    EXPECT_EQ(paper.Messages(), "") << entry.path();
    EXPECT_TRUE(test::IsSoundPdf(paper.File()));
    const auto words = test::WordsOf(paper.File());
    EXPECT_GE(words.size(), 40u);
    EXPECT_GE(words.back().page, 2);
  }
}

}  // namespace
}  // namespace lm
