// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTcpServer>

#include "foreign_desktop.h"
#include "platform/desktop_window.h"

namespace {

// Sends the key and waits for the end of it; the event loop goes on meanwhile.
KeyEnd Send(const QByteArray& display) {
  DesktopWindow sender(display, {.pause = 50ms, .patience = 600ms, .silence = 400ms});
  std::optional<KeyEnd> end;
  sender.SendF7(u"EasyPal"_s, &sender, [&end](KeyEnd ended) { end = ended; });
  return QTest::qWaitFor([&end]() { return end.has_value(); }) ? *end : KeyEnd::Impossible;
}

}  // namespace

class TestDesktopWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Wherever the window is, it comes to the front and gets one F7, and no other window gets a key. All windows stay for
  // the rows that follow.
  void SendsTheKeyToTheOneWindow() {
    ForeignDesktop desktop;
    const auto sends = [&desktop](const char* row, const QStringList& before) {
      const TableRow name(row);
      const xcb_window_t window = desktop.Open("EasyPal");  // above those of the rows before
      desktop.Open("EasyPal - Receive");
      if (!before.isEmpty()) desktop.Do(QStringList(before) << ForeignDesktop::Id(window));
      const qsizetype had = desktop.Keys().size();
      QCOMPARE(Send(desktop.display), KeyEnd::Sent);
      QTRY_COMPARE(desktop.Keys().size(), had + 1);
      QCOMPARE(desktop.Keys().last(), qMakePair(window, ForeignDesktop::kF7));
      QVERIFY(desktop.IsActive(window));
    };
    sends("behind another", {});
    sends("minimised", {u"windowminimize"_s, u"--sync"_s});
    desktop.Do({u"keydown"_s, u"shift"_s});  // with it, F7 would be another key
    QCOMPARE(Send(desktop.display), KeyEnd::NoFocus);
    desktop.Do({u"keyup"_s, u"shift"_s});
    const xcb_window_t away = desktop.Open("EasyPal");
    desktop.Do({u"set_desktop_for_window"_s, ForeignDesktop::Id(away), u"1"_s});
    QTRY_VERIFY(!desktop.IsActive(away));
    QCOMPARE(Send(desktop.display), KeyEnd::Sent);
    QTRY_COMPARE(desktop.Keys().last(), qMakePair(away, ForeignDesktop::kF7));
    QCOMPARE(desktop.Do({u"get_desktop"_s}), "1"_ba);
  }

  void SendsNothing() {
    ForeignDesktop desktop;
    desktop.Open("EasyPal - Receive");
    QCOMPARE(Send(desktop.display), KeyEnd::NoWindow);
    QCOMPARE(Send(":4321"), KeyEnd::NoDisplay);
    const xcb_window_t mute = desktop.Open("EasyPal", false);
    QCOMPARE(Send(desktop.display), KeyEnd::NoFocus);
    desktop.Close(mute);
    // Gone, and the sender gone, in the pause before the key.
    for (const bool senderGoes : {false, true}) {
      const xcb_window_t window = desktop.Open("EasyPal");
      desktop.Open("Other");
      auto sender = std::make_unique<DesktopWindow>(desktop.display, DesktopWindow::Times{.pause = 1s});
      std::optional<KeyEnd> end;
      sender->SendF7(u"EasyPal"_s, this, [&end](KeyEnd ended) { end = ended; });
      QTRY_VERIFY(desktop.IsActive(window));
      senderGoes ? sender.reset() : desktop.Close(window);
      QCOMPARE(QTest::qWaitFor([&end]() { return end.has_value(); }, 1500), !senderGoes);
      QVERIFY(senderGoes || *end == KeyEnd::Gone);
    }
    // A server that takes the connection and never says a word.
    QTcpServer silent;
    quint16 port = 6100;
    while (!silent.listen(QHostAddress::LocalHost, port)) ++port;
    QCOMPARE(Send("127.0.0.1:" + QByteArray::number(port - 6000)), KeyEnd::NoAnswer);
    QVERIFY(desktop.Keys().isEmpty());
  }
};

OMNI_TEST(TestDesktopWindow)
#include "test_desktop_window.moc"
