#include "app/edit/edit_grid.h"

#include <gtest/gtest.h>

#include "base/fault.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

SpecimenRecord Oriented() {
  SpecimenRecord r;
  r.Name = "S1";
  r.HasCoor = {true, true, true, true};
  r.OP = {6, 0, 9, 90};
  r.OrientAz = 40.5f;
  r.OrientInc = -20;
  r.FoliName = {"S", "C", "", ""};
  r.LineName = {"L", "M", "", ""};
  for (int s = 1; s <= 2; ++s) {
    const auto at = static_cast<float>(s);
    r.FoliAz[s] = 100 + at;
    r.FoliDip[s] = 30 + at;
    r.LineTrend[s] = 200 + at;
    r.LinePlunge[s] = 10.25f + at;
  }
  return r;
}

/// The cells of a row from `first` on, with bars between.
std::string Row(const EditGrid& grid, int row, int first = 1, int count = EditColumns) {
  std::string text;
  for (int c = first; c < first + count; ++c) text += (c == first ? "" : "|") + grid.Cell(row, c);
  return text;
}

/// A store of one record or two, its grid, and what comes of it.
struct Editor {
  RecordArray Records;
  EditGrid Grid;

  explicit Editor(const SpecimenRecord& record = Oriented(), int count = 1) {
    for (int i = 1; i <= count; ++i) {
      Records.Add(record);
      Records[i].RecordNo = static_cast<std::int16_t>(i);
    }
    FillGrid(Grid, RowsOf(Records));
  }
  bool Type(int column, const std::string& text, int row = 1) {
    return ChangeCells(Grid, {{row, column, text}});
  }
  const SpecimenRecord& Commit() {
    CommitGrid(Grid, Records);
    return Records[1];
  }
};

TEST(EditGrid, ShowsTheFieldsInTheirColumnsAndNothingWhereARecordHasNothing) {
  EXPECT_EQ(Row(Editor().Grid, 1),
            "1|S1|40.5|-20|S|101|31|L|201|11.25|C|102|32|M|202|12.25|6|0|9|90");
  SpecimenRecord r;
  r.Name = "S1";
  r.OrientAz = 40;  // without the flag it is no orientation
  r.LineTrend[2] = 7;
  EXPECT_EQ(Row(Editor(r).Grid, 1), "1|S1|||||||||||||7|0|0|0|0|0");
  std::string headers;
  for (int c = 1; c <= EditColumns; ++c) headers += std::string(EditColumnAt(c).Header) + " ";
  EXPECT_EQ(headers,
            "# Specimen Dec Inc Code Dec Inc Code Dec Inc Code Dec Inc Code Dec Inc "
            "OP1 OP2 OP3 OP4 ");
}

TEST(EditGrid, CommitReadsTextsByTheirNumericPrefixAndRoundsParametersHalvesToEven) {
  const std::tuple<const char*, float, int> rows[] = {
      {"12a", 12, 12}, {"a", 0, 0},       {"12,5", 12, 12},    {"-.5", -0.5f, 0}, {"1E2", 100, 100},
      {"  7 ", 7, 7},  {"12 34", 12, 12}, {"12.5", 12.5f, 12}, {"3.5", 3.5f, 4}};
  for (const auto& [text, angle, parameter] : rows) {
    Editor e;
    for (const int column : {OrientationColumn, FoliationColumn(2) + 2, ParameterColumn(4)})
      e.Type(column, text);
    EXPECT_EQ(e.Commit().OrientAz, angle) << text;
    EXPECT_EQ(e.Records[1].FoliDip[2], angle) << text;
    EXPECT_EQ(e.Records[1].OP[4], parameter) << text;
  }
}

