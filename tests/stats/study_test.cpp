#include "stats/study/study.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/stats/gauss_table.h"

namespace velorix {
namespace {

TEST(TellingNames, TakesTheFewestFolders) {
  using Texts = std::vector<std::string>;
  const struct {
    Texts Paths, Names;
  } cases[] = {
      {{"/d/a.ams", "/d/b.x.ams"}, {"a", "b.x"}},
      {{"/p/x/a.ams", "/q/x/a.ams", "/p/y/a.ams"}, {"p/x/a", "q/x/a", "y/a"}},
      {{"/p/a.ams", "/p/a.ran", "/q/b.ams"}, {"a.ams", "a.ran", "b"}},
      {{"/p/a.ams", "/p/a.ams"}, {"a", "a"}},
      {{"/a.ams", "/p/a.ams"}, {"a", "p/a"}},
  };
  for (const auto& [paths, names] : cases) EXPECT_EQ(TellingNames(paths), names);
}

SpecimenRecord Record(const std::string& name, const std::string& site = {}) {
  SpecimenRecord r;
  r.Name = name;
  r.Site = site;
  r.Active = true;
  r.CoorLevel = Geographic;
  return r;
}

/// "A:1,3 B:2".
std::string TextOf(const std::vector<RecordGroup>& groups) {
  std::string text;
  for (const RecordGroup& group : groups) {
    text += (text.empty() ? "" : " ") + group.Name;
    for (const int record : group.Records)
      text += (record == group.Records.front() ? ":" : ",") + std::to_string(record);
  }
  return text;
}

TEST(PartRecords, GroupsByTextsNamesAndFiles) {
  Session session;
  for (const SpecimenRecord& r :
       {Record("B1-1", "x"), Record("A1", " y "), Record("B1-2"), Record(" Ž-1", "y"),
        Record("-9", "x"), Record("B", "\t"), Record("gone", "x"), Record("other", "z")})
    session.Records.Add(r);
  session.Records[7].Active = false;
  session.Records[8].CoorLevel = Specimen;
  session.OpenFiles = {"/d/p.ams", "/d/none.ams", "/d/q.ams"};
  session.Opened = {{1, 2, false, {}}, {1, 0, false, {}}, {1, 6, false, {}}};
  const struct {
    const char *Word, *Groups;
  } cases[] = {
      {"site", "x:1,5 y:2,4 :3,6"},
      {"rock", ":1,2,3,4,5,6"},
      {"name:1", "B:1,3,6 A:2 Ž:4 -:5"},
      {"name:99999999999", "B1-1:1 A1:2 B1-2:3 Ž-1:4 -9:5 B:6"},
      {"name-until:-", "B1:1,3 A1:2 Ž:4 -9:5 B:6"},
      {"name-until:Ž", "B1-1:1 A1:2 B1-2:3 Ž-1:4 -9:5 B:6"},
      {"file", "p:1,2 q:3,4,5,6"},
  };
  for (const auto& [word, groups] : cases) {
    const std::optional<GroupBy> by = ParseGroupBy(word);
    ASSERT_TRUE(by) << word;
    EXPECT_EQ(TextOf(PartRecords(session, *by)), groups) << word;
  }
  session.HandGroups = {"p", "q", "", "p", "q", "p", "p"};  // fewer than records
  EXPECT_EQ(TextOf(PartRecords(session, ByHand())), "p:1,4,6 q:2,5 :3");
  EXPECT_EQ(GroupNames(session, ByHand()).back(), "");
  EXPECT_EQ(GroupNames(session, *ParseGroupBy("site"))[6], "x");  // out of view
  for (const char* const word : {"", "moon", "name", "name:", "name:0", "name:-1", "name:2x",
                                 "name-until:", "name-until:ab"})
    EXPECT_FALSE(ParseGroupBy(word)) << word;
}

/// Sites of 1 to 7 records in turns; each seventh site is of equal tensors, one of them without an
/// out-of-phase block.
Session Sites(int count) {
  Session session;
  session.CoorSys = Geographic;
  std::mt19937 random(3);
  std::normal_distribution<double> normal(0, 0.02);
  for (int i = 0; i < count; ++i)
    for (int site = 0; site < count; ++site) {
      if (i > site % 7) continue;
      SpecimenRecord r = Record("s", std::to_string(site));
      r.HasIm = site != 0;
      r.Km = 0.001 * (i + 1);
      const double tensor[] = {1.1, 1, 0.9, 0, 0, 0};
      for (int c = 1; c <= 6; ++c)
        r.TensorRot[c] = tensor[c - 1] + (site % 7 == 6 ? 0 : normal(random));
      session.Records.Add(r);
    }
  return session;
}

TEST(StudyStatistics, EachGroupIsAsIfAloneOnAnyNumberOfThreads) {
  const Session session = Sites(130);
  const BootChoice boot{BootMethod::Simple, 100, 5};
  const std::vector<RecordGroup> groups = PartRecords(session, *ParseGroupBy("site"));
  ASSERT_EQ(groups.size(), 130u);
  for (const int threads : {1, 3}) {
    std::vector<GroupRow> rows;
    EXPECT_TRUE(StudyStatistics(
        session, groups, boot, GaussNumbers(),
        [&rows](GroupRow row) { rows.push_back(std::move(row)); }, {}, threads));
    ASSERT_EQ(rows.size(), groups.size());
    for (std::size_t g = 0; g < rows.size(); ++g) {
      RecordArray alone;
      for (const int record : groups[g].Records) alone.Add(session.Records[record]);
      GroupStats stats;
      std::string failure;
      try {
        GroupStatistics(alone, Geographic, InPhase, session.Settings.FacIndex, GaussNumbers(),
                        stats, boot);
      } catch (const Fault& fault) {
        failure = fault.what();
      }
      EXPECT_EQ(rows[g].Name, groups[g].Name);
      EXPECT_EQ(rows[g].Failure ? rows[g].Failure->what() : "", failure);
      EXPECT_EQ(failure.empty(), g % 7 != 6) << g;
      EXPECT_EQ(rows[g].Stats, stats) << g;
    }
  }
}

TEST(StudyStatistics, StopsWhenAskedTo) {
  const Session session = Sites(130);
  std::size_t taken = 0, heard = 0;
  EXPECT_FALSE(StudyStatistics(
      session, PartRecords(session, *ParseGroupBy("site")), {}, GaussNumbers(),
      [&taken](const GroupRow&) { ++taken; },
      [&heard](std::size_t done) { return ++heard, done < 70; }, 1));
  EXPECT_EQ(heard, 70u);
  EXPECT_EQ(taken, 64u);
}

TEST(StudyStatistics, AGroupWithoutTheBlockInViewHasNoRecords) {
  Session session = Sites(5);
  session.ReImMode = OutOfPhase;
  std::vector<int> counts;
  EXPECT_TRUE(StudyStatistics(session, PartRecords(session, *ParseGroupBy("site")), {},
                              GaussNumbers(),
                              [&](const GroupRow& row) { counts.push_back(row.Stats.GroupN); }));
  EXPECT_EQ(counts, (std::vector<int>{0, 2, 3, 4, 5}));
  EXPECT_EQ(AllRow(session, {}, GaussNumbers()).Stats.GroupN, 14);
}

}  // namespace
}  // namespace velorix
