#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <variant>
#include <vector>

#include "store/session.h"

namespace velorix {

// Undo and redo of what changes the session. A step holds old values, and undoing it exchanges them
// with those of the session, so that the same step then leads forward again. Nothing is computed
// back, and no data file is touched.

/// Which records are selected and which are in use, of all records.
struct HeldFlags {
  std::vector<bool> Selected, Active;
  bool operator==(const HeldFlags&) const = default;
  void Exchange(Session& session);
  std::size_t Bytes() const { return 2 * sizeof(*this) + (Selected.size() + Active.size()) / 8; }
};

/// The tensors of all records.
struct HeldTensors {
  std::vector<Array1<Number, 6>> Tensors, TensorsIm;
  void Exchange(Session& session);
  std::size_t Bytes() const { return (Tensors.size() + TensorsIm.size()) * sizeof(Tensors[0]); }
};

/// What the orientation editor changes of a record.
struct Orientation {
  int Id = 0;
  CoordinateFlags HasCoor;
  CoordinateSystem CoorLevel = CoordinateSystem::None;
  float OrientAz = 0, OrientInc = 0;
  Array1<std::string, 4> FoliName, LineName;
  Array1<float, 4> FoliAz, FoliDip, LineTrend, LinePlunge;
  Array1<std::int16_t, 4> OP;

  bool operator==(const Orientation&) const = default;
};
struct HeldOrientations {
  std::vector<Orientation> Records;
  void Exchange(Session& session);
  std::size_t Bytes() const { return Records.size() * sizeof(Orientation); }
};

/// The version of the data, behind every change of them.
struct HeldVersion {
  std::int64_t DataVersion = 0;
  void Exchange(Session& session);
  std::size_t Bytes() const { return 0; }
};

/// The groups by hand.
struct HeldHandGroups {
  std::vector<std::string> Names;
  void Exchange(Session& session);
  std::size_t Bytes() const { return Names.size() * sizeof(std::string); }
};

/// The store and its groups by hand.
struct HeldStore {
  RecordArray Records;
  std::vector<std::string> HandGroups;
  std::int64_t DataVersion = 0, SavedVersion = 0;
  void Exchange(Session& session);
  std::size_t Bytes() const { return 0; }  // stores are counted apart
};

/// The files that are open: their names, and how they were read.
struct HeldNames {
  std::string DataFolder, CurrentFile, CurrentExt;
  std::int16_t CurrentFilter = 0;
  std::vector<std::string> OpenFiles;
  std::vector<OpenedFile> Opened;
  std::vector<std::string> FolderFiles;
  int FolderFilePos = 0;
  void Exchange(Session& session);
  std::size_t Bytes() const { return 0; }
};

/// The geological records.
struct HeldGeology {
  RecordArray GeoRecords;
  std::string GeoFile;
  FileStamp GeoStamp;
  void Exchange(Session& session);
  std::size_t Bytes() const {
    return static_cast<std::size_t>(GeoRecords.Count()) * sizeof(SpecimenRecord);
  }
};

/// The orientation parameters and the correction for demagnetisation.
struct HeldParameters {
  Array1<std::int16_t, 4> P;
  bool DemagFac = true;
  void Exchange(Session& session);
  std::size_t Bytes() const { return 0; }
};

using HeldValues = std::variant<HeldFlags, HeldTensors, HeldOrientations, HeldVersion, HeldStore,
                                HeldNames, HeldGeology, HeldParameters, HeldHandGroups>;

/// One step, by what the user did: "Disregard 3 records".
struct Step {
  std::string Text;
  std::vector<HeldValues> Values;

  template <class Held>
  bool Holds() const {
    for (const HeldValues& values : Values)
      if (std::holds_alternative<Held>(values)) return true;
    return false;
  }
};

/// The version of the data now, which then change to a new one.
HeldVersion ChangeVersion(Session& session);

/// Copies of what the session has now.
HeldFlags FlagsOf(const Session& session);
HeldTensors TensorsOf(const Session& session);
HeldOrientations OrientationsOf(const Session& session);
HeldNames NamesOf(const Session& session);
HeldParameters ParametersOf(const Session& session);
/// The store itself, which the session then lacks.
HeldStore TakeStore(Session& session);
/// The geological records themselves.
HeldGeology TakeGeology(Session& session);

/// Takes the records out of `held` that have not changed since; false when none is left.
bool KeepChanged(const Session& session, HeldOrientations& held);
/// Whether a record has other flags than those in `held`.
bool HasChanged(const Session& session, const HeldFlags& held);

/// Exchanges all values of a step with those of the session.
void Exchange(Session& session, Step& step);

/// The steps behind and before the present. At most 100 steps, 256 MB of old values and 3 stores
/// are kept; then the oldest go.
class History {
 public:
  static constexpr std::size_t MostSteps = 100, MostBytes = std::size_t{256} << 20, MostStores = 3;

  /// Adds what was just done; the steps that were undone are gone.
  void Add(Session& session, Step step);
  /// The step that is undone or done again next; null when there is none.
  const Step* NextUndo() const { return done_ == 0 ? nullptr : &steps_[done_ - 1]; }
  const Step* NextRedo() const { return done_ == steps_.size() ? nullptr : &steps_[done_]; }
  /// The paths of the files whose stores have unsaved work and are kept by a step alone.
  std::vector<std::string> UnsavedStores() const;
  /// Undoes a step, does it again; gives the step. There must be one.
  const Step& Undo(Session& session);
  const Step& Redo(Session& session);

 private:
  bool IsTooMuch() const;
  void DropOldest(Session& session);

  std::deque<Step> steps_;
  std::size_t done_ = 0;  // steps that are done; those behind them are undone
};

}  // namespace velorix
