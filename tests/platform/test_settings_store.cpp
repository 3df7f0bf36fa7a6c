// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSemaphore>
#include <QSettings>

#include "no_room.h"
#include "platform/background.h"
#include "platform/settings_store.h"
#include "test_folder.h"

namespace {

const QString kApp = u"Omni-Perch"_s;
const QString kFile = u"settings.ini"_s;

}  // namespace

class TestSettingsStore : public QObject {
  Q_OBJECT

  std::unique_ptr<TestFolder> dir_;
  QString path_;

 private Q_SLOTS:
  void init() {
    dir_ = std::make_unique<TestFolder>();
    path_ = dir_->filePath(kFile);
  }

  // Any text comes back, to this store and to QSettings; and this store reads what QSettings writes.
  void KeepsAnyText() {
    QStringList texts = {u"a\0b0"_s, u"\u00A0x\u2028"_s};
    for (const char* text : {"", "1", "a, b;c=d", "\"quoted\" in part", "\"", "\\", "C:\\new\\folder\\", " blanks ",
                             "\ttab\r\nlines\n", "@", "@Variant(x)", "@@x", "[x]", ";x",
                             "Ø Page Москва 日本 \xF0\x9F\x90\xA6", "\001F\0370\177", "50%", "a\\x41"})
      texts += QString::fromUtf8(text);
    const QString key = u"band %1=Ø日"_s;
    const QString otherPath = dir_->filePath(u"other.ini"_s);
    SettingsStore store(path_);
    {
      QSettings other(otherPath, QSettings::IniFormat);
      for (int i = 0; i < texts.size(); ++i) {
        store.SetValue(u"TV Echo"_s, u"Größe"_s, key.arg(i), texts[i]);
        other.setValue(u"TV Echo/Größe/"_s + key.arg(i), texts[i]);
      }
    }
    QVERIFY(store.Save());
    const QSettings judge(path_, QSettings::IniFormat);
    for (int i = 0; i < texts.size(); ++i) {
      for (const QString& path : {path_, otherPath}) {
        QCOMPARE(SettingsStore(path).Value(u"TV Echo"_s, u"Größe"_s, key.arg(i), u"?"_s), texts[i]);
      }
      QCOMPARE(judge.value(u"TV Echo/Größe/"_s + key.arg(i)).toString(), texts[i]);
    }
  }

  void ReadsHandWrittenFiles() {
    const auto check = [this](const QByteArray& line, const QString& value) {
      dir_->Put(kFile, "[Omni-Perch]\n" + line);
      QCOMPARE(SettingsStore(path_).Value(kApp, u"SAVEDIR"_s, u"1"_s, u"none"_s), value);
      QCOMPARE(SettingsStore(path_).Value(kApp, u"SAVEDIR"_s, u"2"_s, u"none"_s), u"none"_s);
    };
    check("SAVEDIR\\1=/home/x", u"/home/x"_s);
    check("  SAVEDIR\\1 =  a b  ", u"a b"_s);
    check("savedir\\1=a, b;c \"d\"", u"a, b;c \"d\""_s);
    check("SaveDir/1=x", u"x"_s);
    check("SAVEDIR\\1=Фото", u"Фото"_s);
    check("SAVEDIR\\1=\xD8", u"Ø"_s);
    check("SAVEDIR\\1=a=b", u"a=b"_s);
    check("SAVEDIR\\1=D:\\Pictures", u"D:\\Pictures"_s);
    check("SAVEDIR\\1=D:\\", u"D:\\"_s);
    check("SAVEDIR\\1=", QString());
    check(";SAVEDIR\\1=x\n#SAVEDIR\\1=y", u"none"_s);
    check("SAVEDIR\\1\n=x\n[\n]\n\0\n%\n%U12=\n"_ba, u"none"_s);
    check("[Other]\nSAVEDIR\\1=x", u"none"_s);
    check("SaveDir\\1=a\nSAVEDIR\\1=b\nsavedir\\1=c\n[x]\n", u"c"_s);
    check("SAVEDIR\\1=a\n[OMNI-perch]\nsavedir\\1=b", u"b"_s);
    check("a=1\rSAVEDIR\\1=x\r\nb=2", u"x"_s);
  }

