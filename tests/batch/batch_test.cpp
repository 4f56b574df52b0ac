// Whole-program tests: each case is a command line with what it prints and how it ends.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
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
    const std::string command =
        "cd \"" + Folder.string() + "\" && \"" VELORIX_BATCH "\" " +
        (arguments.find("--settings") == std::string::npos ? "--settings own.sav " : "") +
        arguments + " >out.txt 2>err.txt";
    const int status = std::system(command.c_str());
#ifdef _WIN32
    return {status, ContentOf(Folder / "out.txt"), ContentOf(Folder / "err.txt")};
#else
    return {WEXITSTATUS(status), ContentOf(Folder / "out.txt"), ContentOf(Folder / "err.txt")};
#endif
  }

  static SpecimenRecord Record(const std::string& name, int i) {
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
  void WriteFile(const std::string& name, int count) const {
    RecordArray records;
    for (int i = 1; i <= count; ++i) records.Add(Record(name + std::to_string(i), i));
    ASSERT_TRUE(WriteAmsFile(Utf8Of(Folder / PathOf(name + ".ams")), records, false, true));
  }

  fs::path Folder;
};

nlohmann::json Parsed(const std::string& text) { return nlohmann::json::parse(text); }

TEST_F(Batch, TellsWrongUsageWithStatusTwoAndLaterOptionsByName) {
  WriteFile("a", 2);
  const struct {
    const char *arguments, *said;
  } cases[] = {{"", "No FILE is given."},
               {"--nonsense a.ams", "--nonsense"},
               {"--coor moon a.ams", "--coor"},
               {"--next -1 a.ams", "--next"},
               {"a.xyz", "a.xyz: the extension tells no format; give one with --format."},
               {"--save a.ams a.ams", "a.ams is both read and written."},
               {"--save b.ams --save-selected b.ams a.ams", "b.ams is named for two outputs."},
               {"--save b.csv a.ams", "b.csv: records are saved as .ams files."},
               {"--save b.ran a.ams", "writing RAN files is not available yet"},
               {"--select 3 a.ams", "There is no record 3: the store has 1 to 2."},
               {"--select 0 a.ams", "There is no record 0"},
               {"--page p.png a.ams", "--page is not available yet."},
               {"--ged g.ged --ged h.ged a.ams", "--ged is not available yet."},
               {"--append a.ams", "--append is not available yet."}};
  for (const auto& c : cases) {
    const Result result = Run(c.arguments);
    EXPECT_EQ(result.Status, 2) << c.arguments;
    EXPECT_EQ(result.Out, "") << c.arguments;
    EXPECT_NE(result.Err.find(c.said), std::string::npos) << c.arguments << "\n" << result.Err;
  }
  EXPECT_FALSE(fs::exists(Folder / "b.ams"));
}

TEST_F(Batch, PrintsHelpAndVersion) {
  EXPECT_EQ(Run("--version").Out, "velorix-batch 5.0.0\n");
  const Result help = Run("--help");
  EXPECT_EQ(help.Status, 0);
  for (const char* option : {"--format", "--records", "--contour-image", "--write-ged"})
    EXPECT_NE(help.Out.find(option), std::string::npos) << option;
}

TEST_F(Batch, EndsWithOneWhenAFileIsNotToBeReadOrWritten) {
  WriteFile("a", 2);
  std::ofstream(Folder / "empty.ams");
  std::ofstream(Folder / "short.ams") << "short";
  std::ofstream(Folder / "there.json") << "old";
  const struct {
    const char *arguments, *said;
  } cases[] = {{"gone.ams", "Open File(s): gone.ams\nThis file does not exist."},
               {"empty.ams", "EMPTY.AMS>> is empty!"},
               {"short.ams", "short.ams: no record could be read."},
               {"a.ams empty.ams", "Input error!: File <<"},
               {"--format spin a.ams", "This version cannot read files of this type yet."},
               {"--records there.json a.ams",
                "there.json: This file already exists. Use --force to overwrite it."},
               {"--force --records no/such/x.json a.ams", "x.json"},
               {"--force --save no/such/x.ams a.ams", "x.ams"}};
  for (const auto& c : cases) {
    const Result result = Run(c.arguments);
    EXPECT_EQ(result.Status, 1) << c.arguments;
    EXPECT_EQ(result.Out, "") << c.arguments;
    EXPECT_NE(result.Err.find(c.said), std::string::npos) << c.arguments << "\n" << result.Err;
  }
  EXPECT_EQ(ContentOf(Folder / "there.json"), "old");
}

