// The console program on files made for the case. What a session looks like: the transcripts in
// golden/.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>

#include "datafiles/ams_file.h"
#include "text/paths.h"

namespace velorix {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

struct Result {
  int Status = -1;
  std::string Out, Err;
};

SpecimenRecord Record(const std::string& name, int i) {
  SpecimenRecord r;
  r.Name = name;
  r.Active = r.HasCoor[1] = r.HasCoor[2] = true;
  r.OP = {6, 0, 6, 0};
  r.OrientAz = static_cast<float>(30 * i);
  r.OrientInc = 20;
  r.FoliName[1] = "S0";
  r.FoliAz[1] = 120;
  r.FoliDip[1] = 40;
  r.Field = 12.3f;
  r.RunStamp = {1, 2, 3, 4, 5, 6, 7, 255};
  const double tensor[] = {1.05, 1.0, 0.95, 0.01 * i, 0.02, -0.01};
  for (int c = 1; c <= 6; ++c) r.Tensor[c] = static_cast<float>(tensor[c - 1]);
  return r;
}

class Batch : public testing::Test {
 protected:
  Batch() {
    const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    Folder = fs::temp_directory_path() / ("velorix-batch-" + name);
    fs::remove_all(Folder);
    fs::create_directories(Folder);
  }
  ~Batch() override {
    std::error_code ignored;
    fs::remove_all(Folder, ignored);
  }

  /// Runs the program in the test's folder with settings of its own.
  Result Run(const std::string& arguments) const {
    const std::string command = "cd \"" + Folder.string() +
                                "\" && \"" VELORIX_BATCH "\" --settings own.sav " + arguments +
                                " >out.txt 2>err.txt";
    const int status = std::system(command.c_str());
#ifdef _WIN32
    return {status, ContentOf(Folder / "out.txt"), ContentOf(Folder / "err.txt")};
#else
    return {WEXITSTATUS(status), ContentOf(Folder / "out.txt"), ContentOf(Folder / "err.txt")};
#endif
  }

  void WriteFile(const std::string& name, int count) const {
    RecordArray records;
    for (int i = 1; i <= count; ++i) records.Add(Record(name + std::to_string(i), i));
    WriteRecords(name + ".ams", records);
  }
  void WriteRecords(const std::string& file, const RecordArray& records) const {
    ASSERT_TRUE(WriteAmsFile(Utf8Of(Folder / PathOf(file)), records, false, true));
  }

