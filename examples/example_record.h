#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "examples/published_tensor.h"
#include "store/specimen_record.h"
#include "tensor/directions.h"
#include "tensor/eigen_jk.h"

namespace velorix::examples {

// The example files. What an instrument's program would have written: tensors of mean 1 in the
// specimen system, the principal values and vectors there, errors, tests and field measurements.

struct ExampleFile {
  std::string Name;
  std::vector<SpecimenRecord> Records;
};

using Tensor6 = Vector<6>;

inline float Decimals(double x, double scale) {
  return static_cast<float>(std::floor(x * scale + 0.5) / scale);
}

/// What one block of a record is, so that both blocks are filled by the same lines.
struct Block {
  double &Km, &KmSD;
  Array1<Number, 6>&K, &KSD, &Tensor;
  Array1<Array1<Number, 3>, 3>& Vec;
  Array1<Number, 3>&E, &E2;
  Slots<Number, 0, 3>& FTest;
};
inline Block InPhaseOf(SpecimenRecord& r) {
  return {r.Km, r.KmSD, r.K, r.KSD, r.Tensor, r.Vec, r.E, r.E2, r.FTest};
}
inline Block OutOfPhaseOf(SpecimenRecord& r) {
  return {r.KmIm, r.KmSDIm, r.KIm, r.KSDIm, r.TensorIm, r.VecIm, r.EIm, r.E2Im, r.FTestIm};
}

/// Fills a block from a tensor, its mean susceptibility and the standard error `sigma` of a
/// normalised component. Confidence angles and F tests for a measurement in 15 positions, 9 degrees
/// of freedom (Hext G.R., 1963, The estimation of second-order tensors, with related tests and
/// designs, Biometrika 50, 353-373); all of them 0 without a sigma.
inline void FillBlock(Block b, const Tensor6& tensor, double km, double sigma) {
  const double mean = (tensor[1] + tensor[2] + tensor[3]) / 3;
  sigma /= mean;
  for (int i = 1; i <= 6; ++i) b.Tensor[i] = Decimals(tensor[i] / mean, 1e7);
  b.Km = static_cast<float>(km);
  b.KmSD = static_cast<float>(km * sigma / std::sqrt(3.0));

  Matrix<3, 3> A, D, W;
  TensorForm<ToMatrix>(A, b.Tensor);
  EIGEN_JK(A, D, W);
  for (int j = 1; j <= 3; ++j) {
    b.K[j] = static_cast<float>(D(j, j));
    b.KSD[j] = static_cast<float>(sigma);
    for (int i = 1; i <= 3; ++i) b.Vec[i][j] = static_cast<float>(W(i, j));
  }
  for (int i = 1; i <= 3; ++i) b.E[i] = b.E2[i] = 0.0f;
  for (int i = 0; i <= 3; ++i) b.FTest[i] = 0.0f;
  if (sigma == 0) return;

  constexpr double F2and9 = 4.2565;  // 95 % quantile of F(2, 9)
  const double reach = std::sqrt(2 * F2and9) * sigma / 2;
  const auto angle = [&](int p, int q) {
    return Decimals(DegPerRad * std::atan(reach / (D(p, p) - D(q, q))), 1e2);
  };
  b.E[1] = b.E2[3] = angle(1, 3);
  b.E[2] = b.E2[1] = angle(1, 2);
  b.E[3] = b.E2[2] = angle(2, 3);

  const auto square = [&](double x) { return x * x / (sigma * sigma); };
  const double m = (D(1, 1) + D(2, 2) + D(3, 3)) / 3;
  b.FTest[0] =
      Decimals(0.4 * (square(D(1, 1) - m) + square(D(2, 2) - m) + square(D(3, 3) - m)), 1e2);
  b.FTest[1] = Decimals(0.5 * square(D(1, 1) - D(2, 2)), 1e2);
  b.FTest[2] = Decimals(0.5 * square(D(2, 2) - D(3, 3)), 1e2);
}

/// A record in use with what all examples have in common.
inline SpecimenRecord NewRecord(const char* name, const char* site) {
  SpecimenRecord r;
  r.Name = name;
  r.Site = site;
  r.RunTag = "EXA1";
  r.Instrument = "TQB-4";
  r.SourceProgram = "EXAMPLES";
  r.FreqName = "F1";
  r.Frequency = 976;
  r.Field = 200;
  r.HasCoor[1] = true;
  return r;
}

/// With orientation angles under P1 = P3 = 6 and P2 = 0: those of the specimen's X axis.
inline void Orient(SpecimenRecord& r, float azimuth, float plunge) {
  r.HasCoor[2] = true;
  r.OP = {6, 0, 6, 0};
  r.OrientAz = azimuth;
  r.OrientInc = plunge;
}

inline Tensor6 TensorOf(const double (&k)[6]) { return {k[0], k[1], k[2], k[3], k[4], k[5]}; }

}  // namespace velorix::examples
