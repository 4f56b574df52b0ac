#include "stats/gauss_random.h"

#include <bit>
#include <cmath>

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

double GaussRandom(UniformSource& uniform) {
  for (;;) {
    const float u = 2 * uniform() - 1, v = 2 * uniform() - 1;
    const double s = double{u} * u + double{v} * v;
    if (s < 1 && s != 0) return u * std::sqrt(-2 * NaturalLog(s) / s);
  }
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

}  // namespace velorix
