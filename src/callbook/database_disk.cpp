// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/database_disk.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>

namespace {

FileStamp StampOf(int file) {
  struct stat status {};
  return ::fstat(file, &status) == 0 ? FileStamp::Of(status) : FileStamp();
}

class RealFile : public DiskFile {
 public:
  explicit RealFile(int file) : file_(file) {}
  ~RealFile() override { ::close(file_); }
  RealFile(const RealFile&) = delete;
  RealFile& operator=(const RealFile&) = delete;

  bool Write(qint64 offset, QByteArrayView bytes) override {
    return ::pwrite(file_, bytes.data(), static_cast<std::size_t>(bytes.size()), offset) == bytes.size();
  }
  bool Resize(qint64 size) override { return ::ftruncate(file_, size) == 0; }
  bool Sync() override { return ::fdatasync(file_) == 0; }
  FileStamp Stamp() const override { return StampOf(file_); }

 private:
  int file_;
};

class RealReplacingFile : public ReplacingFile {
 public:
  explicit RealReplacingFile(const QString& path) : file_(path) {}

  bool Open() { return file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered); }
  bool Write(QByteArrayView bytes) override { return file_.write(bytes.data(), bytes.size()) == bytes.size(); }
  // QSaveFile syncs, too, but keeps to itself whether that has failed.
  bool Sync() override { return file_.flush() && ::fdatasync(file_.handle()) == 0; }
  FileStamp Stamp() const override { return StampOf(file_.handle()); }
  bool Commit() override { return file_.commit(); }

 private:
  QSaveFile file_;
};

class RealDisk : public DatabaseDisk {
 public:
  std::unique_ptr<DiskFile> Open(const QString& path, bool create) override {
    const QByteArray name = QFile::encodeName(path);
    const int file = ::open(name.constData(), O_WRONLY | O_CLOEXEC | O_NONBLOCK | (create ? O_CREAT : 0), 0666);
    struct stat status {};
    if (file < 0) return nullptr;
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
      ::close(file);
      return nullptr;
    }
    return std::make_unique<RealFile>(file);
  }
  std::unique_ptr<ReplacingFile> Replace(const QString& path) override {
    auto file = std::make_unique<RealReplacingFile>(path);
    if (!file->Open()) return nullptr;
    return file;
  }
  bool Remove(const QString& path) override { return QFile::remove(path); }
  bool SyncFolderOf(const QString& path) override {
    // The file may be a link into another folder, which is where it is renamed.
    const QFileInfo file(path);
    const QString folder = file.exists() ? file.canonicalPath() : file.path();
    const int open = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (open < 0) return false;
    // Some file systems cannot sync a folder and say so; they have nothing to catch up with.
    const bool synced = ::fsync(open) == 0 || errno == EINVAL;
    ::close(open);
    return synced;
  }
};

}  // namespace

std::shared_ptr<DatabaseDisk> DatabaseDisk::Real() {
  return std::make_shared<RealDisk>();
}
