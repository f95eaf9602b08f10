// Sets of up to 128 small integers as two 64-bit words, exact counts of combinations, and the
// binomial table the walk and the subset ranks are built on.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cstdint>

namespace dv::engine {

// A set of integers 0..127: bit i of the pair (lo holds 0..63, hi 64..127).
struct Mask {
    uint64_t lo = 0;
    uint64_t hi = 0;

    static Mask bit(int i) {
        assert(i >= 0 && i < 128);
        return i < 64 ? Mask{uint64_t{1} << i, 0} : Mask{0, uint64_t{1} << (i - 64)};
    }
    // The integers 0..k-1, k clamped to 0..128.
    static Mask below(int k);
    // The integers from..to within 0..127 (none when from > to).
    static Mask range(int from, int to) { return below(to + 1) - below(from); }
    bool has(int i) const { return ((i < 64 ? lo >> i : hi >> (i - 64)) & 1u) != 0; }
    bool any() const { return (lo | hi) != 0; }
    Mask& operator|=(Mask o) {
        lo |= o.lo;
        hi |= o.hi;
        return *this;
    }
    // The members above `from`, moved down by from+1 (member from+1 becomes 0).
    Mask above(int from) const {
        const int sh = from + 1;
        if (sh >= 128) return {};
        if (sh >= 64) return {hi >> (sh - 64), 0};
        if (sh == 0) return *this;
        return {(lo >> sh) | (hi << (64 - sh)), hi >> sh};
    }
    // The inverse of above(): members moved up by from+1.
    static Mask placedAbove(uint64_t bits, int from) {
        const int sh = from + 1;
        if (sh >= 128) return {};
        if (sh >= 64) return {0, bits << (sh - 64)};
        if (sh == 0) return {bits, 0};
        return {bits << sh, bits >> (64 - sh)};
    }
    // The members moved up by k, 0 <= k < 128; those pushed past 127 are dropped.
    Mask shiftedUp(int k) const {
        assert(k >= 0 && k < 128);
        if (k == 0) return *this;
        if (k >= 64) return {0, lo << (k - 64)};
        return {lo << k, (hi << k) | (lo >> (64 - k))};
    }
    friend Mask operator&(Mask a, Mask b) { return {a.lo & b.lo, a.hi & b.hi}; }
    friend Mask operator|(Mask a, Mask b) { return {a.lo | b.lo, a.hi | b.hi}; }
    // The members of a that are not in b.
    friend Mask operator-(Mask a, Mask b) { return {a.lo & ~b.lo, a.hi & ~b.hi}; }
    friend bool operator==(Mask a, Mask b) { return a.lo == b.lo && a.hi == b.hi; }
    friend bool operator<(Mask a, Mask b) { return a.hi != b.hi ? a.hi < b.hi : a.lo < b.lo; }
};

namespace detail {
// below(k) for k = 0..128, so that the walk's ranges cost no branch.
struct BelowTable {
    std::array<Mask, 129> m{};
    constexpr BelowTable() {
        for (int k = 0; k <= 128; ++k)
            m[static_cast<size_t>(k)] = k < 64    ? Mask{(uint64_t{1} << k) - 1, 0}
                                        : k < 128 ? Mask{~uint64_t{0}, (uint64_t{1} << (k - 64)) - 1}
                                                  : Mask{~uint64_t{0}, ~uint64_t{0}};
    }
};
inline constexpr BelowTable Below{};
} // namespace detail

inline Mask Mask::below(int k) {
    return detail::Below.m[static_cast<size_t>(std::clamp(k, 0, 128))];
}

// The number of common members: the count of shared numbers of two columns.
inline int Common(Mask a, Mask b) {
    return std::popcount(a.lo & b.lo) + std::popcount(a.hi & b.hi);
}
inline int Size(Mask a) {
    return std::popcount(a.lo) + std::popcount(a.hi);
}

// Counts of candidates: C(90, 25) exceeds 64 bits, so a walk that skips whole subtrees counts
// in 128 bits.
using Count = unsigned __int128;

constexpr int BinomialRows = 129; // n = 0..128
constexpr int BinomialCols = 27;  // k = 0..26

// Binomial(n, k) exactly, for n in 0..128 and k in 0..26 (0 when k > n).
struct BinomialTable {
    std::array<std::array<Count, BinomialCols>, BinomialRows> c{};
    constexpr BinomialTable() {
        for (int n = 0; n < BinomialRows; ++n) {
            c[n][0] = 1;
            for (int k = 1; k < BinomialCols; ++k)
                c[n][k] = n == 0 ? 0 : c[n - 1][k - 1] + c[n - 1][k];
        }
    }
};
inline constexpr BinomialTable Binomials{};

inline Count Binomial(int n, int k) {
    assert(n >= 0 && n < BinomialRows && k >= 0 && k < BinomialCols);
    return Binomials.c[static_cast<size_t>(n)][static_cast<size_t>(k)];
}

} // namespace dv::engine
