// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "sandbox.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

bool CanCreate(const QByteArray& path) {
  const int file = open(path.constData(), O_WRONLY | O_CREAT, 0600);
  if (file >= 0) close(file);
  return file >= 0;
}

bool CanRunPrograms() {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  if (child > 0) waitpid(child, nullptr, 0);
  char name[] = "/bin/true";
  char* const arguments[] = {name, nullptr};
  return child >= 0 || execv(name, arguments) == 0;
}

enum Leak { kNone = 0, kSocket = 1, kProgram = 2, kTrace = 4, kWriteOutside = 8, kNoWriteInside = 16, kNoFilter = 32 };

int LeaksOf(const QString& inside, const QByteArray& insideFile, const QByteArray& outsideFile) {
  int leaks = kNone;
  const SandboxState state = EnterSandbox(inside);
  if (!state.calls) leaks |= kNoFilter;
  if (socket(AF_INET, SOCK_STREAM, 0) >= 0 || socket(AF_UNIX, SOCK_STREAM, 0) >= 0) leaks |= kSocket;
  if (CanRunPrograms()) leaks |= kProgram;
  if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0) leaks |= kTrace;
  if (state.files && CanCreate(outsideFile)) leaks |= kWriteOutside;
  if (!CanCreate(insideFile)) leaks |= kNoWriteInside;
  return leaks;
}

}  // namespace

class TestSandbox : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TakesAwayWhatDecodingDoesNotNeed();
};

void TestSandbox::TakesAwayWhatDecodingDoesNotNeed() {
  const QTemporaryDir inside;
  const QTemporaryDir outside;
  const QByteArray insideFile = QFile::encodeName(inside.filePath(u"file"_s));
  const QByteArray outsideFile = QFile::encodeName(outside.filePath(u"file"_s));
  const pid_t child = fork();
  if (child == 0) _exit(LeaksOf(inside.path(), insideFile, outsideFile));
  int status = 0;
  QCOMPARE(waitpid(child, &status, 0), child);
  QVERIFY(WIFEXITED(status));
  QCOMPARE(WEXITSTATUS(status), static_cast<int>(kNone));
}

OMNI_TEST(TestSandbox)
#include "test_sandbox.moc"
