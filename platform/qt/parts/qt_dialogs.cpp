#include "platform/qt/parts/qt_dialogs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/own_paths.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

/// Position of the filter that a dialog names; it may hide the last parenthesis. The first one when
/// there is none of the name.
int IndexOf(const QList<NameFilter>& filters, const QString& name) {
  for (int i = 0; i < filters.size(); ++i)
    if (name == filters[i].ForDialog() || name.trimmed() == filters[i].Text) return i;
  return 0;
}

/// Where a dialog opens: in the folder asked for, a first one among the examples. At home where
/// these are missing, and where nothing can be saved, as among the examples of a package.
QString StartFolder(const std::string& asked, bool save) {
  const QString folder = asked.empty() ? ExamplesFolder() : ToQString(asked);
  const bool serves = !folder.isEmpty() && (!save || QFileInfo(folder).isWritable());
  return serves ? folder : QDir::homePath();
}

/// Position of the filter that a name to save has: the chosen one, unless only others have the
/// name's extension.
int FilterOf(const QString& name, int chosen, const QList<NameFilter>& filters) {
  if (filters[chosen].Fits(name)) return chosen;
  for (int i = 0; i < filters.size(); ++i)
    if (filters[i].Fits(name)) return i;
  return chosen;
}

/// The name with the extension of one filter in place of that of another.
QString Renamed(QString name, const NameFilter& from, const NameFilter& to) {
  name.chop(from.Suffix().size());
  return name + to.Suffix();
}

/// The field of the name. The desktop's own dialogs have none within reach.
QLineEdit* NameField(const QFileDialog& dialog) {
  return dialog.findChild<QLineEdit*>("fileNameEdit");
}

/// Room for names, sizes and dates; the desktop's own dialogs have none of these parts.
void GiveRoom(QFileDialog& dialog) {
  const QFontMetrics letters = dialog.fontMetrics();
  const int letter = letters.averageCharWidth();
  dialog.resize(130 * letter, 34 * letters.height());
  if (auto* list = dialog.findChild<QTreeView*>("treeView")) {
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  }
  if (auto* parts = dialog.findChild<QSplitter*>("splitter"))
    parts->setSizes({24 * letter, 106 * letter});
}

/// A dialog that, to open, gives every name in its field, whether there is such a file or not. The
/// toolkit leaves out what the folder does not have, or refuses it.
class FileDialog : public QFileDialog {
 public:
  using QFileDialog::QFileDialog;

  QStringList Paths() const {
    const QLineEdit* field = NameField(*this);
    if (!field || acceptMode() == AcceptSave) return selectedFiles();
    const QString text = QDir::fromNativeSeparators(field->text());
    const QStringList parts = text.split('"');  // of "a.ams" "b.ams"
    QStringList names = {text};
    if (parts.size() > 1 && !directory().exists(text)) {
      names.clear();
      for (int i = 1; i < parts.size(); i += 2) names += parts[i];
    }
    QStringList paths;
    for (QString name : names) {
      if (name.startsWith("~/")) name.replace(0, 1, QDir::homePath());
      if (!name.isEmpty()) paths += QDir::cleanPath(directory().absoluteFilePath(name));
    }
    return paths;
  }

 protected:
  void accept() override {
    const QString first = Paths().value(0);
    const bool goes = first.isEmpty() || QFileInfo(first).isDir();
    // Past the toolkit's own check that the files exist.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    if (acceptMode() == AcceptOpen && !goes) return QDialog::accept();
    QFileDialog::accept();
    QLineEdit* field = NameField(*this);
    if (field && isVisible() && goes) field->clear();
  }
};

/// Lets several files be chosen in the lists. The toolkit's own mode for that takes only files that
/// exist.
void LetChooseSeveral(QFileDialog& dialog) {
  for (const char* name : {"listView", "treeView"})
    if (auto* list = dialog.findChild<QAbstractItemView*>(name))
      list->setSelectionMode(QAbstractItemView::ExtendedSelection);
}

