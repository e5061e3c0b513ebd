// Saves a picture of every window, filled with sample data, into the folder that
// LEDGERMINDER_PICTURES names. "dark" as argument takes a dark palette; "853x533" a screen of that
// size; QT_SCALE_FACTOR scales.
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPalette>
#include <QPdfWriter>
#include <QStyleFactory>

#include "connections/frmAbout.h"
#include "connections/frmExportCalendar.h"
#include "connections/frmImportCalendar.h"
#include "connections/frmImportWizard.h"
#include "connections/frmSynchroniseOutlook.h"
#include "connections/outlookstandin.h"
#include "core/frmGetPassword.h"
#include "core/messagebox.h"
#include "core/shortcuts.h"
#include "documents/frmBookingConfirmation.h"
#include "documents/frmInvoice.h"
#include "documents/frmPaymentReminders.h"
#include "documents/frmPrepareInvoices.h"
#include "documents/shippedtemplates.h"
#include "entry/frmPopupCalendar.h"
#include "entry/frmPopupClock.h"
#include "entry/frmPopupNumbers.h"
#include "pension/frmPensionA.h"
#include "pension/frmPensionB.h"
#include "pension/frmPensionForms.h"
#include "pension/frmPensionSOLO.h"
#include "records/frmAddExpenses.h"
#include "records/frmAddSessions.h"
#include "records/frmEvent.h"
#include "records/frmPractice.h"
#include "records/frmRateCompare.h"
#include "records/frmSession.h"
#include "records/frmWelcome.h"
#include "reports/frmChart.h"
#include "reports/frmChartOptions.h"
#include "reports/taxreport.h"
#include "shell/frmConfigure.h"
#include "shell/frmFind.h"
#include "shell/frmGettingStarted.h"
#include "shell/frmMain.h"
#include "shell/frmShortcutKeys.h"
#include "shell/pages/calendarpage.h"
#include "shell/pages/pensionpage.h"
#include "shell/pages/reportspage.h"
#include "shell/pages/sessionspage.h"
#include "shell/printtable.h"
#include "shell/qt/binder.h"
#include "shell/qt/calendarprint.h"
#include "shell/qt/chartpainting.h"
#include "shell/qt/freearea.h"
#include "shell/qt/frmHelp.h"
#include "shell/qt/frmMesgBox.h"
#include "shell/qt/frmSplashScreen.h"
#include "shell/qt/gridview.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/printing.h"
#include "shell/qt/progresswindow.h"
#include "shell/qt/qtext.h"
#include "shell/qt/readablepalette.h"
#include "shell/qt/tipstrip.h"
#include "shell/qt/views.h"
#include "shell/windows.h"
#include "tests/connections/feeds.h"
#include "tests/qt/demo.h"
#include "tests/reports/chart_desk.h"

namespace {

using namespace lm;

QString suffix;

void Grab(QWidget& window, const QString& name) {
  window.show();
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  const QString file = qEnvironmentVariable("LEDGERMINDER_PICTURES") + "/" + name + suffix + ".png";
  if (!window.grab().save(file)) qFatal("cannot write %s", qPrintable(file));
}

// The offscreen platform's own screen is smaller than any of today.
void UseScreenOf(const QStringList& arguments) {
  QSize screen(1920, 1040);
  for (const QString& argument : arguments) {
    const QStringList sides = argument.split('x');
    if (sides.size() == 2 && sides[0].toInt() > 0 && sides[1].toInt() > 0)
      screen = {sides[0].toInt(), sides[1].toInt()};
  }
  PretendScreen(QRect(QPoint(), screen));
}

void ResizeMain(QWidget& window) {
  window.resize(QSize(1240, 780).boundedTo(FreeArea(window).size()));
}

QPalette DarkPalette() {
  QPalette dark;
  const QColor window(43, 45, 48), base(30, 31, 34), text(223, 225, 229), faint(134, 138, 145);
  for (const auto role : {QPalette::Window, QPalette::Button}) dark.setColor(role, window);
  for (const auto role : {QPalette::Base, QPalette::ToolTipBase}) dark.setColor(role, base);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
    dark.setColor(role, text);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    dark.setColor(QPalette::Disabled, role, faint);
  dark.setColor(QPalette::AlternateBase, QColor(38, 40, 43));
  dark.setColor(QPalette::PlaceholderText, faint);
  dark.setColor(QPalette::Link, QColor(108, 178, 240));
  dark.setColor(QPalette::Highlight, QColor(46, 96, 150));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::Light, QColor(70, 73, 78));
  dark.setColor(QPalette::Midlight, QColor(60, 63, 67));
  dark.setColor(QPalette::Mid, QColor(34, 36, 38));
  dark.setColor(QPalette::Dark, QColor(24, 25, 27));
  return dark;
}

