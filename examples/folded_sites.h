#pragma once

#include <span>

#include "examples/example_record.h"
#include "examples/granite_site.h"
#include "examples/published_sites.h"

namespace velorix::examples {

// Two studies of 24 sites across a fold, made of published tensors by known rotations: the fabric
// is older than the folding in one, younger in the other. The fold's axis is horizontal and trends
// north; its limbs dip east and west.

inline constexpr int FoldSites = 24;

/// A group of published tensors in their common geographic axes.
struct PublishedGroup {
  const char* Source;
  std::vector<PublishedTensor> Tensors;
};

inline std::vector<PublishedGroup> PublishedGroups() {
  PublishedGroup dike{"Dike", {}}, flow{"TR245", {}}, flat{"Jelinek", {}};
  for (const PublishedBulk& s : Dike) dike.Tensors.push_back(s.Tensor);
  for (const PublishedSpecimen& s : Tr245) {
    PublishedTensor tensor = s.Tensor;
    std::copy(std::begin(s.Geographic), std::end(s.Geographic), tensor.K);
    flow.Tensors.push_back(tensor);
  }
  flat.Tensors.assign(std::begin(Jelinek1978), std::end(Jelinek1978));
  return {dike, flow, flat};
}

/// The axes of the mean of a group's normalised tensors, one a column, a right-handed set.
inline Matrix<3, 3> MeanAxes(std::span<const PublishedTensor> tensors) {
  Tensor6 mean;
  for (const PublishedTensor& t : tensors)
    for (int i = 1; i <= 6; ++i) mean[i] += t.K[i - 1] / (t.K[0] + t.K[1] + t.K[2]);
  Matrix<3, 3> A, D, W;
  TensorForm<ToMatrix>(A, mean);
  EIGEN_JK(A, D, W);
  const double hand = W(1, 1) * (W(2, 2) * W(3, 3) - W(3, 2) * W(2, 3)) -
                      W(2, 1) * (W(1, 2) * W(3, 3) - W(3, 2) * W(1, 3)) +
                      W(3, 1) * (W(1, 2) * W(2, 3) - W(2, 2) * W(1, 3));
  if (hand < 0)
    for (int i = 1; i <= 3; ++i) W(i, 3) = -W(i, 3);
  return W;
}

/// The rotation about the strike that turns the horizontal into a plane that dips by `dip` degrees
/// towards `azimuth`.
inline Matrix<3, 3> Tilt(double azimuth, double dip) {
  const double c = std::cos(azimuth / DegPerRad), s = std::sin(azimuth / DegPerRad);
  const double a = std::cos(dip / DegPerRad), b = std::sin(dip / DegPerRad);
  // clang-format off
  return {c * c * a + s * s, c * s * (a - 1),   -c * b,
          c * s * (a - 1),   s * s * a + c * c, -s * b,
          c * b,             s * b,             a};
  // clang-format on
}

/// The bedding of a site, counted from 0: alternately on the limb that dips east and on the other.
inline Direction FoldBedding(int site) {
  return {site % 2 == 0 ? 90.0 : 270.0, 15.0 + site * 7 % 60};
}

/// The axes of a site's fabric before any tilt: Kmax oblique to the fold's axis, near the bedding,
/// and Kmin near its pole, both turned a little from site to site.
inline Matrix<3, 3> FoldFabric(int site) {
  const double turn = site * 37 % 31 - 15, lean = site * 11 % 13;
  return FabricAxes({40 + turn, 3 + lean / 2}, {200 + 10 * turn, 90 - lean});
}

/// The study whose fabrics were there before the folding and turned with the beds, or the one whose
/// fabrics came after it. Every second site lacks a specimen of its source.
inline ExampleFile FoldFile(bool before) {
  ExampleFile file{before ? "fold/before.ams" : "fold/after.ams", {}};
  const std::vector<PublishedGroup> groups = PublishedGroups();
  for (int site = 0; site < FoldSites; ++site) {
    const PublishedGroup& group = groups[static_cast<std::size_t>(site) % groups.size()];
    const std::string name = std::string(site < 9 ? "F0" : "F") + std::to_string(site + 1);
    const Direction bedding = FoldBedding(site);
    Matrix<3, 3> back, turn, tilted;
    Transpose(MeanAxes(group.Tensors), back);
    Mxmpy(FoldFabric(site), back, turn);
    Mxmpy(Tilt(bedding.Dec, before ? bedding.Inc : 0), turn, tilted);
    for (std::size_t i = 0; i < group.Tensors.size(); ++i) {
      if (site % 2 == 1 && i == static_cast<std::size_t>(site / 2) % group.Tensors.size()) continue;
      const PublishedTensor& published = group.Tensors[i];
      const std::string specimen = name + "-" + std::to_string(i + 1);
      SpecimenRecord r = NewRecord(specimen.c_str(), name.c_str());
      r.Rock = group.Source;
      r.Regio = bedding.Dec < 180 ? "East limb" : "West limb";
      Orient(r, 0, 0);
      r.FoliName[1] = "S0";
      r.FoliAz[1] = static_cast<float>(bedding.Dec);
      r.FoliDip[1] = static_cast<float>(bedding.Inc);
      Tensor6 tensor = TensorOf(published.K);
      Matrix<3, 3> K;
      TensorForm<ToMatrix>(K, tensor);
      Mxabat(tilted, K, K);
      TensorForm<ToForm>(K, tensor);
      FillBlock(InPhaseOf(r), tensor, 1e-3, published.Sigma);
      file.Records.push_back(r);
    }
  }
  return file;
}

}  // namespace velorix::examples