TEST_F(Batch, SummarisesFilesRecordsAndMeanTensor) {
  WriteFile("a", 2);
  WriteFile("b", 3);
  const Result result = Run("b.ams a.ams");
  EXPECT_EQ(result.Status, 0);
  EXPECT_EQ(result.Err, "");
  const std::string folder = Utf8Of(Folder) + "/";
  EXPECT_TRUE(result.Out.starts_with("Files    " + folder + "b.ams\n         " + folder +
                                     "a.ams\nRecords  5, 5 shown\nView     GEO, Kre\n"
                                     "Mean tensor, N = 5\n"))
      << result.Out;
  EXPECT_EQ(Run("--quiet a.ams").Out, "");
  EXPECT_EQ(Run("--block kim a.ams").Out.find("Mean tensor"), std::string::npos);
}

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

TEST_F(Batch, AnswersEveryViewOption) {
  WriteFile("a", 3);
  const struct {
    const char* arguments;
    int coorSys, level;
  } cases[] = {{"--coor spec", 1, 1},
               {"--coor geo", 2, 2},
               {"--coor tecto --plane vertical --axis east-west", 4, 4},
               {"--coor paleo --foli XX", 3, 2},  // no record has that code
               {"--coor paleo --foli S0 --line 0", 3, 3}};
  for (const auto& c : cases) {
    const auto json = Parsed(Run(std::string("--records - ") + c.arguments + " a.ams").Out);
    EXPECT_EQ(json["CoorSys"], c.coorSys) << c.arguments;
    EXPECT_EQ(json["Records"][0]["CoorLevel"], c.level) << c.arguments;
  }
}

TEST_F(Batch, SavesStepsAndReloads) {
  for (const char* name : {"a", "b", "c"}) WriteFile(name, 1 + name[0] - 'a');
  EXPECT_EQ(Run("--save copy.dir.ams --select 2 --save-selected one.ams b.ams").Status, 0);
  EXPECT_EQ(fs::file_size(Folder / "copy.dir.ams"), 2 * 640u);
  EXPECT_EQ(fs::file_size(Folder / "one.ams"), 640u);
  fs::remove(Folder / "copy.dir.ams");
  fs::remove(Folder / "one.ams");
  const struct {
    const char* arguments;
    const char* name;
  } cases[] = {{"--next 1 a.ams", "b1"},
               {"--next 2 --previous 1 a.ams", "b1"},
               {"--previous 1 a.ams", "c1"},
               {"--reload b.ams", "b1"},
               {"--next 3 a.ams", "a1"}};
  for (const auto& c : cases) {
    const auto json = Parsed(Run(std::string("--records - ") + c.arguments).Out);
    EXPECT_EQ(json["Records"][0]["Name"], c.name) << c.arguments;
  }
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

TEST_F(Batch, GoesOnAfterStatisticsThatFail) {
  RecordArray records;
  for (int i = 1; i <= 5; ++i) {
    SpecimenRecord r = Record("same", 0);
    r.OrientInc = 0;
    r.OrientAz = 0;
    const float tensor[] = {1.1f, 1.0f, 0.9f};
    for (int c = 1; c <= 6; ++c) r.Tensor[c] = c <= 3 ? tensor[c - 1] : 0.0f;
    records.Add(r);
  }
  ASSERT_TRUE(WriteAmsFile(Utf8Of(Folder / "same.ams"), records, false, true));
  const Result result = Run("--stats - same.ams");
  EXPECT_EQ(result.Status, 0);
  EXPECT_NE(result.Err.find("Division by zero"), std::string::npos) << result.Err;
  const auto json = Parsed(result.Out);
  EXPECT_EQ(json["GroupN"], 5);
  EXPECT_FALSE(json["MeanK"].is_null());
  EXPECT_TRUE(json["AvgKm"].is_null());
}

TEST_F(Batch, MendsASettingsFileAndReadsAGoodOne) {
  WriteFile("a", 2);
  std::ofstream(Folder / "bad.sav") << "nonsense";
  EXPECT_EQ(Run("--settings bad.sav a.ams").Status, 0);
  const std::string mended = ContentOf(Folder / "bad.sav");
  EXPECT_EQ(std::count(mended.begin(), mended.end(), '|'), 13);
  std::string own = mended;
  own.replace(own.find(" 9     L"), 8, " 14    X");
  std::ofstream(Folder / "own.sav", std::ios::binary) << own;
  EXPECT_EQ(Parsed(Run("--stats - --settings own.sav a.ams").Out)["FacName"][0], "X");
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
