#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/number.h"
#include "base/slots.h"
#include "store/coordinates.h"
#include "store/factors.h"

namespace velorix {

/// One measured specimen, a plain record; the fields stand in the order in which the program lists
/// them. A new record is empty: numbers 0 or unset, texts empty, booleans false. Angles are
/// degrees, declinations clockwise from north, inclinations positive downward; tensors are in the
/// order k11, k22, k33, k12, k23, k13 in axes north, east, down (or the specimen's X, Y, Z).
struct SpecimenRecord {
  // Identification and measurement conditions
  std::string Name;
  std::int16_t RecordNo = 0;  // 1..N within the store
  bool Active = false;        // false: disregarded by views and statistics, kept by writers
  std::int16_t MeasMode = 0;  // -1 AMS(H), 0 3D, 1 1A, 2 MAN
  std::string RunTag;         // this and FieldAux, RunStamp, RunAux*: carried unchanged
  float Field = 0;            // A/m
  float FieldAux = 0;
  std::int16_t FreqIndex = 0;  // 0 fixed frequency, 1..3 of the multi-frequency instrument
  std::string FreqName;
  float Frequency = 0;  // Hz
  std::string Instrument;
  std::string SourceProgram;  // "Marlo": the tensor stands in geographic coordinates already
  std::array<std::uint8_t, 8> RunStamp = {};
  std::array<std::uint8_t, 4> RunAux1 = {};
  std::int16_t RunAux2 = 0;
  std::array<std::uint8_t, 4> RunAux3 = {};
  std::array<std::uint8_t, 4> RunAux4 = {};

  // Geological data
  std::string Site;
  float Lon = 0, Lat = 0, GeoAux = 0;  // GeoAux: carried unchanged
  std::string Rock, Strat, Litho, Regio;
  Array1<std::int16_t, 4> OP;                           // orientation parameters P1..P4
  CoordinateSystem CoorLevel = CoordinateSystem::None;  // reached by the last rotation
  CoordinateFlags HasCoor;
  float OrientAz = 0, OrientInc = 0;
  Array1<std::string, 4> FoliName;  // slots 1 and 2 are used
  Array1<float, 4> FoliAz, FoliDip;
  Array1<Number, 4> FoliDec, FoliInc;  // in the coordinate system in view
  Array1<std::string, 4> LineName;
  Array1<float, 4> LineTrend, LinePlunge;
  Array1<Number, 4> LineDec, LineInc;  // in the coordinate system in view

  // In-phase block; K, TensorRot, Dec, Inc and Vec hold the block in view after a display
  double Km = 0, KmSD = 0;  // mean susceptibility, SI
  Array1<Number, 6> K, KSD;
  Array1<Number, 6> Tensor, TensorRot;
  Array1<Number, 3> Dec, Inc;        // of Kmax, Kint, Kmin
  Array1<Array1<Number, 3>, 3> Vec;  // Vec[i][j]: component i of vector j
  Array1<Number, 3> E, E2, E3;       // E: E13, E12, E23
  Slots<Number, 0, 3> FTest;         // F, F12, F23, carried

  // Out-of-phase block, as read from the file
  bool HasIm = false;
  double KmIm = 0, KmSDIm = 0;
  Array1<Number, 6> KIm, KSDIm;
  Array1<Number, 6> TensorIm, TensorRotIm;
  Array1<Number, 3> DecIm, IncIm;
  Array1<Array1<Number, 3>, 3> VecIm;
  Array1<Number, 3> EIm, E2Im, E3Im;
  Slots<Number, 0, 3> FTestIm;

  // View data
  Array1<Factor, FactorSlots> Fac;  // the chosen factors
  bool Selected = false;

  bool operator==(const SpecimenRecord&) const = default;
};

/// Calls `visit(name, field)` for every field of `record` in the record's order.
template <class Record, class Visit>
void ForEachField(Record& record, Visit visit) {
#define VELORIX_FIELD(name) visit(#name, record.name)
  // clang-format off
  VELORIX_FIELD(Name);       VELORIX_FIELD(RecordNo);   VELORIX_FIELD(Active);
  VELORIX_FIELD(MeasMode);   VELORIX_FIELD(RunTag);     VELORIX_FIELD(Field);
  VELORIX_FIELD(FieldAux);   VELORIX_FIELD(FreqIndex);  VELORIX_FIELD(FreqName);
  VELORIX_FIELD(Frequency);  VELORIX_FIELD(Instrument); VELORIX_FIELD(SourceProgram);
  VELORIX_FIELD(RunStamp);   VELORIX_FIELD(RunAux1);    VELORIX_FIELD(RunAux2);
  VELORIX_FIELD(RunAux3);    VELORIX_FIELD(RunAux4);
  VELORIX_FIELD(Site);       VELORIX_FIELD(Lon);        VELORIX_FIELD(Lat);
  VELORIX_FIELD(GeoAux);     VELORIX_FIELD(Rock);       VELORIX_FIELD(Strat);
  VELORIX_FIELD(Litho);      VELORIX_FIELD(Regio);      VELORIX_FIELD(OP);
  VELORIX_FIELD(CoorLevel);  VELORIX_FIELD(HasCoor);    VELORIX_FIELD(OrientAz);
  VELORIX_FIELD(OrientInc);
  VELORIX_FIELD(FoliName);   VELORIX_FIELD(FoliAz);     VELORIX_FIELD(FoliDip);
  VELORIX_FIELD(FoliDec);    VELORIX_FIELD(FoliInc);
  VELORIX_FIELD(LineName);   VELORIX_FIELD(LineTrend);  VELORIX_FIELD(LinePlunge);
  VELORIX_FIELD(LineDec);    VELORIX_FIELD(LineInc);
  VELORIX_FIELD(Km);         VELORIX_FIELD(KmSD);       VELORIX_FIELD(K);
  VELORIX_FIELD(KSD);        VELORIX_FIELD(Tensor);     VELORIX_FIELD(TensorRot);
  VELORIX_FIELD(Dec);        VELORIX_FIELD(Inc);        VELORIX_FIELD(Vec);
  VELORIX_FIELD(E);          VELORIX_FIELD(E2);         VELORIX_FIELD(E3);
  VELORIX_FIELD(FTest);
  VELORIX_FIELD(HasIm);
  VELORIX_FIELD(KmIm);       VELORIX_FIELD(KmSDIm);     VELORIX_FIELD(KIm);
  VELORIX_FIELD(KSDIm);      VELORIX_FIELD(TensorIm);   VELORIX_FIELD(TensorRotIm);
  VELORIX_FIELD(DecIm);      VELORIX_FIELD(IncIm);      VELORIX_FIELD(VecIm);
  VELORIX_FIELD(EIm);        VELORIX_FIELD(E2Im);       VELORIX_FIELD(E3Im);
  VELORIX_FIELD(FTestIm);
  VELORIX_FIELD(Fac);        VELORIX_FIELD(Selected);
  // clang-format on
#undef VELORIX_FIELD
}

}  // namespace velorix
