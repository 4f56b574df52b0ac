#include "app/files/losses.h"

#include "app/edit/ged_editor.h"
#include "app/edit/orientation_editor.h"
#include "app/files/content_check.h"
#include "datafiles/formats/ged_file.h"
#include "tests/app/script.h"
#include "tests/datafiles/golden_record.h"

namespace velorix {
namespace {

class Losing : public ProgramTest {
 protected:
  static constexpr char Title[] = "Save Record(s) As";
  static constexpr char Exists[] =
      "Save Record(s) As|This file already exists.\nOverwrite existing file?|&Yes|&No";

  /// A file of two records of another program, which have all that a file can have.
  std::string PutFull(const std::string& name = "a.ams") const {
    return Put(name, golden::OnDisk("a1") + golden::OnDisk("a2"));
  }
  /// The question for these losses.
  static std::string Question(const std::string& title, const std::string& path,
                              const Texts& lines) {
    std::string text = title + "|" + path + "\nSaving over this file would mean:";
    for (const std::string& line : lines) text += "\n- " + line;
    return text + "|&Save|Save a &copy...|&Cancel";
  }
  /// Saves all records over a file, with these answers behind the one to overwrite it.
  Texts SaveOver(const std::string& path, const std::deque<int>& answers, int filter = 1) {
    Asked.Boxes.clear();
    Asked.Buttons = answers;
    Asked.Buttons.push_front(0);
    Answer(path, filter);
    Menu("mnuSaveAs");
    return Asked.Boxes;
  }
  static constexpr char Deviations6[] = "6 standard deviations lost (never written)";
  static constexpr char Deviations12[] = "12 standard deviations lost (never written)";
  static constexpr char Tensors[] = "2 out-of-phase tensors lost (not in memory)";
};

TEST_F(Losing, WhatAReloadLeftOutIsAskedForBeforeASave) {
  const std::string a = PutFull(), before = Bytes("a.ams");
  OpenFile(a);
  EXPECT_EQ(SaveOver(a, {2}), (Texts{Exists, Question(Title, a, {Deviations12})}));
  Menu("mnuReload");
  EXPECT_EQ(SaveOver(a, {2}), (Texts{Exists, Question(Title, a, {Tensors, Deviations6})}));
  EXPECT_EQ(Bytes("a.ams"), before);
  EXPECT_FALSE(ProgramTest::Exists("a.ams~"));

  Answer(Path("copy.ams"));  // behind the answer to save a copy
  SaveOver(a, {1});
  EXPECT_EQ(Bytes("a.ams"), before);
  EXPECT_EQ(Bytes("copy.ams").size(), 2u * 640);

  SaveOver(a, {0});
  EXPECT_NE(Bytes("a.ams"), before);
  EXPECT_EQ(Bytes("a.ams~"), before);
  EXPECT_EQ(SaveOver(a, {}), Texts{Exists});  // nothing is left to lose
  EXPECT_EQ(Bytes("a.ams~"), Bytes("a.ams"));
}

TEST_F(Losing, WhatTheFormatHasAndTheProgramNeverWritesIsCounted) {
  // Places by hand, from the page on the format.
  std::string bytes = golden::OnDisk("a1") + golden::OnDisk("a2");
  golden::PutText(bytes, 104, "S3S4");      // codes of planes 3 and 4
  golden::PutFloat(bytes, 116, 12);         // azimuth of plane 3
  golden::PutText(bytes, 640 + 144, "L3");  // code of lineation 3
  golden::PutFloat(bytes, 640 + 176, 30);   // plunge of lineation 4
  golden::PutText(bytes, 550, "abc");       // no field
  golden::PutShort(bytes, 640 + 90, 0);     // no orientation, but its angles
  bytes += std::string(300, 'x');
  const std::string a = Put("a.ams", bytes);
  OpenFile(a);
  const std::string further =
      "5 codes and angles of third and fourth planes and lineations lost (never written)";
  EXPECT_EQ(SaveOver(a, {0}).back(),
            Question(Title, a,
                     {Deviations12, further, "2 values lost (never written: OrientAz, OrientInc)",
                      "3 bytes lost that no field of the format has",
                      "300 bytes lost behind the last record"}));
  EXPECT_EQ(SaveOver(a, {}), Texts{Exists});
}

TEST_F(Losing, WhatRanAndGeologicalFilesHaveAndTheProgramNeverWritesIsCounted) {
  const std::string ran = Path("s.ran");
  OpenFile(WriteFile("a", 2));
  SaveOver(ran, {}, 2);
  std::string bytes = Bytes("s.ran");
  bytes.replace(57, 3, "90 ");  // P4
  bytes[62] = 'x';
  bytes[64 + 44] = '*';  // a code below "1"
  bytes += std::string(20, 'y');
  Put("s.ran", bytes);
  OpenFile(ran, 2);
  EXPECT_EQ(SaveOver(ran, {0}, 2).back(),
            Question(Title, ran,
                     {"2 values lost (never written: P4, code pair 1)",
                      "1 byte lost that no field of the format has",
                      "20 bytes lost behind the last record"}));
  EXPECT_EQ(SaveOver(ran, {}, 2), Texts{Exists});

  ASSERT_TRUE(WriteGedFile(Path("s.ged"), ArrayOf({Record("b1")})));
  std::string ged = Bytes("s.ged");
  ged.replace(64 + 12, 4, "12.5");  // behind the header of 62 characters and its line end
  ged.replace(64 + 20, 4, "SxyL");
  ged[64 + 61] = '!';
  Put("s.ged", ged);
  RecordArray samples;
  ASSERT_TRUE(ReadGedFile(Path("s.ged"), samples));
  EXPECT_EQ(
      LossLines(FindGedLosses(Now, Path("s.ged"), samples, false)),
      (Texts{"2 values lost (never written: codes 1)",
             "1 byte lost that no field of the format has", "1 number rounded to whole ones"}));
}

TEST_F(Losing, FieldsThatRecordsOfAnotherFileLackAreNamed) {
  const std::string a = PutFull();
  OpenFile(a);
  SpecimenRecord bare = Record("a1");
  WriteRecords("b.ams", {bare, Record("a2")});
  OpenFile(Path("b.ams"));
  const Texts boxes = SaveOver(a, {2});
  EXPECT_NE(boxes.back().find("2 out-of-phase tensors lost (not in memory)"), std::string::npos);
  EXPECT_NE(boxes.back().find("values lost (not in memory: E, E2, E3, FTest"), std::string::npos)
      << boxes.back();
  OpenFile(a);
  Now.Records[1].HasCoor[2] = false;  // by the editor, which knows what it does
  EXPECT_EQ(SaveOver(a, {2}).back(), Question(Title, a, {Deviations12}));
}

TEST_F(Losing, RecordsThatVanishOrComeFromOtherFilesAreCounted) {
  const std::string a = WriteFile("a", 3), b = WriteFile("b", 2);
  OpenFile(a);
  SelectRecords(Program, {2});
  Asked.Buttons = {0, 2};
  Answer(a);
  Menu("mnuSaveSelectedAs");
  EXPECT_EQ(Asked.Boxes.back(), Question("Save Selected Record(s) As", a,
                                         {"2 records lost (not among those to be saved)"}));
  OpenFile(Several({"a.ams", "b.ams"}));
  EXPECT_EQ(SaveOver(a, {2}).back(), Question(Title, a, {"2 records of other open files put in"}));
  EXPECT_EQ(SaveOver(b, {2}).back(), Question(Title, b, {"3 records of other open files put in"}));
  // The same records in another order lose nothing.
  WriteRecords("turned.ams",
               {Record("b2"), Record("a3"), Record("b1"), Record("a1"), Record("a2")});
  EXPECT_EQ(SaveOver(Path("turned.ams"), {}), Texts{Exists});
  // Two of one name are two.
  WriteRecords("twice.ams", {Record("a1"), Record("a1"), Record("a2"), Record("a3")});
  EXPECT_EQ(SaveOver(Path("twice.ams"), {2}).back(),
            Question(Title, Path("twice.ams"), {"1 record lost (not among those to be saved)"}));
}

TEST_F(Losing, TextsAndAnglesThatTheFileCannotHoldAreCounted) {
  const std::string a = WriteFile("a", 2);
  const std::string ran = Path("a.ran");
  OpenFile(a);
  Answer(ran, 2);
  Menu("mnuSaveAs");
  SpecimenRecord& r = Now.Records[1];
  r.FoliName[1] = "\xCE\xA9";  // a capital omega
  r.LineName[1] = "LIN";
  EXPECT_EQ(SaveOver(a, {2}).back(), Question(Title, a,
                                              {"1 text with letters that the file cannot hold",
                                               "1 value cut to the width of its field"}));
  r.FoliName[1] = "S";
  r.LineName[1] = "L";
  r.FoliDip[1] = 12.5f;  // whole degrees in the one format
  Now.Records[2].Site = "Elsewhere";
  EXPECT_EQ(SaveOver(a, {}), Texts{Exists});
  EXPECT_EQ(SaveOver(ran, {2}, 2).back(), Question(Title, ran,
                                                   {"1 value cut to the width of its field",
                                                    "1 record given the site data of the first"}));
}

TEST_F(Losing, AChangeByOthersAndContentThatIsNoDataFileAreSaid) {
  const std::string a = WriteFile("a", 2),
                    changed = "Changes lost that were made since the file was read";
  OpenFile(a);
  const auto touch = [&a](int hours) {
    std::filesystem::last_write_time(
        PathOf(a), std::filesystem::file_time_type::clock::now() + std::chrono::hours(hours));
  };
  touch(1);
  EXPECT_EQ(SaveOver(a, {}), Texts{Exists});  // of the same bytes
  std::string bytes = Bytes("a.ams");
  bytes[640 + 212] ^= 1;  // in the second tensor
  Put("a.ams", bytes);
  touch(2);
  EXPECT_EQ(SaveOver(a, {0}).back(), Question(Title, a, {changed}));
  EXPECT_EQ(SaveOver(a, {}), Texts{Exists});  // our own write is none of others
  const std::string notes = Put("notes.ams", "to do");
  EXPECT_EQ(SaveOver(notes, {2}).back(),
            Question(Title, notes, {"Content lost that is no data file of this kind"}));
  EXPECT_EQ(Bytes("notes.ams"), "to do");
  // Long enough to be read as records.
  const std::string png = Put("p.ams", "\x89PNG\r\n\x1A\n" + std::string(5 * 640, '\1'));
  EXPECT_EQ(SaveOver(png, {2}).back(),
            Question(Title, png, {"Content lost that is no data file of this kind"}));
}

TEST_F(Losing, AFileThatWasNotReadIsNotSaidToHaveChanged) {
  const std::string a = WriteFile("a", 2), b = Put("b.ams", "\x89PNG\r\n\x1A\n");
  OpenFile(a);
  Menu("mnuOpenNext");  // is refused; the names are those of the other file
  EXPECT_EQ(ContentDoubt(Now), "");
  EXPECT_EQ(SaveOver(b, {2}).back(),
            Question(Title, b, {"Content lost that is no data file of this kind"}));
  OpenFile(a);
  Answer(Path("c.ams"));
  Menu("mnuNew");
  Answer(Path("c.ams"));
  Menu("mnuSaveAs");
  Menu("mnuUndo");
  EXPECT_EQ(SaveOver(a, {}), Texts{Exists});
}

TEST_F(Losing, AFileIsComparedAsWhatItIsAndAnEmptyOneHasNothingToLose) {
  const std::string capitals = PutFull("SITE.AMS");  // the extension of SI2B files
  OpenFile(PutFull());
  Menu("mnuReload");
  EXPECT_EQ(SaveOver(capitals, {2}),
            (Texts{Exists, Question(Title, capitals, {Tensors, Deviations6})}));
  const std::string empty = Put("empty.ams", "");
  EXPECT_EQ(SaveOver(empty, {}), Texts{Exists});
}

TEST_F(Losing, TheEditorsSaveAsksBeforeAnythingChanges) {
  const std::string a = PutFull(), before = Bytes("a.ams");
  OpenFile(a);
  Menu("mnuReload");
  const RecordArray records = Now.Records;
  OrientationEditor editor;
  LoadEditor(editor, Now);
  EditCells(editor, {{1, OrientationColumn, "77"}});
  const auto save = [&](int answer) {
    Asked.Boxes.clear();
    Asked.Buttons = {answer};
    return SaveGrid(editor, Now, Program.History, Program.Lists, Asked, Seen);
  };
  EXPECT_FALSE(save(2));
  EXPECT_EQ(Asked.Boxes, Texts{Question("Edit Orientation Data", a, {Tensors, Deviations6})});
  EXPECT_TRUE(std::equal(records.begin(), records.end(), Now.Records.begin()));
  EXPECT_FALSE(save(1));  // a copy, and the dialog cancelled
  EXPECT_EQ(Asked.FileQuestions.back().Again->Filename, Path("a copy.ams"));
  EXPECT_EQ(Now.Records[1].OrientAz, records[1].OrientAz);
  EXPECT_EQ(editor.Grid.Cell(1, OrientationColumn), "77");
  EXPECT_EQ(Bytes("a.ams"), before);
  EXPECT_FALSE(Now.IsUnsaved());

  Answer(Path("copy.ams"));
  EXPECT_TRUE(save(1));
  EXPECT_EQ(Bytes("a.ams"), before);
  EXPECT_EQ(Now.CurrentFile, a);
  EXPECT_EQ(Now.Records[1].OrientAz, 77);
  RecordArray copy;
  ASSERT_TRUE(ReadAmsFile(Path("copy.ams"), copy));
  EXPECT_EQ(copy[1].OrientAz, 77);
  EXPECT_FALSE(Now.IsUnsaved());
}

TEST_F(Losing, TheGeologicalEditorsSaveAsks) {
  const std::string ged = Path("s.ged");
  SpecimenRecord sample = Record("a1");
  sample.FoliName[1] = "S";
  ASSERT_TRUE(WriteGedFile(ged, ArrayOf({sample, Record("a2")})));
  Answer(ged);
  GedSheet sheet;
  ASSERT_TRUE(OpenGedFiles(Now, Asked, sheet));
  sheet.Rows[0].Cells[1] = "12.5";
  sheet.Rows[1].TakenOut = true;
  const std::string before = Bytes("s.ged");
  const auto save = [&](const std::deque<int>& answers) {
    Asked.Buttons = answers;
    Answer(ged);
    return SaveGedFile(Now, Asked, sheet);
  };
  EXPECT_FALSE(save({0, 2}));
  EXPECT_EQ(Asked.Boxes.back(), Question("Save geological file", ged,
                                         {"1 record lost (not among those to be saved)",
                                          "1 value cut to the width of its field"}));
  EXPECT_EQ(Bytes("s.ged"), before);
  EXPECT_TRUE(save({0, 0}));
  EXPECT_EQ(Bytes("s.ged~"), before);

  ASSERT_TRUE(WriteGedFile(Path("t.ged"), ArrayOf({Record("b1"), Record("b2")})));
  Answer(Several({"s.ged", "t.ged"}));
  ASSERT_TRUE(OpenGedFiles(Now, Asked, sheet));
  EXPECT_FALSE(save({0, 2}));
  EXPECT_EQ(Asked.Boxes.back(),
            Question("Save geological file", ged,
                     {"1 number rounded to whole ones", "2 records of other open files put in"}));
}

}  // namespace
}  // namespace velorix
