#include <algorithm>

#include "app/commands/file_commands.h"
#include "app/commands/startup.h"
#include "app/edit/factor_choice.h"
#include "app/edit/orientation_parameters.h"
#include "datafiles/settings/settings_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class FactorChoice : public ProgramTest {
 protected:
  FactorChoice() { Now.SettingsFile = Path("settings.sav"); }

  Settings& Choices = Now.Settings;
};

TEST_F(FactorChoice, AnIndexThatIsNotInTheListSelectsNothingAndBecomesTheMean) {
  const std::tuple<std::int16_t, int, std::int16_t> cases[] = {
      {0, -1, 0}, {1, 0, 1}, {38, 37, 38}, {39, -1, 0}, {-5, -1, 0}};
  for (const auto& [index, position, taken] : cases) {
    Settings expected = Choices;
    Choices.FacIndex[3] = index;
    const FactorRows rows = FactorRowsOf(Choices);
    EXPECT_EQ(rows[3].Position, position) << index;
    ChangeFactors(Now, rows);
    expected.FacIndex[3] = taken;
    EXPECT_EQ(Choices, expected) << index;
  }
}

TEST_F(FactorChoice, NamesAreTakenAsTheyAreAndCutAtABlankAtTheNextStart) {
  FactorRows rows = FactorRowsOf(Choices);
  rows[1].Name = "";
  rows[2].Name = "my F";
  ChangeFactors(Now, rows);
  EXPECT_EQ(Choices.FacName[1], "");
  EXPECT_EQ(Choices.FacName[2], "my F");
  Settings next;
  EXPECT_TRUE(SettingsRead(next, Now.SettingsFile));
  EXPECT_EQ(next.FacName[2], "my");  // expected
  EXPECT_EQ(next.FacName[3], "P");
}

TEST_F(FactorChoice, SettingsThatCannotBeReadAreReportedAtTheStart) {
  Program.Host.AppFolder = Path("program");
  Program.Host.DataRoot = Path("data");
  const auto start = [this] { return PrepareSession(Now, Program.Log, Program.Host); };
  EXPECT_EQ(start(), "") << "at the first start there is no file";
  EXPECT_EQ(start(), "");
  Put("program/MarloAniso.sav", "damaged");
  EXPECT_EQ(start(), Now.SettingsFile +
                         ": The settings could not be read. The defaults have taken their place.");
  EXPECT_EQ(start(), "");

  Put("program/Preferences.ini", "KeepFormerFile=perhaps\r\nKeepFormerFile=0\nnonsense\n\n");
  EXPECT_EQ(start(), "");
  EXPECT_FALSE(Now.Preferences.KeepFormerFile);
  EXPECT_NE(Bytes("program/LogFiles/DebugPrint.log").find("Preferences.ini: 2 lines are not"),
            std::string::npos);
}

class OrientationParameters : public ProgramTest {
 protected:
  OrientationParameters() {
    Now.SettingsFile = Path("settings.sav");
    Now.GeoFile = Path("a.ged");
    Now.GeoRecords.Grow(2);
  }
  /// Changes the parameters and expects the settings `expected`, in use and written.
  void Change(const Settings& expected) {
    ChangeOrientationParameters(Program, {expected.P, expected.DemagFac});
    Settings written;
    EXPECT_TRUE(SettingsRead(written, Now.SettingsFile));
    EXPECT_EQ(written, expected);
    EXPECT_EQ(Now.Settings, expected);
    EXPECT_EQ(Seen.Caption, "Velorix5");  // expected, also where a file stays open
  }
};

TEST_F(OrientationParameters, OtherOnesCloseTheFileAndForgetTheGeologicalOne) {
  for (int parameter = 1; parameter <= 4; ++parameter) {
    OpenFile(WriteFile("a", 3));
    Now.GeoFile = Path("a.ged");
    Now.GeoRecords.Grow(2);
    Asked.Boxes.clear();
    const int grids = Seen.Grids;
    Settings expected = Now.Settings;
    expected.P[parameter] = OrientationValues(parameter).back();
    Change(expected);
    EXPECT_EQ(Asked.Boxes, Texts{"Anisotropy settings|Orientation parameters were changed!\n"
                                 "Currently open data file is closed.|&OK"});
    EXPECT_EQ(Now.CurrentFile + Now.GeoFile, "");
    EXPECT_EQ(Now.RecordCount() + Now.GeoRecords.Count(), 0);
    EXPECT_GT(Seen.Grids, grids);
  }
}

TEST_F(OrientationParameters, WithoutOtherOnesTheFileStaysAndIsOnlyUnnamedInTheCaption) {
  OpenFile(WriteFile("a", 3));
  Settings expected;
  for (const bool demagFac : {true, false}) {
    DisplayFormCaption(Program);
    expected.DemagFac = demagFac;
    Change(expected);
    EXPECT_EQ(Asked.Boxes, Texts());
    EXPECT_EQ(Names(), "a1 a2 a3 ");
    EXPECT_EQ(Now.GeoRecords.Count(), 2);
    EXPECT_EQ(Now.CurrentFile, Path("a.ams"));
  }
}

TEST(OrientationMeanings, StandForTheValuesOnOfferAlone) {
  for (int parameter = 1; parameter <= 4; ++parameter) {
    EXPECT_FALSE(OrientationMeaning(parameter).empty());
    const auto values = OrientationValues(parameter);
    for (std::int16_t value = -1; value <= 100; ++value)
      EXPECT_EQ(!OrientationValueMeaning(parameter, value).empty(),
                std::find(values.begin(), values.end(), value) != values.end())
          << parameter << " " << value;
  }
}

}  // namespace
}  // namespace velorix
