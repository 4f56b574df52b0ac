#pragma once

#include "app/state/velorix.h"

namespace velorix {

/// What a save dialog shows, but for its filters: a file of the open one's name, in its folder.
FileQuestion SaveQuestion(const Session& session, const char* title);
/// Asks until the name is one that no file has, or the user lets the old file be written over. No
/// answer when the user cancelled.
std::optional<FileAnswer> AskWhereToSave(Velorix& velorix, FileQuestion question);
/// Tells in the status line that a file has been written.
void TellWritten(Velorix& velorix, const std::string& path);
/// Whether something has this name. What can't be looked at counts as nothing: writing it tells.
bool HasFile(const std::string& path);

/// Asks for a name and writes the whole store there, disregarded records too.
void SaveAs(Velorix& velorix);
/// As `SaveAs`, with the selected records only.
void SaveSelectedAs(Velorix& velorix);
/// Writes the store over the open file, as a RAN file whatever the file was.
void SaveFile(Velorix& velorix);

}  // namespace velorix
