#include "app/orientation_parameters.h"

#include <algorithm>

#include "app/settings_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class OrientationParameters : public ProgramTest {
 protected:
  OrientationParameters() { Program.Session.SettingsFile = Path("settings.sav"); }

  void Change(const Array1<std::int16_t, 4>& p, bool demagFac) {
    ChangeOrientationParameters(Program, {p, demagFac});
  }
  Settings Written() const {
    Settings settings;
    EXPECT_TRUE(SettingsRead(settings, Program.Session.SettingsFile));
    return settings;
  }
};

TEST_F(OrientationParameters, OtherOnesCloseTheFileAndForgetTheGeologicalOne) {
  for (int parameter = 1; parameter <= 4; ++parameter) {
    Program.Session.Settings = {};
    OpenFile(WriteFile("a", 3));
    Program.Session.GeoFile = Path("a.ged");
    Program.Session.GeoRecords.Grow(2);
    Asked.Boxes.clear();
    const int grids = Seen.Grids;
    Settings wanted;
    wanted.P[parameter] = OrientationValues(parameter).back();
    Change(wanted.P, true);
    ASSERT_EQ(Asked.Boxes.size(), 1u);
    EXPECT_EQ(Asked.Boxes[0],
              "Anisotropy settings|Orientation parameters were changed!\n"
              "Currently open data file is closed.|&OK");
    const Session& s = Program.Session;
    EXPECT_EQ(s.CurrentFile + s.CurrentFileBase + s.GeoFile, "");
    EXPECT_EQ(s.RecordCount() + s.GeoRecords.Count(), 0);
    EXPECT_GT(Seen.Grids, grids);
    EXPECT_EQ(Seen.Caption, "Velorix5");
    EXPECT_EQ(Written(), wanted);
  }
}

TEST_F(OrientationParameters, WithoutOtherOnesTheFileStaysAndIsOnlyUnnamedInTheCaption) {
  OpenFile(WriteFile("a", 3));
  Program.Session.GeoRecords.Grow(2);
  for (const bool demagFac : {true, false}) {
    std::filesystem::remove(Program.Session.SettingsFile);
    DisplayFormCaption(Program);
    Change({6, 0, 6, 0}, demagFac);
    EXPECT_TRUE(Asked.Boxes.empty());
    EXPECT_EQ(Program.Session.RecordCount(), 3);
    EXPECT_EQ(Program.Session.GeoRecords.Count(), 2);
    EXPECT_EQ(Program.Session.CurrentFile, Path("a.ams"));
    EXPECT_EQ(Seen.Caption, "Velorix5");  // wanted, though the file is open
    EXPECT_EQ(Written().DemagFac, demagFac);
  }
}

TEST_F(OrientationParameters, WithNoFileOpenNobodyIsTold) {
  Program.Session.GeoFile = Path("a.ged");
  Program.Session.GeoRecords.Grow(2);
  Change({12, 90, 3, 90}, false);
  EXPECT_TRUE(Asked.Boxes.empty());
  EXPECT_EQ(Program.Session.GeoRecords.Count(), 2);
  Settings wanted;
  wanted.P = {12, 90, 3, 90};
  wanted.DemagFac = false;
  EXPECT_EQ(Written(), wanted);
}

TEST_F(OrientationParameters, SettingsThatCannotBeWrittenAreAFaultOfTheSystem) {
  Program.Session.SettingsFile = Path("no folder/settings.sav");
  EXPECT_THROW(Change({3, 0, 6, 0}, true), std::filesystem::filesystem_error);
  EXPECT_EQ(Program.Session.Settings.P[1], 3);
}

TEST(OrientationMeanings, StandForTheValuesOnOfferAlone) {
  for (int parameter = 1; parameter <= 4; ++parameter) {
    EXPECT_FALSE(OrientationMeaning(parameter).empty());
    const auto values = OrientationValues(parameter);
    for (std::int16_t value = -1; value <= 100; ++value) {
      const bool offered = std::find(values.begin(), values.end(), value) != values.end();
      EXPECT_EQ(!OrientationValueMeaning(parameter, value).empty(), offered)
          << parameter << " " << value;
    }
  }
}

}  // namespace
}  // namespace velorix
