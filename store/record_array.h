#pragma once

#include <cassert>
#include <utility>
#include <vector>

#include "base/fault.h"
#include "store/specimen_record.h"

namespace velorix {

/// A growable array of specimen records that counts from 1 and holds at most 32767 of them, since
/// every record counter of the program is 16-bit.
///
/// `Clear` keeps the memory, and the records in it stale, so that the next file of the same size
/// costs no page faults; `Grow` makes them empty again, `GrowStale` leaves that to a reader which
/// assigns every field.
class RecordArray {
 public:
  static constexpr int Limit = 32767;

  int Count() const { return count_; }
  bool Empty() const { return count_ == 0; }
  SpecimenRecord& operator[](int i) {
    assert(i >= 1 && i <= count_);
    return slots_[static_cast<std::size_t>(i - 1)];
  }
  const SpecimenRecord& operator[](int i) const {
    assert(i >= 1 && i <= count_);
    return slots_[static_cast<std::size_t>(i - 1)];
  }
  SpecimenRecord* begin() { return slots_.data(); }
  SpecimenRecord* end() { return slots_.data() + count_; }
  const SpecimenRecord* begin() const { return slots_.data(); }
  const SpecimenRecord* end() const { return slots_.data() + count_; }

  void Clear() { count_ = 0; }

  /// Adds `n` empty records behind the old ones and gives the index of the first. "Overflow" beyond
  /// the limit; then nothing has changed.
  int Grow(int n) {
    const int first = GrowStale(n);
    for (int i = first; i <= count_; ++i) (*this)[i] = SpecimenRecord{};
    return first;
  }
  /// As `Grow`, but a record may still hold what an earlier use of the memory left in it.
  int GrowStale(int n) {
    if (n < 0 || n > Limit - count_) FailOverflow();
    const std::size_t size = static_cast<std::size_t>(count_) + static_cast<std::size_t>(n);
    if (slots_.size() < size) slots_.resize(size);
    count_ += n;
    return count_ - n + 1;
  }
  void Add(SpecimenRecord record) { (*this)[GrowStale(1)] = std::move(record); }
  /// Takes the last records away, so that `count` are left.
  void Truncate(int count) {
    assert(count >= 0 && count <= count_);
    count_ = count;
  }

 private:
  std::vector<SpecimenRecord> slots_;
  int count_ = 0;
};

}  // namespace velorix
