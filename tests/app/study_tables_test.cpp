// What the windows of a study say: comparisons and untiltings in words and in files.

#include <gtest/gtest.h>

#include "app/commands/picture_commands.h"
#include "app/files/export_groups.h"
#include "app/tables/comparison_table.h"
#include "app/tables/table_lines.h"
#include "app/tables/untilting_table.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

const std::vector<std::string> GroupNames = {"North, \"top\"", "South\tlimb", "one"};

/// The Kmax and Kmin of the first pair differ, each in another way; the second pair is of a group
/// of one record.
std::vector<ComparedPair> Pairs() {
  GroupComparison c;
  c.Angle = {12.345, 2, 30};
  c.Overlap = {false, true, true};
  c.AxisDiffers = {true, false, std::nullopt};
  c.ValueGap = {0.00125, 0.5, -0.25};
  c.ValueDifference = BootLimits{{-0.001, 0, -0.5}, {0.002, 0.75, -0.125}};
  GroupComparison small;
  small.Angle = {0.04, 90, 45};
  small.ValueGap = {0, 0, 0};
  return {{0, 1, c}, {1, 2, small}};
}

TEST(ComparisonTable, SaysWhatDiffersAndWhatIsTooSmall) {
  const std::vector<ComparedPair> pairs = Pairs();
  std::string found;
  for (int column = 0; column < ComparisonColumns; ++column)
    if (IsFound(pairs[0], column)) found += ComparisonHeader(column) + ";";
  EXPECT_EQ(found, "Kmax\naxis\ndiffers;Kmin\nvalue\ndiffers;");  // 0 itself is no difference
  EXPECT_EQ(ComparisonCell(pairs[0], GroupNames, 3).Value, 0);
  EXPECT_FALSE(ComparisonCell(pairs[1], GroupNames, 3).Value);

  const std::string text = ComparisonText(std::vector{&pairs[0], &pairs[1]}, GroupNames, "of");
  const std::string note = std::string(ComparisonNote) + "\n";
  ASSERT_EQ(text.substr(0, 3 + note.size()), "of\n" + note);
  EXPECT_EQ(
      text.substr(3 + note.size()),
      "A\tB\tKmax angle\tKmax overlap\tKmax axis differs\tKmax difference\tKmax from\tKmax to\t"
      "Kmax value differs\tKint angle\tKint overlap\tKint axis differs\tKint difference\t"
      "Kint from\tKint to\tKint value differs\tKmin angle\tKmin overlap\tKmin axis differs\t"
      "Kmin difference\tKmin from\tKmin to\tKmin value differs\n"
      "North, \"top\"\tSouthlimb\t12.3\tno\tyes\t0.0013\t-0.0010\t0.0020\tno\t2.0\tyes\tno\t"
      "0.5000\t0.0000\t0.7500\tno\t30.0\tyes\t\t-0.2500\t-0.5000\t-0.1250\tyes\n"
      "Southlimb\tone\t0.0\t\t\t0.0000\t\t\t\t90.0\t\t\t0.0000\t\t\t\t45.0\t\t\t0.0000\t\t\t\n");
}

/// Six groups in use, two left out for different reasons; Kmin turns alike everywhere.
Untilting Fold() {
  Untilting untilting;
  untilting.Foliation = "S0";
  untilting.Groups.assign(6, {"in use", 2, 0});
  untilting.Groups.push_back({"bare", 0, 3});
  untilting.Groups.push_back({"bad", std::nullopt, 0});
  untilting.Groups.push_back({"bare too", 0, 1});
  untilting.LeftOut = 4;
  untilting.Seed = 7;
  for (const int percent : {0, 98, 100})
    untilting.Steps.push_back({percent, 1.05, -0.25, 0.9 + percent / 1e4, 0.5});
  untilting.Steps[1].TauMax = 0.99;
  untilting.Kmax = {98, Interval{91.5, 104}, 1000, "older than the folding"};
  return untilting;
}

