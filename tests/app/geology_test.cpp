#include <gtest/gtest.h>

#include "app/edit/assign_ged.h"
#include "app/edit/plane_from_lineations.h"
#include "base/fault.h"

namespace velorix {
namespace {

SpecimenRecord Named(const std::string& name) {
  SpecimenRecord r;
  r.Name = name;
  return r;
}

/// A sample as a geological file gives it: "0" is an absent code.
SpecimenRecord Sample(const std::string& name, float az, float inc) {
  SpecimenRecord s = Named(name);
  s.OrientAz = az;
  s.OrientInc = inc;
  for (int slot = 1; slot <= 2; ++slot) s.FoliName[slot] = s.LineName[slot] = "0";
  s.OP = {12, 90, 12, 90};
  return s;
}

RecordArray ArrayOf(std::initializer_list<SpecimenRecord> list) {
  RecordArray records;
  for (const SpecimenRecord& r : list) records.Add(r);
  return records;
}

TEST(AssignGed, FindsTheFirstSampleOfExactlyTheNameAsOneStep) {
  const RecordArray records = ArrayOf({Named("B"), Named("a"), Named("C"), Named("D"), Named("B")});
  EditGrid grid;
  FillGrid(grid, RowsOf(records));
  const GedMatches matches = AssignGed(
      grid, records,
      ArrayOf({Sample("A", 10, 1), Sample("B", 20, 2), Sample("B", 30, 3), Sample("C", 40, 4)}));
  const auto orientations = [&grid] {
    std::string text;
    for (int row = 1; row <= 5; ++row)
      text += grid.Cell(row, OrientationColumn) + "/" + grid.Cell(row, OrientationColumn + 1) + " ";
    return text;
  };
  EXPECT_EQ(orientations(), "20/2 / 40/4 / 20/2 ");
  EXPECT_EQ(matches.Rows, (std::vector<char>{1, 0, 1, 0, 1}));
  EXPECT_EQ(MatchLine(matches),
            "3 of 5 record(s) matched. Without a sample: a, D."
            " Only the case of letters differs: a."
            " Repeated samples, of which the first counts: B.");
  EXPECT_TRUE(Undo(grid));
  EXPECT_EQ(orientations(), "/ / / / / ");
  EXPECT_FALSE(Undo(grid));
}

TEST(AssignGed, LeavesWhatTheSampleDoesNotHaveAndGivesThePairOfASlotAsAWhole) {
  SpecimenRecord record = Named("A");
  record.HasCoor = {true, true, false, false};
  record.OP = {6, 0, 6, 0};
  record.OrientAz = 77;
  record.FoliName[1] = "S";
  record.FoliAz[1] = 111;
  record.LineName[1] = "L";
  record.LineTrend[1] = 222;
  const auto assigned = [&record](const SpecimenRecord& sample) {
    RecordArray records = ArrayOf({record});
    AssignGedToStore(records, ArrayOf({sample}));
    return records[1];
  };
  SpecimenRecord expected = record, sample = Sample("A", 0, 0);
  expected.HasCoor[3] = expected.HasCoor[4] = true;  // as the codes of the record say
  EXPECT_EQ(assigned(sample), expected);
  sample.OrientInc = expected.OrientInc = 5;  // one angle of 0 is an orientation
  expected.OrientAz = 0;
  sample.LineName[2] = expected.LineName[2] = "C";  // horizontal: both angles are 0
  EXPECT_EQ(assigned(sample), expected);
  sample.FoliName[1] = expected.FoliName[1] = "T";
  sample.FoliAz[1] = 120;
  expected.FoliAz[1] = 210;
  expected.LineName[1] = "";
  expected.LineTrend[1] = 0;
  EXPECT_EQ(assigned(sample), expected);
}

constexpr auto Lineations = CalculatorMode::Lineations, Foliations = CalculatorMode::Foliations;

TEST(PlaneFromLineations, GivesThePlaneThroughTwoLinesAndTheLineInWhichTwoPlanesMeet) {
  const std::tuple<CalculatorMode, CalculatorInput, const char*> cases[] = {
      {Lineations, {"0", "0", "90", "45"}, "90.0/45.0 90.0 (90.0)"},    // strike and line of dip
      {Lineations, {"90", "45", "0", "0"}, "90.0/45.0 90.0 (90.0)"},    // in any order
      {Lineations, {"0", "0", "90", "-45"}, "270.0/45.0 90.0 (90.0)"},  // the line's other end
      {Lineations, {"10", "0", "40", "0"}, "180.0/0.0 30.0 (150.0)"},  // 90 - just over 90: no -0.0
      {Lineations, {"0", "0", "0", "90"}, "90.0/90.0 90.0 (90.0)"},
      {Lineations, {"10", "0", "170", "0"}, "180.0/0.0 20.0 (160.0)"},  // the smaller angle first
      {Lineations, {"5", "0", "5", "40"}, "95.0/90.0 40.0 (140.0)"},  // the normal is just above 0
      {Lineations, {"", "", "", ""}, "180.0/90.0 0.0 (180.0)"},       // the pole of a zero normal
      {Lineations, {"0", "0", "90,9", "45x"}, "90.0/45.0 90.0 (90.0)"},  // numbers end at a comma
      {Foliations, {"90", "45", "0", "90"}, "90.0/45.0 90.0 (90.0)"},
      {Foliations, {"0", "90", "90", "45"}, "90.0/45.0 90.0 (90.0)"},
      {Foliations, {"90", "30", "270", "30"}, "0.0/0.0 60.0 (120.0)"},  // just below 360
      {Foliations, {"0", "90", "90", "90"}, "0.0/90.0 90.0 (90.0)"},
      {Foliations, {"180", "90", "180", "90"}, "0.0/0.0 0.0 (180.0)"},
  };
  for (const auto& [mode, input, expected] : cases) {
    const CalculatorResult r = PlaneFromLineations(mode, input);
    EXPECT_EQ(r.Dec + "/" + r.Inc + " " + r.Angle, expected)
        << input.Dec1 << " " << input.Inc1 << " " << input.Dec2 << " " << input.Inc2;
  }
}

TEST(PlaneFromLineations, NotesParallelDirectionsAndKeepsTheirNumbers) {
  constexpr char Lines[] = "The two lines are parallel.", Planes[] = "The two planes are parallel.";
  const std::tuple<CalculatorMode, CalculatorInput, const char*, const char*> cases[] = {
      {Lineations, {"30", "40", "30", "40"}, "0.0 (180.0)", Lines},
      {Lineations, {"2", "10", "2", "10"}, "0.0 (180.0)", Lines},  // the cosine rounds beyond 1
      {Lineations, {"30", "40", "210", "-40"}, "0.0 (180.0)", Lines},
      {Lineations, {"10", "0", "370", "0"}, "0.0 (180.0)", Lines},
      {Lineations, {"30", "40", "30", "40.01"}, "0.0 (180.0)", ""},
      {Foliations, {"2", "80", "2", "80"}, "0.0 (180.0)", Planes},
      {Foliations, {"90", "90", "270", "90"}, "0.0 (180.0)", Planes},
      {Foliations, {"90", "45", "91", "45"}, "0.7 (179.3)", ""}};
  for (const auto& [mode, input, angle, note] : cases) {
    const CalculatorResult r = PlaneFromLineations(mode, input);
    EXPECT_EQ(r.Angle, angle) << input.Dec1 << "/" << input.Inc1;
    EXPECT_EQ(r.Note, note) << input.Dec1 << "/" << input.Inc1;
  }
  const CalculatorResult equal = PlaneFromLineations(Lineations, {"2", "10", "2", "10"});
  EXPECT_EQ(equal.Dec + "/" + equal.Inc, "180.0/90.0");  // the plane of a zero normal
}

TEST(PlaneFromLineations, RefusesWhatNo32BitFloatHolds) {
  EXPECT_THROW(PlaneFromLineations(Lineations, {"1E39", "", "", ""}), Fault);
  EXPECT_THROW(PlaneFromLineations(Foliations, {"", "", "", "-1E400"}), Fault);
  EXPECT_NO_THROW(PlaneFromLineations(Lineations, {"1E38", "", "", ""}));
}

}  // namespace
}  // namespace velorix