  void ChangesOnlyWhatWasSet() {
    dir_->Put(kFile,
              "; mine\n[omni-perch]\nMapTop\\0=1\nUnknown\\Thing=@Variant(\\0x)\nwhat is this\n\n[Foreign]\nx=a, b\n"
              "\n[Omni-Perch]\nMaptop\\0=2\nMaptop\\1=7\n");
    SettingsStore store(path_);
    QCOMPARE(store.Value(kApp, u"MapTop"_s, u"0"_s, u"?"_s), u"2"_s);
    store.SetValue(kApp, u"MAPTOP"_s, u"0"_s, u"9"_s);
    store.SetValue(u"TV Echo"_s, u"TX"_s, u"band0"_s, u"1"_s);
    store.SetValue(kApp, u"MapTop"_s, u"0"_s, u"3"_s);
    store.SetValue(kApp, u"Block"_s, u"0"_s, u"ZZ9QX"_s);
    QVERIFY(store.Save());
    QCOMPARE(dir_->Bytes(kFile),
             "; mine\n[omni-perch]\nUnknown\\Thing=@Variant(\\0x)\nwhat is this\nBlock\\0=ZZ9QX\n\n[Foreign]\nx=a, b\n"
             "\n[Omni-Perch]\nMapTop\\0=3\nMaptop\\1=7\n\n[TV%20Echo]\nTX\\band0=1\n"_ba);
  }

  void WritesWholeFilesOrNone() {
    SettingsStore store(path_);
    QVERIFY(store.Save() && !QFile::exists(path_));
    store.SetValue(kApp, u"Print"_s, u"Size"_s, u"5"_s);
    QVERIFY(store.Save());
    const QByteArray before = dir_->Bytes(kFile);
    store.SetValue(kApp, u"Print"_s, u"Size"_s, QString(5'000, u'x'));
    QVERIFY(!WithoutRoom([&store]() { return store.Save(); }));
    QCOMPARE(dir_->Bytes(kFile), before);
    QVERIFY(store.Save() && dir_->Bytes(kFile) != before);
    // Without a change nothing is written: a file that another program has removed stays away.
    QVERIFY(QFile::remove(path_));
    store.SetValue(kApp, u"print"_s, u"size"_s, QString(5'000, u'x'));
    QVERIFY(store.Save() && !QFile::exists(path_));

    dir_->PutFolder(u"folder"_s);
    for (const QString& noFile : {u"missing/settings.ini"_s, u"folder"_s}) {
      SettingsStore homeless(dir_->filePath(noFile));
      homeless.SetValue(kApp, u"Print"_s, u"Size"_s, u"5"_s);
      QVERIFY(!homeless.Save());
      QCOMPARE(homeless.Value(kApp, u"PRINT"_s, u"SIZE"_s, u"?"_s), u"5"_s);
    }
  }

  // What waits for the disk must not write over what was written meanwhile.
  void WritesBesideTheEventLoop() {
    SettingsStore store(path_);
    Background background;
    QSemaphore disk;
    const auto holdDisk = [&]() {
      background.Run<bool>(
          &background, [&disk]() { return disk.tryAcquire(1, 60'000); }, [](bool) {});
    };
    const auto setSize = [&store](const QString& size) { store.SetValue(kApp, u"Print"_s, u"Size"_s, size); };
    holdDisk();
    setSize(u"5"_s);
    store.SaveLater(background);
    QVERIFY(!QFile::exists(path_));
    setSize(u"6"_s);
    QVERIFY(store.Save());
    disk.release();
    bool done = false;
    background.Run<bool>(
        &background, []() { return true; }, [&done](bool) { done = true; });
    QTRY_VERIFY(done);
    QCOMPARE(ReadFileBytes(path_), "[Omni-Perch]\nPrint\\Size=6\n"_ba);
    setSize(u"7"_s);
    store.SaveLater(background);
    QTRY_COMPARE(ReadFileBytes(path_), "[Omni-Perch]\nPrint\\Size=7\n"_ba);
  }
};

OMNI_TEST(TestSettingsStore)
#include "test_settings_store.moc"
