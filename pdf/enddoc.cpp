// The end of a document: everything that needs all of its pages.
#include <array>
#include <charconv>

#include "pdf/data/srgb.h"
#include "pdf/pages.h"

namespace lm::pdf {
namespace {

constexpr int kPageTree = 1;
constexpr int kPageResources = 2;

struct ViewerFlag {
  std::int32_t value;
  std::string_view entry;
  int versionStep;
};

// Compared with the flags without their low bits.
constexpr std::int32_t kModeMask = 0x1F;
constexpr std::int32_t kLayoutMask = ~0x1FFF;
constexpr std::array kLayouts{
    ViewerFlag{-32768, "/PageLayout /TwoColumnLeft ", 0},
    ViewerFlag{16384, "/PageLayout /OneColumn ", 0},
    ViewerFlag{65536, "/PageLayout /TwoColumnRight ", 0},
};
constexpr std::int32_t kUseOutlines = 2;
constexpr std::array kModes{
    ViewerFlag{1, "/PageMode /FullScreen ", 0},
    ViewerFlag{kUseOutlines, "/PageMode /UseOutlines ", 0},
    ViewerFlag{4, "/PageMode /UseThumbs ", 0},
    ViewerFlag{8, "/PageMode /UseOC ", 2},
    ViewerFlag{16, "/PageMode /UseAttachments ", 3},
};
constexpr std::array kPreferences{
    ViewerFlag{0x20, "/HideMenubar true ", 0},   ViewerFlag{0x40, "/HideToolbar true ", 0},
    ViewerFlag{0x80, "/HideWindowUI true ", 0},  ViewerFlag{0x100, "/DisplayDocTitle true ", 1},
    ViewerFlag{0x200, "/CenterWindow true ", 0}, ViewerFlag{0x1000, "/FitWindow true ", 0},
};

constexpr std::array<std::string_view, 4> kRotations{"", "/Rotate 270\r", "/Rotate 180\r",
                                                     "/Rotate 90\r"};

std::string Reference(int object) { return std::to_string(object) + " 0 R"; }

std::string Dictionary(std::string_view key, std::string_view entries) {
  if (entries.empty()) return "";
  return std::string(key) + " << " + std::string(entries) + ">>\r";
}

std::string HexadecimalString(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "<";
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text + ">";
}

// Gives the file up when the end of the document fails half-way.
struct Discarder {
  Output& out;
  ~Discarder() { out.Discard(); }
};

}  // namespace

void Pages::EndDoc() {
  RequireDocument();
  const Discarder discarder{document_.out};
  if (document_.pages.empty()) BeginPage(0);
  CloseWhatIsOpen();

  texts_.WriteAtEnd(GetPages());
  annotations_.WriteAtEnd();
  const int encryption = document_.out.encryption.IsOn() ? WriteEncryption() : 0;
  graphics_.WriteAtEnd();
  const int metadata = WriteMetadata();
  WriteResources();
  WritePages();
  const int outputIntent = document_.pdfA ? WriteOutputIntent() : 0;
  const int catalog = WriteCatalog(metadata, outputIntent);
  const int information = WriteInformation();
  WriteTrailer(catalog, information, encryption);

  if (document_.versionStep != 0)
    document_.out.Overwrite("%PDF-1." + std::to_string(3 + document_.versionStep));
  document_.out.Close();
  finished_ = true;
}

int Pages::WriteEncryption() {
  const Encryption& encryption = document_.out.encryption;
  return document_.out.WriteNewObject(
      "<< /Filter /Standard\r/O " + HexadecimalString(encryption.OwnerEntry()) + "\r/U " +
      HexadecimalString(encryption.UserEntry()) + "\r/P " +
      std::to_string(encryption.Permissions()) +
      (encryption.KeyLength() == 5 ? "\r/V 1 /R 2 >>" : "\r/V 2 /R 3 /Length 128 >>"));
}

int Pages::WriteMetadata() {
  Output& out = document_.out;
  Output::StreamOptions plain;
  plain.filter = "none";
  plain.neverEnciphered = true;
  const int number = out.BeginNewObject();
  out.WriteStream(StreamClass::Contents, "<< /Type /Metadata /Subtype /XML ",
                  XmpPacket(settings_.information, document_.pdfA), plain);
  out.EndObject();
  return number;
}

void Pages::WriteResources() {
  const std::string procedureSets =
      std::string("[/PDF /Text") + (document_.usesImages ? " /ImageB /ImageC /ImageI" : "") + "]";
  document_.out.WriteObject(Resources::kProcedureSets, procedureSets);

  const Resources& resources = document_.resources;
  std::string all =
      "<< " + resources.Dictionary(ResourceKind::Font) + "/ProcSet " + procedureSets + "\r";
  for (const ResourceKind kind :
       {ResourceKind::Properties, ResourceKind::XObject, ResourceKind::ExtGState,
        ResourceKind::ColorSpace, ResourceKind::Pattern})
    all += resources.Dictionary(kind);
  document_.out.WriteObject(kPageResources, all + ">>");
}

void Pages::WritePages() {
  std::string kids;
  for (const std::size_t index : document_.order) {
    const Page& page = document_.pages[index];
    std::string contents;
    for (const int number : page.contents)
      contents += (contents.empty() ? "" : " ") + Reference(number);
    if (page.contents.size() > 1) contents = "[" + contents + "]";

    std::string body = "<< /Type /Page /Contents " + contents + "\r";
    if (!page.annotations.empty()) body += "/Annots [ " + page.annotations + "]\r";
    body += kRotations[static_cast<std::size_t>(page.view)];
    const int number = PageObject(document_, index);
    document_.out.WriteObject(number, body + page.dictionary + ">>");
    kids += Reference(number) + " ";
  }
  document_.out.WriteObject(kPageTree, "<< /Type /Pages /Count " + std::to_string(GetPages()) +
                                           "\r/Kids [" + kids + "] >>");
}

int Pages::WriteOutputIntent() {
  Output& out = document_.out;
  const int profile = out.BeginNewObject();
  out.WriteStream(StreamClass::Images, "<</N 3 ", SrgbProfile());
  out.EndObject();
  const int intent = out.BeginNewObject();
  const std::string condition = out.Text("sRGB IEC61966-2.1");
  out.Write("<< /Type /OutputIntent /S /GTS_PDFA1\r/OutputConditionIdentifier " + condition +
            "\r/RegistryName " + out.Text("http://www.color.org") + "\r/Info " + condition +
            "\r/DestOutputProfile " + Reference(profile) + " >>");
  out.EndObject();
  return intent;
}

int Pages::WriteCatalog(int metadata, int outputIntent) {
  Output& out = document_.out;
  const int catalog = out.BeginNewObject();
  std::string body = "<< /Type /Catalog\r/Pages 1 0 R\r";
  if (outputIntent != 0) body += "/OutputIntents [ " + Reference(outputIntent) + " ]\r";
  body += "/Metadata " + Reference(metadata) + "\r";
  body += annotations_.CatalogEntries();
  body += graphics_.CatalogEntries();
  body += ViewerEntries();
  out.Write(body + ">>");
  out.EndObject();
  return catalog;
}

std::string Pages::ViewerEntries() {
  const std::int32_t flags = settings_.viewerPreferences;
  std::string entries;
  for (const ViewerFlag& layout : kLayouts)
    if ((flags & kLayoutMask) == layout.value) entries += layout.entry;
  for (const ViewerFlag& mode : kModes) {
    if ((flags & kModeMask) != mode.value) continue;
    if (mode.value == kUseOutlines && !annotations_.HasBookmarks()) continue;
    entries += mode.entry;
    document_.RaiseVersion(mode.versionStep);
  }
  std::string preferences;
  for (const ViewerFlag& preference : kPreferences) {
    if (!(flags & preference.value)) continue;
    preferences += preference.entry;
    document_.RaiseVersion(preference.versionStep);
  }
  return entries + Dictionary("/ViewerPreferences", preferences);
}

int Pages::WriteInformation() {
  Output& out = document_.out;
  const int number = out.BeginNewObject();
  out.Write(InformationBody(settings_.information, out));
  out.EndObject();
  return number;
}

void Pages::WriteTrailer(int catalog, int information, int encryption) {
  Output& out = document_.out;
  const std::int64_t position = out.Size();
  out.WriteCrossReference();

  const std::string id = HexadecimalString(DocumentId());
  std::string trailer = "<< /Size " + std::to_string(out.ObjectCount() + 1) + " /Info " +
                        Reference(information) + " /Root " + Reference(catalog) + "\r/ID [" + id +
                        id + "] ";
  if (encryption != 0) trailer += "/Encrypt " + Reference(encryption) + " ";
  out.Write("trailer");
  out.Write(trailer + ">>");
  out.Write("startxref");
  out.Write(std::to_string(position));
  out.Write("%%EOF");
}

}  // namespace lm::pdf
