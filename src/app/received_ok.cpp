// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/received_ok.h"

#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr int kBuildTicks = 2;
}  // namespace

ReceivedOk::ReceivedOk(const Dependencies& dependencies, QWidget* window)
    : QObject(window), deps_(dependencies), window_(window), link_(dependencies.services.run.socketDir) {
  Timer3.setInterval(1s);
  connect(&Timer3, &QTimer::timeout, this, &ReceivedOk::Tick);
  connect(&link_, &CompanionLink::TextArrived, this, &ReceivedOk::TakeText);
  connect(deps_.pic.lblMap, &BarLabel::clicked, this, &ReceivedOk::OpenMap);
}

void ReceivedOk::Start() {
  link_.Listen();
  Timer3.start();
}

void ReceivedOk::Tick() {
  if (++ticks_ % kBuildTicks == 0) Build();
}

void ReceivedOk::Build() {
  deps_.lstRxOk.BuildRxOkList(deps_.services.program);
  ShowLabel();
}

void ReceivedOk::ShowOwnLocation() {
  Build();
  const Program& program = deps_.services.program;
  const PageState& page = program.page;
  bool onPage = false;
  for (int slot = 0; slot < page.ThumbCount && page.CurrentPage != PageState::WxPage; ++slot) {
    // An empty field of a vacant slot would read as the first site.
    const int site = page.Field(slot, SlotSite).isEmpty() ? -1 : static_cast<int>(Val(page.Field(slot, SlotSite)));
    if (site < 0 || site >= program.sites.Sites.size()) continue;
    onPage = onPage || program.sites.Sites.at(site).Call == program.config.MyCall;
  }
  if (onPage && !deps_.pic.lblMap->Wanted()) {
    deps_.pic.lblMap->SetCaption(u"Map (%1 rx sites)"_s.arg(deps_.lstRxOk.Rows().size()));
    deps_.pic.lblMap->setVisible(true);
  }
}

// Caption and visibility are set once the list is complete: a label that is hidden for a moment flickers, and loses the
// keyboard's focus.
void ReceivedOk::ShowLabel() {
  BarLabel* lblMap = deps_.pic.lblMap;
  const qsizetype count = deps_.lstRxOk.Rows().size();
  const QString caption = u"Map (%1 rx sites)"_s.arg(count);
  if (count > 0 && lblMap->text() != caption) {
    lblMap->SetCaption(caption);
    lblMap->SetBriefCaption(u"Map (%1)"_s.arg(count));
  }
  if (lblMap->Wanted() != (count > 0)) lblMap->setVisible(count > 0);
}

void ReceivedOk::TakeText(const QString& item, const QString& text) {
  if (item == "txtRxOk"_L1) {
    deps_.lstRxOk.SetReports(text, deps_.services.program.lstBadCalls);
    // An empty text clears the list at once. What the thumbnails say comes back in the same step, not two seconds
    // later.
    if (text.isEmpty()) Build();
  } else if (text == "Refresh"_L1) {
    deps_.poll.RefreshClick();
  }
}

void ReceivedOk::LeavePage() {
  deps_.lstRxOk.Clear();
  deps_.pic.lblMap->hide();
}

void ReceivedOk::OpenMap() {
  const Program& program = deps_.services.program;
  Dialogs& dialogs = deps_.services.dialogs;
  const QString call = program.config.MyCall;
  if (call.isEmpty()) return dialogs.Inform(window_, program.language[TextLine::kCallMissing].trimmed(), false);
  const bool isOpen = deps_.windows.Find(WindowKind::ReceivedOkMap) != nullptr;
  if (deps_.lstRxOk.Rows().isEmpty() && !isOpen) {
    if (std::exchange(asking_, true)) return;
    const QString text = QString(program.language[TextLine::kNoReports]).replace("xxx"_L1, call).trimmed();
    const bool show = dialogs.AskSecond(window_, text, program.language[TextLine::kCloseWord].trimmed(),
                                        program.language[TextLine::kShowMap].trimmed());
    asking_ = false;
    // The program may have been closed while the question was on the screen.
    if (!show || closed_) return;
  }
  deps_.windows.ShowReceivedOkMap();
}

void ReceivedOk::SendClosed() {
  closed_ = true;
  link_.SendClosed();
  Timer3.stop();
}
