#pragma once

#include <functional>
#include <span>
#include <string>

#include "base/outcome.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/formats/file_content.h"
#include "datafiles/formats/holdings.h"
#include "store/record_array.h"
#include "store/settings.h"

namespace velorix {

/// Appends the records of a file; what the file leaves open comes from the settings.
using FileReader = Outcome (*)(const std::string& path, RecordArray& records,
                               const Settings& settings);

/// Calls `visit` for each record of a file, and adds to `ofFile` what is lost and belongs to no
/// record. Refuses as the reader.
using FileVisitor = Outcome (*)(const std::string& path, const Settings& settings,
                                const VisitHeld& visit, Unwritten& ofFile);

/// Writes all records, or the selected ones, in place of a file, which goes or stays beside it.
using FileWriter = Outcome (*)(const std::string& path, const RecordArray& records, bool all,
                               FormerFile former);

/// Calls `visit` for each record that a writer would write, with what its file gives when it is
/// read: what is compared one by one, other fields may be missing; and with its form there.
using VisitStored = std::function<void(const SpecimenRecord& record, const SpecimenRecord& stored,
                                       const StoredForm& form)>;
using ForEachStored = void (*)(const RecordArray& records, bool all, const Settings& settings,
                               const VisitStored& visit);

/// A kind of data files. The one table of the kinds serves the dialogs to open and to save, the
/// orientation editor, the console and files that are dropped on the window.
struct FileKind {
  const char* Word;         // of the console: "ams"
  const char* Extension;    // "ams"
  const char* OpenCaption;  // of the filter to open: "AMS-file(s)"
  const char* SaveCaption;  // of the filter to save: "AMS file"
  ContentKind Content;      // what its files contain
  int CodeLetters;          // of a foliation or lineation that it writes, else 0
  FileReader Read, Reload;
  FileVisitor Visit;
  FileWriter Write;  // null: files of this kind are only read, and have no filter to save
  velorix::ForEachStored ForEachStored;  // null as well
};

/// The kinds in the order of the filters to open, which count from 1.
std::span<const FileKind> FileKinds();

/// The kind of a filter to open; "Subscript out of range" when there is no such filter.
const FileKind& KindOfFilter(int filter);

/// The filter to open for a file's extension, 0 when there is none. An extension in exactly these
/// letters goes before one in others: "AMS" is the SI2B text format, "ams" and "Ams" the binary
/// one.
int FilterOfExtension(const std::string& extension);

/// The kinds that can be written, by their filter to save, which counts from 1; the first one when
/// there is no such filter.
const FileKind& KindToSave(int filter);
/// The filter to save for a path's extension in any case of letters, 0 when there is none.
int SaveFilterOf(const std::string& path);
/// The kind that can be written with an extension in exactly these letters, null when there is
/// none.
const FileKind* KindToWrite(const std::string& extension);

/// All filters of the dialogs. Those to open end without a bar.
std::string OpenFilters();
std::string SaveFilters();

}  // namespace velorix