void GrabScreen(Screen& screen, const QString& name) {
  ScreenDialog dialog(*FindView(screen.Name()), screen, nullptr);
  Grab(dialog, name);
}

constexpr const char* kTabsOfFrames[] = {"tabGeneral",          "tabFormat",  "",
                                         "tabEvents",           "tabInvoice", "tabPension",
                                         "tabRatesAndExpenses", "tabSync"};

// A picker's start is reached only by opening it.
void GrabPicker(test::TestLedger& test, PopupPicker& picker, const char* text,
                const QString& name) {
  test.shown.modal.push_back([&](Screen& screen) { GrabScreen(screen, name); });
  picker.PickFrom(text);
}

void GrabOptions(test::TestLedger& test, frmMain& main) {
  PlaceShippedTemplates(test);
  frmConfigure options(main);
  for (std::size_t i = 0; i < options.frames.size(); ++i) {
    options.fgChooser.Select(options.fgChooser.FixedRows() + static_cast<int>(i), 1);
    TabField* tabs = nullptr;
    for (TabField* each :
         {&options.tabGeneral, &options.tabFormat, &options.tabEvents, &options.tabInvoice,
          &options.tabPension, &options.tabRatesAndExpenses, &options.tabSync})
      if (each->Name() == kTabsOfFrames[i]) tabs = each;
    for (int tab = 0; tab < (tabs ? tabs->Count() : 1); ++tab) {
      if (tabs) tabs->SetSelected(tab);
      GrabScreen(options, QString("frmConfigure-%1-%2").arg(i).arg(tab));
    }
  }
}

// A busy month: nights, a fortnight's holiday, a day with more than fits.
void FillCalendar(test::TestLedger& test) {
  const auto session = [&](const char* day, const char* start, const char* end,
                           const char* practice, const char* more = "NOTES=") {
    test.AddRow(test.ledger.fgSessions, {std::string("SDATE=") + day, std::string("STIME=") + start,
                                         std::string("ETIME=") + end,
                                         std::string("PRACTICE=") + practice, "SESS_TYPE=1", more});
  };
  session("02/02/2026", "08:30", "12:30", "1", "INVOICE=1");
  session("02/02/2026", "14:00", "18:00", "2", "FORMS=A");
  session("04/02/2026", "22:00", "06:00", "3", "EDATE=05/02/2026");
  session("06/02/2026", "09:00", "", "2");
  for (const char* hour : {"08", "09", "10", "11", "12", "13", "14", "15", "16"})
    session("12/02/2026", (std::string(hour) + ":00").c_str(), (std::string(hour) + ":50").c_str(),
            "1");
  const auto event = [&](const char* title, const char* from, const char* to,
                         const char* category) {
    test.AddRow(test.ledger.fgEvents,
                {std::string("TITLE=") + title, std::string("SDATE=") + from,
                 std::string("EDATE=") + to, std::string("CATEGORY=") + category});
  };
  event("Skiing in the Alps", "21/02/2026", "06/03/2026", "-2");
  event("Safeguarding course", "05/02/2026", "05/02/2026", "1");
  event("Half-term", "16/02/2026", "20/02/2026", "4");
  event("Appraisal", "04/02/2026", "", "2");
}

