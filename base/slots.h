#pragma once

#include <cassert>

namespace velorix {

/// A fixed array indexed from Lo to Hi, both included, all elements zero at first.
/// An index outside is a programming fault: asserted in debug builds.
template <class T, int Lo, int Hi>
struct Slots {
  static constexpr int First = Lo, Last = Hi, Size = Hi - Lo + 1;

  T v[Size] = {};

  constexpr T& operator[](int i) {
    assert(i >= Lo && i <= Hi);
    return v[i - Lo];
  }
  constexpr const T& operator[](int i) const {
    assert(i >= Lo && i <= Hi);
    return v[i - Lo];
  }
  constexpr T* begin() { return v; }
  constexpr T* end() { return v + Size; }
  constexpr const T* begin() const { return v; }
  constexpr const T* end() const { return v + Size; }
  bool operator==(const Slots&) const = default;
};

/// A fixed array that counts from 1, as the field's formulas are written.
template <class T, int N>
using Array1 = Slots<T, 1, N>;

}  // namespace velorix
