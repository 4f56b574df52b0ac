#include "app/pictures/style_file.h"

#include <fstream>

#include "datafiles/bytes/safe_write.h"
#include "text/paths.h"

namespace velorix {

Outcome ReadStyleFile(const std::string& path, FigureStyle& style) {
  constexpr std::size_t MostBytes = 1 << 16;
  std::ifstream file(PathOf(path), std::ios::binary);
  std::string text(MostBytes + 1, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  if (file.bad() || (file.fail() && !file.eof()))
    return Outcome::Refused(path, "This style file could not be read.");
  if (text.size() > MostBytes)
    return Outcome::Refused(path, "This is no style file: it is too long.");
  Outcome outcome = ReadStyle(text, style);
  if (!outcome) outcome.Title = path;
  return outcome;
}

void WriteStyleFile(const std::string& path, const FigureStyle& style) {
  SafeWrite(path, [&style](std::ostream& out) { out << StyleText(style); });
}

std::string KeptStyleFile(const std::string& appFolder) {
  return JoinPath(appFolder, "Figure.style");
}

std::optional<std::string> AskForStyleFile(const Session& session, Dialogs& dialogs,
                                           FileAction action) {
  FileQuestion question =
      SaveQuestion(session, action == FileAction::Save ? "Save style" : "Load style");
  question.Filter = FilterText("Figure styles", "style");
  const auto answer = action == FileAction::Save
                          ? AskWhereToSave(dialogs, question)
                          : AskForFile(dialogs, action, question, [](const FileAnswer& chosen) {
                              return FileExists(chosen.Filename);
                            });
  return answer ? std::optional(answer->Filename) : std::nullopt;
}

}  // namespace velorix
