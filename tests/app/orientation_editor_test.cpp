#include "app/edit/orientation_editor.h"

#include "app/edit/ged_editor.h"
#include "datafiles/formats/ged_file.h"
#include "datafiles/formats/ran_file.h"
#include "tests/app/script.h"
#include "text/upper_case.h"

namespace velorix {
namespace {

class OrientationEditing : public ProgramTest {
 protected:
  OrientationEditor Editor;

  void Load(int count = 3) {
    OpenFile(WriteFile("a", count));
    LoadEditor(Editor, Now);
  }
  /// A geological file of samples with these names, oriented 10/20, 11/20 and so on, that have the
  /// foliation S 120/40 and no lineation.
  std::string WriteGed(const std::string& name, const Texts& samples) const {
    RecordArray records;
    for (const std::string& sample : samples) {
      SpecimenRecord r = Record(sample);
      r.OrientAz = static_cast<float>(10 + records.Count());
      r.FoliName[1] = "S";
      r.FoliAz[1] = 120;
      r.FoliDip[1] = 40;
      records.Add(r);
    }
    EXPECT_TRUE(WriteGedFile(Path(name), records));
    return Path(name);
  }
  void Open(FileAction action = FileAction::Open) {
    OpenGed(Editor, Now, Program.History, Program.Lists, Asked, action);
  }
  void Type(int row, int column, const char* text) { EditCells(Editor, {{row, column, text}}); }
  const std::string& Cell(int row, int column) const { return Editor.Shown().Cell(row, column); }
};

TEST_F(OrientationEditing, OpenGedAsksForGeologicalFilesFirst) {
  Load();
  Now.DataFolder = "/somewhere";
  const std::tuple<FileAction, const char*, bool, int> cases[] = {
      {FileAction::Open, "Open File(s)", true, 32767},
      {FileAction::New, "New File", false, 2048},
      {FileAction::Save, "Save Data", false, 2048}};
  for (const auto& [action, title, multi, size] : cases) {
    Open(action);
    const FileQuestion& q = Asked.FileQuestions.back();
    EXPECT_EQ(q.Filter,
              "GED-file(s) (*.ged)|*.ged|AMS-file(s) (*.ams)|*.ams|RAN-file(s) (*.ran)|*.ran|"
              "ARE-file(s) (*.are)|*.are|ASC-file(s) (*.asc)|*.asc|SI2B AMS-file(s) (*.AMS)|*.AMS|"
              "AMSSpin-file(s) (*.txt)|*.txt");
    EXPECT_EQ(q.Title, title);
    EXPECT_EQ(q.Folder, "/somewhere");
    EXPECT_EQ(q.Multi, multi);
    EXPECT_EQ(q.MaxFileSize, size);
    EXPECT_FALSE(Editor.ShowsSamples);
  }
}

TEST_F(OrientationEditing, OpenGedListsTheNamesAndShowsTheSamplesOfAllFiles) {
  Load();
  WriteGed("b.ged", {"a1", "x"});
  WriteGed("c.ged", {"a3"});
  Answer(Several({"b.ged", "c.ged"}));
  Open();
  EXPECT_EQ(Asked.Boxes, Texts{"Open File(s)|a1\nx\na3|&OK"});
  ASSERT_TRUE(Editor.ShowsSamples);
  ASSERT_EQ(Editor.Shown().RowCount(), 3);
  EXPECT_EQ(Cell(3, 2) + " " + Cell(3, 3) + " " + Cell(3, 5) + Cell(3, 8), "a3 10 S");
  EXPECT_EQ(Editor.Grid.Cell(3, 3), "40");
  EXPECT_EQ(Names(), "a1 a2 a3 ");
}

TEST_F(OrientationEditing, OpenGedShowsNoMoreNamesThanAScreenHasRoomFor) {
  Load();
  std::string shown;
  Texts names;
  for (int i = 1; i <= 50; ++i) names.push_back("n" + std::to_string(i));
  for (int i = 0; i < 40; ++i) shown += names[i] + "\n";
  Answer(WriteGed("many.ged", names));
  Open();
  EXPECT_EQ(Asked.Boxes.back(), "Open File(s)|" + shown + "and 10 more|&OK");
}

TEST_F(OrientationEditing, MatchedRowsAreMarkedUntilTheNextChange) {
  Load();
  Now.GeoRecords.Add(Record("a2"));
  Now.GeoRecords[1].OrientAz = 10;
  const std::function<void()> changes[] = {
      [this] { Type(1, 3, "9"); }, [this] { UndoEdit(Editor); }, [this] { RedoEdit(Editor); },
      [this] {
        PasteCells(Editor, "8", {1, 3, 1, 1});
      },
      [this] { WriteGrid(Editor, Now); }};
  for (const auto& change : changes) {
    AssignGed(Editor, Now);
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
  Answer(WriteGed("b.ged", {"a2"}));
  Open();
  Type(1, 3, "55");
  PasteCells(Editor, "55", {1, 3, 1, 1});
  RedoEdit(Editor);
  EXPECT_EQ(Cell(1, 3), "10");
  EXPECT_TRUE(SaveGrid(Editor, Now, Program.History, Program.Lists, Asked, Seen));
  EXPECT_EQ(Now.Records[1].OrientAz, 77);
  EXPECT_EQ(Now.Records[2].OrientAz, 40);
  UndoEdit(Editor);  // leads back to the records with what was typed
  EXPECT_EQ(Cell(1, 3), "77");
  UndoEdit(Editor);
  EXPECT_EQ(Cell(1, 3), "40");
}

TEST_F(OrientationEditing, WhatIsNotReadLosesNothingThatWasTyped) {
  Load();
  Type(1, 3, "77");
  WriteGed("good.ged", {"a1"});
  const std::string title = "Warning: Error in opening file: <<bad.ged>>|";
  const std::string wrong = Bytes("good.ged").replace(64 + 12, 1, "x");
  const std::tuple<std::string, std::string, int, Texts> files[] = {
      {"", Path("bad.ged"), 1, {title + "File is empty!|OK"}},
      {"short\r\n", Path("bad.ged"), 1, {title + "Error in line: 1\n|OK"}},
      {"short\r\n", Several({"good.ged", "bad.ged"}), 1, {title + "Error in line: 1\n|OK"}},
      {wrong,
       Path("bad.ged"),
       1,
       {"Error in reading file!|Error in file: " + UpperCase(Path("bad.ged")) +
        "\n\nIn line: 2|OK"}},
      {"", Path("good.ged"), 2, {}}};  // other filters read nothing
  for (const auto& [text, list, filter, boxes] : files) {
    Asked.Boxes.clear();
    Put("bad.ged", text);
    Answer(list, filter);
    Open();
    EXPECT_EQ(Asked.Boxes, boxes);
    EXPECT_FALSE(Editor.ShowsSamples);
    EXPECT_EQ(Cell(1, 3), "77");
    EXPECT_EQ(NamesOf(Now.GeoRecords) + Now.GeoFile, "");
  }
}

TEST_F(OrientationEditing, AMissingFileAsksAndYesEmptiesTheStore) {
  Load();
  Asked.Buttons = {1, 0};
  for (int i = 0; i < 2; ++i) Answer(Path("none.ged"));
  Open();
  EXPECT_EQ(Asked.Boxes, Texts(2,
                               "Open File(s)|none.ged\nThis file does not exist.\n"
                               "Create new file?|&Yes|&No"));
  EXPECT_EQ(Names(), "");
  AssignGed(Editor, Now);
  EXPECT_EQ(Editor.Shown().RowCount(), 0);
  EXPECT_TRUE(SaveGrid(Editor, Now, Program.History, Program.Lists, Asked, Seen));
  EXPECT_TRUE(Exists("a.ams"));  // an empty store takes no file away
}

TEST_F(OrientationEditing, AssignGedTakesWhatTheGeologicalEditorReadOrSavedLast) {
  GedSheet sheet;
  const auto assigned = [this] {
    Load();
    AssignGed(Editor, Now);
    return Cell(2, OrientationColumn);
  };
  Answer(WriteGed("b.ged", {"a2"}));
  ASSERT_TRUE(OpenGedFiles(Now, Asked, sheet));
  EXPECT_EQ(assigned(), "10");
  sheet.Rows[0].Cells[1] = "77";
  EXPECT_EQ(assigned(), "10");  // typed only
  Answer(Path("c.ged"));
  ASSERT_TRUE(SaveGedFile(Now, Asked, sheet));
  EXPECT_EQ(assigned(), "77");

  Open();  // cancelled
  EXPECT_EQ(NamesOf(Now.GeoRecords) + Now.GeoFile, "");
  EXPECT_EQ(sheet.Rows[0].Cells[1], "77");
  EXPECT_EQ(assigned(), "40");
  EXPECT_EQ(Editor.Line, "No geological file is open: OpenGED reads one.");
  Answer(Path("c.ged"));
  Open();
  EXPECT_EQ(NamesOf(Now.GeoRecords) + Now.GeoFile, "a2 " + Path("c.ged"));
}

TEST_F(OrientationEditing, SaveWritesByTheExactExtension) {
  const std::tuple<const char*, bool> rows[] = {
      {"ams", true}, {"ran", true}, {"AMS", false}, {"asc", false}, {"", false}};
  for (const auto& [ext, isWritten] : rows) {
    const std::string extension = ext, name = "out." + extension;
    Load();
    Now.Records[2].Active = false;
    Now.CurrentExt = extension;
    Now.CurrentFile = Path(name);
    Type(1, 3, "77");
    EXPECT_TRUE(SaveGrid(Editor, Now, Program.History, Program.Lists, Asked, Seen));
    EXPECT_EQ(Now.Records[1].OrientAz, 77);
    EXPECT_EQ(Exists(name), isWritten) << name;
    RecordArray written;
    if (!Exists(name)) continue;
    ASSERT_TRUE(extension == "ams" ? ReadAmsFile(Path(name), written)
                                   : ReadRanFile(Path(name), written, {}));
    EXPECT_EQ(NamesOf(written), "a1 a2 a3 ");
  }
}

TEST_F(OrientationEditing, SaveGivesTheFirstOfSeveralFilesTheRecordsOfAll) {
  WriteFile("a", 2);
  const std::string b = BytesOf(WriteFile("b", 3));
  OpenFile(Several({"a.ams", "b.ams"}));
  LoadEditor(Editor, Now);
  EXPECT_TRUE(SaveGrid(Editor, Now, Program.History, Program.Lists, Asked, Seen));
  RecordArray first;
  ASSERT_TRUE(ReadAmsFile(Path("a.ams"), first));
  EXPECT_EQ(NamesOf(first), "a1 a2 b1 b2 b3 ");
  EXPECT_TRUE(Bytes("b.ams") == b);
}

}  // namespace
}  // namespace velorix