TEST(EditGrid, ARecordLeavesTheViewThatItHasLost) {
  for (const CoordinateSystem level : SystemsInView) {
    Editor e;
    e.Records[1].CoorLevel = level;
    e.Type(OrientationColumn, " ");  // one of the two is enough
    EXPECT_EQ(e.Commit().CoorLevel, level);
    EXPECT_TRUE(e.Records[1].HasCoor[2]);
    EXPECT_EQ(e.Records[1].OrientAz, 0);
    for (const int column : {4, 5, 8, 11, 14}) e.Type(column, "");
    EXPECT_EQ(e.Commit().CoorLevel, level == Specimen ? Specimen : CoordinateSystem::None);
    EXPECT_FALSE(e.Records[1].HasCoor[2]);
    EXPECT_EQ(e.Records[1].OrientInc, 0);
  }
}

TEST(EditGrid, CodesDecideOnPairsAndTheSecondSlotNeverClearsAFlag) {
  const std::tuple<const char*, const char*, const char*, const char*, bool, bool, bool> rows[] = {
      {"S", "L", "C", "M", true, true, true}, {"S", "", "", "", true, true, false},
      {"", "L", "", "", true, true, false},   {"", "", "C", "", true, false, true},
      {"", "", "", "M", true, false, true},   {"", "", "", "", false, false, false},
  };
  for (const auto& [foli1, line1, foli2, line2, hasPlanes, hasSlot1, hasSlot2] : rows) {
    SCOPED_TRACE(std::string(foli1) + line1 + foli2 + line2);
    Editor e;
    const char* codes[] = {foli1, line1, foli2, line2};
    for (int i = 0; i < 4; ++i) e.Type(FoliationColumn(1) + 3 * i, codes[i]);
    const SpecimenRecord& r = e.Commit();
    EXPECT_EQ(r.HasCoor[3], hasPlanes);
    EXPECT_EQ(r.HasCoor[4], hasPlanes);
    for (int s = 1; s <= 2; ++s) {
      const bool has = s == 1 ? hasSlot1 : hasSlot2;
      EXPECT_EQ(r.FoliName[s], codes[2 * s - 2]);
      EXPECT_EQ(r.FoliAz[s] != 0 && r.FoliDip[s] != 0, has);
      EXPECT_EQ(r.LineTrend[s] != 0 && r.LinePlunge[s] != 0, has);
    }
  }
}

TEST(EditGrid, ANumberWithoutRoomIsAnOverflowThatChangesNoRecord) {
  const std::tuple<int, const char*, const char*> rows[] = {
      {OrientationColumn, "1E400", "Row 2, Orientation Dec"},
      {LineationColumn(2) + 2, "-1E39", "Row 2, Lineation2 Inc"},
      {ParameterColumn(3), "32768", "Row 2, Orientation Parameters OP3"}};
  for (const auto& [column, text, cell] : rows) {
    Editor e(Oriented(), 2);
    const SpecimenRecord before = e.Records[1];
    e.Type(OrientationColumn, "77");
    e.Type(column, text, 2);
    try {
      e.Commit();
      ADD_FAILURE() << text;
    } catch (const Fault& fault) {
      EXPECT_STREQ(fault.what(), "Overflow");
      EXPECT_EQ(fault.Source, cell);
    }
    EXPECT_EQ(e.Records[1], before);
  }
}

TEST(EditGrid, StepsLeadBackAndForth) {
  Editor e;
  const std::string at0 = Row(e.Grid, 1);
  EXPECT_TRUE(ChangeCells(e.Grid, {{1, 3, "1"}, {1, 3, "2"}, {1, 4, "3"}}));
  EXPECT_FALSE(e.Type(4, " 3 "));  // as it is: no step
  const std::string at1 = Row(e.Grid, 1);
  EXPECT_TRUE(e.Type(5, "Q"));
  const std::string at2 = Row(e.Grid, 1);

  EXPECT_TRUE(Undo(e.Grid));
  EXPECT_EQ(Row(e.Grid, 1), at1);
  EXPECT_TRUE(Undo(e.Grid));
  EXPECT_EQ(Row(e.Grid, 1), at0);
  EXPECT_FALSE(Undo(e.Grid));
  EXPECT_TRUE(Redo(e.Grid) && Redo(e.Grid));
  EXPECT_FALSE(Redo(e.Grid));
  EXPECT_EQ(Row(e.Grid, 1), at2);
  Undo(e.Grid);
  e.Type(6, "9");  // what was undone is gone
  EXPECT_FALSE(Redo(e.Grid));
}