void GrabCalendar(test::TestLedger& test, frmMain& screen, MainWindow& window) {
  FillCalendar(test);
  auto& page = screen.PageOf<CalendarPage>();
  screen.ShowPage(Page::Calendar);
  for (int tab = 0; tab < page.tabCalendar.Count(); ++tab) {
    screen.Choose(page.tabCalendar, tab);
    QApplication::processEvents();
    Grab(window, QString("main-calendar-%1").arg(tab));
    QPdfWriter paper(qEnvironmentVariable("LEDGERMINDER_PICTURES") +
                     QString("/printed-calendar-%1.pdf").arg(tab));
    paper.setPageOrientation(QPageLayout::Landscape);
    PaintCalendar(paper, screen, page);
  }
}

void GrabReports(test::TestLedger& test, frmMain& screen, MainWindow& window) {
  auto& page = screen.PageOf<ReportsPage>();
  screen.ShowPage(Page::Reports);
  const auto grab = [&](const QString& name, Button& refresh) {
    screen.Press(refresh);
    QApplication::processEvents();
    Grab(window, "main-reports-" + name);
    QPdfWriter paper(qEnvironmentVariable("LEDGERMINDER_PICTURES") + "/printed-report-" + name +
                     ".pdf");
    paper.setPageOrientation(QPageLayout::Landscape);
    PaintGrid(paper, test, *page.GridInFront(), {page.Title(), page.PrintedPeriod()});
  };
  screen.Enter(page.cboReport, "Average Hourly Rate - All");
  grab("standard", page.cmdRefreshReport);
  screen.Choose(page.tabReport, 1);
  screen.Enter(page.cboGroupingLevels, "2");
  grab("grouping", page.cmdRefreshGroupingReport);
  screen.Choose(page.tabReport, 2);
  const auto toggleAll = [&] {
    Grid& report = page.fgTaxReport;
    for (int row = report.Rows() - 1; row >= 0; --row) ToggleTaxSection(report, row);
  };
  screen.Press(page.cmdRefreshTaxReport);
  QApplication::processEvents();
  Grab(window, "main-reports-tax-closed");
  page.cmdRefreshTaxReport.onPressed = toggleAll;
  grab("tax", page.cmdRefreshTaxReport);
}

void GrabMain(test::TestLedger& test) {
  WindowCatalogue windows;
  AddWindows(windows);
  frmMain screen(test, windows);
  MainWindow window(screen);
  screen.SetWindowTitle();
  ResizeMain(window);
  for (const auto& each : screen.Pages()) {
    const PageSpec& page = each->Spec();
    screen.ShowPage(page.page);
    window.RefreshStatus();
    Grab(window,
         QString("main-%1").arg(QString::fromLatin1(page.icon.data(), int(page.icon.size()))));
  }
  TipStrip* tips = MainWindowTips();
  for (const char* each : {"Welcome to LedgerMinder", "Current Sessions"}) {
    screen.ShowPage(Page::Sessions);
    tips->Add(each,
              "To begin using LedgerMinder first enter the details of the practices you work at, "
              "then enter some sessions, then you can create pension forms and invoices. To enter "
              "some practice details, click the 'Practices' icon in the shortcuts bar.",
              nullptr);
  }
  Grab(window, "main-tip");
  window.resize(850, 500);
  Grab(window, "main-tip-small");
  window.resize(1240, 780);
  for (int i = 0; i < 2; ++i) tips->CloseTip();
  GrabCalendar(test, screen, window);
  GrabReports(test, screen, window);
  screen.ShowPage(Page::Sessions);
  auto& page = screen.PageOf<SessionsPage>();
  screen.Enter(page.tabSessions, "All");
  screen.Enter(page.cboGroupSessions, "Practice");
  screen.HeaderClicked(test.ledger.fgSessions, test.ledger.fgSessions.ColIndex("SDATE"));
  test.ledger.fgSessions.Select(4, 4);
  window.RefreshStatus();
  Grab(window, "main-sessions-grouped");
  QPdfWriter paper(qEnvironmentVariable("LEDGERMINDER_PICTURES") + "/printed-sessions.pdf");
  paper.setPageOrientation(QPageLayout::Landscape);
  PaintGrid(paper, test, test.ledger.fgSessions, {"Sessions", PrintedDays(test.ledger.fgSessions)});
  screen.Enter(page.cboGroupSessions, "No Grouping");
  QApplication::processEvents();
  window.CurrentList()->EditCellAt(test.ledger.fgSessions.FixedRows() + 7,
                                   test.ledger.fgSessions.ColIndex("RATE"));
  Grab(window, "main-sessions-editing");
  frmGettingStarted steps(screen);
  GrabScreen(steps, "frmGettingStarted");
  screen.lastSearch = "riverside";
  frmFind find(screen);
  GrabScreen(find, "frmFind");
  screen.lastSearch = "";
  frmFind nothingYet(screen);
  GrabScreen(nothingYet, "frmFind-empty");
  screen.Enter(page.txtFilterSessions, "riverside feb");
  window.RefreshStatus();
  Grab(window, "main-sessions-filtered");
  screen.Enter(page.txtFilterSessions, "nothing of the kind");
  Grab(window, "main-sessions-nothing");
  screen.Enter(page.txtFilterSessions, "");
  GrabOptions(test, screen);
  SetDefaultShortcuts(test);
  frmShortcutKeys keys(screen);
  keys.fgKeys.Select(keys.fgKeys.FindRow("Show Detail Calendar", "ACTION"), 1);
  keys.Enter(keys.cboKeys, "M");
  keys.Tick(keys.chkALT, true);
  GrabScreen(keys, "frmShortcutKeys");
}

