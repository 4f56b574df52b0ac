#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
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
