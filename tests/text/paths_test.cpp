#include "text/paths.h"

#include <gtest/gtest.h>

#include <tuple>

namespace velorix {
namespace {

TEST(Paths, NamesAreTakenApartAtTheLastSeparatorAndTheLastPoint) {
  const struct {
    const char *path, *folder, *base, *extension;
  } cases[] = {
      // clang-format off
      {"/home/x/site 1.ams", "/home/x", "site 1", "ams"}, {"a.b.AMS", "", "a.b", "AMS"},
      {"/x.d/plain", "/x.d", "plain", ""},                {"/top.ran", "/", "top", "ran"},
      {"x/.ams", "x", "", "ams"},                         {"x/ends.", "x", "ends", ""},
      {"x/", "x", "", ""},                                {"", "", "", ""},
      // clang-format on
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FolderOf(c.path), c.folder) << c.path;
    EXPECT_EQ(BaseName(c.path), c.base) << c.path;
    EXPECT_EQ(ExtensionOf(c.path), c.extension) << c.path;
  }
}

TEST(Paths, JoinPathPutsExactlyOneSeparatorBetween) {
  const std::string folder = std::string("folder") + PathSeparator;
  EXPECT_EQ(JoinPath("folder", "name"), folder + "name");
  EXPECT_EQ(JoinPath(folder, "name"), folder + "name");
  EXPECT_EQ(JoinPath("", "name"), "name");
  EXPECT_EQ(JoinPath("/", "name"), "/name");
}

TEST(CompactPath, ShortensTheFoldersThenTheName) {
  const std::tuple<const char*, int, const char*> cases[] = {
      {"/a/b.ams", 8, "/a/b.ams"},
      {"/home/me/data/site/x.ams", 20, "/home/me/.../x.ams"},
      {"/home/me/data/site/x.ams", 10, "/.../x.ams"},
      {"/home/me/data/site/x.ams", 9, ".../x.ams"},
      {"/home/me/data/site/x.ams", 8, "x.ams"},
      {"/home/me/data/site/x.ams", 4, "x..."},
      {"/data/žluťoučká měření.ams", 8, "žluťo..."},
      {"C:\\data\\žluť\\x.ams", 18, "C:\\data\\žluť\\x.ams"},
      {"C:\\data\\žluť\\x.ams", 17, "C:\\data\\...\\x.ams"},
      {"x.ams", 4, "x..."},
      {"x.ams", 3, "..."},
      {"x.ams", 1, "."},
      {"x.ams", 0, ""},
      {"x.ams", -5, ""}};
  for (const auto& [path, room, wanted] : cases)
    EXPECT_EQ(CompactPath(path, room), wanted) << path << room;
}

TEST(Paths, TextBeyondAsciiSurvivesTheWayThroughThePlatformsPath) {
  EXPECT_EQ(Utf8Of(PathOf("Žulová/měření 岩.ams")), "Žulová/měření 岩.ams");
}

}  // namespace
}  // namespace velorix
