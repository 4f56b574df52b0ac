#include "app/open_flow.h"

#include <algorithm>
#include <fstream>

#include "datafiles/ran_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class OpenFlow : public ProgramTest {};

TEST(SplitFileList, KnowsOnePathFromAFolderWithNames) {
  using namespace std::string_literals;
  const char sep = static_cast<char>(std::filesystem::path::preferred_separator);
  const struct {
    std::string text, folder;
    std::vector<std::string> names;
  } cases[] = {
      {"/data/site one/a.ams", "/data/site one", {"a.ams"}},
      {"/a.ams", "", {"a.ams"}},
      {"/data\0a.ams\0b.ams\0"s, "/data", {"a.ams", "b.ams"}},
      {"/data\0b.ams\0a.ams"s, "/data", {"b.ams", "a.ams"}},
      {"/data"s + sep + "\0a.ams\0"s, "/data", {"a.ams"}},
      {"/data/a.ams\0"s, "/data", {"a.ams"}},
  };
  for (const auto& c : cases) {
    const FileList list = SplitFileList(c.text);
    EXPECT_EQ(list.Folder, c.folder);
    EXPECT_EQ(list.Names, c.names);
    EXPECT_EQ(list.FirstName, c.names.front());
  }
}

TEST(FilterOfExtension, TellsTheTextFormatByUpperCaseAlone) {
  const struct {
    const char* extension;
    int filter;
  } cases[] = {{"ams", 1}, {"Ams", 1}, {"AMS", 5}, {"ran", 2}, {"RAN", 2}, {"are", 3},
               {"Asc", 4}, {"txt", 6}, {"TXT", 6}, {"", 0},    {"csv", 0}};
  for (const auto& c : cases) EXPECT_EQ(FilterOfExtension(c.extension), c.filter) << c.extension;
}

TEST_F(OpenFlow, AsksWithTheFiltersInOrderAndTheLastFolder) {
  OpenFile(WriteFile("a", 1));
  Menu("mnuOpen");
  ASSERT_EQ(Asked.FileQuestions.size(), 2u);
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
  OpenFile(Utf8Of(Folder) + '\0' + "b.ams" + '\0' + "a.ams" + '\0');
  EXPECT_EQ(Names(), "b1 b2 a1 a2 ");
  EXPECT_EQ(Program.Session.Records[3].RecordNo, 3);
  EXPECT_EQ(Program.Session.CurrentFile, Path("b.ams"));
  EXPECT_EQ(Program.Session.CurrentFileBase, Path("b"));
  EXPECT_EQ(Program.Session.OpenFiles, (std::vector{Path("b.ams"), Path("a.ams")}));
  EXPECT_EQ(Program.Session.FolderFiles, (std::vector<std::string>{"a.ams", "b.ams"}));
  EXPECT_EQ(Program.Session.FolderFilePos, 2);
  EXPECT_EQ(Seen.Caption, "Velorix5 - [" + Path("b.ams") + "]     (N = 4)");
  Menu("mnuReload");
  EXPECT_EQ(Names(), "b1 b2 a1 a2 ");
}

TEST_F(OpenFlow, LeavesTheSessionAsItWasWhenAnyFileIsRefused) {
  OpenFile(WriteFile("a", 2));
  std::ofstream(Folder / "empty.ams");
  std::ofstream(Folder / "short.ams") << "short";
  OpenFile(Utf8Of(Folder) + '\0' + "a.ams" + '\0' + "empty.ams" + '\0');
  EXPECT_EQ(Asked.Boxes.size(), 1u);
  OpenFile(Path("short.ams"));
  EXPECT_EQ(Asked.Boxes.size(), 1u);  // refused without a word
  for (int filter = 4; filter <= 6; ++filter) {
    OpenFile(Path("a.ams"), filter);
    EXPECT_EQ(Asked.Boxes.size(), static_cast<std::size_t>(filter - 2));
  }
  OpenFile(Utf8Of(Folder));  // a folder is no file: asked again, and cancelled
  EXPECT_EQ(Names(), "a1 a2 ");
  EXPECT_EQ(Program.Session.CurrentFile, Path("a.ams"));
  EXPECT_EQ(Program.Session.OpenFiles.size(), 1u);
  EXPECT_EQ(Program.Session.CurrentFilter, 1);
}

TEST_F(OpenFlow, RanAndAreFilesTakeWhatTheyLackFromTheSettings) {
  RecordArray records;
  records.Add(Record("r1"));
  records[1].OP = {12, 0, 3, 0};
  records[1].Lon = 15;
  records[1].Lat = 49;
  for (const char* name : {"x.ran", "x.are"})
    ASSERT_TRUE(WriteRanFile(Path(name), records, false, true));
  Program.Session.Settings.P = {6, 90, 6, 0};
  for (const int filter : {2, 3}) {
    OpenFile(Path(filter == 2 ? "x.ran" : "x.are"), filter);
    for (const char* again : {"", "mnuReload"}) {
      if (*again != '\0') Menu(again);
      const SpecimenRecord& r = Program.Session.Records[1];
      EXPECT_EQ(Names(), "r1 ");
      EXPECT_EQ(r.OP, (Array1<std::int16_t, 4>{12, 90, 3, 0}));
      EXPECT_EQ(r.Lon, 49);
      EXPECT_EQ(r.Instrument == "PW-6", filter == 3);
      EXPECT_EQ(r.CoorLevel, Geographic);
    }
  }
  EXPECT_TRUE(Asked.Boxes.empty());
}

