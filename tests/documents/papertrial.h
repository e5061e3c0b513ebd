// Invoices for trials of the shipped templates: of so many sessions, with texts as they mostly are
// or as long as they get.
#pragma once

#include "core/options.h"
#include "core/startup.h"
#include "documents/shippedtemplates.h"
#include "tests/documents/invoice_desk.h"

namespace lm::test {

enum class Texts { Ordinary, Long, Sparse };

struct PaperTrial : TestLedger {
  PaperTrial(int sessions, Texts texts) {
    PlaceShippedTemplates(ledger);
    std::filesystem::create_directories(ledger.File("Invoices"));
    AddDetails(texts);
    AddPractices(texts);
    for (int i = 0; i < sessions; ++i) AddSession(i, texts);
    FormatTables(ledger);
    PrepareInvoiceRow(sessions, texts);
  }

  // The words of the document; `cut` gets what it does not show.
  std::vector<Word> Write(const std::string& name, std::vector<std::string>& cut) {
    const RecordIndex index(ledger);
    InvoiceRenderer renderer(ledger, index);
    EXPECT_TRUE(renderer.CreateInvoice("1", name + ".tmpl") && renderer.Finish()) << name;
    EXPECT_TRUE(shown.messages.empty()) << name << ": " << shown.messages.front().mainPrompt;
    shown.messages.clear();
    cut = renderer.CutTexts();
    return WordsOf(PreviewFile(ledger));
  }

 private:
  void AddDetails(Texts texts) {
    const bool isLong = texts == Texts::Long, sparse = texts == Texts::Sparse;
    const auto set = [&](int field, const char* ordinary, const char* asLong) {
      SetMyDetail(ledger, field, isLong ? asLong : sparse ? "" : ordinary);
    };
    SetMyDetail(ledger, kFirstNameField, isLong ? "Alexandrina Wilhelmina" : "Alex");
    SetMyDetail(ledger, kLastNameField, isLong ? "Featherstonehaugh-Cholmondeley" : "Morgan");
    set(kMyTitleField, "Dr", "Professor Dr");
    set(kAddress1Field, "Orchard Cottage", "Flat 14b, The Old Maltings at Wolverhampton Wharf");
    set(kAddress2Field, "12 Mill Lane", "123 Upper Saint Bartholomew's Cathedral Close");
    set(kAddress3Field, "Ambleford", "Chapel-en-le-Frith with Barton-in-the-Beans");
    set(kAddress4Field, "Dorset", "Northamptonshire and Peterborough");
    set(kPostcodeField, "DT9 3AB", "NN14 99ZZ");
    set(kEmailField, "alex.morgan@example.org",
        "alexandrina.featherstonehaugh-cholmondeley@locum-doctors.northamptonshire.example.org");
    set(kTelephoneField, "01935 555 0143", "+44 (0)1935 555 0143 extension 4477");
    set(kQualificationsField, "MBBS MRCGP",
        "MBBS BSc (Hons) MRCGP DRCOG DFSRH DipDerm PGCertMedEd");
    set(kAccountNameField, "",
        "Professor Dr Alexandrina Wilhelmina Featherstonehaugh-Cholmondeley");
    set(kSortCodeField, "123456", "123456");
    set(kAccountNumberField, "12345678", "12345678");
    set(kGmcNumberField, "7654321", "7654321");
  }

  void AddPractices(Texts texts) {
    const std::vector<std::string> rows[] = {
        {"NAME=Riverside Surgery", "PMANAGER=Mrs J Hill", "ADDR1=1 High Street", "ADDR2=Sherborne",
         "ADDR3=", "ADDR4=Dorset", "POSTCODE=DT9 1AA", "PCODE=J81001", "ODS_CODE=J81001"},
        {"NAME=The Chalmondley Featherstone Memorial Health Centre & Surgery",
         "PMANAGER=Mrs Wilhelmina Montgomery-Massingberd, Business Manager",
         "ADDR1=Second Floor, The Wellington Building",
         "ADDR2=123 Upper Saint Bartholomew's Cathedral Close",
         "ADDR3=Chapel-en-le-Frith with Barton-in-the-Beans",
         "ADDR4=Northamptonshire and Peterborough", "POSTCODE=NN14 99ZZ", "PCODE=J81001/003-2B",
         "ODS_CODE=J81001003"},
        {"NAME=Abbey"}};
    AddRow(ledger.fgPractices, rows[static_cast<int>(texts)]);
    AddRow(ledger.fgPractices,
           {texts == Texts::Long ? "NAME=Saint Bartholomew-the-Great Branch of the Memorial Centre"
                                 : "NAME=Abbey Annexe"});
  }

