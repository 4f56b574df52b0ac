#include "app/ged_editor.h"

#include <fstream>

#include "datafiles/ged_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class GedEditor : public ProgramTest {
 protected:
  static SpecimenRecord Sample(const std::string& name, const std::string& site) {
    SpecimenRecord r;
    r.Name = name;
    r.Site = site;
    r.OP = {12, 90, 3, 90};
    r.OrientAz = 350;
    r.OrientInc = 12;
    r.FoliName[1] = "A";
    r.FoliAz[1] = 120;
    r.FoliDip[1] = 170;
    r.LineName[2] = "L";
    r.LineTrend[2] = 5;
    r.LinePlunge[2] = 60;
    return r;
  }
  /// A file with samples "<name>1" and so on of the site "<name>".
  std::string WriteGed(const std::string& name, int count) const {
    RecordArray records;
    for (int i = 1; i <= count; ++i) records.Add(Sample(name + std::to_string(i), name));
    EXPECT_TRUE(WriteGedFile(Path(name + ".ged"), records));
    return Path(name + ".ged");
  }
  bool Open(const std::string& list) {
    Asked.Files.push_back(FileAnswer{list, 1});
    return OpenGedFiles(Program, Sheet);
  }
  bool Save(const std::string& path) {
    Asked.Files.push_back(FileAnswer{path, 1});
    return SaveGedFile(Program, Sheet);
  }
  static std::string Line(const GedRow& row) {
    std::string line;
    for (const std::string& cell : row.Cells) line += cell + "|";
    return line;
  }
  std::string Names(const RecordArray& records) const {
    std::string names;
    for (const SpecimenRecord& r : records) names += r.Name + " ";
    return names;
  }

  GedSheet Sheet = NewGedSheet({});
};

TEST_F(GedEditor, OpensOneFileIntoSiteAndRows) {
  ASSERT_TRUE(Open(WriteGed("hill", 2)));
  ASSERT_EQ(Sheet.Rows.size(), 2u);
  EXPECT_EQ(Line(Sheet.Rows[1]), "hill2|350|12|A|120|170|0|0|0|0|0|0|L|5|60|");
  EXPECT_EQ(Sheet.Site.Site, "hill");
  EXPECT_EQ(Sheet.Site.OP, (Array1<std::int16_t, 4>{12, 90, 3, 90}));
  EXPECT_EQ(GedCaption(Sheet, 500), "Geological file editor - [" + Path("hill.ged") + "] (N = 2)");
  EXPECT_EQ(Names(Program.Session.GeoRecords), "hill1 hill2 ");
  EXPECT_EQ(Program.Session.GeoFile, Path("hill.ged"));
  EXPECT_EQ(Program.Session.RecordCount(), 0);
  const FileQuestion& question = Asked.FileQuestions.back();
  EXPECT_EQ(question.Title, "Open GED file(s)");
  EXPECT_EQ(question.Filter, "GED-file(s) (*.ged)|*.ged");
  EXPECT_TRUE(question.Multi);
  EXPECT_EQ(question.MaxFileSize, 32767);
}

TEST_F(GedEditor, SeveralFilesShowAllSamplesAndTheSiteOfTheFirst) {
  WriteGed("hill", 2);
  WriteGed("dale", 1);
  const std::string zero(1, '\0');
  ASSERT_TRUE(Open(Utf8Of(Folder) + zero + "hill.ged" + zero + "dale.ged" + zero));
  EXPECT_EQ(Names(Program.Session.GeoRecords), "hill1 hill2 dale1 ");
  EXPECT_EQ(Sheet.Rows.size(), 3u);
  EXPECT_EQ(Sheet.Site.Site, "hill");
  EXPECT_EQ(GedCaption(Sheet, 500),
            "Geological file editor - [" + Utf8Of(Folder) + "\\MULTIPLE FILES] (N = 3)");
}

TEST_F(GedEditor, AMissingFileIsToldAndAskedForAgain) {
  WriteGed("hill", 1);
  Asked.Files = {FileAnswer{Path("gone.ged"), 1}};
  ASSERT_TRUE(Open(Path("hill.ged")));
  ASSERT_EQ(Asked.Boxes.size(), 1u);
  EXPECT_EQ(Asked.Boxes[0],
            "Open GED file(s)|gone.ged\nThis file does not exist.\nCreate new file?|&Retry");
}

