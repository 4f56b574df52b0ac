#include "platform/host/host.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <pwd.h>
#include <unistd.h>
#endif

#include <cstdlib>

#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

TEST(NameBefore, OrdersNamesAsPeopleDo) {
  const std::vector<std::string> ordered = {"A1.ams", "a2.ams",  "a10.ams", "a010b.ams", "B.ams",
                                            "b1.ams", "b1a.ams", "site 2",  "site 12",   "Žulová"};
  for (std::size_t i = 0; i < ordered.size(); ++i)
    for (std::size_t j = 0; j < ordered.size(); ++j)
      EXPECT_EQ(NameBefore(ordered[i], ordered[j]), i < j) << ordered[i] << " " << ordered[j];
}

TEST(NameBefore, TellsNamesApartThatDifferInCaseOrZerosAlone) {
  const std::vector<std::string> names = {"a1", "A1", "a01"};
  for (const std::string& a : names)
    for (const std::string& b : names)
      EXPECT_EQ(NameBefore(a, b) || NameBefore(b, a), a != b) << a << " " << b;
}

TEST(ListFolder, TakesRegularFilesOfTheExtensionInAnyCase) {
  const TempFolder folder;
  fs::create_directories(folder.Path / "sub.ams");
  for (const char* name : {"b10.ams", "b9.AMS", "c.ran", "ams", "d.ams.bak"})
    PutFile(folder.File(name), "x");
  EXPECT_EQ(ListFolder(Utf8Of(folder.Path), "ams"),
            (std::vector<std::string>{"b9.AMS", "b10.ams"}));
  EXPECT_TRUE(ListFolder(folder.File("gone"), "ams").empty());
}

#ifndef _WIN32
/// The variables that say where the user's folders are, put back at the end.
struct UserFolders {
  std::string Home = ValueOf("HOME"), Data = ValueOf("XDG_DATA_HOME");

  static std::string ValueOf(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
  }
  static void Set(const std::string& home, const std::string& data) {
    setenv("HOME", home.c_str(), 1);
    setenv("XDG_DATA_HOME", data.c_str(), 1);
  }
  ~UserFolders() { Set(Home, Data); }
};

TEST(MakeHost, UsesTheProgramsFolderOnlyWhenItCanBeWrittenAndIsNoInstallations) {
  const UserFolders before;
  const TempFolder folder;
  for (const char* name : {"bin", "prefix/bin", "prefix/share/velorix"})
    fs::create_directories(folder.Path / name);
  const auto path = [&folder](const char* name) { return folder.File(name); };
  const std::string home = path("home"), data = path("data"), gone = path("gone/velorix");
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {path("bin/velorix"), data, path("bin")},
      {path("prefix/velorix"), data, path("prefix")},
      {path("prefix/bin/velorix"), data, data + "/velorix"},
      {gone, data, data + "/velorix"},
      {gone, "", home + "/.local/share/velorix"},
      {gone, "relative", home + "/.local/share/velorix"}};
  for (const auto& [program, dataHome, appFolder] : cases) {
    UserFolders::Set(home, dataHome);
    const Host host = MakeHost(program);
    EXPECT_EQ(host.AppFolder, appFolder);
    EXPECT_TRUE(fs::is_directory(PathOf(host.AppFolder)));
    EXPECT_EQ(host.DataRoot, home + "/Zelmor/Data");
  }
  EXPECT_TRUE(fs::is_empty(folder.Path / "bin") && fs::is_empty(folder.Path / "prefix" / "bin"));
  UserFolders::Set("/dev/null", "");  // no folder can be made there; the write says so
  EXPECT_EQ(MakeHost(gone).AppFolder, "/dev/null/.local/share/velorix");
}

TEST(MakeHost, FindsTheUsersHomeWithoutTheVariable) {
  const UserFolders before;
  UserFolders::Set("", "/dev/null");  // no folder is made in the real home
  EXPECT_EQ(MakeHost("/dev/null/velorix").DataRoot,
            std::string(getpwuid(getuid())->pw_dir) + "/Zelmor/Data");
}
#endif

}  // namespace
}  // namespace velorix
