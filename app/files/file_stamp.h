#pragma once

#include <string>

#include "store/session.h"

namespace velorix {

/// The file's stamp now; an empty one when there is no such file.
FileStamp StampOf(const std::string& path);

/// Whether the file still has the bytes of that stamp. They are read only when its time is another.
bool IsUnchanged(const std::string& path, const FileStamp& stamp);

/// The position of `path` in `OpenFiles`, from 0, whatever way its path is written; their number
/// when it is none of them.
std::size_t PositionOfOpen(const Session& session, const std::string& path);

/// Notes that an open file has just been written by this program.
void NoteWritten(Session& session, const std::string& path);

}  // namespace velorix
