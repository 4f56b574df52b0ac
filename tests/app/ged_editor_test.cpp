#include "app/edit/ged_editor.h"

#include "datafiles/formats/ged_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class GedEditor : public ProgramTest {
 protected:
  /// A file with samples "<name>1" and so on of the site "<name>".
  std::string WriteGed(const std::string& name, int count) const {
    SpecimenRecord r;
    r.Site = name;
    r.OP = {12, 90, 3, 90};
    r.OrientAz = 350;
    r.OrientInc = 12;
    r.FoliName[1] = "A";
    r.FoliAz[1] = 120;
    r.FoliDip[1] = 170;
    r.LineName[2] = "L";
    r.LineTrend[2] = 5;
    r.LinePlunge[2] = 60;
    RecordArray records;
    for (int i = 1; i <= count; ++i) {
      r.Name = name + std::to_string(i);
      records.Add(r);
    }
    EXPECT_TRUE(WriteGedFile(Path(name + ".ged"), records));
    return Path(name + ".ged");
  }
  bool Open(const std::string& list) {
    Answer(list);
    return OpenGedFiles(Program.Session, Asked, Sheet);
  }
  bool Save(const std::string& path) {
    Answer(path);
    return SaveGedFile(Program.Session, Asked, Sheet);
  }
  RecordArray Written(const std::string& path) const {
    RecordArray records;
    EXPECT_TRUE(ReadGedFile(path, records));
    return records;
  }
  std::string GeoNames() const { return NamesOf(Now.GeoRecords); }

  GedSheet Sheet = NewGedSheet({});
};

TEST_F(GedEditor, OpensOneFileIntoSiteAndRows) {
  ASSERT_TRUE(Open(WriteGed("hill", 2)));
  ASSERT_EQ(Sheet.Rows.size(), 2u);
  std::string line;
  for (const std::string& cell : Sheet.Rows[1].Cells) line += cell + "|";
  EXPECT_EQ(line, "hill2|350|12|A|120|170|0|0|0|0|0|0|L|5|60|");
  EXPECT_EQ(Sheet.Site.Site, "hill");
  EXPECT_EQ(Sheet.Site.OP, (Array1<std::int16_t, 4>{12, 90, 3, 90}));
  EXPECT_EQ(GedCaption(Sheet, 500), "Geological file editor - [" + Path("hill.ged") + "] (N = 2)");
  EXPECT_EQ(GeoNames() + Names(), "hill1 hill2 ");
  EXPECT_EQ(Now.GeoFile, Path("hill.ged"));
  const FileQuestion& question = Asked.FileQuestions.back();
  EXPECT_EQ(question.Title + "|" + question.Filter, "Open GED file(s)|GED-file(s) (*.ged)|*.ged");
  EXPECT_TRUE(question.Multi);
  EXPECT_EQ(question.MaxFileSize, 32767);
}

TEST_F(GedEditor, WhatCannotBeReadIsToldOrAskedForAgainAndLeavesWhatWasTyped) {
  Answer(Path("gone.ged"));
  ASSERT_TRUE(Open(WriteGed("hill", 1)));
  EXPECT_EQ(Asked.Boxes, Texts{"Open GED file(s)|gone.ged\nThis file does not exist.\n"
                               "Create new file?|&Retry"});
  Sheet.Rows[0].Cells[0] = "typed";
  EXPECT_FALSE(Open(Put("bad.ged", "no geological file\r\n")));
  EXPECT_EQ(Asked.Boxes.size(), 2u);
  EXPECT_FALSE(OpenGedFiles(Program.Session, Asked, Sheet));  // cancelled
  EXPECT_EQ(Sheet.Rows[0].Cells[0], "typed");
  EXPECT_EQ(GeoNames(), "hill1 ");
}