TEST_F(GedEditor, AFileThatCannotBeReadLeavesWhatWasTyped) {
  Open(WriteGed("hill", 1));
  Sheet.Rows[0].Cells[0] = "typed";
  std::ofstream(PathOf(Path("bad.ged"))) << "no geological file\r\n";
  EXPECT_FALSE(Open(Path("bad.ged")));
  EXPECT_EQ(Sheet.Rows[0].Cells[0], "typed");
  EXPECT_EQ(Names(Program.Session.GeoRecords), "hill1 ");
  Asked.Files = {std::nullopt};
  EXPECT_FALSE(OpenGedFiles(Program, Sheet));
  EXPECT_EQ(Sheet.Rows.size(), 1u);
}

TEST_F(GedEditor, NumbersAreHeldToTheirLimits) {
  constexpr int Name = 0, Azimuth = 1, Inc = 2, Code = 3, Dip = 5, Trend = 7, Plunge = 8;
  const struct {
    int column;
    const char *text, *taken;
  } cases[] = {{Azimuth, "360", "360"},
               {Azimuth, "360.5", "refused"},
               {Azimuth, "-1", "refused"},
               {Inc, "90", "90"},
               {Inc, "91", "refused"},
               {Dip, "120", "120"},
               {Dip, "180.1", "refused"},
               {Plunge, "120", "refused"},
               {Plunge, "0", "0"},
               {Trend, " 12.50 ", "12.5"},
               {Trend, "12,5", "12"},
               {Trend, "", ""},
               {Trend, "  ", ""},
               {Trend, "abc", "0"},
               {Trend, "1E400", "refused"},
               {Trend, "-0", "0"},
               {Name, " a b ", "a b"},
               {Name, "999", "999"},
               {Code, "7", "7"}};
  for (const auto& c : cases) {
    const auto text = AcceptedGedText(c.column, c.text);
    EXPECT_EQ(text.value_or("refused"), c.taken) << c.column << " " << c.text;
  }
  RefuseGedCell(Program);
  EXPECT_EQ(Asked.Boxes.back(), "Edit aniso|Input out of limits!|OK");
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
  RecordArray records;
  ASSERT_TRUE(ReadGedFile(Path("out.ged"), records));
  EXPECT_EQ(Names(records), "hill1 hill3 new ");
  EXPECT_EQ(records[3].Site, "moor");
  EXPECT_EQ(records[2].FoliDip[1], 170);
  EXPECT_EQ(records[2].LineTrend[2], 5);
  EXPECT_EQ(Names(Program.Session.GeoRecords), "hill1 hill3 new ");
  EXPECT_EQ(Program.Session.GeoFile, Path("out.ged"));
}

TEST_F(GedEditor, AsksBeforeItOverwritesAndNoAsksForAnotherName) {
  Open(WriteGed("hill", 1));
  const std::string other = WriteGed("other", 2);
  Asked.Buttons = {1};
  Asked.Files = {FileAnswer{other, 1}};
  EXPECT_TRUE(Save(Path("out.ged")));
  ASSERT_EQ(Asked.Boxes.size(), 1u);
  EXPECT_EQ(Asked.Boxes[0], "SAVE GEOLOGICAL FILE|Overwrite existing file?|&Yes|&No");
  RecordArray records;
  EXPECT_TRUE(ReadGedFile(other, records));
  EXPECT_EQ(Names(records), "other1 other2 ");
  EXPECT_TRUE(std::filesystem::exists(PathOf(Path("out.ged"))));
}

TEST_F(GedEditor, WhatCannotBeSavedIsToldAndNothingChanges) {
  EXPECT_FALSE(SaveGedFile(Program, Sheet));
  EXPECT_EQ(Asked.Boxes.back(), "Save geological file|There is no sample to save.|&OK");
  EXPECT_TRUE(Asked.FileQuestions.empty());

  Open(WriteGed("hill", 1));
  Sheet.Rows[0].Cells[0] = "typed";
  EXPECT_THROW(Save(Path("no folder/out.ged")), std::filesystem::filesystem_error);
  Sheet.Site.Lon = "1E400";
  EXPECT_THROW(Save(Path("out.ged")), Fault);
  EXPECT_FALSE(std::filesystem::exists(PathOf(Path("out.ged"))));
  EXPECT_EQ(Names(Program.Session.GeoRecords), "hill1 ");
  EXPECT_EQ(Program.Session.GeoFile, Path("hill.ged"));
}

}  // namespace
}  // namespace velorix
