// SPDX-License-Identifier: GPL-3.0-or-later
// The process that turns pages into text: who gets an answer, and when the process ends. A stopped process plays a page
// that holds its parser.
#include <cerrno>
#include <csignal>

#include "platform/picture/page_text_tool.h"
#include "test_suite.h"

namespace {

constexpr int kPatienceMs = 20'000;

// The tool's process, once it runs; 0 when it has not come up.
pid_t WarmedUp(PageTextTool& tool) {
  tool.WarmUp();
  (void)QTest::qWaitFor([&tool]() { return tool.ProcessId() != 0; }, kPatienceMs);
  return static_cast<pid_t>(tool.ProcessId());
}

}  // namespace

class TestPageTextTool : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // A fresh process takes the next page at once, however long the old page might have taken.
  void DropsACancelledPage_data() {
    QTest::addColumn<bool>("isAskerGone");
    QTest::newRow("cancelled") << false;
    QTest::newRow("its asker is gone") << true;
  }
  void DropsACancelledPage() {
    QFETCH(const bool, isAskerGone);
    PageTextTool tool(QStringLiteral(PICTURE_TOOL), {.job = 1h, .idle = 1h});
    const pid_t old = WarmedUp(tool);
    QVERIFY(old != 0);
    QCOMPARE(kill(old, SIGSTOP), 0);
    QStringList said;
    const auto note = [&said](const std::optional<QString>& text) { said += text.value_or(u"none"_s); };
    auto asker = std::make_unique<QObject>();
    QObject other;
    const quint64 held = tool.Read("<p>held</p>", asker.get(), note);
    const quint64 waiting = tool.Read("<p>waiting</p>", asker.get(), note);
    tool.Read("<p>\x80 next</p>", &other, note);
    if (isAskerGone) {
      asker.reset();
    } else {
      tool.Cancel(waiting);
      tool.Cancel(held);
    }
    QTRY_COMPARE_WITH_TIMEOUT(said, QStringList{u"\u20AC next"_s}, kPatienceMs);
    QVERIFY(tool.ProcessId() != old && kill(old, 0) != 0);
  }

  void EndsItsProcess() {
    PageTextTool idle(QStringLiteral(PICTURE_TOOL), {.job = 1h, .idle = 1ms});
    std::optional<QString> text;
    const auto take = [&text](const std::optional<QString>& answer) { text = answer; };
    idle.Read("<p>a</p>", this, take);
    QTRY_COMPARE_WITH_TIMEOUT(text, u"a"_s, kPatienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(idle.ProcessId(), 0, kPatienceMs);

    auto closed = std::make_unique<PageTextTool>(QStringLiteral(PICTURE_TOOL));
    const pid_t process = WarmedUp(*closed);
    QVERIFY(process != 0);
    closed.reset();
    QVERIFY(kill(process, 0) != 0 && errno == ESRCH);

    PageTextTool missing(u"/no/such/program"_s);
    missing.Read("a", this, take);
    QTRY_VERIFY_WITH_TIMEOUT(!text, kPatienceMs);
  }
};

OMNI_TEST(TestPageTextTool)
#include "test_page_text_tool.moc"