  void AddSession(int i, Texts texts) {
    constexpr const char* kNote =
        "Cover for Dr Williams, with the afternoon's home visits to Saint Bartholomew's nursing "
        "home and the duty doctor's telephone list, agreed with the practice manager by telephone.";
    const bool isLong = texts == Texts::Long, extras = isLong || i % 4 == 1;
    const std::string id = std::to_string(i + 1);
    AddRow(ledger.fgSessions,
           {"PRACTICE=" + std::string(isLong && i % 2 ? "2" : "1"),
            "SDATE=" + CellText(DateSerial(2026, 3, 2 + i)), "STIME=08:30", "ETIME=18:30",
            "SESS_TYPE=" + std::string(i % 5 == 3 ? "4" : "1"),
            isLong ? "RATE=1234567.50" : "RATE=480.00",
            isLong   ? "EXTRAS=1234.00"
            : extras ? "EXTRAS=45.00"
                     : "EXTRAS=0",
            isLong   ? "EXPENSES=1345.60"
            : extras ? "EXPENSES=12.60"
                     : "EXPENSES=0",
            texts == Texts::Sparse ? "EMPLOYERCONTRIB=0" : "EMPLOYERCONTRIB=69.02",
            isLong   ? "TOTAL=1237216.12"
            : extras ? "TOTAL=606.62"
                     : "TOTAL=549.02",
            "INVOICE=1",
            isLong            ? "PUBLICNOTE=" + std::string(kNote)
            : extras && i % 3 ? "PUBLICNOTE=Cover for Dr Williams"
                              : "PUBLICNOTE="});
    for (int k = 0; extras && k < (isLong ? 3 : 1); ++k) {
      AddRow(ledger.fgExtras,
             {"SESSID=" + id,
              isLong ? "ITEM=Home visits beyond the agreed number, to Saint Bartholomew's home"
                     : "ITEM=Home visits",
              "RATE=45.00"});
      AddRow(ledger.fgSessionExpenses,
             {"SESSID=" + id,
              isLong ? "ITEM=Mileage to Chapel-en-le-Frith and back by the A6" : "ITEM=Mileage",
              "RATE=12.60"});
    }
  }

  void PrepareInvoiceRow(int sessions, Texts texts) {
    const bool isLong = texts == Texts::Long;
    std::string note = "With thanks to all who helped on a busy ward.";
    if (isLong) {
      note = "Please pay by bank transfer within thirty days:";
      for (const char* line :
           {"Account name Professor Dr A W Featherstonehaugh-Cholmondeley", "Sort code 12-34-56",
            "Account number 12345678", "International: GB29 NWBK 6016 1331 9268 19", "",
            "Late payment: interest at 8 % above the base rate may be charged."})
        note += std::string("\n") + line;
      for (int i = 1; i <= 12; ++i)
        note += "\nParagraph " + std::to_string(i) +
                " of the terms: the fee is for the session as it was agreed, and travel is charged "
                "at the rate that the tax office allows.";
      note += "\nThe last line of the terms.";
    }
    AddRow(ledger.fgInvoices,
           {"NUMBER=INV-00042", "IDATE=03/04/2026", "PRACTICE=1",
            texts == Texts::Sparse ? "DUEDATE=" : "DUEDATE=03/05/2026",
            isLong ? "AMOUNT=247443224.00" : "AMOUNT=" + std::to_string(549 * sessions) + ".02",
            texts == Texts::Sparse ? "EMPLOYERCONTRIB=0" : "EMPLOYERCONTRIB=828.24",
            texts == Texts::Sparse ? "PUBLICNOTE=" : "PUBLICNOTE=" + note});
  }
};

}  // namespace lm::test
