#include "store/session.h"

namespace velorix {

void ClearStore(Session& session) {
  session.Records.Clear();
  session.HandGroups.clear();
}

void NoteDataChange(Session& session) { session.DataVersion = ++session.LastVersion; }

void NoteSaved(Session& session) { session.SavedVersion = session.DataVersion; }

std::size_t FileOfRecord(const Session& session, int id) {
  std::size_t file = 0;
  for (int end = 0; file < session.Opened.size(); ++file)
    if (id <= (end += session.Opened[file].Records)) return file;
  return 0;
}

void Renumber(RecordArray& records) {
  std::int16_t no = 0;
  for (SpecimenRecord& record : records) record.RecordNo = ++no;
}

void ReplaceStore(Session& session, RecordArray& records) {
  std::swap(session.Records, records);
  std::swap(session.Spare, records);
  session.Spare.Clear();
  records.Clear();
  session.HandGroups.clear();
  Renumber(session.Records);
  NoteDataChange(session);
  NoteSaved(session);
}

bool IsShown(const SpecimenRecord& record, CoordinateSystem coorSys, TensorBlock reImMode) {
  return record.Active && record.CoorLevel == coorSys && (reImMode != OutOfPhase || record.HasIm);
}

void InvertSelection(RecordArray& records) {
  for (SpecimenRecord& record : records) record.Selected = !record.Selected;
}

void DisregardSelected(RecordArray& records) {
  for (SpecimenRecord& record : records)
    if (record.Selected) record.Selected = record.Active = false;
}

void RestoreAll(RecordArray& records) {
  for (SpecimenRecord& record : records) {
    record.Selected = false;
    record.Active = true;
  }
}

void ClearSelection(RecordArray& records) {
  for (SpecimenRecord& record : records) record.Selected = false;
}

}  // namespace velorix
