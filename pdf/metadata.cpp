#include "pdf/metadata.h"

#include <algorithm>
#include <cstdio>

#include "core/text.h"

namespace lm::pdf {
namespace {

// Text of an XML element, in UTF-8. A reader makes a line feed of a carriage return that stands
// there as itself.
std::string XmlText(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&')
      escaped += "&amp;";
    else if (c == '<')
      escaped += "&lt;";
    else if (c == '>')
      escaped += "&gt;";
    else if (c == '\r')
      escaped += "&#13;";
    else
      escaped += c;
  }
  return ToUtf8(escaped);
}

// "D:20260203103000+01'00'" as 2026-02-03T10:30:00+01:00.
std::string XmpDate(std::string_view creationDate) {
  const auto part = [&](std::size_t from, std::size_t length) {
    return std::string(creationDate.substr(std::min(from, creationDate.size()), length));
  };
  return part(2, 4) + "-" + part(6, 2) + "-" + part(8, 2) + "T" + part(10, 2) + ":" + part(12, 2) +
         ":" + part(14, 2) + "+01:00";
}

std::string Description(std::string_view nameSpace, std::string_view elements) {
  std::string text = "  <rdf:Description rdf:about='' xmlns:";
  text += nameSpace;
  text += ">\n";
  text += elements;
  return text + "  </rdf:Description>\n";
}

std::string Element(const std::string& name, const std::string& content) {
  return "    <" + name + ">" + content + "</" + name + ">\n";
}

std::string Alternatives(std::string_view text) {
  return "<rdf:Alt><rdf:li xml:lang='x-default'>" + XmlText(text) + "</rdf:li></rdf:Alt>";
}

constexpr std::string_view kDublinCore = "dc='http://purl.org/dc/elements/1.1/'";
constexpr std::string_view kPdf = "pdf='http://ns.adobe.com/pdf/1.3/'";
constexpr std::string_view kXap = "xap='http://ns.adobe.com/xap/1.0/'";
constexpr std::string_view kPdfA = "pdfaid='http://www.aiim.org/pdfa/ns/id/'";

}  // namespace

std::string CreationDate(Date moment) {
  const CivilDate day = ToCivilDate(moment);
  const CivilTime time = ToCivilTime(moment);
  char text[32];
  std::snprintf(text, sizeof text, "D:%04d%02d%02d%02d%02d%02d+01'00'", day.year, day.month,
                day.day, time.hour, time.minute, time.second);
  return text;
}

std::string WithoutControls(std::string_view text) {
  std::string kept(text);
  for (char& c : kept)
    if (static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' && c != '\r') c = ' ';
  return kept;
}

std::string InformationBody(const Information& information, const Output& out) {
  return "<< /Title " + out.Text(information.title) +       //
         "\r/Author " + out.Text(information.author) +      //
         "\r/Creator " + out.Text(information.creator) +    //
         "\r/Producer " + out.Text(information.producer) +  //
         "\r/CreationDate " + out.Text(information.creationDate) + "\r/Subject " +
         out.Text(information.subject) +  //
         "\r/Keywords " + out.Text(information.keywords) + " >>";
}

std::string XmpPacket(const Information& information, bool pdfA) {
  const std::string date = XmpDate(information.creationDate);
  std::string text =
      "<?xpacket begin='\xEF\xBB\xBF' id='W5M0MpCehiHzreSzNTczkc9d'?>\n"
      "<x:xmpmeta xmlns:x='adobe:ns:meta/'>\n"
      "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>\n";
  text += Description(kDublinCore, Element("dc:title", Alternatives(information.title)));
  text += Description(kDublinCore, Element("dc:description", Alternatives(information.subject)));
  text += Description(kDublinCore,
                      Element("dc:creator", "<rdf:Seq><rdf:li>" + XmlText(information.author) +
                                                "</rdf:li></rdf:Seq>"));
  text += Description(kPdf, Element("pdf:Producer", XmlText(information.producer)) +
                                Element("pdf:Keywords", XmlText(information.keywords)));
  text += Description(kXap, Element("xap:MetadataDate", date) + Element("xap:CreateDate", date) +
                                Element("xap:CreatorTool", XmlText(information.creator)));
  if (pdfA)
    text += Description(kPdfA, Element("pdfaid:part", "1") + Element("pdfaid:conformance", "B"));
  return text + "</rdf:RDF>\n</x:xmpmeta>\n<?xpacket end='r'?>";
}

}  // namespace lm::pdf
