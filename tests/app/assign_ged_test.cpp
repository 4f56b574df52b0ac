#include "app/assign_ged.h"

#include <gtest/gtest.h>

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

struct Assigned {
  RecordArray Records, Samples;
  GedMatches Matches;

  Assigned(std::initializer_list<SpecimenRecord> records,
           std::initializer_list<SpecimenRecord> samples) {
    for (const SpecimenRecord& r : records) Records.Add(r);
    for (const SpecimenRecord& s : samples) Samples.Add(s);
    Matches = AssignGedToStore(Records, Samples);
  }
};

TEST(AssignGed, FindsTheFirstSampleOfExactlyTheName) {
  const Assigned a(
      {Named("B"), Named("a"), Named("C"), Named("D"), Named("B")},
      {Sample("A", 10, 1), Sample("B", 20, 2), Sample("B", 30, 3), Sample("C", 40, 4)});
  for (int i : {1, 5}) EXPECT_EQ(a.Records[i].OrientAz, 20);
  EXPECT_TRUE(a.Records[1].HasCoor[2]);
  EXPECT_EQ(a.Records[3].OrientInc, 4);
  for (int i : {2, 4}) EXPECT_FALSE(a.Records[i].HasCoor[2]);
  EXPECT_EQ(a.Matches.Rows, (std::vector<char>{1, 0, 1, 0, 1}));
  EXPECT_EQ(MatchLine(a.Matches),
            "3 of 5 record(s) matched. Without a sample: a, D."
            " Only the case of letters differs: a."
            " Repeated samples, of which the first counts: B.");
}

TEST(AssignGed, TellsOfManyNamesTheFirstOnes) {
  RecordArray records, samples;
  for (int i = 1; i <= 15; ++i) records.Add(Named("N" + std::to_string(i)));
  EXPECT_EQ(MatchLine(AssignGedToStore(records, samples)),
            "0 of 15 record(s) matched. Without a sample: "
            "N1, N2, N3, N4, N5, N6, N7, N8, N9, N10, N11, N12, and 3 more.");
}

TEST(AssignGed, LeavesWhatTheSampleDoesNotHave) {
  SpecimenRecord record = Named("A");
  record.HasCoor = {true, true, true, true};
  record.OrientAz = 77;
  record.OP = {6, 0, 6, 0};
  record.FoliName[1] = "S";
  record.FoliAz[1] = 111;
  record.LineName[1] = "L";
  record.LineTrend[1] = 222;
  const Assigned none({record}, {Sample("A", 0, 0)});
  EXPECT_EQ(none.Records[1], record);

  SpecimenRecord sample = Sample("A", 0, 5);
  sample.FoliName[2] = "C";  // horizontal: both angles are 0
  const Assigned a({record}, {sample});
  EXPECT_EQ(a.Records[1].OrientAz, 0);  // one angle of 0 is an orientation
  EXPECT_EQ(a.Records[1].OrientInc, 5);
  EXPECT_EQ(a.Records[1].FoliAz[1], 111);
  EXPECT_EQ(a.Records[1].FoliName[2], "C");
  EXPECT_EQ(a.Records[1].LineName[2], "");
  EXPECT_EQ(a.Records[1].OP, record.OP);
}

TEST(AssignGed, GivesThePairOfASlotAsAWhole) {
  SpecimenRecord record = Named("A");
  record.LineName[1] = "L";
  record.LineTrend[1] = 222;
  SpecimenRecord sample = Sample("A", 1, 1);
  sample.FoliName[1] = "S";
  sample.FoliAz[1] = 120;
  const Assigned a({record}, {sample});
  EXPECT_EQ(a.Records[1].FoliName[1] + a.Records[1].LineName[1], "S");
  EXPECT_EQ(a.Records[1].FoliAz[1], 120);
  EXPECT_EQ(a.Records[1].LineTrend[1], 0);
  EXPECT_TRUE(a.Records[1].HasCoor[3]);
}

TEST(AssignGed, IsOneStepBack) {
  RecordArray records, samples;
  records.Add(Named("A"));
  records.Add(Named("B"));
  samples.Add(Sample("A", 10, 20));
  samples.Add(Sample("B", 30, 40));
  EditGrid grid;
  FillGrid(grid, RowsOf(records));
  AssignGed(grid, records, samples);
  EXPECT_EQ(grid.Cell(2, OrientationColumn), "30");
  EXPECT_TRUE(Undo(grid));
  EXPECT_EQ(grid.Cell(1, OrientationColumn) + grid.Cell(2, OrientationColumn), "");
  EXPECT_FALSE(Undo(grid));
}

}  // namespace
}  // namespace velorix
