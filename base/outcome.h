#pragma once

#include <string>
#include <utility>

namespace velorix {

/// What a reader or writer answers: done, or refused with the title and text of the box that the
/// user sees; a refusal without a text is a silent one.
struct [[nodiscard]] Outcome {
  bool Done = true;
  std::string Title, Text;
  bool IsWarning = false;  // the box has a warning's icon

  static Outcome Refused(std::string title = {}, std::string text = {}) {
    return {false, std::move(title), std::move(text), false};
  }
  /// With a warning's icon on the box.
  static Outcome Warning(std::string title, std::string text) {
    return {false, std::move(title), std::move(text), true};
  }
  explicit operator bool() const { return Done; }
};

}  // namespace velorix