// With the pension month, expenses and events; small; and before anything is recorded.
void GrabToday(test::TestLedger& test) {
  Grid& expenses = test.ledger.fgExpenses;
  test.AddRow(expenses, {"DATE=12/01/2026", "ITEM=BMA subscription", "AMOUNT=41.50"});
  test.AddRow(expenses, {"DATE=22/01/2026", "ITEM=Stethoscope", "AMOUNT=84.00"});
  WindowCatalogue windows;
  AddWindows(windows);
  const auto grab = [&](Ledger& ledger, const QSize& size, const QString& name) {
    frmMain screen(ledger, windows);
    MainWindow window(screen);
    window.resize(size.boundedTo(FreeArea(window).size()));
    screen.ShowPage(Page::LMToday);
    Grab(window, name);
  };
  grab(test, {1240, 780}, "main-today");
  grab(test, {1024, 560}, "main-today-small");
  test::TestLedger empty;
  grab(empty, {1240, 780}, "main-today-steps");
}

// All four pages. The records are those of before when it is done.
void GrabImportWizard(test::TestLedger& test) {
  using Sent = test::SentSession;
  const std::string id = "8f3a6c1d5e7b9042ac4de16f7035b8e2";
  std::vector<Sent> sent(4);
  sent[0].practice = "Willow Court Medical Centre";
  sent[0].address = "22 Willow Road";
  sent[0].date = "2026-02-05";
  sent[0].start = "09:00";
  sent[0].end = "13:00";
  sent[0].rate = "90 ph";
  sent[1].practice = "Riverside Surgery";
  sent[1].date = "2026-02-09";
  sent[1].start = "08:30";
  sent[1].end = "12:30";
  sent[1].notes = "Duty doctor until ten";
  sent[2].practice = "St Marys OOH";
  sent[2].address = "St Mary's Hospital";
  sent[2].period = "OVERNIGHT";
  sent[2].date = "2026-02-14";
  sent[3].practice = "Riverside Surgery";
  sent[3].period = "AFTERNOON";
  sent[3].date = "2026-02-17";
  sent[3].status = "Confirmed";
  std::string body;
  for (const Sent& session : sent) body += session.Xml();
  test.shown.web[std::string(kGPnetworks) + "/lm/?uid=" + id] = test::FeedXml({body});
  SetOption(test, optImportChoice1, id);
  SetOption(test, optImportChoice2, "Booked through GPnetworks");
  SetOption(test, optImportChoice3, "TRUE|TRUE|26/01/2026 20:14");
  frmImportWizard wizard(test, *FindBookingFeed("GPnetworks"));
  GrabScreen(wizard, "frmImportWizard-0");
  wizard.Press(wizard.cmdNext);
  Grid& practices = wizard.fgPractices;
  wizard.Edit(practices, practices.FixedRows() + 1, practices.ColIndex("ACTION"),
              "St Mary's Out of Hours");
  GrabScreen(wizard, "frmImportWizard-1");
  wizard.Press(wizard.cmdNext);
  GrabScreen(wizard, "frmImportWizard-2");
  wizard.Press(wizard.cmdNext);
  GrabScreen(wizard, "frmImportWizard-3");
  while (test.ledger.history.Undo()) continue;
}