TEST_F(OpenFlow, ARanFileWithAWrongCoordinateLeavesTheStore) {
  OpenFile(WriteFile("a", 2));
  std::ofstream(Folder / "bad.ran") << std::string(256, 'x');
  OpenFile(Path("bad.ran"), 2);
  EXPECT_EQ(Asked.Boxes, std::vector{"Velorix5|" + Path("bad.ran") + "\nType mismatch|&OK"});
  EXPECT_EQ(Names(), "a1 a2 ");
}

TEST_F(OpenFlow, RefusesMoreThan32767RecordsWithOverflow) {
  const std::string big = WriteFile("big", 20000);
  OpenFile(WriteFile("a", 1));
  OpenFile(Utf8Of(Folder) + '\0' + "big.ams" + '\0' + "big.ams" + '\0');
  ASSERT_EQ(Asked.Boxes.size(), 1u);
  EXPECT_EQ(Asked.Boxes[0], "Velorix5|" + big + "\nOverflow|&OK");
  EXPECT_EQ(Names(), "a1 ");
  OpenFile(big);
  EXPECT_EQ(Program.Session.RecordCount(), 20000);
}

TEST_F(OpenFlow, AsksAgainForAFileThatIsNotThere) {
  WriteFile("a", 1);
  Asked.Files.push_back(FileAnswer{Path("gone.ams"), 1});
  OpenFile(Path("a.ams"));
  EXPECT_EQ(Asked.Boxes,
            std::vector<std::string>{"Open File(s)|gone.ams\nThis file does not exist.|&Retry"});
  EXPECT_EQ(Names(), "a1 ");
}

TEST_F(OpenFlow, NewTakesTheNameOfAFileThatIsNotThereAndReadsOneThatIs) {
  OpenFile(WriteFile("a", 1));
  Asked.Files.push_back(FileAnswer{Path("new.ams"), 1});
  Menu("mnuNew");
  EXPECT_EQ(Asked.FileQuestions.back().Title, "New File");
  EXPECT_FALSE(Asked.FileQuestions.back().Multi);
  EXPECT_EQ(Asked.FileQuestions.back().MaxFileSize, 2048);
  EXPECT_EQ(Names(), "a1 ");
  EXPECT_EQ(Program.Session.CurrentFile, Path("new.ams"));

  WriteFile("b", 2);
  const std::string question =
      "New File|b.ams\nThis file already exists.\nAppend to existing file?|&Yes|&No";
  Asked.Buttons = {1, 0};  // "&No": asked again
  Asked.Files = {FileAnswer{Path("b.ams"), 1}, FileAnswer{Path("b.ams"), 1}};
  Menu("mnuNew");
  EXPECT_EQ(Names(), "b1 b2 ");
  EXPECT_EQ(Asked.Boxes, (std::vector{question, question}));
}

TEST_F(OpenFlow, StepsRoundTheFolderAndReloadsInPhaseOnly) {
  Menu("mnuOpenNext");  // nothing was opened yet: nothing to do
  Menu("mnuOpenPrevious");
  EXPECT_EQ(Program.Session.RecordCount(), 0);
  WriteFile("a", 1);
  WriteFile("b", 2);
  WriteFile("c", 3);
  OpenFile(Path("a.ams"));
  Menu("mnuOpenPrevious");
  EXPECT_EQ(Names(), "c1 c2 c3 ");
  Menu("mnuOpenNext");
  Menu("mnuOpenNext");
  EXPECT_EQ(Names(), "b1 b2 ");
  EXPECT_EQ(Program.Session.CurrentFileBase, Path("b"));

  RecordArray records;
  records.Add(Record("both"));
  records[1].TensorIm[1] = 0.5f;
  records.Add(Record("none"));
  records[2].Tensor = {};
  ASSERT_TRUE(WriteAmsFile(Path("d.ams"), records, false, true));
  OpenFile(Path("d.ams"));
  EXPECT_TRUE(Program.Session.Records[1].HasIm);
  EXPECT_TRUE(Program.Session.Records[2].Active);
  Button("mnuReload");
  EXPECT_FALSE(Program.Session.Records[1].HasIm);
  EXPECT_FALSE(Program.Session.Records[2].Active);
}

TEST_F(OpenFlow, KeepsTheMovedNameWhenTheNextFileVanished) {
  WriteFile("a", 1);
  const std::string b = WriteFile("b", 2);
  OpenFile(Path("a.ams"));
  std::filesystem::remove(PathOf(b));
  Menu("mnuOpenNext");
  EXPECT_EQ(Asked.Boxes.size(), 1u);  // the system's message
  EXPECT_EQ(Names(), "a1 ");
  EXPECT_EQ(Program.Session.CurrentFile, b);
  EXPECT_EQ(Program.Session.FolderFilePos, 2);
}

TEST_F(OpenFlow, OpensDroppedFilesByTheExtensionOfTheFirst) {
  WriteFile("a", 1);
  std::filesystem::create_directories(Folder / "sub");
  std::filesystem::rename(PathOf(WriteFile("b", 2)), Folder / "sub" / "b.ams");
  EXPECT_TRUE(OpenDroppedFiles(Program, {Path("a.ams"), Path("sub/b.ams")}));
  EXPECT_EQ(Names(), "a1 b1 b2 ");
  EXPECT_FALSE(OpenDroppedFiles(Program, {Path("picture.png")}));
  EXPECT_EQ(Asked.Boxes.size(), 1u);
  EXPECT_EQ(Names(), "a1 b1 b2 ");
}

}  // namespace
}  // namespace velorix
