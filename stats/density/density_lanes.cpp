#include "stats/density/density_lanes.h"

#ifdef VELORIX_LANES

#if defined(__GNUC__) && !defined(__clang__)
// This compiler's own header leaves values unset on purpose and warns of it.
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include <immintrin.h>

#include <algorithm>

namespace velorix {

// Products and sums of the cosine are written out one by one: fused they would round otherwise. The
// exponential may be fused, its last bits don't count.

[[gnu::target("avx2,fma")]] void SumLanes4(const float* x, const float* y, const float* z,
                                           const UnitVectors& data, float smooth, float* sums) {
  const __m256 nx = _mm256_loadu_ps(x), ny = _mm256_loadu_ps(y), nz = _mm256_loadu_ps(z);
  const __m256 s = _mm256_set1_ps(smooth);
  const __m256d log2E = _mm256_set1_pd(Log2E), whole = _mm256_set1_pd(Whole),
                one = _mm256_set1_pd(1);
  const __m256i half = _mm256_set1_epi64x(static_cast<long long>(Half)),
                kept = _mm256_set1_epi64x(static_cast<long long>(Kept));
  const __m256i range = _mm256_set1_epi32(static_cast<int>(NearRange));
  const __m256i highWords = _mm256_set1_epi64x(static_cast<long long>(0xFFFF'FFFF'0000'0000u));
  __m256d sum[2] = {_mm256_setzero_pd(), _mm256_setzero_pd()};

  for (std::size_t begin = 0; begin < data.Size; begin += GroupSize) {
    const std::size_t end = std::min(begin + GroupSize, data.Size);
    const __m256d before[2] = {sum[0], sum[1]};
    __m256i least = _mm256_set1_epi32(-1);
    for (std::size_t d = begin; d < end; ++d) {
      const __m256 xx = _mm256_mul_ps(nx, _mm256_broadcast_ss(data.X + d));
      const __m256 yy = _mm256_mul_ps(ny, _mm256_broadcast_ss(data.Y + d));
      const __m256 zz = _mm256_mul_ps(nz, _mm256_broadcast_ss(data.Z + d));
      const __m256 c = _mm256_add_ps(_mm256_add_ps(xx, yy), zz);
      const __m256 a = _mm256_mul_ps(_mm256_mul_ps(s, c), c);
      const __m256d halves[2] = {_mm256_cvtps_pd(_mm256_castps256_ps128(a)),
                                 _mm256_cvtps_pd(_mm256_extractf128_ps(a, 1))};
      for (int h = 0; h < 2; ++h) {
        const __m256d m = _mm256_fmadd_pd(halves[h], log2E, whole);
        const __m256d f = _mm256_fmsub_pd(halves[h], log2E, _mm256_sub_pd(m, whole));
        __m256d p = _mm256_set1_pd(P[8]);
        for (int i = 7; i >= 0; --i) p = _mm256_fmadd_pd(p, f, _mm256_set1_pd(P[i]));
        p = _mm256_fmadd_pd(p, f, one);
        const __m256i power = _mm256_slli_epi64(_mm256_castpd_si256(m), 52);
        const __m256d e = _mm256_castsi256_pd(_mm256_add_epi64(_mm256_castpd_si256(p), power));
        const __m256d wide = _mm256_add_pd(sum[h], e);
        const __m256i up = _mm256_add_epi64(_mm256_castpd_si256(wide), half);
        least = _mm256_min_epu32(least, _mm256_slli_epi32(up, NearShift));
        sum[h] = _mm256_castsi256_pd(_mm256_and_si256(up, kept));
      }
    }
    least = _mm256_or_si256(least, highWords);
    const __m256i near = _mm256_cmpeq_epi32(_mm256_min_epu32(least, range), least);
    if (_mm256_movemask_epi8(near) != 0) {
      float again[Lanes4Nodes];
      for (int h = 0; h < 2; ++h) _mm_storeu_ps(again + 4 * h, _mm256_cvtpd_ps(before[h]));
      AddPlain(x, y, z, Lanes4Nodes, data, begin, end, smooth, again);
      for (int h = 0; h < 2; ++h) sum[h] = _mm256_cvtps_pd(_mm_loadu_ps(again + 4 * h));
    }
  }
  for (int h = 0; h < 2; ++h) _mm_storeu_ps(sums + 4 * h, _mm256_cvtpd_ps(sum[h]));
}

[[gnu::target("avx512f")]] void SumLanes8(const float* x, const float* y, const float* z,
                                          const UnitVectors& data, float smooth, float* sums) {
  const __m512 nx = _mm512_loadu_ps(x), ny = _mm512_loadu_ps(y), nz = _mm512_loadu_ps(z);
  const __m512 s = _mm512_set1_ps(smooth);
  const __m512d log2E = _mm512_set1_pd(Log2E), whole = _mm512_set1_pd(Whole),
                one = _mm512_set1_pd(1);
  const __m512i half = _mm512_set1_epi64(static_cast<long long>(Half)),
                kept = _mm512_set1_epi64(static_cast<long long>(Kept));
  const __m512i range = _mm512_set1_epi32(static_cast<int>(NearRange));
  constexpr __mmask16 LowWords = 0x5555;
  __m512d sum[2] = {_mm512_setzero_pd(), _mm512_setzero_pd()};

  for (std::size_t begin = 0; begin < data.Size; begin += GroupSize) {
    const std::size_t end = std::min(begin + GroupSize, data.Size);
    const __m512d before[2] = {sum[0], sum[1]};
    __m512i least = _mm512_set1_epi32(-1);
    for (std::size_t d = begin; d < end; ++d) {
      const __m512 xx = _mm512_mul_ps(nx, _mm512_set1_ps(data.X[d]));
      const __m512 yy = _mm512_mul_ps(ny, _mm512_set1_ps(data.Y[d]));
      const __m512 zz = _mm512_mul_ps(nz, _mm512_set1_ps(data.Z[d]));
      const __m512 c = _mm512_add_ps(_mm512_add_ps(xx, yy), zz);
      const __m512 a = _mm512_mul_ps(_mm512_mul_ps(s, c), c);
      const __m256 upper = _mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(a), 1));
      const __m512d halves[2] = {_mm512_cvtps_pd(_mm512_castps512_ps256(a)),
                                 _mm512_cvtps_pd(upper)};
      for (int h = 0; h < 2; ++h) {
        const __m512d k = _mm512_sub_pd(_mm512_fmadd_pd(halves[h], log2E, whole), whole);
        const __m512d f = _mm512_fmsub_pd(halves[h], log2E, k);
        __m512d p = _mm512_set1_pd(P[8]);
        for (int i = 7; i >= 0; --i) p = _mm512_fmadd_pd(p, f, _mm512_set1_pd(P[i]));
        p = _mm512_fmadd_pd(p, f, one);
        const __m512d wide = _mm512_add_pd(sum[h], _mm512_scalef_pd(p, k));
        const __m512i up = _mm512_add_epi64(_mm512_castpd_si512(wide), half);
        least = _mm512_min_epu32(least, _mm512_slli_epi32(up, NearShift));
        sum[h] = _mm512_castsi512_pd(_mm512_and_epi64(up, kept));
      }
    }
    if (_mm512_mask_cmple_epu32_mask(LowWords, least, range) != 0) {
      float again[Lanes8Nodes];
      for (int h = 0; h < 2; ++h) _mm256_storeu_ps(again + 8 * h, _mm512_cvtpd_ps(before[h]));
      AddPlain(x, y, z, Lanes8Nodes, data, begin, end, smooth, again);
      for (int h = 0; h < 2; ++h) sum[h] = _mm512_cvtps_pd(_mm256_loadu_ps(again + 8 * h));
    }
  }
  for (int h = 0; h < 2; ++h) _mm256_storeu_ps(sums + 8 * h, _mm512_cvtpd_ps(sum[h]));
}

}  // namespace velorix

#endif