void GrabRecords(test::TestLedger& test) {
  frmSession session(test);
  session.OpenSession("6");
  for (int tab = 0; tab < session.tabMain.Count(); ++tab) {
    session.tabMain.SetSelected(tab);
    GrabScreen(session, QString("frmSession-%1").arg(tab));
  }
  frmSession locked(test);
  locked.OpenSession("1");
  GrabScreen(locked, "frmSession-locked");
  frmPractice practice(test);
  practice.Open("1");
  for (int tab = 0; tab < practice.tabMain.Count(); ++tab) {
    practice.tabMain.SetSelected(tab);
    GrabScreen(practice, QString("frmPractice-%1").arg(tab));
  }
  frmAddSessions run(test);
  run.Choose(run.cboPractice, 1);
  run.Enter(run.txtSDate, "05/01/2026");
  run.Enter(run.txtEDate, "27/03/2026");
  for (const int day : {0, 2, 3}) run.Tick(*run.chkDay[static_cast<std::size_t>(day)], true);
  run.Enter(run.txtSTime, "08:30");
  run.Enter(run.txtETime, "12:30");
  GrabScreen(run, "frmAddSessions");
  frmAddExpenses expense(test);
  expense.Enter(expense.txtItem, "BMA subscription");
  expense.Enter(expense.txtAmount, "41.50");
  GrabScreen(expense, "frmAddExpenses");
  expense.Tick(expense.optRepetition_Weekly, true);
  GrabScreen(expense, "frmAddExpenses-weekly");
  expense.Tick(expense.optRepetition_Monthly, true);
  for (const int col : {0, 4}) expense.Click(expense.fgRecurOnDays, 0, col);
  expense.Enter(expense.txtRepeatUntil, "31/12/2026");
  GrabScreen(expense, "frmAddExpenses-monthly");
  frmEvent event(test);
  event.New("09/02/2026");
  event.Enter(event.cTitle, "Half-term holiday");
  GrabScreen(event, "frmEvent");
  frmRateCompare rates(test);
  GrabScreen(rates, "frmRateCompare");
  frmWelcome welcome(test);
  GrabScreen(welcome, "frmWelcome");
  SetOption(test, optOutlookSyncState, "02/02/2026 19:05");
  frmSynchroniseOutlook withoutOutlook(test);
  GrabScreen(withoutOutlook, "frmSynchroniseOutlook-none");
  OutlookStandIn outlook;
  test.shown.platform.outlook = &outlook;
  frmSynchroniseOutlook synchronise(test);
  GrabScreen(synchronise, "frmSynchroniseOutlook");
  test.shown.platform.outlook = nullptr;
  SetOption(test, optICalLastFile, "02/02/2026 19:05");
  frmImportCalendar importing(test);
  importing.txtICalAddress.SetText("webcal://calendar.example/dr-bell/work.ics");
  importing.lblStatus.SetText("Calendar importing complete.");
  GrabScreen(importing, "frmImportCalendar");
  GrabImportWizard(test);
  frmHelp guide(nullptr);
  guide.resize(980, 660);
  guide.show();
  for (const char* heading : {"", "dates-times-and-amounts", "invoices", "templates", "finding"}) {
    guide.GoTo(heading);
    Grab(guide, QString("frmHelp-%1").arg(heading));
  }
  guide.findChild<QLineEdit*>("txtSearch")->setFocus();
  guide.findChild<QLineEdit*>("txtSearch")->insert("surgery");
  Grab(guide, "frmHelp-search");
  frmAbout about(test);
  GrabScreen(about, "frmAbout");
  about.Choose(about.tabTab, 1);
  GrabScreen(about, "frmAbout-licences");
  frmExportCalendar exported(test);
  exported.txtExportFile.SetText("/home/frances/Documents/LedgerMinder Sessions.ics");
  GrabScreen(exported, "frmExportCalendar");
  frmGetPassword password(test, "LedgerMinder.dat");
  GrabScreen(password, "frmGetPassword");
  frmPopupCalendar calendar(test, "Start Date");
  GrabPicker(test, calendar, "10/02/2026", "frmPopupCalendar");
  frmPopupClock clock(test, "Start Time");
  GrabPicker(test, clock, "13:05", "frmPopupClock");
  frmPopupNumbers numbers(test, "Rate");
  GrabPicker(test, numbers, "12.50", "frmPopupNumbers");
}

