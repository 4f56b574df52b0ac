#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "store/coordinates.h"
#include "store/record_array.h"
#include "store/settings.h"

namespace velorix {

/// What shows whether a file was written since: its size, the time of its last change, and a sum
/// over its bytes, which counts when only the time is another.
struct FileStamp {
  std::uintmax_t Size = 0;
  std::filesystem::file_time_type Time = {};
  std::uint64_t Sum = 0;

  bool operator==(const FileStamp&) const = default;
};

/// A file as it was read: by which reader, how many records it gave, and its stamp then.
struct OpenedFile {
  int Filter = 0;
  int Records = 0;
  bool Reloaded = false;  // by the reader of Reload, Open Previous and Open Next
  FileStamp Stamp;
};

/// All that a session holds: the store of records and how it is looked at. `main` owns one and
/// hands it on by reference; a test makes its own. Paths and names are UTF-8.
struct Session {
  RecordArray Records;
  // The name of each record's group by hand, in the order of the records; empty before any is made.
  std::vector<std::string> HandGroups;
  RecordArray GeoRecords;  // the geological file in hand: names and geological fields only

  CoordinateSystem CoorSys = Geographic;
  PaleoPlane TectoPlane = PaleoPlane::Horizontal;
  bool TectoNorthSouth = false, TectoEastWest = false;
  std::string FoliCode, LineCode;  // codes in use for the rotation
  TensorBlock ReImMode = InPhase;

  std::string DataFolder;   // folder of the last data file, without a separator at its end
  std::string CurrentFile;  // full path; empty when no file is open
  std::string CurrentExt;
  std::int16_t CurrentFilter = 0;        // 1..6, selects the reader
  std::vector<std::string> OpenFiles;    // paths of the files that make up the store
  std::vector<OpenedFile> Opened;        // the same files as they were read; empty if they were not
  std::vector<std::string> FolderFiles;  // names of their like in DataFolder, as listed
  int FolderFilePos = 0;                 // position of the open file there, from 1
  std::string GeoFile;                   // path of the first file in GeoRecords
  FileStamp GeoStamp;                    // of that file as it was read or written
  std::string SettingsFile;
  velorix::Settings Settings;
  velorix::Preferences Preferences;

  // Each change of the records' data, orientations and tensors, gives them a version of its own.
  std::int64_t DataVersion = 0, LastVersion = 0;  // of the data now, and the highest one given
  std::int64_t SavedVersion = 0;                  // of the data that stand in a file

  RecordArray Spare;  // the memory of the former store, kept for the next read

  int RecordCount() const { return Records.Count(); }
  /// Whether the data differ from those in any file.
  bool IsUnsaved() const { return DataVersion != SavedVersion; }
};

/// Notes that the records' data have changed, or that they stand in a file as they are.
void NoteDataChange(Session& session);
void NoteSaved(Session& session);

/// The position in `OpenFiles`, from 0, of the file that gave record `id`; of the first one when
/// the files do not say.
std::size_t FileOfRecord(const Session& session, int id);

/// Erases the store and the groups by hand.
void ClearStore(Session& session);

/// Sets each record's `RecordNo` to its index, 1 to N.
void Renumber(RecordArray& records);

/// Puts `records` in the store in place of what it held and renumbers it; the data are those of a
/// file. `records` is left empty, its memory and that of the former store go to `Spare`. No groups
/// by hand are left.
void ReplaceStore(Session& session, RecordArray& records);

/// Whether a view shows the record: in use, rotated to the system in view and, for the out-of-phase
/// block, with one. Grids, plots and the group's mean tensor go by this test. Kept for agreement
/// with published results: the group's averages, the contours and a box drawn on a plot don't ask
/// for the out-of-phase block.
bool IsShown(const SpecimenRecord& record, CoordinateSystem coorSys, TensorBlock reImMode);

/// Calls `visit(record)` for each record that a view shows, in store order.
template <class Visit>
void ForEachActive(const Session& session, Visit visit) {
  for (const SpecimenRecord& record : session.Records)
    if (IsShown(record, session.CoorSys, session.ReImMode)) visit(record);
}

/// The selection commands.
void InvertSelection(RecordArray& records);
void DisregardSelected(RecordArray& records);
void RestoreAll(RecordArray& records);
void ClearSelection(RecordArray& records);

}  // namespace velorix
