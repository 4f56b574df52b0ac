#include "app/state/history.h"

#include <cassert>
#include <utility>

namespace velorix {
namespace {

/// Exchanges the flag of each record with the one in `held`. A vector of flags has no references.
void ExchangeFlags(RecordArray& records, bool SpecimenRecord::*flag, std::vector<bool>& held) {
  std::size_t i = 0;
  for (SpecimenRecord& record : records) {
    const bool old = held[i];
    held[i++] = std::exchange(record.*flag, old);
  }
}

Orientation OrientationOf(const SpecimenRecord& r) {
  return {r.RecordNo, r.HasCoor, r.CoorLevel, r.OrientAz,  r.OrientInc,  r.FoliName,
          r.LineName, r.FoliAz,  r.FoliDip,   r.LineTrend, r.LinePlunge, r.OP};
}

void Swap(SpecimenRecord& record, Orientation& held) {
  std::swap(record.HasCoor, held.HasCoor);
  std::swap(record.CoorLevel, held.CoorLevel);
  std::swap(record.OrientAz, held.OrientAz);
  std::swap(record.OrientInc, held.OrientInc);
  std::swap(record.FoliName, held.FoliName);
  std::swap(record.LineName, held.LineName);
  std::swap(record.FoliAz, held.FoliAz);
  std::swap(record.FoliDip, held.FoliDip);
  std::swap(record.LineTrend, held.LineTrend);
  std::swap(record.LinePlunge, held.LinePlunge);
  std::swap(record.OP, held.OP);
}

/// The memory of a store that goes serves the next read.
void GiveBack(Session& session, HeldStore& store) {
  if (store.Records.Empty()) return;
  session.Spare = std::move(store.Records);
  session.Spare.Clear();
}

std::size_t BytesOf(const Step& step) {
  std::size_t bytes = sizeof step;
  for (const HeldValues& values : step.Values)
    bytes += std::visit([](const auto& held) { return held.Bytes(); }, values);
  return bytes;
}

}  // namespace

void HeldFlags::Exchange(Session& session) {
  assert(static_cast<int>(Selected.size()) == session.RecordCount());
  ExchangeFlags(session.Records, &SpecimenRecord::Selected, Selected);
  ExchangeFlags(session.Records, &SpecimenRecord::Active, Active);
}

void HeldTensors::Exchange(Session& session) {
  std::size_t i = 0;
  for (SpecimenRecord& record : session.Records) {
    std::swap(record.Tensor, Tensors[i]);
    std::swap(record.TensorIm, TensorsIm[i++]);
  }
}

void HeldOrientations::Exchange(Session& session) {
  for (Orientation& held : Records) Swap(session.Records[held.Id], held);
}

void HeldVersion::Exchange(Session& session) { std::swap(DataVersion, session.DataVersion); }

void HeldHandGroups::Exchange(Session& session) { std::swap(Names, session.HandGroups); }

void HeldStore::Exchange(Session& session) {
  std::swap(Records, session.Records);
  std::swap(HandGroups, session.HandGroups);
  std::swap(DataVersion, session.DataVersion);
  std::swap(SavedVersion, session.SavedVersion);
}

void HeldNames::Exchange(Session& session) {
  std::swap(DataFolder, session.DataFolder);
  std::swap(CurrentFile, session.CurrentFile);
  std::swap(CurrentExt, session.CurrentExt);
  std::swap(CurrentFilter, session.CurrentFilter);
  std::swap(OpenFiles, session.OpenFiles);
  std::swap(Opened, session.Opened);
  std::swap(FolderFiles, session.FolderFiles);
  std::swap(FolderFilePos, session.FolderFilePos);
}

void HeldGeology::Exchange(Session& session) {
  std::swap(GeoRecords, session.GeoRecords);
  std::swap(GeoFile, session.GeoFile);
  std::swap(GeoStamp, session.GeoStamp);
}

void HeldParameters::Exchange(Session& session) {
  std::swap(P, session.Settings.P);
  std::swap(DemagFac, session.Settings.DemagFac);
}

HeldFlags FlagsOf(const Session& session) {
  HeldFlags held;
  for (const SpecimenRecord& record : session.Records) {
    held.Selected.push_back(record.Selected);
    held.Active.push_back(record.Active);
  }
  return held;
}

HeldTensors TensorsOf(const Session& session) {
  HeldTensors held;
  for (const SpecimenRecord& record : session.Records) {
    held.Tensors.push_back(record.Tensor);
    held.TensorsIm.push_back(record.TensorIm);
  }
  return held;
}

HeldOrientations OrientationsOf(const Session& session) {
  HeldOrientations held;
  held.Records.reserve(static_cast<std::size_t>(session.RecordCount()));
  for (const SpecimenRecord& record : session.Records)
    held.Records.push_back(OrientationOf(record));
  return held;
}

bool KeepChanged(const Session& session, HeldOrientations& held) {
  std::erase_if(held.Records, [&session](const Orientation& old) {
    return OrientationOf(session.Records[old.Id]) == old;
  });
  return !held.Records.empty();
}

bool HasChanged(const Session& session, const HeldFlags& held) { return FlagsOf(session) != held; }

HeldVersion ChangeVersion(Session& session) {
  const HeldVersion held{session.DataVersion};
  NoteDataChange(session);
  return held;
}

HeldNames NamesOf(const Session& session) {
  return {session.DataFolder, session.CurrentFile, session.CurrentExt,  session.CurrentFilter,
          session.OpenFiles,  session.Opened,      session.FolderFiles, session.FolderFilePos};
}

HeldParameters ParametersOf(const Session& session) {
  return {session.Settings.P, session.Settings.DemagFac};
}

HeldStore TakeStore(Session& session) {
  return {std::exchange(session.Records, {}), std::exchange(session.HandGroups, {}),
          session.DataVersion, session.SavedVersion};
}

HeldGeology TakeGeology(Session& session) {
  return {std::exchange(session.GeoRecords, {}), std::exchange(session.GeoFile, {}),
          std::exchange(session.GeoStamp, {})};
}

void Exchange(Session& session, Step& step) {
  for (HeldValues& values : step.Values)
    std::visit([&session](auto& held) { held.Exchange(session); }, values);
}

void History::Add(Session& session, Step step) {
  steps_.resize(done_);
  steps_.push_back(std::move(step));
  done_ = steps_.size();
  while (steps_.size() > 1 && IsTooMuch()) DropOldest(session);
}

std::vector<std::string> History::UnsavedStores() const {
  std::vector<std::string> paths;
  for (const Step& step : steps_) {
    bool unsaved = false;
    std::string path;
    for (const HeldValues& values : step.Values) {
      if (const auto* const store = std::get_if<HeldStore>(&values))
        unsaved = store->DataVersion != store->SavedVersion;
      if (const auto* const names = std::get_if<HeldNames>(&values)) path = names->CurrentFile;
    }
    if (unsaved) paths.push_back(path);
  }
  return paths;
}

const Step& History::Undo(Session& session) {
  Step& step = steps_[--done_];
  Exchange(session, step);
  return step;
}

const Step& History::Redo(Session& session) {
  Step& step = steps_[done_++];
  Exchange(session, step);
  return step;
}

bool History::IsTooMuch() const {
  std::size_t bytes = 0, stores = 0;
  for (const Step& step : steps_) {
    bytes += BytesOf(step);
    stores += step.Holds<HeldStore>();
  }
  return steps_.size() > MostSteps || bytes > MostBytes || stores > MostStores;
}

void History::DropOldest(Session& session) {
  for (HeldValues& values : steps_.front().Values)
    if (auto* const store = std::get_if<HeldStore>(&values)) GiveBack(session, *store);
  steps_.pop_front();
  --done_;
}

}  // namespace velorix
