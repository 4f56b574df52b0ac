#include "app/files/save.h"

#include "datafiles/ran_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class Save : public ProgramTest {
 protected:
  RecordArray ReadRan(const std::string& name) const {
    RecordArray records;
    EXPECT_TRUE(ReadRanFile(Path(name), records, {})) << name;
    return records;
  }
};

TEST_F(Save, SavesUnderANewNameAndAsksBeforeItOverwrites) {
  OpenFile(WriteFile("a", 3));
  Answer(Path("copy.ams"));
  Menu("mnuSaveAs");
  EXPECT_EQ(Asked.FileQuestions.back().DefaultName, "a");
  EXPECT_EQ(Asked.FileQuestions.back().Filter, "AMS file (*.ams)|*.ams|RAN file (*.ran)|*.ran|");
  EXPECT_EQ(Bytes("copy.ams").size(), 3u * 640);

  Menu("mnuSaveSelectedAs");  // nothing is selected: told before a name is asked for
  SelectRecords(Program, {2});
  Asked.Buttons = {1, 0};  // "&No" shows the dialog again
  for (int i = 0; i < 2; ++i) Answer(Path("copy.ams"));
  Menu("mnuSaveSelectedAs");
  const std::string title = "Save Selected Record(s) As|";
  const std::string exists = title + "This file already exists.\nOverwrite existing file?|&Yes|&No";
  EXPECT_EQ(Asked.Boxes, (Texts{title + "No record is selected.|&OK", exists, exists}));
  EXPECT_EQ(Bytes("copy.ams").size(), 640u);

  Answer(Path("no/such/folder/x.ams"));
  Menu("mnuSaveAs");
  EXPECT_TRUE(Asked.Boxes.back().starts_with("Velorix5|")) << Asked.Boxes.back();
  EXPECT_EQ(Names(), "a1 a2 a3 ");
}

TEST_F(Save, TheTypeChosenDecidesNotTheName) {
  OpenFile(WriteFile("a", 3));
  Answer(Path("second.ams"), 2);
  Menu("mnuSaveAs");
  Answer(Path("first.ran"), 1);
  Menu("mnuSaveAs");
  EXPECT_TRUE(Asked.Boxes.empty());
  EXPECT_EQ(Seen.Status, "Written: " + Path("first.ran"));
  EXPECT_EQ(NamesOf(ReadRan("second.ams")), "a1 a2 a3 ");
  EXPECT_EQ(Bytes("first.ran").size(), 3u * 640);
}

TEST_F(Save, SavedTensorsAreThoseOfTheGeographicView) {
  OpenFile(WriteFile("a", 1));
  Menu("mnuView(2)");
  const SpecimenRecord shown = Program.Session.Records[1];
  Menu("mnuView(1)");  // the view in force plays no part
  Answer(Path("x.ran"), 2);
  Menu("mnuSaveAs");
  const RecordArray saved = ReadRan("x.ran");
  for (int i = 1; i <= 6; ++i)
    EXPECT_EQ(saved[1].Tensor[i], Number(shown.TensorRot[i].Single())) << i;
}

TEST_F(Save, SaveWritesARanFileOverTheOpenOne) {
  Menu("mnuSave");
  OpenFile(WriteFile("a", 3));
  Menu("mnuSave");
  EXPECT_EQ(Asked.Boxes, Texts{"Save|There is no record to save.|&OK"});
  EXPECT_EQ(NamesOf(ReadRan("a.ams")), "a1 a2 a3 ");
}

TEST_F(Save, WhatDoesNotFitARanFileIsToldAndTheOldOneStands) {
  OpenFile(WriteFile("a", 1));
  Program.Session.Records[1].FoliAz[1] = 40000;
  Answer(Put("old.ran", "old"), 2);
  Menu("mnuSaveAs");
  EXPECT_EQ(Asked.Boxes.back(), "Velorix5|" + Path("old.ran") + "\nOverflow|&OK");
  EXPECT_EQ(Bytes("old.ran"), "old");
}

}  // namespace
}  // namespace velorix
