#include "app/state/history.h"

#include <random>

#include "app/commands/file_commands.h"
#include "app/commands/hand_groups.h"
#include "app/edit/orientation_editor.h"
#include "app/files/open_flow.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/settings/settings_file.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class Undoing : public ProgramTest {
 protected:
  Undoing() { Now.SettingsFile = Path("settings.sav"); }

  std::string Caption(const char* name) { return CommandNamed(name).CaptionNow(Program); }

  /// Types a declination into a row and commits the grid. The files are not worth a question.
  void Edit(int row, const std::string& text) {
    OrientationEditor editor;
    LoadEditor(editor, Now);
    EditCells(editor, {{row, OrientationColumn, text}});
    SaveGrid(editor, Now, Program.History, Program.Lists, Asked, Seen);
  }
  void ChangeParameters(std::int16_t p1, bool demagFac) {
    OrientationChoice choice{Now.Settings.P, demagFac};
    choice.P[1] = p1;
    ChangeOrientationParameters(Program, choice);
  }

  /// What undo leads back to: all but the fields that a display computes and the files' names in
  /// the folder.
  struct State {
    std::vector<SpecimenRecord> Records;
    std::string CurrentFile;
    Texts OpenFiles, HandGroups;
    Settings Set;

    bool operator==(const State&) const = default;
  };
  State Present() const {
    State state{{}, Now.CurrentFile, Now.OpenFiles, Now.HandGroups, Now.Settings};
    for (const SpecimenRecord& r : Now.Records) {
      SpecimenRecord kept;
      kept.Name = r.Name;
      kept.RecordNo = r.RecordNo;
      kept.Active = r.Active;
      kept.Selected = r.Selected;
      kept.Tensor = r.Tensor;
      kept.TensorIm = r.TensorIm;
      kept.HasCoor = r.HasCoor;
      kept.OrientAz = r.OrientAz;
      kept.OrientInc = r.OrientInc;
      kept.FoliName = r.FoliName;
      kept.FoliAz = r.FoliAz;
      kept.OP = r.OP;
      state.Records.push_back(kept);
    }
    return state;
  }
};

TEST_F(Undoing, EachKindOfStepGoesBackAndForthWithItsWords) {
  WriteFile("b", 2);
  const std::string a = WriteFile("a", 3);
  const std::tuple<const char*, std::function<void()>> steps[] = {
      {"Open a.ams", [&] { OpenFile(a); }},
      {"Disregard 2 records",
       [&] {
         SelectRecords(Program, {1, 3});
         Menu("mnuSelection(2)");
       }},
      {"New group",
       [&] {
         SelectRecords(Program, {2});
         NewHandGroup(Program);
       }},
      {"Rename group", [&] { RenameHandGroup(Program, "", "rest"); }},
      {"Merge groups",
       [&] {
         MergeHandGroups(Program, {"rest", "Group 1"});
       }},
      {"Invert selection", [&] { Menu("mnuSelection(1)"); }},
      {"Clear selection", [&] { Menu("mnuSelection(5)"); }},
      {"Rotate 3 records", [&] { Button("rotate"); }},
      {"Edit orientation data", [&] { Edit(2, "77"); }},
      {"Restore 2 records", [&] { Menu("mnuSelection(3)"); }},
      {"Open b.ams", [&] { Menu("mnuOpenNext"); }},
      {"Reload b.ams",
       [&] {
         SelectRecords(Program, {1});
         Menu("mnuReload");
       }},
      {"Orientation parameters", [&] { ChangeParameters(12, true); }},
      {"Close a.ams",
       [&] {
         OpenFile(a);
         Menu("mnuClose");
       }},
      {"New new.ams", [&] {
         Answer(Path("new.ams"));
         Menu("mnuNew");
       }}};
  for (const auto& [text, run] : steps) {
    SCOPED_TRACE(text);
    run();
    const State after = Present();
    EXPECT_EQ(Caption("mnuUndo"), std::string("Undo ") + text);
    Menu("mnuUndo");
    EXPECT_EQ(Caption("mnuRedo"), std::string("Redo ") + text);
    EXPECT_FALSE(Present() == after);
    const State before = Present();
    Menu("mnuRedo");
    EXPECT_TRUE(Present() == after);
    Menu("mnuUndo");
    EXPECT_TRUE(Present() == before);
    Menu("mnuRedo");
  }
  for (int i = 0; i < 20; ++i) Menu("mnuUndo");
  EXPECT_EQ(Caption("mnuUndo"), "");
  EXPECT_EQ(Caption("mnuRedo"),
            "Redo Orientation parameters");  // three stores are kept, older steps gone
}

TEST_F(Undoing, TheSettingsFileFollowsAndDataFilesStay) {
  const std::string a = WriteFile("a", 2), before = Bytes("a.ams");
  OpenFile(a);
  ChangeParameters(12, false);
  Settings read;
  const auto p1 = [&] { return SettingsRead(read, Now.SettingsFile) ? read.P[1] : -1; };
  EXPECT_EQ(p1(), 12);
  EXPECT_EQ(Names(), "");
  Menu("mnuUndo");
  EXPECT_EQ(p1(), 6);
  EXPECT_TRUE(read.DemagFac);
  EXPECT_EQ(Names(), "a1 a2 ");
  EXPECT_EQ(Seen.Caption, "Velorix5 - [" + a + "]     (N = 2)");
  Menu("mnuRedo");
  EXPECT_EQ(p1(), 12);
  EXPECT_EQ(Names(), "");
  EXPECT_EQ(Bytes("a.ams"), before);
}

