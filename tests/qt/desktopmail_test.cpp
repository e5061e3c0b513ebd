// What the mail program on the PATH is asked for. A script stands in for it and writes down its
// arguments.
#include "shell/qt/desktopmail.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "core/text.h"
#include "shell/qt/qtext.h"

namespace lm::test {
namespace {

QByteArray Read(const QString& name) {
  QFile file(name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

class MailTest : public testing::Test {
 protected:
  void SetUp() override {
    oldPath_ = qgetenv("PATH");
    qputenv("PATH", folder_.path().toLocal8Bit() + ":/usr/bin:/bin");
  }
  void TearDown() override { qputenv("PATH", oldPath_); }

  QString In(const QString& name) const { return folder_.filePath(name); }
  void Write(const QString& name, const QByteArray& bytes) {
    QFile file(In(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  void StandIn(const QByteArray& end) {
    Write("xdg-email",
          "#!/bin/sh\nprintf '%s\\0' \"$@\" > '" + In("asked").toLocal8Bit() + "'\n" + end + "\n");
    QFile::setPermissions(In("xdg-email"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  std::vector<std::string> Asked() const {
    std::vector<std::string> arguments;
    for (const QByteArray& each : Read(In("asked")).split('\0'))
      arguments.push_back(each.toStdString());
    arguments.pop_back();  // behind the last zero
    return arguments;
  }
  MailMessage Invoice() {
    Write("INV 7 Mühle.pdf", "%PDF-1.7");
    return {"anne@example.org", "Invoice \"7\" for M\xFChle $(touch x); `id`",
            "Dear 'Anne',\r\n\r\n\xA3"
            "5 & 100% \\n",
            "INV_7_M\xFChle.pdf", ToPath(In("INV 7 Mühle.pdf"))};
  }

  QTemporaryDir folder_;

 private:
  QByteArray oldPath_;
};

TEST_F(MailTest, TextsAndAttachmentGoAsTheyAre) {
  StandIn("exit 0");
  DesktopMail mail;
  ASSERT_TRUE(mail.Available());
  EXPECT_EQ(mail.Compose(Invoice()), MailOutcome::Sent);
  const auto asked = Asked();
  ASSERT_EQ(asked.size(), 8u);
  const std::vector<std::string> texts{"--utf8",
                                       "--subject",
                                       "Invoice \"7\" for Mühle $(touch x); `id`",
                                       "--body",
                                       "Dear 'Anne',\n\n£5 & 100% \\n",
                                       "--attach"};
  EXPECT_EQ(std::vector(asked.begin(), asked.begin() + 6), texts);
  const QFileInfo attached(QString::fromStdString(asked[6]));
  EXPECT_EQ(attached.fileName(), QString("INV_7_Mühle.pdf"));
  EXPECT_TRUE(attached.isAbsolute());
  EXPECT_EQ(Read(attached.filePath()), "%PDF-1.7") << "the copy outlives the call";
  EXPECT_EQ(asked[7], "anne@example.org");
  EXPECT_TRUE(QFile::exists(In("INV 7 Mühle.pdf"))) << "the file itself keeps its name";
}

TEST_F(MailTest, TheSameNameIsAttachedTwice) {
  StandIn("exit 0");
  DesktopMail mail;
  EXPECT_EQ(mail.Compose(Invoice()), MailOutcome::Sent);
  const std::string first = Asked()[6];
  EXPECT_EQ(mail.Compose(Invoice()), MailOutcome::Sent);
  EXPECT_NE(Asked()[6], first);
  MailMessage plain = Invoice();
  plain.attachmentName = FromQt(QFileInfo(FromPath(plain.attachment)).fileName());
  EXPECT_EQ(mail.Compose(plain), MailOutcome::Sent);
  EXPECT_EQ(Asked()[6], FromPath(plain.attachment).toStdString()) << "no copy without a new name";
}

TEST_F(MailTest, WhatIsEmptyIsLeftOut) {
  StandIn("exit 0");
  DesktopMail mail;
  EXPECT_EQ(mail.Compose({}), MailOutcome::Sent);
  EXPECT_EQ(Asked(), std::vector<std::string>{"--utf8"});
}

TEST_F(MailTest, AFailureIsNotSent) {
  DesktopMail mail;
  for (const char* end : {"exit 1", "exit 2", "exit 3", "exit 4", "kill -9 $$"}) {
    StandIn(end);
    EXPECT_EQ(mail.Compose(Invoice()), MailOutcome::Failed) << end;
  }
  Write("xdg-email", "no program at all");
  EXPECT_EQ(mail.Compose(Invoice()), MailOutcome::Failed);
  StandIn("exit 0");
  QFile::remove(In("asked"));
  MailMessage lost = Invoice();
  lost.attachment = ToPath(In("gone.pdf"));
  EXPECT_EQ(mail.Compose(lost), MailOutcome::Failed);
  EXPECT_FALSE(QFile::exists(In("asked"))) << "no message goes without its attachment";
}

TEST_F(MailTest, AComposerThatStaysOpenHasTheMessage) {
  StandIn("exec sleep 20");
  DesktopMail mail(300);
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(mail.Compose(Invoice()), MailOutcome::Sent);
  EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(MailTest, WithoutAProgramThereIsNone) {
  qputenv("PATH", folder_.path().toLocal8Bit());
  DesktopMail mail;
  EXPECT_FALSE(mail.Available());
  EXPECT_EQ(mail.Compose(Invoice()), MailOutcome::Failed);
}

}  // namespace
}  // namespace lm::test
