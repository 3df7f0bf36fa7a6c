// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/database_editor_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "station/callsign.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kUnit = 2.5;  // pixels a unit in which the picture's size is given, as in the lookup window
constexpr QSize kPictureBox(146, 112);
constexpr int kListLetters = 22;
constexpr FetchRules kRules{.caption = TextLine::kEditorLookup,
                            .membersOnly = true,
                            .usesSitePlace = true,
                            .keepsPicture = true,
                            .statusInCaption = false};

QLabel* PlainLabel(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

QPushButton* Button(const QString& name, QWidget* parent) {
  auto* button = new QPushButton(parent);
  button->setObjectName(name);
  return button;
}

void SetCaption(QPushButton* button, const QString& caption) {
  button->setText(QString(caption).replace(u'&', "&&"_L1));
  button->setAccessibleName(caption);
}

}  // namespace

Form26::Form26(const Dependencies& dependencies, QWidget* mainWindow)
    : SetupWindow(mainWindow),
      deps_(dependencies),
      fetch_(dependencies, kRules),
      editor_(dependencies.program, dependencies.database),
      signIn_(dependencies.browser, fetch_.SignIn(), this),
      model_(
          dependencies.program.ZeroGlyph, [this](const QString& call) { return editor_.IsEdited(call); }, this),
      lstCall(new CallListView(&model_, this)),
      lblEntries(PlainLabel(u"lblEntries"_s, this)),
      Image1(new PictureButton(u"Image1"_s, this)),
      boxes_(nullptr),
      frame_(new QGroupBox(this)),
      service_(new ServiceChooser(ServiceSpelling::Setup, {u"cmdLookup"_s, u"lblLogin"_s}, frame_)),
      lblInfo(PlainLabel(u"lblInfo"_s, this)),
      edits_(new ActionLine(u"editLine"_s, {u"saveButton"_s, u"discardButton"_s}, this)),
      deleted_(new ActionLine(u"deletedLine"_s, {u"undoButton"_s}, this)),
      failure_(new SaveLine(this)),
      cmdAddNewSite(Button(u"cmdAddNewSite"_s, this)),
      cmdDeleteSite(Button(u"cmdDeleteSite"_s, this)),
      cmdClose(Button(u"cmdClose"_s, this)) {
  setObjectName(u"Form26"_s);
  MakeLayout();
  ConnectEditor();
  ConnectFetch();
  ConnectButtons();
  service_->SetService(deps_.program.config.CallbookIndex);
  editor_.Refresh();
  boxes_->Call()->setFocus();
}

