// The console program on files made for the case. What a session looks like: the transcripts in
// golden/.

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <nlohmann/json.hpp>

#include "datafiles/formats/ams_file.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

struct Result {
  int Status = -1;
  std::string Out, Err;

  nlohmann::json Json() const { return nlohmann::json::parse(Out); }
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
  const double tensor[] = {1.05, 1.0, 0.95, 0.01 * i, 0.02, -0.01};
  for (int c = 1; c <= 6; ++c) r.Tensor[c] = static_cast<float>(tensor[c - 1]);
  return r;
}

class Batch : public testing::Test {
 protected:
  /// Runs the program in the test's folder with settings of its own.
  Result Run(const std::string& arguments) const {
    const int status = std::system(("cd \"" + Folder.Path.string() +
                                    "\" && \"" VELORIX_BATCH "\" --settings own.sav " + arguments +
                                    " >out.txt 2>err.txt")
                                       .c_str());
    Result result{status, BytesOf(Folder.File("out.txt")), BytesOf(Folder.File("err.txt"))};
#ifndef _WIN32
    result.Status = WEXITSTATUS(status);
#endif
    return result;
  }
  void Write(const std::string& file, const std::vector<SpecimenRecord>& list) const {
    RecordArray records;
    for (const SpecimenRecord& record : list) records.Add(record);
    ASSERT_TRUE(WriteAmsFile(Folder.File(file), records, false, true));
  }

  TempFolder Folder;
};

TEST_F(Batch, TellsWhatIsChosenAndDisregardedAndEachByteOfAStamp) {
  SpecimenRecord first = Record("a1", 1);
  first.RunStamp = {1, 2, 3, 4, 5, 6, 7, 255};
  Write("a.ams", {first, Record("a2", 2), Record("a3", 3)});
  const auto json = Run("--records - --coor paleo --select 2 --disregard 3 a.ams").Json();
  EXPECT_EQ(json["CoorSys"], 3);
  EXPECT_EQ(json["LineCode"], "0");
  EXPECT_EQ(json["Records"][0]["RunStamp"], "01020304050607ff");
  EXPECT_EQ(json["Records"][1]["Selected"], true);
  EXPECT_EQ(json["Records"][2]["Active"], false);
}

TEST_F(Batch, WritesAllPointsOfTheBootstrap) {
  std::vector<SpecimenRecord> list;
  for (int i = 1; i <= 6; ++i) list.push_back(Record("b", i));
  Write("b.ams", list);
  const auto json = Run("--stats - b.ams").Json();
  EXPECT_EQ(json["BootPoints"][0].size(), 500u);
  EXPECT_EQ(json["BootContour"][2].size(), 200u);
}

TEST_F(Batch, GoesOnAfterStatisticsThatFailAndTellsThemOfTheChosenViewOnly) {
  SpecimenRecord same = Record("same", 0);  // too much alike for the statistics
  same.OrientInc = same.OrientAz = same.FoliAz[1] = same.FoliDip[1] = 0;
  same.Tensor = {};
  same.Tensor[1] = 1.1f, same.Tensor[2] = 1.0f, same.Tensor[3] = 0.9f;
  std::vector<SpecimenRecord> list(5, same);
  Write("same.ams", list);
  const Result result = Run("--stats - same.ams");
  EXPECT_EQ(result.Status, 0);
  EXPECT_NE(result.Err.find("Division by zero"), std::string::npos) << result.Err;
  EXPECT_EQ(result.Json()["GroupN"], 5);
  EXPECT_FALSE(result.Json()["MeanK"].is_null());
  EXPECT_TRUE(result.Json()["AvgKm"].is_null());

  for (int i = 1; i <= 5; ++i) {
    list.push_back(Record("other", i));
    list.back().FoliName[1] = "S1";
  }
  Write("two.ams", list);
  const Result groups = Run("--group-by name:4 --groups - two.ams");
  EXPECT_EQ(groups.Err.find("Group \"same\": "), 0u) << groups.Err;
  EXPECT_EQ(groups.Err.find('\n'), groups.Err.size() - 1) << "named once, and no other";
  const auto rows = groups.Json()["Groups"];
  EXPECT_EQ(rows[0]["GroupN"], 5);
  EXPECT_TRUE(rows[0]["AvgKm"].is_null());
  EXPECT_EQ(rows[1]["Group"], "othe");
  EXPECT_FALSE(rows[1]["BootE1"].is_null());
  EXPECT_NE(Run("--coor paleo two.ams").Err, "");  // S0, the first found
  EXPECT_EQ(Run("--coor paleo --foli S1 two.ams").Err, "");
  // A code that no record has is in use all the same, also after a further display.
  const auto none = Run("--stats - --coor paleo --foli S9 --disregard 1 two.ams").Json();
  EXPECT_EQ(none["GroupN"], 0);
}

