// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "platform/picture/picture_tool.h"
#include "sample_pictures.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

class TestSandbox : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RefusesAllThatDecodingDoesNotNeed_data();
  void RefusesAllThatDecodingDoesNotNeed();
  void NothingIsDecodedWithoutIt();
};

void TestSandbox::RefusesAllThatDecodingDoesNotNeed_data() {
  QTest::addColumn<QString>("user");
  QTest::newRow("as whoever runs this") << u"user"_s;
  if (geteuid() == 0) QTest::newRow("as an ordinary user") << u"ordinary"_s;
}

void TestSandbox::RefusesAllThatDecodingDoesNotNeed() {
  QFETCH(const QString, user);
  const QTemporaryDir home;
  QFile secret(home.filePath(u"cookies"_s));
  QVERIFY(secret.open(QIODevice::WriteOnly) && secret.write("secret") == 6);
  secret.close();
  QCOMPARE(QProcess::execute(QStringLiteral(HOSTILE_HELPER), {home.path(), user}), 0);
  QVERIFY(secret.open(QIODevice::ReadOnly));
  QCOMPARE(secret.readAll(), "secret");
}

void TestSandbox::NothingIsDecodedWithoutIt() {
  const QTemporaryDir folder;
  PictureTool tool(QStringLiteral(HOSTILE_HELPER), folder.path());
  QList<PictureAnswer> answers;
  for (int i = 0; i < 2; ++i) {
    tool.Measure(SamplePicture(u"jpg"_s, QSize(64, 64)), this, [&](const PictureAnswer& answer) { answers += answer; });
  }
  QTRY_COMPARE(answers.size(), 2);
  for (const PictureAnswer& answer : std::as_const(answers)) {
    QVERIFY(!answer.ok);
    QVERIFY(answer.noSandbox);
    QCOMPARE(answer.size, QSize(0, 0));
  }
}

OMNI_TEST(TestSandbox)
#include "test_sandbox.moc"