TEST(EditGrid, StepsAreForgottenBeyondAMeasureButNeverTheLast) {
  constexpr int Rows = RecordArray::Limit, Many = 8;
  EditGrid grid;
  FillGrid(grid, std::vector<EditRow>(Rows));
  for (int step = 1; step <= Many; ++step) {
    std::vector<CellText> texts;
    for (int row = 1; row <= Rows; ++row)
      for (int c = OrientationColumn; c <= EditColumns; ++c)
        texts.push_back({row, c, std::to_string(step)});
    ChangeCells(grid, std::move(texts));
  }
  int undone = 0;
  while (Undo(grid)) ++undone;
  EXPECT_GE(undone, 1);
  EXPECT_LT(undone, Many);
  EXPECT_EQ(grid.Cell(1, 3), std::to_string(Many - undone));
}

TEST(EditGrid, WhatIsCopiedPastesAsItWas) {
  Editor from(Oriented(), 2), to(SpecimenRecord{}, 2);
  from.Type(4, "", 2);  // an empty cell at a line's end
  const CellBlock block{1, 3, 2, 2};
  const std::string lines = CopyBlock(from.Grid, block);
  EXPECT_EQ(lines, "40.5\t-20\n40.5\t\n");
  ChangeCells(to.Grid, PasteBlock(lines, {1, 3, 1, 1}));
  EXPECT_EQ(CopyBlock(to.Grid, block), lines);
}

TEST(EditGrid, PasteTakesTheLinesOfAnySpreadsheet) {
  // clang-format off
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"1\t2\r\n3\t4\r\n", "1|2|S", "3|4|S"},        {"1\t2\n3\t4", "1|2|S", "3|4|S"},
      {"1\n3\n", "1|-20|S", "3|-20|S"},               {"\n3", "|-20|S", "3|-20|S"},
      {"1\t\t\n", "1||", "40.5|-20|S"},               {"5", "5|5|S", "5|5|S"},  // fills the block
      {" 12,5 \t\x01x\n", "12,5|x|S", "40.5|-20|S"},  {"", "||S", "||S"},
      {"1\t2\n3\t4\n5\t6\n", "1|2|S", "3|4|S"},  // the third line has no row
  };
  // clang-format on
  for (const auto& [lines, row1, row2] : rows) {
    Editor e(Oriented(), 2);
    ChangeCells(e.Grid, PasteBlock(lines, {1, 3, 2, 2}));
    EXPECT_EQ(Row(e.Grid, 1, 3, 3), row1) << lines;
    EXPECT_EQ(Row(e.Grid, 2, 3, 3), row2) << lines;
  }
}

TEST(EditGrid, DoubtsTellWhatACellComesTo) {
  // clang-format off
  const std::tuple<int, const char*, const char*> rows[] = {
      {3, "12,5", "A comma is no decimal point. This is read as 12."},
      {3, "12.5", ""}, {3, "12a", "This is read as 12."},
      {3, "", ""},     {3, "1E400", "This number is too large."},
      {5, "12,5", ""}, {6, "x", "This is read as 0."},  // codes are free
      {17, "12", ""},  {17, "7", "The values on offer are 3, 6, 9, 12."},
      {18, "90", ""},  {20, "6", "The values on offer are 0, 90."},
      {20, "90000", "This number is too large."},
      {3, "360", ""},  {3, "360.5", "Azimuths are from 0 to 360."},
      {3, "-1", "Azimuths are from 0 to 360."},  {4, "-0.5", "Inclinations and plunges are from 0 to 90."},
      {6, "400", "Azimuths are from 0 to 360."}, {7, "180", ""},
      {7, "181", "Dips of foliations are from 0 to 180."},
      {9, "361", "Azimuths are from 0 to 360."}, {10, "91", "Inclinations and plunges are from 0 to 90."},
      {13, "120", ""}, {16, "120", "Inclinations and plunges are from 0 to 90."},
  };
  // clang-format on
  for (const auto& [column, text, doubt] : rows) {
    Editor e;
    e.Type(4, "20");
    e.Type(column, text);
    EXPECT_EQ(CellDoubt(e.Grid, 1, column), doubt) << text;
    EXPECT_EQ(FindDoubts(e.Grid).Count, *doubt ? 1 : 0) << text;
  }
}