  fs::path Folder;
};

nlohmann::json Parsed(const std::string& text) { return nlohmann::json::parse(text); }

TEST_F(Batch, WritesEveryFieldOfEveryRecordUnderItsName) {
  WriteFile("a", 3);
  const Result result = Run("--records - --coor paleo --select 2 --disregard 3 a.ams");
  ASSERT_EQ(result.Status, 0) << result.Err;
  const auto json = Parsed(result.Out);
  EXPECT_EQ(json["RecordCount"], 3);
  EXPECT_EQ(json["CoorSys"], 3);
  EXPECT_EQ(json["FoliCode"], "S0");
  EXPECT_EQ(json["LineCode"], "0");
  const auto& first = json["Records"][0];
  EXPECT_EQ(first.size(), 69u);
  EXPECT_FALSE(first.contains("PlotX"));
  EXPECT_EQ(first["Name"], "a1");
  EXPECT_EQ(first["RunStamp"], "01020304050607ff");
  EXPECT_EQ(first["Field"], double(12.3f));
  EXPECT_EQ(first["HasCoor"], (std::vector<bool>{true, true, true, true}));
  EXPECT_EQ(first["FTest"].size(), 4u);
  EXPECT_EQ(first["Vec"].size(), 3u);
  EXPECT_EQ(first["CoorLevel"], 3);
  EXPECT_EQ(json["Records"][1]["Selected"], true);
  EXPECT_EQ(json["Records"][2]["Active"], false);
  EXPECT_LT(result.Out.find("\"RunTag\""), result.Out.find("\"Field\""));  // the record's order
}

TEST_F(Batch, GivesNullForStatisticsThatAGroupIsTooSmallFor) {
  WriteFile("a", 1);
  WriteFile("b", 6);
  const auto one = Parsed(Run("--stats - a.ams").Out), six = Parsed(Run("--stats - b.ams").Out);
  EXPECT_EQ(one["GroupN"], 1);
  for (const char* field : {"MeanE1", "MeanRot", "BootE1", "BootPoints", "SdKm", "SdFac"}) {
    EXPECT_TRUE(one[field].is_null()) << field;
    EXPECT_FALSE(six[field].is_null()) << field;
  }
  for (const char* field : {"MeanK", "MeanVec", "MeanDec", "MeanFac", "AvgKm"})
    EXPECT_FALSE(one[field].is_null()) << field;
  EXPECT_EQ(six["BootPoints"][0].size(), 500u);
  EXPECT_EQ(six["BootContour"][2].size(), 200u);
  EXPECT_EQ(six["FacName"][0], "L");
}

/// Specimens too much alike for the statistics.
SpecimenRecord Alike(const std::string& name) {
  SpecimenRecord r = Record(name, 0);
  r.OrientInc = r.OrientAz = r.FoliAz[1] = r.FoliDip[1] = 0;
  r.Tensor = {Number(1.1f), Number(1.0f), Number(0.9f), Number(0.0f), Number(0.0f), Number(0.0f)};
  return r;
}

TEST_F(Batch, GoesOnAfterStatisticsThatFail) {
  RecordArray records;
  for (int i = 1; i <= 5; ++i) records.Add(Alike("same"));
  WriteRecords("same.ams", records);
  const Result result = Run("--stats - same.ams");
  EXPECT_EQ(result.Status, 0);
  EXPECT_NE(result.Err.find("Division by zero"), std::string::npos) << result.Err;
  const auto json = Parsed(result.Out);
  EXPECT_EQ(json["GroupN"], 5);
  EXPECT_FALSE(json["MeanK"].is_null());
  EXPECT_TRUE(json["AvgKm"].is_null());
}

TEST_F(Batch, TellsFailedStatisticsOfTheChosenViewOnly) {
  RecordArray records;
  for (int i = 1; i <= 5; ++i) records.Add(Alike("same"));
  for (int i = 1; i <= 5; ++i) records.Add(Record("other", i));
  for (int i = 6; i <= 10; ++i) records[i].FoliName[1] = "S1";
  WriteRecords("two.ams", records);
  EXPECT_NE(Run("--coor paleo two.ams").Err, "");  // S0, the first found
  EXPECT_EQ(Run("--coor paleo --foli S1 two.ams").Err, "");
}

TEST_F(Batch, WritesNullForWhatIsNotFinite) {
  constexpr float Infinity = std::numeric_limits<float>::infinity();
  constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();
  RecordArray records;
  SpecimenRecord record = Record("wild", 1);
  record.Field = Infinity;
  record.Tensor[2] = NotANumber;
  record.FTest[1] = -Infinity;
  records.Add(record);
  WriteRecords("wild.ams", records);
  const Result result = Run("--records - wild.ams");
  EXPECT_EQ(result.Status, 0) << result.Err;
  const auto json = Parsed(result.Out)["Records"][0];
  EXPECT_TRUE(json["Field"].is_null());
  EXPECT_TRUE(json["Tensor"][1].is_null());
  EXPECT_EQ(json["Tensor"][0], double(1.05f));
  EXPECT_TRUE(json["FTest"][1].is_null());
}

TEST_F(Batch, NamesNeedNotBeAscii) {
  WriteFile("Žulová μ", 2);
  const Result result = Run("--records - \"Žulová μ.ams\"");
  EXPECT_EQ(result.Status, 0) << result.Err;
  EXPECT_NE(result.Out.find("Žulová μ.ams\""), std::string::npos);
  EXPECT_EQ(Parsed(result.Out)["Records"][0]["Name"],
            "Žulová ?1");  // the file's code page has no mu
}

}  // namespace
}  // namespace velorix
