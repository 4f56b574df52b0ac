#include "app/orientation_editor.h"

#include "datafiles/ran_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

constexpr char OpenTitle[] = "Open File(s)";

class OrientationEditing : public ProgramTest {
 protected:
  OrientationEditor Editor;

  void Load(int count = 3) {
    OpenFile(WriteFile("a", count));
    LoadEditor(Editor, Program);
  }
  void Answer(const std::string& path, int filter = 1) {
    Asked.Files.push_back(FileAnswer{path, filter});
  }
  void Open(const std::string& action = "Open") { OpenGed(Editor, Program, action); }
  void Type(int row, int column, const char* text) { EditCells(Editor, {{row, column, text}}); }
  const std::string& Cell(int row, int column) const { return Editor.Shown().Cell(row, column); }
};

TEST_F(OrientationEditing, OpenGedAsksForGeologicalFilesFirst) {
  Load();
  Program.Session.DataFolder = "/somewhere";
  for (const std::string action : {"Open", "New", "Save"}) Open(action);
  ASSERT_EQ(Asked.FileQuestions.size(), 4u);
  const FileQuestion& q = Asked.FileQuestions[1];
  EXPECT_EQ(q.Filter,
            "GED-file(s) (*.ged)|*.ged|AMS-file(s) (*.ams)|*.ams|RAN-file(s) (*.ran)|*.ran|"
            "ARE-file(s) (*.are)|*.are|ASC-file(s) (*.asc)|*.asc|SI2B AMS-file(s) (*.AMS)|*.AMS|"
            "AMSSpin-file(s) (*.txt)|*.txt");
  EXPECT_EQ(q.Title, OpenTitle);
  EXPECT_EQ(q.Folder, "/somewhere");
  EXPECT_TRUE(q.Multi);
  EXPECT_EQ(q.MaxFileSize, 32767);
  EXPECT_EQ(Asked.FileQuestions[2].Title, "New File");
  EXPECT_EQ(Asked.FileQuestions[3].Title, "Save Data");
  EXPECT_FALSE(Asked.FileQuestions[3].Multi);
  EXPECT_FALSE(Editor.ShowsSamples);
}

TEST_F(OrientationEditing, MatchedRowsAreMarkedUntilTheNextChange) {
  Load();
  Program.Session.EditRecords.Add(Record("a2"));
  Program.Session.EditRecords[1].OrientAz = 10;
  const std::function<void()> changes[] = {
      [this] { Type(1, 3, "9"); },
      [this] { UndoEdit(Editor); },
      [this] { RedoEdit(Editor); },
      [this] {
        PasteCells(Editor, "8", {1, 3, 1, 1});
      },
      [this] { WriteGrid(Editor, Program); },
  };
  for (const auto& change : changes) {
    AssignGed(Editor, Program);
    Type(1, 1, "no change");
    EXPECT_FALSE(Editor.Matched.empty());
    change();
    EXPECT_TRUE(Editor.Matched.empty()) << &change - changes;
    EXPECT_EQ(Editor.Line.find("matched"), std::string::npos);
  }
}

TEST_F(OrientationEditing, AMissingFileAsksAndYesEmptiesTheStore) {
  Load();
  Asked.Buttons = {1, 0};
  Answer(Path("none.ged"));
  Answer(Path("none.ged"));
  Open();
  const std::string box =
      "Open File(s)|none.ged\nThis file does not exist.\nCreate new file?|&Yes|&No";
  EXPECT_EQ(Asked.Boxes, (std::vector<std::string>{box, box}));
  EXPECT_EQ(Program.Session.RecordCount(), 0);
  EXPECT_EQ(Editor.Shown().RowCount(), 0);
  AssignGed(Editor, Program);
  EXPECT_EQ(Editor.Shown().RowCount(), 0);
  EXPECT_TRUE(SaveGrid(Editor, Program));
  EXPECT_TRUE(std::filesystem::exists(PathOf(Path("a.ams"))));  // an empty store takes no file away
}

TEST_F(OrientationEditing, OtherFiltersReadNothing) {
  Load();
  Answer(Path("a.ams"), 2);
  Open();
  EXPECT_TRUE(Asked.Boxes.empty());
  EXPECT_FALSE(Editor.ShowsSamples);
  EXPECT_TRUE(Program.Session.EditRecords.Empty());
}

TEST_F(OrientationEditing, SaveWritesByTheExactExtension) {
  const struct {
    const char* Extension;
    bool Written;
  } rows[] = {{"ams", true}, {"ran", true}, {"AMS", false}, {"asc", false}, {"", false}};
  for (const auto& row : rows) {
    Load();
    Program.Session.Records[2].Active = false;
    Program.Session.CurrentExt = row.Extension;
    Program.Session.CurrentFile = Path(std::string("out.") + row.Extension);
    Type(1, 3, "77");
    EXPECT_TRUE(SaveGrid(Editor, Program));
    EXPECT_EQ(Program.Session.Records[1].OrientAz, 77);
    const bool exists = std::filesystem::exists(PathOf(Program.Session.CurrentFile));
    EXPECT_EQ(exists, row.Written) << row.Extension;
    if (!exists) continue;
    RecordArray written;
    ASSERT_TRUE(row.Extension == std::string("ams")
                    ? ReadAmsFile(Program.Session.CurrentFile, written)
                    : ReadRanFile(Program.Session.CurrentFile, written, {}));
    EXPECT_EQ(written.Count(), 3);
    EXPECT_EQ(written[1].Name, "a1");
  }
}

TEST_F(OrientationEditing, SaveGivesTheFirstOfSeveralFilesTheRecordsOfAll) {
  using namespace std::string_literals;
  WriteFile("a", 2);
  WriteFile("b", 3);
  OpenFile(Utf8Of(Folder) + "\0a.ams\0b.ams\0"s);
  LoadEditor(Editor, Program);
  EXPECT_TRUE(SaveGrid(Editor, Program));
  RecordArray first, second;
  ASSERT_TRUE(ReadAmsFile(Path("a.ams"), first));
  ASSERT_TRUE(ReadAmsFile(Path("b.ams"), second));
  EXPECT_EQ(first.Count(), 5);
  EXPECT_EQ(second.Count(), 3);
}

TEST_F(OrientationEditing, ADiskThatRefusesLeavesTheEditsAndTheOldFile) {
  Load();
  Type(1, 3, "77");
  std::filesystem::create_directories(Folder / "full.ams");
  Program.Session.CurrentFile = Path("full.ams");
  EXPECT_THROW(SaveGrid(Editor, Program), std::filesystem::filesystem_error);
  EXPECT_EQ(Cell(1, 3), "77");
  EXPECT_TRUE(std::filesystem::is_directory(Folder / "full.ams"));
}

}  // namespace
}  // namespace velorix
