#include "stats/group/bootstrap.h"

#include <algorithm>
#include <cmath>

#include "stats/group/jacobi.h"
#include "stats/group/replicates.h"
#include "tensor/aniso_factor.h"

namespace velorix {
namespace {

double Quotient(double a, double b) {
  if (b == 0) FailDivision();
  return a / b;
}

/// F transposed times A, rounded to 32 bits.
Matrix<3, 3> TurnedRows(const Matrix<3, 3>& A, const Matrix<3, 3>& F) {
  Matrix<3, 3> R;
  for (int i = 1; i <= 3; ++i)
    for (int j = 1; j <= 3; ++j)
      R(i, j) = Round32(F(1, i) * A(1, j) + F(2, i) * A(2, j) + F(3, i) * A(3, j));
  return R;
}

void SolveAll(std::span<const Matrix<3, 3>> rep, BootResult& result) {
  result.Eig.resize(rep.size());
  result.BootVec.resize(rep.size());
  for (std::size_t k = 0; k < rep.size(); ++k) {
    Matrix<3, 3> copy = rep[k];
    Jacobi(copy, result.Eig[k], result.BootVec[k]);
    for (const double value : result.Eig[k])
      if (!std::isfinite(value)) FailOverflow();
  }
}

/// Ascending, with what is no number at the end.
bool NumbersFirst(double a, double b) { return a < b || (std::isnan(b) && !std::isnan(a)); }

FactorIntervals IntervalsOf(std::span<const Vector<3>> Eig) {
  Array1<std::vector<double>, FactorIntervals::Size> values;
  for (const Vector<3>& k : Eig) {
    const FactorInput input(k[1], k[2], k[3]);
    for (int i = 1; i <= FactorIntervals::Size; ++i)
      if (const auto factor = AnisoFactor(BootFactorList[i - 1].Index, input))
        values[i].push_back(*factor);
  }
  FactorIntervals intervals;
  for (int i = 1; i <= FactorIntervals::Size; ++i)
    if (values[i].size() == Eig.size()) intervals[i] = BootInterval(values[i]);
  return intervals;
}

/// The components across direction `i`, in the order in which an ellipse takes them.
struct Across {
  int a, b;
};
constexpr Array1<Across, 3> AcrossOf = {Across{2, 3}, Across{1, 3}, Across{2, 1}};

/// Places of a contour point's (z, x, y) in the frame, for each direction.
constexpr Array1<Array1<int, 3>, 3> PlacesOf = {Array1<int, 3>{1, 2, 3}, Array1<int, 3>{2, 1, 3},
                                                Array1<int, 3>{3, 2, 1}};

struct PlanePoint {
  double x = 0, y = 0;
};

/// The ellipse x^2 / Sa + y^2 / Sb = q in `P` points, a quarter at a time.
std::vector<PlanePoint> EllipsePoints(double Sa, double Sb, double q, int P) {
  const int quarter = P / 4;
  const double eb = std::sqrt(q * Sb), step = eb / quarter;
  std::vector<PlanePoint> points(static_cast<std::size_t>(P) + 1);  // counted from 1
  const auto at = [&](int i) -> PlanePoint& { return points[static_cast<std::size_t>(i)]; };
  for (int l = 1; l <= quarter; ++l) {
    const double y = (l - 1) * step, x = std::sqrt(Sa * (q - Quotient(y * y, Sb)));
    at(l) = {x, y};
    if (l == 1) {
      at(2 * quarter + 1) = {-x, y};
      continue;
    }
    at(2 * quarter + 2 - l) = {-x, y};
    at(2 * quarter + l) = {-x, -y};
    at(P + 2 - l) = {x, -y};
  }
  at(quarter + 1) = {0, eb};
  at(3 * quarter + 1) = {0, -eb};
  return {points.begin() + 1, points.end()};
}

}  // namespace

void SampleFrameTurn(std::span<Matrix<3, 3>> A, const Matrix<3, 3>& F) {
  for (Matrix<3, 3>& M : A) {
    const Matrix<3, 3> rows = TurnedRows(M, F);
    for (int i = 1; i <= 3; ++i)
      for (int j = 1; j <= 3; ++j)
        M(i, j) = Round32(rows(i, 1) * F(1, j) + rows(i, 2) * F(2, j) + rows(i, 3) * F(3, j));
  }
}

void VectorFrameTurn(std::span<Matrix<3, 3>> A, const Matrix<3, 3>& F) {
  for (Matrix<3, 3>& M : A) M = TurnedRows(M, F);
}

std::string TextOf(const BootChoice& choice) {
  if (choice.Method == BootMethod::None) return WordOf(choice.Method);
  return WordOf(choice.Method) + (", " + std::to_string(choice.Replicates) + " replicates") +
         (choice.Seed ? ", seed " + std::to_string(*choice.Seed) : "");
}

NumberSource NumbersOf(const BootChoice& choice, std::span<const float> gaussTable) {
  return choice.Seed ? NumberSource(*choice.Seed) : NumberSource(gaussTable);
}

Interval BootInterval(std::vector<double>& values) {
  const auto ranked = [&](std::size_t i) {
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(i);
    std::nth_element(values.begin(), place, values.end(), NumbersFirst);
    return *place;
  };
  const auto point = [&](double p) {
    const double q = p * static_cast<double>(values.size());
    const auto below = static_cast<std::size_t>(q);  // values up to q
    if (q != std::floor(q)) return ranked(below);
    return (ranked(below - 1) + ranked(below)) / 2;
  };
  return {point(0.025), point(0.975)};
}

BootLimits BootQuantiles(std::span<const Vector<3>> Eig) {
  BootLimits limits;
  for (int c = 1; c <= 3; ++c) {
    std::vector<double> column;
    for (const Vector<3>& values : Eig) column.push_back(values[c]);
    const auto [lower, upper] = BootInterval(column);
    limits.Lower[c] = lower;
    limits.Upper[c] = upper;
  }
  return limits;
}

std::vector<Matrix<3, 3>> BootEllipses(std::span<Matrix<3, 3>> BootVec, int P) {
  std::vector<Matrix<3, 3>> contour(static_cast<std::size_t>(P));
  const double B = static_cast<double>(BootVec.size());
  for (int i = 1; i <= 3; ++i) {
    const auto [a, b] = AcrossOf[i];
    double Sz = 0, Sa = 0, Sb = 0;
    for (Matrix<3, 3>& V : BootVec) {
      if (V(i, i) < 0) V(i, i) = -V(i, i);
      Sz += V(i, i);
      Sa += V(a, i) * V(a, i);
      Sb += V(b, i) * V(b, i);
    }
    Sz = Quotient(Sz, B);
    Sa = Quotient(Sa, B);
    Sb = Quotient(Sb, B);
    const double q = Quotient(Quotient(ChiSquare95, Sz), Sz);
    const std::vector<PlanePoint> points = EllipsePoints(Sa, Sb, q, P);
    for (std::size_t p = 0; p < points.size(); ++p) {
      const auto [x, y] = points[p];
      const double zz = 1 - x * x - y * y, z = zz >= 0 ? std::sqrt(zz) : 0;
      const double zxy[] = {z, x, y};
      for (int c = 0; c < 3; ++c) contour[p](PlacesOf[i][c + 1], i) = zxy[c];
    }
  }
  return contour;
}

BootResult BootStrap(std::span<const TensorColumn> T, const BootChoice& choice, int P,
                     std::span<const float> gaussTable) {
  BootResult result;
  if (T.size() <= 1 || choice.Method == BootMethod::None) return result;
  NumberSource numbers = NumbersOf(choice, gaussTable);
  auto [frame, rep] = ReplicatesInFrame(T, choice, numbers);
  SolveAll(rep, result);
  result.Limits = BootQuantiles(result.Eig);
  result.Factors = IntervalsOf(result.Eig);
  result.BootEllipse = BootEllipses(result.BootVec, P);
  Matrix<3, 3> back;
  Transpose(frame, back);
  SampleFrameTurn(rep, back);
  VectorFrameTurn(result.BootEllipse, back);
  SolveAll(rep, result);
  return result;
}

}  // namespace velorix
