// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/load_sequence.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include "platform/paths.h"
#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kNoCamMinutes = 6;  // CamMinuteCount from here on never reaches five, so no cam round falls due

// In alphabetical order, because the stored offsets of the maps are in that order; letter case is ignored, so that "uk
// map.jpg" takes the place of "UK Map.jpg".
QStringList FilesOf(const QString& folder) {
  return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name | QDir::IgnoreCase);
}

LoadStop NotFound(const QString& name) {
  return {name + u" not found!"_s, false};
}

}  // namespace

int UtcOffset(const QDateTime& local) {
  return local.toUTC().time().hour() - local.time().hour();
}

LoadSequence::LoadSequence(Program& program, Translations& translations, HeightTable& heights, SettingsStore& store,
                           const Clock& clock)
    : program_(program),
      translations_(translations),
      heights_(heights),
      store_(store),
      lists_(program.sites, program.AppDataDir),
      clock_(clock) {}

LoadStop LoadSequence::ReadSettings(bool anotherRuns) {
  const QDateTime now = clock_.Now();
  program_.lstBadCalls = BuiltInBadCalls();
  program_.ZeroGlyph = ZeroGlyphFor(QLocale::system().toString(now, QLocale::ShortFormat));
  StoredSettings settings(store_);
  placement_ = settings.ReadPlacement();
  // A second instance leaves the first one's folders and pictures alone.
  if (!anotherRuns) {
    MakeFolders();
    heights_.Read(program_.AppDataDir);
  }
  FindMaps();
  program_.MapLeft = settings.ReadMapOffsets(Setting::MapLeft);
  program_.MapTop = settings.ReadMapOffsets(Setting::MapTop);
  FindLanguages();
  if (!program_.config.ReadConfig(program_.AppDataDir)) return NotFound(u"Omni-Perch.cfg"_s);
  program_.page.CamMinuteCount = program_.config.AutoPollCams == 1 ? 0 : kNoCamMinutes;
  program_.page.CurrentPage = 1;
  program_.UtcOffsetHours = UtcOffset(now);
  languageMessage_ = LoadLanguage();
  program_.PageLabels =
      settings.ReadPageLabels(program_.language[TextLine::kPageWord], program_.language[TextLine::kWxPageName]);
  if (anotherRuns) return {program_.language[TextLine::kAlreadyRunning], true};
  program_.page.UpdatePromptAllowed = true;
  return {};
}

LoadStop LoadSequence::ReadLists() {
  const StoredSettings settings(store_);
  program_.SaveDir = settings.Text(Setting::SaveDir, 0, program_.ProgramDir);
  program_.lstBlock = settings.ReadBlockList();
  if (!lists_.HasSiteList()) lists_.ConvertOldSiteList();
  lists_.ReadSiteList(program_.config.ThumbLayout);
  if (!lists_.HasWxSiteList()) return NotFound(u"WXsites.lst"_s);
  lists_.ReadWxSiteList();
  program_.nicknames = ReadNicknames(program_.AppDataDir);
  return {};
}

void LoadSequence::MakeFolders() {
  const QDir data(program_.AppDataDir);
  // Heights without thumbs are useless: they would keep the pictures from being fetched again.
  if (!data.exists(u"images/dsstv/thumbs"_s)) {
    QFile::remove(ResolvePath(program_.AppDataDir, u"images/dsstv/ckNewHeight.txt"_s));
  }
  for (const QString& folder : {u"TextFiles"_s, u"images"_s, u"images/dsstv"_s, u"images/dsstv/thumbs"_s,
                                u"images/wx"_s, u"images/last15"_s, u"Backups"_s}) {
    data.mkpath(folder);
  }
}

void LoadSequence::FindMaps() {
  program_.lstMap.clear();
  for (const QString& name : FilesOf(ResolvePath(program_.AppDataDir, u"Maps"_s))) {
    // lstMap keeps the extension. The case of letters is ignored, as a folder copied from another system may spell
    // names in any.
    const QString map = name.chopped(std::min<qsizetype>(4, name.size()));
    if (map.endsWith("Map"_L1, Qt::CaseInsensitive)) program_.lstMap.append(name);
  }
}

