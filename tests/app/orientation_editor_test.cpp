#include "app/orientation_editor.h"

#include <fstream>

#include "datafiles/ged_file.h"
#include "datafiles/ran_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

constexpr char OpenTitle[] = "Open File(s)";

/// A line of a geological file: the fields, filled to their widths, and the end.
std::string GedLine(std::initializer_list<std::pair<const char*, std::size_t>> fields) {
  std::string line;
  for (const auto& [text, width] : fields) {
    std::string field = text;
    field.resize(width, ' ');
    line += field;
  }
  line.resize(62, ' ');
  return line + "\r\n";
}
std::string GedHeader() {
  return GedLine({{"4", 4},
                  {"SITE", 16},
                  {"0", 7},
                  {"0", 7},
                  {"", 4},
                  {"", 4},
                  {"", 4},
                  {"", 4},
                  {"12", 3},
                  {"90", 3},
                  {"3", 3},
                  {"90", 3}});
}
/// A sample with an orientation and the foliation S 120/40.
std::string GedSample(const char* name, const char* az, const char* inc) {
  return GedLine({{name, 12},
                  {az, 4},
                  {inc, 4},
                  {"S0", 4},
                  {"120", 4},
                  {"40", 4},
                  {"0", 4},
                  {"0", 4},
                  {"00", 4},
                  {"0", 4},
                  {"0", 4},
                  {"0", 4},
                  {"0", 4}});
}

class OrientationEditing : public ProgramTest {
 protected:
  OrientationEditor Editor;

