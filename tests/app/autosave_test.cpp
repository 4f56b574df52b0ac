#include "app/commands/file_commands.h"

#include "datafiles/settings/autosave_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class Autosaving : public ProgramTest {
 protected:
  /// A run that ends with declinations typed in the orientation editor: `{row, text}`.
  void EndTyping(const std::vector<std::pair<int, const char*>>& typed) {
    OrientationEditor editor;
    LoadEditor(editor, Now);
    for (const auto& [row, text] : typed) EditCells(editor, {{row, OrientationColumn, text}});
    Autosave(Left).Update(Now, &editor, Seen, Program.Log);
    Menu("mnuClose");
    Asked.Boxes.clear();
  }
  bool Offer(const std::deque<int>& answers) {
    Asked.Buttons = answers;
    return OfferAutosave(Program, Left, Own);
  }

  const std::string Left = Path("left.txt");
  Autosave Own{Path("own.txt")};
};

TEST_F(Autosaving, UnsavedDataAreKeptAsLongAsTheyAreUnsaved) {
  const auto keeps = [this](const OrientationEditor* editor = nullptr) {
    Own.Update(Now, editor, Seen, Program.Log);
    return Exists("own.txt");
  };
  OpenFile(WriteRecords("a.ams", {Record("a1"), Record("a1")}));
  EXPECT_FALSE(keeps());
  OrientationEditor editor;
  LoadEditor(editor, Now);
  EXPECT_FALSE(keeps(&editor));
  EditCells(editor, {{1, OrientationColumn, "77"}});
  EXPECT_TRUE(keeps(&editor));
  EXPECT_FALSE(keeps());  // the editor was closed by "CANCEL"

  // A question of "SAVE" stands while the records have the cells already.
  struct : ScriptedDialogs {
    std::function<void()> During;
    int Ask(const std::string&, const std::string&, const Texts&, int) override {
      During();
      return 2;
    }
  } asking;
  bool asked = false;
  asking.During = [&] { asked = keeps(&editor); };
  Put("a.ams", "something else");
  EXPECT_FALSE(SaveGrid(editor, Now, Program.History, Program.Lists, asking, Seen));
  EXPECT_TRUE(asked);

  EXPECT_TRUE(SaveGrid(editor, Now, Program.History, Program.Lists, Asked, Seen));
  EXPECT_FALSE(keeps());
  Menu("mnuUndo");  // the file has what the records have not
  EXPECT_TRUE(keeps());
  Answer(Path("copy.ams"));
  Menu("mnuSaveAs");
  EXPECT_FALSE(keeps());
}

TEST_F(Autosaving, WhatIsLeftComesBackAsAStepThatIsUnsaved) {
  SpecimenRecord full = Record("b1");
  full.TensorIm = full.Tensor;
  WriteFile("a", 3);
  WriteRecords("b.ams", {full, Record("b2")});
  for (const bool reloaded : {false, true}) {
    OpenFile(Several({"a.ams", "b.ams"}));
    if (reloaded) Menu("mnuReload");
    EndTyping({{2, "77"}, {4, "12,5"}});
    EXPECT_TRUE(Offer({0}));
    ASSERT_EQ(Asked.Boxes.size(), 2u);
    EXPECT_NE(Asked.Boxes[0].find("File: a.ams and 1 more\nSpecimens: 2 of 5\n"),
              std::string::npos);
    EXPECT_EQ(
        Asked.Boxes[1],
        "Velorix5|Doubtful cells among the restored ones: 1\n\n"
        "Row 4, Orientation Dec: 12,5 - A comma is no decimal point. This is read as 12.|&OK");
    EXPECT_EQ(Now.OpenFiles, (Texts{Path("a.ams"), Path("b.ams")}));
    EXPECT_EQ(Now.Records[2].OrientAz, 77);
    EXPECT_EQ(Now.Records[4].OrientAz, 12);
    EXPECT_EQ(Now.Records[4].HasIm, !reloaded);
    EXPECT_TRUE(Now.IsUnsaved());
    EXPECT_EQ(Seen.Status, "Restored: a.ams and 1 more, which is not saved yet.");
    EXPECT_FALSE(Exists("left.txt"));
    EXPECT_TRUE(Exists("own.txt"));  // until it is saved

    Menu("mnuUndo");
    EXPECT_EQ(Now.Records[2].OrientAz, 40);
    EXPECT_FALSE(Now.IsUnsaved());
    Menu("mnuUndo");
    EXPECT_EQ(Names(), "");
  }
}