QString LoadSequence::LanguageFolder() const {
  return ResolvePath(program_.AppDataDir, u"Languages"_s);
}

void LoadSequence::FindLanguages() {
  program_.lstLanguages = ListLanguages(FilesOf(LanguageFolder()));
}

QString LoadSequence::LoadLanguage() {
  const LanguageResult result = ::LoadLanguage(LanguageFolder(), program_.config.LanguageName,
                                               program_.lstLanguages.size(), Program::ProgVersion(), program_.language);
  translations_.Take(program_.config.LanguageName);
  return result.read && !result.versionOk ? result.wrongVersion : QString();
}

QString LoadSequence::ChangeLanguage(const QString& name) {
  program_.config.LanguageName = name;
  program_.config.OnAirCode = OnAirLanguageCode(name, program_.config.OnAirCode);
  const LanguageTexts before = program_.language;
  QString message = LoadLanguage();
  TranslatePageLabels(program_.PageLabels, before, program_.language);
  return message;
}

void LoadSequence::OvertakeWriting() {
  const QMutexLocker lock(&writing_->mutex);
  ++writing_->atOnce;
}

void LoadSequence::SaveAfterPoll(Background& background, QObject* context) {
  QStringList changing = heights_.CkNewHeight();
  for (const SiteRec& site : std::as_const(program_.sites.Sites)) changing += site.LastSeen;
  if (changing == written_) return;
  written_ = changing;
  background.Run<bool>(
      context,
      [writing = writing_, mine = writing_->atOnce.load(), save = lists_.SaveLater(program_.config.ThumbLayout),
       heights = heights_, folder = program_.AppDataDir]() {
        const QMutexLocker lock(&writing->mutex);
        if (writing->atOnce != mine) return false;
        save();
        return heights.Write(folder);
      },
      [](bool) {});
}

void LoadSequence::WriteNow(const std::optional<WindowPlacement>& placement) {
  SaveAllState(placement, [](const QString&) {});
  heights_.Write(program_.AppDataDir);
  WriteNicknames(program_.AppDataDir, program_.nicknames);
}

QStringList LoadSequence::SaveAllState(const std::optional<WindowPlacement>& placement,
                                       const std::function<void(const QString&)>& inform) {
  OvertakeWriting();
  return ::SaveAllState(program_, lists_, store_, placement, inform);
}

void LoadSequence::SaveBeside(const std::optional<WindowPlacement>& placement,
                              const std::function<void(const QString&)>& inform, Background& background,
                              QObject* context, const std::function<void(const QStringList&)>& saved) {
  const auto write = SaveAllStateLater(program_, lists_, store_, placement, inform);
  background.Run<QStringList>(
      context,
      [writing = writing_, mine = writing_->atOnce.load(), write]() {
        const QMutexLocker lock(&writing->mutex);
        return writing->atOnce == mine ? write() : QStringList();
      },
      saved);
}

void LoadSequence::WriteState(const std::optional<WindowPlacement>& placement, const std::function<void()>& sendClosed,
                              const std::function<void(const QString&)>& inform) {
  StoredSettings(store_).StoreMapOffsets(program_.MapLeft, program_.MapTop);
  sendClosed();
  SaveAllState(placement, inform);
  heights_.Write(program_.AppDataDir);
  WriteNicknames(program_.AppDataDir, program_.nicknames);
  QFile::remove(program_.ProgramDir + u"/info.txt"_s);
  program_.page.txtActive.clear();
}

void LoadSequence::CleanTemporaryFiles() const {
  for (const QString& folder : {u"images/dsstv/thumbs"_s, u"images/dsstv"_s, u"images/wx"_s, u"images/last15"_s}) {
    QDir pictures(program_.AppDataDir + u'/' + folder);
    const QStringList left = pictures.entryList({u".part-*"_s}, QDir::Files | QDir::Hidden);
    for (const QString& name : left) pictures.remove(name);
  }
}