// The example studies: published tensors that known rotations put on a fold.
TEST_F(Batch, FindsTheAgeOfAFabricAcrossAFoldAndTheAnglesBetweenItsSites) {
  const auto run = [&](const char* study, const std::string& options) {
    return Run("--foli S0 --line 0 --group-by site --seed 1 " + options +
               " \"" VELORIX_SOURCE_DIR "/examples/fold/" + study + ".ams\"")
        .Json();
  };
  const auto before = run("before", "--untilt -"), after = run("after", "--untilt -");
  for (const char* axis : {"Kmax", "Kmin"}) {
    EXPECT_EQ(before[axis]["Verdict"], "older than the folding");
    EXPECT_EQ(after[axis]["Verdict"], "younger");
  }
  EXPECT_EQ(before["Groups"].size(), 24u);
  EXPECT_EQ(before["LeftOut"], 0);
  // Kmax of the sites F01 and F07 was laid along 25/3 and 30/3.5, 5.0169 degrees apart, before the
  // beds were tilted by 15 and 57 degrees.
  const auto angle = [&](const char* study, const std::string& system) {
    const nlohmann::json pairs = run(study, "--coor " + system + " --compare -")["Pairs"];
    for (const auto& pair : pairs)
      if (pair["A"] == "F01" && pair["B"] == "F07") return pair["Angle"][0].get<double>();
    return -1.0;
  };
  EXPECT_NEAR(angle("after", "geo"), 5.0169, 0.01);
  EXPECT_NEAR(angle("before", "paleo"), 5.0169, 0.01);
  EXPECT_GT(angle("before", "geo"), 15);
}

TEST_F(Batch, ComparesNoMoreGroupsThanAnyoneReads) {
  std::vector<SpecimenRecord> list;
  for (int i = 1; i <= 1001; ++i) list.push_back(Record("s" + std::to_string(10000 + i), 1));
  Write("many.ams", list);
  const std::string options = "--group-by name:6 --bootstrap none --compare pairs.json ";
  const Result result = Run(options + "many.ams");
  EXPECT_EQ(result.Status, 1);
  EXPECT_EQ(result.Err,
            "--compare: No more than 1000 groups are compared at once; these are 1001.\n");
  EXPECT_FALSE(std::filesystem::exists(Folder.File("pairs.json")));
  EXPECT_EQ(Run(options + "--disregard 7 many.ams").Status, 0);
}

TEST_F(Batch, WritesNullForWhatIsNotFinite) {
  SpecimenRecord record = Record("wild", 1);
  record.Field = std::numeric_limits<float>::infinity();
  record.Tensor[2] = std::numeric_limits<float>::quiet_NaN();
  record.FTest[1] = -std::numeric_limits<float>::infinity();
  Write("wild.ams", {record});
  const Result result = Run("--records - wild.ams");
  EXPECT_EQ(result.Status, 0) << result.Err;
  const auto json = result.Json()["Records"][0];
  EXPECT_TRUE(json["Field"].is_null() && json["Tensor"][1].is_null() && json["FTest"][1].is_null());
  EXPECT_EQ(json["Tensor"][0], double(1.05f));
}

TEST_F(Batch, AGroupOfNumbersThatAreNotFiniteHasNullsAndASentence) {
  std::vector<SpecimenRecord> list;
  for (int i = 1; i <= 6; ++i) {
    list.push_back(Record("good", i));
    list.push_back(Record("wild", i));
    list.push_back(Record("huge", i));
    for (Number& component : list.back().Tensor) component = static_cast<float>(component * 3e37);
  }
  list[1].Tensor[1] = std::numeric_limits<float>::quiet_NaN();
  Write("w.ams", list);
  const Result groups = Run("--group-by name:4 --groups - w.ams");
  EXPECT_NE(groups.Err.find("\"wild\": Group statistics incomplete: a tensor has a number that is "
                            "not finite\n"),
            std::string::npos)
      << groups.Err;
  EXPECT_NE(groups.Err.find("\"huge\": Group statistics incomplete: a tensor's numbers are too "
                            "large (Overflow)\n"),
            std::string::npos)
      << groups.Err;
  EXPECT_EQ(groups.Err.find("alike"), std::string::npos) << groups.Err;
  const auto rows = groups.Json()["Groups"];
  for (const int row : {1, 2}) {
    EXPECT_TRUE(rows[row]["MeanE2"].is_null()) << row;
    EXPECT_TRUE(rows[row]["Jelinek95"]["E2"].is_null()) << row;
  }
  const Result pairs = Run("--group-by name:4 --bootstrap simple --seed 7 --compare - w.ams");
  EXPECT_EQ(pairs.Err.find("Group \"wild\": not compared: "), pairs.Err.find("Group \""));
  const auto json = pairs.Json();
  EXPECT_TRUE(json["Pairs"][0]["Angle"].is_null());
  EXPECT_EQ(json["Heading"],
            "w.ams, in-phase, geographic, N = 18, 3 groups. Regions: 95 % confidence angles of the "
            "mean (Jelinek 1978). Bootstrap: simple, 500 replicates, seed 7");
  EXPECT_EQ(json["Bootstrap"]["Seed"], 7);
}

TEST_F(Batch, NamesNeedNotBeAscii) {
  Write("Žulová μ.ams", {Record("Žulová μ1", 1)});
  const Result result = Run("--records - \"Žulová μ.ams\"");
  EXPECT_EQ(result.Status, 0) << result.Err;
  EXPECT_NE(result.Out.find("Žulová μ.ams\""), std::string::npos);
  EXPECT_EQ(result.Json()["Records"][0]["Name"],
            "Žulová ?1");  // the file's code page has no mu
}

}  // namespace
}  // namespace velorix