TEST_F(GedEditor, NumbersAreHeldToTheirLimits) {
  constexpr int Name = 0, Azimuth = 1, Inc = 2, Code = 3, Dip = 5, Trend = 7, Plunge = 8;
  // clang-format off
  const std::tuple<int, const char*, const char*> cases[] = {
      {Azimuth, "360", "360"},     {Azimuth, "360.5", "refused"}, {Azimuth, "-1", "refused"},
      {Inc, "90", "90"},           {Inc, "91", "refused"},        {Plunge, "120", "refused"},
      {Dip, "120", "120"},         {Dip, "180.1", "refused"},     {Plunge, "0", "0"},
      {Trend, " 12.50 ", "12.5"},  {Trend, "12,5", "12,5"},       {Trend, "abc", "abc"},
      {Trend, "", ""},             {Trend, "  ", ""},             {Trend, "-0", "0"},
      {Trend, "1E400", "refused"}, {Name, " a b ", "a b"},        {Code, "7", "7"}};
  // clang-format on
  for (const auto& [column, text, taken] : cases)
    EXPECT_EQ(AcceptedGedText(column, text).value_or("refused"), taken) << column << " " << text;
  RefuseGedCell(Asked);
  EXPECT_EQ(Asked.Boxes.back(), "Edit aniso|Input out of limits!|OK");
}

TEST_F(GedEditor, DoubtfulCellsOfTheRowsToSaveAreFound) {
  Open(WriteGed("hill", 3));
  const auto type = [this](int row, int column, const char* text) {
    Sheet.Rows[static_cast<std::size_t>(row)].Cells[static_cast<std::size_t>(column)] = text;
  };
  EXPECT_EQ(FindDoubts(Sheet, CodesOf(Sheet)).Count, 0);
  type(0, 4, "12,5");
  type(1, 9, "a");  // beside the first foliation's "A"
  type(1, 14, "95");
  type(2, 1, "400");
  Sheet.Rows[2].TakenOut = true;
  std::string found;
  for (const SheetDoubts::Cell& cell : FindDoubts(Sheet, CodesOf(Sheet)).First)
    found += std::to_string(cell.Row) + "/" + std::to_string(cell.Column) + " " + cell.Text + "|";
  EXPECT_EQ(
      found,
      "1/5 Row 1, Foliation1 Azimuth: 12,5 - A comma is no decimal point. This is read as "
      "12.|2/10 Row 2, Foliation2: a - Another cell has A; the rotation finds capitals alone.|"
      "2/15 Row 2, Lineation2 Plunge: 95 - Inclinations and plunges are from 0 to 90.|");
}

TEST_F(GedEditor, SavesTheRowsThatAreNotTakenOut) {
  Open(WriteGed("hill", 3));
  Sheet.Rows[1].TakenOut = true;
  Sheet.Rows.emplace_back();  // without any text: not saved either
  Sheet.Rows.emplace_back().Cells[0] = "new";
  Sheet.Site.Site = "moor";
  ASSERT_TRUE(Save(Path("out.ged")));
  EXPECT_EQ(Asked.FileQuestions.back().Title, "Save geological file");
  EXPECT_EQ(Asked.FileQuestions.back().DefaultName, "hill");
  const RecordArray records = Written(Path("out.ged"));
  EXPECT_EQ(NamesOf(records), "hill1 hill3 new ");
  EXPECT_EQ(records[3].Site, "moor");
  EXPECT_EQ(records[2].FoliDip[1], 170);
  EXPECT_EQ(records[2].LineTrend[2], 5);
  EXPECT_EQ(GeoNames(), "hill1 hill3 new ");
  EXPECT_EQ(Now.GeoFile, Path("out.ged"));
}

TEST_F(GedEditor, WhatCannotBeSavedIsToldAndNothingChanges) {
  EXPECT_FALSE(SaveGedFile(Program.Session, Asked, Sheet));
  EXPECT_EQ(Asked.Boxes.back(), "Save geological file|There is no sample to save.|&OK");
  EXPECT_TRUE(Asked.FileQuestions.empty());

  Open(WriteGed("hill", 1));
  Sheet.Rows[0].Cells[0] = "typed";
  EXPECT_THROW(Save(Path("no folder/out.ged")), FileFault);
  Sheet.Site.Lon = "1E400";
  EXPECT_THROW(Save(Path("out.ged")), Fault);
  EXPECT_FALSE(Exists("out.ged"));
  EXPECT_EQ(GeoNames(), "hill1 ");
  EXPECT_EQ(Now.GeoFile, Path("hill.ged"));
}

}  // namespace
}  // namespace velorix
