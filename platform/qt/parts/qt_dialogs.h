#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <map>

#include "app/state/dialogs.h"

namespace velorix {

/// The program's questions as windows over `Owner`. Dialogs to open are the toolkit's own, since
/// the desktops' give no file that does not exist; those to save may be the desktop's.
class QtDialogs : public Dialogs {
 public:
  QWidget* Owner = nullptr;

  /// Begins with the filter that the last dialog of these filters was left with.
  std::optional<FileAnswer> ShowOpen(const FileQuestion& question) override;
  std::optional<FileAnswer> ShowSave(const FileQuestion& question) override;
  int Ask(const std::string& title, const std::string& text,
          const std::vector<std::string>& buttons, int defaultButton) override;
  int AskWith(const std::string& title, const std::string& text, const std::string& detail,
              const std::vector<std::string>& buttons) override;
  ListAnswer AskList(const std::string& title, const std::string& text,
                     const std::vector<std::string>& entries,
                     const std::vector<std::string>& buttons, int defaultButton) override;
  void Warn(const std::string& title, const std::string& text) override;

  /// The window at work, which a box belongs to: another one would be raised above it.
  QWidget* OwnerNow();

 private:
  QPointer<QWidget> atWork_;                // between two boxes in a row no window is active
  std::map<std::string, int> lastFilters_;  // of the dialogs to open, by all their filters; from 1
};

/// One filter of a "text|pattern|" list.
struct NameFilter {
  QString Text, Pattern;
  /// As the toolkit takes it, matching the extension in any case; the last parenthesis is hidden.
  QString ForDialog() const;
  /// The extension of the pattern: "ams".
  QString Suffix() const;
  /// Whether the name has this extension, in any case.
  bool Fits(const QString& name) const;
};
QList<NameFilter> SplitFilters(const std::string& filter);

/// The file to save that a dialog's answer stands for, `path` under the filter of index `chosen`,
/// from 0. An extension of another filter makes it the first one that has it. `proposed`, the name
/// that the dialog began with, was not typed: its extension gives way to the filter's.
FileAnswer SaveAnswer(QString path, int chosen, const QList<NameFilter>& filters,
                      const QString& proposed, bool addsExtension);

/// The chosen paths in the form of `FileAnswer::Filename`: one path as it is, several as the
/// folder, a zero character and the names, each followed by a zero character.
std::string JoinFileList(const QStringList& paths);

}  // namespace velorix
