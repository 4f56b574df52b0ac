#include "app/display/contour.h"

#include <limits>

#include "tests/app/script.h"

namespace velorix {
namespace {

struct ContourTest : ProgramTest {
  ContourTest() {
    BuildContourGrid(Program.Contour.Grid, 0, 300, 3);
    Program.Host.AppFolder = Path("");
    Now.CoorSys = Geographic;
    Now.FoliCode = "S";
    Now.LineCode = "L";
  }

  /// A record in view, its Kmax, Kint and Kmin at `dec`, `dec` + 1, `dec` + 2.
  SpecimenRecord& Add(double dec, double inc) {
    SpecimenRecord r;
    r.Active = true;
    r.CoorLevel = Geographic;
    for (int k = 1; k <= 3; ++k) r.Dec[k] = dec + k - 1, r.Inc[k] = inc;
    Now.Records.Add(r);
    return Now.Records[Now.RecordCount()];
  }
  std::vector<float> Decs(ContourDisplay option, const char* code = "") {
    return BuildContourData(Program.Session, option, code, code).Dec;
  }
  bool Count() {
    return CountContour(State, Program.Session, Asked, [](double) { return true; });
  }

  using Floats = std::vector<float>;
  ContourSession& State = Program.Contour;
};

TEST_F(ContourTest, DataAreTheDirectionsOfTheRecordsAtTheLevelInView) {
  Now.ReImMode = OutOfPhase;  // a record without that tensor takes part all the same
  Add(10, 20);
  Add(30, 20).Active = false;
  Add(50, 20).CoorLevel = Specimen;
  Add(70, 20).Dec[1] = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(Decs(ContourDisplay::Kmax), (Floats{10}));
  EXPECT_EQ(Decs(ContourDisplay::Kint), (Floats{11, 71}));
  EXPECT_EQ(Decs(ContourDisplay::Kmin), (Floats{12, 72}));
  const ContourData data = BuildContourData(Program.Session, ContourDisplay::Kmax, "", "");
  EXPECT_NEAR(data.X[0], 0.925417, 1e-6);  // cos 20 cos 10
  EXPECT_NEAR(data.Y[0], 0.163176, 1e-6);
  EXPECT_NEAR(data.Z[0], 0.342020, 1e-6);
  EXPECT_EQ(data.Inc[0], 20);
}

TEST_F(ContourTest, TheFirstOfTwoSlotsWithTheCodeGivesPoleAndLineation) {
  const std::tuple<const char*, const char*, const char*, Floats, Floats, Floats> cases[] = {
      {"S", "x", "", {280}, {60}, {100}},
      {"x", "S", "", {290}, {60}, {110}},
      {"S", "S", "", {280}, {60}, {100}},
      {"x", "y", "S", {}, {}, {}},
      {"s", "", "", {}, {}, {}}};
  SpecimenRecord& r = Add(0, 0);
  for (int slot = 1; slot <= 3; ++slot) {
    r.FoliDec[slot] = r.LineDec[slot] = 90.0 + 10 * slot;
    r.FoliInc[slot] = r.LineInc[slot] = 30.0;
  }
  for (const auto& [first, second, third, poles, poleIncs, lines] : cases) {
    SCOPED_TRACE(std::string(first) + " " + second);
    r.FoliName = r.LineName = {first, second, third, ""};
    EXPECT_EQ(Decs(ContourDisplay::FoliationPole, "S"), poles);
    EXPECT_EQ(BuildContourData(Program.Session, ContourDisplay::FoliationPole, "S", "").Inc,
              poleIncs);
    EXPECT_EQ(Decs(ContourDisplay::Lineation, "S"), lines);
    // An empty code names nothing.
    EXPECT_EQ(Decs(ContourDisplay::FoliationPole), Floats());
    EXPECT_EQ(Decs(ContourDisplay::Lineation), Floats());
  }
}

TEST_F(ContourTest, ACountIsOfTheDataInViewThen) {
  Add(10, 20);
  ShowContourData(State, Program.Session);
  EXPECT_FALSE(State.Counted());
  EXPECT_EQ(ContourCaption(State), "Kmax, geographic coordinates, not counted yet");
  Add(15, 25);
  ASSERT_TRUE(Count());
  EXPECT_EQ(State.Count.ContourDataCount, 2);
  EXPECT_EQ(ContourCaption(State), "Kmax, geographic coordinates, smoothing 20");
  ChooseContourDisplay(State, Program.Session, ContourDisplay::Kint);
  EXPECT_FALSE(State.Counted());
  EXPECT_EQ(State.InView.Data.Dec, (Floats{11, 16}));
}

TEST_F(ContourTest, ADisplayRebuildsTheDataOfAnOpenWindowAndKeepsItsCount) {
  Now.CurrentFile = Path("granite.ams");
  for (int i = 0; i < 21; ++i) Add(10 + i, 20);
  ShowContourData(State, Program.Session);
  ASSERT_TRUE(Count());
  const auto density = Program.Contour.Grid.Density;
  EXPECT_EQ(ContourStaleText(State), "");

  const std::string stale = "Counted for granite.ams, geographic, N = 21; press Count";
  SpecimenRecord& last = Now.Records[21];
  const std::tuple<const char*, int, std::function<void()>> changes[] = {
      {"a record less", 20, [&] { last.Active = false; }},
      {"a record turned", 21, [&] { last.Active = true, last.Dec[1] = 99.0; }},
      {"another file", 21, [&] { last.Dec[1] = 30.0, Now.CurrentFile = Path("b.ams"); }},
      {"another system", 0, [&] { Now.CoorSys = Tectonic; }}};
  Program.Windows.Contour = true;
  for (const auto& [name, count, change] : changes) {
    change();
    RefreshViews(Program);
    EXPECT_EQ(ContourStaleText(State), stale) << name;
    EXPECT_EQ(State.InView.Data.Count(), count) << name;
  }
  EXPECT_EQ(ContourCaption(State), "Kmax, tectonic coordinates, no data in view");
  EXPECT_EQ(Seen.Contours, 4);
  Now.CoorSys = Geographic;
  RefreshViews(Program);
  EXPECT_EQ(ContourCaption(State), "Kmax, geographic coordinates, not counted yet");
  EXPECT_TRUE(Program.Contour.Grid.Density == density);
  ASSERT_TRUE(Count());
  EXPECT_EQ(ContourStaleText(State), "");
}

TEST_F(ContourTest, TextsTellLevelsMaximumAndTheNodeUnderTheMouse) {
  Add(0, 90);
  ShowContourData(State, Program.Session);
  EXPECT_EQ(ContourLevelsText(State) + ContourMaximumText(State) + ContourTimeText(State), "");
  EXPECT_EQ(ContourCursorText(State, 330.5, 180.5), "Dec 90.0, Inc 0.0");
  State.Options.smoothing = 0;
  ASSERT_TRUE(Count());
  EXPECT_EQ(ContourLevelsText(State), " 1");
  EXPECT_EQ(ContourCursorText(State, 330.5, 180.5), "Dec 90.0, Inc 0.0, density 1.00");
  State.Options.smoothing = 3;
  ASSERT_TRUE(Count());
  // exp(3) over the mean of exp(3 u u) for u from 0 to 1 is 4.77 on a finer grid.
  const std::string maximum = "Maximum 4.75 at Dec 0.0, Inc 90.0\nMinimum 0.24\n";
  EXPECT_EQ(ContourMaximumText(State).substr(0, maximum.size()), maximum);
  EXPECT_EQ(ContourLevelsText(State), " 1 2 3 4");
}

TEST_F(ContourTest, ExportWritesWholeDegreesOfKmaxInStoreOrder) {
  Add(10.4, 20.6);
  Add(200, 5).CoorLevel = Specimen;
  Add(300.5, 0.2);
  Add(45, 45).Active = false;
  Add(7, -3.4);
  GrevaExport(Program.Session, Program.Host.AppFolder, Asked, Seen, Program.Log);
  EXPECT_EQ(Bytes("examples/grevadata.txt"), "10/21\r\n301/0\r\n7/-3\r\n");
  EXPECT_NE(Seen.Status.find("3 directions"), std::string::npos);
  Now.Records.Clear();
  GrevaExport(Now, Program.Host.AppFolder, Asked, Seen, Program.Log);
  EXPECT_EQ(Bytes("examples/grevadata.txt"), "");
  EXPECT_TRUE(Asked.Boxes.empty());
}

}  // namespace
}  // namespace velorix
