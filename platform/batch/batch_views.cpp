#include "platform/batch/batch_views.h"

#include <iostream>

namespace velorix {

std::optional<FileAnswer> BatchDialogs::Next() {
  if (Answers.empty()) return std::nullopt;
  const FileAnswer answer = Answers.front();
  Answers.pop_front();
  return answer;
}

int BatchDialogs::AskToSave(const std::string&, const std::string& text,
                            const std::vector<std::string>&, int) {
  std::cerr << text << "\n";
  return 0;
}

int BatchDialogs::Ask(const std::string& title, const std::string& text,
                      const std::vector<std::string>&, int) {
  std::cerr << title << ": " << text << "\n";
  Complained = true;
  return 0;
}

}  // namespace velorix
