#include "store/session.h"

#include <gtest/gtest.h>

#include <limits>

namespace velorix {
namespace {

RecordArray Named(std::initializer_list<const char*> names) {
  RecordArray records;
  for (const char* name : names) {
    SpecimenRecord record;
    record.Name = name;
    record.Active = true;
    records.Add(record);
  }
  return records;
}

std::string NamesIn(const RecordArray& records) {
  std::string names;
  for (const SpecimenRecord& record : records)
    names += record.Name + ":" + std::to_string(record.RecordNo) + " ";
  return names;
}

TEST(RecordArray, HoldsAtMost32767RecordsAndThenStaysAsItWas) {
  RecordArray records = Named({"first"});
  EXPECT_EQ(records.Grow(32766), 2);
  records[32767].Name = "last";
  for (const int n : {1, -1, std::numeric_limits<int>::max()}) {
    EXPECT_THROW(records.Grow(n), Fault) << n;
    EXPECT_EQ(records.Count(), 32767);
  }
  EXPECT_THROW(records.Add(SpecimenRecord{}), Fault);
  EXPECT_EQ(records[1].Name, "first");
  EXPECT_EQ(records[32767].Name, "last");
}

TEST(RecordArray, GrowGivesEmptyRecordsAlsoInMemoryThatWasUsed) {
  RecordArray records = Named({"a", "b", "c"});
  records.Truncate(1);
  EXPECT_EQ(records.Grow(1), 2);
  EXPECT_EQ(records[2], SpecimenRecord{});
  records.Clear();
  EXPECT_TRUE(records.Empty());
  EXPECT_EQ(records.Grow(2), 1);
  EXPECT_EQ(records[1], SpecimenRecord{});
}

TEST(Store, ReplaceStoreTakesTheRecordsAndNumbersThem) {
  Session session;
  for (const auto& [names, expected] :
       {std::pair{Named({"a", "b", "c"}), "a:1 b:2 c:3 "}, {Named({"x", "y"}), "x:1 y:2 "}}) {
    RecordArray records = names;
    ReplaceStore(session, records);
    EXPECT_EQ(NamesIn(session.Records), expected);
    EXPECT_TRUE(records.Empty() && session.Spare.Empty());
  }
  for (int i = 0; i < 2; ++i) {  // an empty store stays empty
    ClearStore(session);
    EXPECT_EQ(session.RecordCount(), 0);
  }
}

TEST(Store, IsShownGoesByUseSystemAndBlock) {
  Session session;
  session.Records.Grow(1);
  SpecimenRecord& record = session.Records[1];
  const auto isShown = [&] {
    int visits = 0;
    ForEachActive(session, [&visits](const SpecimenRecord&) { ++visits; });
    EXPECT_EQ(IsShown(record, session.CoorSys, session.ReImMode), visits == 1);
    return visits == 1;
  };
  EXPECT_FALSE(isShown());
  record.Active = true;
  EXPECT_FALSE(isShown());  // not rotated there
  record.CoorLevel = session.CoorSys;
  EXPECT_TRUE(isShown());
  session.ReImMode = OutOfPhase;
  EXPECT_FALSE(isShown());
  record.HasIm = true;
  EXPECT_TRUE(isShown());
}

/// "S" a selected record, "." one that isn't; lower case or "," when it is disregarded.
std::string MarksOf(const RecordArray& records) {
  std::string marks;
  for (const SpecimenRecord& r : records)
    marks += r.Active ? (r.Selected ? 'S' : '.') : (r.Selected ? 's' : ',');
  return marks;
}

TEST(Store, SelectionCommandsActOnEveryRecord) {
  const std::pair<void (*)(RecordArray&), const char*> cases[] = {{InvertSelection, ".Ss,"},
                                                                  {DisregardSelected, ",.,,"},
                                                                  {RestoreAll, "...."},
                                                                  {ClearSelection, "..,,"}};
  for (const auto& [command, expected] : cases) {
    RecordArray records = Named({"a", "b", "c", "d"});
    records[1].Selected = records[4].Selected = true;
    records[3].Active = records[4].Active = false;
    ASSERT_EQ(MarksOf(records), "S.,s");
    command(records);
    EXPECT_EQ(MarksOf(records), expected);
  }
}

}  // namespace
}  // namespace velorix