  void Load(int count = 3) {
    OpenFile(WriteFile("a", count));
    LoadEditor(Editor, Program);
  }
  std::string WriteText(const std::string& name, const std::string& text) const {
    std::ofstream(PathOf(Path(name)), std::ios::binary) << text;
    return Path(name);
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

TEST_F(OrientationEditing, OpenGedListsTheNamesAndShowsTheSamplesOfAllFiles) {
  Load();
  WriteText("b.ged", GedHeader() + GedSample("a1", "10", "20") + GedSample("x", "30", "40"));
  WriteText("c.ged", GedHeader() + GedSample("a3", "50", "60"));
  using namespace std::string_literals;
  Answer(Utf8Of(Folder) + "\0b.ged\0c.ged\0"s);
  Open();
  EXPECT_EQ(Asked.Boxes, (std::vector<std::string>{"Open File(s)|a1\nx\na3|&OK"}));
  ASSERT_TRUE(Editor.ShowsSamples);
  ASSERT_EQ(Editor.Shown().RowCount(), 3);
  EXPECT_EQ(Cell(3, 2) + " " + Cell(3, 3) + " " + Cell(3, 5) + Cell(3, 8), "a3 50 S");
  EXPECT_EQ(Editor.Grid.Cell(3, 3), "40");
  EXPECT_EQ(Program.Session.RecordCount(), 3);
}

TEST_F(OrientationEditing, OpenGedShowsNoMoreNamesThanAScreenHasRoomFor) {
  Load();
  std::string text = GedHeader(), names;
  for (int i = 1; i <= 50; ++i) text += GedSample(("n" + std::to_string(i)).c_str(), "1", "2");
  for (int i = 1; i <= 40; ++i) names += "n" + std::to_string(i) + "\n";
  Answer(WriteText("many.ged", text));
  Open();
  EXPECT_EQ(Asked.Boxes.back(), "Open File(s)|" + names + "and 10 more|&OK");
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

TEST_F(OrientationEditing, SamplesAreOnlyLookedAt) {
  Load();
  Type(1, 3, "77");
  Answer(WriteText("b.ged", GedHeader() + GedSample("a2", "10", "20")));
  Open();
  Type(1, 3, "55");
  PasteCells(Editor, "55", {1, 3, 1, 1});
  RedoEdit(Editor);
  EXPECT_EQ(Cell(1, 3), "10");
  EXPECT_TRUE(SaveGrid(Editor, Program));
  EXPECT_EQ(Program.Session.Records[1].OrientAz, 77);
  EXPECT_EQ(Program.Session.Records[2].OrientAz, 40);
  UndoEdit(Editor);  // leads back to the records with what was typed
  EXPECT_EQ(Cell(1, 3), "77");
  UndoEdit(Editor);
  EXPECT_EQ(Cell(1, 3), "40");
}

TEST_F(OrientationEditing, AFileThatFailsLosesNothingThatWasTyped) {
  Load();
  Type(1, 3, "77");
  using namespace std::string_literals;
  WriteText("good.ged", GedHeader() + GedSample("a1", "10", "20"));
  const struct {
    std::string Text, Complaint, List;
  } files[] = {{"", "File is empty!", Path("bad.ged")},
               {"short\r\n", "Error in line: 1\n", Path("bad.ged")},
               {"short\r\n", "Error in line: 1\n", Utf8Of(Folder) + "\0good.ged\0bad.ged\0"s}};
  for (const auto& file : files) {
    Asked.Boxes.clear();
    WriteText("bad.ged", file.Text);
    Answer(file.List);
    Open();
    EXPECT_EQ(Asked.Boxes,
              std::vector{"Error in opening file: <<bad.ged>>|" + file.Complaint + "|&OK"});
    EXPECT_FALSE(Editor.ShowsSamples);
    EXPECT_EQ(Cell(1, 3), "77");
    EXPECT_EQ(Program.Session.EditRecords.Count(), 0);
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

TEST_F(OrientationEditing, AnExistingFileAsksUnderNewAndSave) {
  Load();
  const std::string path = WriteText("b.ged", GedHeader() + GedSample("a2", "10", "20"));
  for (const auto& [action, title] : {std::pair{"New", "New File"}, {"Save", "Save Data"}}) {
    Asked.Boxes.clear();
    Asked.Buttons = {1, 0};
    Answer(path);
    Answer(path);
    Open(action);
    const std::string box = std::string(title) +
                            "|b.ged\nThis file already exists.\n"
                            "Append to existing file?|&Yes|&No";
    ASSERT_EQ(Asked.Boxes.size(), 3u);
    EXPECT_EQ(Asked.Boxes[1], box);
    EXPECT_EQ(Asked.Boxes[2], std::string(title) + "|a2|&OK");
  }
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

/// Directions and greatest principal value of the group in view.
std::string Group(const Velorix& program) {
  const GroupStats& g = program.GroupStats;
  std::string text = std::to_string(g.GroupN);
  for (int k = 1; k <= 3; ++k)
    text += " " + std::to_string(g.MeanDec[k]) + "/" + std::to_string(g.MeanInc[k]);
  return text + " " + std::to_string(g.MeanK[1]);
}

TEST_F(OrientationEditing, AnExampleOrientedByItsGeologicalFileIsTheGroupOrientedFromTheStart) {
  const std::string examples = VELORIX_SOURCE_DIR "/examples/";
  OpenFile(examples + "granite.ams");
  const std::string wanted = Group(Program);
  ASSERT_EQ(wanted.substr(0, 3), "21 ");
  std::filesystem::copy(PathOf(examples + "granite_unoriented.ams"), Folder);
  OpenFile(Path("granite_unoriented.ams"));
  EXPECT_EQ(Program.Session.CoorSys, 2);
  EXPECT_EQ(Program.GroupStats.GroupN, 0);

  LoadEditor(Editor, Program);
  Answer(examples + "granite.ged");
  Open();
  AssignGed(Editor, Program);
  EXPECT_EQ(Editor.Line, "21 of 24 record(s) matched. Without a sample: GR3A, GR7A, GR11A.");
  ASSERT_TRUE(SaveGrid(Editor, Program));
  for (const bool again : {false, true}) {  // in memory, and from the disk
    if (again) OpenFile(Path("granite_unoriented.ams"));
    DisplayData(Program, true);
    EXPECT_EQ(Group(Program), wanted);
  }
}

}  // namespace
}  // namespace velorix
