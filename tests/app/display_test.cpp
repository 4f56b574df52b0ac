#include "app/commands/display.h"

#include "app/display/shown_group.h"
#include "app/tables/record_grid.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class Display : public ProgramTest {
 protected:
  void Fill(const std::vector<SpecimenRecord>& list) {
    RecordArray records = ArrayOf(list);
    ReplaceStore(Now, records);
    DisplayData(Program, true);
  }
  static SpecimenRecord Coded(const std::string& foliation, const std::string& lineation) {
    SpecimenRecord r = Record(foliation + lineation);
    r.HasCoor[3] = r.HasCoor[4] = true;
    r.FoliName[1] = foliation;
    r.FoliAz[1] = 120;
    r.FoliDip[1] = 40;
    r.LineName[1] = lineation;
    r.LineTrend[1] = 200;
    r.LinePlunge[1] = 10;
    return r;
  }
  int Shown() const {
    int n = 0;
    ForEachActive(Now, [&](const SpecimenRecord&) { ++n; });
    return n;
  }
  static std::string Codes(const CodeList& list) {
    std::string text;
    for (const CodeEntry& entry : list.Entries) text += entry.Text + " ";
    return text;
  }
  /// What a routine says of the mean on the screen.
  std::string MeanOf(std::string (*words)(const Session&, const GroupSubject&, int)) const {
    return words(Now, Program.GroupOf, Program.GroupStats.GroupN);
  }
  std::string Chosen() const { return Now.FoliCode + Now.LineCode; }

  const CodeLists& Lists = Program.Lists;
};

TEST_F(Display, FillsTheCodeListsInOrderOfAppearanceInUpperCase) {
  Fill({Coded("s1", "L1"), Coded("S0", ""), Coded("S1", "l2")});
  EXPECT_EQ(Codes(Lists.foliationsInUse) + Codes(Lists.lineationsInUse), "S1 S0 L1 L2 ");
  EXPECT_EQ(Codes(Lists.foliationsShown), "S1 S0 ");
  EXPECT_EQ(Chosen(), "S1L1");
  EXPECT_EQ(Program.Plots.Stereo.foliationCodes, Texts{"S1"});
  Menu("mnuView(3)");
  // Record codes keep their case and are compared exactly: "s1" and "l2" are not found.
  EXPECT_EQ(Shown(), 0);
}

TEST_F(Display, GivesTheLineationListZeroWhenTheFirstRecordHasNone) {
  Fill({Coded("S", ""), Coded("S", "L")});
  EXPECT_EQ(Codes(Lists.lineationsInUse) + Codes(Lists.lineationsShown), "0 L L ");
  EXPECT_EQ(Chosen(), "S0");
  Fill({Coded("S", "L")});  // a reset takes "0" away with the other codes of the data
  EXPECT_EQ(Codes(Lists.lineationsInUse), "L ");
  Fill({Coded("", "L")});  // a list that shows nothing gives an empty code, not the former one
  EXPECT_EQ(Chosen(), "L");
  Fill({});
  EXPECT_EQ(Codes(Lists.lineationsInUse) + Chosen(), "");
}

TEST_F(Display, ResetsChosenCodesOnlyWhenAskedTo) {
  Fill({Coded("S0", "L0"), Coded("S1", "L1")});
  ChooseFoliation(Program, 1);
  ChooseLineation(Program, 1);
  DisplayData(Program, false);
  Menu("mnuSelection(1)");
  EXPECT_EQ(Chosen(), "S1L1");
  Button("tecto(2)");  // every button resets the lists
  EXPECT_EQ(Chosen(), "S0L0");
  EXPECT_EQ(Now.TectoPlane, PaleoPlane::Vertical);
}

TEST_F(Display, TheListsRotateDisregardedRecordsTooButLeaveFactorsAlone) {
  Fill({Record("a"), Record("b")});
  Now.Records[2].Selected = true;
  Menu("mnuSelection(2)");
  EXPECT_EQ(Shown(), 1);
  const Number geographic = Now.Records[2].Dec[1];
  Now.Records[1].Fac[1] = 77;
  ChooseCoorSys(Program, Specimen);
  EXPECT_EQ(Now.CoorSys, Specimen);
  EXPECT_NE(Now.Records[2].Dec[1], geographic);
  EXPECT_EQ(Now.Records[1].Fac[1], 77);
  Menu("mnuSelection(3)");
  EXPECT_EQ(Shown(), 2);
  EXPECT_NE(Now.Records[1].Fac[1], 77);
}

TEST_F(Display, AMeanOfAnotherViewThanTheOneShownSaysWhichItBelongsTo) {
  OpenFile(WriteRecords("hill.ams", {Coded("S", "L"), Coded("S", "M"), Record("bare")}));
  const std::string ofGeographic = "Mean: geographic, N = 3";
  const std::string ofTectonic = "Mean: tectonic (foliation S vertical, lineation L north), N = 1";
  // clang-format off
  const std::tuple<const char*, std::function<void()>, std::string> steps[] = {
      {"opened", [] {}, ""},
      {"a plane that turns nothing here", [this] { ChooseTectoPlane(Program, PaleoPlane::Vertical); }, ""},
      {"another system", [this] { ChooseCoorSys(Program, Tectonic); }, ofGeographic},
      {"back again", [this] { ChooseCoorSys(Program, Geographic); }, ""},
      {"in phase, specimen", [this] { ChooseCoorSys(Program, Specimen); }, ofGeographic},
      {"computed", [this] { Menu("mnuView(4)"); }, ""},
      {"another axis", [this] { ChooseTectoAxis(Program, TectoAxis::East); }, ofTectonic},
      {"and the axis back", [this] { ChooseTectoAxis(Program, TectoAxis::North); }, ""},
      {"another lineation", [this] { ChooseLineation(Program, 1); }, ofTectonic},
      {"computed again", [this] { Menu("mnuSelection(5)"); }, ""}};
  // clang-format on
  for (const auto& [what, step, label] : steps) {
    step();
    EXPECT_EQ(MeanOf(MeanLabel), label) << what;
  }
  EXPECT_EQ(MeanOf(GroupHeading),
            "hill.ams, in-phase, tectonic (foliation S vertical, lineation M north), N = 1");
  Menu("mnuClose");
  ChooseCoorSys(Program, Specimen);
  EXPECT_EQ(MeanOf(MeanLabel) + MeanOf(GroupHeading), "") << "of no records";
}

