// SPDX-License-Identifier: GPL-3.0-or-later
// A disk for tests of the call database that loses its power at a given step, and what it then holds.
#pragma once

#include <QHash>
#include <QRandomGenerator>

#include "callbook/database_disk.h"
#include "test_folder.h"

// What becomes of bytes and names that were not synced.
enum class Unsynced { Forgotten, Kept, Torn };

// Passes each step on to the machine's disk, remembers which bytes and names are synced, and carries nothing out from
// step `endAt` on. Synced for real is nothing: that would only take time.
class CrashDisk : public DatabaseDisk {
 public:
  CrashDisk(const TestFolder& folder, int endAt) : folder_(folder), endAt_(endAt) {
    for (const QString& name : folder.Files()) {
      const auto node = std::make_shared<Node>();
      node->synced = folder.Bytes(name);
      node->kept = Keep(folder.filePath(name));
      names_[folder.filePath(name)] = syncedNames_[folder.filePath(name)] = node;
    }
  }

  bool HasEnded() const { return ended_; }
  // Leaves in the folder what is there after the power has come back.
  void Restart(Unsynced unsynced, QRandomGenerator& random) const {
    const bool named = unsynced == Unsynced::Kept || (unsynced == Unsynced::Torn && random.bounded(2) == 0);
    const auto& names = named ? names_ : syncedNames_;
    QHash<QString, QByteArray> contents;
    for (auto name = names.begin(); name != names.end(); ++name) {
      const QByteArray now = ReadFileBytes((*name)->kept).value_or(QByteArray());
      contents[name.key()] = unsynced == Unsynced::Kept        ? now
                             : unsynced == Unsynced::Forgotten ? (*name)->synced
                                                               : Torn((*name)->synced, now, random);
    }
    for (const QString& name : folder_.Files()) QFile::remove(folder_.filePath(name));
    for (auto name = names.begin(); name != names.end(); ++name) {
      // The same file as before, with its number: the redo record knows it by that.
      QVERIFY(QFile::rename((*name)->kept, name.key()));
      QFile file(name.key());
      QVERIFY(file.open(QIODevice::WriteOnly) && file.write(contents[name.key()]) == contents[name.key()].size());
    }
    QVERIFY(QDir(folder_.filePath(u"kept"_s)).removeRecursively());
  }

  std::unique_ptr<DiskFile> Open(const QString& path, bool create) override {
    const bool made = !QFile::exists(path);
    if (ended_ || (made && (!create || !Step()))) return nullptr;
    auto file = std::make_unique<File>(*this, real_->Open(path, create));
    if (made) names_[path] = std::make_shared<Node>(Node{{}, Keep(path)});
    file->node = names_[path];
    return file;
  }
  std::unique_ptr<ReplacingFile> Replace(const QString& path) override {
    if (ended_) return nullptr;
    return std::make_unique<Replacing>(*this, path, real_->Replace(path));
  }
  bool Remove(const QString& path) override {
    if (!Step()) return false;
    names_.remove(path);
    return real_->Remove(path);
  }
  bool SyncFolderOf(const QString& path) override {
    Q_UNUSED(path)
    if (!Step()) return false;
    syncedNames_ = names_;
    return true;
  }

 private:
  struct Node {
    QByteArray synced;
    QString kept;  // another name of the file, so that it outlives its replacement
  };
  struct File : DiskFile {
    File(CrashDisk& itsDisk, std::unique_ptr<DiskFile> real) : disk(itsDisk), real_(std::move(real)) {}
    // The step at which the power goes may still reach the disk.
    bool Write(qint64 offset, QByteArrayView bytes) override {
      return !disk.ended_ && real_->Write(offset, bytes) && disk.Step();
    }
    bool Resize(qint64 size) override { return !disk.ended_ && real_->Resize(size) && disk.Step(); }
    bool Sync() override {
      if (!disk.Step()) return false;
      node->synced = ReadFileBytes(node->kept).value_or(QByteArray());
      return true;
    }
    FileStamp Stamp() const override { return real_->Stamp(); }

    CrashDisk& disk;
    std::shared_ptr<Node> node;

   private:
    std::unique_ptr<DiskFile> real_;
  };
  struct Replacing : ReplacingFile {
    Replacing(CrashDisk& disk, QString path, std::unique_ptr<ReplacingFile> real)
        : disk_(disk), path_(std::move(path)), real_(std::move(real)) {}
    bool Write(QByteArrayView bytes) override {
      written_ += bytes.toByteArray();
      return !disk_.ended_ && real_->Write(bytes) && disk_.Step();
    }
    bool Sync() override {
      if (!disk_.Step()) return false;
      synced_ = written_;
      return real_->Sync();
    }
    FileStamp Stamp() const override { return real_->Stamp(); }
    bool Commit() override {
      if (disk_.ended_ || !real_->Commit()) return false;
      disk_.names_[path_] = std::make_shared<Node>(Node{synced_, disk_.Keep(path_)});
      return disk_.Step();
    }

   private:
    CrashDisk& disk_;
    QString path_;
    std::unique_ptr<ReplacingFile> real_;
    QByteArray written_;
    QByteArray synced_;
  };

  // False from the step on at which the power goes.
  bool Step() {
    ended_ = ended_ || ++step_ == endAt_;
    return !ended_;
  }
  QString Keep(const QString& path) {
    QDir(folder_.path()).mkpath(u"kept"_s);
    const QString kept = folder_.filePath(u"kept/%1"_s.arg(++kept_));
    if (::link(QFile::encodeName(path).constData(), QFile::encodeName(kept).constData()) != 0) qFatal("no link");
    return kept;
  }
  // Each block of 512 bytes is as it was synced or as it was written last, and so is the length.
  static QByteArray Torn(const QByteArray& synced, const QByteArray& now, QRandomGenerator& random) {
    constexpr qsizetype kBlock = 512;
    QByteArray torn = random.bounded(2) == 0 ? synced : now;
    for (qsizetype at = 0; at < torn.size(); at += kBlock) {
      const QByteArray block = (random.bounded(2) == 0 ? synced : now).mid(at, kBlock);
      torn.replace(at, kBlock, block.leftJustified(std::min(kBlock, torn.size() - at), '\0', true));
    }
    return torn;
  }

  const TestFolder& folder_;
  const std::shared_ptr<DatabaseDisk> real_ = DatabaseDisk::Real();
  QHash<QString, std::shared_ptr<Node>> names_;
  QHash<QString, std::shared_ptr<Node>> syncedNames_;
  int step_ = 0;
  int endAt_;
  int kept_ = 0;
  bool ended_ = false;
};