void GrabInvoices(test::TestLedger& test) {
  frmInvoice invoice(test);
  invoice.Open("1");
  for (int tab = 0; tab < invoice.tabMain.Count(); ++tab) {
    invoice.tabMain.SetSelected(tab);
    GrabScreen(invoice, QString("frmInvoice-%1").arg(tab));
  }
  frmInvoice unsent(test);
  unsent.Open("3");
  GrabScreen(unsent, "frmInvoice-unsent");
  unsent.tabMain.SetSelected(1);
  GrabScreen(unsent, "frmInvoice-unsent-1");
  Grid& invoices = test.ledger.fgInvoices;
  for (const int row : {invoices.FixedRows(), invoices.FixedRows() + 1}) {
    invoices.SetTextMatrix(row, "IDATE", "31/12/2025");
    invoices.SetTextMatrix(row, "SDATE", "31/12/2025");
    invoices.SetTextMatrix(row, "DUEDATE", "14/01/2026");
    for (const char* key : {"PAYDATE", "PAYMETHOD", "PAYREF", "RECEIPTDATE", "RECEIPTMETHOD"})
      invoices.SetTextMatrix(row, key, "");
  }
  invoices.SetTextMatrix(invoices.FixedRows(), "REMINDERS", "2");
  invoices.SetTextMatrix(invoices.FixedRows(), "REMINDDATE", "01/02/2026");
  frmPaymentReminders reminders(test);
  GrabScreen(reminders, "frmPaymentReminders");
  frmInvoice overdue(test);
  overdue.Open("1");
  GrabScreen(overdue, "frmInvoice-overdue");
  frmPrepareInvoices prepare(test);
  GrabScreen(prepare, "frmPrepareInvoices");
  frmBookingConfirmation booking(test);
  booking.ChoosePractice("1");
  Grid& sessions = booking.fgUpcomingSessions;
  for (int row : {0, 2}) booking.Click(sessions, sessions.FixedRows() + row, 0);
  for (int tab = 0; tab < booking.tabMessage.Count(); ++tab) {
    booking.tabMessage.SetSelected(tab);
    GrabScreen(booking, QString("frmBookingConfirmation-%1").arg(tab));
  }
  test.shown.now += 365;
  frmBookingConfirmation nothing(test);
  GrabScreen(nothing, "frmBookingConfirmation-empty");
  test.shown.now -= 365;
  ProgressWindow progress(nullptr);
  progress.SetProgress(40, "Preparing invoice 12: Riverside Surgery");
  Grab(progress, "progressWindow");
  progress.OfferCancel();
  Grab(progress, "progressWindow-cancel");
}

template <typename Window>
void GrabForm(test::TestLedger& test, const QString& name) {
  Window form(test);
  form.Open(2);
  for (int tab = 0; tab < form.tabMain.Count(); ++tab) {
    form.tabMain.SetSelected(tab);
    GrabScreen(form, QString("%1-%2").arg(name).arg(tab));
  }
}

