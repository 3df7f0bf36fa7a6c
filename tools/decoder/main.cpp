// SPDX-License-Identifier: GPL-3.0-or-later
// omni-perch-decoder: takes picture jobs on standard input, answers on standard output, ends with its input.
// Its one argument is the folder below which it may write.
#include <fcntl.h>
#include <malloc.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <cerrno>
#include <csignal>
#include <optional>

#include "jobs.h"
#include "sandbox.h"

namespace {

// Standard input as lines and blocks. A QFile would poll for more than is there; the driver waits for the answer.
class Input {
 public:
  std::optional<QByteArray> Line() {
    qsizetype end = buffer_.indexOf('\n');
    while (end < 0) {
      const qsizetype seen = buffer_.size();
      if (!More()) return std::nullopt;
      end = buffer_.indexOf('\n', seen);
    }
    return Take(end + 1);
  }

  std::optional<QByteArray> Block(qint64 count) {
    while (buffer_.size() < count) {
      if (!More()) return std::nullopt;
    }
    return Take(count);
  }

 private:
  bool More() {
    constexpr qsizetype kChunk = 65536;
    const qsizetype had = buffer_.size();
    buffer_.resize(had + kChunk);
    ssize_t count = -1;
    do {
      count = read(STDIN_FILENO, buffer_.data() + had, kChunk);
    } while (count < 0 && errno == EINTR);
    buffer_.resize(had + (count > 0 ? count : 0));
    return count > 0;
  }

  QByteArray Take(qsizetype count) {
    QByteArray taken = buffer_.left(count);
    buffer_.remove(0, count);
    return taken;
  }

  QByteArray buffer_;
};

bool WriteOut(const void* data, qint64 count) {
  const char* at = static_cast<const char*>(data);
  while (count > 0) {
    const ssize_t written = write(STDOUT_FILENO, at, static_cast<size_t>(count));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    at += written;
    count -= written;
  }
  return true;
}

bool Answer(const JobResult& result) {
  const QByteArray line = WriteReply(result.reply);
  if (!WriteOut(line.constData(), line.size())) return false;
  for (const DecodedFrame& frame : result.frames) {
    const PictureFrameHead head{frame.image.width(), frame.image.height(), frame.delay,
                                frame.image.hasAlphaChannel() ? 0 : 1};
    if (!WriteOut(&head, sizeof(head)) || !WriteOut(frame.image.constBits(), frame.image.sizeInBytes())) return false;
  }
  return true;
}

void Silence(QtMsgType, const QMessageLogContext&, const QString&) {}

// What a decoder has to say about a stranger's picture interests nobody: the answer's "ok" says it all. Qt is asked,
// the libraries below it print.
void BeQuiet() {
  qInstallMessageHandler(Silence);
#if !defined(__SANITIZE_ADDRESS__)  // their reports are what they are there for
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere >= 0) dup2(nowhere, STDERR_FILENO);
#endif
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  BeQuiet();
  mallopt(M_ARENA_MAX, 1);  // each thread would reserve 64 MB of the address space that the sandbox grants
  qputenv("QT_NO_GLIB", "1");
  QImageReader::setAllocationLimit(static_cast<int>(PictureLimits::kDecodedBytes >> 20));
  const QString given = QFile::decodeName(argv[1]);
  QString dataDir;
  bool begun = false;
  Input input;
  while (const std::optional<QByteArray> line = input.Line()) {
    const std::optional<PictureRequest> request = ReadRequest(*line);
    if (!request) return 1;
    const std::optional<QByteArray> body = input.Block(request->bodyBytes);
    if (!body) return 1;
    if (!begun) {
      // Not before the first job: the process may be started ahead of the moment when the folder is made.
      begun = true;
      QDir().mkpath(given);
      dataDir = QFileInfo(given).canonicalFilePath();
      EnterSandbox(dataDir);
    }
    if (!Answer(RunJob(*request, *body, dataDir))) return 1;
  }
  _exit(0);  // nothing to tidy up, and the leak check of a sanitizer would need what the sandbox took away
}
