#include "stats/density/density.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>

#include "base/fault.h"
#include "base/on_threads.h"
#include "base/rounding.h"
#include "base/timer.h"
#include "stats/density/density_sums.h"

namespace velorix {
namespace {

constexpr double MostSum = std::numeric_limits<float>::max();

/// The computed nodes of all rows, packed: their places in the grid and their vectors.
struct ComputedNodes {
  std::vector<std::size_t> Place;
  std::vector<float> X, Y, Z;
  std::vector<std::size_t> RowEnd;  // where each row of nodes ends

  explicit ComputedNodes(const ContourGrid& grid) {
    for (int j = grid.First; j <= grid.Last; j += ContourSpacing) {
      for (int i = grid.First; i <= grid.Last; i += ContourSpacing) {
        const std::size_t node = static_cast<std::size_t>(grid.Index(i, j));
        if (!grid.Inside[node]) continue;
        Place.push_back(node);
        X.push_back(grid.X[node]);
        Y.push_back(grid.Y[node]);
        Z.push_back(grid.Z[node]);
      }
      RowEnd.push_back(Place.size());
    }
  }

  UnitVectors Row(std::size_t row) const {
    const std::size_t begin = row == 0 ? 0 : RowEnd[row - 1];
    return {X.data() + begin, Y.data() + begin, Z.data() + begin, RowEnd[row] - begin};
  }
};

int ThreadsOf(int threads, std::size_t terms) {
  constexpr std::size_t WorthAThread = 200'000;  // a thread starts in the time of some thousands
  if (threads <= 0) threads = static_cast<int>(std::thread::hardware_concurrency());
  return std::clamp(static_cast<int>(terms / WorthAThread), 1, std::clamp(threads, 1, 64));
}

/// Fills the two nodes between computed neighbours of a line of nodes, `stride` apart, by straight
/// lines. A value of exactly 0 stands for a node that lies outside: its neighbour's value is taken.
void FillBetween(float* line, int count, int stride) {
  for (int k = 0; k + ContourSpacing < count; k += ContourSpacing) {
    float* const from = line + k * stride;
    double y0 = from[0], y1 = from[ContourSpacing * stride];
    if (y0 == 0) y0 = y1;
    if (y1 == 0) y1 = y0;
    for (int step = 1; step < ContourSpacing; ++step)
      from[step * stride] = static_cast<float>(y0 + (y1 - y0) * step / ContourSpacing);
  }
}

/// Nodes outside the circle take part as ends of lines only where a row's line has reached them.
void FillAll(std::vector<float>& density, int side) {
  for (int j = 0; j < side; j += ContourSpacing) FillBetween(density.data() + j * side, side, 1);
  for (int i = 0; i < side; ++i) FillBetween(density.data() + i, side, side);
}

/// The sums of all computed nodes, row by row on several threads; false when the caller stopped it.
bool SumsOf(const ComputedNodes& nodes, const ContourData& data, std::int16_t smooth,
            std::vector<float>& sums, const CountProgress& progress, int threads) {
  sums.resize(nodes.Place.size());
  threads = ThreadsOf(threads, nodes.Place.size() * data.X.size());
  const UnitVectors of{data.X.data(), data.Y.data(), data.Z.data(), data.X.size()};
  const auto sumRow = [&](std::size_t row) {
    const UnitVectors line = nodes.Row(row);
    SumDensity(line, of, smooth, sums.data() + (line.X - nodes.X.data()));
    return line.Size;
  };
  const auto goOn = [&](std::size_t done) {
    return !progress || progress(static_cast<double>(done) / static_cast<double>(sums.size()));
  };
  if (!OnThreads(nodes.RowEnd.size(), static_cast<std::size_t>(threads), sumRow, goOn))
    return false;
  return threads == 1 || !progress || progress(1);
}

bool AllFinite(const std::vector<float>& sums) {
  return std::all_of(sums.begin(), sums.end(), [](float sum) { return std::isfinite(sum); });
}

}  // namespace

void ContourData::Add(double dec, double inc) {
  if (Dec.size() >= 32767) FailOverflow();
  const double d = dec / DegPerRad, i = inc / DegPerRad;
  Dec.push_back(static_cast<float>(dec));
  Inc.push_back(static_cast<float>(inc));
  X.push_back(static_cast<float>(std::cos(i) * std::cos(d)));
  Y.push_back(static_cast<float>(std::cos(i) * std::sin(d)));
  Z.push_back(static_cast<float>(std::sin(i)));
}

bool CountDensity(ContourGrid& grid, const ContourData& data, std::int16_t smooth,
                  DensityCount& count, const CountProgress& progress, int threads) {
  if (data.Dec.empty()) return false;
  const float start = Timer();
  const ComputedNodes nodes(grid);
  if (nodes.Place.empty()) return false;
  std::vector<float> sums;
  if (!SumsOf(nodes, data, smooth, sums, progress, threads)) return false;
  if (!AllFinite(sums)) FailOverflow();

  DensityCount result;
  result.ContourDataCount = data.Count();
  result.ContourNodeCount = static_cast<std::int32_t>(sums.size());
  std::vector<float> density(grid.Density.size());
  double total = 0;
  for (std::size_t n = 0; n < sums.size(); ++n) {
    density[nodes.Place[n]] = sums[n];
    total += sums[n];
  }
  FillAll(density, grid.Side());

  const double mean = total / result.ContourNodeCount;
  if (mean == 0) FailDivision();  // every term below the least number, by a smoothing far below 0
  result.ContourMin = std::numeric_limits<float>::max();
  for (std::size_t n = 0; n < density.size(); ++n) {
    if (!grid.Inside[n]) {
      density[n] = 0;
      continue;
    }
    density[n] = static_cast<float>(density[n] / mean);
    result.ContourMin = std::min(result.ContourMin, density[n]);
    if (density[n] > result.ContourMax) {
      result.ContourMax = density[n];
      result.MaxNode = n;
    }
  }
  grid.Density = std::move(density);
  result.Seconds = Elapsed(start);
  count = result;
  return true;
}

bool DensityFits(const ContourGrid& grid, const ContourData& data, std::int16_t smooth) {
  // Rounding may carry a cosine a little beyond 1; a share of a millionth covers it.
  const double most = static_cast<double>(data.X.size()) * std::exp(smooth * 1.000001);
  if (most < MostSum) return true;
  std::vector<float> sums;
  SumsOf(ComputedNodes(grid), data, smooth, sums, {}, 0);
  return AllFinite(sums);
}

ContourLevels LevelsOf(float contourMax) {
  ContourLevels levels;
  const double M = contourMax;
  int top = 0;  // index of the top level
  if (M >= 10) {
    // Kept for agreement with published results: the last one that passes.
    for (int d = 1; d <= 14; ++d) {
      const std::int16_t q = ToShort(std::floor(M / d));
      const float r = static_cast<float>(M - (d * q + 1));
      if (r >= 0 && r <= q) {
        top = d;
        levels.Step = q;
      }
    }
  } else {
    top = std::max(ToShort(std::floor(M)) - 1, 0);
  }
  for (int i = 0; i <= top; ++i) levels.Values.push_back(ToShort(i * levels.Step + 1));
  return levels;
}

}  // namespace velorix
