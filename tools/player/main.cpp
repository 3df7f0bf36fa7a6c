// SPDX-License-Identifier: GPL-3.0-or-later
// omni-perch-player FILE LANGUAGE TITLE: shows one film in a window of its own. It ends with the window, with its
// standard input, or with the program that started it. A line "language NAME" on its standard input changes its texts;
// a line "open" on its standard output says that the desktop's player is to play the film.
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <csignal>

#include "core/language_file.h"
#include "core/translations.h"
#include "film_codecs.h"
#include "film_copy.h"
#include "film_sandbox.h"
#include "film_window.h"
#include "platform/picture/film_signature.h"

using namespace Qt::StringLiterals;

namespace {

// What the main program has to say, a line each.
class Orders {
 public:
  // False: the main program is gone.
  bool Read() {
    char chunk[512];
    const ssize_t got = read(STDIN_FILENO, chunk, sizeof(chunk));
    if (got <= 0) return false;
    bytes_.append(chunk, got);
    return true;
  }
  // The next line without its end; nothing is left where it is null.
  QByteArray Line() {
    const qsizetype end = bytes_.indexOf('\n');
    if (end < 0) return {};
    const QByteArray line = bytes_.left(end);
    bytes_.remove(0, end + 1);
    return line;
  }

 private:
  QByteArray bytes_;
};

void Say(const char* line) {
  [[maybe_unused]] const ssize_t written = write(STDOUT_FILENO, line, qstrlen(line));
}

FilmFault FaultOf(const FilmCopy& film, const QStringList& missing, bool sandboxed) {
  if (film.path.isEmpty()) return {FilmFault::Kind::NoFile, {}};
  if (!missing.isEmpty()) return {FilmFault::Kind::NoPackages, missing};
  if (!sandboxed) return {FilmFault::Kind::NoSandbox, {}};
  return {};
}

void TakeLanguage(Translations& translations, const QString& language) {
  translations.Take(language);
  QLocale::setDefault(LanguageLocale(language));
}

}  // namespace

int main(int argc, char** argv) {
  // A decoder that a film holds up cannot hold up the end of the program.
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  // Away from the terminal from which the program may have been started.
  setsid();
  // No rule covers a descriptor that was inherited by mistake.
  syscall(SYS_close_range, STDERR_FILENO + 1, ~0U, 0);
  std::signal(SIGPIPE, SIG_IGN);
  qputenv("QT_MEDIA_BACKEND", "gstreamer");
  // Without OpenGL frames are converted by the processor in 2 ms; to load it takes longer than all the rest of the
  // start, and a driver would have to be let into the sandbox.
  qputenv("QT_XCB_GL_INTEGRATION", "none");
  ForbidWriting();
  QApplication app(argc, argv);
  QApplication::setApplicationName(u"omni-perch-player"_s);
  QGuiApplication::setDesktopFileName(u"omni-perch"_s);
  const QStringList arguments = QApplication::arguments();
  Translations translations;
  TakeLanguage(translations, arguments.value(2));

  const FilmCopy film = CopyFilm(arguments.value(1));
  const QString ending = FilmSignature(film.head);
  const QStringList missing = MissingPackages(ending);
  frmWmp window(arguments.value(3), ending);
  QObject::connect(&window, &frmWmp::OtherPlayerWanted, &window, []() { Say("open\n"); });
  // By _exit(): a decoder that hangs would keep the process from ending in order.
  QObject::connect(&window, &frmWmp::Closed, &window, []() { _exit(0); });
  app.installEventFilter(&window);
  Orders orders;
  QSocketNotifier notifier(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, &window, [&]() {
    if (!orders.Read()) _exit(0);
    for (QByteArray line = orders.Line(); !line.isNull(); line = orders.Line()) {
      if (!line.startsWith("language ")) continue;
      TakeLanguage(translations, QString::fromUtf8(line.mid(9)));
      window.ShowTexts();
    }
  });

  const FilmFault fault = FaultOf(film, missing, EnterFilmSandbox());
  if (fault.kind == FilmFault::Kind::None) {
    window.startup(film.path);
  } else {
    window.ShowFault(fault);
  }
  _exit(QApplication::exec());
}
