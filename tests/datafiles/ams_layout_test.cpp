#include "datafiles/ams_layout.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "datafiles/ams_file.h"
#include "tests/datafiles/golden_record.h"

namespace velorix {
namespace {

using golden::Bytes;

SpecimenRecord Decoded(const Bytes& bytes) {
  SpecimenRecord record;
  DecodeAmsRecord(bytes.data(), record);
  return record;
}

Bytes Encoded(const SpecimenRecord& record) {
  Bytes bytes(AmsRecordSize, std::byte{0xEE});
  EncodeAmsRecord(record, bytes.data());
  return bytes;
}

/// The bytes of a field as text.
std::string At(const Bytes& bytes, int at, int width) {
  return {reinterpret_cast<const char*>(bytes.data()) + at, static_cast<std::size_t>(width)};
}

const std::string ShortFalse(2, '\0'), ShortTrue = "\xFF\xFF";

TEST(AmsLayout, EveryFieldHasItsPlace) {
  const SpecimenRecord record = Decoded(golden::OnDisk());
  EXPECT_EQ(record, golden::Record());
  EXPECT_EQ(record.K[1].width(), Number::Width::Single);
  EXPECT_EQ(record.K[4].width(), Number::Width::Unset);
  const Bytes written = Encoded(record), expected = golden::Written();
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(written[i], expected[i]) << i;
}

TEST(AmsLayout, ReservedBytesAndSlots3And4AreNeitherReadNorWritten) {
  const struct {
    int At, Width;
  } dead[] = {{30, 4},  {104, 4}, {116, 8}, {132, 8}, {144, 4},
              {156, 8}, {172, 8}, {468, 4}, {546, 94}};
  Bytes bytes = golden::OnDisk();
  for (const auto& [at, width] : dead) std::fill_n(bytes.begin() + at, width, std::byte{0x41});
  EXPECT_EQ(Decoded(bytes), golden::Record());

  SpecimenRecord record = golden::Record();
  record.FoliName[3] = record.FoliName[4] = record.LineName[3] = record.LineName[4] = "S3";
  record.FoliAz[3] = record.FoliDip[4] = record.LineTrend[4] = record.LinePlunge[3] = 33;
  EXPECT_EQ(Encoded(record), golden::Written());
}

TEST(AmsLayout, SpecimenSystemIsInvertedAndTheOrientationIsNot) {
  const struct {
    int At544, At90;
    bool Specimen, Geographic;
  } cases[] = {
      {0, 0, true, false}, {-1, 0, false, false},   {-1, -1, false, true},
      {0, 1, true, true},  {256, 256, false, true},
  };
  for (const auto& [at544, at90, specimen, geographic] : cases) {
    Bytes bytes = golden::OnDisk();
    golden::PutShort(bytes, 544, at544);
    golden::PutShort(bytes, 90, at90);
    const SpecimenRecord record = Decoded(bytes);
    EXPECT_EQ(record.HasCoor[1], specimen);
    EXPECT_EQ(record.HasCoor[2], geographic);
    EXPECT_EQ(record.OrientAz, geographic ? 215.5f : 0.0f);
    EXPECT_EQ(record.OrientInc, geographic ? -46.0f : 0.0f);
    EXPECT_EQ(At(Encoded(record), 544, 2), specimen ? ShortFalse : ShortTrue);
    EXPECT_EQ(At(Encoded(record), 90, 2), geographic ? ShortTrue : ShortFalse);
  }
}

TEST(AmsLayout, AnglesOfARecordWithoutOrientationAreWrittenAsZero) {
  SpecimenRecord record = golden::Record();
  record.HasCoor[2] = false;
  EXPECT_EQ(At(Encoded(record), 90, 10), std::string(10, '\0'));
}

TEST(AmsLayout, TextsArePaddedCutAndConverted) {
  using namespace std::string_literals;
  const struct {
    std::string Text, OnDisk, ReadBack;
  } sites[] = {
      // clang-format off
      {"",                          "                    ",      ""},
      {" Quarry ",                  " Quarry             ",      " Quarry"},
      {"a site of 26 characters!!", "a site of 26 charact",      "a site of 26 charact"},
      {"Tichý důl",                 "Tich\xFD d?l           ",   "Tichý d?l"},
      {"5 € \u0081",                "5 \x80 \x81               ", "5 € \u0081"},
      {"a\0b"s,                     "a\0b                 "s,    "a\0b"s},
      {"ends in zero\0"s,           "ends in zero\0       "s,    "ends in zero"},
      // clang-format on
  };
  for (const auto& [text, onDisk, readBack] : sites) {
    SpecimenRecord record;
    record.Site = text;
    const Bytes bytes = Encoded(record);
    EXPECT_EQ(At(bytes, 472, 20), onDisk);
    EXPECT_EQ(Decoded(bytes).Site, readBack);
  }
}

TEST(AmsLayout, NameAndCodesAreStrippedAtBothEnds) {
  Bytes bytes = golden::OnDisk();
  golden::PutText(bytes, 0, "  A 1               ");
  golden::PutText(bytes, 100, " F");
  golden::PutText(bytes, 142, ShortFalse);
  SpecimenRecord record = Decoded(bytes);
  EXPECT_EQ(record.Name, "A 1");
  EXPECT_EQ(record.FoliName[1], "F");
  EXPECT_EQ(record.LineName[2], "");
  record.FoliName[1] = "  Fx ";
  EXPECT_EQ(At(Encoded(record), 100, 4), "FxS1");
}

TEST(AmsLayout, EveryByteOfATextComesBack) {
  for (int code = 0; code < 256; ++code) {
    Bytes bytes = Encoded(SpecimenRecord());
    bytes[504] = std::byte(code);
    bytes[505] = std::byte{'x'};
    EXPECT_EQ(At(Encoded(Decoded(bytes)), 504, 10), At(bytes, 504, 10)) << code;
  }
}

TEST(AmsLayout, FrequencyIndexIsTheDigitsOfItsLabel) {
  const struct {
    const char* Label;
    int Index;
  } cases[] = {{"F0", 0}, {"3F", 3}, {"1F", 1}, {"NA", 0}, {"12", 12}, {"  ", 0}};
  for (const auto& [label, index] : cases) {
    Bytes bytes = golden::OnDisk();
    golden::PutText(bytes, 38, label);
    EXPECT_EQ(Decoded(bytes).FreqIndex, index) << label;
  }
}

TEST(AmsLayout, OneCodeInAnyOfTheFourSlotsOpensTheUpperSystems) {
  Bytes none = golden::OnDisk();
  for (int at : {100, 102, 140, 142}) golden::PutText(none, at, "  ");
  EXPECT_FALSE(Decoded(none).HasCoor[3] || Decoded(none).HasCoor[4]);
  for (int at : {100, 102, 140, 142}) {
    Bytes bytes = none;
    golden::PutText(bytes, at, "F ");
    EXPECT_TRUE(Decoded(bytes).HasCoor[3] && Decoded(bytes).HasCoor[4]) << at;
  }
}

TEST(AmsLayout, OneOutOfPhaseTensorValueMakesTheBlock) {
  Bytes zero = golden::OnDisk();
  for (int i = 0; i < 6; ++i) golden::PutFloat(zero, 356 + 4 * i, -0.0f);
  EXPECT_FALSE(Decoded(zero).HasIm);
  EXPECT_EQ(Decoded(zero).KmIm, 300.5);  // the rest is taken all the same
  for (int i = 0; i < 6; ++i)
    for (float value : {1e-40f, -1.0f, std::nanf("")}) {
      Bytes bytes = zero;
      golden::PutFloat(bytes, 356 + 4 * i, value);
      EXPECT_TRUE(Decoded(bytes).HasIm) << i;
    }
}

TEST(AmsLayout, EveryFloatSurvivesWhateverItIs) {
  std::vector<int> floats = {26,  34,  40,  92,  96,  108, 112, 124,
                             128, 148, 152, 164, 168, 492, 496, 500};
  for (int at = 180; at < 468; at += 4)
    if ((at < 200 || at >= 212) && (at < 344 || at >= 356)) floats.push_back(at);
  const std::uint32_t values[] = {0x7FC12345, 0xFFC00001, 0x7F800000, 0xFF800000,
                                  0x80000000, 0x00000001, 0x7F7FFFFF};
  for (std::uint32_t value : values) {
    Bytes bytes = golden::Written();
    for (int at : floats) golden::PutInteger(bytes, at, value, 4);
    EXPECT_EQ(Encoded(Decoded(bytes)), bytes) << value;
  }
}

TEST(AmsLayout, NumbersOf64BitsAreNarrowedAndUnsetOnesAreZero) {
  SpecimenRecord record;
  record.Km = 1.0 / 3;
  record.K[1] = 0.1;
  record.FTest[3] = 2.0 / 3;
  Bytes expected = Encoded(SpecimenRecord());
  EXPECT_EQ(At(expected, 180, 292), std::string(292, '\0'));
  golden::PutFloat(expected, 180, 0.333333343f);
  golden::PutFloat(expected, 188, 0.1f);
  golden::PutFloat(expected, 320, 0.666666687f);
  EXPECT_EQ(Encoded(record), expected);
  SpecimenRecord large[3];  // finite, but not in 32 bits
  large[0].KmIm = 1e39;
  large[1].E3[2] = -1e39;
  large[2].Vec[3][1] = 1e39;
  for (const SpecimenRecord& r : large) EXPECT_THROW((void)Encoded(r), Fault);
}

}  // namespace
}  // namespace velorix
