#include "app/export_grid.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "tests/app/script.h"

namespace velorix {
namespace {

std::string BytesOf(const std::string& path) {
  std::ifstream in(PathOf(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void PutFile(const std::string& path, const std::string& bytes) {
  std::ofstream(PathOf(path), std::ios::binary) << bytes;
}

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

class ExportGridTest : public ProgramTest {};

TEST_F(ExportGridTest, PutsABlankAndTheDelimiterBehindEveryValue) {
  const struct {
    const char* What;
    ExportForm Form;
    const char* Wanted;
  } cases[] = {
      {"comma",
       {},
       "ID ,Name ,Km ,\r\n1 ,\xB5"
       "1 , ,\r\n2 ,? ,-1.5E-05 ,\r\n"},
      {"two header rows",
       {.Delimiter = ";", .HeaderRows = 2},
       " ;upper ; ;\r\nID ;Name ;Km ;\r\n1 ;\xB5"
       "1 ; ;\r\n2 ;? ;-1.5E-05 ;\r\n"},
      {"no header row",
       {.HeaderRows = 0},
       "1 ,\xB5"
       "1 , ,\r\n2 ,? ,-1.5E-05 ,\r\n"},
      {"blanks kept, selected rows under their header",
       {.Delimiter = "\t", .HeaderRows = 2, .SelectedOnly = true, .StripBlanks = false},
       " \tup per \t \t\r\nID \tName \tKm \t\r\n2 \t? \t-1.5E-05 \t\r\n"},
      {"a delimiter between blanks",
       {
           .Delimiter = " , ",
           .SelectedOnly = true,
       },
       "ID  , Name  , Km  , \r\n2  , ?  , -1.5E-05  , \r\n"},
  };
  for (const auto& c : cases) {
    ASSERT_TRUE(ExportGrid(SmallGrid(), Path(c.What), c.Form)) << c.What;
    EXPECT_EQ(BytesOf(Path(c.What)), c.Wanted) << c.What;
  }
}

TEST_F(ExportGridTest, FillsPrintZonesOfFourteen) {
  GridTexts grid;
  grid.Rows = 6;
  grid.Columns = 1;
  grid.AppendCell = [](std::string& text, int row, int) {
    const int lengths[] = {0, 13, 14, 15, 28, 29};
    text.append(static_cast<std::size_t>(lengths[row]), 'x').append(row == 1 ? " " : "");
  };
  const std::size_t wanted[] = {14, 14, 14, 28, 28, 42};
  for (const char* delimiter : {"", "   "}) {
    std::filesystem::remove(PathOf(Path("zones")));
    ASSERT_TRUE(ExportGrid(grid, Path("zones"), {.Delimiter = delimiter, .HeaderRows = 0}));
    std::istringstream lines(BytesOf(Path("zones")));
    std::string line;
    for (const std::size_t length : wanted) {
      std::getline(lines, line);
      EXPECT_EQ(line.size(), length + 1) << "with the CR of its end";
    }
  }
}

TEST_F(ExportGridTest, HeaderGoesOnlyIntoAFileWithoutContent) {
  const auto grid = SmallGrid();
  const std::string rows =
      "1 ,\xB5"
      "1 , ,\r\n2 ,? ,-1.5E-05 ,\r\n";
  const std::string whole = "ID ,Name ,Km ,\r\n" + rows;
  PutFile(Path("empty"), "");
  ASSERT_TRUE(ExportGrid(grid, Path("empty"), {}));
  EXPECT_EQ(BytesOf(Path("empty")), whole);
  ASSERT_TRUE(ExportGrid(grid, Path("empty"), {}));
  EXPECT_EQ(BytesOf(Path("empty")), whole + rows);
  PutFile(Path("line"), "kept without an end");
  ASSERT_TRUE(ExportGrid(grid, Path("line"), {}));
  EXPECT_EQ(BytesOf(Path("line")), "kept without an end" + rows);
  ASSERT_TRUE(ExportGrid(grid, Path("line"), {.Append = false}));
  EXPECT_EQ(BytesOf(Path("line")), whole);
  ASSERT_TRUE(ExportGrid({.Columns = 1, .AppendCell = grid.AppendCell}, Path("none"), {}));
  EXPECT_EQ(BytesOf(Path("none")), "Name ,\r\n");
}

TEST_F(ExportGridTest, FailureLeavesTheOldFileAndSaysNothing) {
  OpenFile(WriteFile("a", 2));
  EXPECT_FALSE(ExportGrid(SmallGrid(), Path("none/out.csv"), {}));
  GridTexts failing = SmallGrid();
  failing.AppendCell = [](std::string&, int row, int) {
    if (row == 1) FailSubscript();
  };
  PutFile(Path("old"), "old");
  EXPECT_THROW(ExportGrid(failing, Path("old"), {}), Fault);
  EXPECT_EQ(BytesOf(Path("old")), "old");
  const std::size_t boxes = Asked.Boxes.size();
  for (const std::string& name : {std::string("none/out.csv"), std::string(300, 'x')}) {
    Asked.Files.push_back(FileAnswer{Path(name), 1});
    Menu("mnuExport");
    EXPECT_EQ(Asked.Boxes.size(), boxes) << name;
  }
  for (const auto& file : std::filesystem::directory_iterator(Folder))
    EXPECT_NE(file.path().extension(), ".new") << file.path();
}

TEST_F(ExportGridTest, DialogAsksWhatToDoWithAnOldFile) {
  OpenFile(WriteFile("a", 1));
  const std::string path = Path("out.txt");
  const auto exported = [&](std::deque<std::optional<FileAnswer>> files, std::deque<int> buttons) {
    PutFile(path, "old\r\n");
    Asked.Files = std::move(files);
    Asked.Buttons = std::move(buttons);
    Asked.FileQuestions.clear();
    Asked.Boxes.clear();
    Menu("mnuExport");
    return BytesOf(path);
  };
  const FileAnswer semicolon{path, 3};
  const std::string appended = exported({semicolon}, {0});
  EXPECT_TRUE(appended.starts_with("old\r\n1 ;a1 ;")) << appended;
  EXPECT_EQ(Asked.Boxes, std::vector<std::string>{"Export Data|" + path +
                                                  "\n\nThis file already exists.|&Append|"
                                                  "&Overwrite|&Cancel"});
  ASSERT_EQ(Asked.FileQuestions.size(), 1u);
  EXPECT_EQ(Asked.FileQuestions[0].Title, "Export Data");
  EXPECT_EQ(Asked.FileQuestions[0].DefaultName, "a");
  EXPECT_TRUE(exported({semicolon}, {1}).starts_with("ID ;Specimen ;"));
  EXPECT_EQ(exported({semicolon, std::nullopt}, {2}), "old\r\n") << "the dialog comes back";
  EXPECT_EQ(Asked.FileQuestions.size(), 2u);
  EXPECT_TRUE(exported({semicolon, semicolon}, {2, 0}).starts_with("old\r\n1 ;a1 ;"));
}

// What the program writes of a small store, appended twice in the second file. What changes it on
// purpose is looked at and approved: VELORIX_APPROVE=1 writes the golden files anew.
TEST_F(ExportGridTest, WritesTheRecordsInViewAsApproved) {
  RecordArray records;
  for (const char* name : {"µ Žár 1", "plain", "out of use", "a name of twenty ch."})
    records.Add(Record(name));
  records[2].Field = 12.3f;
  ASSERT_TRUE(WriteAmsFile(Path("site.ams"), records, false, true));
  OpenFile(Path("site.ams"));
  SelectRecords(Program, {3});
  Menu("mnuSelection(2)");
  const struct {
    const char* Golden;
    int Filter, Times;
  } cases[] = {{"export_comma.csv", 1, 1},
               {"export_space.txt", 2, 2},
               {"export_semicolon.txt", 3, 1},
               {"export_tab.txt", 4, 1}};
  for (const auto& c : cases) {
    for (int i = 0; i < c.Times; ++i) {
      Asked.Files.push_back(FileAnswer{Path(c.Golden), c.Filter});
      Menu("mnuExport");
    }
    const std::string golden = std::string(VELORIX_SOURCE_DIR) + "/tests/app/golden/" + c.Golden;
    const std::string written = BytesOf(Path(c.Golden));
    if (std::getenv("VELORIX_APPROVE")) PutFile(golden, written);
    EXPECT_TRUE(written == BytesOf(golden)) << c.Golden << " is otherwise than approved";
  }
  Menu("mnuClose");
  Asked.Files.push_back(FileAnswer{Path("empty.csv"), 1});
  Menu("mnuExport");
  const std::string comma = BytesOf(Path("export_comma.csv"));
  EXPECT_EQ(BytesOf(Path("empty.csv")), comma.substr(0, comma.find('\n') + 1));
}

}  // namespace
}  // namespace velorix
