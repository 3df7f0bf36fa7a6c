// SPDX-License-Identifier: GPL-3.0-or-later
// Turns pages of strangers into text in one process of omni-perch-decoder, in its role `text`: a page that holds or
// kills the process costs its own read and nothing else. The lookup controls ask it.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

#include "platform/picture/helper_process.h"

// The queue of pages and the process that reads them.
class PageTextTool : public QObject {
  Q_OBJECT

 public:
  // How long things may take; a test chooses its own.
  struct Patience {
    std::chrono::milliseconds job = std::chrono::seconds(3);    // one page, from when the process is ready
    std::chrono::milliseconds idle = std::chrono::seconds(30);  // without a page the process ends then
  };
  // The text, its lines parted by CR LF; nothing where the page held or killed the process.
  using Done = std::function<void(const std::optional<QString>& text)>;

  // program: path of omni-perch-decoder. Nothing is started yet.
  explicit PageTextTool(const QString& program, QObject* parent = nullptr);
  PageTextTool(const QString& program, const Patience& patience, QObject* parent = nullptr);
  ~PageTextTool() override;  // kills the process

  // Starts the process ahead of a page that is on its way.
  void WarmUp();
  // Begins to turn a page into text. page: bytes in Windows-1252, of which the first two megabytes count. Calls done
  // later, once, unless the read is cancelled or context has been destroyed by then. Returns a number for Cancel.
  quint64 Read(const QByteArray& page, QObject* context, Done done);
  // Cancels a read. If the process is at this page, it is killed and a fresh one starts at once. A read that has been
  // answered is ignored.
  void Cancel(quint64 read);

  qint64 ProcessId() const { return process_.ProcessId(); }

 private:
  struct Job;

  void HandOut();
  void OnAnswered();

  const Patience patience_;
  HelperProcess process_;
  QTimer idle_;
  std::deque<std::unique_ptr<Job>> waiting_;
  std::unique_ptr<Job> running_;
  quint64 lastId_ = 0;
};
