#include "app/files/file_kinds.h"

#include <algorithm>
#include <vector>

#include "app/files/ask_file.h"
#include "base/fault.h"
#include "datafiles/formats/ams_file.h"
#include "datafiles/formats/asc_file.h"
#include "datafiles/formats/ran_file.h"
#include "datafiles/formats/si2b_file.h"
#include "datafiles/formats/spin_file.h"
#include "text/paths.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

/// A reader whose files leave nothing to the settings.
template <Outcome (*Read)(const std::string&, RecordArray&)>
Outcome Plain(const std::string& path, RecordArray& records, const Settings&) {
  return Read(path, records);
}

/// Visits by way of an array; nothing is known of what the reader passes over.
template <FileReader Read>
Outcome VisitRead(const std::string& path, const Settings& settings, const VisitHeld& visit,
                  Unwritten&) {
  RecordArray records;
  Outcome outcome = Read(path, records, settings);
  if (outcome)
    for (const SpecimenRecord& record : records) visit.Visit({record.Name, AmsRowsOf(record), {}});
  return outcome;
}

Outcome VisitAms(const std::string& path, const Settings&, const VisitHeld& visit,
                 Unwritten& ofFile) {
  return VisitHeldAms(path, visit, ofFile);
}

Outcome ReloadAmsInPhase(const std::string& path, RecordArray& records, const Settings&) {
  return ReloadAmsFile(path, records, false);
}

Outcome WriteAms(const std::string& path, const RecordArray& records, bool all, FormerFile former) {
  return WriteAmsFile(path, records, false, all, former);
}

Outcome WriteRan(const std::string& path, const RecordArray& records, bool all, FormerFile former) {
  return WriteRanFile(path, records, false, all, {}, former);
}

void ForEachStoredAms(const RecordArray& records, bool all, const Settings&,
                      const VisitStored& visit) {
  VisitStoredAms(records, all, visit);
}

void ForEachStoredRan(const RecordArray& records, bool all, const Settings& settings,
                      const VisitStored& visit) {
  RecordArray stored;
  if (!ReadRanBytes(RanBytes({}, records, all), "", stored, settings)) return;
  int i = 0;
  for (const SpecimenRecord& record : records)
    if (all || record.Selected) {
      const SpecimenRecord& back = stored[++i];
      visit(record, back, {{}, AmsRowsOf(back)});
    }
}

// clang-format off
constexpr FileKind Kinds[] = {
    // word, extension, captions to open and to save, content, letters of a code, read, reload, visit, write, what is read of what was written
    {"ams",  "ams", "AMS-file(s)",      "AMS file", ContentKind::Ams,  2, Plain<ReadAmsFile>, ReloadAmsInPhase,   VisitAms,                      WriteAms, ForEachStoredAms},
    {"ran",  "ran", "RAN-file(s)",      "RAN file", ContentKind::Ran,  1, ReadRanFile,        ReadRanFile,        VisitHeldRan,                  WriteRan, ForEachStoredRan},
    {"are",  "are", "ARE-file(s)",      "",         ContentKind::Ran,  0, ReadRanFile,        ReadRanFile,        VisitHeldRan,                  nullptr,  nullptr},
    {"asc",  "asc", "ASC-file(s)",      "",         ContentKind::Text, 0, Plain<ReadAscFile>, Plain<ReadAscFile>, VisitRead<Plain<ReadAscFile>>, nullptr,  nullptr},
    {"si2b", "AMS", "SI2B AMS-file(s)", "",         ContentKind::Text, 0, ReadSi2bFile,       ReadSi2bFile,       VisitRead<ReadSi2bFile>,       nullptr,  nullptr},
    {"spin", "txt", "AMSSpin-file(s)",  "",         ContentKind::Text, 0, ReadSpinFile,       ReadSpinFile,       VisitRead<ReadSpinFile>,       nullptr,  nullptr},
};
// clang-format on

/// The kinds that can be written, in the order of the filters to save.
std::vector<const FileKind*> KindsToSave() {
  std::vector<const FileKind*> kinds;
  for (const FileKind& kind : Kinds)
    if (kind.Write) kinds.push_back(&kind);
  return kinds;
}

/// The position, from 1, of the first of the kinds that has the extension; 0 when none has it.
template <class Has>
int PositionOf(Has has) {
  const auto kind = std::find_if(std::begin(Kinds), std::end(Kinds), has);
  return kind == std::end(Kinds) ? 0 : static_cast<int>(kind - std::begin(Kinds)) + 1;
}

}  // namespace

std::span<const FileKind> FileKinds() { return Kinds; }

const FileKind& KindOfFilter(int filter) {
  if (filter < 1 || filter > static_cast<int>(std::size(Kinds))) FailSubscript();
  return Kinds[filter - 1];
}

int FilterOfExtension(const std::string& extension) {
  const int exact = PositionOf([&](const FileKind& kind) { return extension == kind.Extension; });
  if (exact != 0) return exact;
  const std::string upper = UpperCase(extension);
  return PositionOf([&](const FileKind& kind) { return upper == UpperCase(kind.Extension); });
}

const FileKind& KindToSave(int filter) {
  const auto kinds = KindsToSave();
  return *kinds[filter >= 1 && filter <= std::ssize(kinds) ? static_cast<std::size_t>(filter - 1)
                                                           : 0];
}

int SaveFilterOf(const std::string& path) {
  const std::string upper = UpperCase(ExtensionOf(path));
  int filter = 0;
  for (const FileKind* kind : KindsToSave())
    if (++filter; upper == UpperCase(kind->Extension)) return filter;
  return 0;
}

const FileKind* KindToWrite(const std::string& extension) {
  for (const FileKind* kind : KindsToSave())
    if (extension == kind->Extension) return kind;
  return nullptr;
}

std::string OpenFilters() {
  std::string filters;
  for (const FileKind& kind : Kinds) filters += FilterText(kind.OpenCaption, kind.Extension);
  filters.pop_back();
  return filters;
}

std::string SaveFilters() {
  std::string filters;
  for (const FileKind* kind : KindsToSave())
    filters += FilterText(kind->SaveCaption, kind->Extension);
  return filters;
}

}  // namespace velorix
