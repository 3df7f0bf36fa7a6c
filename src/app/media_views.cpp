// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/media_views.h"

#include <QDesktopServices>

#include "callbook/call_entry.h"
#include "callbook/place_page.h"
#include "callbook/station_place.h"
#include "display/viewer_picture.h"
#include "platform/desktop_places.h"
#include "station/callsign.h"
#include "ui/msg_box_timed.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr auto kNoticeTime = 8s;
}  // namespace

MediaViews::MediaViews(const Dependencies& dependencies)
    : QObject(dependencies.mainWindow),
      deps_(dependencies),
      player_({dependencies.services.program, dependencies.services.background, dependencies.services.run.player,
               [this]() { return AllowsOtherPlayer(); },
               [this](const QUrl& film, const std::function<void(bool)>& opened) { OpenFilm(film, this, opened); }}) {
  RegisterCommands();
  connect(&deps_.windows, &Windows::FilmWanted, this, &MediaViews::Play);
  connect(&deps_.windows, &Windows::PageViewWanted, this, &MediaViews::OpenPageView);
  connect(&player_, &FilmPlayer::Failed, this, &MediaViews::TellFault);
  connect(&player_, &FilmPlayer::Closed, this, [this]() {
    BaseWindow* history = deps_.windows.Find(WindowKind::History);
    if (history != nullptr && history->isVisible()) history->raise();
  });
}

void MediaViews::RegisterCommands() {
  Commands& commands = deps_.services.commands;
  commands.Register(Command::ShowPageView, this,
                    [this](const MenuChoice& choice) { MnuStViewClick(choice.index, choice.subject); });
  const auto opens = [this, &commands](Command command, bool byAddress) {
    commands.Register(command, this, [this, byAddress](const MenuChoice& choice) {
      // The lookup window knows the place of its call, and closes behind the view.
      if (auto* lookup = qobject_cast<Form12*>(choice.owner.data())) return lookup->MnuMapsClick(choice.index);
      ShowPlaceOf(choice.subject.caller, byAddress);
    });
  };
  opens(Command::ShowCallByAddress, true);
  opens(Command::ShowCallByCoordinates, false);
}

void MediaViews::MnuStViewClick(int index, const MenuSubject& subject) {
  ShowPlaceOf(CutAtFirstOther(index < 2 ? subject.site : subject.caller), index % 2 == 0);
}

void MediaViews::ShowPlaceOf(const QString& call, bool byAddress) {
  if (call.isEmpty()) return;
  const QString plain = QString(call).replace(u'Ø', u'0');
  const TargetLocation target = PlaceOf(deps_.services.program, deps_.services.database, plain);
  const QString PageViewUrl = PlaceViewUrl(deps_.services.run.hosts, target, plain, byAddress);
  if (!PageViewUrl.isEmpty()) OpenPageView(PageViewUrl);
}

void MediaViews::OpenPageView(const QString& PageViewUrl) {
  const PageViewPlace place = SplitPageViewUrl(PageViewUrl);
  const QString scheme = place.address.scheme();
  if (place.address.host().isEmpty() || (scheme != "http"_L1 && scheme != "https"_L1)) return;
  viewTitle_ = ShownCall(place.title, deps_.services.program.ZeroGlyph);
  deps_.windows.LowerViewer();
  if (BrowserWindows* browser = deps_.services.web.Windows()) {
    if (!std::exchange(connected_, true))
      connect(browser, &BrowserWindows::PictureTaken, this, &MediaViews::TakePicture);
    return browser->OpenView(place.address, TextsOf(viewTitle_));
  }
  const QString close = deps_.services.program.language[TextLine::kCloseWord].trimmed();
  const QString text = tr("Pages cannot be shown here: a part of the program (libomni_web.so) is missing.");
  if (deps_.services.dialogs.AskSecond(deps_.mainWindow, text, close, tr("Open in the browser")))
    QDesktopServices::openUrl(place.address);
}

PageViewTexts MediaViews::TextsOf(const QString& title) const {
  const LanguageTexts& texts = deps_.services.program.language;
  const auto text = [&texts](TextLine line) { return texts[line].trimmed(); };
  const QString caption = QString(texts[TextLine::kViewTitle]).replace("***"_L1, title);
  return {.caption = u"Omni-Perch   "_s + caption.trimmed(),
          .lblCopy = text(TextLine::kViewCopy),
          .lblSave = text(TextLine::kViewSave),
          .lblPaste = text(TextLine::kViewPaste),
          .saveTip = text(TextLine::kViewSaveTip),
          .pasteTip = text(TextLine::kViewPasteTip)};
}

void MediaViews::TakePicture(PageViewAction action, const QImage& picture, QWidget* window) {
  switch (action) {
    case PageViewAction::Copy:
      return deps_.pictures.CopyImage(picture, window);
    case PageViewAction::Save:
      return deps_.pictures.SaveImageAs(picture, u"Sat"_s, window);  // the told title of a map
    case PageViewAction::Paste:
      return deps_.transfer.PasteImage(picture, window);
  }
}

void MediaViews::Play(const SourcePicture& film) {
  deps_.windows.LowerViewer();
  const QStringList details = DetailsOf(deps_.services.program, film, {});
  player_.startup(film.file, details.join(u"   "_s));
}

bool MediaViews::AllowsOtherPlayer() {
  const LanguageTexts& texts = deps_.services.program.language;
  const QString question =
      tr("Open the film with the desktop's own player? It has no sandbox: a film that is made to do harm can do it "
         "there.");
  return deps_.services.dialogs.AskSecond(deps_.mainWindow, question, texts[TextLine::kNoWord].trimmed(),
                                          texts[TextLine::kYesWord].trimmed());
}

void MediaViews::TellFault(FilmPlayer::Fault fault) {
  QString text;
  switch (fault) {
    case FilmPlayer::Fault::NoPlayer:
      text = tr("Films cannot be played: a part of the program (omni-perch-player) is missing.");
      break;
    case FilmPlayer::Fault::NoCopy:
      text = tr("The film could not be copied for the desktop's player.");
      break;
    case FilmPlayer::Fault::NoOtherPlayer:
      text = tr("The desktop has no player for films.");
      break;
  }
  frmMsgBoxTimed::ShowMsg(deps_.mainWindow, text, kNoticeTime);
}

void MediaViews::ShowTexts() {
  player_.TakeLanguage();
  WebLibrary& web = deps_.services.web;
  if (web.IsLoaded()) web.Windows()->SetViewTexts(TextsOf(viewTitle_));
}

void MediaViews::CloseAll() {
  player_.Close();
}
