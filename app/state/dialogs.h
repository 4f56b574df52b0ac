#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/outcome.h"

namespace velorix {

/// What the user chose: one path, or for several files the folder, a zero character and the names,
/// each followed by a zero character (a name may be a full path); and the filter, counted from 1.
/// An answer to open may name files that do not exist. In one to save, an extension that a filter
/// of the dialog has is the chosen filter's.
struct FileAnswer {
  std::string Filename;
  int FilterIndex = 1;
};

/// What a file dialog is asked to show.
struct FileQuestion {
  std::string Title;
  std::string Filter;         // "text|pattern|" pairs, as `FilterText` makes them
  std::string Folder;         // initial folder, empty for the host's own choice
  std::string DefaultName;    // proposed when saving, without the extension, which the dialog adds
  bool Multi = false;         // several files may be chosen
  int MaxFileSize = 2048;     // characters that the answer's text may have
  bool AddsExtension = true;  // the filter's, to a name to save that is typed without one
  std::optional<FileAnswer> Again = {};  // an answer that the dialog shows again
};

/// The button chosen in a box with a list, and the entry marked there; both count from 0.
struct ListAnswer {
  int Button = 0, Entry = 0;
};

/// The questions that the program asks. Windows, the console's arguments and scripts in tests
/// answer.
struct Dialogs {
  /// Called with title and text of a box that refused something, after it.
  std::function<void(const std::string& title, const std::string& text)> OnRefusal = {};

  virtual ~Dialogs() = default;
  /// No answer when the user cancelled.
  virtual std::optional<FileAnswer> ShowOpen(const FileQuestion& question) = 0;
  virtual std::optional<FileAnswer> ShowSave(const FileQuestion& question) = 0;
  /// A box with the buttons' captions ("&Yes"); gives the index of the chosen one, from 0. Closing
  /// the box chooses the last.
  virtual int Ask(const std::string& title, const std::string& text,
                  const std::vector<std::string>& buttons, int defaultButton = 0) = 0;
  /// A box with "&Yes" and "&No", the default. True for "&Yes".
  virtual bool AskYesNo(const std::string& title, const std::string& text) {
    return Ask(title, text, {"&Yes", "&No"}, 1) == 0;
  }
  /// The box before a save that loses something of the old file; the first button saves.
  virtual int AskToSave(const std::string& title, const std::string& text,
                        const std::vector<std::string>& buttons, int defaultButton) {
    return Ask(title, text, buttons, defaultButton);
  }
  /// A box with smaller text below, which may be empty.
  virtual int AskWith(const std::string& title, const std::string& text,
                      [[maybe_unused]] const std::string& detail,
                      const std::vector<std::string>& buttons) {
    return Ask(title, text, buttons);
  }
  /// A box with a list, in which one entry is marked, the first to begin with. Choosing an entry by
  /// a double click or the Enter key chooses the default button. Without a list to choose from, the
  /// entries stand in the text.
  virtual ListAnswer AskList(const std::string& title, const std::string& text,
                             const std::vector<std::string>& entries,
                             const std::vector<std::string>& buttons, int defaultButton);
  /// A box with a warning's icon, where there are icons, and the one button "OK".
  virtual void Warn(const std::string& title, const std::string& text) { Ask(title, text, {"OK"}); }
};

/// A box that refuses what the user asked for, with one button; `OnRefusal` follows.
void Refuse(Dialogs& dialogs, const std::string& title, const std::string& text,
            const char* button = "&OK");

/// `Show`, and `OnRefusal` follows.
void ShowRefusal(Dialogs& dialogs, const Outcome& outcome, const char* button = "&OK");

/// Shows why a reader or writer refused, in a box with the one button `button`; a warning in a
/// warning's box. Nothing is shown for a silent refusal, nor for what was done.
void Show(Dialogs& dialogs, const Outcome& outcome, const char* button = "&OK");

}  // namespace velorix
