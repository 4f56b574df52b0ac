#include "text/paths.h"

#include <gtest/gtest.h>

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

TEST(Paths, TextBeyondAsciiSurvivesTheWayThroughThePlatformsPath) {
  EXPECT_EQ(Utf8Of(PathOf("Žulová/měření 岩.ams")), "Žulová/měření 岩.ams");
}

}  // namespace
}  // namespace velorix
