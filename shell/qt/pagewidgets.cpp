#include "shell/qt/pagewidgets.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "shell/mydetails.h"
#include "shell/qt/gridview.h"
#include "shell/qt/icons.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kSpacing = 10;

struct ButtonSpec {
  const char* name;
  const char* drawing;
  bool drops = false;  // narrow, and part of the button before it: its menu says more of the same
};

constexpr ButtonSpec kSessionButtons[] = {{"cmdAddSession", "plus"},
                                          {"cmdEditSession", "edit"},
                                          {"cmdCopySession", "copy"},
                                          {"cmdDeleteSession", "delete"}};
constexpr ButtonSpec kInvoiceButtons[] = {{"cmdAddInvoice", "plus"},
                                          {"cmdEditInvoice", "edit"},
                                          {"cmdViewInvoice", "pdf"},
                                          {"cmdViewInvoice_Options", "down", true},
                                          {"cmdDeleteInvoice", "delete"}};
constexpr ButtonSpec kPensionButtons[] = {{"cmdAddPensionForm", "plus"},
                                          {"cmdEditPensionForm", "edit"},
                                          {"cmdViewPensionForm", "pdf"},
                                          {"cmdViewPensionForm_Options", "down", true},
                                          {"cmdDeletePensionForm", "delete"}};
constexpr ButtonSpec kPracticeButtons[] = {
    {"cmdAddPractice", "plus"}, {"cmdEditPractice", "edit"}, {"cmdDeletePractice", "delete"}};

struct ListSpec {
  const char* table;
  const char* accessibleName;
  const char* emptyText;
};

constexpr ListSpec kSessions{
    "fgSessions", "Sessions",
    "No sessions here. Choose another period above, or add a session with the green plus."};
constexpr ListSpec kPractices{"fgPractices", "Practices",
                              "No practices yet. Add the first one with the green plus."};
constexpr ListSpec kEvents{"fgEvents", "Events", "There are no events."};
constexpr ListSpec kInvoices{"fgInvoices", "Invoices",
                             "No invoices here. Choose another tab above, or prepare invoices "
                             "with the green plus."};
constexpr ListSpec kExpenses{"fgExpenses", "Expenses", "There are no general expenses."};
constexpr ListSpec kForms[] = {
    {"fgPensionA", "Forms A",
     "No Forms A yet. They are made from a month's NHS Normal sessions: begin with the green "
     "plus."},
    {"fgPensionB", "Forms B",
     "No Forms B yet. Enter the day each Form A came back from its practice, then make the month's "
     "Form B with the green plus."},
    {"fgPensionSolo", "Forms SOLO",
     "No Forms SOLO yet. They are made from a month's NHS OOH sessions: begin with the green "
     "plus."},
    {"fgPensionC", "Forms C", "There are no Forms C. They belong to earlier years."},
    {"fgPensionD", "Forms D", "There are no Forms D. They belong to earlier years."},
    {"fgPensionPayments", "Pension payments",
     "No pension payments yet. Record the first one with the green plus."},
};

template <typename Widget>
Widget* Named(const char* name) {
  auto* widget = new Widget;
  widget->setObjectName(name);
  return widget;
}

GridView* MakeList(const ListSpec& spec) {
  auto* list = Named<GridView>(spec.table);
  list->setAccessibleName(spec.accessibleName);
  list->setProperty("emptyText", QString(spec.emptyText));
  return list;
}

QTabBar* MakeTabs(const char* name) {
  auto* tabs = Named<QTabBar>(name);
  tabs->setExpanding(false);
  tabs->setDrawBase(false);
  tabs->setDocumentMode(true);
  return tabs;
}

QVBoxLayout* MakeColumn(QWidget* page) {
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kSpacing);
  return column;
}

template <std::size_t N>
QHBoxLayout* MakeButtons(const ButtonSpec (&specs)[N]) {
  auto* row = new QHBoxLayout;
  row->setSpacing(6);
  for (const ButtonSpec& spec : specs) {
    QAbstractButton* button = nullptr;
    if (spec.drops)
      button = Named<QToolButton>(spec.name);
    else
      button = Named<QPushButton>(spec.name);
    button->setProperty("lineIcon", spec.drawing);
    button->setFocusPolicy(Qt::TabFocus);  // a click leaves the keys with the list
    if (!spec.drops) {
      row->addWidget(button);
      continue;
    }
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    auto* pair = new QHBoxLayout;
    pair->setSpacing(1);
    pair->addItem(row->takeAt(row->count() - 1));
    pair->addWidget(button);
    row->addLayout(pair);
  }
  row->addStretch();
  return row;
}

// The names of what stands beside the buttons of a filtered and grouped list, and its tabs.
struct ListPageSpec {
  const char* expand;
  const char* collapse;
  const char* group;
  const char* tabs;
  const ListSpec& list;
};

constexpr ListPageSpec kSessionsPage{"lblGrpBySession", "lblCollapseSessions", "cboGroupSessions",
                                     "tabSessions", kSessions};
constexpr ListPageSpec kInvoicesPage{"lblGrpByInvoice", "lblCollapseInvoices", "cboGroupInvoices",
                                     "tabInvoices", kInvoices};

