// SPDX-License-Identifier: GPL-3.0-or-later
// How the labels of the bar give way where it is narrow.

#include "app/menu_strip.h"
#include "test_suite.h"

namespace {

// A bar in German, whose captions are the longest, with letters so many times as large as usual.
struct Bar {
  QWidget window;
  MenuStrip* pic = new MenuStrip(&window);
  QString refresh;  // the word without the rate

  explicit Bar(int times = 1) {
    QFont font = window.font();
    font.setPixelSize(13 * times);
    window.setFont(font);
    LanguageTexts texts;
    LoadLanguage(QStringLiteral(LANGUAGES_DIR), u"German"_s, 8, QString(), texts);
    pic->SetTexts(texts);
    pic->lblPages->SetCaption(u"  Mitteleuropa "_s);
    refresh = texts[TextLine::kRefreshWord].trimmed();
    pic->lblRefresh->SetCaption(refresh + u" (auto 2 min) "_s);
    pic->lblMap->hide();
    window.show();
  }

  void Resize(int width) {
    pic->resize(width, pic->BarHeight());
    QCoreApplication::sendPostedEvents();
  }
  QStringList More() const {
    QStringList texts;
    for (const MenuEntry& entry : pic->MoreEntries()) texts.append(entry.text.trimmed());
    return texts;
  }
  bool AnyElided() const {
    const QList<BarLabel*> labels = pic->findChildren<BarLabel*>();
    return std::any_of(labels.begin(), labels.end(), [](BarLabel* bar) { return bar->ShownCaption().endsWith(u'…'); });
  }
};

}  // namespace

class TestMenuStrip : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void NothingIsCutWithoutDots() {
    // from: width of the narrowest window, in pixels.
    const auto check = [](const char* what, int times, int from) {
      const TableRow row(what);
      Bar bar(times);
      for (int width = from; width < 1900; width += 20) {
        bar.Resize(width);
        QList<QRect> places;
        const QObjectList parts = bar.pic->children();
        for (QObject* child : parts) {
          const auto* part = qobject_cast<QWidget*>(child);
          if (part == nullptr || (!part->isVisible() && part != bar.pic->imgRefresh)) continue;
          QVERIFY(bar.pic->rect().contains(part->geometry()));
          for (const QRect& place : places) QVERIFY(!place.intersects(part->geometry()));
          places.append(part->geometry());
          const auto* label = qobject_cast<const BarLabel*>(part);
          if (label == nullptr) continue;
          const QString shown = label->ShownCaption();
          QVERIFY(label->fontMetrics().horizontalAdvance(shown) <= label->width());
          QVERIFY(label->fontMetrics().height() <= label->height());
          const QString whole = label->text().simplified();
          if (shown == whole) continue;
          QVERIFY2((shown.size() > 1 && shown.endsWith(u'…')) || shown == bar.refresh, qPrintable(shown));
          QVERIFY(label->toolTip() == whole && label->accessibleName() == whole);
        }
        QVERIFY(places.size() >= 8);
      }
    };
    check("letters of the usual size", 1, 480);
    check("letters twice as large", 2, 600);
  }

  void GivesWayInOrder() {
    Bar bar;
    // The steps in the order in which a bar that becomes narrower takes them.
    const QStringList menu = {u"Kameras"_s, u"Jetzt QRV"_s, u"Ausbreitung"_s};
    const QList<std::function<bool()>> steps = {
        [&]() { return bar.pic->lblRefresh->ShownCaption() == bar.refresh + u" (auto 2 min)"_s; },
        [&]() { return bar.pic->lblRefresh->ShownCaption() == bar.refresh && !bar.AnyElided(); },
        [&]() { return bar.AnyElided() && bar.More().isEmpty() && bar.pic->lblPropagation->isVisible(); },
        [&]() { return bar.More() == menu.last(1) && bar.pic->lblOnAirNow->isVisible(); },
        [&]() { return bar.More() == menu.last(2) && bar.pic->lblCam->isVisible(); },
        [&]() { return bar.More() == menu && !bar.pic->lblCam->isVisible() && bar.pic->lblMore->isVisible(); }};
    QList<int> found(steps.size(), 0);
    for (int width = 1200; width > 300; width -= 2) {
      bar.Resize(width);
      for (qsizetype step = 0; step < steps.size(); ++step) {
        if (found.at(step) == 0 && steps.at(step)()) found[step] = width;
      }
    }
    QVERIFY2(!found.contains(0), "a step is left out");
    QVERIFY(std::is_sorted(found.rbegin(), found.rend()));
    bar.Resize(1200);
    QVERIFY(steps.first()() && bar.More().isEmpty() && !bar.pic->lblMore->isVisible());
    QCOMPARE(bar.pic->lblRefresh->toolTip(), QString());
  }

  void TheMenuPressesWhatIsInIt() {
    Bar bar(2);
    QSignalSpy cams(bar.pic->lblCam, &QAbstractButton::clicked);
    bar.pic->lblOnAirNow->setEnabled(false);
    bar.Resize(480);
    QCOMPARE(bar.More().size(), 3);
    QVERIFY(!bar.pic->MoreEntries().at(1).enabled);
    bar.pic->PressMoved(bar.pic->MoreEntries().at(0).index);
    QCOMPARE(cams.size(), 1);
    // A label that the program takes off the bar is not in the menu either, and comes back to its place on the bar.
    bar.pic->lblCam->hide();
    QCOMPARE(bar.More().size(), 2);
    bar.Resize(2000);
    QVERIFY(!bar.pic->lblCam->isVisible() && bar.pic->lblOnAirNow->isVisible());
    bar.pic->lblCam->show();
    QTRY_VERIFY(bar.pic->lblCam->isVisible() && bar.pic->lblCam->x() > bar.pic->lblFind->x());
  }

  void TheHeightFollowsTheLetters() {
    for (const int times : {1, 2, 4}) {
      Bar bar(times);
      QVERIFY(bar.pic->BarHeight() > bar.pic->fontMetrics().height() + 4);
      QVERIFY(bar.pic->BarHeight() >= bar.pic->txtCall->sizeHint().height());
    }
  }
};

OMNI_TEST(TestMenuStrip)
#include "test_menu_strip.moc"
