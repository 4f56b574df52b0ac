#include "app/edit/factor_choice.h"

#include "datafiles/settings_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class FactorChoice : public ProgramTest {
 protected:
  FactorChoice() { Choice.SettingsFile = Path("settings.sav"); }

  Session& Choice = Program.Session;
  Settings& Now = Choice.Settings;
};

TEST_F(FactorChoice, AnIndexThatIsNotInTheListSelectsNothingAndBecomesTheMean) {
  const std::tuple<std::int16_t, int, std::int16_t> cases[] = {
      {0, -1, 0}, {1, 0, 1}, {38, 37, 38}, {39, -1, 0}, {-5, -1, 0}};
  for (const auto& [index, position, taken] : cases) {
    Settings wanted = Now;
    Now.FacIndex[3] = index;
    const FactorRows rows = FactorRowsOf(Now);
    EXPECT_EQ(rows[3].Position, position) << index;
    ChangeFactors(Program.Session, rows);
    wanted.FacIndex[3] = taken;
    EXPECT_EQ(Now, wanted) << index;
  }
}

TEST_F(FactorChoice, NamesAreTakenAsTheyAreAndCutAtABlankAtTheNextStart) {
  FactorRows rows = FactorRowsOf(Now);
  rows[1].Name = "";
  rows[2].Name = "my F";
  ChangeFactors(Program.Session, rows);
  EXPECT_EQ(Now.FacName[1], "");
  EXPECT_EQ(Now.FacName[2], "my F");
  Settings next;
  EXPECT_TRUE(SettingsRead(next, Choice.SettingsFile));
  EXPECT_EQ(next.FacName[2], "my");  // wanted
  EXPECT_EQ(next.FacName[3], "P");
}

TEST_F(FactorChoice, RecordsKeepTheirValuesUntilTheNextDisplay) {
  OpenFile(WriteFile("a", 1));
  const Array1<float, 8> before = Choice.Records[1].Fac;
  FactorRows rows = FactorRowsOf(Now);
  rows[1].Position = 3;  // k1/k3
  ChangeFactors(Program.Session, rows);
  const int headers = Seen.GridHeaders, grids = Seen.Grids;
  Menu("mnuAnisoFac");
  EXPECT_EQ(Seen.GridHeaders, headers + 1);
  EXPECT_EQ(Seen.Grids, grids);
  EXPECT_EQ(Choice.Records[1].Fac, before);  // wanted
  DisplayData(Program, false);
  EXPECT_EQ(Choice.Records[1].Fac[1], before[3]);
}

}  // namespace
}  // namespace velorix
