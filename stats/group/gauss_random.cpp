#include "stats/group/gauss_random.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

#include "base/fault.h"

namespace velorix {

// x = m 2^e with m from sqrt(1/2) to sqrt(2), and with t = (m - 1) / (m + 1), |t| < 0.1716,
//   ln x = e ln 2 + ln m,   ln m = 2 (t + t^3/3 + t^5/5 + ...).
// The series is cut behind t^21; what is left out is below 2^-57 of the sum. As t carries a rounded
// quotient, ln m is formed from f = m - 1, which is exact: 2 t = f - t f, so
//   ln m = f - t (f - r),   r = 2 (t^2/3 + t^4/5 + ...).
// ln 2 stands in two parts, the upper one short enough that its product with e is exact.
double NaturalLog(double x) {
  constexpr std::uint64_t rootOfHalf = std::bit_cast<std::uint64_t>(0x1.6a09e667f3bcdp-1);
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(x);
  const std::int64_t e = static_cast<std::int64_t>(bits - rootOfHalf) >> 52;
  const double m = std::bit_cast<double>(bits - (static_cast<std::uint64_t>(e) << 52));

  const double f = m - 1, t = f / (m + 1), s = t * t;
  double r = 0;
  for (int n = 21; n >= 3; n -= 2) r = s * (2.0 / n + r);
  constexpr double ln2High = 0x1.62e42feep-1, ln2Low = 0x1.a39ef35793c76p-33;
  const double k = static_cast<double>(e);
  return k * ln2High + (k * ln2Low - t * (f - r) + f);
}

void FillGaussTable(std::vector<float>& table, const std::function<void()>& yield) {
  constexpr std::size_t piece = 50'000;  // a few milliseconds of work
  UniformSource uniform;
  table.resize(GaussTableSize);
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (i % piece == 0 && yield) yield();
    table[i] = static_cast<float>(GaussRandom(uniform));
  }
}

SeededBits::SeededBits(std::uint64_t seed) {
  for (std::uint64_t& word : state_) {
    std::uint64_t z = seed += 0x9e3779b97f4a7c15;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
    z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
    word = z ^ (z >> 31);
  }
}

std::uint64_t SeededBits::operator()() {
  auto& s = state_;
  const std::uint64_t result = std::rotl(s[1] * 5, 7) * 9, t = s[1] << 17;
  s[2] ^= s[0];
  s[3] ^= s[1];
  s[1] ^= s[2];
  s[0] ^= s[3];
  s[2] ^= t;
  s[3] = std::rotl(s[3], 45);
  return result;
}

NumberSource::NumberSource(std::span<const float> table) : table_(table), bits_(0) {
  if (table.empty()) FailSubscript();
}

float NumberSource::NextOfTable() {
  if (next_ == table_.size()) next_ = 0;
  return table_[next_++];
}

void NumberSource::FillGauss(std::span<float> numbers) {
  if (table_.empty()) {
    const auto uniform = [this] { return static_cast<float>(bits_() >> 40) * 0x1p-24f; };
    for (float& number : numbers) number = static_cast<float>(GaussRandom(uniform));
    return;
  }
  while (!numbers.empty()) {
    if (next_ == table_.size()) next_ = 0;
    const std::size_t n = std::min(numbers.size(), table_.size() - next_);
    std::copy_n(table_.begin() + static_cast<std::ptrdiff_t>(next_), n, numbers.begin());
    next_ += n;
    numbers = numbers.subspan(n);
  }
}

std::size_t NumberSource::Place(std::size_t n) {
  if (table_.empty()) {
    const std::uint64_t surplus = (0 - std::uint64_t{n}) % n;  // 2^64 modulo n
    std::uint64_t bits = bits_();
    while (bits < surplus) bits = bits_();
    return static_cast<std::size_t>(bits % n);
  }
  const double share = std::erfc(-double{NextOfTable()} / std::numbers::sqrt2) / 2;
  return std::min(static_cast<std::size_t>(share * static_cast<double>(n)), n - 1);
}

}  // namespace velorix
