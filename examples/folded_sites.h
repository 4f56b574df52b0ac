#pragma once

#include "examples/example_record.h"
#include "examples/granite_site.h"
#include "examples/published_sites.h"

namespace velorix::examples {

// Two studies of 24 sites across a fold, made of published tensors by known rotations: the fabric
// is older than the folding in one, younger in the other. The fold's axis is horizontal and trends
// north; its limbs dip east and west.

inline constexpr int FoldSites = 24;

/// A group of published tensors in their common geographic axes, and the published directions of
/// Kmax and Kmin of its mean.
struct PublishedGroup {
  const char* Source;
  Direction Kmax, Kmin;
  std::vector<PublishedTensor> Tensors;
};

inline std::vector<PublishedGroup> PublishedGroups() {
  PublishedGroup dike{"Dike", {29.594, 14.458}, {296.234, 12.806}, {}},
      flow{"TR245", {5.33, 14.68}, {268.76, 23.60}, {}},
      flat{"Jelinek", {167.9788, 19.0712}, {44.5875, 57.8639}, {}};
  for (const PublishedBulk& s : Dike) dike.Tensors.push_back(s.Tensor);
  for (const PublishedSpecimen& s : Tr245) {
    PublishedTensor tensor = s.Tensor;
    std::copy(std::begin(s.Geographic), std::end(s.Geographic), tensor.K);
    flow.Tensors.push_back(tensor);
  }
  flat.Tensors.assign(std::begin(Jelinek1978), std::end(Jelinek1978));
  return {dike, flow, flat};
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
    Transpose(FabricAxes(group.Kmax, group.Kmin), back);
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
      const double mean = (tensor[1] + tensor[2] + tensor[3]) / 3;
      for (double& k : tensor) k = Decimals(k / mean, 1e5);
      FillBlock(InPhaseOf(r), tensor, 1e-3, published.Sigma);
      file.Records.push_back(r);
    }
  }
  return file;
}

}  // namespace velorix::examples