void GrabPension(test::TestLedger& test) {
  WindowCatalogue windows;
  AddWindows(windows);
  {
    frmMain screen(test, windows);
    MainWindow window(screen);
    screen.SetWindowTitle();
    ResizeMain(window);
    screen.ShowPage(Page::Pension);
    auto& tabs = screen.PageOf<PensionPage>().tabForm;
    for (int tab = 0; tab < tabs.Count(); ++tab) {
      screen.Enter(tabs, tabs.TabCaption(tab));
      window.RefreshStatus();
      Grab(window, QString("main-pension-forms-%1").arg(tab));
    }
  }
  GrabForm<frmPensionA>(test, "frmPensionA");
  GrabForm<frmPensionB>(test, "frmPensionB");
  GrabForm<frmPensionSOLO>(test, "frmPensionSOLO");
  frmPensionForms prepare(test);
  GrabScreen(prepare, "frmPensionForms");
}

void GrabCharts(test::TestLedger& test) {
  const test::ReportMatrix year = test::YearOfWork();
  const test::ReportMatrix many(test::Numbered("A Practice with a Long Name, Number", 30),
                                test::Days(80, 30));
  const test::ReportMatrix hours({"Riverside Surgery", "Elm Tree Medical Centre"},
                                 {{"Jan 26", {"36:30", "-8:30"}}, {"Feb 26", {"24:00", "12:15"}}},
                                 "");
  const std::pair<const char*, const test::ReportMatrix*> kReports[] = {
      {"", &year}, {"-many", &many}, {"-hours", &hours}};
  for (const auto& [name, report] : kReports) {
    frmChart chart(test, *report, "Work Value - All (Rates + Extras + Expenses)",
                   "1 April 2025 to 31 March 2026, by month");
    for (int type = 0; type < kChartTypes; ++type)
      for (const ChartGroup group : {ChartGroup::Practice, ChartGroup::Date}) {
        chart.SetChoice({static_cast<ChartType>(type), group});
        GrabScreen(chart,
                   QString("frmChart%1-%2-%3").arg(name).arg(type).arg(static_cast<int>(group)));
      }
  }
  frmChart chart(test, year, "Work Value", "A year");
  chart.SetChoice({ChartType::Stacked, ChartGroup::Date});
  QPdfWriter paper(qEnvironmentVariable("LEDGERMINDER_PICTURES") + "/printed-chart.pdf");
  paper.setPageOrientation(QPageLayout::Landscape);
  PaintChart(paper, chart.Shown(), chart.Titles());
  frmChartOptions options(test, {}, [](ChartChoice) {});
  GrabScreen(options, "frmChartOptions");
}

void GrabBoxes() {
  MessageBoxText box;
  box.title = "Duplicate Session";
  box.mainPrompt = "A session already exists with this date and time.\r\nSave this session anyway?";
  box.minorPrompt =
      "Click Yes to save this session with duplicate date and time.\r\nClick No to return to the "
      "session and change "
      "its details.";
  box.buttons = Buttons::YesNo;
  box.icon = Icon::Question;
  frmMesgBox question(box);
  Grab(question, "frmMesgBox-question");
  MessageBoxText error;
  error.title = "LedgerMinder";
  error.mainPrompt = "The rate must be blank or a number.";
  error.icon = Icon::Exclamation;
  frmMesgBox errorBox(error);
  Grab(errorBox, "frmMesgBox-short");
  frmSplashScreen splash("4.0.0");
  splash.SetProgressBar(35, "Loading and decrypting data...");
  splash.ShowLastOpened("Last Opened: Mon 02-Feb-2026 18:04 by frances");
  Grab(splash, "frmSplashScreen");
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QString folder = qEnvironmentVariable("LEDGERMINDER_PICTURES");
  if (folder.isEmpty() || !QDir().mkpath(folder)) qFatal("LEDGERMINDER_PICTURES names no folder");
  if (application.arguments().contains("dark")) {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(DarkPalette());
    suffix = "-dark";
  }
  QApplication::setPalette(ReadablePalette(QApplication::palette()));
  if (application.devicePixelRatio() > 1)
    suffix += QString("-%1").arg(application.devicePixelRatio());
  UseScreenOf(application.arguments());
  lm::test::TestLedger test;
  lm::test::FillDemo(test);
  GrabMain(test);
  GrabRecords(test);
  GrabInvoices(test);
  GrabBoxes();
  GrabCharts(test);
  lm::test::FillPensionDemo(test);
  GrabPension(test);
  GrabToday(test);
  return 0;
}
