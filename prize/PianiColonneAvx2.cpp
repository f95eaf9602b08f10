// The archive check's count on four blocks of planes at once. The blocks of a run are first laid
// out plane by plane, so that one 256-bit load takes a plane's word of four blocks; the vertical
// counters, the masks of each count of hits and the popcounts then work on four blocks at a time.
#include "prize/PianiColonne.h"

#include <cassert>
#include <cstring>

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>
#define DV_PIANI_AVX2 1
#endif

namespace dv {

bool ConAvx2() {
#ifdef DV_PIANI_AVX2
    static const bool si = __builtin_cpu_supports("avx2");
    return si;
#else
    return false;
#endif
}

void BlocchiTrasposti::carica(const PianiColonne& p, int32_t b0, int32_t b1) {
    assert(b0 >= 0 && b1 >= b0 && b1 - b0 <= MaxBlocchi && b1 <= p.blocchi());
    m_b0 = b0;
    m_b1 = b1;
    // The planes and the word of the ordinary columns; the words past b1 stay 0, no column.
    const size_t parole = static_cast<size_t>(p.numeri()) + 1;
    m_parole.assign(parole * MaxBlocchi, 0);
    for (int32_t b = b0; b < b1; ++b) {
        const uint64_t* w = p.blocco(b);
        for (size_t u = 0; u < parole; ++u)
            m_parole[u * MaxBlocchi + static_cast<size_t>(b - b0)] = w[u];
    }
}

#ifdef DV_PIANI_AVX2
namespace {

// The popcount of each byte of x, added to acc: a byte of acc holds at most 255, so it takes at
// most 31 additions of a full byte before it is summed up.
__attribute__((target("avx2"))) inline __m256i AggiungiBit(__m256i acc, __m256i x) {
    const __m256i tabella = _mm256_setr_epi8(0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4, 0, 1, 1, 2, 1, 2,
                                             2, 3, 1, 2, 2, 3, 2, 3, 3, 4);
    const __m256i basso = _mm256_set1_epi8(0x0f);
    const __m256i a = _mm256_shuffle_epi8(tabella, _mm256_and_si256(x, basso));
    const __m256i b = _mm256_shuffle_epi8(tabella, _mm256_and_si256(_mm256_srli_epi16(x, 4), basso));
    return _mm256_add_epi8(acc, _mm256_add_epi8(a, b));
}

// Four blocks' words of a plane.
__attribute__((target("avx2"))) inline __m256i carica(const uint64_t* w, int32_t v) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(w + 4 * v));
}

// The sum of the bytes of acc.
__attribute__((target("avx2"))) inline int32_t SommaByte(__m256i acc) {
    const __m256i s = _mm256_sad_epu8(acc, _mm256_setzero_si256());
    return static_cast<int32_t>(_mm256_extract_epi64(s, 0) + _mm256_extract_epi64(s, 1) +
                                _mm256_extract_epi64(s, 2) + _mm256_extract_epi64(s, 3));
}

template <int Bits>
__attribute__((target("avx2"))) void ContaTrasposti(const PianiColonne& p, const BlocchiTrasposti& t,
                                                    const EstrazionePiani& e, SommeClassi& s) {
    const int hMax = std::min(e.n, p.len());
    const bool conOro = e.pianoOro >= 0 || e.pianoDoppio >= 0;
    const int32_t vettori = (t.b1() - t.b0() + 3) / 4;
    // Per count of hits: all the columns, those with the Numero Oro, the Doppio Oro, both; as
    // bytes, each at most 8 per vector, so the at most 16 vectors of a run never overflow.
    static_assert(BlocchiTrasposti::MaxBlocchi / 4 * 8 <= 255);
    __m256i acc[11][4];
    for (auto& a : acc)
        for (__m256i& x : a)
            x = _mm256_setzero_si256();
    const uint64_t* sel0 = t.piano(p.numeri());
    const uint64_t* oro = e.pianoOro >= 0 ? t.piano(e.pianoOro) : nullptr;
    const uint64_t* doppio = e.pianoDoppio >= 0 ? t.piano(e.pianoDoppio) : nullptr;
    for (int32_t v = 0; v < vettori; ++v) {
        // 1. The hits of 256 columns in vertical counters, bit k of a count in c[k].
        __m256i c[Bits + 1];
        for (__m256i& x : c)
            x = _mm256_setzero_si256();
        for (int i = 0; i < e.n; ++i) {
            __m256i carry = carica(t.piano(e.piani[static_cast<size_t>(i)]), v);
            for (int k = 0; k < Bits; ++k) {
                const __m256i x = _mm256_and_si256(c[k], carry);
                c[k] = _mm256_xor_si256(c[k], carry);
                carry = x;
            }
        }
        // 2. The columns of each count, and those of them holding the Oro numbers.
        const __m256i sel = carica(sel0, v);
        const __m256i a1 = oro ? carica(oro, v) : _mm256_setzero_si256();
        const __m256i a2 = doppio ? carica(doppio, v) : _mm256_setzero_si256();
        const __m256i a12 = _mm256_and_si256(a1, a2);
        for (int h = 0; h <= hMax; ++h) {
            __m256i eq = sel;
            for (int k = 0; k < Bits; ++k)
                eq = ((h >> k) & 1) ? _mm256_and_si256(eq, c[k]) : _mm256_andnot_si256(c[k], eq);
            __m256i* a = acc[h];
            a[0] = AggiungiBit(a[0], eq);
            if (!conOro) continue;
            a[1] = AggiungiBit(a[1], _mm256_and_si256(eq, a1));
            a[2] = AggiungiBit(a[2], _mm256_and_si256(eq, a2));
            a[3] = AggiungiBit(a[3], _mm256_and_si256(eq, a12));
        }
    }
    for (int h = 0; h <= hMax; ++h) {
        const size_t i = static_cast<size_t>(h);
        s.tutte[i] += SommaByte(acc[h][0]);
        if (!conOro) continue;
        s.oro1[i] += SommaByte(acc[h][1]);
        s.oro2[i] += SommaByte(acc[h][2]);
        s.entrambi[i] += SommaByte(acc[h][3]);
    }
    // 3. Columns that hold a number twice, one position at a time.
    ContaSpeciali(p, t.b0(), t.b1(), e, s);
}

} // namespace
#endif

void ContaTrasposti(const PianiColonne& p, const BlocchiTrasposti& t, const EstrazionePiani& e,
                    SommeClassi& s) {
    if (t.b1() <= t.b0()) return;
#ifdef DV_PIANI_AVX2
    switch (std::bit_width(static_cast<unsigned>(e.n))) {
    case 0:
        return ContaTrasposti<0>(p, t, e, s);
    case 1:
        return ContaTrasposti<1>(p, t, e, s);
    case 2:
        return ContaTrasposti<2>(p, t, e, s);
    case 3:
        return ContaTrasposti<3>(p, t, e, s);
    case 4:
        return ContaTrasposti<4>(p, t, e, s);
    default:
        return ContaTrasposti<5>(p, t, e, s);
    }
#else
    ContaBlocchi(p, t.b0(), t.b1(), e, s);
#endif
}

} // namespace dv
