// SPDX-License-Identifier: GPL-3.0-or-later
// What holds for every window that the program knows: one list, so that a new window is taken in by its registration.
#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>

#include "window_fixture.h"

namespace {

// Every text of a window that a user reads or hears, by the name of its control and the kind of text.
QHash<QString, QString> TextsOf(const QWidget& window) {
  QHash<QString, QString> texts;
  QList<const QWidget*> parts{&window};
  for (const QWidget* part : window.findChildren<QWidget*>()) {
    if (part->window() == &window) parts.append(part);
  }
  for (const QWidget* part : std::as_const(parts)) {
    const QString name = part->objectName();
    if (const auto* label = qobject_cast<const QLabel*>(part)) texts.insert(name + u" text"_s, label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(part))
      texts.insert(name + u" text"_s, button->text());
    if (part->isWindow()) texts.insert(name + u" title"_s, part->windowTitle());
    texts.insert(name + u" tip"_s, part->toolTip());
    texts.insert(name + u" heard"_s, part->accessibleName());
  }
  return texts;
}

// Texts that are the same in every language: names of services, calls, map files and modes, figures and signs, and the
// told captions of the filter panels.
bool IsOfNoLanguage(const QString& text) {
  static const QRegularExpression names(
      u"^(eHam|QRZ|QRZCQ|UK|Callook|HamCall|PEANUT|EPH?|FT[48]|JS8|JT|PSK|Select (bands|modes) to monitor|All ([Bb]ands|[Mm]odes)|meters|cm|Cam sites status|active|ZZ[0-9A-Z/]+|Omni-Perch|\\W|\\d|com|info|net)*$"_s);
  return names.match(text).hasMatch();
}

}  // namespace

class TestWindows : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Russian shares no letter with English: a text with an English word in it has missed the change.
  void EveryTextFollowsTheLanguage() {
    WindowFixture f;
    f.AddMap(u"UK Map.jpg"_s);
    f.AddSite(u"ZZ1AA"_s, 1);
    QVERIFY(f.StartAndPoll());
    Windows& windows = f.form->AllWindows();
    windows.LookUp(u"ZZ1AA"_s, QRect(100, 100, 50, 20));
    windows.ShowOnMap(u"ZZ1AA"_s, 52.5, -1.25);
    for (const WindowKind kind : windows.Kinds()) {
      BaseWindow& window = windows.Get(kind);
      if (!window.isVisible()) window.show();
      QTRY_VERIFY(window.isVisible());
    }
    const auto choose = [&f](const QString& language) {
      f.form->MnuLanguageClick(static_cast<int>(f.State().lstLanguages.indexOf(language)));
    };
    for (const QString& language : {u"Russian"_s, u"English"_s}) {
      choose(language);
      for (const WindowKind kind : windows.Kinds()) {
        const QHash<QString, QString> texts = TextsOf(windows.Get(kind));
        for (auto text = texts.begin(); text != texts.end(); ++text) {
          const bool russian = text.value().contains(QRegularExpression(u"[а-яА-Я]"_s));
          const bool right = language == "English"_L1 ? !russian : russian || IsOfNoLanguage(text.value());
          QVERIFY2(right, qPrintable(text.key() + u": "_s + text.value()));
        }
      }
    }
  }

  // Open windows close with the program, and a window that was closed is made anew.
  void ClosesAndOpensAnew() {
    WindowFixture f;
    QVERIFY(f.StartAndPoll());
    Windows& windows = f.form->AllWindows();
    for (const WindowKind kind : windows.Kinds()) {
      QPointer<BaseWindow> first = &windows.Get(kind);
      QCOMPARE(windows.Find(kind), first.data());
      first->show();
      QTest::keyClick(first.data(), Qt::Key_Escape);
      // A window that stores when it closes does so first.
      QTRY_VERIFY(windows.Find(kind) == nullptr);
      QTRY_VERIFY(first == nullptr);
      windows.Get(kind).show();
    }
    QList<QPointer<BaseWindow>> open;
    for (const WindowKind kind : windows.Kinds()) open.append(&windows.Get(kind));
    f.Close();
    for (const QPointer<BaseWindow>& window : std::as_const(open)) QVERIFY(window == nullptr);
  }
};

OMNI_TEST(TestWindows)
#include "test_windows.moc"
