// The tables of the pages on formats with fixed fields are the layouts that reader and writer walk.

#include <gtest/gtest.h>

#include "datafiles/formats/ams_layout.h"
#include "datafiles/formats/ged_file.h"
#include "datafiles/formats/ran_layout.h"
#include "examples/example_sites.h"
#include "examples/ged_sites.h"
#include "examples/ran_sites.h"
#include "examples/text_sites.h"
#include "tensor/derivation.h"
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

View ViewIn(CoordinateSystem coorSys) {
  View view;
  view.CoorSys = coorSys;
  view.FoliCode = "S0";
  view.LineCode = "0";
  return view;
}

/// The records with their tensors turned, where they have an orientation.
RecordArray Turned(RecordArray records) {
  for (SpecimenRecord& r : records) {
    if (!r.HasCoor[2]) continue;
    const Vector<6> tensor = RotatedTensor(r, ViewIn(Geographic));
    for (int i = 1; i <= 6; ++i) r.Tensor[i] = tensor[i];
  }
  return records;
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
    double K[3];
    Direction Axes[3];
    double Degrees;
  } cases[] = {
      // clang-format off
      {"jelinek1978.ams", 1, {1.04239371, 1.03397563, 0.923630653},
       {{167.9788, 19.0712}, {267.1789, 24.8188}, {44.5875, 57.8639}}, 0.01},
      {"tr245.ams", 3, {0.33505273, 0.3333423, 0.33160502},
       {{5.33, 14.68}, {124.47, 61.72}, {268.76, 23.60}}, 0.2},
      {"geographic.ams", 3, {0.33505273, 0.3333423, 0.33160502},
       {{5.33, 14.68}, {124.47, 61.72}, {268.76, 23.60}}, 0.2},
      {"dike.ams", 3, {0.340402871, 0.335365891, 0.324231237},
       {{29.594, 14.458}, {166.310, 70.497}, {296.234, 12.806}}, 0.01},
      {"u1359b.ams", 3, {0.336734533, 0.335469723, 0.327795744},
       {{359.487, 7.911}, {89.489, 0.016}, {179.602, 82.089}}, 0.01},
      // clang-format on
  };
  for (const auto& c : cases) {
    const RecordArray records = Turned(Example(c.Name));
    Vector<6> mean;
    for (const SpecimenRecord& r : records)
      for (int i = 1; i <= 6; ++i) mean[i] += r.Tensor[i] / records.Count();
    Matrix<3, 3> A, D, W;
    TensorForm<ToMatrix>(A, mean);
    EIGEN_JK(A, D, W);
    for (int j = 1; j <= 3; ++j) {
      EXPECT_NEAR(D(j, j), c.Scale * c.K[j - 1], 3e-6) << c.Name << j;
      const Vector<3> ours = DirectionToVector(1, MatrixDirections(W)[j]);
      const double cosine = std::fabs(Vvmpy(ours, DirectionToVector(1, c.Axes[j - 1])));
      EXPECT_LT(DegPerRad * std::acos(std::min(cosine, 1.0)), c.Degrees) << c.Name << j;
    }
  }
}

TEST(Examples, BeddedSpecimensTurnIntoThePublishedTensors) {
  RecordArray records = Example("tr245.ams");
  ASSERT_EQ(records.Count(), 8);
  for (int i = 1; i <= 8; ++i) {
    const examples::PublishedSpecimen& published = examples::Tr245[i - 1];
    const Vector<6> geographic = RotatedTensor(records[i], ViewIn(Geographic));
    ASSERT_TRUE(RotateRecord(records[i], ViewIn(Paleogeographic)));
    EXPECT_EQ(records[i].CoorLevel, Paleogeographic);
    for (int c = 1; c <= 6; ++c) {
      EXPECT_NEAR(geographic[c] / 3, published.Geographic[c - 1], 2e-6);
      EXPECT_NEAR(records[i].TensorRot[c] / 3, published.Tilt[c - 1], 2e-6);
    }
  }
}

/// The rows of a page's table, as a layout has them.
template <class Layout>
std::string TableOf(const Layout& layout) {
  std::ostringstream table;
  ForEachRanRow(layout, [&](const auto& row) {
    table << "| " << row.Offset << " | " << row.Width << " | ";
    if (*row.Name != '\0') table << '`' << row.Name << '`';
    table << " | " << row.Kind << " |\n";
  });
  return table.str();
}

std::string PageOf(const char* name) {
  return BytesOf(VELORIX_SOURCE_DIR "/docs/formats/" + std::string(name));
}

TEST(Pages, TablesAreTheLayoutsAndGedFieldsLieWithoutGaps) {
  const std::string rule = "|---:|---:|---|---|\n";
  EXPECT_NE(PageOf("ams.md").find(rule + TableOf(AmsLayout) + "\n"), std::string::npos);
  for (const std::string& table : {TableOf(RanHeaderLayout), TableOf(RanSpecimenLayout)})
    EXPECT_NE(PageOf("ran.md").find(rule + table + "\n"), std::string::npos) << table;
  for (const auto fields : {GedHeaderFields(), GedSampleFields()}) {
    int end = 0;
    for (const GedField& field : fields) {
      EXPECT_EQ(field.Offset, end) << field.Name;
      end += field.Width;
      std::ostringstream row;
      row << "| " << field.Offset << " | " << field.Width << " | " << field.Name << " |";
      EXPECT_NE(PageOf("ged.md").find(row.str()), std::string::npos) << row.str();
    }
    EXPECT_EQ(end, GedLineLength);
  }
}

}  // namespace
}  // namespace velorix
