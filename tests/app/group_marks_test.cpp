// Groups in the plots, and groups by hand, as the program makes them.

#include "app/display/group_marks.h"

#include "app/commands/hand_groups.h"
#include "tests/app/script.h"

namespace velorix {
namespace {

class Marking : public ProgramTest {
 protected:
  Marking() { OpenFile(WriteFile("a", 6)); }

  void Show(const char* word, bool means = false) {
    ChooseGroups(Program, {ParseGroupBy(word), MarkBy::Colours, means, true});
  }
  /// "a1:1 a2:0 ...": the groups with their records in view.
  std::string Marked() const {
    std::string text;
    for (const auto& [name, count] : Program.Plots.Marks.Groups)
      text += (text.empty() ? "" : " ") + name + ":" + std::to_string(count);
    return text;
  }
  std::string HandGroups() const {
    std::string text;
    for (const std::string& name : Now.HandGroups) text += "|" + name;
    return text.empty() ? text : text.substr(1);
  }
  void Select(const std::vector<int>& ids) { SelectRecords(Program, ids); }
};

TEST_F(Marking, FollowsViewAndFilesAndKeepsTheMarkOfAGroup) {
  EXPECT_FALSE(Program.Plots.Marks.AreShown());
  Show("name:2", true);
  EXPECT_EQ(Marked(), "a1:1 a2:1 a3:1 a4:1 a5:1 a6:1");
  EXPECT_EQ(Program.Plots.Marks.Means.size(), 6u);
  Select({1, 2});
  Menu("mnuSelection(2)");
  EXPECT_EQ(Marked(), "a1:0 a2:0 a3:1 a4:1 a5:1 a6:1");
  EXPECT_EQ(Program.Plots.Marks.Means.front().Group, 2);
  ChooseCoorSys(Program, Tectonic);  // no record has it
  EXPECT_EQ(Marked(), "a1:0 a2:0 a3:0 a4:0 a5:0 a6:0");
  Menu("mnuView(1)");
  OpenFile(WriteFile("b", 2));
  EXPECT_EQ(Marked(), "b1:1 b2:1");
  Menu("mnuClose");
  EXPECT_EQ(Marked(), "");
  const auto drawn = std::count(Seen.Drawn.begin(), Seen.Drawn.end(), PlotKind::Stereonet);
  Show("name:x");
  EXPECT_FALSE(Program.Plots.Marks.AreShown());
  EXPECT_EQ(std::count(Seen.Drawn.begin(), Seen.Drawn.end(), PlotKind::Stereonet), drawn + 1);
}

TEST_F(Marking, NoMeansOfMoreGroupsThanANetHoldsAndSaysSo) {
  std::vector<SpecimenRecord> records(1001, Record("s"));
  for (std::size_t i = 0; i < records.size(); ++i) records[i].Name = std::to_string(i);
  OpenFile(WriteRecords("many.ams", records));
  Show("name:9", true);
  EXPECT_TRUE(Program.Plots.Marks.Means.empty());
  EXPECT_EQ(GroupMeansText(Program.Plots),
            "The net shows means of up to 1000 groups; these are 1001.");
  Select({1});
  Menu("mnuSelection(2)");
  EXPECT_EQ(Program.Plots.Marks.Means.size(), 1000u);
  EXPECT_EQ(GroupMeansText(Program.Plots), "");
}

TEST_F(Marking, GroupsByHandBeginWithThoseShown) {
  Show("name:2");
  Select({2, 3});
  NewHandGroup(Program);
  EXPECT_EQ(HandGroups(), "a1|Group 1|Group 1|a4|a5|a6");
  EXPECT_EQ(Marked(), "a1:1 Group 1:2 a4:1 a5:1 a6:1");
  Select({3, 4});
  NewHandGroup(Program);
  EXPECT_EQ(HandGroups(), "a1|Group 1|Group 2|Group 2|a5|a6");
  RenameHandGroup(Program, "Group 2", " \tM\xC3\xBCnster\x07\xC2\x85 ");
  MergeHandGroups(Program, {"a6", "Group 1", "a1"});
  EXPECT_EQ(HandGroups(), "a6|a6|M\xC3\xBCnster|M\xC3\xBCnster|a5|a6");
  for (const char* const before :
       {"a1|Group 1|M\xC3\xBCnster|M\xC3\xBCnster|a5|a6", "a1|Group 1|Group 2|Group 2|a5|a6",
        "a1|Group 1|Group 1|a4|a5|a6", ""}) {
    Menu("mnuUndo");
    EXPECT_EQ(HandGroups(), before);
  }
  EXPECT_EQ(Marked(), ":6");
  Menu("mnuRedo");
  EXPECT_EQ(Marked(), "a1:1 Group 1:2 a4:1 a5:1 a6:1");
}

TEST_F(Marking, AnotherStoreHasNoneOfTheseGroupsAndTheFormerComesBackWithThem) {
  Select({1});
  NewHandGroup(Program);
  const std::string groups = HandGroups();
  OpenFile(WriteFile("b", 6));
  EXPECT_EQ(HandGroups(), "");
  Select({6});
  NewHandGroup(Program);
  Menu("mnuUndo");
  Menu("mnuUndo");
  EXPECT_EQ(HandGroups(), groups);
  Menu("mnuRedo");
  EXPECT_EQ(HandGroups(), "");
  Menu("mnuRedo");
  EXPECT_EQ(HandGroups(), "|||||Group 1");
}

TEST_F(Marking, RefusalsAreSentencesAndChangeNothing) {
  Show("name:2");
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[&] { NewHandGroup(Program); }, "No records are selected for a new group."},
      {[&] { RenameHandGroup(Program, "a1", " \x01\t"); }, "A group needs a name."},
      {[&] { RenameHandGroup(Program, "a1", "a2"); },
       "There is a group \"a2\" already. \"Merge\" makes one group of two."},
      {[&] { MergeHandGroups(Program, {"a1"}); },
       "Two or more groups are needed; select their rows."},
  };
  for (const auto& [act, status] : cases) {
    act();
    EXPECT_EQ(Seen.Status, status);
    EXPECT_EQ(HandGroups(), "");
    EXPECT_EQ(CommandNamed("mnuUndo").CaptionNow(Program), "Undo Open a.ams");
  }
}

}  // namespace
}  // namespace velorix
