// What is asked of the web, and what the answers say.
#include <gtest/gtest.h>

#include "connections/frmAbout.h"
#include "connections/modInternet.h"
#include "connections/updatecheck.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

TEST(HttpGet, TakesCalendarAndBareAddressesForHttps) {
  const std::vector<std::pair<std::string, std::string>> kAddresses = {
      {"http://a.example/x", "http://a.example/x"},
      {"HTTPS://a.example/x", "HTTPS://a.example/x"},
      {"webcal://a.example/x?y=://z", "https://a.example/x?y=://z"},
      {"WebCal://a.example", "https://a.example"},
      {"  www.a.example/x ", "https://www.a.example/x"},
      {"www.a.example/x?to=http://b.example", "https://www.a.example/x?to=http://b.example"},
  };
  for (const auto& [typed, asked] : kAddresses) {
    TestLedger test;
    test.shown.web[asked] = "body";
    EXPECT_EQ(HttpGet(test, typed), "body") << typed << ": " << test.shown.fetched.front();
    EXPECT_TRUE(IsWebAddress(Trim(typed)));
  }
  for (const std::string_view file :
       {"", "/home/me/work.ics", "C:\\www\\work.ics", "ww", "ftp://a", "webcalendar.ics"})
    EXPECT_FALSE(IsWebAddress(file)) << file;
}

TEST(HttpGet, EndsItsProgressWhateverHappens) {
  TestLedger test;
  test.shown.web["https://a.example"] = "body";
  test.shown.cancelAfter = 0;
  EXPECT_EQ(HttpGet(test, "https://a.example"), std::nullopt);
  EXPECT_EQ(HttpGet(test, "https://b.example"), "");
  EXPECT_EQ(HttpGet(test, "https://a.example"), "body");
  EXPECT_EQ(std::ranges::count(test.shown.progress, "hide"), 3);
}

struct Release {
  std::string file, main, minor;
};

TEST(UpdateCheck, TellsWhatTheWebsiteSays) {
  const std::string running(ProgramVersion());
  const std::string other =
      "You are currently running a different version (" + running + ").\r\n\r\n";
  const std::vector<Release> kAnswers = {
      {"9.1.2|12/03/2027|Faster.\r\n", "Latest version is 9.1.2 released on 12 Mar 2027",
       other + "Faster."},
      {running + "|01/01/2026|Old news",
       "Latest version is " + running + " released on 01 Jan 2026",
       "You are already running this version."},
      {"9.1.2", "Latest version is 9.1.2 released on ", other},
      {"9.1.2|soon|A|B\n", "Latest version is 9.1.2 released on soon", other + "A"},
      {"<html>404</html>", "Latest version is <html>404</html> released on ", other},
  };
  for (const auto& each : kAnswers) {
    TestLedger test;
    test.shown.web[std::string(kWebsite) + "/version.dat"] = each.file;
    CheckForUpdates(test);
    ASSERT_EQ(test.shown.messages.size(), 1U);
    const MessageBoxText& box = test.shown.messages.front();
    EXPECT_EQ(box.mainPrompt, each.main);
    EXPECT_EQ(WithCrLf(box.minorPrompt), each.minor);
    EXPECT_EQ(box.title, "Check For Updates");
    EXPECT_EQ(box.link, std::string(kWebsite) + "/Download.htm");
  }
}

TEST(UpdateCheck, SaysWhenThereIsNoAnswer) {
  TestLedger test;
  CheckForUpdates(test);
  EXPECT_EQ(test.shown.TakeMessage(), "Unable to get latest version information");
  test.shown.web[std::string(kWebsite) + "/version.dat"] = std::string(5000000, '<');
  CheckForUpdates(test);
  EXPECT_LT(test.shown.messages.back().mainPrompt.size(), 2000U);
}

TEST(About, TellsWhatIsInstalled) {
  TestLedger test;
  SetOption(test, optUpgradeDate, "03/02/2026");
  frmAbout about(test);
  EXPECT_EQ(about.lblVersionDate.Text(), "Tue 3 February 2026");
  EXPECT_EQ(about.lblInstalDir.Text(), test.directory.Path().string());
  SetOption(test, optUpgradeDate, "last week");
  EXPECT_EQ(frmAbout(test).lblVersionDate.Text(), "last week");
  about.Press(about.lblEULA);
  about.DoubleClick(about.fgLicences, about.fgLicences.FixedRows(), 0);
  EXPECT_EQ(test.shown.opened,
            (std::vector<std::string>{std::string(kWebsite) + "/EULA.php", "https://www.qt.io"}));
}

TEST(About, OffersItselfForDataFilesWhereItMay) {
  test::TestLedger test;
  EXPECT_FALSE(frmAbout(test).chkOpenWith.Visible());
  test.shown.openWith = false;
  frmAbout about(test);
  EXPECT_TRUE(about.chkOpenWith.Visible());
  about.Tick(about.chkOpenWith, true);
  EXPECT_EQ(test.shown.openWith, true);
  EXPECT_TRUE(frmAbout(test).chkOpenWith.Checked());
  about.Tick(about.chkOpenWith, false);
  EXPECT_EQ(test.shown.openWith, false);
  test.shown.openWithFails = true;
  about.Tick(about.chkOpenWith, true);
  EXPECT_EQ(test.shown.TakeMessage(), "Windows did not take the change");
}

}  // namespace
}  // namespace lm::test