TEST_F(Display, DisregardedRecordsAreCountedBesideThoseShown) {
  Fill({Coded("S", "L"), Record("bare"), Record("other")});
  EXPECT_EQ(DisregardedLabel(Now), "");
  SelectRecords(Program, {3});
  Menu("mnuSelection(2)");
  EXPECT_EQ(DisregardedLabel(Now), "1 of 3 disregarded, 2 shown");
  Menu("mnuView(3)");  // which shows one of the other two
  EXPECT_EQ(DisregardedLabel(Now), "1 of 3 disregarded, 1 shown");
}

TEST_F(Display, TheGridShowsTheMeanAndTheErrorsOfTheBlockAndAnyFactor) {
  SpecimenRecord r = Record("x");
  r.Km = 0.1;
  r.KmIm = 0.000015;
  r.Fac[8] = 1e9f;  // one that could not be computed
  for (int i = 0; i <= 3; ++i) r.FTest[i] = 5.0 + i, r.FTestIm[i] = 0.5 + i;
  for (int i = 1; i <= 3; ++i) r.E[i] = 1.0 * i, r.EIm[i] = 10.0 * i;
  const std::tuple<Column, const char*, const char*> cases[] = {
      {Column::Km, "0.1", "1.5E-05"}, {Column::Fac8, "1E+09", "1E+09"}, {Column::F, "5", "0.5"},
      {Column::F23, "7", "2.5"},      {Column::E12, "2", "20"},         {Column::E23, "3", "30"},
      {Column::E13, "1", "10"}};
  for (const auto& [column, kre, kim] : cases) {
    EXPECT_EQ(GridCell(column, r, InPhase), kre) << static_cast<int>(column);
    EXPECT_EQ(GridCell(column, r, OutOfPhase), kim) << static_cast<int>(column);
  }
}

TEST_F(Display, CloseEmptiesTheStoreAndKeepsTheView) {
  OpenFile(WriteFile("a", 3));
  Menu("mnuView(1)");
  Menu("mnuClose");
  EXPECT_EQ(Names(), "");
  EXPECT_EQ(Seen.Caption, "Velorix5");
  EXPECT_EQ(Now.CoorSys, Specimen);
  Menu("mnuReload");
  EXPECT_EQ(Names(), "");
  Menu("mnuOpenNext");  // the folder is remembered
  EXPECT_EQ(Names(), "a1 a2 a3 ");
}

TEST_F(Display, RotateTurnsEveryTensorByNinetyDegrees) {
  Fill({Record("a")});
  const Array1<Number, 6>& now = Now.Records[1].Tensor;
  const Array1<Number, 6> before = now;
  Button("rotate");
  EXPECT_EQ(Asked.Boxes, Texts{"Velorix5|Rotate|&OK"});
  EXPECT_NEAR(now[1], before[2], 1e-6);  // north took east's place
  EXPECT_NEAR(now[2], before[1], 1e-6);
  EXPECT_NEAR(now[4], -before[4], 1e-6);
  EXPECT_NEAR(now[5], before[6], 1e-6);
}

TEST_F(Display, AFailureInACommandIsToldAndTheViewsFollowTheStore) {
  EXPECT_FALSE(Guarded(Program, [] { FailKernel("Sub Mxmpy", "Dimension mismatch"); }));
  EXPECT_EQ(Asked.Boxes.back(), "Velorix5|Sub Mxmpy: Dimension mismatch|&OK");
  EXPECT_EQ(Seen.Status, "Sub Mxmpy: Dimension mismatch");
  EXPECT_EQ(Seen.Grids, 1);
}

TEST_F(Display, ARecordThatCannotBeDerivedIsToldAndNoOldMeanStays) {
  OpenFile(WriteFile("a", 3));
  EXPECT_EQ(Program.GroupStats.GroupN, 3);
  SpecimenRecord odd = Record("odd");
  odd.OP[1] = 30000;  // o'clock
  OpenFile(WriteRecords("odd.ams", {Record("plain"), odd}));
  EXPECT_EQ(Asked.Boxes, Texts{"Velorix5|Record 2: Overflow|&OK"});
  EXPECT_EQ(Program.GroupStats.GroupN, 0);
}

TEST_F(Display, StatisticsThatFailAreToldBesideTheViewsAndTheNextCommandWorks) {
  SpecimenRecord same = Record("same");
  same.OrientAz = same.OrientInc = 0;
  same.Tensor = {};
  same.Tensor[1] = 1.1f, same.Tensor[2] = 1.0f, same.Tensor[3] = 0.9f;
  OpenFile(WriteRecords("same.ams", {same, same, same, same, same}));
  EXPECT_NE(Seen.Status.find("Division by zero"), std::string::npos) << Seen.Status;
  EXPECT_EQ(Seen.Grids, 1);
  EXPECT_TRUE(Seen.Caption.ends_with("(N = 5)")) << Seen.Caption;
  OpenFile(WriteFile("a", 3));
  EXPECT_EQ(Program.GroupStats.Reached, GroupStats::All);
}

}  // namespace
}  // namespace velorix
