#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "app/tables/data_table.h"
#include "app/tables/group_table.h"
#include "app/tables/groups_csv.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

SpecimenRecord Filled() {
  SpecimenRecord r;
  r.Name = "S1";
  r.Active = r.HasIm = true;
  r.CoorLevel = Geographic;
  r.MeasMode = -1;
  r.Field = 12.3f;
  r.Frequency = 976;
  r.Km = 1.23456e-4;
  r.KmIm = -5e-6;
  for (int i = 1; i <= 3; ++i) {
    r.K[i] = 1.2 - 0.1 * i;
    r.KSD[i] = 0.00126;
    r.Dec[i] = 100.0 * i;
    r.Inc[i] = -20.04;
    r.E[i] = 1.0 * i;
    r.EIm[i] = 10.0 * i;
    r.FTest[i - 1] = 7.25;
  }
  for (int i = 1; i <= 8; ++i) r.Fac[i] = 1;
  return r;
}

TEST(DataTable, ShowsEachValueInItsFormat) {
  SpecimenRecord r = Filled();
  r.RecordNo = 7;
  r.Fac[2] = Factor::Failed();
  std::string cells;
  for (const Column c : DataTableColumns) cells += DataTableCell(c, r, InPhase) + "|";
  EXPECT_EQ(cells,
            "7|S1|AMS(H)|12.3|976|1.235E-04| 0.000E+00| 1.1000| 0.0013| 1.0000| 0.0013| 0.9000|"
            " 0.0013| 100.0|-20.0| 200.0|-20.0| 300.0|-20.0| 1.000|| 1.000| 1.000| 1.000| 1.000|"
            " 1.000| 1.000| 7.3| 7.3| 7.3| 2.000| 3.000| 1.000|");
  // Out of phase: mean, F tests and angles are the block's; the deviations stay in-phase.
  EXPECT_EQ(DataTableCell(Column::Km, r, OutOfPhase), "-5.000E-06");
  EXPECT_EQ(DataTableCell(Column::KmaxSD, r, OutOfPhase), " 0.0013");
  EXPECT_EQ(DataTableCell(Column::E13, r, OutOfPhase), " 10.000");
  r.Dec[1] = std::nan("");
  EXPECT_EQ(DataTableCell(Column::KmaxDec, r, InPhase), "");
}

TEST(DataTable, HeadersHaveTwoRowsAndTheNamesOfTheFactors) {
  Settings settings;
  settings.FacName[1] = "k1/k2";
  EXPECT_EQ(DataTableHeader(HeaderRow::Upper, Column::ID, settings) +
                DataTableHeader(HeaderRow::Lower, Column::ID, settings),
            "IDID");
  EXPECT_EQ(DataTableHeader(HeaderRow::Lower, Column::Field, settings),
            "FreqName");  // one column early, and expected
  EXPECT_EQ(DataTableHeader(HeaderRow::Upper, Column::Fac1, settings) +
                DataTableHeader(HeaderRow::Lower, Column::Fac1, settings),
            "k1/k2k1/k2");
  EXPECT_EQ(DataTableHeader(HeaderRow::Lower, Column::E13, settings), "E13");
}

TEST(DataTable, SortsByTextOrByNumberAndKeepsEqualRowsInOrder) {
  Session session;
  const std::tuple<const char*, float, float> rows[] = {
      {"b10", 9, 2}, {"a", 10, 1e9f}, {"b9", 9, 1}, {"B", -1, 3}};
  for (const auto& [name, field, factor] : rows) {
    SpecimenRecord r = Filled();
    r.Name = name;
    r.Field = field;
    r.Fac[1] = factor;
    session.Records.Add(r);
  }
  Renumber(session.Records);
  const std::tuple<Column, bool, std::vector<int>> cases[] = {
      {Column::Specimen, false, {4, 2, 1, 3}},  // text: "b10" before "b9"
      {Column::Field, false, {4, 1, 3, 2}},     // number: 9 before 10
      {Column::Field, true, {2, 1, 3, 4}},      // equal ones as they were
      {Column::Fac1, false, {3, 1, 4, 2}},      // an empty cell last
      {Column::Fac1, true, {4, 1, 3, 2}},       // both ways
      {Column::ID, true, {4, 3, 2, 1}}};
  for (const auto& [column, downward, expected] : cases) {
    std::vector<int> ids = DataTableRows(session);
    SortDataTable(ids, column, downward, session);
    EXPECT_EQ(ids, expected) << static_cast<int>(column) << downward;
  }
}

GroupStats Stats() {
  GroupStats stats;
  stats.GroupN = 6;
  stats.Reached = GroupStats::All;
  stats.Errors = 3;
  stats.FactorsDone = 8;
  stats.HasAverages = true;
  for (bool& has : stats.HasAverage) has = true;
  for (int k = 1; k <= 3; ++k) {
    stats.MeanK[k] = 1.1 - 0.05 * k;
    stats.MeanDec[k] = 10.25 * k;
    stats.MeanInc[k] = 20;
    stats.MeanE1[k] = 5;
    stats.MeanE2[k] = 2.04;
    stats.BootE1[k] = k;
    stats.BootE2[k] = k + 0.5;
  }
  stats.AvgKm = 1.2345e-4f;
  stats.SdKm = 2e-5f;
  stats.MeanFac[1] = -0.5f;
  stats.AvgFac[8] = 1.0006f;
  return stats;
}

