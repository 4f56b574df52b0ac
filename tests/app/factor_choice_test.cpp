#include "app/factor_choice.h"

#include "app/settings_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class FactorChoice : public ProgramTest {
 protected:
  FactorChoice() { Program.Session.SettingsFile = Path("settings.sav"); }

  Settings Written() const {
    Settings settings;
    EXPECT_TRUE(SettingsRead(settings, Program.Session.SettingsFile));
    return settings;
  }
};

TEST_F(FactorChoice, RowsUnchangedGiveTheSameSettings) {
  const Settings before = Program.Session.Settings;
  ChangeFactors(Program, FactorRowsOf(before));
  EXPECT_EQ(Program.Session.Settings, before);
  EXPECT_EQ(Written(), before);
}

TEST_F(FactorChoice, AnIndexThatIsNotInTheListSelectsNothingAndBecomesTheMean) {
  const struct {
    std::int16_t index;
    int position;
    std::int16_t taken;
  } cases[] = {{0, -1, 0}, {1, 0, 1}, {38, 37, 38}, {39, -1, 0}, {-5, -1, 0}};
  for (const auto& c : cases) {
    Program.Session.Settings.FacIndex[3] = c.index;
    const FactorRows rows = FactorRowsOf(Program.Session.Settings);
    EXPECT_EQ(rows[3].Position, c.position) << c.index;
    ChangeFactors(Program, rows);
    EXPECT_EQ(Program.Session.Settings.FacIndex[3], c.taken) << c.index;
  }
}

TEST_F(FactorChoice, NamesAreTakenAsTheyAreAndCutAtABlankAtTheNextStart) {
  FactorRows rows = FactorRowsOf(Program.Session.Settings);
  rows[1].Name = "";
  rows[2].Name = "my F";
  rows[8].Name = "poměr";
  ChangeFactors(Program, rows);
  EXPECT_EQ(Program.Session.Settings.FacName[1], "");
  EXPECT_EQ(Program.Session.Settings.FacName[2], "my F");
  EXPECT_EQ(Written().FacName[2], "my");  // wanted
  EXPECT_EQ(Written().FacName[3], "P");
}

TEST_F(FactorChoice, RecordsKeepTheirValuesUntilTheNextDisplay) {
  OpenFile(WriteFile("a", 1));
  const Array1<float, 8> before = Program.Session.Records[1].Fac;
  FactorRows rows = FactorRowsOf(Program.Session.Settings);
  rows[1].Position = 3;  // k1/k3
  ChangeFactors(Program, rows);
  const int headers = Seen.GridHeaders, grids = Seen.Grids;
  Menu("mnuAnisoFac");
  EXPECT_EQ(Seen.GridHeaders, headers + 1);
  EXPECT_EQ(Seen.Grids, grids);
  EXPECT_EQ(Program.Session.Records[1].Fac, before);  // wanted
  DisplayData(Program, false);
  EXPECT_EQ(Program.Session.Records[1].Fac[1], before[3]);
}

}  // namespace
}  // namespace velorix
