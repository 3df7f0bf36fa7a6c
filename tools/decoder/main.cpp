// SPDX-License-Identifier: GPL-3.0-or-later
// omni-perch-decoder: takes jobs on standard input, answers on standard output, ends with its input. Its one argument
// is its role. It opens no file once it has said that it is ready.
#include <fcntl.h>
#include <malloc.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <optional>

#include "picture_role.h"
#include "platform/picture/helper_frame.h"
#include "role.h"
#include "sandbox.h"
#include "text_role.h"

namespace {

// Standard input as lines and blocks. A QFile would wait for more bytes than the one job that is there, while the
// program waits for its answer.
class Input {
 public:
  std::optional<QByteArray> Line() {
    qsizetype end = buffer_.indexOf('\n');
    while (end < 0) {
      if (buffer_.size() > HelperLimits::kLine || !More()) return std::nullopt;
      end = buffer_.indexOf('\n');
    }
    QByteArray line = buffer_.left(end + 1);
    buffer_.remove(0, end + 1);
    return line;
  }

  // The size is known, so the bytes go straight to where they stay.
  std::optional<QByteArray> Block(qint64 count) {
    QByteArray block = buffer_.left(count);
    buffer_.remove(0, block.size());
    qint64 filled = block.size();
    block.resize(count);
    while (filled < count) {
      const ssize_t got = Read(block.data() + filled, count - filled);
      if (got <= 0) return std::nullopt;
      filled += got;
    }
    return block;
  }

 private:
  static ssize_t Read(char* at, qint64 most) {
    ssize_t got = -1;
    do {
      got = read(STDIN_FILENO, at, static_cast<size_t>(most));
    } while (got < 0 && errno == EINTR);
    return got;
  }

  bool More() {
    char chunk[4096];
    const ssize_t got = Read(chunk, sizeof(chunk));
    if (got > 0) buffer_.append(chunk, got);
    return got > 0;
  }

  QByteArray buffer_;
};

void Silence(QtMsgType, const QMessageLogContext&, const QString&) {}

// Drops the messages of decoders about strangers' pictures: the answer's outcome says enough. Qt's messages go to a
// handler that is silent, the libraries below it print to standard error.
void BeQuiet() {
  qInstallMessageHandler(Silence);
#if !defined(__SANITIZE_ADDRESS__)  // the sanitizers' reports are what a sanitized build is for
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere >= 0) dup2(nowhere, STDERR_FILENO);
#endif
}

const Role* RoleNamed(const char* name) {
  static const Role roles[] = {PictureRole(), TextRole()};
  const auto* found = std::find_if(std::begin(roles), std::end(roles),
                                   [&](const Role& role) { return std::strcmp(role.name, name) == 0; });
  return found == std::end(roles) ? nullptr : found;
}

int Serve(const Role& role, bool sandboxed) {
  Input input;
  RoleOutput output;
  if (!output.Write(ReadyLine())) return 1;
  while (const std::optional<QByteArray> line = input.Line()) {
    const qint64 bytes = FrameBodyBytes(*line);
    if (bytes < 0 || bytes > role.mostBody) return 1;
    const std::optional<QByteArray> body = input.Block(bytes);
    if (!body || !role.answer({*line, *body, sandboxed}, output)) return 1;
  }
  return 0;
}

}  // namespace

bool RoleOutput::Write(const void* data, qint64 count) {
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

int main(int argc, char** argv) {
  const Role* role = argc == 2 ? RoleNamed(argv[1]) : nullptr;
  if (role == nullptr) return 2;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  CloseInherited();  // no later rule covers a descriptor that was inherited by mistake
  BeQuiet();
  mallopt(M_ARENA_MAX, 1);  // each thread would reserve 64 MB of the address space that the sandbox grants
  qputenv("QT_NO_GLIB", "1");
  role->prepare();
  const bool sandboxed = EnterSandbox(role->addressSpace).calls;
  // By _exit(): there is nothing to tidy up, and the leak check of a sanitizer would need calls that the sandbox
  // refuses.
  _exit(Serve(*role, sandboxed));
}
