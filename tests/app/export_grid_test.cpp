#include "app/files/export_grid.h"

#include "tests/app/script.h"
#include "tests/datafiles/golden_file.h"

namespace velorix {
namespace {

/// Two rows of which the second is selected, two columns, a row header and two header rows.
GridTexts SmallGrid() {
  GridTexts grid;
  grid.Rows = grid.Columns = 2;
  grid.RowHeaderColumns = 1;
  grid.AppendCell = [](std::string& text, int row, int column) {
    const char* const texts[4][3] = {
        {"", "up per", ""}, {"ID", "Name", "Km"}, {"1", "µ 1", ""}, {"2", "漢", "-1.5E-05"}};
    text += texts[row + 2][column + 1];
  };
  grid.IsSelected = [](int row) { return row == 1; };
  return grid;
}
const std::string Rows = "1 ,\xB5\x31 , ,\r\n2 ,? ,-1.5E-05 ,\r\n",
                  Whole = "ID ,Name ,Km ,\r\n" + Rows;

using ExportGridTest = ProgramTest;

TEST_F(ExportGridTest, PutsABlankAndTheDelimiterBehindEveryValue) {
  const std::tuple<const char*, ExportForm, const char*> cases[] = {
      {"two header rows",
       {.Delimiter = ";", .HeaderRows = 2},
       " ;upper ; ;\r\nID ;Name ;Km ;\r\n1 ;\xB5\x31 ; ;\r\n2 ;? ;-1.5E-05 ;\r\n"},
      {"no header row", {.HeaderRows = 0}, Rows.c_str()},
      {"blanks kept, selected rows under their header",
       {.Delimiter = "\t", .HeaderRows = 2, .SelectedOnly = true, .StripBlanks = false},
       " \tup per \t \t\r\nID \tName \tKm \t\r\n2 \t? \t-1.5E-05 \t\r\n"},
      {"a delimiter between blanks",
       {.Delimiter = " , ", .SelectedOnly = true},
       "ID  , Name  , Km  , \r\n2  , ?  , -1.5E-05  , \r\n"},
  };
  for (const auto& [what, form, expected] : cases) {
    ASSERT_TRUE(ExportGrid(SmallGrid(), Path(what), form)) << what;
    EXPECT_EQ(Bytes(what), expected) << what;
  }
}

TEST_F(ExportGridTest, HeaderGoesOnlyIntoAFileWithoutContent) {
  const std::tuple<const char*, bool, std::string> cases[] = {
      {"", true, Whole},
      {"kept without an end", true, "kept without an end" + Rows},
      {"kept without an end", false, Whole}};
  for (const auto& [old, append, expected] : cases) {
    Put("old", old);
    ASSERT_TRUE(ExportGrid(SmallGrid(), Path("old"), {.Append = append}));
    EXPECT_EQ(Bytes("old"), expected);
  }
  ASSERT_TRUE(ExportGrid({.Columns = 1, .AppendCell = SmallGrid().AppendCell}, Path("none"), {}));
  EXPECT_EQ(Bytes("none"), "Name ,\r\n");
}

TEST_F(ExportGridTest, FailureLeavesTheOldFileAndOpensNoBox) {
  OpenFile(WriteFile("a", 2));
  EXPECT_FALSE(ExportGrid(SmallGrid(), Path("none/out.csv"), {}));
  GridTexts failing = SmallGrid();
  failing.AppendCell = [](std::string&, int row, int) {
    if (row == 1) FailSubscript();
  };
  EXPECT_THROW((void)ExportGrid(failing, Put("old", "old"), {}), Fault);
  EXPECT_EQ(Bytes("old"), "old");
  for (const std::string& name : {std::string("none/out.csv"), std::string(300, 'x')}) {
    Answer(Path(name));
    Menu("mnuExport");
    EXPECT_TRUE(Seen.Status.starts_with(Path(name) + ": This file could not be written: "))
        << Seen.Status;
  }
  EXPECT_EQ(Asked.Boxes, Texts());
  for (const auto& file : std::filesystem::directory_iterator(Folder))
    EXPECT_NE(file.path().extension(), ".new") << file.path();
}

TEST_F(ExportGridTest, DialogAsksWhatToDoWithAnOldFile) {
  OpenFile(WriteFile("a", 1));
  const std::string path = Path("out.txt"), appended = "old\r\n1 ;a1 ;";
  const std::tuple<std::deque<int>, std::string> cases[] = {
      {{0}, appended}, {{1}, "ID ;Specimen ;"}, {{2}, "old\r\n"}, {{2, 0}, appended}};
  for (const auto& [buttons, begin] : cases) {
    Put("out.txt", "old\r\n");
    Asked.Buttons = buttons;
    Asked.Files.assign(buttons.size(), FileAnswer{path, 3});
    Asked.Boxes.clear();
    Menu("mnuExport");
    EXPECT_TRUE(Bytes("out.txt").starts_with(begin)) << Bytes("out.txt");
    EXPECT_EQ(Bytes("out.txt") == "old\r\n", begin == "old\r\n");
    EXPECT_EQ(Asked.Boxes, Texts(buttons.size(), "Export Data|" + path +
                                                     "\n\nThis file already exists.|&Append|"
                                                     "&Overwrite|&Cancel"));
  }
  EXPECT_EQ(Asked.FileQuestions.size(), 1u + 1 + 1 + 2 + 2) << "on cancel the dialog comes back";
  EXPECT_EQ(Asked.FileQuestions.back().Title, "Export Data");
  EXPECT_EQ(Asked.FileQuestions.back().DefaultName, "a");
}

// What the program writes of a small store, appended twice in the second file.
TEST_F(ExportGridTest, WritesTheRecordsInViewAsApproved) {
  SpecimenRecord plain = Record("plain");
  plain.Field = 12.3f;
  OpenFile(WriteRecords("site.ams", {Record("µ Žár 1"), plain, Record("out of use"),
                                     Record("a name of twenty ch.")}));
  SelectRecords(Program, {3});
  Menu("mnuSelection(2)");
  const auto exported = [this](const std::string& name, int filter) {
    Answer(Path(name), filter);
    Menu("mnuExport");
    return Bytes(name);
  };
  exported("export_space.txt", 2);
  const char* names[] = {"export_comma.csv", "export_space.txt", "export_semicolon.txt",
                         "export_tab.txt"};
  for (int filter = 1; filter <= 4; ++filter) {
    const std::string name = names[filter - 1];
    ExpectGolden("app", name, exported(name, filter));
  }
  Menu("mnuClose");
  const std::string comma = Bytes("export_comma.csv");
  EXPECT_EQ(exported("empty.csv", 1), comma.substr(0, comma.find('\n') + 1));
}

}  // namespace
}  // namespace velorix
