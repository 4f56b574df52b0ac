#include "tensor/aniso_factor.h"

#include <iterator>

namespace velorix {
namespace {

Guarded operator+(Guarded x, Guarded y) { return x.v + y.v; }
Guarded operator-(Guarded x, Guarded y) { return x.v - y.v; }
Guarded operator*(Guarded x, Guarded y) { return x.v * y.v; }
Guarded operator/(Guarded x, Guarded y) { return x.v / y.v; }
Guarded Ln(Guarded x) { return std::log(x.v); }
Guarded Exp(Guarded x) { return std::exp(x.v); }
Guarded Sqrt(Guarded x) { return std::sqrt(x.v); }
Guarded Sin(Guarded x) { return std::sin(x.v); }
Guarded CubeRoot(Guarded x) { return std::pow(x.v, 1.0 / 3); }  // fails for a negative, unlike cbrt
Guarded Sq(Guarded x) { return x * x; }

Guarded SumOfSquares(Guarded x, Guarded y, Guarded z, Guarded mean) {
  return Sq(x - mean) + Sq(y - mean) + Sq(z - mean);
}

using Input = const FactorInput&;

/// Twice the scatter of the logarithms. Kept for agreement with published results: 1e-20 is
/// subtracted, so that the root of an isotropic specimen, its factors 2 and 3, can't be computed.
Guarded TwiceLogScatter(Input f) { return 2 * (SumOfSquares(f.n1, f.n2, f.n3, f.n) - 1e-20); }

struct Factor {
  std::string_view Text;
  Guarded (*Compute)(Input);
};

// Kept for agreement with published results: some formulas use a, b, c and others k1, k2, k3 as
// given. For sets with a negative value these differ.
// clang-format off
constexpr Factor Factors[] = {  // index = position
  {"",                                            [](Input f) { return f.m0; }},
  {"(15/2)[(k1-k)^2+(k2-k)^2+(k3-k)^2]/(3*k)^2",  [](Input f) { return 7.5 * SumOfSquares(f.a, f.b, f.c, f.m) / Sq(3 * f.m); }},
  {"exp{sqr[2((n1-n)^2+(n2-n)^2+(n3-n)^2)]}",     [](Input f) { return Exp(Sqrt(TwiceLogScatter(f))); }},
  {"sqr{2[(n1-n)^2+(n2-n)^2+(n3-n)^2]}",          [](Input f) { return Sqrt(TwiceLogScatter(f)); }},
  {"k1/k3",                                       [](Input f) { return f.a / f.c; }},
  {"ln(k1/k3)",                                   [](Input f) { return Ln(f.a / f.c); }},
  {"100(k1-k3)/k1",                               [](Input f) { return 100 * (f.a - f.c) / f.a; }},
  {"(k1-k3)/k2",                                  [](Input f) { return (f.a - f.c) / f.b; }},
  {"(k1-k3)/k",                                   [](Input f) { return (f.a - f.c) / f.m; }},
  {"k1/k2",                                       [](Input f) { return f.a / f.b; }},
  {"ln(k1/k2)",                                   [](Input f) { return Ln(f.a / f.b); }},
  {"(k1-k2)/k",                                   [](Input f) { return (f.a - f.b) / f.m; }},
  {"2k1/(k2+k3)",                                 [](Input f) { return 2 * f.a / (f.b + f.c); }},
  {"k2/k3",                                       [](Input f) { return f.b / f.c; }},
  {"ln(k2/k3)",                                   [](Input f) { return Ln(f.b / f.c); }},
  {"(k1+k2)/(2k3)",                               [](Input f) { return (f.a + f.b) / (2 * f.c); }},
  {"(k1+k3)/(2k2)",                               [](Input f) { return (f.a + f.c) / (2 * f.b); }},
  {"2k2/(k1+k3)",                                 [](Input f) { return 2 * f.b / (f.a + f.c); }},
  {"1-k3/k2",                                     [](Input f) { return 1 - f.c / f.b; }},
  {"(2k1-k2-k3)/(k1-k3)",                         [](Input f) { return (2 * f.k1 - f.k2 - f.k3) / (f.k1 - f.k3); }},
  {"[(k1+k2)/2-k3]/k",                            [](Input f) { return ((f.a + f.b) / 2 - f.c) / f.m; }},
  {"(k2-k3)/k",                                   [](Input f) { return (f.b - f.c) / f.m; }},
  {"k1/sqr(k2*k3)",                               [](Input f) { return f.a / Sqrt(f.b * f.c); }},
  {"(k1*k3)/(k2^2)",                              [](Input f) { return f.a * f.c / Sq(f.b); }},
  {"(k1-k2)/[(k1+k2)/2-k3]",                      [](Input f) { return (f.k1 - f.k2) / ((f.k1 + f.k2) / 2 - f.k3); }},
  {"(k1-k2)/(k2-k3)",                             [](Input f) { return (f.k1 - f.k2) / (f.k2 - f.k3); }},
  {"(k2-k3)/(k1-k2)",                             [](Input f) { return (f.k2 - f.k3) / (f.k1 - f.k2); }},
  {"1/sin{sqr[(k2-k3)/(k1-k3)]}",                 [](Input f) { return 1 / Sin(Sqrt((f.k2 - f.k3) / (f.k1 - f.k3))); }},
  {"(k2^2)/(k1*k3)",                              [](Input f) { return Sq(f.b) / (f.a * f.c); }},
  {"k2(k1-k2)/[k1(k2-k3)]",                       [](Input f) { return f.b * (f.a - f.b) / (f.a * (f.b - f.c)); }},
  {"(k2/k3-1)/(k1/k2-1)",                         [](Input f) { return (f.k2 / f.k3 - 1) / (f.k1 / f.k2 - 1); }},
  {"(2n2-n1-n3)/(n1-n3)",                         [](Input f) { return (2 * f.n2 - f.n1 - f.n3) / (f.n1 - f.n3); }},
  {"(2k2-k1-k3)/(k1-k3)",                         [](Input f) { return (2 * f.k2 - f.k1 - f.k3) / (f.k1 - f.k3); }},
  {"(k1+k2-2k3)/(k1-k2)",                         [](Input f) { return (f.k1 + f.k2 - 2 * f.k3) / (f.k1 - f.k2); }},
  {"sqr{[(k1-k)^2+(k2-k)^2+(k3-k)^2]/3}/k",       [](Input f) { return Sqrt(SumOfSquares(f.k1, f.k2, f.k3, f.m0) / 3) / f.m0; }},
  {"(k1*k2*k3)^(1/3)",                            [](Input f) { return CubeRoot(f.a * f.b * f.c); }},
  {"k3(k1-k2)/[k1(k2-k3)]",                       [](Input f) { return f.c * (f.a - f.b) / (f.a * (f.b - f.c)); }},
  {"k3(k1-k2)/(k2^2-k1*k3)",                      [](Input f) { return f.c * (f.a - f.b) / (Sq(f.b) - f.a * f.c); }},
  {"(k1-k2)(2k1-k2-k3)/[(k2-k3)(k1+k2-2k3)]",     [](Input f) { return (f.k1 - f.k2) * (2 * f.k1 - f.k2 - f.k3)
                                                                     / ((f.k2 - f.k3) * (f.k1 + f.k2 - 2 * f.k3)); }},
};
// clang-format on
static_assert(std::size(Factors) == LastFactor + 1);

/// Whether the set is a diamagnetic one, which the factors see mirrored.
bool IsMirrored(double k1, double k3) { return k3 <= 0 && k1 < 0; }

}  // namespace

FactorInput::FactorInput(double x1, double x2, double x3)
    : k1(x1),
      k2(x2),
      k3(x3),
      a(IsMirrored(x1, x3) ? -x3 : x1),
      b(IsMirrored(x1, x3) ? -x2 : x2),
      c(IsMirrored(x1, x3) ? -x1 : x3),
      m((a + b + c) / 3),
      m0((k1 + k2 + k3) / 3),
      n1(c.v > 0 ? Ln(a) : 0),
      n2(c.v > 0 ? Ln(b) : 0),
      n3(c.v > 0 ? Ln(c) : 0),
      n((n1 + n2 + n3) / 3) {}

std::optional<double> AnisoFactor(int index, const FactorInput& input) {
  if (index < FirstFactor || index > LastFactor) return std::nullopt;
  const Guarded value = Factors[index].Compute(input);
  if (value.Failed()) return std::nullopt;
  return value.v;
}

std::optional<double> AnisoFactor(int index, double k1, double k2, double k3) {
  return AnisoFactor(index, FactorInput(k1, k2, k3));
}

std::string_view FactorText(int index) {
  return index < FirstFactor || index > LastFactor ? std::string_view() : Factors[index].Text;
}

}  // namespace velorix
