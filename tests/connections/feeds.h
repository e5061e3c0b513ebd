// Feeds of booking services, as texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lm::test {

inline std::string Element(std::string_view name, std::string_view inside) {
  const std::string tag(name);
  return "<" + tag + ">" + std::string(inside) + "</" + tag + ">";
}

inline std::string FeedXml(const std::vector<std::string>& sessions) {
  std::string all;
  for (const std::string& session : sessions) all += session;
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
         Element("import", Element("sessions", all));
}

// A session as a service sends it.
struct SentSession {
  std::string practice = "Mill Lane Surgery", address = "1 Mill Lane";
  std::string period = "MORNING", date = "2026-02-10", start = "", end = "";
  std::string rate = "250", status = "Accepted", notes = "";

  std::string Xml() const {
    return Element(
        "session",
        Element("status", status) + Element("notes", notes) + Element("rate", rate) +
            Element("practice", Element("name", practice) + Element("address0", address) +
                                    Element("address2", "Northtown") + Element("town", "Leeds") +
                                    Element("postcode", "LS1 1AA") +
                                    Element("email", "desk@mill.example") +
                                    Element("phone", "0113 496 0000")) +
            Element("timing", Element("period", period) + Element("sdate", date) +
                                  Element("stime", start) + Element("etime", end)));
  }
};

}  // namespace lm::test
