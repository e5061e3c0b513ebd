#include "shell/qt/windowmemory.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>
#include <filesystem>
#include <fstream>

#include "records/frmEvent.h"
#include "shell/frmMain.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/views.h"
#include "shell/windows.h"
#include "tests/qt/pretendedscreen.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

struct Desk {
  PretendedScreen screen{kLargeScreen};
  TestLedger test;

  std::filesystem::path File() const { return test.ledger.File("Windows.ini"); }
  void Write(const std::string& text) const { std::ofstream(File(), std::ios::binary) << text; }
  // Opens the window of an event, lets `act` do what the user does, and closes it.
  void Visit(const std::function<void(QWidget&)>& act) {
    frmEvent event(test.ledger);
    event.New("09/02/2026");
    ScreenDialog dialog(*FindView("frmEvent"), event, nullptr);
    dialog.show();
    QApplication::processEvents();
    act(dialog);
    QApplication::processEvents();
    event.Close();
    EXPECT_FALSE(dialog.isVisible());
  }
  QRect Place() {
    QRect place;
    Visit([&](QWidget& window) { place = window.geometry(); });
    return place;
  }
};

TEST(WindowMemory, SizeAndPlaceComeBack) {
  Desk desk;
  const QRect left(140, 160, 777, 555);
  desk.Visit([&](QWidget& window) { window.setGeometry(left); });
  EXPECT_EQ(desk.Place(), left);
}

TEST(WindowMemory, AWindowThatWasOnlyLookedAtIsNotKept) {
  Desk desk;
  desk.Visit([](QWidget&) {});
  EXPECT_FALSE(std::filesystem::exists(desk.File()));
}

TEST(WindowMemory, TheMaximisedStateComesBackAndGoes) {
  Desk desk;
  const QRect left(140, 160, 777, 555);
  desk.Visit([&](QWidget& window) {
    window.setGeometry(left);
    QApplication::processEvents();
    window.showMaximized();
  });
  desk.Visit([&](QWidget& window) {
    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(window.normalGeometry(), left);
    window.showNormal();
  });
  desk.Visit([&](QWidget& window) { EXPECT_FALSE(window.isMaximized()); });
}

TEST(WindowMemory, APlaceOffTheScreenIsPulledBack) {
  const QSize size(600, 500);
  const QPoint corners[] = {{5000, 300}, {-4000, -4000}, {1900, 1030}, {300, -900}};
  for (const QPoint& corner : corners) {
    Desk desk;
    desk.Visit([&](QWidget& window) { window.setGeometry(QRect(corner, size)); });
    const QRect place = desk.Place();
    EXPECT_EQ(place.size(), size);
    EXPECT_TRUE(desk.screen.screen.contains(place)) << corner.x() << " " << corner.y();
  }
}

TEST(WindowMemory, ASmallerScreenShrinksTheWindowButNotWhatIsKept) {
  Desk desk;
  const QRect left(100, 120, 1400, 850);
  desk.Visit([&](QWidget& window) { window.setGeometry(left); });
  PretendScreen(QRect(QPoint(), kSmallScreen));
  const QRect place = desk.Place();
  EXPECT_TRUE(QRect(QPoint(), kSmallScreen).contains(place));
  PretendScreen(QRect(QPoint(), kLargeScreen));
  EXPECT_EQ(desk.Place(), left);
}

TEST(WindowMemory, ADamagedFileRemembersNothing) {
  const QRect untouched = Desk().Place();
  const std::string damages[] = {
      "",
      std::string("\0\xFF\xFE[[[]]]=\n\n\"", 14),
      "[frmEvent]\nplace=@Rect(",
      "[frmEvent]\nplace=@Rect(a b c d)\nmaximised=perhaps not",
      "[frmEvent]\nplace=@Rect(10 10 -5 0)",
      "[frmEvent]\nplace=@Rect(2147483647 2147483647 2147483647 2147483647)",
      "[frmEvent]\nplace=@ByteArray(\\x1\\x2)",
      "[frmEvent]\nplace=@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\x1f)",
  };
  for (const std::string& damage : damages) {
    Desk desk;
    desk.Write(damage);
    EXPECT_EQ(desk.Place().size(), untouched.size()) << damage;
  }
}

// A folder in its place can neither be read nor written, by nobody.
TEST(WindowMemory, AFileThatCannotBeWrittenIsLeftAlone) {
  Desk desk;
  std::filesystem::create_directory(desk.File());
  const QRect before = desk.Place();
  desk.Visit([](QWidget& window) { window.setGeometry(140, 160, 777, 555); });
  EXPECT_EQ(desk.Place(), before);
  EXPECT_TRUE(desk.test.shown.messages.empty());
}

struct Main {
  WindowCatalogue windows;
  frmMain screen;
  MainWindow window;

  explicit Main(Ledger& ledger) : screen((AddWindows(windows), ledger), windows), window(screen) {}
  void Show(bool maximised) {
    screen.maximised = maximised;
    screen.showWindow();
    QApplication::processEvents();
  }
};

TEST(WindowMemory, TheMainWindowIsRemembered) {
  Desk desk;
  const QRect left(200, 100, 1100, 700);
  {
    Main main(desk.test.ledger);
    main.Show(false);
    main.window.setGeometry(left);
    main.window.hide();
  }
  Main main(desk.test.ledger);
  main.Show(false);
  EXPECT_EQ(main.window.geometry(), left);
}

TEST(WindowMemory, TheOptionMaximisesButIsNotTheUsersDoing) {
  Desk desk;
  {
    Main main(desk.test.ledger);
    main.Show(true);
    EXPECT_TRUE(main.window.isMaximized());
    main.window.hide();
  }
  Main main(desk.test.ledger);
  main.Show(false);
  EXPECT_FALSE(main.window.isMaximized());
}

}  // namespace
}  // namespace lm::test
