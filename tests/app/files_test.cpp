#include "app/files/file_kinds.h"
#include "app/files/geo_files.h"
#include "app/files/open_flow.h"
#include "app/files/save.h"
#include "datafiles/formats/ran_file.h"
#include "tests/app/script.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

using OpenFlow = ProgramTest;

TEST(SplitFileList, KnowsOnePathFromAFolderWithNames) {
  using namespace std::string_literals;
  const char sep = static_cast<char>(std::filesystem::path::preferred_separator);
  const std::tuple<std::string, std::string, std::vector<std::string>> cases[] = {
      {"/data/site one/a.ams", "/data/site one", {"a.ams"}},
      {"/a.ams", "", {"a.ams"}},
      {"/data\0b.ams\0a.ams\0"s, "/data", {"b.ams", "a.ams"}},
      {"/data"s + sep + "\0a.ams\0"s, "/data", {"a.ams"}},
      {"/data/a.ams\0"s, "/data", {"a.ams"}},
  };
  for (const auto& [text, folder, names] : cases) {
    const FileList list = SplitFileList(text);
    EXPECT_EQ(list.Folder, folder);
    EXPECT_EQ(list.Names, names);
    EXPECT_EQ(list.FirstName, names.front());
  }
}

TEST(FilterOfExtension, TellsTheTextFormatByUpperCaseAlone) {
  const std::tuple<const char*, int> cases[] = {{"ams", 1}, {"Ams", 1}, {"AMS", 5}, {"ran", 2},
                                                {"RAN", 2}, {"are", 3}, {"Asc", 4}, {"txt", 6},
                                                {"TXT", 6}, {"", 0},    {"csv", 0}};
  for (const auto& [extension, filter] : cases)
    EXPECT_EQ(FilterOfExtension(extension), filter) << extension;
}

TEST_F(OpenFlow, AsksWithTheFiltersInOrderAndTheLastFolderAndAgainForAFileThatIsNotThere) {
  Menu("mnuOpenNext");  // nothing was opened yet: nothing to do
  Menu("mnuOpenPrevious");
  Answer(Path("gone.ams"));
  OpenFile(WriteFile("a", 1));
  EXPECT_EQ(Asked.Boxes, Texts{"Open File(s)|gone.ams\nThis file does not exist.|&Retry"});
  EXPECT_EQ(Names(), "a1 ");
  Menu("mnuOpen");
  const FileQuestion& question = Asked.FileQuestions.back();
  EXPECT_EQ(question.Title, "Open File(s)");
  EXPECT_TRUE(question.Multi);
  EXPECT_EQ(question.MaxFileSize, 32767);
  EXPECT_EQ(PathOf(question.Folder), Folder);
  EXPECT_EQ(question.Filter,
            "AMS-file(s) (*.ams)|*.ams|RAN-file(s) (*.ran)|*.ran|ARE-file(s) (*.are)|*.are|"
            "ASC-file(s) (*.asc)|*.asc|SI2B AMS-file(s) (*.AMS)|*.AMS|"
            "AMSSpin-file(s) (*.txt)|*.txt");
}

TEST_F(OpenFlow, ConcatenatesSeveralFilesInTheDialogsOrder) {
  WriteFile("a", 2);
  WriteFile("b", 2);
  OpenFile(Several({"b.ams", "a.ams"}));
  EXPECT_EQ(Names(), "b1 b2 a1 a2 ");
  EXPECT_EQ(Now.Records[3].RecordNo, 3);
  EXPECT_EQ(Now.CurrentFile, Path("b.ams"));
  EXPECT_EQ(Now.OpenFiles, (Texts{Path("b.ams"), Path("a.ams")}));
  EXPECT_EQ(Now.FolderFiles, (Texts{"a.ams", "b.ams"}));
  EXPECT_EQ(Now.FolderFilePos, 2);
  EXPECT_EQ(Seen.Caption, "Velorix5 - [" + Path("b.ams") + "]     (N = 4)");
  Menu("mnuReload");
  EXPECT_EQ(Names(), "b1 b2 a1 a2 ");
}

