#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/coordinates.h"
#include "store/record_array.h"
#include "store/settings.h"

namespace velorix {

/// All that a session holds: the store of records and how it is looked at. `main` owns one and
/// hands it on by reference; a test makes its own. Paths and names are UTF-8.
struct Session {
  RecordArray Records;
  RecordArray GeoRecords;  // the geological file in hand: names and geological fields only

  CoordinateSystem CoorSys = Geographic;
  PaleoPlane TectoPlane = PaleoPlane::Horizontal;
  bool TectoNorthSouth = false, TectoEastWest = false;
  std::string FoliCode, LineCode;  // codes in use for the rotation
  TensorBlock ReImMode = InPhase;

  std::string DataFolder;       // folder of the last data file, without a separator at its end
  std::string CurrentFile;      // full path; empty when no file is open
  std::string CurrentFileBase;  // the path without the extension
  std::string CurrentExt;
  std::int16_t CurrentFilter = 0;        // 1..6, selects the reader
  std::vector<std::string> OpenFiles;    // paths of the files that make up the store
  std::vector<std::string> FolderFiles;  // names of their like in DataFolder, as listed
  int FolderFilePos = 0;                 // position of the open file there, from 1
  std::string GeoFile;                   // path of the first file in GeoRecords
  std::string SettingsFile;
  velorix::Settings Settings;

  RecordArray Spare;  // the memory of the former store, kept for the next read

  int RecordCount() const { return Records.Count(); }
};

/// Erases the store.
void ClearStore(Session& session);

/// Sets each record's `RecordNo` to its index, 1 to N.
void Renumber(RecordArray& records);

/// Puts `records` in the store in place of what it held and renumbers it. `records` is left empty.
void ReplaceStore(Session& session, RecordArray& records);

/// Whether a view shows the record: in use, rotated to the system in view and, for the out-of-phase
/// block, in possession of one. Grids, plots and the group's mean tensor go by this test. The
/// group's averages, the contours and a box drawn on a plot don't ask for the out-of-phase block.
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
