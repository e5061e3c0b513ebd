// What is read of a feed, and what is no feed at all.
#include "connections/feedparser.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "tests/connections/feeds.h"

namespace lm::test {
namespace {

std::string Repeated(std::string_view text, int times) {
  std::string all;
  all.reserve(text.size() * static_cast<std::size_t>(times));
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(FeedParser, ReadsWhatASessionSays) {
  const std::string body = FeedXml(
      {SentSession{
           .start = "09:00", .end = "12:30", .notes = " Bring\n\t<b>a</b><![CDATA[ <key>]]> "}
           .Xml(),
       "<session/>"});
  const auto feed = ReadFeed(body);
  ASSERT_TRUE(feed);
  EXPECT_FALSE(feed->error);
  ASSERT_EQ(feed->sessions.size(), 2U);
  const FeedSession& session = feed->sessions.front();
  EXPECT_EQ(session.status, "Accepted");
  EXPECT_EQ(session.notes, "Bring\r\n a <key>");
  EXPECT_EQ(session.rate, "250");
  EXPECT_EQ(session.practice.name, "Mill Lane Surgery");
  EXPECT_EQ(session.practice.address0, "1 Mill Lane");
  EXPECT_EQ(session.practice.address1, "");
  EXPECT_EQ(session.practice.town, "Leeds");
  EXPECT_EQ(session.practice.phone, "0113 496 0000");
  EXPECT_EQ(session.period, "MORNING");
  EXPECT_EQ(session.date, "2026-02-10");
  EXPECT_EQ(session.startTime, "09:00");
  EXPECT_EQ(session.endTime, "12:30");
  EXPECT_EQ(feed->sessions.back().practice.name, "");
}

TEST(FeedParser, TellsTheServicesOwnError) {
  EXPECT_EQ(ReadFeed("<error><message>No such user</message></error>")->error, "No such user");
  EXPECT_EQ(ReadFeed("<error><message/></error>")->error, "");
  EXPECT_FALSE(ReadFeed("<error/>")->error);
}

TEST(FeedParser, GoesByTheEncodingThatIsDeclared) {
  const auto nameIn = [](const std::string& declaration, const std::string& name) {
    const auto feed = ReadFeed(declaration + "<import><sessions><session><practice><name>" + name +
                               "</name></practice></session></sessions></import>");
    return feed ? feed->sessions.front().practice.name : "refused";
  };
  const std::string utf8("Bront\xC3\xAB £5");
  EXPECT_EQ(nameIn("", utf8), FromUtf8(utf8));
  EXPECT_EQ(nameIn("\xEF\xBB\xBF", utf8), FromUtf8(utf8));
  EXPECT_EQ(nameIn("<?xml version='1.0' encoding='utf-8'?>", utf8), FromUtf8(utf8));
  EXPECT_EQ(nameIn("<?xml version='1.0' encoding='ISO-8859-1'?>", "Bront\xEB \xA3"),
            "Bront\xEB \xA3");
  EXPECT_EQ(nameIn("<?xml version='1.0' encoding='Windows-1252'?>", "\x80 5"), "\x80 5");
  EXPECT_EQ(nameIn("<?xml version='1.0' encoding='EBCDIC'?>", "x"), "refused");
  EXPECT_EQ(nameIn("", "Caf\xE9"), "Caf?");
}

TEST(FeedParser, RefusesWhatIsNoWholeDocument) {
  const std::string whole = FeedXml({SentSession().Xml()});
  ASSERT_TRUE(ReadFeed(whole));
  const std::vector<std::string> kNoFeeds = {
      "",
      "   ",
      "Service unavailable",
      whole.substr(0, whole.size() - 5),
      "<import><sessions></import></sessions>",
      "<import/><import/>",
      "Error 500 <import/>",
      "<!DOCTYPE html><html><body>404</body></html>",
      "<!DOCTYPE import [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><import>&x;</import>",
      "<!DOCTYPE a [<!ENTITY a \"ha\"><!ENTITY b \"&a;&a;&a;\">]><import>&b;</import>",
      std::string("<import/>\0<import/>", 19),
  };
  for (const std::string& body : kNoFeeds) EXPECT_FALSE(ReadFeed(body)) << body;
}

TEST(FeedParser, LimitsWhatItReads) {
  constexpr int kDeep = 400'000;
  EXPECT_FALSE(ReadFeed(Repeated("<a>", 3'500'000)));
  EXPECT_FALSE(ReadFeed(Repeated("<a>", kDeep)));
  const auto deep = ReadFeed(FeedXml({Element(
      "session", Element("notes", Repeated("<a>", kDeep) + "x" + Repeated("</a>", kDeep)))}));
  ASSERT_TRUE(deep);
  EXPECT_EQ(deep->sessions.front().notes, "x");
  EXPECT_FALSE(ReadFeed(FeedXml({Repeated("<session/>", 10'001)})));
  EXPECT_FALSE(ReadFeed(FeedXml({Element("session", std::string(kMostFeedBytes, 'x'))})));
  const auto long10 =
      ReadFeed(FeedXml({Element("session", Element("notes", std::string(10'000'000, 'x')))}));
  ASSERT_TRUE(long10);
}

}  // namespace
}  // namespace lm::test
