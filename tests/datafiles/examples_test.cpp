#include <gtest/gtest.h>

#include "datafiles/ams_file.h"
#include "examples/example_sites.h"
#include "examples/ged_sites.h"
#include "examples/ran_sites.h"
#include "examples/text_sites.h"
#include "tensor/derivation.h"
#include "tensor/directions.h"
#include "tensor/eigen_jk.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

const std::string Folder = VELORIX_SOURCE_DIR "/examples/";

RecordArray Example(const std::string& name) {
  RecordArray records;
  EXPECT_TRUE(ReadAmsFile(Folder + name, records)) << name;
  return records;
}

View ViewIn(std::int16_t coorSys, std::int16_t block = InPhase) {
  View view;
  view.CoorSys = coorSys;
  view.ReImMode = block;
  view.FoliCode = "S0";
  view.LineCode = "0";
  return view;
}

/// Principal values (of sum 3) and directions of the mean of the tensors in a system.
struct MeanTensor {
  Vector<3> K;
  Array1<Direction, 3> Axes;
};
MeanTensor MeanOf(RecordArray& records, std::int16_t coorSys) {
  Vector<6> mean;
  for (SpecimenRecord& r : records) {
    EXPECT_TRUE(RotateRecord(r, ViewIn(coorSys)));
    for (int i = 1; i <= 6; ++i) mean[i] += r.TensorRot[i] / records.Count();
  }
  Matrix<3, 3> A, D, W;
  TensorForm(A, mean, 0);
  EIGEN_JK(A, D, W);
  return {{D(1, 1), D(2, 2), D(3, 3)}, MatrixDirections(W)};
}

TEST(Examples, CommittedFilesAreWhatTheMakerWrites) {
  std::vector<std::pair<std::string, std::string>> files = {
      {"granite.ged", examples::GraniteGedBytes()},
      {"granite_unoriented.ams", examples::FileBytes(examples::UnorientedFile())}};
  for (const auto& file : examples::ExampleFiles())
    files.emplace_back(file.Name, examples::FileBytes(file));
  for (const auto& file : examples::RanExampleFiles())
    files.emplace_back(file.Name, examples::RanFileBytes(file));
  for (const auto& file : examples::TextExamples) files.emplace_back(file.Name, file.Text());
  for (const auto& [name, bytes] : files) EXPECT_TRUE(BytesOf(Folder + name) == bytes) << name;
}

TEST(Examples, MeanTensorsAreThePublishedOnes) {
  const struct {
    const char* Name;
    double Scale;  // 3 where the trace was published as 1
    double K[3], Dec[3], Inc[3], Degrees;
  } cases[] = {
      {"jelinek1978.ams",
       1,
       {1.04239371, 1.03397563, 0.923630653},
       {167.9788, 267.1789, 44.5875},
       {19.0712, 24.8188, 57.8639},
       0.01},
      {"tr245.ams",
       3,
       {0.33505273, 0.3333423, 0.33160502},
       {5.33, 124.47, 268.76},
       {14.68, 61.72, 23.60},
       0.2},
      {"geographic.ams",
       3,
       {0.33505273, 0.3333423, 0.33160502},
       {5.33, 124.47, 268.76},
       {14.68, 61.72, 23.60},
       0.2},
      {"dike.ams",
       3,
       {0.340402871, 0.335365891, 0.324231237},
       {29.594, 166.310, 296.234},
       {14.458, 70.497, 12.806},
       0.01},
      {"u1359b.ams",
       3,
       {0.336734533, 0.335469723, 0.327795744},
       {359.487, 89.489, 179.602},
       {7.911, 0.016, 82.089},
       0.01},
  };
  for (const auto& c : cases) {
    RecordArray records = Example(c.Name);
    const MeanTensor mean = MeanOf(records, Geographic);
    for (int j = 1; j <= 3; ++j) {
      EXPECT_NEAR(mean.K[j], c.Scale * c.K[j - 1], 3e-6) << c.Name << j;
      const Vector<3> ours = DirectionToVector(1, mean.Axes[j]);
      const Vector<3> theirs = DirectionToVector(1, {c.Dec[j - 1], c.Inc[j - 1]});
      const double cosine = std::min(std::fabs(Vvmpy(ours, theirs)), 1.0);
      EXPECT_LT(DegPerRad * std::acos(cosine), c.Degrees) << c.Name << j;
    }
  }
}

TEST(Examples, BeddedSpecimensTurnIntoThePublishedTensors) {
  RecordArray records = Example("tr245.ams");
  ASSERT_EQ(records.Count(), 8);
  for (int i = 1; i <= 8; ++i) {
    const examples::PublishedSpecimen& published = examples::Tr245[i - 1];
    ASSERT_TRUE(RotateRecord(records[i], ViewIn(Geographic)));
    for (int c = 1; c <= 6; ++c)
      EXPECT_NEAR(records[i].TensorRot[c] / 3, published.Geographic[c - 1], 2e-6);
    ASSERT_TRUE(RotateRecord(records[i], ViewIn(Paleogeographic)));
    EXPECT_EQ(records[i].CoorLevel, Paleogeographic);
    for (int c = 1; c <= 6; ++c)
      EXPECT_NEAR(records[i].TensorRot[c] / 3, published.Tilt[c - 1], 2e-6);
  }
}

TEST(Examples, TheSyntheticSiteHasSomethingToShowInEverySystemAndBlock) {
  RecordArray records = Example("granite.ams");
  ASSERT_EQ(records.Count(), 24);
  for (const std::int16_t block : {InPhase, OutOfPhase})
    for (std::int16_t coorSys = Specimen; coorSys <= Tectonic; ++coorSys) {
      int reached = 0;
      for (SpecimenRecord& r : records) {
        if (!r.HasCoor[coorSys]) continue;
        ASSERT_TRUE(RotateRecord(r, ViewIn(coorSys, block)));
        EXPECT_TRUE(coorSys == Specimen || r.HasCoor[2]) << r.Name;  // a loose block
        reached += r.CoorLevel == coorSys;
      }
      if (coorSys == Specimen)
        EXPECT_EQ(reached, 24);
      else
        EXPECT_TRUE(reached >= 12 && reached < 24) << coorSys << ": " << reached;
    }
}

TEST(Examples, ConfidenceAnglesAndDeviationsAreThere) {
  for (const examples::ExampleFile& file : examples::ExampleFiles()) {
    RecordArray records = Example(file.Name);
    for (const SpecimenRecord& r : records) {
      EXPECT_GT(r.KmSD, 0) << r.Name;
      EXPECT_NEAR(r.Tensor[1] + r.Tensor[2] + r.Tensor[3], 3, 1e-4) << r.Name;
      for (int i = 1; i <= 3; ++i) {
        EXPECT_GT(r.KSD[i], 0) << r.Name;
        EXPECT_TRUE(r.E[i] > 0 && r.E[i] < 90) << r.Name;
      }
      EXPECT_LE(r.E[1], std::min<double>(r.E[2], r.E[3])) << r.Name;
    }
  }
}

}  // namespace
}  // namespace velorix
