#include "platform/host/host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "text/paths.h"

namespace velorix {
namespace {

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
  const auto folder = std::filesystem::temp_directory_path() / "velorix-ListFolder";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder / "sub.ams");
  for (const char* name : {"b10.ams", "b9.AMS", "c.ran", "ams", "d.ams.bak"})
    std::ofstream(folder / name) << "x";
  EXPECT_EQ(ListFolder(Utf8Of(folder), "ams"), (std::vector<std::string>{"b9.AMS", "b10.ams"}));
  EXPECT_TRUE(ListFolder(Utf8Of(folder / "gone"), "ams").empty());
  std::filesystem::remove_all(folder);
}

TEST(MakeHost, UsesTheProgramsFolderOnlyWhenItCanBeWritten) {
  const auto folder = std::filesystem::temp_directory_path() / "velorix-MakeHost";
  std::filesystem::create_directories(folder / "bin");
  EXPECT_EQ(MakeHost(Utf8Of(folder / "bin" / "velorix")).AppFolder, Utf8Of(folder / "bin"));
  EXPECT_TRUE(std::filesystem::is_empty(folder / "bin"));
  const Host elsewhere = MakeHost(Utf8Of(folder / "gone" / "velorix"));
  EXPECT_TRUE(std::filesystem::is_directory(PathOf(elsewhere.AppFolder)));
  EXPECT_EQ(BaseName(elsewhere.AppFolder), "velorix");
  EXPECT_EQ(PathOf(elsewhere.DataRoot).filename(), "Data");
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace velorix
