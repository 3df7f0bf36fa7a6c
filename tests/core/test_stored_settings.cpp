// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/hosts.h"
#include "core/save_state.h"
#include "core/stored_settings.h"
#include "test_folder.h"

namespace {

// The settings of one data folder, as a run of the program has them.
struct Stored {
  TestFolder folder;
  SettingsStore store{folder.filePath(u"settings.ini"_s)};
  StoredSettings settings{store};
};

}  // namespace

class TestStoredSettings : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void NumbersAndDefaults() {
    Stored stored;
    auto& [folder, store, settings] = stored;
    for (const auto& [text, number] : {std::pair{u""_s, 5}, std::pair{u"7 cm"_s, 7}, std::pair{u"large"_s, 5}}) {
      if (!text.isEmpty()) settings.SetText(Setting::PrintSize, 0, text);
      QCOMPARE(settings.Number(Setting::PrintSize), number);
    }
    // One key name under two applications.
    settings.SetNumber(Setting::TxBand, 4);
    store.SetValue(u"TV Echo"_s, u"TX"_s, u"band0"_s, u"-3"_s);
    QCOMPARE(settings.Number(Setting::TxBand), 4);
    QCOMPARE(settings.Number(Setting::OnAirBandCheck, 0), 1);  // a check box knows two states
  }

  void PlacementComesBack() {
    Stored stored;
    auto& [folder, store, settings] = stored;
    QVERIFY(!settings.ReadPlacement());
    for (const int shown : {2, 6, 3, 1}) {
      settings.StorePlacement({0, shown, {-1, -2}, {-100, 50, 640, 480}});
      QCOMPARE(settings.ReadPlacement()->showCmd, shown == 3 ? 3 : 1);
    }
    const std::optional<WindowPlacement> found = settings.ReadPlacement();
    QVERIFY(found->normal == QRect(-100, 50, 640, 480) && found->minimized == QPoint(-1, -2));
    QCOMPARE(settings.Number(Setting::PlacementRight), 540);
  }

  void MapOffsetsMeetInBothSpellings() {
    Stored stored;
    auto& [folder, store, settings] = stored;
    // What the maps begin with; a stored value counts, a broken one does not.
    store.SetValue(u"Omni-Perch"_s, u"MapTop"_s, u"0"_s, u"77"_s);
    store.SetValue(u"Omni-Perch"_s, u"MapTop"_s, u"7"_s, u"high"_s);
    QCOMPARE(settings.ReadMapOffsets(Setting::MapLeft), (QList<int>{0, 0, 0, 0, 0, 0, 0, 0, -303}));
    QCOMPARE(settings.ReadMapOffsets(Setting::MapTop), (QList<int>{77, -1, -294, -109, -140, 0, -103, -267, -78}));
    const QList<int> left = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    settings.StoreMapOffsets(left, {-1, -2});
    QVERIFY(store.Save() && folder.Bytes(u"settings.ini"_s).contains("Maptop"));
    SettingsStore nextRun(folder.filePath(u"settings.ini"_s));
    QCOMPARE(StoredSettings(nextRun).ReadMapOffsets(Setting::MapLeft), left);
    QCOMPARE(StoredSettings(nextRun).ReadMapOffsets(Setting::MapTop), (QList<int>{-1, -2, 0, 0, 0, 0, 0, 0, 0}));
  }

  void SavesTheStateInItsOrder() {
    Stored stored;
    auto& [folder, store, settings] = stored;
    const QString settingsPath = folder.filePath(u"settings.ini"_s);
    Program program;
    program.AppDataDir = folder.path();
    program.config.MapIndex = 1;
    program.MapLeft = {5, -6};
    program.SaveDir = u"/home/op/Bilder, Töne"_s;
    program.lstBlock = {u"K1AB"_s};
    settings.StoreBlockList({u"A"_s, u""_s, u"C"_s});
    QCOMPARE(settings.ReadBlockList(), (QStringList{u"A"_s, u"C"_s}));
    program.PageLabels = settings.ReadPageLabels(u"Page "_s, u"Weather"_s);
    QCOMPARE(program.PageLabels.mid(20), (QStringList{u"Page 20"_s, u"Weather"_s}));
    program.PageLabels[3] = u"DX"_s;
    SiteRec site;
    site.Call = u"K1"_s;
    program.sites.Sites = {site, site};

    SiteListFile lists(program.sites, folder.path());
    QStringList seen;
    SaveAllState(program, lists, store, WindowPlacement{0, 1, {0, 0}, {7, 8, 90, 100}}, [&](const QString& message) {
      // The configuration is on the disk by now, the settings are not.
      seen.append(message);
      QVERIFY(QFile::exists(program.AppDataDir + u"/Omni-Perch.cfg"_s) && !QFile::exists(settingsPath));
    });
    QCOMPARE(seen.size(), 1);
    QCOMPARE(SplitLines(*ReadTextFile(folder.filePath(u"Omni-Perch.cfg"_s))).at(13), u"-6"_s);
    SaveAllState(program, lists, store, std::nullopt, [](const QString&) { QFAIL("told twice"); });

    SettingsStore nextRun(settingsPath);
    const StoredSettings next(nextRun);
    QCOMPARE(next.ReadPlacement()->normal, QRect(7, 8, 90, 100));
    QCOMPARE(next.ReadPageLabels(u"Seite "_s, u"Wetter"_s).mid(2, 2), (QStringList{u"Page 2"_s, u"DX"_s}));
    QCOMPARE(next.Text(Setting::SaveDir, 0, u"none"_s), program.SaveDir);
    QCOMPARE(next.ReadBlockList(), program.lstBlock);
    QCOMPARE(next.Text(Setting::Block, 9, u"missing"_s), QString());
  }

  void ReadsHosts() {
    const TestFolder folder;
    // The file of the installation is all comments: it names what is built in, and persons' servers are nowhere.
    QVERIFY(QFile::copy(u"" LANGUAGES_DIR "/../hosts.ini"_s, folder.filePath(u"Hosts.ini"_s)));
    const Hosts installed = Hosts::Read(folder.path());
    QVERIFY(QFile::remove(folder.filePath(u"Hosts.ini"_s)));
    const QString builtIn = Hosts::Read(folder.path()).Connectivity;
    QCOMPARE(installed.Connectivity + installed.Maps + installed.QRZ,
             builtIn + u"https://www.google.com"_s + u"https://www.qrz.com"_s);
    QVERIFY(builtIn.startsWith(u"http"_s) && !builtIn.endsWith(u'/'));
    QCOMPARE(installed.Author + installed.Time + installed.OnAirCgi + installed.OnAirText, QString());
    WriteTextLines(folder.filePath(u"Hosts.ini"_s),
                   {u"Time=http://elsewhere"_s, u"[hosts]"_s, u"author = http://127.0.0.9:8080//"_s, u"QRZ="_s,
                    u"Maps=file:///etc"_s, u"; Time=http://comment"_s, u"[Other]"_s, u"Pictures="_s});
    const Hosts hosts = Hosts::Read(folder.path());
    QCOMPARE(hosts.Author, u"http://127.0.0.9:8080"_s);
    QVERIFY(hosts.QRZ.isEmpty() && hosts.Maps.isEmpty() && !hosts.Pictures.isEmpty());
    QCOMPARE(hosts.Connectivity, builtIn);
    QVERIFY(hosts.Time.isEmpty() && hosts.Callook == "http://callook.info"_L1);
  }
};

OMNI_TEST(TestStoredSettings)
#include "test_stored_settings.moc"
