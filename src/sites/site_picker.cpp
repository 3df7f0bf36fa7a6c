// SPDX-License-Identifier: GPL-3.0-or-later
#include "sites/site_picker.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "station/callsign.h"
#include "ui/call_field.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kIndexRole = Qt::UserRole;
constexpr int kRowsShown = 12;

QString Folded(const QString& text) {
  return text.toCaseFolded().replace(u'ø', u'0');
}

}  // namespace

SitePicker::SitePicker(const Program& program, QWidget* parent)
    : QWidget(parent),
      program_(program),
      optList(new QButtonGroup(this)),
      dsstv_(new QRadioButton(this)),
      wx_(new QRadioButton(this)),
      heading_(new QLabel(this)),
      search_(new QLineEdit(this)),
      List1(new QListWidget(this)) {
  dsstv_->setObjectName(u"optDsstv"_s);
  wx_->setObjectName(u"optWx"_s);
  search_->setObjectName(u"txtSearch"_s);
  List1->setObjectName(u"List1"_s);
  optList->addButton(dsstv_, static_cast<int>(SiteTableKind::Dsstv));
  optList->addButton(wx_, static_cast<int>(SiteTableKind::Wx));
  dsstv_->setChecked(true);
  heading_->setBuddy(List1);
  heading_->setWordWrap(true);
  search_->setClearButtonEnabled(true);
  List1->setUniformItemSizes(true);
  List1->setMinimumHeight(kRowsShown * fontMetrics().height());

  auto* choice = new QHBoxLayout;
  choice->addWidget(dsstv_);
  choice->addWidget(wx_);
  choice->addStretch(1);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addLayout(choice);
  rows->addWidget(heading_);
  rows->addWidget(search_);
  rows->addWidget(List1, 1);

  search_->installEventFilter(this);
  List1->installEventFilter(this);
  connect(optList, &QButtonGroup::idClicked, this, &SitePicker::ChooseList);
  connect(search_, &QLineEdit::textChanged, this, [this]() {
    const int before = Index();
    Fill();
    if (List1->currentRow() < 0 && List1->count() > 0) List1->setCurrentRow(0);
    if (Index() != before) Q_EMIT Picked();
  });
  connect(List1, &QListWidget::currentRowChanged, this, &SitePicker::Picked);
}

void SitePicker::ChooseList(int id) {
  if (static_cast<int>(list_) == id) return;
  list_ = static_cast<SiteTableKind>(id);
  {
    const QSignalBlocker quiet(search_);
    search_->clear();
  }
  List1->setCurrentRow(-1);
  Fill();
  Q_EMIT Picked();
}

const QList<SiteRec>& SitePicker::Table() const {
  return list_ == SiteTableKind::Wx ? program_.sites.WxSites : program_.sites.Sites;
}

bool SitePicker::Matches(const SiteRec& site, const QString& wanted) const {
  return wanted.isEmpty() || Folded(site.Call).contains(wanted) || site.Url.toCaseFolded().contains(wanted);
}

int SitePicker::Index() const {
  const QListWidgetItem* row = List1->currentItem();
  return row != nullptr ? row->data(kIndexRole).toInt() : -1;
}

void SitePicker::Select(int index) {
  for (int row = 0; row < List1->count(); ++row) {
    if (List1->item(row)->data(kIndexRole).toInt() == index) return List1->setCurrentRow(row);
  }
}

void SitePicker::Show(SiteTableKind list, int index) {
  optList->button(static_cast<int>(list))->setChecked(true);
  ChooseList(static_cast<int>(list));
  search_->clear();
  Select(index);
}

void SitePicker::Fill() {
  const QSignalBlocker quiet(List1);
  const int selected = Index();
  const QString wanted = Folded(search_->text().trimmed());
  List1->clear();
  const QList<SiteRec>& table = Table();
  for (int index = 0; index < table.size(); ++index) {
    if (table.at(index).Call.isEmpty() || !Matches(table.at(index), wanted)) continue;
    auto* row = new QListWidgetItem;
    row->setData(kIndexRole, index);
    ShowRow(row);
    List1->addItem(row);
    if (index == selected) List1->setCurrentItem(row);
  }
}

void SitePicker::ShowRow(QListWidgetItem* row) const {
  const int index = row->data(kIndexRole).toInt();
  const QString& call = Table().at(index).Call;
  const QString shown = list_ == SiteTableKind::Wx ? call : ShownCall(call, program_.ZeroGlyph);
  const bool marked = IsMarked && IsMarked(list_, index);
  row->setText(marked ? shown + u"  \u270e"_s : shown);
  row->setData(Qt::AccessibleTextRole, marked ? tr("%1, changed, not saved").arg(shown) : shown);
  QFont font = List1->font();
  font.setBold(marked);
  row->setFont(font);
}

void SitePicker::ShowMarks() {
  const QSignalBlocker quiet(List1);
  for (int row = 0; row < List1->count(); ++row) ShowRow(List1->item(row));
}

void SitePicker::ShowTexts(const QString& heading) {
  const LanguageTexts& texts = program_.language;
  dsstv_->setText(texts[TextLine::kDsstvSites]);
  wx_->setText(texts[TextLine::kWxSites]);
  for (QRadioButton* option : {dsstv_, wx_}) option->setAccessibleName(option->text());
  heading_->setText(heading);
  List1->setAccessibleName(RoleOf(heading));
  search_->setPlaceholderText(tr("Search by call or address"));
  search_->setAccessibleName(tr("Search by call or address"));
}

QList<QWidget*> SitePicker::TabChain() const {
  return {dsstv_, wx_, search_, List1};
}

// Typing in the list searches, and the arrows move in the list from the search box. Return presses no button of the
// window here: the search selects its first match by itself, and nobody has looked at that yet.
bool SitePicker::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  const bool isArrow = key->key() == Qt::Key_Down || key->key() == Qt::Key_Up || key->key() == Qt::Key_PageDown ||
                       key->key() == Qt::Key_PageUp;
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
    if (watched == search_) List1->setFocus();
    return true;
  }
  if (watched == search_ && isArrow) {
    QCoreApplication::sendEvent(List1, event);
    return true;
  }
  const bool isText = !key->text().isEmpty() && key->text().at(0).isPrint() && key->text() != " "_L1;
  if (watched == List1 && (isText || key->key() == Qt::Key_Backspace)) {
    search_->setFocus();
    QCoreApplication::sendEvent(search_, event);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}
