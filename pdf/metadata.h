// What a document tells about itself: the information dictionary and the XMP packet.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"
#include "pdf/output.h"

namespace lm::pdf {

struct Information {
  std::string title = "(senza titolo)";
  std::string subject;
  std::string keywords;
  std::string author = "PageWriter Team";
  std::string creator = "PageWriter 6.0";
  std::string producer = "PageWriter Library 2020.1";
  std::string creationDate;  // "D:20260203103000+01'00'"
};

// The moment in the form of the information dictionary. The zone is always written as one hour
// east, in winter and in summer.
std::string CreationDate(Date moment);

// Control characters become blanks, for they have no place in XML, and the dictionary and the
// packet must tell the same.
std::string WithoutControls(std::string_view text);

// The body of the information object; call while that object is open.
std::string InformationBody(const Information& information, const Output& out);

// The XMP packet, in UTF-8.
std::string XmpPacket(const Information& information, bool pdfA);

}  // namespace lm::pdf
