#include "app/tables/group_table.h"

#include <gtest/gtest.h>

namespace velorix {
namespace {

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

TEST(GroupTable, GivesEachLabelItsTextAndFormat) {
  const GroupStats stats = Stats();
  const std::tuple<int, const char*> cases[] = {
      {60, "N = 6"},     {2, " 1.050"},  {8, " 1.000"},  {14, " 0.950"},
      {3, " 10.3 "},     {16, " 20.0 "}, {5, " 5.0 "},   {18, " 2.0 "},
      {33, "N/A"},       {34, "-0.500"}, {50, " 1.001"}, {42, "1.234E-04"},
      {51, "2.000E-05"}, {1, ""},        {7, ""},        {61, ""}};
  for (const auto& [index, text] : cases) EXPECT_EQ(JelinekText(index, stats), text) << index;
  std::string boot;
  for (int i = 1; i <= 7; ++i) boot += BootStatText(i, stats);
  EXPECT_EQ(boot, " 1.0  1.5  2.0  2.5  3.0  3.5 ");
}

TEST(GroupTable, StopsWhereTheStatisticsFailed) {
  GroupStats stats = Stats();
  stats.Reached = GroupStats::MeanTensor;
  stats.Errors = 1;
  stats.FactorsDone = 0;
  EXPECT_NE(JelinekText(2, stats), "");
  EXPECT_NE(JelinekText(5, stats), "");  // Kmax has its errors, Kint has none
  for (int index : {11, 34, 42, 43, 51, 52}) EXPECT_EQ(JelinekText(index, stats), "") << index;
  EXPECT_EQ(BootStatText(1, stats), "");
}

TEST(GroupTable, HidesASlotNamedZero) {
  Settings settings;
  settings.FacName[3] = "0";
  EXPECT_EQ(FactorLabel(3, settings) + FactorLabel(2, settings), "F");
  const std::string text = GroupTableText(Stats(), settings);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 13);
}

}  // namespace
}  // namespace velorix
