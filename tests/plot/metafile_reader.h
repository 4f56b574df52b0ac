#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace velorix {

/// A metafile read back record by record, held against its format on the way.
struct MetafileReader {
  struct Record {
    int function = 0;
    std::vector<int> words;  // parameters, with a sign
    std::string bytes;
  };

  std::vector<Record> records;  // the end included
  int tableSize = 0;

  explicit MetafileReader(const std::string& bits) : bits_(bits) { Read(); }

  std::vector<Record> Of(int function) const {
    std::vector<Record> found;
    for (const Record& record : records)
      if (record.function == function) found.push_back(record);
    return found;
  }

 private:
  void Read() {
    ASSERT_TRUE(bits_.size() >= 18 && bits_.size() % 2 == 0) << bits_.size() << " bytes";
    EXPECT_EQ(WordAt(0), 1);
    EXPECT_EQ(WordAt(2), 9);
    EXPECT_EQ(WordAt(4), 0x0300);
    EXPECT_EQ(LongAt(6) * 2, bits_.size());
    tableSize = WordAt(10);
    EXPECT_EQ(WordAt(16), 0);
    std::size_t longest = 0;
    for (std::size_t at = 18; at < bits_.size();) {
      const std::size_t size = at + 6 <= bits_.size() ? 2 * LongAt(at) : 0;
      ASSERT_TRUE(size >= 6 && at + size <= bits_.size()) << size << " bytes at " << at;
      Record record{WordAt(at + 4), {}, bits_.substr(at + 6, size - 6)};
      for (std::size_t i = at + 6; i < at + size; i += 2)
        record.words.push_back(static_cast<std::int16_t>(WordAt(i)));
      EXPECT_EQ(record.function == 0, at + size == bits_.size()) << "the end at " << at;
      CheckSize(record);
      FollowObjects(record);
      longest = std::max(longest, size);
      records.push_back(std::move(record));
      at += size;
    }
    EXPECT_EQ(LongAt(12) * 2, longest);
    EXPECT_EQ(std::count(objects_.begin(), objects_.end(), 0), std::ssize(objects_))
        << "an object was not deleted";
    EXPECT_LE(std::ssize(objects_), tableSize);
  }

  int WordAt(std::size_t at) const {
    return static_cast<unsigned char>(bits_[at]) | static_cast<unsigned char>(bits_[at + 1]) << 8;
  }
  std::uint32_t LongAt(std::size_t at) const {
    return static_cast<std::uint32_t>(WordAt(at)) | static_cast<std::uint32_t>(WordAt(at + 2))
                                                        << 16;
  }

  /// How many parameters each function has; for those with lists it is told within.
  void CheckSize(const Record& r) const {
    const int size = static_cast<int>(r.words.size());
    // clang-format off
    const std::map<int, int> fixed = {
        {0x0000, 0}, {0x001E, 0}, {0x0102, 1}, {0x0103, 1}, {0x0127, 1}, {0x012D, 1}, {0x012E, 1},
        {0x01F0, 1}, {0x0209, 2}, {0x020C, 2}, {0x02FA, 5}, {0x02FB, 25}, {0x02FC, 4}, {0x0418, 4},
        {0x041F, 4}};
    // clang-format on
    const auto found = fixed.find(r.function);
    int wanted = found == fixed.end() ? -1 : found->second;
    if (size > 0 && (r.function == 0x0324 || r.function == 0x0325)) wanted = 1 + 2 * r.words[0];
    if (size > 0 && r.function == 0x0521) wanted = 3 + (r.words[0] + 1) / 2;
    EXPECT_EQ(size, wanted) << "function " << std::hex << r.function;
  }

  /// The object table as a player keeps it: a new object takes the first free place. Selected ones
  /// may not be deleted, and none may be selected that isn't there.
  void FollowObjects(const Record& r) {
    if (r.function >= 0x02FA && r.function <= 0x02FC) {
      auto free = std::find(objects_.begin(), objects_.end(), 0);
      if (free == objects_.end()) free = objects_.insert(free, 0);
      *free = r.function;
    } else if (r.function == 0x012D) {
      ASSERT_TRUE(Has(r.words[0])) << "selects " << r.words[0];
      selected_[objects_[r.words[0]] - 0x02FA] = r.words[0];
    } else if (r.function == 0x01F0) {
      ASSERT_TRUE(Has(r.words[0])) << "deletes " << r.words[0];
      for (int place : selected_) EXPECT_NE(place, r.words[0]) << "deletes what is selected";
      objects_[r.words[0]] = 0;
    } else if (r.function == 0x0127) {
      std::fill(selected_, selected_ + 3, -1);
    }
  }
  bool Has(int place) const {
    return place >= 0 && place < std::ssize(objects_) && objects_[place] != 0;
  }

  const std::string bits_;
  std::vector<int> objects_;  // what each place holds, 0 nothing
  int selected_[3] = {-1, -1, -1};
};

}  // namespace velorix