/// Shows an earlier answer again. In a folder that is not there it is shown with its folder.
void ShowAgain(QFileDialog& dialog, const FileAnswer& answer) {
  QStringList names = ToQString(answer.Filename).split(QChar(0), Qt::SkipEmptyParts);
  const QString folder = names.size() > 1 ? names.takeFirst() : QFileInfo(names.value(0)).path();
  if (QFileInfo(folder).isDir()) dialog.setDirectory(folder);
  for (QString& name : names) {
    const QFileInfo file(QDir(folder), name);
    name = file.path() == dialog.directory().path() ? file.fileName() : file.filePath();
    if (names.size() > 1) name = '"' + name + '"';
  }
  if (QLineEdit* field = NameField(dialog))
    field->setText(names.join(' '));
  else
    dialog.selectFile(names.value(0));
}

/// Ties the name to save to the filter in the toolkit's dialog: the filter shown follows an
/// extension that is typed, and the extension a filter that is chosen.
class NameAndFilter {
 public:
  NameAndFilter(QFileDialog& dialog, const QList<NameFilter>& filters)
      : dialog_(dialog), filters_(filters), chosen_(Shown()), field_(NameField(dialog)) {
    if (!field_) return;
    now_ = before_ = field_->text();
    QObject::connect(field_, &QLineEdit::textChanged, &dialog, [this](const QString& text) {
      before_ = now_;
      now_ = text;
    });
    QObject::connect(
        field_, &QLineEdit::textChanged, &dialog, [this] { before_ = now_; }, Qt::QueuedConnection);
    QObject::connect(field_, &QLineEdit::textEdited, &dialog,
                     [this](const QString& text) { FollowName(text); });
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [this] { FollowFilter(); });
  }

  int Shown() const { return IndexOf(filters_, dialog_.selectedNameFilter()); }

 private:
  void FollowName(const QString& typed) {
    const int filter = FilterOf(typed, chosen_, filters_);
    if (filter != Shown()) dialog_.selectNameFilter(filters_[filter].ForDialog());
    if (field_->text() != typed) field_->setText(typed);  // which the toolkit may have changed
    now_ = before_ = typed;
  }

  /// The toolkit has put the filter's extension in place of whatever stands behind the last point,
  /// which may be a part of the name: "HR5.2".
  void FollowFilter() {
    chosen_ = Shown();
    const NameFilter& filter = filters_[chosen_];
    QString name = now_;
    const qsizetype stem = before_.size() - QFileInfo(before_).suffix().size();
    if (before_.left(stem) + filter.Suffix() == now_) name = before_;
    const NameFilter& former = filters_[FilterOf(name, chosen_, filters_)];
    if (former.Fits(name)) name = Renamed(name, former, filter);
    field_->setText(name);
    before_ = now_;
  }

  QFileDialog& dialog_;
  const QList<NameFilter>& filters_;
  int chosen_;  // by the user
  QLineEdit* field_;
  QString now_, before_;  // the name, and what it was before this event
};

