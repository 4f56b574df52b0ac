#include "tensor/derivation.h"

#include <cstddef>

#include "tensor/aniso_factor.h"
#include "tensor/eigen_jk.h"
#include "tensor/rotations.h"

namespace velorix {
namespace {

using Matrix33 = Matrix<3, 3>;

/// The tensor of a block; zeros for a block that doesn't exist.
Matrix33 BlockTensor(const SpecimenRecord& record, TensorBlock reImMode) {
  Matrix33 K;
  if (reImMode == InPhase) TensorForm<ToMatrix>(K, record.Tensor);
  if (reImMode == OutOfPhase) TensorForm<ToMatrix>(K, record.TensorIm);
  return K;
}

/// What a rotation makes of a record, gathered apart: a record is written when all of it is there.
struct Turned {
  Matrix33 K;                                   // the tensor
  Array1<Direction, 2> Foliations, Lineations;  // dip direction and dip; trend and plunge
  CoordinateSystem Level = CoordinateSystem::None;
};

Turned AsStored(const SpecimenRecord& r, TensorBlock reImMode) {
  return {BlockTensor(r, reImMode),
          {{{r.FoliAz[1], r.FoliDip[1]}, {r.FoliAz[2], r.FoliDip[2]}}},
          {{{r.LineTrend[1], r.LinePlunge[1]}, {r.LineTrend[2], r.LinePlunge[2]}}}};
}

/// The principal vectors of a tensor, one a column, and their directions.
struct Principal {
  Matrix33 Vectors;
  Array1<Direction, 3> Directions;
};

/// No `MxSignCopy` follows the solution: its vectors never end in a negative component.
Principal DerivePrincipal(const Matrix33& K) {
  Principal principal;
  Matrix33 D;
  EIGEN_JK(K, D, principal.Vectors);
  principal.Directions = MatrixDirections(principal.Vectors);
  return principal;
}

Direction TurnDirection(const Matrix33& M, const Direction& d) {
  Vector<3> v = DirectionToVector(1, d);
  Mvmpy(M, v, v);
  const DirectionAndLength turned = VectorToDirection(v);
  return LowerHemisphere({turned.Dec, turned.Inc});
}

/// Turns the directions of both slots, whether they hold data or not.
void TurnDirections(Turned& t, const Matrix33& M) {
  for (int i = 1; i <= 2; ++i) {
    t.Foliations[i] = PoleOfPlane(TurnDirection(M, PoleOfPlane(t.Foliations[i])));
    t.Lineations[i] = TurnDirection(M, t.Lineations[i]);
  }
}

/// The plane and the line that a rotation goes by, as they stand in the record.
struct PlaneAndLine {
  bool Found = false;
  Direction Plane, Line;
};

PlaneAndLine ChoosePlaneAndLine(const SpecimenRecord& record, const Turned& t, const View& view) {
  PlaneAndLine chosen;
  // Kept for agreement with published results: of two slots with one code, the second.
  for (int i = 1; i <= 2; ++i) {
    if (record.FoliName[i] != view.FoliCode) continue;
    chosen.Plane = t.Foliations[i];
    if (view.LineCode == "0") {
      chosen.Line = {chosen.Plane.Dec - 90, 0};
    } else if (record.LineName[1] == view.LineCode) {
      chosen.Line = t.Lineations[1];
    } else if (record.LineName[2] == view.LineCode) {
      chosen.Line = t.Lineations[2];
    } else {
      continue;
    }
    chosen.Found = true;
  }
  return chosen;
}

void TurnToPaleogeographic(Turned& t, const SpecimenRecord& record, const View& view,
                           const PlaneAndLine& by) {
  Direction plane = by.Plane;
  if (view.TectoPlane == PaleoPlane::Vertical) plane.Inc -= 90;
  const Matrix33 M = FoliationMatrix(plane, by.Line);
  Mxabat(M, t.K, t.K);
  const Array1<Direction, 2> before = t.Foliations;
  TurnDirections(t, M);
  for (int i = 1; i <= 2; ++i) {
    // Kept for agreement with published results: only the dip is turned, and a dip direction
    // from the line may be negative.
    t.Foliations[i].Dec = before[i].Dec;
    if (record.LineName[i] == view.LineCode) {
      t.Foliations[i].Dec = t.Lineations[i].Dec - 90;
      t.Lineations[i].Inc = 0;
    }
  }
  t.Level = Paleogeographic;
}

void TurnToTectonic(Turned& t, const View& view, const Direction& line) {
  const double target = view.TectoEastWest ? 90 : 0;
  // Kept for agreement with published results: the stored trend, not the one just turned.
  const double apart = AngleBetween({target, 0}, {line.Dec, 0});
  const double from = apart > 90 && view.TectoNorthSouth ? line.Dec + 180 : line.Dec;
  const Matrix33 M = VerticalRotation(target - from);
  Mxabat(M, t.K, t.K);
  TurnDirections(t, M);
  t.Level = Tectonic;
}

/// Makes Kmin vertical and brings Kmax to the north-south line. No view asks for it.
void TurnToPrincipal(Turned& t) {
  const Array1<Direction, 3> axes = DerivePrincipal(t.K).Directions;
  const Direction kmax = axes[1], kmin = axes[3];
  Mxabat(FoliationMatrix({kmin.Dec - 180, 90 - kmin.Inc}, kmax), t.K, t.K);
  const double trend = DerivePrincipal(t.K).Directions[1].Dec;
  const double from = AngleBetween({0, 0}, {trend, 0}) > 90 ? trend : trend - 180;
  Mxabat(VerticalRotation(-from), t.K, t.K);
}

/// A staircase: each system continues from the one below it.
void TurnToView(Turned& t, const SpecimenRecord& record, const View& view) {
  if (view.CoorSys == CoordinateSystem::None) return TurnToPrincipal(t);
  if (record.HasCoor[static_cast<int>(Specimen)]) t.Level = Specimen;
  if (view.CoorSys == Specimen) return;

  if (record.SourceProgram != "Marlo") {  // its tensors are geographic already
    const Matrix33 M = OrientationMatrix(record.OrientAz, record.OrientInc, record.OP[1],
                                         record.OP[2], record.OP[3]);
    Mxabat(M, t.K, t.K);
  }
  t.Level = Geographic;
  if (view.CoorSys == Geographic) return;

  const PlaneAndLine by = ChoosePlaneAndLine(record, t, view);
  if (!by.Found) return;
  TurnToPaleogeographic(t, record, view, by);
  if (view.CoorSys == Tectonic) TurnToTectonic(t, view, by.Line);
}

void Store(const Turned& t, const Principal& principal, SpecimenRecord& record) {
  record.CoorLevel = t.Level;
  TensorForm<ToForm>(t.K, record.TensorRot);
  for (int j = 1; j <= 3; ++j) {
    record.Dec[j] = principal.Directions[j].Dec;
    record.Inc[j] = principal.Directions[j].Inc;
    for (int i = 1; i <= 3; ++i) record.Vec[i][j] = principal.Vectors(i, j);
  }
  for (int i = 1; i <= 2; ++i) {
    record.FoliDec[i] = t.Foliations[i].Dec;
    record.FoliInc[i] = t.Foliations[i].Inc;
    record.LineDec[i] = t.Lineations[i].Dec;
    record.LineInc[i] = t.Lineations[i].Inc;
  }
}

/// Asks the memory for the whole record while its eigenvalues are computed: a store is larger than
/// the caches, and a record spreads over more lines than a processor foresees.
void Fetch([[maybe_unused]] const SpecimenRecord& record) {
#if defined(__GNUC__)
  for (std::size_t i = 0; i < sizeof record; i += 64)
    __builtin_prefetch(reinterpret_cast<const char*>(&record) + i, 1);
#endif
}

}  // namespace

View ViewOf(const Session& session) {
  return {session.CoorSys,    session.ReImMode,        session.FoliCode,     session.LineCode,
          session.TectoPlane, session.TectoNorthSouth, session.TectoEastWest};
}

bool DeriveFactors(SpecimenRecord& record, const Array1<std::int16_t, FactorSlots>& facIndex,
                   TensorBlock reImMode) {
  if (reImMode == OutOfPhase && !record.HasIm) return false;
  Fetch(record);
  const Vector<3> k = EigenvaluesJK(BlockTensor(record, reImMode));
  const FactorInput input(k[1], k[2], k[3]);
  for (int i = 1; i <= 3; ++i) record.K[i] = k[i];
  for (int i = 1; i <= FactorSlots; ++i)
    record.Fac[i] = FactorIn32(AnisoFactor(facIndex[i], input));
  return true;
}

bool RotateRecord(SpecimenRecord& record, const View& view) {
  if (view.ReImMode == OutOfPhase && !record.HasIm) return false;
  Turned t = AsStored(record, view.ReImMode);
  TurnToView(t, record, view);
  // The level reached is stored here with the rest, so that a rotation that fails on its way leaves
  // the record as it was instead of shown with the old directions at a new level.
  Store(t, DerivePrincipal(t.K), record);
  return true;
}

Vector<6> RotatedTensor(const SpecimenRecord& record, const View& view) {
  Turned t = AsStored(record, view.ReImMode);
  TurnToView(t, record, view);
  Vector<6> tensor;
  TensorForm<ToForm>(t.K, tensor);
  return tensor;
}

}  // namespace velorix
