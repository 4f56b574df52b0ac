#include "app/state/debug_log.h"

#include <gtest/gtest.h>

#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

struct DebugLogFile : ::testing::Test {
  TempFolder Folder;
  std::string Path = Folder.File("run.log");
};

TEST_F(DebugLogFile, EntriesCarryTimeAndIndentUnlessAsIsOrEmpty) {
  DebugLog log;
  log.Open(Path);
  log.DebugPrint("start");
  log.Indent = 2;
  log.DebugPrint("řádek ", true);
  log.DebugPrint("goes on", false, true);
  log.DebugPrint("");
  std::string written = BytesOf(Path);
  for (char& c : written)
    if (c >= '0' && c <= '9') c = '0';  // whatever time it is
  EXPECT_EQ(written, " 00:00:00 start\n 00:00:00     řádek goes on\n\n");
}

TEST_F(DebugLogFile, StartsEmptyAtEachRunAndPrintsNothingWhileOffOrNotOpened) {
  for (int run = 1; run <= 2; ++run) {
    DebugLog log;
    log.DebugPrint("nowhere");
    log.Open(Path);
    log.ToFile = false;
    log.DebugPrint("not this");
    log.ToFile = true;
    log.DebugPrint("this", true, true);
    EXPECT_EQ(BytesOf(Path), "this");
  }
}

TEST_F(DebugLogFile, AFullDiskIsReportedOnceAndStopsNobody) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "this system has no full device";
  DebugLog log;
  std::string reported;
  log.OnRefusal = [&reported](const std::string& text) { reported += text + "|"; };
  log.Open("/dev/full");
  log.DebugPrint("one");
  log.DebugPrint("two");
  EXPECT_EQ(reported, "/dev/full: The log could not be written: " +
                          std::make_error_code(std::errc::no_space_on_device).message() + "|");
}

}  // namespace
}  // namespace velorix
