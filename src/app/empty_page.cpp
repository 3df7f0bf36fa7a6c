// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/empty_page.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QSet>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <initializer_list>

#include "core/language_file.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 18;   // between the notice and the edge of the page
constexpr int kWidest = 640;  // pixels; longer lines are hard to read
constexpr int kButtonColumns = 4;

QLabel* MakeLabel(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

EmptyPage::EmptyPage(Services& services, PageLogic& logic, QWidget* mainWindow)
    : QFrame(mainWindow),
      steps_({services.program, services.background, logic.changes, !services.run.hosts.Author.isEmpty()}),
      program_(services.program),
      commands_(services.commands),
      heading_(MakeLabel(u"emptyHeading"_s, this)),
      text_(MakeLabel(u"emptyText"_s, this)),
      buttons_(new QGridLayout),
      location_(AddButton(u"locationButton"_s)),
      author_(AddButton(u"authorListButton"_s)),
      add_(AddButton(u"addSiteButton"_s)),
      index_(AddButton(u"siteIndexButton"_s)),
      copyText_(MakeLabel(u"copyText"_s, this)),
      putBack_(AddButton(u"putBackButton"_s)) {
  setObjectName(u"emptyPage"_s);
  setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  setAutoFillBackground(true);
  QFont large = font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * 1.25);
  heading_->setFont(large);
  auto* copy = new QHBoxLayout;
  copy->setSpacing(12);
  copy->addWidget(copyText_, 1);
  copy->addWidget(putBack_);
  auto* column = new QVBoxLayout(this);
  column->addWidget(heading_);
  column->addWidget(text_);
  column->addLayout(buttons_);
  column->addLayout(copy);
  const auto does = [this](QPushButton* button, Command command) {
    connect(button, &QPushButton::clicked, this, [this, command]() {
      MenuChoice choice;
      choice.command = command;
      choice.subject.source = {PictureSource::Window::Page, 0};
      choice.owner = window();
      commands_.Do(choice);
    });
  };
  does(location_, Command::SetLocation);
  does(add_, Command::AddSite);
  does(index_, Command::OpenSiteIndex);
  connect(author_, &QPushButton::clicked, this, [this]() {
    authorList_ = AuthorList::Fetching;
    steps_.Look();
    Q_EMIT AuthorListWanted();
  });
  connect(putBack_, &QPushButton::clicked, &steps_, &FirstSteps::PutBack);
  connect(&steps_, &FirstSteps::Changed, this, &EmptyPage::Show);
  // Whatever changes a place changes a cell, too, or makes the page anew.
  connect(&logic.grid, &ThumbGrid::CellChanged, &steps_, &FirstSteps::Look);
  connect(&logic.poll, &PollCycle::PageChanged, &steps_, &FirstSteps::Look);
  connect(&logic.changes, &SiteChanges::Changed, &steps_, &FirstSteps::Look);
  connect(&steps_, &FirstSteps::NotWritten, this, [this](const QStringList& files) { notWritten_ = files; });
  hide();
}

QPushButton* EmptyPage::AddButton(const QString& name) {
  auto* button = new QPushButton(this);
  button->setObjectName(name);
  button->setAutoDefault(true);
  return button;
}

void EmptyPage::Show() {
  if (!steps_.Shown()) return hide();
  const bool onPage = program_.page.OnDsstvPage();
  for (QWidget* part : std::initializer_list<QWidget*>{text_, location_, author_, add_, index_})
    part->setVisible(onPage);
  location_->setEnabled(commands_.Handles(Command::SetLocation));
  author_->setEnabled(steps_.HasAuthor());
  add_->setEnabled(commands_.Handles(Command::AddSite));
  index_->setEnabled(steps_.Sites() > 0);
  show();
  ShowTexts();
  raise();
}

QString EmptyPage::Advice() const {
  if (authorList_ == AuthorList::Fetching) return tr("The author's list is being fetched...");
  if (authorList_ == AuthorList::Failed) return tr("The author's list could not be fetched.");
  const int sites = static_cast<int>(steps_.Sites());
  if (sites == 0) return tr("Your list has no sites. Get those of the author's list, or add one yourself.");
  return tr(
      "Your list has %n site(s). Open the site index and press the one that is to stand in the first place of "
      "this page.",
      nullptr, sites);
}

void EmptyPage::AuthorListCame() {
  authorList_ = AuthorList::None;
  steps_.Look();
}

// Said only if the user has wanted the list: the check at the start is silent.
void EmptyPage::AuthorListFailed() {
  if (authorList_ == AuthorList::Fetching) authorList_ = AuthorList::Failed;
  steps_.Look();
}

