#include "datafiles/safe_write.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "base/fault.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

void Write(const std::string& path, const std::string& bytes) {
  SafeWrite(path, [&](std::ostream& out) { out << bytes; });
}

std::string TextOf(std::errc reason) { return std::make_error_code(reason).message(); }

/// The system's reason for which something cannot be written.
std::string ReasonOf(const std::string& path) {
  try {
    Write(path, std::string(100000, 'x'));
  } catch (const FileFault& fault) {
    EXPECT_EQ(fault.Path, path);
    return fault.what();
  }
  return {};
}

TEST(SafeWrite, MakesAndReplacesFilesAndLeavesNothingBeside) {
  const TempFolder folder;
  for (const char* name : {"plain", "日本 ü.txt"}) {
    Write(folder.File(name), std::string("a\r\n\0b", 5));
    EXPECT_EQ(BytesOf(folder.File(name)), std::string("a\r\n\0b", 5));
    Write(folder.File(name), "");
    EXPECT_EQ(BytesOf(folder.File(name)), "");
  }
  EXPECT_EQ(folder.FileCount(), 2);
}

TEST(SafeWrite, AFailureOnTheWayLeavesTheOldFileWhole) {
  const TempFolder folder;
  PutFile(folder.File("x"), "old");
  const auto stop = [](std::ostream& out) {
    out << std::string(100000, 'n') << std::flush;
    throw std::runtime_error("stopped");
  };
  EXPECT_THROW(SafeWrite(folder.File("x"), stop), std::runtime_error);
  EXPECT_THROW(SafeWrite(folder.File("new"), stop), std::runtime_error);
  // A stream that went bad, as of a full disk, need not throw by itself.
  const auto fill = [](std::ostream& out) { out.setstate(std::ios::badbit); };
  EXPECT_THROW(SafeWrite(folder.File("x"), fill), FileFault);
  EXPECT_EQ(BytesOf(folder.File("x")), "old");
  EXPECT_EQ(folder.FileCount(), 1);
}

TEST(SafeWrite, APlaceThatCannotBeWrittenIsNamedWithTheReason) {
  const TempFolder folder;
  PutFile(folder.File("file"), "old");
  for (const char* name : {"missing/x", "file/x"}) EXPECT_NE(ReasonOf(folder.File(name)), "");
  EXPECT_ANY_THROW(Write(Utf8Of(folder.Path), "new"));  // a folder is no file
  EXPECT_EQ(BytesOf(folder.File("file")), "old");
  EXPECT_EQ(folder.FileCount(), 1);
}

#ifndef _WIN32
TEST(SafeWrite, AFullDiskIsTheReason) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "this system has no full device";
  EXPECT_EQ(ReasonOf("/dev/full"), TextOf(std::errc::no_space_on_device));
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(SafeWrite, ALinksTargetIsReplacedAndTheLinkStays) {
  const TempFolder folder;
  fs::create_directory(folder.Path / "far");
  PutFile(folder.File("far/target"), "old");
  fs::create_symlink("far/target", folder.Path / "one");
  fs::create_symlink("one", folder.Path / "two");
  fs::create_symlink("far/none", folder.Path / "dangling");
  Write(folder.File("two"), "new");
  EXPECT_EQ(BytesOf(folder.File("far/target")), "new");
  Write(folder.File("dangling"), "made");
  EXPECT_EQ(BytesOf(folder.File("far/none")), "made");
  for (const char* link : {"one", "two", "dangling"})
    EXPECT_TRUE(fs::is_symlink(folder.Path / link)) << link;
}

TEST(SafeWrite, AReadOnlyFileOrFolderStaysAsItIs) {
  const TempFolder folder;
  fs::create_directory(folder.Path / "locked");
  PutFile(folder.File("locked/x"), "old");
  PutFile(folder.File("x"), "old");
  fs::permissions(folder.Path / "x", fs::perms::owner_read);
  if (std::ofstream(folder.Path / "x", std::ios::app))
    GTEST_SKIP() << "the superuser may write anything";
  fs::permissions(folder.Path / "locked", fs::perms::owner_read | fs::perms::owner_exec);
  for (const char* name : {"x", "locked/x", "locked/new"})
    EXPECT_EQ(ReasonOf(folder.File(name)), TextOf(std::errc::permission_denied)) << name;
  fs::permissions(folder.Path / "locked", fs::perms::owner_all);
  EXPECT_EQ(BytesOf(folder.File("x")), "old");
  EXPECT_EQ(BytesOf(folder.File("locked/x")), "old");
  EXPECT_FALSE(fs::exists(folder.Path / "locked/new"));
}

TEST(SafeWrite, ThePermissionsOfAReplacedFileStay) {
  const TempFolder folder;
  const auto permissions = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
  PutFile(folder.File("x"), "old");
  fs::permissions(folder.Path / "x", permissions);
  Write(folder.File("x"), "new");
  EXPECT_EQ(fs::status(folder.Path / "x").permissions(), permissions);
}
#endif

}  // namespace
}  // namespace velorix
