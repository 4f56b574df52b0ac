#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <random>

#include "stats/group/group_statistics.h"
#include "stats/group/jacobi.h"
#include "tensor/derivation.h"
#include "tensor/rotations.h"
#include "tests/stats/gauss_table.h"

namespace velorix {
namespace {

/// The worked example of Jelinek V., 1978, Studia Geophysica et Geodaetica 22, 50-62.
const std::vector<TensorColumn> Jelinek1978 = {
    {1.02327, 1.02946, 0.94727, -0.01495, -0.03599, -0.05574},
    {1.02315, 1.01803, 0.95882, -0.00924, -0.02058, -0.03151},
    {1.02801, 1.03572, 0.93627, -0.03029, -0.03491, -0.06088},
    {1.02775, 1.00633, 0.96591, -0.01635, -0.04148, -0.02006},
    {1.02143, 1.01775, 0.96082, -0.02798, -0.04727, -0.02384},
    {1.01823, 1.01203, 0.96975, -0.01126, -0.02833, -0.03649},
    {1.01486, 1.02067, 0.96446, -0.01046, -0.01913, -0.03864},
    {1.04596, 1.01133, 0.94271, -0.01660, -0.04711, -0.03636}};

/// Without scatter and exactly diagonal, so that no rounding takes the place of scatter.
const std::vector<TensorColumn> FourCopies(4, TensorColumn{1.1, 1.0, 0.9, 0, 0, 0});

/// A store of the tensors, shown in the geographic system.
RecordArray RecordsOf(const std::vector<TensorColumn>& tensors) {
  RecordArray records;
  for (const TensorColumn& t : tensors) {
    SpecimenRecord r;
    r.Active = r.HasCoor[2] = true;
    r.CoorLevel = Geographic;
    r.Km = 0.001 * (records.Count() + 1);
    for (int c = 1; c <= 6; ++c) r.Tensor[c] = r.TensorRot[c] = t[c];
    DeriveFactors(r, Settings().FacIndex, InPhase);
    records.Add(r);
  }
  return records;
}

/// Statistics of all that the geographic view shows, into what a run before left.
void RunOn(const RecordArray& records, GroupStats& stats, TensorBlock block = InPhase) {
  GroupStatistics(records, Geographic, block, Settings().FacIndex, GaussNumbers(), stats);
}

TensorStats StatsOf(std::span<const TensorColumn> tensors) {
  TensorStats stats;
  TensorStatistics(tensors, stats);
  return stats;
}

std::vector<TensorColumn> Turned(std::vector<TensorColumn> tensors, const Matrix<3, 3>& rotation) {
  for (TensorColumn& t : tensors) {
    Matrix<3, 3> M;
    TensorForm<ToMatrix>(M, t);
    Mxabat(rotation, M, M);
    TensorForm<ToForm>(M, t);
  }
  return tensors;
}

/// The angle between two axes.
double AxisAngle(const Direction& a, const Direction& b) {
  const double c = std::fabs(Vvmpy(DirectionToVector(1, a), DirectionToVector(1, b)));
  return DegPerRad * std::acos(std::min(c, 1.0));
}

Direction MeanOf(const TensorStats& stats, int k) { return {stats.MeanDec[k], stats.MeanInc[k]}; }

TEST(TensorStatistics, ReproducesThePublishedExample) {
  const TensorStats stats = StatsOf(Jelinek1978);
  const struct {
    double k, dec, inc, e1, e2;
  } expected[] = {{1.04239371, 167.9788, 19.0712, 0.668889, 0.099505},
                  {1.03397563, 267.1789, 24.8188, 0.669493, 0.096154},
                  {0.923630653, 44.5875, 57.8639, 0.137459, 0.046401}};
  // The published 95 % angles stand a factor (N - 1) / N and a scaling above our standard ones.
  const double N = 8, scale = (N - 1) / N * std::sqrt(2 * FQuantile(6) * (N - 1) / (N * (N - 2)));
  ASSERT_EQ(stats.Errors, 3);
  for (int k = 1; k <= 3; ++k) {
    const auto& w = expected[k - 1];
    EXPECT_NEAR(stats.MeanK[k], w.k, 5e-7);  // published with every trace brought to 3
    EXPECT_LT(AxisAngle(MeanOf(stats, k), {w.dec, w.inc}), 0.001);
    EXPECT_NEAR(std::atan(scale * std::tan(stats.MeanE1[k] / DegPerRad)), w.e1, 2e-4);
    EXPECT_NEAR(std::atan(scale * std::tan(stats.MeanE2[k] / DegPerRad)), w.e2, 2e-5);
    EXPECT_NEAR(std::atan((N - 1) / N * std::tan(stats.MeanE1At95[k] / DegPerRad)), w.e1, 2e-4);
    EXPECT_NEAR(std::atan((N - 1) / N * std::tan(stats.MeanE2At95[k] / DegPerRad)), w.e2, 2e-5);
  }
}

TEST(TensorStatistics, GivesErrorsFromFiveTensorsOnAndNoneForCopies) {
  for (std::size_t n : {0u, 1u, 4u, 5u}) {
    TensorStats stats;
    stats.MeanK[1] = -1;
    TensorStatistics(std::span(Jelinek1978).first(n), stats);
    EXPECT_EQ(stats.MeanK[1] == -1, n == 0);
    EXPECT_EQ(stats.Errors, n < 5 ? 0 : 3) << n;
  }
  const TensorStats copies = StatsOf(std::vector<TensorColumn>(6, Jelinek1978[0]));
  for (int k = 1; k <= 3; ++k) EXPECT_LT(copies.MeanE1[k], 1e-4);

  TensorStats equal;  // Kint and Kmin of the mean are the same: Kmax is the last to have errors
  const std::vector<TensorColumn> round(5, TensorColumn{1.2, 0.9, 0.9, 0, 0, 0});
  EXPECT_THROW(TensorStatistics(round, equal), Fault);
  EXPECT_EQ(equal.Errors, 1);
  EXPECT_EQ(equal.MeanK[3], double(0.9f));
}

TEST(FQuantile, TakesTheTableToTwentyAndTheFitsBeyond) {
  // With 2 degrees of freedom above the line the quantile has this closed form.
  const auto exact = [](int n) { return n / 2.0 * (std::pow(20, 2.0 / n) - 1); };
  for (int n = 1; n <= 20; ++n) {
    const double slip = n == 4 ? -0.001 : n == 6 ? 0.001 : 0;  // two entries are off, and kept
    EXPECT_NEAR(FQuantile(n), exact(n) + slip, 5.1e-5) << n;
  }
  for (const int n : {21, 40, 100, 101, 120, 1000}) EXPECT_NEAR(FQuantile(n), exact(n), 0.004) << n;
  EXPECT_THROW(FQuantile(0), Fault);
}

TEST(MeanAndStdDev, KnowSmallSamples) {
  EXPECT_EQ(Mean(std::vector<double>{2, 4, 9}), 5);
  EXPECT_DOUBLE_EQ(StdDev(std::vector<double>{2, 4, 9}), std::sqrt(13.0));
  EXPECT_EQ(StdDev(std::vector<double>{7}), 0);
  EXPECT_THROW(Mean({}), Fault);
}

TEST(Jacobi, SolvesAndSortsDescendingWithTheLaterOfEqualsFirst) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> uniform(-1, 1);
  for (int round = 0; round < 200; ++round) {
    Matrix<3, 3> A;
    for (int i = 1; i <= 3; ++i)
      for (int j = i; j <= 3; ++j) A(i, j) = A(j, i) = uniform(random);
    Matrix<3, 3> copy = A, V;
    Vector<3> D;
    Jacobi(copy, D, V);
    EXPECT_TRUE(D[1] >= D[2] && D[2] >= D[3]);
    for (int i = 1; i <= 3; ++i)
      for (int j = 1; j <= 3; ++j) {
        double sum = 0;
        for (int k = 1; k <= 3; ++k) sum += V(i, k) * D[k] * V(j, k);
        EXPECT_NEAR(sum, A(i, j), 1e-14);
      }
  }
  Matrix<3, 3> diagonal{1, 0, 0, 0, 3, 0, 0, 0, 3}, V;
  Vector<3> D;
  Jacobi(diagonal, D, V);
  EXPECT_EQ(D, (Vector<3>{3, 3, 1}));
  EXPECT_EQ(V(3, 1), 1);
  EXPECT_EQ(V(2, 2), 1);
}

TEST(BootQuantiles, TakesTheNextValueOrTheMeanOfTwo) {
  std::vector<Vector<3>> eig(500);
  for (int i = 0; i < 500; ++i) eig[static_cast<std::size_t>(i)] = {500.0 - i, 1.0 + i, 7};
  EXPECT_EQ(BootQuantiles(eig).Lower, (Array1<double, 3>{13, 13, 7}));
  EXPECT_EQ(BootQuantiles(eig).Upper, (Array1<double, 3>{488, 488, 7}));
  eig.resize(40);  // 1 and 39 are whole: 461 to 500 falling, 1 to 40 rising
  EXPECT_EQ(BootQuantiles(eig).Lower[2], 1.5);
  EXPECT_EQ(BootQuantiles(eig).Upper[2], 39.5);
}

/// Semi-axes in degrees, and the 95 % interval of P.
struct Simulated {
  Array1<Array1<double, 2>, 3> Axes;
  Interval P;
};

/// By a plain simulation: other generator, other eigen solver, many replicates.
Simulated Simulate(const std::vector<TensorColumn>& tensors, BootMethod method) {
  Matrix<3, 3> back;  // into the frame of the mean axes, whatever their signs
  Transpose(StatsOf(tensors).MeanVec, back);
  const std::vector<TensorColumn> local = Turned(tensors, back);
  TensorColumn m, sd;
  const double n = static_cast<double>(local.size());
  for (int c = 1; c <= 6; ++c) {
    for (const TensorColumn& t : local) m[c] += t[c] / n;
    for (const TensorColumn& t : local) sd[c] += (t[c] - m[c]) * (t[c] - m[c]) / (n - 1);
    sd[c] = std::sqrt(sd[c]);
  }
  std::mt19937_64 random(42);
  std::normal_distribution<double> normal;
  std::uniform_int_distribution<std::size_t> place(0, local.size() - 1);
  constexpr int B = 20000;
  Array1<Array1<double, 3>, 3> square;  // of component a of vector k
  Array1<double, 3> along;
  std::vector<double> P;
  for (int b = 0; b < B; ++b) {
    TensorColumn t;
    if (method == BootMethod::Simple)
      for (std::size_t i = 0; i < local.size(); ++i) {
        const TensorColumn& drawn = local[place(random)];
        for (int c = 1; c <= 6; ++c) t[c] += drawn[c] / n;
      }
    else
      for (int c = 1; c <= 6; ++c) t[c] = m[c] + sd[c] * normal(random) / std::sqrt(n);
    const TensorStats one = StatsOf(std::span(&t, 1));
    P.push_back(one.MeanK[1] / one.MeanK[3]);
    for (int k = 1; k <= 3; ++k) {
      along[k] += std::fabs(one.MeanVec(k, k)) / B;
      for (int a = 1; a <= 3; ++a) square[k][a] += one.MeanVec(a, k) * one.MeanVec(a, k) / B;
    }
  }
  const auto axis = [&](int k, int a) {
    return DegPerRad * std::asin(std::min(1.0, std::sqrt(5.9914645464 * square[k][a]) / along[k]));
  };
  Simulated simulated;
  for (int k = 1; k <= 3; ++k)
    simulated.Axes[k] = {axis(k, k == 2 ? 1 : 2), axis(k, k == 3 ? 1 : 3)};
  std::sort(P.begin(), P.end());
  simulated.P = {P[B / 40], P[B - B / 40]};
  return simulated;
}

TEST(BootStrap, AgreesWithAPlainSimulation) {
  // Three distinct values with moderate scatter, so that no region wraps round the net.
  std::vector<TensorColumn> tensors(20, {1.10, 1.00, 0.90, 0.02, -0.03, 0.01});
  std::mt19937 random(7);
  std::normal_distribution<double> normal(0, 0.01);
  for (TensorColumn& t : tensors)
    for (double& c : t) c += normal(random);
  for (const BootChoice& choice :
       {BootChoice{}, BootChoice{BootMethod::Parametric, 500, 1},
        BootChoice{BootMethod::Simple, 500, {}}, BootChoice{BootMethod::Simple, 500, 1}}) {
    GroupStats stats;
    GroupStatistics(RecordsOf(tensors), Geographic, InPhase, Settings().FacIndex, GaussNumbers(),
                    stats, choice);
    const auto [axes, P] = Simulate(tensors, choice.Method);
    // 500 replicates know a deviation to 1 / sqrt(1000), 3.2 %; four times that is allowed. The
    // outer points of a sample scatter more than its deviation.
    for (int k = 1; k <= 3; ++k) {
      EXPECT_NEAR(stats.BootE1[k] / axes[k][1], 1, 0.13) << k;
      EXPECT_NEAR(stats.BootE2[k] / axes[k][2], 1, 0.13) << k;
    }
    const Interval found = stats.BootFactors[3].value_or(Interval());
    EXPECT_NEAR(found.Lower, P.Lower, (P.Upper - P.Lower) / 8);
    EXPECT_NEAR(found.Upper, P.Upper, (P.Upper - P.Lower) / 8);
    // 95 % of the replicates lie within the contour, by the same sampling error.
    int inside = 0;
    for (const ShortDirection& p : stats.BootPoints[3])
      if (AxisAngle({p.Dec, p.Inc}, MeanOf(stats, 3)) <= std::max(stats.BootE1[3], stats.BootE2[3]))
        ++inside;
    EXPECT_GT(inside, 460);
  }
}

TEST(GroupStatistics, ARegionOverTheWholeNetHasASemiAxisOf90) {
  // With such scatter the ends of an axis lie opposite each other, here near the vertical, where
  // the product of their unit vectors is rounded beyond -1.
  const struct {
    std::vector<TensorColumn> Group;
    int k;
  } cases[] = {
      {{{-2, 2, -3, -2, 0, 0.3}, {-3, -2, 1, -1, 0.2, -0.2}}, 3},
      {{{1, 0, 3, 3, -0.2, -0.3}, {0, 0, -3, -1, 0.3, 0.3}}, 3},
      {{{-3, 2, -1, -3, -0.2, 0.3}, {-3, -3, -1, -2, -0.2, -0.2}}, 1},
      {{{-2, -2, 1, -3, 0.1, 0.3}, {0, 3, -3, 3, 0, -0.3}}, 2},
  };
  for (const auto& c : cases) {
    GroupStats stats;
    RunOn(RecordsOf(c.Group), stats);
    EXPECT_NEAR(std::max(stats.BootE1[c.k], stats.BootE2[c.k]), 90, 1e-4) << &c - cases;
  }
}

TEST(GroupStatistics, TakesWhatTheViewShowsAndLeavesFailedFactorsOut) {
  RecordArray records = RecordsOf(Jelinek1978);
  records[1].Active = false;
  records[2].CoorLevel = Specimen;
  records[3].Fac[1] = Factor::Failed();
  GroupStats stats;
  RunOn(records, stats);
  EXPECT_EQ(stats.GroupN, 6);
  EXPECT_EQ(stats.Reached, GroupStats::All);
  EXPECT_FLOAT_EQ(stats.AvgKm, 0.0055f);  // records 3 to 8
  EXPECT_FLOAT_EQ(stats.SdKm, std::sqrt(3.5f) * 0.001f);
  double L = 0;
  for (int i = 4; i <= 8; ++i) L += records[i].Fac[1].Value() / 5;
  EXPECT_FLOAT_EQ(stats.AvgFac[1], static_cast<float>(L));
  EXPECT_NEAR(stats.MeanFac[3].Value(), stats.MeanK[1] / stats.MeanK[3], 1e-6);

  RunOn(RecordsOf({{1, 1, 1e-40, 0, 0, 0}}), stats);
  EXPECT_EQ(stats.MeanFac[3],
            Factor::Failed());  // P = 1E40 leaves the 32-bit range: failed, as in a record
}

TEST(GroupStatistics, FailsAtTheDivisionAndTellsHowFarItCame) {
  GroupStats copies, equal;
  EXPECT_THROW(RunOn(RecordsOf(FourCopies), copies), Fault);  // no scatter: the bootstrap fails
  EXPECT_EQ(copies.Reached, GroupStats::TensorErrors);
  EXPECT_EQ(copies.GroupN, 4);
  EXPECT_GT(copies.MeanK[1], 1);
  EXPECT_THROW(RunOn(RecordsOf(std::vector<TensorColumn>(5, {1, 1, 1, 0, 0, 0})), equal), Fault);
  EXPECT_EQ(equal.Reached, GroupStats::MeanTensor);
  EXPECT_EQ(equal.Errors, 0);
}

// The numbers are those of a second program, written in another language with its own logarithm. A
// change here changes every user's confidence regions from one version to the next.
TEST(GroupStatistics, NumbersThatAreNotFiniteOrTooLargeShowNoErrorsAndSayWhy) {
  const double nan = std::nan(""), inf = std::numeric_limits<double>::infinity();
  std::vector<TensorColumn> large = Jelinek1978, largest = FourCopies;
  for (TensorColumn& t : large)
    for (double& component : t) component *= 3e37;  // squares beyond 32 bits
  for (TensorColumn& t : largest) {
    for (double& component : t) component *= 3e38;
    t[4] = t[5] = t[6] = 2e38;  // beyond 32 bits when turned
  }
  largest[0][1] = 3.2e38;
  const auto with = [](std::vector<TensorColumn> tensors, std::size_t n, double number) {
    while (tensors.size() < n) tensors.push_back(tensors[tensors.size() % 8]);
    tensors.resize(n);
    tensors[n / 2][3] = number;
    return tensors;
  };
  const struct {
    std::vector<TensorColumn> Tensors;
    const char *Failure, *Words;
  } cases[] = {
      {with(Jelinek1978, 1, nan), NotFinite, NotFinite},
      {with(Jelinek1978, 4, inf), NotFinite, NotFinite},
      {with(Jelinek1978, 8, nan), NotFinite, NotFinite},
      {with(Jelinek1978, 101, -inf), NotFinite, NotFinite},
      {large, "Overflow", "a tensor's numbers are too large (Overflow)"},
      {largest, "Overflow", "a tensor's numbers are too large (Overflow)"},
  };
  for (const auto& [tensors, failure, words] : cases) {
    GroupStats stats;
    RunOn(RecordsOf(Jelinek1978), stats);  // what a run before left isn't shown
    try {
      RunOn(RecordsOf(tensors), stats);
      ADD_FAILURE() << failure << " of " << tensors.size();
    } catch (const Fault& fault) {
      EXPECT_STREQ(fault.what(), failure) << tensors.size();
      EXPECT_EQ(CauseOf(fault).Words, words);
    }
    for (const ErrorLevel level : {ErrorLevel::StandardError, ErrorLevel::Confidence95})
      for (int k = 1; k <= 3; ++k) EXPECT_FALSE(ErrorsOf(stats, level, k)) << tensors.size();
    EXPECT_FALSE(HasBootstrap(stats));
    EXPECT_EQ(std::isnan(stats.MeanK[1]), failure == NotFinite);
  }
}

TEST(GaussRandom, TableIsTheSameOnEveryMachine) {
  std::uint64_t hash = 14695981039346656037u;  // FNV-1a over the bits
  for (float x : GaussNumbers()) hash = (hash ^ std::bit_cast<std::uint32_t>(x)) * 1099511628211u;
  EXPECT_EQ(hash, 18006020579504441603u);
}

// The generator's published numbers, and those of a second program in another language.
TEST(NumberSource, GivesTheSameNumbersOnEveryMachine) {
  SeededBits bits(0);
  for (const std::uint64_t is : {0x99ec5f36cb75f2b4u, 0xbf6e1f784956452au, 0x1a5f849d4933e6e0u})
    EXPECT_EQ(bits(), is);
  std::vector<float> numbers(4);
  NumberSource(42).FillGauss(numbers);
  EXPECT_EQ(numbers, (std::vector<float>{-0.7262189984321594f, 0.2216227501630783f,
                                         0.46417737007141113f, 1.4762495756149292f}));
  NumberSource places(42);
  for (const std::size_t is : {2, 1, 5, 4, 4, 1, 2, 0}) EXPECT_EQ(places.Place(7), is);
}

TEST(NumberSource, ReadsATableOnFromItsStart) {
  const std::vector<float> table = {-9, 0.1f, 9};
  std::vector<float> numbers(7);
  NumberSource source(table);
  source.FillGauss(numbers);
  EXPECT_EQ(numbers, (std::vector<float>{-9, 0.1f, 9, -9, 0.1f, 9, -9}));
  for (const std::size_t is : {2, 3, 0, 2}) EXPECT_EQ(source.Place(4), is);
  EXPECT_THROW(NumberSource(std::span<const float>()), Fault);
}

TEST(GaussRandom, FillYieldsNowAndThenAndStartsAnewEachTime) {
  std::vector<float> table(10, 1.0f);
  int yields = 0;
  FillGaussTable(table, [&yields] { ++yields; });
  EXPECT_TRUE(yields >= 20 && yields <= 1000) << yields;
  EXPECT_TRUE(table == GaussNumbers());
}

}  // namespace
}  // namespace velorix
