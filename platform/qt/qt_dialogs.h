#pragma once

#include <QString>
#include <QStringList>

#include "app/dialogs.h"

class QWidget;

namespace velorix {

/// The program's questions as windows over `Owner`.
class QtDialogs : public Dialogs {
 public:
  QWidget* Owner = nullptr;

  std::optional<FileAnswer> ShowOpen(const FileQuestion& question) override;
  std::optional<FileAnswer> ShowSave(const FileQuestion& question) override;
  int Ask(const std::string& title, const std::string& text,
          const std::vector<std::string>& buttons, int defaultButton) override;
  void Warn(const std::string& title, const std::string& text) override;
};

/// One filter of a "text|pattern|" list.
struct NameFilter {
  QString Text, Pattern;
  /// As the toolkit wants it, matching the extension in any case; the last parenthesis is hidden.
  QString ForDialog() const;
  /// The extension of the pattern: "ams".
  QString Suffix() const;
};
QList<NameFilter> SplitFilters(const std::string& filter);

/// The chosen paths in the form of `FileAnswer::Filename`: one path as it is, several as the
/// folder, a zero character and the names, each followed by a zero character.
std::string JoinFileList(const QStringList& paths);

}  // namespace velorix
