#include "app/save.h"

#include <fstream>

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

TEST_F(Save, TheSecondTypeOfBothSaveDialogsIsRan) {
  OpenFile(WriteFile("a", 3));
  SelectRecords(Program, {2, 3});
  Asked.Files = {FileAnswer{Path("all.ran"), 2}, FileAnswer{Path("some.ran"), 2},
                 FileAnswer{Path("first.ran"), 1}};
  Menu("mnuSaveAs");
  Menu("mnuSaveSelectedAs");
  Menu("mnuSaveAs");
  EXPECT_TRUE(Asked.Boxes.empty());
  EXPECT_EQ(ReadRan("all.ran").Count(), 3);
  const RecordArray some = ReadRan("some.ran");
  ASSERT_EQ(some.Count(), 2);
  EXPECT_EQ(some[1].Name, "a2");
  // The type chosen decides, not the name.
  EXPECT_EQ(std::filesystem::file_size(Folder / "first.ran"), 3u * 640);
}

TEST_F(Save, SavedTensorsAreThoseOfTheGeographicView) {
  OpenFile(WriteFile("a", 1));
  Menu("mnuView(2)");
  const SpecimenRecord shown = Program.Session.Records[1];
  Menu("mnuView(1)");  // the view in force plays no part
  Asked.Files = {FileAnswer{Path("x.ran"), 2}};
  Menu("mnuSaveAs");
  const RecordArray saved = ReadRan("x.ran");
  for (int i = 1; i <= 6; ++i)
    EXPECT_EQ(saved[1].Tensor[i], Number(shown.TensorRot[i].Single())) << i;
}

TEST_F(Save, SaveWritesARanFileOverTheOpenOne) {
  Menu("mnuSave");
  EXPECT_EQ(Asked.Boxes, std::vector<std::string>{"Save|There is no record to save.|&OK"});
  OpenFile(WriteFile("a", 3));
  Menu("mnuSave");
  EXPECT_EQ(Asked.Boxes.size(), 1u);
  EXPECT_EQ(std::filesystem::file_size(Folder / "a.ams"), 4u * 64);
  EXPECT_EQ(ReadRan("a.ams").Count(), 3);
}

TEST_F(Save, WhatDoesNotFitARanFileIsToldAndTheOldOneStands) {
  OpenFile(WriteFile("a", 1));
  std::ofstream(Folder / "old.ran") << "old";
  Program.Session.Records[1].FoliAz[1] = 40000;
  Asked.Files = {FileAnswer{Path("old.ran"), 2}};
  Menu("mnuSaveAs");
  EXPECT_EQ(Asked.Boxes.back(), "Velorix5|" + Path("old.ran") + "\nOverflow|&OK");
  EXPECT_EQ(std::filesystem::file_size(Folder / "old.ran"), 3u);
}

}  // namespace
}  // namespace velorix