/// Shows the file dialog until the answer has room, or the user gives up. `filter`, from 1, is the
/// one that the dialog begins with, and then that it was left with.
std::optional<FileAnswer> ShowFileDialog(QtDialogs& dialogs, const FileQuestion& question,
                                         bool save, int& filter) {
  PauseBusyCursor();
  const QList<NameFilter> filters = SplitFilters(question.Filter);
  QStringList names;
  for (const NameFilter& one : filters) names += one.ForDialog();

  FileDialog dialog(dialogs.OwnerNow(), ToQString(question.Title));
  dialog.setObjectName("dlgFile");
  dialog.setOption(QFileDialog::DontUseNativeDialog, !save);
  // The program asks about existing files itself, in its own words.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters(names);
  dialog.selectNameFilter(names.value(filter - 1));
  if (question.Multi) LetChooseSeveral(dialog);
  GiveRoom(dialog);
  dialog.setDirectory(StartFolder(question.Folder, save));
  QString proposed;
  if (question.Again) {
    ShowAgain(dialog, *question.Again);
  } else if (!question.DefaultName.empty()) {
    proposed = ToQString(question.DefaultName) + '.' + filters.value(filter - 1).Suffix();
    dialog.selectFile(proposed);
  }
  std::optional<NameAndFilter> tied;
  if (save) tied.emplace(dialog, filters);
  std::optional<FileAnswer> answer;
  while (!answer && dialog.exec() == QDialog::Accepted) {
    const QStringList paths = dialog.Paths();
    answer = FileAnswer{JoinFileList(paths), IndexOf(filters, dialog.selectedNameFilter()) + 1};
    if (save)
      answer = SaveAnswer(paths.value(0), answer->FilterIndex - 1, filters, proposed,
                          question.AddsExtension);
    const qsizetype length = ToQString(answer->Filename).size();
    if (length <= question.MaxFileSize) break;
    answer.reset();
    dialogs.Ask(question.Title,
                "The names of the chosen files have " + std::to_string(length) +
                    " characters together; " + std::to_string(question.MaxFileSize) +
                    " are allowed.\nChoose fewer files at a time.",
                {"&OK"}, 0);
  }
  filter = IndexOf(filters, dialog.selectedNameFilter()) + 1;
  return answer;
}

/// A box with a title and a text, before its icon and its buttons.
class TextBox : public QMessageBox {
 public:
  TextBox(QWidget* owner, const std::string& title, const std::string& text) : QMessageBox(owner) {
    PauseBusyCursor();
    setObjectName("frmMessage");
    setWindowTitle(ToQString(title));
    setTextFormat(Qt::PlainText);
    setText(ToQString(text));
  }
};

/// The button that the user chose in the box, which gets the program's icon and these buttons.
int Chosen(TextBox& box, const std::vector<std::string>& buttons, int defaultButton) {
  box.setIconPixmap(OwnIcon("velorix").pixmap(QSize(48, 48), box.devicePixelRatioF()));
  std::vector<QPushButton*> made;
  for (const std::string& caption : buttons) {
    // One role for all keeps them in the order given on every desktop.
    QPushButton* button = box.addButton(ToQString(caption), QMessageBox::ActionRole);
    if (static_cast<int>(made.size()) == defaultButton) box.setDefaultButton(button);
    made.push_back(button);
  }
  box.setEscapeButton(made.back());
  box.exec();
  for (std::size_t i = 0; i < made.size(); ++i)
    if (box.clickedButton() == made[i]) return static_cast<int>(i);
  return static_cast<int>(made.size()) - 1;
}

}  // namespace

QString NameFilter::ForDialog() const {
  return QString("%1 (%2 %3)").arg(Text, Pattern.toLower(), Pattern.toUpper());
}

QString NameFilter::Suffix() const { return Pattern.section('.', -1); }

bool NameFilter::Fits(const QString& name) const {
  return name.endsWith('.' + Suffix(), Qt::CaseInsensitive);
}

QList<NameFilter> SplitFilters(const std::string& filter) {
  const QStringList parts = ToQString(filter).split('|');
  QList<NameFilter> filters;
  for (int i = 0; i + 1 < parts.size(); i += 2) filters += {parts[i], parts[i + 1]};
  return filters;
}

FileAnswer SaveAnswer(QString path, int chosen, const QList<NameFilter>& filters,
                      const QString& proposed, bool addsExtension) {
  const int other = FilterOf(path, chosen, filters);
  if (QFileInfo(path).fileName() == proposed)
    path = Renamed(path, filters[other], filters[chosen]);
  else if (addsExtension && !filters[other].Fits(path))
    path += '.' + filters[other].Suffix();
  return {JoinFileList({path}), FilterOf(path, chosen, filters) + 1};
}

