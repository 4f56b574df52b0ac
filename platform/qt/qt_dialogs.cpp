#include "platform/qt/qt_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>
#include <algorithm>
#include <functional>

#include "platform/qt/busy_cursor.h"
#include "platform/qt/own_paths.h"
#include "platform/qt/widgets.h"

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

/// The type of a file that is saved follows an extension that the user types: "figure.pdf" is to be
/// one. The desktop's own dialogs go by the type alone.
void LetTypeFollowName(QFileDialog& dialog, const QList<NameFilter>& filters,
                       const std::function<void()>& changed) {
  const auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
  if (!name) return;
  QObject::connect(name, &QLineEdit::textEdited, &dialog, [&, changed](const QString& text) {
    const QString typed = QFileInfo(text).suffix();
    const auto of = std::find_if(filters.begin(), filters.end(), [&](const NameFilter& filter) {
      return filter.Suffix().compare(typed, Qt::CaseInsensitive) == 0;
    });
    if (of == filters.end()) return;
    dialog.selectNameFilter(of->ForDialog());
    changed();
  });
}

/// Shows the file dialog until the answer has room, or the user gives up.
std::optional<FileAnswer> ShowFileDialog(QtDialogs& dialogs, const FileQuestion& question,
                                         bool save) {
  PauseBusyCursor();
  const QList<NameFilter> filters = SplitFilters(question.Filter);
  QStringList names;
  for (const NameFilter& filter : filters) names += filter.ForDialog();

  QFileDialog dialog(dialogs.Owner, ToQString(question.Title));
  dialog.setObjectName("dlgFile");
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(question.Multi ? QFileDialog::ExistingFiles : QFileDialog::AnyFile);
  // The program asks about existing files itself, in its own words.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(names);
  GiveRoom(dialog);
  dialog.setDirectory(StartFolder(question.Folder, save));
  if (!question.DefaultName.empty()) dialog.selectFile(ToQString(question.DefaultName));
  const auto chosen = [&] { return IndexOf(filters, dialog.selectedNameFilter()); };
  const auto follow = [&] {
    if (question.AddsExtension) dialog.setDefaultSuffix(filters.value(chosen()).Suffix());
  };
  if (save) {
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    LetTypeFollowName(dialog, filters, follow);
    follow();
  }
  while (dialog.exec() == QDialog::Accepted) {
    const QStringList paths = dialog.selectedFiles();
    const std::string list = JoinFileList(paths);
    const qsizetype length = ToQString(list).size();
    if (length <= question.MaxFileSize) return FileAnswer{list, chosen() + 1};
    dialogs.Ask(question.Title,
                "The names of the chosen files have " + std::to_string(length) +
                    " characters together; " + std::to_string(question.MaxFileSize) +
                    " are allowed.\nChoose fewer files at a time.",
                {"&OK"}, 0);
  }
  return std::nullopt;
}

}  // namespace

QString NameFilter::ForDialog() const {
  return QString("%1 (%2 %3)").arg(Text, Pattern.toLower(), Pattern.toUpper());
}

QString NameFilter::Suffix() const { return Pattern.section('.', -1); }

QList<NameFilter> SplitFilters(const std::string& filter) {
  const QStringList parts = ToQString(filter).split('|');
  QList<NameFilter> filters;
  for (int i = 0; i + 1 < parts.size(); i += 2) filters += {parts[i], parts[i + 1]};
  return filters;
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

std::optional<FileAnswer> QtDialogs::ShowOpen(const FileQuestion& question) {
  return ShowFileDialog(*this, question, false);
}

std::optional<FileAnswer> QtDialogs::ShowSave(const FileQuestion& question) {
  return ShowFileDialog(*this, question, true);
}

int QtDialogs::Ask(const std::string& title, const std::string& text,
                   const std::vector<std::string>& buttons, int defaultButton) {
  PauseBusyCursor();
  QMessageBox box(Owner);
  box.setObjectName("frmMessage");
  box.setWindowTitle(ToQString(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQString(text));
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

void QtDialogs::Warn(const std::string& title, const std::string& text) {
  PauseBusyCursor();
  QMessageBox box(Owner);
  box.setObjectName("frmMessage");
  box.setWindowTitle(ToQString(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQString(text));
  box.setIcon(QMessageBox::Warning);
  box.addButton("OK", QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace velorix
