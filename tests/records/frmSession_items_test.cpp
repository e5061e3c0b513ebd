#include "tests/records/surgery.h"

namespace lm::test {
namespace {

TEST(SessionItemsAndLinks, LockedSessionTakesNotesOnly) {
  for (const char* lock : {"INVOICE=5", "FORMS=A"}) {
    Surgery surgery;
    surgery.AddRow(surgery.ledger.fgInvoices, {"ID=5", "NUMBER=INV-00005"});
    FormatTables(surgery);
    surgery.AddSession({lock});
    surgery.AddExtra({"SESSID=1", "ITEM=Visit", "RATE=10"});
    const bool invoiced = lock == std::string("INVOICE=5");
    frmSession window(surgery);
    window.OpenSession("1");
    EXPECT_EQ(window.lblInvoiceDetails.Text(), invoiced ? "INV-00005" : "Not invoiced yet");
    EXPECT_EQ(window.lblFormDetails.Text(), invoiced ? "Not pensioned yet" : "");
    for (const char* name :
         {"cPractice", "cSess_Type", "cSDate", "cSTime", "cEDate", "cETime", "cRate", "cmdStart",
          "cmdStartTime", "cmdEnd", "cmdEndTime", "cmdRate", "cmdAddExtra", "cmdDeleteExtra",
          "cmdAddExpense", "cmdDeleteExpense", "cmdAddMileageCharge"})
      EXPECT_FALSE(window.FindField(name)->Enabled()) << name;
    EXPECT_TRUE(window.cNotes.Enabled() && window.cPublicNote.Enabled());

    Grid& extras = window.fgExtras;
    EXPECT_EQ(window.Edit(extras, 2, extras.ColIndex("RATE"), "20"), EditOutcome::NotAllowed);
    EXPECT_EQ(window.Edit(extras, 2, extras.ColIndex("ITEM"), "x"), EditOutcome::NotAllowed);
    EXPECT_EQ(window.Edit(extras, 2, extras.ColIndex("NOTES"), "seen"), EditOutcome::Accepted);
    EXPECT_EQ(window.cTotal.Text(), "338.83");
    EXPECT_EQ(extras.CellColour(CellSetting::flexcpForeColor, 2, extras.ColIndex("RATE")),
              Rgb(100, 100, 100));
    EXPECT_EQ(extras.CellColour(CellSetting::flexcpForeColor, 2, extras.ColIndex("NOTES")),
              kNoColour);

    const std::string place = invoiced ? "an invoice." : "a pension form.";
    GridRules& extraRules = *window.FindGrid("fgExtras").rules;
    GridRules& expenseRules = *window.FindGrid("fgExpenses").rules;
    extraRules.AddPressed();
    EXPECT_EQ(surgery.OneMessage().first,
              "You cannot add Extra items to a session which is already on " + place);
    expenseRules.AddPressed();
    EXPECT_EQ(surgery.OneMessage().first,
              "You cannot add Expense items to a session which is already on " + place);
    extraRules.DeletePressed(2);
    EXPECT_EQ(surgery.OneMessage(),
              Prompts("Unable to delete Extra",
                      "You cannot delete Extras for a Session which is already on an "
                      "invoice or pension form."));
    window.Press(window.cmdDelete);
    EXPECT_EQ(surgery.OneMessage(),
              Prompts("Delete Session",
                      "A session cannot be deleted if it has already been included on an "
                      "invoice or pension form."));
    window.Press(window.cmdOk);
    EXPECT_EQ(Cells(surgery.ledger.fgExtras, 2, {"ITEM", "RATE", "NOTES"}), "Visit 10 seen");
    EXPECT_EQ(StateOfRow(surgery, surgery.ledger.fgExtras, 2), RowState::Edited);
  }
}

TEST(SessionItemsAndLinks, CopyOfALockedSessionIsFree) {
  Surgery surgery;
  surgery.AddSession(
      {"FORMS=A,B", "INVOICE=5", "NOTES=mine", "EXTRAS=30", "EMPLOYERCONTRIBRATE=14.00"});
  surgery.AddExtra({"ID=8", "SESSID=2", "ITEM=Other"});
  surgery.AddExtra({"ID=3", "SESSID=1", "ITEM=Visit", "RATE=10", "NOTES=n"});
  surgery.AddExtra({"ID=4", "SESSID=1", "ITEM=Call", "RATE=20"});
  surgery.AddExpense({"ID=6", "SESSID=1", "ITEM=Taxi", "CATEGORY=2", "RATE=7"});
  frmSession window(surgery);
  ASSERT_TRUE(window.Copy("1"));
  EXPECT_EQ(window.Caption(), "Copy Session");
  EXPECT_EQ(window.cID.Text() + window.cForms.Text() + window.cInvoice.Text(), "");
  EXPECT_EQ(window.cPensionable.Text(), "330.00");
  EXPECT_EQ(window.cEmployerContribRate.Text(), "14.00");
  EXPECT_TRUE(window.cRate.Enabled() && window.cSess_Type.Enabled() &&
              window.cmdAddExtra.Enabled());
  EXPECT_EQ(Marks(window), std::vector<bool>({false, true, false, true, true}));
  window.Enter(window.cSDate, "9/2/2026");
  window.Press(window.cmdOk);
  ASSERT_TRUE(window.Closed());

  const Grid& sessions = surgery.ledger.fgSessions;
  EXPECT_EQ(Cells(sessions, 2, {"ID", "FORMS", "INVOICE", "SDATE"}), "1 A,B 5 02/02/2026");
  EXPECT_EQ(Cells(sessions, 3, {"ID", "FORMS", "INVOICE", "SDATE", "NOTES"}),
            "2   09/02/2026 mine");
  const Grid& extras = surgery.ledger.fgExtras;
  ASSERT_EQ(extras.Rows(), 7);
  EXPECT_EQ(Cells(extras, 5, {"ID", "SESSID", "ITEM", "RATE", "NOTES"}), "9 2 Visit 10 n");
  EXPECT_EQ(Cells(extras, 6, {"ID", "SESSID", "ITEM", "RATE"}), "10 2 Call 20");
  EXPECT_EQ(
      Cells(surgery.ledger.fgSessionExpenses, 3, {"ID", "SESSID", "ITEM", "CATEGORY", "RATE"}),
      "7 2 Taxi 2 7");
}

TEST(SessionItemsAndLinks, CopyKeepsWhatTheListsNoLongerOffer) {
  Surgery surgery;
  surgery.AddRow(surgery.ledger.fgPractices, {"ID=3", "RATE_OOHD=50"});
  surgery.AddSession({"PRACTICE=3", "SESS_TYPE=3"});
  SetOption(surgery, optDefaultRates, "|70|80|90|100");
  frmSession window(surgery);
  ASSERT_TRUE(window.Copy("1"));
  EXPECT_EQ(window.cPractice.Selected(), -1);
  EXPECT_EQ(window.cSess_Type.Selected(), -1);
  window.Enter(window.cSDate, "9/2/2026");
  EXPECT_EQ(window.cRate.Text(), "240.00");  // the type's default
  window.Press(window.cmdOk);
  EXPECT_EQ(Cells(surgery.ledger.fgSessions, 3, {"ID", "PRACTICE", "SESS_TYPE"}), "2 3 3");
}

TEST(SessionItemsAndLinks, WorkingRowsReachTheTableOnOkOnly) {
  for (const bool ok : {false, true}) {
    Surgery surgery;
    surgery.AddSession({"EXTRAS=30"});
    surgery.AddExtra({"ID=3", "SESSID=9", "ITEM=Same number, other session"});
    surgery.AddExtra({"ID=3", "SESSID=1", "ITEM=Visit", "RATE=10"});
    surgery.AddExtra({"ID=4", "SESSID=1", "ITEM=Call", "RATE=20"});
    frmSession window(surgery);
    window.OpenSession("1");
    Grid& extras = window.fgExtras;
    ASSERT_EQ(extras.Rows(), 4);

    window.Press(window.cmdDeleteExtra);
    EXPECT_EQ(surgery.OneMessage().first, "There is no Extra selected to delete.");
    extras.Select(2, extras.ColIndex("ITEM"));
    window.Press(window.cmdDeleteExtra);  // the safe answer is No
    EXPECT_EQ(surgery.OneMessage(), Prompts("Delete Extra", "Delete the selected Extra?"));
    EXPECT_FALSE(extras.RowHidden(2));
    surgery.shown.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
    window.Press(window.cmdDeleteExtra);
    EXPECT_TRUE(extras.RowHidden(2));
    EXPECT_EQ(extras.Row(), 3);
    EXPECT_EQ(window.cExtras.Text() + " " + window.cPensionable.Text(), "20.00 320.00");
    window.Edit(extras, 3, extras.ColIndex("RATE"), "25.5");
    window.Edit(extras, 3, extras.ColIndex("ITEM"), "Long call");
    EXPECT_EQ(window.cExtras.Text(), "25.50");
    for (const char* cells : {"5 1 [New Extra] 0", "6 1 [New Extra] 0"}) {
      window.FindGrid("fgExtras").rules->AddPressed();
      EXPECT_EQ(Cells(extras, extras.Row(), {"ID", "SESSID", "ITEM", "RATE"}), cells);
    }
    window.Press(window.cmdDeleteExtra);  // new rows go at once
    window.Press(window.cmdDeleteExtra);
    EXPECT_EQ(extras.Rows(), 4);
    window.Press(ok ? window.cmdOk : window.cmdCancel);
    EXPECT_TRUE(window.Closed());

    const Grid& table = surgery.ledger.fgExtras;
    if (ok) {
      ASSERT_EQ(table.Rows(), 4);
      EXPECT_EQ(Cells(table, 3, {"ID", "ITEM", "RATE"}), "4 Long call 25.50");
      EXPECT_EQ(Cells(table, 2, {"SESSID", "ITEM"}), "9 Same number, other session");
      EXPECT_EQ(surgery.ledger.fgSessions.TextMatrix(2, "EXTRAS"), "25.50");
    } else {
      ASSERT_EQ(table.Rows(), 5);
      EXPECT_EQ(Cells(table, 4, {"ID", "ITEM", "RATE"}), "4 Call 20");
      EXPECT_EQ(surgery.ledger.fgSessions.TextMatrix(2, "EXTRAS"), "30");
      EXPECT_FALSE(HasUnsavedRows(surgery));
    }
  }
}

TEST(SessionItemsAndLinks, DamagedItemsCountAsNothing) {
  Surgery surgery;
  surgery.AddSession({});
  surgery.AddExtra({"ID=", "SESSID=1", "RATE=banana"});
  surgery.AddExtra({"ID=4", "SESSID=1", "RATE=5"});
  frmSession window(surgery);
  window.OpenSession("1");
  window.Edit(window.fgExtras, 3, window.fgExtras.ColIndex("RATE"), "6");
  EXPECT_EQ(window.cExtras.Text(), "6.00");
  window.Enter(window.cRate, "1" + std::string(60, '0'));  // far beyond any sum
  window.Press(window.cmdOk);
  EXPECT_TRUE(window.Closed());
  EXPECT_EQ(surgery.ledger.fgExtras.Rows(), 4);
}

TEST(SessionItemsAndLinks, MileageRefusalsInTheirOrder) {
  Surgery surgery;
  surgery.AddSession({});
  SetOption(surgery, optMileageRate, "nothing");
  frmSession window(surgery);
  window.OpenSession("1");
  window.cPractice.SetSelected(-1);
  window.cInvoice.SetText("5");
  window.cForms.SetText("A");
  const auto refusal = [&] {
    window.Press(window.cmdAddMileageCharge);
    EXPECT_FALSE(window.fgExpenses.HasData());
    return surgery.OneMessage();
  };
  EXPECT_EQ(refusal(),
            Prompts("Add Mileage Charge",
                    "You cannot add Expense items to a session which is already on an invoice."));
  window.cInvoice.SetText("");
  EXPECT_EQ(
      refusal(),
      Prompts("Add Mileage Charge",
              "You cannot add Expense items to a session which is already on a pension form."));
  window.cForms.SetText("");
  const std::string title = "Unable to add mileage charge";
  EXPECT_EQ(refusal(),
            Prompts(title,
                    "The Practice has not been specified for this Session. The Practice must be "
                    "specified so the mileage to charge for is known."));
  window.cPractice.SelectData("2");
  EXPECT_EQ(
      refusal(),
      Prompts(title,
              "No mileage expense rate has been specified. This can be entered on the Options "
              "screen, on the Expenses tab."));
  SetOption(surgery, optMileageRate, "0.45");
  EXPECT_EQ(refusal(),
            Prompts(title,
                    "The mileage to the Practice has not been entered. This can be entered on the "
                    "Practices grid."));
  window.cPractice.SelectData("1");
  window.Press(window.cmdAddMileageCharge);
  EXPECT_EQ(Cells(window.fgExpenses, 2, {"ITEM", "RATE", "CATEGORY"}),
            "Mileage charge to and from Practice (12 * " + std::string("£0.45) 5.40 0"_w));
  EXPECT_EQ(window.tabMain.Text(), "Expenses");
  EXPECT_EQ(window.cExpenses.Text() + " " + Sums(window), "5.40 300.00 38.83 344.23");
}

TEST(SessionItemsAndLinks, RefreshTakesTodaysRate) {
  Surgery surgery;
  surgery.AddSession({"EMPLOYERCONTRIBRATE=14.00", "EMPLOYERCONTRIB=37.80"});
  surgery.AddSession({"EMPLOYERCONTRIBRATE=14.00", "EMPLOYERCONTRIB=0"});
  surgery.AddSession({"EMPLOYERCONTRIBRATE=14.00", "FORMS=A"});

  frmSession untouched(surgery);
  untouched.OpenSession("2");
  EXPECT_EQ(untouched.cEmployerContribRate.Text(), "14.38");
  EXPECT_FALSE(untouched.imgRefreshPensionContribution.Visible());

  frmSession locked(surgery);
  locked.OpenSession("3");
  locked.Press(locked.imgRefreshPensionContribution);
  EXPECT_EQ(surgery.OneMessage(),
            Prompts("Recalculate Pension Contribution",
                    "The pension contribution cannot be recalculated once the sessions has "
                    "been included on an invoice or pension form."));

  frmSession window(surgery);
  window.OpenSession("1");
  EXPECT_EQ(window.cEmployerContribRate.Text(), "14.00");
  window.Press(window.imgRefreshPensionContribution);
  EXPECT_EQ(surgery.OneMessage().first, "Recalulate Pension Contribution");
  EXPECT_EQ(window.cEmployerContribRate.Text(), "14.00");
  surgery.shown.answers = {Answer::Yes};
  window.Press(window.imgRefreshPensionContribution);
  EXPECT_EQ(window.cEmployerContribRate.Text() + " " + Sums(window), "14.38 300.00 38.83 338.83");
  EXPECT_FALSE(window.imgRefreshPensionContribution.Visible());
}

TEST(SessionItemsAndLinks, ContributionIsShownInEnglandOnly) {
  for (const char* country : {"England", "ENGLAND", "Northern Ireland", ""}) {
    Surgery surgery;
    SetOption(surgery, optPensionCountry, country);
    frmSession window(surgery);
    window.New("03/02/2026", "", "2");
    window.Enter(window.cRate, "100");
    const bool shows = ToUpper(country) == "ENGLAND";
    EXPECT_EQ(window.cEmployerContrib.Visible(), shows) << country;
    EXPECT_EQ(window.cEmployerContribRate.Visible(), shows);
    EXPECT_EQ(window.imgEmployerContrib_Help.Visible(), shows);
    EXPECT_EQ(window.cTotal.Text(), "112.94");
  }
}

TEST(SessionItemsAndLinks, FormLinkOpensOrRepairsItself) {
  struct Case {
    std::string forms, type, formMonth;
    std::string opened, message, formsAfter;
  };
  const Case cases[] = {
      {"A", "1", "01/02/2026", "frmPensionA 1 022026", "", "A"},
      {"A,B", "1", "01/02/2026", "frmPensionA 1 022026", "", "A,B"},
      {"SOLO", "2", "01/02/2026", "frmPensionSOLO 1 022026", "", "SOLO"},
      {"A", "1", "01/03/2026", "", "", ""},
      {"SOLO", "2", "banana", "", "", ""},
      {"C", "1", "01/03/2026", "", "", "C"},
      {"", "1", "01/02/2026", "", "This session not pensioned yet", ""},
      {"A", "4", "01/02/2026", "", "This session is not pensionable", "A"},
      {"", "0", "01/02/2026", "", "This session is not pensionable", ""},
  };
  for (const Case& each : cases) {
    Surgery surgery;
    Grid& forms = each.type == "2" ? surgery.ledger.fgPensionSolo : surgery.ledger.fgPensionA;
    surgery.AddRow(forms, {"ID=9", "PRACTICE=2", "MONTH=01/02/2026"});
    surgery.AddRow(forms, {"ID=1", "PRACTICE=1", "MONTH=" + each.formMonth});
    surgery.AddSession({"FORMS=" + each.forms, "SESS_TYPE=" + each.type});
    frmSession window(surgery);
    window.OpenSession("1");
    window.Press(window.cForms);
    EXPECT_EQ(surgery.shown.opened, each.opened.empty() ? std::vector<std::string>()
                                                        : std::vector<std::string>{each.opened});
    if (!each.message.empty()) {
      ASSERT_EQ(surgery.shown.messages.size(), 1u);
      EXPECT_EQ(surgery.shown.messages[0].title, "Pension Form Information");
    }
    EXPECT_EQ(surgery.shown.TakeMessage(), each.message);
    EXPECT_EQ(window.cForms.Text(), each.formsAfter) << each.forms;
    if (each.forms != each.formsAfter) {
      EXPECT_EQ(window.lblFormDetails.Text(), "Not pensioned yet");
      EXPECT_TRUE(window.cRate.Enabled());
      EXPECT_EQ(surgery.ledger.fgSessions.TextMatrix(2, "FORMS"), each.forms);  // until Ok
      window.Press(window.cmdOk);
      EXPECT_EQ(surgery.ledger.fgSessions.TextMatrix(2, "FORMS"), "");
    }
  }
}

TEST(SessionItemsAndLinks, AFormDeletedInItsWindowIsNotWrittenBack) {
  Surgery surgery;
  WindowCatalogue catalogue;
  catalogue.Add("frmPensionA", [](Ledger&, const std::vector<std::string>&) { return true; });
  surgery.shown.catalogue = &catalogue;
  surgery.AddRow(surgery.ledger.fgPensionA, {"PRACTICE=1", "MONTH=01/02/2026"});
  surgery.AddSession({"FORMS=A"});
  frmSession window(surgery);
  window.OpenSession("1");
  surgery.ledger.fgSessions.SetTextMatrix(2, "FORMS", "");
  window.Press(window.cForms);
  EXPECT_EQ(window.lblFormDetails.Text(), "Not pensioned yet");
  window.Press(window.cmdOk);
  EXPECT_EQ(surgery.ledger.fgSessions.TextMatrix(2, "FORMS"), "");
}

TEST(SessionItemsAndLinks, InvoiceLinkOpensTheInvoiceOfThatNumber) {
  Surgery surgery;
  surgery.AddRow(surgery.ledger.fgInvoices, {"ID=5", "NUMBER=INV-00007"});
  FormatTables(surgery);
  surgery.AddSession({"INVOICE=5"});
  surgery.AddSession({});
  for (const char* id : {"1", "2"}) {
    frmSession window(surgery);
    window.OpenSession(id);
    window.Press(window.lblInvoiceDetails);
  }
  EXPECT_EQ(surgery.shown.opened, std::vector<std::string>{"frmInvoice 5"});

  Screen invoice(surgery, "frmInvoice");
  surgery.ledger.openScreens.push_back(&invoice);
  frmSession window(surgery);
  window.OpenSession("1");
  window.Press(window.lblInvoiceDetails);
  EXPECT_EQ(surgery.OneMessage().first, "The invoice window is already open.");
  EXPECT_EQ(surgery.shown.opened.size(), 1u);
}

TEST(SessionItemsAndLinks, HelpSaysWhatIsInForce) {
  Surgery surgery;
  surgery.AddSession({"EMPLOYERCONTRIBRATE=14.00"});
  const auto help = [&](const char* icon) {
    frmSession window(surgery);
    window.OpenSession("1");
    window.Press(*window.FindField(icon));
    return surgery.OneMessage().second;
  };
  EXPECT_NE(help("imgNameHelp").find("NHS OOH - Form SOLO"), std::string::npos);
  SetOption(surgery, optHasRetiredForms, "TRUE");
  EXPECT_NE(help("imgNameHelp").find("NHS OOH Deputising - Forms C & D"), std::string::npos);
  const std::string other = "A different rate of 14.00% was used";
  EXPECT_NE(help("imgEmployerContrib_Help").find(other), std::string::npos);
  SetOption(surgery, optEmployerContribRate, "14");
  const std::string text = help("imgEmployerContrib_Help");
  EXPECT_NE(text.find("rate set at 14.00%."), std::string::npos);
  EXPECT_EQ(text.find(other), std::string::npos);
}

}  // namespace
}  // namespace lm::test