QWidget* MakeListPage(QHBoxLayout* top, const ListPageSpec& spec) {
  auto* page = new QWidget;
  QVBoxLayout* column = MakeColumn(page);
  auto* group = Named<QComboBox>(spec.group);
  auto* caption = new QLabel(QObject::tr("&Group by:"));
  caption->setBuddy(group);
  top->addWidget(Named<QLabel>(spec.expand));
  top->addSpacing(6);
  top->addWidget(Named<QLabel>(spec.collapse));
  top->addSpacing(12);
  top->addWidget(caption);
  top->addWidget(group);
  column->addLayout(top);
  column->addWidget(MakeTabs(spec.tabs));
  column->addWidget(MakeList(spec.list), 1);
  return page;
}

QWidget* MakePracticesPage() {
  auto* page = new QWidget;
  QVBoxLayout* column = MakeColumn(page);
  column->addLayout(MakeButtons(kPracticeButtons));
  column->addWidget(MakeList(kPractices), 1);
  return page;
}

QWidget* MakePensionPage() {
  auto* page = new QWidget;
  QVBoxLayout* column = MakeColumn(page);
  column->addLayout(MakeButtons(kPensionButtons));
  column->addWidget(MakeTabs("tabForm"));
  auto* stack = Named<QStackedWidget>(kFormStack);
  for (const ListSpec& form : kForms) stack->addWidget(MakeList(form));
  column->addWidget(stack, 1);
  return page;
}

// The fields of one tab in two columns, the first half in the left one.
QWidget* MakeDetailsTab(MyDetailsTab tab) {
  std::vector<const MyDetailSpec*> fields;
  for (const MyDetailSpec& spec : kMyDetailSpecs)
    if (spec.tab == tab) fields.push_back(&spec);
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(20, 20, 20, 20);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(12);
  grid->setColumnMinimumWidth(2, 28);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(4, 1);
  const auto half = static_cast<int>(fields.size() + 1) / 2;
  for (int i = 0; i < static_cast<int>(fields.size()); ++i) {
    const MyDetailSpec& spec = *fields[static_cast<std::size_t>(i)];
    auto* box = new QLineEdit;
    box->setObjectName(QStringLiteral("txtMyDetails%1").arg(spec.field));
    auto* caption = new QLabel(ToQt(spec.caption));
    caption->setBuddy(box);
    const int column = i < half ? 0 : 3;
    grid->addWidget(caption, i % half, column);
    grid->addWidget(box, i % half, column + 1);
  }
  grid->setRowStretch(half, 1);
  return page;
}

QWidget* MakeMyDetailsPage() {
  auto* page = new QWidget;
  QVBoxLayout* column = MakeColumn(page);
  auto* name = Named<QLabel>("lblMyName");
  QFont bold = name->font();
  bold.setBold(true);
  name->setFont(bold);
  column->addWidget(name);
  auto* tabs = Named<QTabWidget>("tabMyDetails");
  for (std::size_t i = 0; i < kMyDetailsTabs.size(); ++i)
    tabs->addTab(MakeDetailsTab(static_cast<MyDetailsTab>(i)), ToQt(kMyDetailsTabs[i]));
  column->addWidget(tabs, 1);
  auto* hint = Named<QLabel>("lblMyDetailsHint");
  hint->setWordWrap(true);
  column->addWidget(hint);
  const auto showFirstBox = [page, tabs] {
    page->setFocusProxy(tabs->currentWidget()->findChild<QLineEdit*>());
  };
  QObject::connect(tabs, &QTabWidget::currentChanged, page, showFirstBox);
  showFirstBox();
  return page;
}

QWidget* MakeEmptyPage(const PageSpec& spec) {
  constexpr int kDrawing = 72;
  auto* page = new QWidget;
  QVBoxLayout* column = MakeColumn(page);
  auto* picture = new QLabel;
  const QColor faint = page->palette().color(QPalette::PlaceholderText);
  picture->setPixmap(LineIcon(ToQt(spec.icon), faint)
                         .pixmap(QSize(kDrawing, kDrawing), page->devicePixelRatioF()));
  picture->setAlignment(Qt::AlignCenter);
  auto* note = new QLabel(ToQt(spec.note));
  note->setAlignment(Qt::AlignCenter);
  note->setWordWrap(true);
  note->setFixedWidth(420);
  auto* middle = new QHBoxLayout;
  middle->addStretch();
  middle->addWidget(note);
  middle->addStretch();
  column->addStretch(2);
  column->addWidget(picture);
  column->addLayout(middle);
  column->addStretch(3);
  return page;
}

}  // namespace

QWidget* MakePage(Page page) {
  switch (page) {
    case Page::Sessions:
      return MakeListPage(MakeButtons(kSessionButtons), kSessionsPage);
    case Page::Practices:
      return MakePracticesPage();
    case Page::Pension:
      return MakePensionPage();
    case Page::MyDetails:
      return MakeMyDetailsPage();
    case Page::Events:
      return MakeList(kEvents);
    case Page::Invoices:
      return MakeListPage(MakeButtons(kInvoiceButtons), kInvoicesPage);
    case Page::Expenses:
      return MakeList(kExpenses);
    case Page::Calendar:
    case Page::Reports:
    case Page::LMToday:
      break;
  }
  return MakeEmptyPage(PageSpecOf(page));
}

}  // namespace lm
