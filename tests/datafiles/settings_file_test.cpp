#include <gtest/gtest.h>

#include <stdexcept>

#include "base/fault.h"
#include "datafiles/bytes/safe_write.h"
#include "datafiles/settings/settings_file.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

// clang-format off
constexpr char DefaultText[] =
    " 6     P1        |\r\n" " 0     P2        |\r\n" " 6     P3        |\r\n"
    " 0     P4        |\r\n" " 1     DemagFac  |\r\n" " 9     L         |\r\n"
    " 13    F         |\r\n" " 4     P         |\r\n" " 2     Pj        |\r\n"
    " 31    T         |\r\n" " 32    U         |\r\n" " 24    Q         |\r\n"
    " 28    E         |\r\n";
// clang-format on

/// The default text with line `line`, from 1, replaced.
std::string WithLine(int line, const std::string& text) {
  std::istringstream lines(DefaultText);
  std::string result, one;
  for (int i = 1; std::getline(lines, one, '\n'); ++i)
    result += i == line ? text + "\r\n" : one + "\n";
  return result;
}

TEST(SettingsFile, NameIsCutAtItsBlankByTheNextStartButGetsOneBeforeTheBar) {
  Settings settings, back;
  settings.FacName = {"tenletters", "nine_char", "P", "P j", "", "U\r\nU", "Q", "E"};
  const std::string text = SettingsText(settings);
  EXPECT_EQ(text.substr(5 * 20, 41), " 9     tenletters |\r\n 13    nine_char |\r\n");
  ASSERT_TRUE(SettingsReadText(back, text));
  // Behind no name the bar itself is the line's second token.
  EXPECT_EQ(back.FacName,
            (Array1<std::string, 8>{"tenletters", "nine_char", "P", "P", "|", "UU", "Q", "E"}));
}

TEST(SettingsFile, MeaningOfALineIsItsPlaceAlone) {
  const struct {
    int line;
    const char* text;
    void (*change)(Settings&);
  } cases[] = {
      {1, " 12 whatever", [](Settings& s) { s.P[1] = 12; }},
      {2, "2.5", [](Settings& s) { s.P[2] = 2; }},  // halves to even
      {3, "3.5", [](Settings& s) { s.P[3] = 4; }},
      {4, "", [](Settings& s) { s.P[4] = 0; }},  // one empty token, and its value is 0
      {4, "none", [](Settings& s) { s.P[4] = 0; }},
      {5, " 2     DemagFac  |", [](Settings& s) { s.DemagFac = false; }},
      {5, " 1.5   DemagFac  |", [](Settings& s) { s.DemagFac = false; }},
      {6, " 10 k1/k2", [](Settings& s) { s.FacIndex[1] = 10, s.FacName[1] = "k1/k2"; }},
  };
  for (const auto& c : cases) {
    Settings expected, read;
    c.change(expected);
    EXPECT_TRUE(SettingsReadText(read, WithLine(c.line, c.text))) << c.text;
    EXPECT_EQ(read, expected) << c.text;
  }
}

TEST(SettingsFile, ShortFilesMissingTokensAndOverflowsAreRefused) {
  Settings settings;
  const std::string_view whole = DefaultText;
  const std::size_t lastName = whole.find(" 28    E") + 7;
  for (std::size_t n = 0; n < whole.size(); ++n)
    EXPECT_EQ(SettingsReadText(settings, whole.substr(0, n)), n > lastName) << n;
  EXPECT_FALSE(SettingsReadText(settings, WithLine(1, "32768")));
  EXPECT_FALSE(SettingsReadText(settings, WithLine(6, "1E300 L")));
  EXPECT_FALSE(SettingsReadText(settings, WithLine(13, " 28")));
  EXPECT_TRUE(SettingsReadText(settings, std::string(DefaultText) + "more"));
}

struct SettingsOnDisk : ::testing::Test {
  SettingsOnDisk() { std::filesystem::create_directories(Folder); }

  TempFolder Own;
  std::filesystem::path Folder = Own.Path / PathOf("ž");
  std::string Path = Utf8Of(Folder / "MarloAniso.sav");
};

TEST_F(SettingsOnDisk, AFileWithoutItsLastLineIsMendedWithTheDefaults) {
  // Twelve good lines: the choice in the first is lost.
  PutFile(Path,
          WithLine(1, " 12    P1        |").substr(0, std::string_view(DefaultText).rfind(" 28")));
  Settings settings;
  settings.P[1] = 3;
  LoadSettings(settings, Path);
  EXPECT_EQ(settings, Settings{});
  EXPECT_EQ(BytesOf(Path), DefaultText);
}

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
