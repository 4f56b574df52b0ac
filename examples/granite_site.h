#pragma once

#include <algorithm>
#include <random>

#include "examples/example_record.h"
#include "tensor/rotations.h"

namespace velorix::examples {

/// Numbers for the synthetic site, the same on every machine: the standard distributions aren't.
class Chance {
 public:
  double Uniform(double from, double to) {
    return from + (to - from) * static_cast<double>(engine_()) / 4294967296.0;
  }
  double Whole(double from, double to) { return std::floor(Uniform(from, to)); }
  /// Nearly Gaussian: a sum of twelve.
  double Gauss(double mean, double deviation) {
    double sum = -6;
    for (int i = 0; i < 12; ++i) sum += Uniform(0, 1);
    return mean + deviation * sum;
  }

 private:
  std::mt19937 engine_{2024};
};

/// The axes of a fabric, one a column: Kmax along `kmax`, Kmin as near to `pole` as it can be.
inline Matrix<3, 3> FabricAxes(const Direction& kmax, const Direction& pole) {
  const Vector<3> first = DirectionToVector(1, kmax);
  const Vector<3> second = DirectionToVector(1, AngleAndNormal(pole, kmax).Normal);
  const Vector<3> third =
      DirectionToVector(1, AngleAndNormal(kmax, AngleAndNormal(pole, kmax).Normal).Normal);
  Matrix<3, 3> axes;
  for (int i = 1; i <= 3; ++i) {
    axes(i, 1) = first[i];
    axes(i, 2) = second[i];
    axes(i, 3) = third[i];
  }
  return axes;
}

/// One specimen's tensor in its own system: the fabric of the site, its scatter, and the turn back
/// from geographic axes.
inline Tensor6 DrawnTensor(Chance& chance, const Matrix<3, 3>& axes, const Vector<3>& values,
                           double scatter, const Matrix<3, 3>& orientation) {
  Matrix<3, 3> K, turn;
  for (int i = 1; i <= 3; ++i) K(i, i) = values[i];
  Mxabat(axes, K, K);
  for (int i = 1; i <= 3; ++i)
    for (int j = i; j <= 3; ++j) K(i, j) = K(j, i) = K(i, j) + chance.Gauss(0, scatter);
  Transpose(orientation, turn);
  Mxabat(turn, K, K);
  Tensor6 tensor;
  TensorForm<ToForm>(K, tensor);
  const double mean = (tensor[1] + tensor[2] + tensor[3]) / 3;
  for (double& k : tensor) k = Decimals(k / mean, 1e5);
  return tensor;
}

/// A synthetic site: a granite with a magnetic foliation and lineation, and an out-of-phase fabric
/// of its own as of a later generation of grains. Bedding-like banding "S0" and schistosity "S1",
/// mineral lineation "L1" and stretching "L2"; some specimens lack one thing or the other.
inline ExampleFile GraniteFile() {
  ExampleFile file{"granite.ams", {}};
  Chance chance;
  const Matrix<3, 3> inPhase = FabricAxes({38, 12}, {298, 48});
  const Matrix<3, 3> outOfPhase = FabricAxes({105, 28}, {335, 50});
  for (int i = 1; i <= 24; ++i) {
    const std::string name = "GR" + std::to_string((i + 1) / 2) + (i % 2 == 1 ? "A" : "B");
    SpecimenRecord r = NewRecord(name.c_str(), "Synthetic granite");
    r.Field = 400;
    r.Lon = 15.2f;
    r.Lat = 49.4f;
    r.Rock = "Granite";
    r.Strat = "Carbonif.";
    r.Litho = "Biotite";
    r.Regio = "Synthetic";
    const auto azimuth = static_cast<float>(chance.Whole(0, 360));
    const auto plunge = static_cast<float>(chance.Whole(20, 80));
    Orient(r, azimuth, plunge);
    r.FoliName = {"S0", "S1", "", ""};
    r.FoliAz = {static_cast<float>(chance.Whole(116, 125)),
                static_cast<float>(chance.Whole(246, 255)), 0, 0};
    r.FoliDip = {static_cast<float>(chance.Whole(32, 38)), static_cast<float>(chance.Whole(56, 64)),
                 0, 0};
    r.LineName = {"L1", "L2", "", ""};
    r.LineTrend = {static_cast<float>(chance.Whole(34, 45)),
                   static_cast<float>(chance.Whole(196, 206)), 0, 0};
    r.LinePlunge = {static_cast<float>(chance.Whole(5, 12)),
                    static_cast<float>(chance.Whole(14, 26)), 0, 0};
    const Matrix<3, 3> orientation = OrientationMatrix(r.OrientAz, r.OrientInc, 6, 0, 6);
    const double km = Decimals(4e-3 * (1 + std::clamp(chance.Gauss(0, 0.35), -0.8, 1.5)), 1e7);
    const double share = chance.Uniform(0.01, 0.05);
    // A statement each: the order in which arguments draw their numbers is the compiler's.
    const double sigma = chance.Uniform(0.001, 0.002);
    const double sigmaIm = chance.Uniform(0.008, 0.015);
    const Tensor6 tensor = DrawnTensor(chance, inPhase, {1.06, 1.02, 0.92}, 0.009, orientation);
    const Tensor6 tensorIm = DrawnTensor(chance, outOfPhase, {1.15, 1.02, 0.83}, 0.03, orientation);
    FillBlock(InPhaseOf(r), tensor, km, sigma);
    FillBlock(OutOfPhaseOf(r), tensorIm, Decimals(km * share, 1e9), sigmaIm);
    r.HasIm = true;

    const auto without = [](auto& names, auto& first, auto& second, int slot) {
      names[slot] = "";
      first[slot] = second[slot] = 0;
    };
    // Of a loose block neither the orientation nor those of its planes and lines are known.
    const bool loose = i % 8 == 5;
    if (loose) {
      r.HasCoor[2] = false;
      r.OrientAz = r.OrientInc = 0;
    }
    if (loose || i % 6 == 4) without(r.FoliName, r.FoliAz, r.FoliDip, 1);
    if (loose || i % 4 >= 2) without(r.FoliName, r.FoliAz, r.FoliDip, 2);
    if (loose || i % 5 == 3) without(r.LineName, r.LineTrend, r.LinePlunge, 1);
    if (loose || i % 3 != 0) without(r.LineName, r.LineTrend, r.LinePlunge, 2);
    file.Records.push_back(r);
  }
  return file;
}

}  // namespace velorix::examples
