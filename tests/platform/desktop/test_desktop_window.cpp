// SPDX-License-Identifier: GPL-3.0-or-later
#include <QElapsedTimer>
#include <QTcpServer>

#include "foreign_desktop.h"
#include "platform/desktop_window.h"
#include "test_suite.h"

namespace {

constexpr int kF7 = 73;  // its number on every keyboard of a PC
constexpr DesktopWindow::Times kQuick{.pause = 50ms, .patience = 600ms, .silence = 400ms};

const QString kTitle = u"EasyPal"_s;

// Sends the key and waits for the end of it.
KeyEnd Send(DesktopWindow& sender) {
  std::optional<KeyEnd> end;
  QObject context;
  sender.SendF7(kTitle, &context, [&end](KeyEnd ended) { end = ended; });
  return QTest::qWaitFor([&end]() { return end.has_value(); }, 15'000) ? *end : KeyEnd::NoAnswer;
}

}  // namespace

class TestDesktopWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    desktop_ = std::make_unique<ForeignDesktop>();
    QVERIFY(desktop_->IsUp());
  }
  void cleanupTestCase() { desktop_.reset(); }

  // Wherever the window is, it comes to the front and gets one F7; no other window gets a key.
  void SendsTheKeyToTheOneWindow() {
    const auto sends = [this](const char* row, const std::function<void(xcb_window_t)>& before,
                              const ForeignDesktop::Kind& kind) {
      const TableRow name(row);
      const xcb_window_t window = desktop_->Open(kTitle, kind);
      const xcb_window_t other = desktop_->Open(u"EasyPal - Receive"_s);
      before(window);
      DesktopWindow sender(desktop_->Display(), kQuick);
      QCOMPARE(Send(sender), KeyEnd::Sent);
      QTRY_COMPARE(desktop_->KeysOf(window), QList<int>{kF7});
      QCOMPARE(desktop_->KeysOf(other), QList<int>());
      QVERIFY(desktop_->IsActive(window));
      desktop_->Close(window);
      desktop_->Close(other);
    };
    sends("behind another", [](xcb_window_t) {}, {});
    sends("with the old kind of title", [](xcb_window_t) {}, {.modernTitle = false});
    sends("minimised", [this](xcb_window_t window) { desktop_->Minimise(window); }, {});
    sends("on another desktop", [this](xcb_window_t window) { desktop_->MoveToDesktop(window, 1); }, {});
    QCOMPARE(desktop_->CurrentDesktop(), 1U);
  }

  void TakesTheUpperOfTwo() {
    const xcb_window_t lower = desktop_->Open(kTitle);
    const xcb_window_t upper = desktop_->Open(kTitle);
    desktop_->Open(u"Other"_s);
    DesktopWindow sender(desktop_->Display(), kQuick);
    QCOMPARE(Send(sender), KeyEnd::Sent);
    QTRY_COMPARE(desktop_->KeysOf(upper), QList<int>{kF7});
    QCOMPARE(desktop_->KeysOf(lower), QList<int>());
    desktop_->Close(lower);
    desktop_->Close(upper);
  }

  // A key that the user still holds would make another one of F7.
  void WaitsForAKeyThatIsHeld() {
    const xcb_window_t window = desktop_->Open(kTitle);
    desktop_->HoldShift(true);
    DesktopWindow sender(desktop_->Display(), {.pause = 0ms, .patience = 10s, .silence = 1s});
    std::optional<KeyEnd> end;
    sender.SendF7(kTitle, this, [&end](KeyEnd ended) { end = ended; });
    QVERIFY(!QTest::qWaitFor([&]() { return desktop_->KeysOf(window).contains(kF7); }, 300));
    desktop_->HoldShift(false);
    QTRY_VERIFY(end.has_value());
    QCOMPARE(*end, KeyEnd::Sent);
    desktop_->Close(window);
  }

  void SendsNothing() {
    const auto ends = [](const char* row, const QByteArray& display, KeyEnd expected) {
      const TableRow name(row);
      DesktopWindow sender(display, kQuick);
      QCOMPARE(Send(sender), expected);
      QVERIFY(!sender.Busy());
    };
    const xcb_window_t longer = desktop_->Open(u"EasyPal - Receive"_s);
    ends("a title that only begins so", desktop_->Display(), KeyEnd::NoWindow);
    QCOMPARE(desktop_->KeysOf(longer), QList<int>());
    ends("no display", ":4321", KeyEnd::NoDisplay);
    const xcb_window_t window = desktop_->Open(kTitle, {.refusesFocus = true});
    const xcb_window_t focused = desktop_->Open(u"Other"_s);
    ends("no focus", desktop_->Display(), KeyEnd::NoFocus);
    QCOMPARE(desktop_->KeysOf(window), QList<int>());
    QCOMPARE(desktop_->KeysOf(focused), QList<int>());
    desktop_->Close(window);
  }

  // Gone, and the sender gone, in the pause before the key.
  void WhatComesInBetween() {
    const DesktopWindow::Times times{.pause = 400ms, .patience = 600ms, .silence = 400ms};
    auto sender = std::make_unique<DesktopWindow>(desktop_->Display(), times);
    xcb_window_t window = desktop_->Open(kTitle);
    xcb_window_t other = desktop_->Open(u"Other"_s);
    std::optional<KeyEnd> end;
    const auto start = [&]() { sender->SendF7(kTitle, this, [&end](KeyEnd ended) { end = ended; }); };
    start();
    QTRY_VERIFY(desktop_->IsActive(window));
    desktop_->Close(window);
    QTRY_VERIFY(end.has_value());
    QCOMPARE(*end, KeyEnd::Gone);
    QCOMPARE(desktop_->KeysOf(other), QList<int>());
    desktop_->Close(other);

    end.reset();
    window = desktop_->Open(kTitle);
    other = desktop_->Open(u"Other"_s);
    start();
    QTRY_VERIFY(desktop_->IsActive(window));
    sender.reset();
    QVERIFY(!QTest::qWaitFor([&]() { return end || !desktop_->KeysOf(window).isEmpty(); }, 600));
  }

  // A server that takes the connection and never says a word.
  void GivesUpASilentServer() {
    QTcpServer silent;
    int port = 6100;
    while (port < 6200 && !silent.listen(QHostAddress::LocalHost, static_cast<quint16>(port))) ++port;
    DesktopWindow sender("127.0.0.1:" + QByteArray::number(port - 6000), kQuick);
    QElapsedTimer turn;
    qint64 longest = 0;
    QTimer ticks;
    connect(&ticks, &QTimer::timeout, this, [&]() { longest = std::max(longest, turn.restart()); });
    turn.start();
    ticks.start(5);
    QCOMPARE(Send(sender), KeyEnd::NoAnswer);
    QVERIFY2(longest < 500, qPrintable(QString::number(longest)));  // of the 1,050 ms that it took
  }

 private:
  std::unique_ptr<ForeignDesktop> desktop_;
};

OMNI_TEST(TestDesktopWindow)
#include "test_desktop_window.moc"