void EmptyPage::ShowTexts() {
  const LanguageTexts& texts = program_.language;
  heading_->setText(program_.page.OnDsstvPage() ? tr("No station stands on any page yet")
                                                : tr("The list of weather pictures is empty"));
  text_->setText(Advice());
  location_->setText(texts[TextLine::kSetupLocation].trimmed());
  author_->setText(tr("Get the author's list"));
  author_->setToolTip(steps_.HasAuthor() ? QString() : tr("The author's server is not named in hosts.ini."));
  location_->setToolTip(steps_.LocationIsSet() ? tr("Your callsign and location are set.") : QString());
  add_->setText(texts[TextLine::kSetupAddSite].trimmed());
  index_->setText(texts[TextLine::kPopupIndex].trimmed());
  putBack_->setText(tr("Put the copy back"));
  setAccessibleName(heading_->text());
  setAccessibleDescription(text_->text());
  for (QPushButton* button : {location_, author_, add_, index_, putBack_}) {
    button->setAccessibleName(button->text());
    button->setText(button->text().replace(u'&', "&&"_L1));
  }
  ShowCopy();
  if (!isHidden()) Place();
}

void EmptyPage::ShowCopy() {
  const std::optional<ListCopy> copy = steps_.Copy();
  copyText_->setVisible(copy.has_value());
  putBack_->setVisible(copy.has_value());
  if (!copy) return;
  QSet<QString> pages;
  if (copy->list == SiteList::Dsstv) {
    for (const SiteRec& site : copy->sites) {
      const QString places =
          site.PageSlots.at(static_cast<std::size_t>(std::clamp(program_.config.ThumbLayout, 0, kLayouts)));
      const QStringList tokens = places.split(u':', Qt::SkipEmptyParts);
      for (const QString& token : tokens) pages.insert(token.left(2));
    }
  }
  const QLocale locale = LanguageLocale(program_.config.LanguageName);
  const int sites = static_cast<int>(copy->sites.size());
  QString text = tr("There is a copy of %1 with %n site(s). Putting it back adds them to the list; nothing is removed.",
                    nullptr, sites)
                     .arg(locale.toString(copy->made, QLocale::ShortFormat));
  if (!pages.isEmpty()) {
    text += u' ' + tr("They return to their places on %n page(s).", nullptr, static_cast<int>(pages.size()));
  }
  if (!notWritten_.isEmpty()) text += u'\n' + tr("These files could not be written: %1").arg(notWritten_.join(u", "_s));
  copyText_->setText(text);
  putBack_->setAccessibleDescription(text);
}

void EmptyPage::SetPage(const QRect& page) {
  page_ = page;
  // Before the main window is shown, too.
  if (!isHidden()) Place();
}

void EmptyPage::FollowInTabOrder(QWidget* widget) {
  for (QPushButton* button : {location_, author_, add_, index_, putBack_}) {
    setTabOrder(widget, button);
    widget = button;
  }
}

void EmptyPage::Place() {
  const int wholePage = page_.width() - 2 * kMargin;
  const std::array densities{Density{std::min(kWidest * logicalDpiX() / 96, wholePage), {16, 12, 16, 12}, 8, true},
                             Density{wholePage, {10, 6, 10, 6}, 4, true}, Density{wholePage, {8, 3, 8, 3}, 2, false}};
  for (const Density& density : densities) {
    if (Fit(density) <= page_.height()) break;
  }
  QRect place = rect();
  place.moveCenter(page_.center());
  place.moveTop(std::max(place.top(), page_.top()));
  setGeometry(place);
}

// As few rows of buttons as the page is wide enough for.
int EmptyPage::Fit(const Density& density) {
  layout()->setContentsMargins(density.margins);
  layout()->setSpacing(density.spacing);
  heading_->setVisible(density.heading);
  for (int columns = kButtonColumns; columns > 0; --columns) {
    Arrange(columns);
    if (minimumSizeHint().width() <= density.widest) break;
  }
  // Otherwise the row of the copy would be as high as for its former text.
  layout()->activate();
  const int width = std::max(density.widest, minimumSizeHint().width());
  const int height = layout()->totalHeightForWidth(width);
  resize(width, height > 0 ? height : sizeHint().height());
  return this->height();
}

void EmptyPage::Arrange(int columns) {
  int shown = 0;
  for (QPushButton* button : {location_, author_, add_, index_}) {
    buttons_->removeWidget(button);
    if (button->isHidden()) continue;
    buttons_->addWidget(button, shown / columns, shown % columns);
    ++shown;
  }
  layout()->invalidate();
}