TEST_F(OpenFlow, LeavesTheSessionAsItWasWhenAnyFileIsRefused) {
  const std::string a = WriteFile("a", 2), big = WriteFile("big", 20000);
  OpenFile(a);
  const std::string shorter = Put("short.ams", "short"), empty = Put("empty.ams", "");
  const std::tuple<std::string, int, bool> cases[] = {
      {Several({"a.ams", "empty.ams"}), 1, true},
      {a, 4, true},
      {a, 5, true},
      {a, 6, true},
      {shorter, 1, false},        // refused without a word
      {Utf8Of(Folder), 1, true},  // a folder is no file: asked again, and cancelled
      {Put("bad.ran", std::string(256, 'x')), 2, true},
      {Several({"big.ams", "big.ams"}), 1, true}};
  Texts shown;
  for (const auto& [file, filter, isTold] : cases) {
    Asked.Boxes.clear();
    OpenFile(file, filter);
    EXPECT_EQ(Asked.Boxes.size(), isTold ? 1u : 0u) << file;
    shown.insert(shown.end(), Asked.Boxes.begin(), Asked.Boxes.end());
    EXPECT_EQ(Names(), "a1 a2 ");
    EXPECT_EQ(Now.CurrentFile, a);
    EXPECT_EQ(Now.OpenFiles, Texts{a});
    EXPECT_EQ(Now.CurrentFilter, 1);
  }
  EXPECT_EQ(shown[shown.size() - 2], "Velorix5|" + Path("bad.ran") + "\nType mismatch|&OK");
  EXPECT_EQ(shown.back(), "Velorix5|" + big + "\nOverflow|&OK");
  OpenFile(big);
  EXPECT_EQ(Now.RecordCount(), 20000);
}

TEST_F(OpenFlow, RanAndAreFilesTakeWhatTheyLackFromTheSettings) {
  SpecimenRecord record = Record("r1");
  record.OP = {12, 0, 3, 0};
  record.Lon = 15;
  record.Lat = 49;
  Now.Settings.P = {6, 90, 6, 0};
  for (const int filter : {2, 3}) {
    const std::string name = filter == 2 ? "x.ran" : "x.are";
    ASSERT_TRUE(WriteRanFile(Path(name), ArrayOf({record}), false, true));
    OpenFile(Path(name), filter);
    for (const bool again : {false, true}) {
      if (again) Menu("mnuReload");
      const SpecimenRecord& r = Now.Records[1];
      EXPECT_EQ(Names(), "r1 ");
      EXPECT_EQ(r.OP, (Array1<std::int16_t, 4>{12, 90, 3, 0}));
      EXPECT_EQ(r.Lon, 49);
      EXPECT_EQ(r.Instrument == "PW-6", filter == 3);
      EXPECT_EQ(r.CoorLevel, Geographic);
    }
  }
  EXPECT_EQ(Asked.Boxes, Texts());
}

TEST_F(OpenFlow, NewTakesTheNameOfAFileThatIsNotThereAndReadsOneThatIs) {
  OpenFile(WriteFile("a", 1));
  Answer(Path("new.ams"));
  Menu("mnuNew");
  EXPECT_EQ(Asked.FileQuestions.back().Title, "New File");
  EXPECT_FALSE(Asked.FileQuestions.back().Multi);
  EXPECT_EQ(Asked.FileQuestions.back().MaxFileSize, 2048);
  EXPECT_EQ(Names(), "a1 ");
  EXPECT_EQ(Now.CurrentFile, Path("new.ams"));

  WriteFile("b", 2);
  Asked.Buttons = {1, 0};  // "&No": asked again
  for (int i = 0; i < 2; ++i) Answer(Path("b.ams"));
  Menu("mnuNew");
  EXPECT_EQ(Names(), "b1 b2 ");
  EXPECT_EQ(Asked.Boxes, Texts(2,
                               "New File|b.ams\nThis file already exists.\n"
                               "Append to existing file?|&Yes|&No"));
}

TEST_F(OpenFlow, KeepsTheMovedNameWhenTheNextFileVanished) {
  const std::string b = WriteFile("b", 2);
  OpenFile(WriteFile("a", 1));
  std::filesystem::remove(PathOf(b));
  Menu("mnuOpenNext");
  EXPECT_EQ(Asked.Boxes.size(), 1u);  // the system's message
  EXPECT_EQ(Names(), "a1 ");
  EXPECT_EQ(Now.CurrentFile, b);
  EXPECT_EQ(Now.FolderFilePos, 2);
}

TEST_F(OpenFlow, DroppedFilesAreSortedEachByItsContent) {
  const auto drop = [this](const Texts& paths) {
    Asked.Boxes.clear();
    return OpenDroppedFiles(Now, Program.History, Asked, Program.Host, paths);
  };
  std::filesystem::create_directories(Folder / "sub");
  std::filesystem::rename(PathOf(WriteFile("b", 2)), Folder / "sub" / "SITE1.AMS");
  ASSERT_TRUE(WriteRanFile(Path("c.dat"), ArrayOf({Record("c1")}), false, true));
  EXPECT_TRUE(drop({WriteFile("a", 1), Path("sub/SITE1.AMS"), Path("c.dat")}));
  EXPECT_EQ(Names(), "a1 b1 b2 c1 ");
  Menu("mnuReload");  // each by its own reader again
  EXPECT_EQ(Names(), "a1 b1 b2 c1 ");
  const std::tuple<std::string, std::string> refused[] = {
      {Put("picture.ams", "\x89PNG\r\n\x1A\n"), "picture.ams|It looks like a PNG picture."},
      {Put("notes.txt", "to do\r\n"), "notes.txt|It looks like a text."},
      {Put("empty", ""), "empty|It is no data file."}};
  for (const auto& [path, text] : refused) {
    EXPECT_FALSE(drop({Path("a.ams"), path}));
    const std::size_t bar = text.find('|');
    EXPECT_EQ(Asked.Boxes,
              Texts{"Open File(s)|" + text.substr(0, bar) + "\nThis file cannot be opened here. " +
                    text.substr(bar + 1) + "|&OK"});
    EXPECT_EQ(Names(), "a1 b1 b2 c1 ");
  }
}