TEST_F(Undoing, TheMarkOfUnsavedDataFollowsTheDataNotTheViews) {
  const std::string a = WriteFile("a", 2);
  OpenFile(a);
  Menu("mnuSelection(1)");
  EXPECT_FALSE(Now.IsUnsaved());
  Button("rotate");
  EXPECT_TRUE(Now.IsUnsaved());
  Menu("mnuUndo");
  EXPECT_FALSE(Now.IsUnsaved());
  Edit(1, "77");  // is written
  EXPECT_FALSE(Now.IsUnsaved());
  Menu("mnuUndo");
  EXPECT_TRUE(Now.IsUnsaved());
  EXPECT_EQ(Now.Records[1].OrientAz, 40);
  const auto exit = [this] {
    ConfirmExit(Asked, Now, Program.History);
    return Asked.Boxes.back();
  };
  const std::string open = "Changes of a.ams (2 records) are not saved.",
                    closed =
                        "Changes of a.ams, which is closed, are not saved; Undo brings them back.";
  EXPECT_EQ(exit(), "Velorix5|EXIT PROGRAM?|" + open + "|&Yes|&No");
  Menu("mnuClose");
  EXPECT_EQ(exit(), "Velorix5|EXIT PROGRAM?|" + closed + "|&Yes|&No");
  Menu("mnuUndo");
  EXPECT_EQ(exit(), "Velorix5|EXIT PROGRAM?|" + open + "|&Yes|&No");
  Answer(Path("copy.ams"));
  Menu("mnuSaveAs");
  EXPECT_FALSE(Now.IsUnsaved());
}

TEST_F(Undoing, AHundredStepsAreKeptAndANewOneEndsTheRedo) {
  OpenFile(WriteFile("a", 2));
  for (int i = 0; i < 130; ++i) Button("rotate");
  int undone = 0;
  for (; Program.History.NextUndo(); ++undone) Menu("mnuUndo");
  EXPECT_EQ(undone, 100);
  Menu("mnuSelection(1)");
  EXPECT_EQ(Caption("mnuRedo"), "");
  Menu("mnuSelection(5)");
  Menu("mnuSelection(5)");  // nothing changed: no step
  Menu("mnuUndo");
  EXPECT_EQ(Caption("mnuUndo"), "Undo Invert selection");
}

bool diskIsFull = false;

/// Random commands, undo and redo, against states that were kept when they were first reached.
/// Among them are commands that fail on the way.
TEST_F(Undoing, RandomSequencesLeadThroughTheStatesThatWere) {
  const char* const sequences = std::getenv("VELORIX_UNDO_SEQUENCES");
  const int count = sequences ? std::atoi(sequences) : 30;
  SetFlushFile([](const std::filesystem::path&) {
    return diskIsFull ? std::make_error_code(std::errc::no_space_on_device) : std::error_code();
  });
  const std::string bad = Put("bad.asc", "no numbers here\n"), empty = Put("empty.ams.txt", "");
  const std::string files[] = {WriteFile("a", 3), WriteFile("b", 2), Several({"a.ams", "b.ams"})};
  for (int seed = 1; seed <= count; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(static_cast<unsigned>(seed));
    const auto below = [&random](int n) {
      return static_cast<int>(random() % static_cast<unsigned>(n));
    };
    Program.History = {};
    std::vector<State> states = {Present()};
    std::size_t at = 0;
    const std::function<void()> commands[] = {
        [&] { OpenFile(files[below(3)]); },
        [&] { Menu("mnuOpenNext"); },
        [&] { Menu("mnuOpenPrevious"); },
        [&] { Menu("mnuReload"); },
        [&] { Menu("mnuClose"); },
        [&] { Menu("mnuSelection(5)"); },
        [&] { NewHandGroup(Program); },
        [&] {
          MergeHandGroups(Program, {"Group 1", "Group 2"});
        },
        [&] { Menu("mnuSelection(1)"); },
        [&] { Menu("mnuSelection(2)"); },
        [&] { Menu("mnuSelection(3)"); },
        [&] { Button("rotate"); },
        [&] { Edit(1 + below(4), std::to_string(below(360))); },
        [&] { ChangeParameters(below(2) ? 12 : 6, below(2) == 0); },
        [&] { OpenFile(empty); },   // refused
        [&] { OpenFile(bad, 4); },  // fails in its first line
        [&] {
          diskIsFull = true;
          Answer(Path("copy.ams"));
          Menu("mnuSaveAs");
          Asked.Files.clear();  // without a record there was no question
        },
        [&] {
          diskIsFull = true;
          Guarded(Program, [&] { Edit(1 + below(4), std::to_string(below(360))); });
        }};
    for (int step = 0; step < 25; ++step) {
      const int all = static_cast<int>(std::size(commands));
      const int choice = below(all + 6);
      if (choice < all) {
        const Step *const former = Program.History.NextUndo(), *const latter =
                                                                   Program.History.NextRedo();
        commands[choice]();
        diskIsFull = false;
        if (Program.History.NextUndo() == former) {
          ASSERT_EQ(Program.History.NextRedo(), latter) << choice;
          ASSERT_TRUE(Present() == states[at]) << choice;
          continue;
        }
        states.resize(at + 1);
        states.push_back(Present());
        ++at;
      } else if (choice < all + 3) {
        if (Program.History.NextUndo()) --at;
        Menu("mnuUndo");
      } else {
        if (Program.History.NextRedo()) ++at;
        Menu("mnuRedo");
      }
      ASSERT_TRUE(Present() == states[at]) << "step " << step << ", choice " << choice;
    }
  }
  SetFlushFile(nullptr);
}

}  // namespace
}  // namespace velorix