std::string JoinFileList(const QStringList& paths) {
  if (paths.size() == 1) return QDir::toNativeSeparators(paths.front()).toStdString();
  if (paths.isEmpty()) return {};
  const QString folder = QFileInfo(paths.front()).path();
  std::string list = QDir::toNativeSeparators(folder).toStdString() + '\0';
  for (const QString& path : paths) {
    const QFileInfo file(path);
    const QString name = file.path() == folder ? file.fileName() : QDir::toNativeSeparators(path);
    list += name.toStdString() + '\0';
  }
  return list;
}

QWidget* QtDialogs::OwnerNow() {
  QWidget* active = QApplication::activeWindow();
  if (!active && atWork_ && atWork_->isVisible()) active = atWork_;
  atWork_ = active ? active : Owner;
  return atWork_;
}

std::optional<FileAnswer> QtDialogs::ShowOpen(const FileQuestion& question) {
  int& filter = lastFilters_.try_emplace(question.Filter, 1).first->second;
  return ShowFileDialog(*this, question, false, filter);
}

std::optional<FileAnswer> QtDialogs::ShowSave(const FileQuestion& question) {
  int filter = question.Again ? question.Again->FilterIndex : 1;
  return ShowFileDialog(*this, question, true, filter);
}

int QtDialogs::Ask(const std::string& title, const std::string& text,
                   const std::vector<std::string>& buttons, int defaultButton) {
  TextBox box(OwnerNow(), title, text);
  return Chosen(box, buttons, defaultButton);
}

int QtDialogs::AskWith(const std::string& title, const std::string& text, const std::string& detail,
                       const std::vector<std::string>& buttons) {
  TextBox box(OwnerNow(), title, text);
  box.setInformativeText(ToQString(detail));
  return Chosen(box, buttons, 0);
}

ListAnswer QtDialogs::AskList(const std::string& title, const std::string& text,
                              const std::vector<std::string>& entries,
                              const std::vector<std::string>& buttons, int defaultButton) {
  PauseBusyCursor();
  QDialog box(OwnerNow());
  box.setObjectName("frmList");
  box.setWindowTitle(ToQString(title));
  auto* rows = new QVBoxLayout(&box);
  auto* label = new QLabel(ToQString(text), &box);
  label->setTextFormat(Qt::PlainText);
  rows->addWidget(label);
  auto* list = new QListWidget(&box);
  list->setObjectName("lstEntries");
  list->setAccessibleName(ToQString(text));
  list->setToolTip("The default button acts on the marked entry, as a double click does");
  list->setUniformItemSizes(true);
  for (const std::string& entry : entries) list->addItem(ToQString(entry));
  list->setCurrentRow(0);
  rows->addWidget(list);
  ListAnswer answer = {static_cast<int>(buttons.size()) - 1, 0};
  const auto choose = [&](int button) {
    answer = {button, std::max(list->currentRow(), 0)};
    box.accept();
  };
  auto* row = new QDialogButtonBox(&box);
  for (int i = 0; i < static_cast<int>(buttons.size()); ++i) {
    // One role for all keeps them in the order given on every desktop.
    QPushButton* button = row->addButton(ToQString(buttons[static_cast<std::size_t>(i)]),
                                         QDialogButtonBox::ActionRole);
    button->setDefault(i == defaultButton);
    QObject::connect(button, &QPushButton::clicked, &box, [choose, i] { choose(i); });
  }
  rows->addWidget(row);
  QObject::connect(list, &QListWidget::itemActivated, &box,
                   [choose, defaultButton] { choose(defaultButton); });
  const int line = list->sizeHintForRow(0);
  const int shown = std::clamp(list->count(), 3, 14);
  list->setMinimumWidth(std::min(list->sizeHintForColumn(0) + 2 * line, 60 * line));
  list->setMinimumHeight(shown * line + 2 * list->frameWidth());
  box.resize(box.minimumSizeHint());
  box.exec();
  return answer;
}

void QtDialogs::Warn(const std::string& title, const std::string& text) {
  TextBox box(OwnerNow(), title, text);
  box.setIcon(QMessageBox::Warning);
  box.addButton("OK", QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace velorix