TEST_F(OpenFlow, WhatABoxRefusesStandsInStatusLineAndLogWithFileAndReason) {
  Program.Log.Open(Path("log"));
  const auto drop = [this](const std::string& path) {
    OpenDroppedFiles(Now, Program.History, Asked, Program.Host, {path});
  };
  const std::string empty = Put("empty.ams", ""), png = Put("p.png", "\x89PNG\r\n\x1A\n"),
                    ged = Put("bad.ged", "short\nlines\n");
  const std::pair<std::function<void()>, std::string> refused[] = {
      {[&] { OpenFile(empty); }, "Input error!: File <<" + UpperCase(empty) + ">> is empty!"},
      {[&] { OpenFile(Path("gone.ams")); }, "Open File(s): gone.ams: This file does not exist."},
      {[&] { drop(png); },
       "Open File(s): p.png: This file cannot be opened here. It looks like a PNG picture."},
      {[&] { ReadGeoFiles(Now, Asked, SplitFileList(ged)); },
       "Error in opening file: <<bad.ged>>: Error in line: 1: Error in line: 2"},
      {[&] { Menu("mnuSaveSelectedAs"); }, "Save Selected Record(s) As: No record is selected."}};
  for (const auto& [work, text] : refused) {
    const std::size_t boxes = Asked.Boxes.size();
    work();
    EXPECT_EQ(Asked.Boxes.size(), boxes + 1);
    EXPECT_EQ(Seen.Status, text);
    EXPECT_NE(Bytes("log").find("Error: " + text + "\n"), std::string::npos) << text;
  }
}

TEST_F(OpenFlow, SaysWhenAFileLooksLikeOneOfAnotherKind) {
  Program.Log.Open(Path("log"));
  OpenFile(Put("picture.ams", "\x89PNG\r\n\x1A\n" + std::string(2000, '\1')));
  EXPECT_TRUE(Seen.Status.starts_with("3 records read; picture.ams looks like a PNG picture"));
  EXPECT_NE(Bytes("log").find(Seen.Status), std::string::npos);
  Answer(Path("gone/b.ams"));
  Menu("mnuSaveAs");  // fails for another reason
  EXPECT_EQ(Seen.Status.find("looks like"), std::string::npos) << Seen.Status;
  Menu("mnuUndo");
  EXPECT_EQ(Names(), "");
  OpenFile(WriteFile("a", 2), 2);
  EXPECT_TRUE(Seen.Status.starts_with("19 records read; a.ams looks like an AMS file"));
  Seen.Status.clear();
  OpenFile(Path("a.ams"));
  EXPECT_EQ(Seen.Status, "");
}

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

  Menu("mnuSaveSelectedAs");  // nothing is selected: a box says so before a name is asked for
  SelectRecords(Program, {2});
  Asked.Buttons = {1, 0};  // "&No" shows the dialog again
  for (int i = 0; i < 2; ++i) Answer(Path("copy.ams"));
  Menu("mnuSaveSelectedAs");
  const std::string title = "Save Selected Record(s) As|";
  const std::string exists = title + "This file already exists.\nOverwrite existing file?|&Yes|&No";
  const std::string loss = title + Path("copy.ams") + "\nSaving over this file would mean:\n" +
                           "- 2 records lost (not among those to be saved)" +
                           "|&Save|Save a &copy...|&Cancel";
  EXPECT_EQ(Asked.Boxes, (Texts{title + "No record is selected.|&OK", exists, exists, loss}));
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
  const SpecimenRecord shown = Now.Records[1];
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
  Now.Records[1].FoliAz[1] = 40000;
  Answer(Put("old.ran", "old"), 2);
  Menu("mnuSaveAs");
  EXPECT_EQ(Asked.Boxes.back(), "Velorix5|" + Path("old.ran") + "\nOverflow|&OK");
  EXPECT_EQ(Bytes("old.ran"), "old");
}

}  // namespace
}  // namespace velorix