TEST(EditGrid, AnglesWithoutACodeAreDoubtful) {
  Editor e;
  e.Type(4, "20");
  e.Type(FoliationColumn(1), "");
  EXPECT_EQ(FindDoubts(e.Grid).Count, 0);  // the lineation's code keeps the pair
  e.Type(LineationColumn(1), "");
  EXPECT_EQ(FindDoubts(e.Grid).Count, 4);
  EXPECT_EQ(CellDoubt(e.Grid, 1, FoliationColumn(1) + 1),
            "Without a code these angles are not saved.");
}

// The cases of a code are distinguished by the rotation, while its lists have capitals alone; a
// code of two letters moves into the lineation's place in a RAN file.
TEST(EditGrid, CodesAreHeldToTheFileAndToOneSpelling) {
  // clang-format off
  const std::tuple<const char*, int, const char*, const char*, const char*> rows[] = {
      // file, column of the second row, its code, doubt of the first row's code, of the second row's
      {"ams", 5, "S", "", ""},    {"ams", 5, "SB", "", ""},
      {"ams", 5, "SBT", "", "The file has 2 letters for a code."},
      {"ams", 5, "Žš", "", ""},   {"asc", 5, "SBT", "", ""},  {"AMS", 5, "SBT", "", ""},
      {"ran", 5, "SB", "", "The file has 1 letter for a code."},
      {"ams", 5, "s", "", "Another cell has S; the rotation finds capitals alone."},
      {"ams", 11, "s", "", "Another cell has S; the rotation finds capitals alone."},
      {"ams", 8, "s", "", ""},    // a lineation
  };
  // clang-format on
  for (const auto& [file, column, code, first, second] : rows) {
    Editor e(Oriented(), 2);
    e.Type(column, code, 2);
    const SheetCodes codes = CodesOf(e.Grid, CodeRoom(file));
    EXPECT_EQ(CellDoubt(e.Grid, 1, 5, codes), first) << file << " " << code;
    EXPECT_EQ(CellDoubt(e.Grid, 2, column, codes), second) << file << " " << code;
  }
}

TEST(EditGrid, TheBoxListsDoubtsAndLeadsToTheMarkedOne) {
  ScriptedDialogs box;
  Editor e(Oriented(), 1005);
  EXPECT_EQ(AskAboutDoubts(box, "", {}).Chosen, DoubtAnswer::Choice::Save);
  EXPECT_TRUE(box.Boxes.empty());
  const SheetDoubts doubts = FindDoubts(e.Grid);  // each row's inclination of -20
  box.Buttons = {1};
  box.Entry = 999;
  const DoubtAnswer answer = AskAboutDoubts(box, "Sheet", doubts);
  EXPECT_EQ(answer.Chosen, DoubtAnswer::Choice::Show);
  EXPECT_EQ(answer.Cell.Row, 1000);
  EXPECT_EQ(answer.Cell.Column, OrientationColumn + 1);
  const std::string& text = box.Boxes.front();
  EXPECT_TRUE(text.starts_with(
      "Sheet|1005 cells are doubtful. The first 1000 are listed. Save the sheet as it stands?\n\n"
      "Row 1, Orientation Inc: -20 - Inclinations and plunges are from 0 to 90.\nRow 2, "))
      << text.substr(0, 300);
  EXPECT_EQ(text.find("\nRow 1001, "), std::string::npos);
  EXPECT_EQ(DoubtsLine(doubts), "1005 cells are marked as doubtful, the first in row 1");
}

}  // namespace
}  // namespace velorix