TEST(UntiltingTable, SaysWhatIsBestAndWhatIsLeftOut) {
  Untilting untilting = Fold();
  EXPECT_EQ(
      UntiltingText(untilting, "of"),
      "of\n\tBest step\t95 % limits\tTau at best\tTau as found\tTau untilted\tVerdict\n"
      "Kmax\t98 %\t91.5 to 104 %\t0.9900\t0.9000\t0.9100\tolder than the folding\n"
      "Kmin\tnone\t\t\t0.5000\t0.5000\tnone: tau is the same at each step\n"
      "6 groups, 12 records; 4 records left out. 1000 resamplings, seed 7.\n"
      "Groups left out: \"bare\", \"bare too\" (no record with this foliation and an "
      "orientation). \"bad\" (a trace that is not positive, or a number that is not finite).\n"
      "Untilting %\tP\tT\tTau Kmax\tTau Kmin\n"
      "0\t1.050000\t-0.250000\t0.900000\t0.500000\n"
      "98\t1.050000\t-0.250000\t0.990000\t0.500000\n"
      "100\t1.050000\t-0.250000\t0.910000\t0.500000\n");
  EXPECT_EQ(UntiltingLeftOut(untilting, 1).find("Groups left out: \"bare\" and 1 more (no"), 0u);
  untilting.Kmax.Limits.reset();
  EXPECT_EQ(UntiltingTable(untilting)[1].back(), "none: no limits");
  untilting.Groups.erase(untilting.Groups.begin(), untilting.Groups.begin() + 2);
  EXPECT_EQ(UntiltingTable(untilting)[1].back(), "none: no limits for fewer than five groups");
  EXPECT_EQ(NothingUntilted(untilting), "");
  untilting.Groups.erase(untilting.Groups.begin(), untilting.Groups.begin() + 4);
  EXPECT_EQ(NothingUntilted(untilting), "no group can be untilted by the foliation \"S0\".");
}

TEST(StudyTable, NamesTheCausesOfFailures) {
  EXPECT_EQ(FailuresText({}), "");
  EXPECT_EQ(FailuresText({{"a", {}, Fault(11, "Division by zero")},
                          {"b", {}, Fault(5, NotFinite)},
                          {"c", {}, {}},
                          {"d", {}, Fault(6, "Overflow")},
                          {"e", {}, Fault(11, "Division by zero")},
                          {"f", {}, Fault(11, "Division by zero")},
                          {"g", {}, Fault(11, "Division by zero")}}),
            "Incomplete, too much alike: \"a\", \"e\", \"f\" and 1 more; a tensor has a number "
            "that is not finite: \"b\"; numbers too large: \"d\"");
}

TEST(StudyTable, ZeroHasNoBlankBeforeIt) {
  GroupRow row{"a", {}, {}};
  row.Stats.GroupN = 1;
  row.Stats.Reached = GroupStats::All;
  row.Stats.HasAverages = true;
  EXPECT_EQ(StudyCells(row, ErrorLevel::StandardError)[14].Text, "0.000E+00");
}

class StudyFilesTest : public ProgramTest {};

TEST_F(StudyFilesTest, ComparisonsAreWrittenWithAllDigits) {
  const std::vector<ComparedPair> pairs = Pairs();
  Answer(Path("c.csv"));
  ExportComparisons(Now, Asked, Seen, Program.Log, std::vector{&pairs[1], &pairs[0]}, GroupNames,
                    {"s.ams, N = 9", ErrorLevel::Confidence95, {BootMethod::Simple, 100, 7}});
  const std::string csv = Bytes("c.csv");
  EXPECT_EQ(csv.find("A,B,Kmax_Angle,Kmax_Overlap,Kmax_AxisDiffers,Kmax_Difference,Kmax_Lower,"
                     "Kmax_Upper,Kmax_ValueDiffers,Kint_Angle,"),
            0u);
  EXPECT_NE(csv.find("\r\nSouth\tlimb,one,0.04,,,0,,,,90,,,"), csv.npos);
  EXPECT_NE(csv.find(",95 % confidence angles of the mean (Jelinek 1978),simple,100,7,\"s.ams, N = "
                     "9\"\r\n"),
            csv.npos);
  EXPECT_NE(
      csv.find("\r\n\"North, \"\"top\"\"\",South\tlimb,12.345,no,yes,0.00125,-0.001,0.002,no,2"),
      csv.npos);
}

TEST_F(StudyFilesTest, TheFigureIsWrittenAsThePageIs) {
  std::string path;
  Program.Host.WritePicture = [&path](const std::string& to, PlaneSize, const PictureScale&,
                                      const Host::DrawPicture&) {
    path = to;
    return Outcome();
  };
  Answer(Path("fold.wmf"), 1);
  SaveUntilting(Program, Fold(), "fold.ams");
  EXPECT_EQ(Bytes("fold.wmf").substr(0, 4), "\xD7\xCD\xC6\x9A");  // a placeable metafile
  Answer(Path("fold.svg"), 7);
  SaveUntilting(Program, Fold(), "fold.ams");
  EXPECT_EQ(path, Path("fold.svg"));
  EXPECT_EQ(Seen.Status, "Written: " + path);
  Program.Host.WritePicture = nullptr;  // a build without encoders
  Answer(Path("fold.svg"), 7);
  SaveUntilting(Program, Fold(), "fold.ams");
  EXPECT_NE(Seen.Status.find("no encoders"), std::string::npos);
  EXPECT_FALSE(Asked.Boxes.empty());
  Answer(Path("none/fold.wmf"), 1);
  SaveUntilting(Program, Fold(), "fold.ams");
  EXPECT_NE(Seen.Status.find("could not be written"), std::string::npos);
}

}  // namespace
}  // namespace velorix
