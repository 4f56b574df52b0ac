// What every reader of data files promises whatever the bytes: records, or a refusal or a fault in
// clear words with the array as it was, in seconds.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <span>

#include "datafiles/formats/ams_file.h"
#include "datafiles/formats/asc_file.h"
#include "datafiles/formats/ged_file.h"
#include "datafiles/formats/ran_file.h"
#include "datafiles/formats/si2b_file.h"
#include "datafiles/formats/spin_file.h"
#include "tests/datafiles/fault_of.h"
#include "tests/datafiles/golden_record.h"
#include "tests/datafiles/temp_folder.h"

namespace velorix {
namespace {

struct Reader {
  const char *Extension, *Example;
  bool IsText;
  const char* Empty;   // what is said of an empty file
  std::size_t Enough;  // bytes of the example from which on it has a record
  Outcome (*FromBytes)(const std::string& bytes, const std::string& path, RecordArray& records);
  Outcome (*FromFile)(const std::string& path, RecordArray& records);
};

std::span<const std::byte> Raw(const std::string& bytes) { return std::as_bytes(std::span(bytes)); }

using Text = const std::string&;
using Records = RecordArray&;

// clang-format off
const Reader Readers[] = {
    {"ams", "tr245.ams", false, "Input error!|File <</DATA/X.AMS>> is empty!", 321,
     [](Text b, Text p, Records r) { return ReadAmsBytes(Raw(b), p, r); },
     [](Text p, Records r) { return ReadAmsFile(p, r); }},
    {"ran", "granite.ran", false, "Input error!|File <</DATA/X.RAN>> is empty!", 97,
     [](Text b, Text p, Records r) { return ReadRanBytes(Raw(b), p, r, {}); },
     [](Text p, Records r) { return ReadRanFile(p, r, {}); }},
    {"are", "tr245.are", false, "Input error!|File <</DATA/X.ARE>> is empty!", 97,
     [](Text b, Text p, Records r) { return ReadRanBytes(Raw(b), p, r, {}); },
     [](Text p, Records r) { return ReadRanFile(p, r, {}); }},
    {"asc", "formats/tr245.asc", true, "Input error!|File <</DATA/X.ASC>> is empty!", 659,
     [](Text b, Text p, Records r) { return ReadAscText(b, p, r); },
     [](Text p, Records r) { return ReadAscFile(p, r); }},
    {"AMS", "formats/tr245.AMS", true, "Input error!|File <</DATA/X.AMS>> is empty!", 80,
     [](Text b, Text p, Records r) { return ReadSi2bText(b, p, r, {}); },
     [](Text p, Records r) { return ReadSi2bFile(p, r, {}); }},
    {"txt", "formats/tr245.txt", true, "Input error!|File <</DATA/X.TXT>> is empty!", 188,
     [](Text b, Text p, Records r) { return ReadSpinText(b, p, r, {}); },
     [](Text p, Records r) { return ReadSpinFile(p, r, {}); }},
    {"ged", "granite.ged", true, "Error in opening file: <<x.ged>>|File is empty!", 126,
     [](Text b, Text p, Records r) { return ReadGedText(p, b, r); },
     [](Text p, Records r) { return ReadGedFile(p, r); }},
};
// clang-format on

std::string ExampleOf(const Reader& reader) {
  return BytesOf(VELORIX_SOURCE_DIR "/examples/" + std::string(reader.Example));
}

bool Same(const RecordArray& a, const RecordArray& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

std::string RecordsText(int count) { return std::to_string(count) + " records"; }

/// What reading comes to, behind a record that must stay: "3 records" or the message; held to what
/// is promised.
std::string Reading(const Reader& reader, const std::string& bytes) {
  const std::string path = "/data/x." + std::string(reader.Extension);
  RecordArray records;
  records.Add(golden::Record());
  std::string said;
  try {
    const Outcome outcome = reader.FromBytes(bytes, path, records);
    EXPECT_EQ(outcome.Done, records.Count() > 1) << path;
    said = outcome ? RecordsText(records.Count() - 1) : outcome.Title + "|" + outcome.Text;
    const bool isSilent = !outcome && outcome.Text.empty();
    EXPECT_TRUE(!isSilent || bytes.size() < reader.Enough) << path;
  } catch (const Fault& fault) {
    EXPECT_EQ(records.Count(), 1) << path;
    EXPECT_TRUE(fault.Number >= 6 && fault.Number <= 62 && fault.Source.empty()) << fault.Number;
    said = FaultText(fault);
    // Readers of text tell the line; to a binary reader's fault the opening adds the path.
    const std::size_t place = said.find(" (" + path + ", line ");
    EXPECT_EQ(place != said.npos, reader.IsText) << said;
  }
  EXPECT_EQ(records[1], golden::Record()) << path;
  return said;
}

TEST(BadInput, AnEmptyFileIsNamed) {
  for (const Reader& reader : Readers) EXPECT_EQ(Reading(reader, ""), reader.Empty);
}

TEST(BadInput, WhatIsNoFileFailsWithTheSystemsReason) {
  const TempFolder folder;
  for (const Reader& reader : Readers) {
    RecordArray records;
    records.Add(golden::Record());
    for (const std::string& path : {folder.File("missing"), Utf8Of(folder.Path)})
      EXPECT_THROW((void)reader.FromFile(path, records), FileFault);
    EXPECT_EQ(records.Count(), 1);
    const std::string path = folder.File("größe 日本." + std::string(reader.Extension));
    PutFile(path, "");
    const Outcome empty = reader.FromFile(path, records);
    const bool isGed = empty.Title.ends_with("größe 日本.ged>>");
    EXPECT_TRUE(isGed || empty.Text.find("GRÖßE 日本.") != std::string::npos) << empty.Text;
    PutFile(path, ExampleOf(reader));
    EXPECT_TRUE(reader.FromFile(path, records));
    EXPECT_EQ(records[1], golden::Record());
    EXPECT_EQ(RecordsText(records.Count() - 1), Reading(reader, ExampleOf(reader)));
  }
}

TEST(BadInput, AFileCutAnywhereIsReadFromTheFirstWholeSpecimenOnOnly) {
  for (const Reader& reader : Readers) {
    const std::string example = ExampleOf(reader);
    for (std::size_t length = 1; length <= example.size(); ++length) {
      const std::string said = Reading(reader, example.substr(0, length));
      ASSERT_TRUE(length > reader.Enough || (said == RecordsText(1)) == (length == reader.Enough));
    }
  }
}

TEST(BadInput, ABinaryFileHasItsRoundedNumberOfRecordsAndZerosFillTheLast) {
  const TempFolder folder;
  const std::string path = folder.File("x");
  // AMS files come in pieces of 128 records: the last one is filled up behind a whole piece, too.
  const std::array<int, 4> cases[] = {{0, 0, 640, 0}, {1, 64, 64, 0}, {0, 0, 640, 128}};
  for (const auto& [at, header, size, whole] : cases) {
    std::string content = ExampleOf(Readers[at]);
    while (content.size() < 640 * 140) content += content;
    for (int length = header + whole * size + 1; length <= header + (whole + 2) * size + 20;
         length += 1 + whole / 2) {
      std::string bytes = content.substr(0, static_cast<std::size_t>(length));
      PutFile(path, bytes);
      // Halves go to the even number: half a record is none, one and a half are two.
      const int n = static_cast<int>(std::nearbyint((length - header) / double(size)));
      const int end = header + n * size;
      bytes.resize(static_cast<std::size_t>(end));
      RecordArray records, filled;
      ASSERT_EQ(Readers[at].FromFile(path, records).Done, n > 0) << length;
      ASSERT_EQ(Readers[at].FromBytes(bytes, "x", filled).Done, n > 0) << length;
      ASSERT_EQ(records.Count(), n) << length;
      ASSERT_TRUE(Same(records, filled)) << length;
    }
  }
}

TEST(BadInput, TheStoreIsFilledToItsLimitAndNotBeyond) {
  RecordArray records;
  for (const Reader& reader : Readers) {
    const std::string bytes = ExampleOf(reader);
    records.Clear();
    ASSERT_TRUE(reader.FromBytes(bytes, "x", records));
    const int before = RecordArray::Limit - records.Count();
    records.GrowStale(before - records.Count());
    EXPECT_TRUE(reader.FromBytes(bytes, "x", records));
    EXPECT_EQ(records.Count(), RecordArray::Limit);
    records.Truncate(before + 1);
    const std::string fault = FaultOf([&] { (void)reader.FromBytes(bytes, "x", records); });
    EXPECT_TRUE(fault.starts_with("Overflow")) << fault;
    EXPECT_EQ(records.Count(), before + 1);
  }
  for (const Reader& reader : std::span(Readers, 3))  // the binary ones
    EXPECT_EQ(Reading(reader, std::string(40'000 * 640, 'x')), "Overflow");
}

TEST(BadInput, MemoryUsedBeforeGivesWhatFreshMemoryGives) {
  SpecimenRecord full = golden::Record();  // as full as it gets
  full.CoorLevel = Tectonic;
  full.RecordNo = full.Selected = true;
  full.FoliName[3] = "S3";
  full.FoliAz[3] = full.LinePlunge[4] = 5;
  full.Fac[1] = 5.0f;
  for (int i = 1; i <= 6; ++i)
    full.K[i] = full.TensorRot[i] = full.TensorRotIm[i] = full.KSDIm[i] = 9.0;
  for (int i = 1; i <= 3; ++i) full.Dec[i] = full.IncIm[i] = full.LineInc[i] = 9.0;
  for (const Reader& reader : Readers) {
    const std::string bytes = ExampleOf(reader) + std::string(reader.IsText ? 0 : 640, '\0');
    RecordArray fresh, used;
    for (int i = 0; i < 150; ++i) used.Add(full);
    used.Clear();
    ASSERT_TRUE(reader.FromBytes(bytes, "x", fresh) && reader.FromBytes(bytes, "x", used));
    EXPECT_TRUE(Same(fresh, used)) << reader.Example;
  }
}

TEST(BadInput, HugeLinesAndManyShortOnesEndInSeconds) {
  constexpr int Million = 1'000'000;
  const auto repeated = [](const std::string& part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += part;
    return text;
  };
  for (const Reader& reader : Readers) {
    const auto expectItEnds = [&](const std::string& bytes) {
      const auto start = std::chrono::steady_clock::now();
      EXPECT_LT(Reading(reader, bytes).size(), 10'000u);
      const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
      EXPECT_LT(seconds.count(), 5) << reader.Extension << bytes.substr(0, 20);
    };
    const std::string example = ExampleOf(reader), specimen = example.substr(0, reader.Enough);
    expectItEnds(repeated(example, Million / static_cast<int>(example.size())));
    for (const char* part : {"x\n", "1 1 1 1 1\n", "\f\n", "\n", "\f"})
      expectItEnds(repeated(part, Million));
    // In the place of each line's end.
    for (const char* part : {"x", "9", "/", "9 ", " "}) {
      const std::string line = repeated(part, Million);
      for (std::size_t at = 0; reader.IsText && at < specimen.size(); ++at) {
        at = std::min(specimen.find('\n', at), specimen.size());
        expectItEnds(specimen.substr(0, at) + line + specimen.substr(at));
      }
    }
  }
}

}  // namespace
}  // namespace velorix