TEST_F(Autosaving, FilesThatAreNoLongerTheSameAreLeftAlone) {
  const std::string a = WriteFile("a", 2), file = Bytes("a.ams");
  const std::tuple<const char*, std::function<void()>> cases[] = {
      {"a.ams has changed since then.", [&] { WriteFile("a", 2), Put("a.ams", file + file); }},
      {"a.ams is not there any more.", [&] { std::filesystem::remove(PathOf(a)); }},
      {"a.ams cannot be read any more.", [&] { Put("a.ams", ""); }}};
  for (const auto& [why, change] : cases) {
    SCOPED_TRACE(why);
    Put("a.ams", file);
    OpenFile(a);
    EndTyping({{1, "77"}});
    change();
    EXPECT_FALSE(Offer({1}));  // later
    EXPECT_TRUE(Exists("left.txt"));
    EXPECT_NE(Asked.Boxes.back().find(why), std::string::npos) << Asked.Boxes.back();
    EXPECT_TRUE(Asked.Boxes.back().ends_with("|&Discard|&Later"));
    EXPECT_FALSE(Offer({0}));
    EXPECT_FALSE(Exists("left.txt"));
    EXPECT_EQ(Names(), "");
  }
}

TEST_F(Autosaving, NothingIsOfferedThatTheFileHas) {
  const std::string a = WriteFile("a", 2);
  OpenFile(a);
  EndTyping({{1, "77"}});
  SpecimenRecord saved = Record("a1");  // by a save that the program did not live to note
  saved.OrientAz = 77;
  WriteRecords("a.ams", {saved, Record("a2")});
  EXPECT_FALSE(Offer({}));
  EXPECT_EQ(Asked.Boxes, Texts{});
  EXPECT_FALSE(Exists("left.txt"));
}

TEST_F(Autosaving, ANumberWithoutRoomIsLeftOutAndTheFileStays) {
  OpenFile(WriteFile("a", 2));
  EndTyping({{1, "1e99"}, {2, "77"}});
  EXPECT_TRUE(Offer({0}));
  EXPECT_EQ(Now.Records[1].OrientAz, 40);
  EXPECT_EQ(Now.Records[2].OrientAz, 77);
  EXPECT_TRUE(Seen.Status.starts_with("Row 1, Orientation Dec: Overflow")) << Seen.Status;
  EXPECT_TRUE(Exists("left.txt"));
}

TEST_F(Autosaving, DamagedFilesAreSaidAndStay) {
  OpenFile(WriteFile("a", 2));
  EndTyping({{1, "77"}});
  const std::string whole = Bytes("left.txt");
  ASSERT_TRUE(AutosaveOfText(whole));
  for (std::size_t i = 0; i < whole.size(); ++i) {
    std::string changed = whole;
    changed[i] = static_cast<char>(changed[i] ^ 1);
    ASSERT_FALSE(AutosaveOfText(changed)) << i;
    ASSERT_FALSE(AutosaveOfText(whole.substr(0, i))) << i;
  }
  const auto sealed = [](const std::string& lines) { return lines + AutosaveEnd(lines); };
  const std::string head = "Velorix autosave 1\ntime\tnow\n";
  for (const std::string& bytes :
       {std::string(), std::string("to do\n"), whole.substr(0, 50), sealed("Velorix autosave 2\n"),
        sealed(head), sealed(head + "file\ta.ams\t1\n"), sealed(head + "row\t\\x\n"),
        sealed(head + "file\ta.ams\t9\t2\t0\t1\t1\t1\n"),
        sealed(head + "file\ta.ams\t1\t2\t0\t1\t1\t1\nrow\t1\ta1\n")}) {
    Put("left.txt", bytes);
    Seen.Status.clear();
    EXPECT_FALSE(Offer({}));
    EXPECT_EQ(Asked.Boxes, Texts{});
    EXPECT_TRUE(Seen.Status.starts_with(Left)) << bytes;
    EXPECT_EQ(Bytes("left.txt"), bytes);
  }
}

TEST_F(Autosaving, AnyTextComesBack) {
  AutosavedWork work{
      "now", {{"C:\\data\\\ta\r\nb.ams", {}}}, {{"", "\\t", "\\", "\xCE\xA9\t"}, {}}};
  const auto again = AutosaveOfText(AutosaveText(work));
  ASSERT_TRUE(again);
  EXPECT_EQ(again->Files[0].Path, work.Files[0].Path);
  EXPECT_EQ(again->Rows, work.Rows);
}

TEST_F(Autosaving, AFailureIsSaidOnce) {
  OpenFile(WriteFile("a", 2));
  OrientationEditor editor;
  LoadEditor(editor, Now);
  Autosave own(Path("none/own.txt"));
  for (const bool said : {true, false}) {
    EditCells(editor, {{1, OrientationColumn, said ? "7" : "8"}});
    Seen.Status.clear();
    own.Update(Now, &editor, Seen, Program.Log);
    EXPECT_EQ(Seen.Status.find("own.txt") != std::string::npos, said);
  }
  EXPECT_EQ(Asked.Boxes, Texts{});
}

}  // namespace
}  // namespace velorix
