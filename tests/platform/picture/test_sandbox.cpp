// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <QProcess>

#include "platform/picture/picture_tool.h"
#include "sample_pictures.h"
#include "test_folder.h"

class TestSandbox : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RefusesAllThatDecodingDoesNotNeed_data() {
    QTest::addColumn<QString>("user");
    QTest::newRow("as whoever runs this") << u"user"_s;
    if (geteuid() == 0) QTest::newRow("as an ordinary user") << u"ordinary"_s;
  }
  void RefusesAllThatDecodingDoesNotNeed() {
    QFETCH(const QString, user);
    const TestFolder home;
    home.Put(u"cookies"_s, "secret");
    QCOMPARE(QProcess::execute(QStringLiteral(HOSTILE_HELPER), {home.path(), user}), 0);
    QCOMPARE(home.Bytes(u"cookies"_s), "secret");
  }

  void NothingIsDecodedWithoutIt() {
    const TestFolder folder;
    PictureTool tool(QStringLiteral(HOSTILE_HELPER), folder.path());
    const QByteArray picture = SamplePicture(u"jpg"_s, QSize(64, 64));
    QList<PictureAnswer> answers;
    for (int i = 0; i < 2; ++i) {
      tool.Measure(picture, this, [&answers](const PictureAnswer& answer) { answers += answer; });
    }
    QTRY_COMPARE(answers.size(), 2);
    for (const PictureAnswer& answer : std::as_const(answers)) {
      QVERIFY(!answer.ok && answer.noSandbox);
      QCOMPARE(answer.size, QSize(0, 0));
    }
  }
};

OMNI_TEST(TestSandbox)
#include "test_sandbox.moc"