void Form26::MakeLayout() {
  auto* corner = new QWidget(this);
  corner->setFixedSize(kPictureBox);
  auto* centred = new QVBoxLayout(corner);
  centred->setContentsMargins(0, 0, 0, 0);
  centred->addWidget(Image1, 0, Qt::AlignCenter);
  boxes_ = new RecordBoxes(deps_.program.ZeroGlyph, corner, this);

  auto* list = new QVBoxLayout;
  lstCall->setFixedWidth(fontMetrics().averageCharWidth() * kListLetters + fontMetrics().height());
  lblEntries->setMaximumWidth(lstCall->maximumWidth());
  list->addWidget(lstCall, 1);
  list->addWidget(lblEntries);

  auto* lookup = new QVBoxLayout(frame_);
  lookup->addWidget(service_);
  auto* state = new QHBoxLayout;
  state->addWidget(service_->Status(), 1);
  state->addWidget(lblInfo, 1);
  lookup->addLayout(state);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdAddNewSite);
  buttons->addWidget(cmdDeleteSite);
  buttons->addStretch(1);
  buttons->addWidget(cmdClose);

  auto* record = new QVBoxLayout;
  record->addWidget(boxes_);
  record->addWidget(frame_);
  record->addWidget(edits_);
  record->addWidget(deleted_);
  record->addWidget(failure_);
  record->addStretch(1);
  record->addLayout(buttons);

  auto* columns = new QHBoxLayout(this);
  columns->addLayout(list);
  columns->addLayout(record, 1);
  columns->setSpacing(fontMetrics().height());

  QList<QWidget*> chain{lstCall};
  chain += boxes_->TabChain();
  chain += Image1;
  chain += service_->TabChain();
  chain += {edits_->Button(0), edits_->Button(1), deleted_->Button(0), failure_->Button(0), failure_->Button(1)};
  chain += {cmdAddNewSite, cmdDeleteSite, cmdClose};
  for (qsizetype i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void Form26::ConnectEditor() {
  connect(&editor_, &DatabaseEditor::CallsChanged, this, &Form26::ShowCalls);
  connect(&editor_, &DatabaseEditor::BoxesChanged, this, [this]() {
    boxes_->Fill(editor_);
    fetch_.SetCall(boxes_->Call()->text());
    ShowPicture();
  });
  connect(&editor_, &DatabaseEditor::Changed, this, &Form26::ShowState);
  connect(&editor_, &DatabaseEditor::Stored, this, &Form26::Stored);
  connect(boxes_, &RecordBoxes::CallTyped, this, &Form26::TypeCall);
  connect(boxes_, &RecordBoxes::BoxTyped, &editor_, &DatabaseEditor::TypeBox);
  connect(boxes_, &RecordBoxes::NicknameTyped, &editor_, &DatabaseEditor::TypeNickname);
  connect(lstCall, &CallListView::Chosen, this, &Form26::Choose);
  // By keyboard, Return does what a click on the selected call does.
  connect(boxes_->Call(), &QLineEdit::returnPressed, this, [this]() {
    if (editor_.Exists()) Choose(editor_.RowOf(editor_.Call()));
  });
}

void Form26::ConnectFetch() {
  connect(&fetch_, &CoordinateFetch::Changed, this, &Form26::ShowFetch);
  connect(&fetch_, &CoordinateFetch::Found, &editor_, &DatabaseEditor::Take);
  connect(&fetch_, &CoordinateFetch::MembersOnly, &editor_, &DatabaseEditor::TakeMembersOnly);
  connect(&fetch_, &CoordinateFetch::FetchWanted, this, &Form26::FetchAfterSignIn);
  connect(&fetch_, &CoordinateFetch::Failed, this, [this]() {
    // Both have always been open after a lookup that found nothing.
    cmdAddNewSite->setEnabled(true);
    cmdDeleteSite->setEnabled(true);
  });
  connect(&fetch_, &CoordinateFetch::Stored, this, [this]() {
    editor_.Refresh();
    Q_EMIT Stored();
  });
  connect(&fetch_, &CoordinateFetch::PictureStored, this, [this](const QString& call) {
    if (call == editor_.Call()) ShowPicture();
  });
  // The desktop's own beep, whose pitch and length the user has chosen.
  connect(&fetch_, &CoordinateFetch::Beep, this, &QApplication::beep);
  connect(service_, &ServiceChooser::FetchWanted, this, &Form26::Lookup);
  connect(service_, &ServiceChooser::Chosen, this, [this](int listIndex) {
    editor_.BeginFetch();
    fetch_.ChooseService(listIndex);
  });
  connect(service_, &ServiceChooser::KeyPressed, &signIn_, &SignInPage::SignInOrOut);
  connect(service_, &ServiceChooser::StatusPressed, &signIn_, &SignInPage::SignInOrOut);
}

void Form26::ConnectButtons() {
  connect(cmdAddNewSite, &QPushButton::clicked, this, &Form26::Add);
  connect(cmdDeleteSite, &QPushButton::clicked, &editor_, &DatabaseEditor::Delete);
  connect(cmdClose, &QPushButton::clicked, this, &Form26::close);
  connect(Image1, &PictureButton::clicked, this, &Form26::OpenPicture);
  connect(deleted_, &ActionLine::Pressed, &editor_, &DatabaseEditor::Undo);
  connect(edits_, &ActionLine::Pressed, this, [this](int index) {
    if (index == 1) return editor_.DiscardEdits();
    if (AskAboutEdits()) editor_.SaveEdits([](bool) {});
  });
  connect(failure_, &SaveLine::RetryWanted, &editor_, &DatabaseEditor::Retry);
  connect(failure_, &SaveLine::DiscardWanted, this, [this]() {
    closing_ = Closing::Done;
    close();
  });
}

QString Form26::Shown(const QString& call) const {
  return ShownCall(call, deps_.program.ZeroGlyph);
}

// The caption of a button with the call, or with the word for one.
QString Form26::Caption(TextLine line) const {
  const LanguageTexts& texts = deps_.program.language;
  const QString call = editor_.Call().isEmpty() ? texts[TextLine::kCallsignWord].trimmed() : Shown(editor_.Call());
  return QString(texts[line]).replace("???"_L1, call);
}

void Form26::ShowTexts() {
  const LanguageTexts& texts = deps_.program.language;
  boxes_->ShowTexts(texts);
  frame_->setTitle(texts[TextLine::kLoginLabel].trimmed());
  service_->ShowTexts(texts[TextLine::kSelectDatabase].trimmed());
  SetCaption(cmdClose, texts[TextLine::kCloseWord].trimmed());
  Image1->setAccessibleName(Form13::PictureName(Shown(editor_.Call())));
  failure_->ShowTexts();
  fetch_.ShowTexts();
  ShowState();
}

void Form26::ShowState() {
  const LanguageTexts& texts = deps_.program.language;
  const QString count = QString::number(editor_.Calls().Count());
  setWindowTitle(QString(texts[TextLine::kEditorTitle]).replace("xxx"_L1, count).trimmed());
  setAccessibleName(windowTitle());
  lstCall->setAccessibleName(windowTitle());
  lblEntries->setText(QString(texts[TextLine::kEntryCount]).replace("xxx"_L1, count).trimmed());
  boxes_->SetNickname(editor_.Nickname());
  ShowButtons();
  ShowLines();
  lstCall->viewport()->update();
}

void Form26::ShowButtons() {
  const bool exists = editor_.Exists();
  SetCaption(cmdAddNewSite, Caption(exists ? TextLine::kEditorUpdate : TextLine::kEditorAdd));
  cmdAddNewSite->setEnabled(!editor_.Call().isEmpty());
  SetCaption(cmdDeleteSite, Caption(TextLine::kEditorDelete));
  cmdDeleteSite->setEnabled(exists);
}

void Form26::ShowLines() {
  QStringList edited;
  for (const QString& call : editor_.Edited()) edited += Shown(call);
  const QString text = tr("Edited, not saved: %1");
  edits_->SetLine(edited.isEmpty() ? QString() : text.arg(edited.join(", "_L1)), {tr("Save"), tr("Discard")});
  const QString deleted = editor_.Deleted();
  deleted_->SetLine(deleted.isEmpty() ? QString() : tr("%1 was deleted").arg(Shown(deleted)), {tr("Undo")});
  failure_->SetFailure(editor_.FailedPath());
}

void Form26::ShowFetch() {
  const FetchView& view = fetch_.View();
  service_->SetFetchCaption(view.caption);
  service_->FetchButton()->setEnabled(view.enabled);
  service_->SetLogin(view.status, fetch_.SignIn().Offer());
  lblInfo->setText(view.message);
  service_->Describe(view.message);
  boxes_->SetNote(fetch_.DerivedNote());
  if (view.busy) {
    setCursor(Qt::BusyCursor);
  } else {
    unsetCursor();
  }
}

// Shows the list that has come, with the same row at its top and the typed call selected.
void Form26::ShowCalls() {
  lstCall->Take(editor_.Calls());
  const int row = editor_.RowOf(editor_.Call());
  if (row >= 0) lstCall->Select(row, row);
}

// Selects the typed call, or shows where it would stand; nothing is loaded.
void Form26::TypeCall(const QString& shown) {
  editor_.TypeCall(shown);
  fetch_.SetCall(shown);
  const QString& call = editor_.Call();
  lstCall->Select(editor_.RowOf(call), call.isEmpty() ? -1 : editor_.Calls().FirstNotBefore(call));
}

void Form26::Choose(int row) {
  boxes_->HideNote();
  editor_.Choose(row);
}

void Form26::Lookup() {
  editor_.BeginFetch();
  fetch_.Fetch();
}

// The boxes have been blanked because the service shows its data to members only; the call comes back.
void Form26::FetchAfterSignIn() {
  if (editor_.Call().isEmpty() && !editor_.LookedUp().isEmpty()) {
    boxes_->Call()->setText(Shown(editor_.LookedUp()));
    TypeCall(boxes_->Call()->text());
  }
  Lookup();
}

void Form26::Add() {
  const LanguageTexts& texts = deps_.program.language;
  const QString question =
      tr("%1 is in the database already. Replace its record by what the boxes show?").arg(Shown(editor_.Call()));
  if (editor_.ReplacesUnseen() && !deps_.dialogs.AskSecond(this, question, texts[TextLine::kNoWord].trimmed(),
                                                           texts[TextLine::kYesWord].trimmed())) {
    return;
  }
  editor_.Add();
}

void Form26::ShowPicture() {
  const QString& call = editor_.Call();
  Image1->SetPicture({}, {});
  pictureCall_ = call;
  const Wanted::Token token = shownPicture_.Ask();
  const QString path = OperatorPicturePath(deps_.program.AppDataDir, call);
  // An empty file counts as no picture.
  if (path.isEmpty() || QFileInfo(path).size() == 0) return;
  deps_.tool.View(path, kPictureBox * devicePixelRatioF(), this, [this, token](const PictureAnswer& answer) {
    if (!token.StillWanted() || !answer.ok || answer.frames.isEmpty()) return;
    Image1->setAccessibleName(Form13::PictureName(Shown(pictureCall_)));
    Image1->SetPicture(answer.frames.first().image, (PictureUnits(answer.size) * kUnit).toSize());
  });
}

void Form26::OpenPicture() {
  const QPoint over = Image1->underMouse() ? QCursor::pos() : Image1->mapToGlobal(Image1->rect().center());
  if (!picture_) {
    picture_ = new Form13(deps_.tool, this);
    // A closed window is deleted later, and must not be shown again meanwhile.
    connect(picture_, &BaseWindow::Closed, this, [this]() { picture_.clear(); });
  }
  picture_->ShowPicture(OperatorPicturePath(deps_.program.AppDataDir, pictureCall_), Shown(pictureCall_), over);
}

// Asks before records are replaced that were never shown. False: they are not to be.
bool Form26::AskAboutEdits() {
  const QStringList calls = editor_.Overwritten();
  if (calls.isEmpty()) return true;
  const LanguageTexts& texts = deps_.program.language;
  const QString question = tr("%1 is in the database already. Replace its record by what the boxes show?");
  return deps_.dialogs.AskSecond(this, question.arg(calls.join(", "_L1)), texts[TextLine::kNoWord].trimmed(),
                                 texts[TextLine::kYesWord].trimmed());
}

// Nicknames are written at closing, as they always were; edits of records are asked about.
void Form26::closeEvent(QCloseEvent* event) {
  if (closing_ == Closing::Saving) return event->ignore();
  const QStringList edited = editor_.Edited();
  if (closing_ == Closing::No && !edited.isEmpty()) {
    closing_ = Closing::Saving;
    const QString question = tr("Edited, not saved: %1").arg(edited.join(", "_L1));
    const bool save = deps_.dialogs.AskSecond(this, question, tr("Discard"), tr("Save"));
    const bool saves = save && AskAboutEdits();
    // The program may have begun to end below the question.
    if (closing_ == Closing::Saving) {
      closing_ = Closing::No;
      if (save) {
        event->ignore();
        if (saves) SaveAndClose();
        return;
      }
    }
  }
  closing_ = Closing::Done;
  editor_.WriteNicknames();
  fetch_.End();
  if (picture_) picture_->close();
  SetupWindow::closeEvent(event);
}

void Form26::SaveAndClose() {
  closing_ = Closing::Saving;
  editor_.SaveEdits([this](bool saved) {
    // Done: the program ends, and closes the window by itself.
    if (closing_ != Closing::Done) closing_ = saved ? Closing::Done : Closing::No;
    // Queued: without an edit the answer comes within the event that began the closing.
    if (saved) QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
  });
}

void Form26::ProgramEnds() {
  closing_ = Closing::Done;
  editor_.WriteNicknames();
}
