#include "platform/host/host.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <pwd.h>
#include <unistd.h>
#endif

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "text/paths.h"

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
  const auto folder = fs::temp_directory_path() / "velorix-ListFolder";
  fs::remove_all(folder);
  fs::create_directories(folder / "sub.ams");
  for (const char* name : {"b10.ams", "b9.AMS", "c.ran", "ams", "d.ams.bak"})
    std::ofstream(folder / name) << "x";
  EXPECT_EQ(ListFolder(Utf8Of(folder), "ams"), (std::vector<std::string>{"b9.AMS", "b10.ams"}));
  EXPECT_TRUE(ListFolder(Utf8Of(folder / "gone"), "ams").empty());
  fs::remove_all(folder);
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
  const fs::path folder = fs::temp_directory_path() / "velorix-MakeHost";
  fs::remove_all(folder);
  fs::create_directories(folder / "bin");
  fs::create_directories(folder / "prefix" / "bin");
  fs::create_directories(folder / "prefix" / "share" / "velorix");
  const std::string home = Utf8Of(folder / "home"), data = Utf8Of(folder / "data");
  const auto here = Utf8Of(folder / "bin" / "velorix"), gone = Utf8Of(folder / "gone" / "velorix"),
             installed = Utf8Of(folder / "prefix" / "bin" / "velorix"),
             beside = Utf8Of(folder / "prefix" / "velorix");
  // clang-format off
  const struct {
    std::string program, data, appFolder;
  } cases[] = {{here,      data,       Utf8Of(folder / "bin")},
               {beside,    data,       Utf8Of(folder / "prefix")},
               {installed, data,       data + "/velorix"},
               {gone,      data,       data + "/velorix"},
               {gone,      "",         home + "/.local/share/velorix"},
               {gone,      "relative", home + "/.local/share/velorix"}};
  // clang-format on
  for (const auto& c : cases) {
    UserFolders::Set(home, c.data);
    const Host host = MakeHost(c.program);
    EXPECT_EQ(host.AppFolder, c.appFolder);
    EXPECT_TRUE(fs::is_directory(PathOf(host.AppFolder)));
    EXPECT_EQ(host.DataRoot, home + "/Zelmor/Data");
  }
  EXPECT_TRUE(fs::is_empty(folder / "bin"));
  EXPECT_TRUE(fs::is_empty(folder / "prefix" / "bin"));
  UserFolders::Set("/dev/null", "");  // no folder can be made there: told when it is written to
  EXPECT_EQ(MakeHost(gone).AppFolder, "/dev/null/.local/share/velorix");
  fs::remove_all(folder);
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