TEST(GroupTable, GivesEachCellItsFormat) {
  const std::string text =
      GroupTableText(Stats(), Settings(), ErrorLevel::StandardError, "not shown");
  for (const char* row :
       {"N = 6\tMean Tensor\t", "K1\t 1.050\t 10.3 \t 20.0 \t 5.0 \t 2.0 \t 1.0 \t 1.5 \t",
        "K2\t 1.000\t 20.5 \t 20.0 \t 5.0 \t 2.0 \t 2.0 \t 2.5 \t",
        "K3\t 0.950\t 30.8 \t 20.0 \t 5.0 \t 2.0 \t 3.0 \t 3.5 \t",
        "Km\tN/A\t1.234E-04\t2.000E-05\t\n", "\t-0.500\t 0.000\t 0.000\t",
        "\t 0.000\t 1.001\t 0.000\t"})
    EXPECT_NE(text.find(row), std::string::npos) << row << "\n" << text;
}

TEST(GroupsCsv, QuotesTextsAndLeavesOutWhatIsNotDefined) {
  GroupRow row{"a, \"b\"\n", Stats(), {}};
  row.Stats.MeanFac[2] = Factor::Failed();
  row.Stats.FactorsDone = 3;
  row.Stats.Hext = HextStats();
  row.Stats.Hext->F = 0.1;
  row.Stats.Hext->F12 = 1.5e-5;
  row.Stats.Hext->F23 = 2;
  EXPECT_EQ(GroupsCsvRow(row, {}),
            "\"a, \"\"b\"\"\n\",6,10.25,20,5,2.04,0,0,20.5,20,5,2.04,0,0,30.75,20,5,2.04,0,0,"
            "0.00012345,2E-05,-0.5,,0,,,,,,0.1,1.5E-05,2\r\n");
  EXPECT_EQ(GroupsCsvRow({"none", {}, {}}, {}), "none,0" + std::string(31, ',') + "\r\n");
}

TEST(GroupTable, HidesASlotNamedZero) {
  Settings settings;
  settings.FacName[3] = "0";
  EXPECT_EQ(FactorLabel(3, settings) + FactorLabel(2, settings), "F");
  const std::string text = GroupTableText(Stats(), settings, ErrorLevel::StandardError, "");
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 13);
}

TEST(GroupTable, LimitsStandWithTheFactorsThatHaveThem) {
  GroupStats stats = Stats();
  stats.BootLimits = {{1.04, 0.99, 0.9}, {1.06, 1.01, 0.95}};
  stats.BootFactors[5] = Interval{-0.25, 0.5};  // T; P has none
  stats.BootBy = {BootMethod::Simple, 1000, 7};
  Settings settings;
  settings.FacIndex = {31, 4, 28, 9, 13, 2, 32, 24};
  const auto line =
      [text = GroupTableText(stats, settings, ErrorLevel::StandardError, "x")](std::size_t n) {
        std::istringstream lines(text);
        std::string found;
        for (std::size_t i = 0; i <= n; ++i) std::getline(lines, found);
        return found;
      };
  EXPECT_EQ(line(0),
            "standard errors of one specimen (Jelinek 1978), bootstrap: simple, 1000 "
            "replicates, seed 7, x");
  EXPECT_TRUE(line(2).ends_with("\t1.040 - 1.060")) << line(2);
  EXPECT_TRUE(line(7).ends_with("\t-0.250 - 0.500")) << line(7);
  EXPECT_TRUE(line(8).ends_with("\t")) << line(8);
}

TEST(GroupTable, NamesTheLevelAndHasHextsRows) {
  GroupStats stats = Stats();
  stats.MeanE1At95 = stats.MeanE2At95 = {7, 8, 9};
  // F12 just below its critical value.
  stats.Hext = HextStats{30, 0.0018, 59.4, 2.5335, 3.3158, 28.25, 3.3159, 25.5, 11.2, 8.2};
  const std::string text =
      GroupTableText(stats, Settings(), ErrorLevel::Confidence95, "dike.ams, N = 6");
  EXPECT_EQ(
      text.find("95 % confidence angles of the mean (Jelinek 1978), dike.ams, N = 6\nN = 6\t"), 0u);
  EXPECT_NE(text.find(" 7.0 \t 7.0 \t"), std::string::npos);
  EXPECT_TRUE(
      text.ends_with("Hext\tValue\tCritical\nF\t 59.40\t 2.53\nF12\t 3.32\t 3.32\n"
                     "F23\t 28.25\t 3.32\ne12\t 25.5 \t\ne23\t 11.2 \t\n"
                     "e13\t 8.2 \t\nVerdict\toblate not rejected\t\n"))
      << text;
}

}  // namespace
}  // namespace velorix
