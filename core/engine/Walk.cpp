#include "core/engine/Walk.h"

#include "core/engine/Conditions.h"
#include "core/engine/Distances.h"
#include "core/engine/KeptIndex.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

// The walk counts the members of masks at every step; baseline x86-64 has no instruction for
// that and GCC would call a library routine instead. The engine's files are built for processors
// that have it (every x86-64 processor since 2008), and the walk asks for it here as well, so
// that it keeps the instruction in a build without those options.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
#define DV_WALK_POPCNT 1
#pragma GCC target("popcnt")
#endif

namespace dv::engine {
namespace {

constexpr int MaxN = 90;

// The state of the walk at one depth: what the prefix of that many numbers holds.
struct Level {
    Mask numbers; // the prefix's numbers
    Mask indices; // the same as indices of the forecast
    Mask barred;  // reduction: indices that cannot come next (shares t with a kept column)
    int sum = 0, even = 0, fixed = 0, runMax = 0, runTail = 0;
    int xorPass = 0;
    int childLimit = 0; // reduction: the last index (1-based) a next number can have
    bool orSatisfied = false;
    std::array<uint32_t, 3> open{}; // open groups of the AND, OR, XOR tables
    DistanceBounds::Gaps gaps;      // distance conditions: least and greatest gap per record
};

// The first index from `from` on that is not in m (128 when there is none).
inline int FirstFree(Mask m, int from) {
    if (from < 64) {
        const uint64_t free = ~m.lo & (~uint64_t{0} << from);
        if (free != 0) return std::countr_zero(free);
        from = 64;
    }
    const uint64_t free = from < 128 ? ~m.hi & (~uint64_t{0} << (from - 64)) : 0;
    return free != 0 ? 64 + std::countr_zero(free) : 128;
}

// The index of the k-th highest member of m (k >= 1), or -1 when m has fewer members.
inline int NthHighest(Mask m, int k) {
    if (m.hi == 0) { // forecasts of at most 64 numbers
        uint64_t w = m.lo;
        for (; k > 1 && w != 0; --k)
            w &= ~(uint64_t{1} << (63 - std::countl_zero(w)));
        return w != 0 ? 63 - std::countl_zero(w) : -1;
    }
    for (int half = 1; half >= 0; --half) {
        uint64_t w = half == 1 ? m.hi : m.lo;
        for (; w != 0; --k) {
            const int top = 63 - std::countl_zero(w);
            if (k == 1) return 64 * half + top;
            w &= ~(uint64_t{1} << top);
        }
    }
    return -1;
}

inline uint32_t RangeBits(int lo, int hi) {
    return lo > hi ? 0 : (uint32_t{2} << hi) - (uint32_t{1} << lo);
}

// A part of the tree for another thread: the subtree under a prefix of `depth` indices (1-based).
struct Part {
    std::array<uint8_t, MaxLenColonna> idx{};
    int depth = 0;
};

// What the walk of a part records for the thread that stores the columns: the kept columns in
// order, the candidates rejected before each of them, and those after the last.
struct PartResult {
    std::vector<uint8_t> columns;
    std::vector<Count> before;
    Count after = 0;
    bool failed = false;    // out of memory: the calling thread walks the part again
    bool truncated = false; // ended by a stop asked while it was walked
};

class IntegralWalk {
public:
    IntegralWalk(Corpo& c, const uint8_t* numeri, int n, RunProgress& progress);
    void run();
    // The walk can be split into parts walked by several threads: no reduction links the
    // columns, and the run is large enough.
    bool splittable() const;
    void runInParts(int threads);

private:
    // Whether a prefix can still pass; DeadOnward: neither can the later numbers at its depth;
    // DeadParity, DeadFixity: nor those that are even as its last number is, or fixed as it is
    // (the even count or the fixed numbers rule them out).
    enum class Fit { Fits, Dead, DeadOnward, DeadParity, DeadFixity };
    // The first index after j (1-based) that the walk at the same depth still has to try once
    // the prefix ending at j is found `fit` (not Fits nor Dead); beyond n when none.
    int nextToTry(Fit fit, int j) const {
        return fit == Fit::DeadParity   ? m_otherKind[0][static_cast<size_t>(j)]
               : fit == Fit::DeadFixity ? m_otherKind[1][static_cast<size_t>(j)]
                                        : MaxN + 1;
    }
    // The candidates under the numbers at indices j..to-1 at one depth, r numbers still to come
    // after each (their subtrees' sizes telescope).
    Count subtreesFrom(int j, int to, int r) const {
        return Binomial(m_n - j + 1, r + 1) - Binomial(m_n - to + 1, r + 1);
    }
    // Reduction: the first index from j on that the prefix p does not bar and that leaves enough
    // free numbers above it for the r still to come after it; n-r+1 when there is none.
    [[gnu::always_inline]] int nextFree(const Level& p, int j, int r) const {
        const int last = std::min(m_n - r, p.childLimit);
        const int a = j > last ? m_n - r + 1 : FirstFree(p.barred, j - 1) + 1;
        return a > last ? m_n - r + 1 : a;
    }
    Fit bounds(const Level& s, int start, int r) const;
    bool filters(Level& child, const Level& parent, int depth, int start, int r);
    Fit enter(int d, int j, int r);
    bool leaf(int& d, Mask indices, bool distancesPassed = false);
    bool plainLeaves(int& d);
    Mask lastNumbersAlone(const Level& p, int d) const;
    bool lastNumbers(int& d);
    bool lastTwoNumbers(int d);
    bool lastThreeNumbers(int d);
    // The least sum of k = 1 or 2 numbers after index j, the first of them at pair `pair` (after
    // the number at j): a number one above the one before it is passed over where nothing can
    // follow that way. Beyond any sum when there is no such choice.
    int leastAfter(int j, int pair, int k) const {
        int sum = 0;
        for (int q = 0; q < k; ++q, ++pair) {
            if (++j <= m_n && m_noFollow[static_cast<size_t>(pair)] &&
                m_value[static_cast<size_t>(j)] == m_value[static_cast<size_t>(j - 1)] + 1)
                ++j;
            if (j > m_n) return 1 << 20;
            sum += m_value[static_cast<size_t>(j)];
        }
        return sum;
    }
    // Few enough filter groups are open over the prefix s for lastThreeNumbers, which takes
    // every one of them at each next number; with many, the step of the walk drops those that
    // pass or fail on the way down.
    bool fewGroups(const Level& s) const {
        return s.open[0] + (s.orSatisfied ? 0 : s.open[1]) + s.open[2] <= 8;
    }
    // Calls fill(table, k, group, its hits among the prefix) for the k-th group still open over
    // the prefix of depth d, for every table; gives the count of them per table.
    template <typename Fill> std::array<uint32_t, 3> forOpenGroups(int d, Fill fill) const {
        const Level& p = m_level[static_cast<size_t>(d)];
        std::array<uint32_t, 3> groups{};
        for (size_t t = 0; t < 3; ++t) {
            const CompiledTable& table = *m_tables[t];
            if (table.satisfied || (t == 1 && p.orSatisfied)) continue;
            const uint32_t* open = &m_lists[t][static_cast<size_t>(d) * table.groups.size()];
            for (uint32_t k = 0; k < p.open[t]; ++k) {
                const FilterGroup& g = table.groups[open[k]];
                fill(t, k, g, Common(p.numbers, g.numbers));
            }
            groups[t] = p.open[t];
        }
        return groups;
    }
    bool xorHitsSuffice(const CompiledTable& table, const uint32_t* open, uint32_t count, Mask numbers,
                        Mask suffix, int r, int need) const;
    bool tablesOpen(const std::array<uint32_t, 3>& groups, bool orOpen, int xorPass, int v, int start);
    bool pairsUnder(int d, const std::array<uint32_t, 3>& groups, bool orOpen, int xorPass, Count pending);
    bool barredLevel(int d, int& at);
    template <int R> bool barredLevelOf(int d, int& at);
    Mask barredAfter(const Mask& barred, int d, int j, bool trim = true);
    Mask fixedAndEven(int fixed, int even) const;
    // fixedAndEven from the table built once per run.
    Mask fixedEven(int fixed, int even) const {
        return m_fixedEven[static_cast<size_t>(fixed) * (MaxLenColonna + 2) + static_cast<size_t>(even)];
    }
    bool keepAll();
    void fillTree(int p, int i, int64_t base, int64_t lo, int64_t hi, int32_t col0);
    bool unwind(int& d, int to);
    int childLimit(const Level& s, int d) const;
    // Whether a number one above the last of the prefix of depth d, as its next number, fails
    // every column: the distance conditions refuse a gap of 1 there, or the run grows too long.
    bool follows(int d) const {
        return m_noFollow[static_cast<size_t>(d)] || m_level[static_cast<size_t>(d)].runTail >= m_maxRun;
    }
    // Candidates rejected: to the run's progress, or to the part being walked.
    bool reject(Count n) {
        if (m_part == nullptr) return m_progress.reject(n);
        m_part->after += n;
        return partGoesOn();
    }
    // A part's walk waits during a pause and ends at a stop, or once the run has ended.
    bool partGoesOn() {
        const RunControl& ctl = m_progress.control();
        if (ctl.pauseRequested.load(std::memory_order_relaxed)) ctl.pauseRequested.wait(true);
        if (m_abort->load(std::memory_order_relaxed)) return false;
        if (ctl.StopElaborazione.load(std::memory_order_relaxed)) {
            m_part->truncated = true;
            return false;
        }
        return true;
    }
    bool initRoot();
    bool walkFrom(int base);
    void walkPart(const Part& part, PartResult& out, const std::atomic<bool>& abort);
    std::vector<Part> parts() const;
    bool replay(const PartResult& r);

    Corpo& m_c;
    RunProgress& m_progress;
    const uint8_t* m_numeri;
    PartResult* m_part = nullptr; // the part being walked, on a thread that stores nothing
    const std::atomic<bool>* m_abort = nullptr;
    int m_n, m_len;
    Mask m_universe;
    CompiledConditions m_cond;
    KeptIndex m_kept;
    bool m_barring;   // the reduction bars numbers through the extension table
    bool m_plain;     // no test on a column alone: a leaf asks only the reduction
    bool m_filtering; // some filter table has open groups
    bool m_ascending; // the forecast is in ascending order
    DistanceBounds m_distances;
    bool m_distanceBounds; // distance conditions bound the prefixes (ascending forecasts)
    bool m_lastAsSet;      // the last number of a candidate is chosen from a set of numbers
    // No reduction either: the last two numbers are chosen together under each prefix of len-2,
    // and with len 4 or more, the number before them in one loop under each prefix of len-3.
    bool m_lastTwo;
    bool m_lastThree;
    // A reduction alone: from depth t-1 on, where its kept columns start to bar numbers, the
    // walk takes only free numbers, level by level (barredLevel).
    bool m_barredLevels;

    // Per index 1..n of the forecast, and per suffix start 1..n+1.
    std::array<uint8_t, MaxN + 2> m_value{};
    std::array<uint8_t, MaxN + 2> m_isFixed{}, m_isEven{};
    // Per index 1..n: the next index whose number differs in parity [0], in being fixed [1].
    std::array<std::array<uint8_t, MaxN + 2>, 2> m_otherKind{};
    std::array<uint8_t, 128> m_indexOf{}; // number -> its index 1..n
    Mask m_evenNumbers;
    std::array<Mask, MaxN + 2> m_suffix{};
    std::array<Mask, MaxN + 2> m_from{}; // per index 0..n: the indices from it to n-1
    std::array<int, MaxN + 2> m_sufFixed{}, m_sufEven{};
    // Per count of numbers placed: how far the run at the end can still grow, and the longest
    // run the numbers still to come can form, as the distance conditions let gaps of 1 fall.
    std::array<int, MaxLenColonna + 1> m_runGrowth{}, m_runAhead{};
    // Per pair p (positions p and p+1): a number one above the one before it can never pass
    // there. With the longest run: the longest that can pass.
    std::array<bool, MaxLenColonna + 1> m_noFollow{};
    int m_maxRun = MaxLenColonna;
    // Ascending forecasts with a longest run under the column's length: per index 1..n+1 and
    // run t (0..m_maxRun) of chosen numbers ending just below it, the most numbers that indices
    // from it on can still take without a run longer than m_maxRun.
    bool m_roomBound = false;
    std::array<std::array<uint8_t, MaxLenColonna + 1>, MaxN + 2> m_room{};
    // Per index of an ascending forecast: how many of the next numbers each exceed the one
    // before by 1, and the most of that from the index on (any forecast: no limit).
    std::array<int, MaxN + 2> m_chain{}, m_chainAhead{};
    std::array<std::array<int, MaxLenColonna + 1>, MaxN + 2> m_minSum{}, m_maxSum{};
    // Per count of fixed and of even numbers among the others (0..len+1 each): fixedAndEven.
    std::array<Mask, (MaxLenColonna + 2) * (MaxLenColonna + 2)> m_fixedEven{};

    std::array<Level, MaxLenColonna + 1> m_level{};
    std::array<int, MaxLenColonna + 1> m_next{};
    std::array<uint8_t, MaxLenColonna> m_cand{}; // the numbers of the current prefix
    std::array<uint8_t, MaxLenColonna> m_idx{};  // their indices 0..n-1
    // Open groups per table and depth: m_lists[table][depth * groups + k].
    std::array<std::vector<uint32_t>, 3> m_lists;
    std::array<const CompiledTable*, 3> m_tables{};
    // The open groups of a prefix of len-2, each with the last numbers it lets pass when the
    // next number is outside the group, and when it is inside.
    struct PairGroup {
        Mask numbers, without, with;
        uint8_t weight;
    };
    std::array<std::vector<PairGroup>, 3> m_pairGroups;
    // The open groups of a prefix of len-3, each with the last numbers it lets pass when 0, 1 or
    // 2 of the two numbers before the last are inside it.
    struct TripleGroup {
        Mask numbers;
        std::array<Mask, 3> passes;
        uint32_t presenze;
        uint8_t hits; // among the prefix
        uint8_t weight;
    };
    std::array<std::vector<TripleGroup>, 3> m_tripleGroups;
    // Every candidate kept: the last m_tailLen numbers of all m_tailCount combinations of that
    // many numbers, in order, position by position.
    std::vector<uint8_t> m_tail;
    int m_tailLen = 0;
    int64_t m_tailCount = 0;
};

IntegralWalk::IntegralWalk(Corpo& c, const uint8_t* numeri, int n, RunProgress& progress)
    : m_c(c), m_progress(progress), m_numeri(numeri), m_n(n), m_len(c.LenColonna), m_universe([&] {
          Mask u;
          for (int i = 0; i < n; ++i)
              u |= Mask::bit(numeri[i]);
          return u;
      }()),
      m_cond(c, m_universe, n), m_kept(
                                    [&] {
                                        // Two distinct combinations share at most len - 1 numbers.
                                        Reduction r = m_cond.reduction;
                                        if (r.shared >= m_len) r.on = false;
                                        return r;
                                    }(),
                                    n, m_len, true),
      m_barring(m_kept.mode() == KeptIndex::Mode::Table),
      m_plain(!m_cond.fisse && !m_cond.somma && !m_cond.pari && !m_cond.consecutivi &&
              m_cond.andTable.satisfied && m_cond.orTable.satisfied && m_cond.xorTable.satisfied &&
              c.CondizioniDistanza.count() == 0),
      m_filtering(!m_cond.andTable.satisfied || !m_cond.orTable.satisfied || !m_cond.xorTable.satisfied),
      m_ascending(std::is_sorted(numeri, numeri + n)), m_distances(c.CondizioniDistanza, m_len),
      m_distanceBounds(m_ascending && m_distances.count() > 0),
      m_lastAsSet(m_ascending && m_len >= 2 && !m_plain),
      m_lastTwo(m_lastAsSet && m_len >= 3 && m_kept.mode() == KeptIndex::Mode::Never),
      m_lastThree(m_lastTwo && m_len >= 4), m_barredLevels(m_plain && m_barring && m_kept.shared() >= 2) {
    assert(n >= m_len && n <= MaxN && m_len >= 1 && m_len <= MaxLenColonna);
    for (int i = 1; i <= n; ++i) {
        const uint8_t v = numeri[i - 1];
        m_value[static_cast<size_t>(i)] = v;
        m_isFixed[static_cast<size_t>(i)] = m_cond.fixedNumbers.has(v);
        m_isEven[static_cast<size_t>(i)] = (v & 1) == 0;
        m_indexOf[v] = static_cast<uint8_t>(i);
        if ((v & 1) == 0) m_evenNumbers |= Mask::bit(v);
    }
    std::vector<int> sorted;
    for (int s = n; s >= 1; --s) {
        const auto z = static_cast<size_t>(s);
        m_suffix[z] = m_suffix[z + 1] | Mask::bit(m_value[z]);
        m_from[z - 1] = m_from[z] | Mask::bit(s - 1);
        m_sufFixed[z] = m_sufFixed[z + 1] + m_isFixed[z];
        m_sufEven[z] = m_sufEven[z + 1] + m_isEven[z];
        sorted.insert(std::lower_bound(sorted.begin(), sorted.end(), int{m_value[z]}), int{m_value[z]});
        const int count = static_cast<int>(sorted.size());
        for (int r = 1; r <= std::min(count, m_len); ++r) {
            m_minSum[z][static_cast<size_t>(r)] =
                m_minSum[z][static_cast<size_t>(r - 1)] + sorted[static_cast<size_t>(r - 1)];
            m_maxSum[z][static_cast<size_t>(r)] =
                m_maxSum[z][static_cast<size_t>(r - 1)] + sorted[static_cast<size_t>(count - r)];
        }
    }
    for (int i = n; i >= 1; --i) {
        const auto z = static_cast<size_t>(i);
        for (size_t k = 0; k < 2; ++k) {
            const auto& kind = k == 0 ? m_isEven : m_isFixed;
            m_otherKind[k][z] = static_cast<uint8_t>(i == n                   ? n + 1
                                                     : kind[z + 1] != kind[z] ? i + 1
                                                                              : m_otherKind[k][z + 1]);
        }
    }
    for (int i = n; i >= 0; --i) {
        const auto z = static_cast<size_t>(i);
        m_chain[z] = !m_ascending                                          ? MaxLenColonna
                     : i >= 1 && i < n && m_value[z + 1] == m_value[z] + 1 ? m_chain[z + 1] + 1
                                                                           : 0;
        m_chainAhead[z] = std::max(m_chain[z], m_chainAhead[z + 1]);
    }
    for (int placed = 0; placed <= m_len; ++placed) {
        int growth = 0, stretch = 0, longest = 0;
        for (int p = placed; placed > 0 && p < m_len && m_distances.consecutiveAllowed(p); ++p)
            ++growth;
        for (int p = placed + 1; p < m_len; ++p) {
            stretch = m_distances.consecutiveAllowed(p) ? stretch + 1 : 0;
            longest = std::max(longest, stretch);
        }
        m_runGrowth[static_cast<size_t>(placed)] = growth;
        m_runAhead[static_cast<size_t>(placed)] = placed < m_len ? longest + 1 : 0;
    }
    for (int pair = 1; pair < m_len; ++pair)
        m_noFollow[static_cast<size_t>(pair)] = m_distanceBounds && !m_distances.consecutiveAllowed(pair);
    if (m_cond.consecutivi) m_maxRun = 31 - std::countl_zero(m_cond.consecutiviAmmessi | 1u);
    m_roomBound = m_cond.consecutivi && m_ascending && m_maxRun >= 1 && m_maxRun < m_len;
    for (int i = n; i >= 1 && m_roomBound; --i) {
        const auto z = static_cast<size_t>(i);
        for (int t = 0; t <= m_maxRun; ++t) {
            const int skip = m_room[z + 1][0];
            const int take =
                t < m_maxRun ? 1 + m_room[z + 1][static_cast<size_t>(m_chain[z] > 0 ? t + 1 : 0)] : 0;
            m_room[z][static_cast<size_t>(t)] = static_cast<uint8_t>(std::min(std::max(skip, take), m_len));
        }
    }
    m_tables = {&m_cond.andTable, &m_cond.orTable, &m_cond.xorTable};
    for (int f = 0; f <= m_len + 1; ++f)
        for (int e = 0; e <= m_len + 1; ++e)
            m_fixedEven[static_cast<size_t>(f) * (MaxLenColonna + 2) + static_cast<size_t>(e)] =
                fixedAndEven(f, e);
    for (size_t t = 0; t < 3; ++t) {
        m_lists[t].resize(m_tables[t]->groups.size() * static_cast<size_t>(m_len + 1));
        m_pairGroups[t].resize(m_tables[t]->groups.size());
        m_tripleGroups[t].resize(m_tables[t]->groups.size());
    }
}

// The numbers with which a filter group passes, h of its numbers being held already: the bits
// of presenze for h hits (a number outside the group) and h+1 (a number inside).
// Without branches: which of the four cases holds depends on the prefix at every call.
inline Mask GroupPasses(const Mask& numbers, uint32_t presenze, int h) {
    const uint64_t without = 0 - static_cast<uint64_t>((presenze >> h) & 1u);
    const uint64_t with = 0 - static_cast<uint64_t>((presenze >> (h + 1)) & 1u);
    return {((~uint64_t{1} & ~numbers.lo) & without) | (numbers.lo & with),
            (~numbers.hi & without) | (numbers.hi & with)};
}

// How the longest run decides on the last number: any number, only the one that lengthens the
// run at the end, none, or any but that one.
enum class RunRule : uint8_t { Any, OnlyNext, None, AllButNext };

inline RunRule RuleOf(uint32_t ammessi, int runMax, int runTail) {
    const bool other = (ammessi >> runMax) & 1u;
    const bool longer = (ammessi >> std::max(runMax, runTail + 1)) & 1u;
    return other ? (longer ? RunRule::Any : RunRule::AllButNext)
                 : (longer ? RunRule::OnlyNext : RunRule::None);
}

// allowed as the rule leaves it, next being the number that lengthens the run at the end.
inline Mask ApplyRun(Mask allowed, RunRule rule, Mask next) {
    switch (rule) {
    case RunRule::Any:
        return allowed;
    case RunRule::OnlyNext:
        return allowed & next;
    case RunRule::None:
        return Mask{};
    case RunRule::AllButNext:
        return allowed - next;
    }
    return allowed;
}

// Whether some completion of the prefix s, taking r more numbers from indices start..n, can
// still pass the fixed numbers, the sum, the even count and the longest run.
IntegralWalk::Fit IntegralWalk::bounds(const Level& s, int start, int r) const {
    const auto z = static_cast<size_t>(start);
    const int rest = m_n - start + 1;
    if (m_cond.fisse) {
        const int lo = s.fixed + std::max(0, r - (rest - m_sufFixed[z]));
        const int hi = s.fixed + std::min(r, m_sufFixed[z]);
        // As for the even count below, a later number that is fixed as this one is has its
        // range of counts within this one.
        const Fit kind = start >= 2 ? Fit::DeadFixity : Fit::Dead;
        if (m_cond.numFisse < lo) return kind;
        if (m_cond.numFisse > hi) {
            // Too few fixed numbers left; at most this many for any later number at this depth.
            const auto y = z - 1;
            const int onward = s.fixed - m_isFixed[y] + std::min(r + 1, m_sufFixed[y]);
            return start >= 2 && m_cond.numFisse > onward ? Fit::DeadOnward : kind;
        }
    }
    if (m_cond.somma) {
        const auto rr = static_cast<size_t>(r);
        // In an ascending forecast a later number only raises the least sum.
        if (s.sum + m_minSum[z][rr] > m_cond.sommaMax) return m_ascending ? Fit::DeadOnward : Fit::Dead;
        if (s.sum + m_maxSum[z][rr] < m_cond.sommaMin) return Fit::Dead;
    }
    if (m_cond.pari) {
        const int lo = s.even + std::max(0, r - (rest - m_sufEven[z]));
        const int hi = s.even + std::min(r, m_sufEven[z]);
        // A later number of the same parity leaves the same count and fewer numbers of either
        // parity after it: its range of counts lies within this one.
        if ((m_cond.pariAmmessi & RangeBits(lo, hi)) == 0) return start >= 2 ? Fit::DeadParity : Fit::Dead;
    }
    if (m_cond.consecutivi) {
        const auto placed = static_cast<size_t>(m_len - r);
        const int growth = std::min({r, m_runGrowth[placed], m_chain[z - 1]});
        const int ahead = std::min(m_runAhead[placed], r == 0 ? 0 : 1 + m_chainAhead[z]);
        const int hi = std::max({s.runMax, s.runTail + growth, ahead});
        if ((m_cond.consecutiviAmmessi & RangeBits(s.runMax, hi)) == 0) return Fit::Dead;
        // Too little room left for r numbers without a run too long; a later number at this
        // depth leaves no more room.
        if (m_roomBound &&
            m_room[z][static_cast<size_t>(start >= 2 && m_chain[z - 1] > 0 ? s.runTail : 0)] < r)
            return start >= 2 ? Fit::DeadOnward : Fit::Dead;
    }
    if (m_distanceBounds && start >= 2) {
        switch (
            m_distances.outlook(s.gaps, m_len - r, m_value[z - 1], r, m_value[static_cast<size_t>(m_n)])) {
        case DistanceBounds::Outlook::Open:
            break;
        case DistanceBounds::Outlook::Dead:
            return Fit::Dead;
        case DistanceBounds::Outlook::DeadOnward:
            return Fit::DeadOnward;
        }
    }
    return Fit::Fits;
}

// The filter tables for the child prefix: carries over the parent's open groups that stay open,
// and fails as soon as a table can no longer pass.
bool IntegralWalk::filters(Level& child, const Level& parent, int depth, int start, int r) {
    const Mask suffix = m_suffix[static_cast<size_t>(start)];
    const int rest = m_n - start + 1;
    for (size_t t = 0; t < 3; ++t) {
        const CompiledTable& table = *m_tables[t];
        child.open[t] = 0;
        if (table.satisfied || (t == 1 && parent.orSatisfied)) continue;
        const size_t stride = table.groups.size();
        const uint32_t* from = &m_lists[t][static_cast<size_t>(depth) * stride];
        uint32_t* to = &m_lists[t][static_cast<size_t>(depth + 1) * stride];
        const uint32_t count = parent.open[t];
        uint32_t kept = 0;
        switch (table.kind) {
        case TableKind::And:
            // The group that failed last is likely to fail again.
            if (Classify(table.groups[table.lastDecider], child.numbers, suffix, r, rest) == Verdict::Fail)
                return false;
            for (uint32_t k = 0; k < count; ++k) {
                const Verdict v = Classify(table.groups[from[k]], child.numbers, suffix, r, rest);
                if (v == Verdict::Fail) {
                    table.lastDecider = from[k];
                    return false;
                }
                if (v == Verdict::Open) to[kept++] = from[k];
            }
            break;
        case TableKind::Or:
            for (uint32_t k = 0; k < count && !child.orSatisfied; ++k) {
                const Verdict v = Classify(table.groups[from[k]], child.numbers, suffix, r, rest);
                if (v == Verdict::Pass) child.orSatisfied = true;
                if (v == Verdict::Open) to[kept++] = from[k];
            }
            if (child.orSatisfied)
                kept = 0;
            else if (kept == 0)
                return false;
            break;
        case TableKind::Xor: {
            XorNeed need;
            for (uint32_t k = 0; k < count; ++k) {
                const FilterGroup& g = table.groups[from[k]];
                const int hits = Common(child.numbers, g.numbers);
                const Verdict v = ClassifyCounts(g.presenze, hits, Common(suffix, g.numbers), r, rest);
                if (v == Verdict::Pass && (child.xorPass += g.weight) >= 2) return false;
                if (v == Verdict::Open) {
                    to[kept++] = from[k];
                    need.add(g.presenze, hits, g.weight);
                }
            }
            if (child.xorPass == 0 && kept == 0) return false;
            // Enough hits for the groups that must fail, from r numbers.
            if (const int needed = need.hits(child.xorPass);
                needed > r && !xorHitsSuffice(table, to, kept, child.numbers, suffix, r, needed))
                return false;
            break;
        }
        }
        child.open[t] = kept;
    }
    return true;
}

// Whether r numbers from suffix can bring `need` hits to the XOR groups open[0..count-1] that
// have not yet failed over the prefix `numbers`.
bool IntegralWalk::xorHitsSuffice(const CompiledTable& table, const uint32_t* open, uint32_t count,
                                  Mask numbers, Mask suffix, int r, int need) const {
    HitSupply supply(suffix);
    for (uint32_t k = 0; k < count; ++k) {
        const FilterGroup& g = table.groups[open[k]];
        if (HitsToFail(g.presenze, Common(numbers, g.numbers)) > 0) supply.add(g.numbers);
    }
    return supply.most(r) >= need;
}

// Moves the prefix of depth d one number on, to index j, with r numbers still to come; false
// when no column of the new prefix's subtree can pass.
IntegralWalk::Fit IntegralWalk::enter(int d, int j, int r) {
    const Level& p = m_level[static_cast<size_t>(d)];
    if (m_barring && p.barred.has(j - 1)) return Fit::Dead;
    Level& s = m_level[static_cast<size_t>(d + 1)];
    const auto z = static_cast<size_t>(j);
    const uint8_t v = m_value[z];
    m_cand[static_cast<size_t>(d)] = v;
    m_idx[static_cast<size_t>(d)] = static_cast<uint8_t>(j - 1);
    m_kept.prefixChanged(d);
    s.indices = p.indices | Mask::bit(j - 1);
    if (m_plain) return Fit::Fits; // nothing else to follow along the prefix
    s.numbers = p.numbers | Mask::bit(v);
    s.sum = p.sum + v;
    s.even = p.even + m_isEven[z];
    s.fixed = p.fixed + m_isFixed[z];
    s.runTail =
        d > 0 && v == static_cast<uint8_t>(m_cand[static_cast<size_t>(d - 1)] + 1) ? p.runTail + 1 : 1;
    s.runMax = std::max(p.runMax, s.runTail);
    s.xorPass = p.xorPass;
    s.orSatisfied = p.orSatisfied;
    if (m_distanceBounds) {
        m_distances.place(p.gaps, s.gaps, d, d > 0 ? v - m_cand[static_cast<size_t>(d - 1)] : 0);
    }
    const Fit fit = bounds(s, j + 1, r);
    if (fit != Fit::Fits) return fit;
    // Above the last number the tables are left to the set of last numbers, which reads the
    // groups still open one level up.
    if (r == 1 && m_lastAsSet) return Fit::Fits;
    return !m_filtering || filters(s, p, d, j + 1, r) ? Fit::Fits : Fit::Dead;
}

// The last index (1-based) that a next number of the prefix s of depth d can have: after it,
// the numbers still to come need that many numbers above it that are not barred.
int IntegralWalk::childLimit(const Level& s, int d) const {
    const int need = m_len - d - 1;
    if (need == 0) return m_n;
    return NthHighest(m_from[0] - s.barred, need); // 0-based index = 1-based limit
}

// The numbers barred after the prefix idx[0..d-1] (idx[d-1] = j-1 just placed, the prefix of
// d-1 numbers barring `barred`): the new prefix's subsets add their extensions. With trim, only
// the numbers that can still come next are looked up. Inline in each level's code, for the same
// reason as the last levels' own copies (barredLevel).
[[gnu::always_inline]] inline Mask IntegralWalk::barredAfter(const Mask& barred, int d, int j, bool trim) {
    Mask out = barred;
    const int need = m_len - d - 1;
    const Mask above =
        need == 0 || !trim ? Mask{} : m_from[static_cast<size_t>(NthHighest(m_from[0] - barred, need))];
    const Mask wanted = m_from[static_cast<size_t>(j)] - above - barred;
    if (wanted.any()) {
        // Half by half, the upper one only when it holds something (forecasts of at most 64
        // numbers): merged in a vector register, the result would first wait for its halves to
        // reach memory.
        const Mask found = m_kept.newExtensions(m_idx.data(), d, wanted);
        out.lo |= found.lo;
        if (found.hi != 0) out.hi |= found.hi;
    }
    return out;
}

// The candidates under the prefix of depth d >= t-1 of a walk with a reduction alone, from
// m_next[d] on: each next free number in turn, with the numbers barred after it; the last two
// numbers together, the first free one after the numbers barred after len-2 completing a column.
// Keeping a column unwinds the walk to depth t-1: `at` is the depth where the walk goes on,
// d-1 once the level is done. False when the run ends.
bool IntegralWalk::barredLevel(int d, int& at) {
    // The last levels each in code of their own, whose branches the processor then learns apart.
    switch (m_len - d - 1) {
    case 1:
        return barredLevelOf<1>(d, at);
    case 2:
        return barredLevelOf<2>(d, at);
    case 3:
        return barredLevelOf<3>(d, at);
    default:
        return barredLevelOf<0>(d, at);
    }
}

// R: the numbers still to come after the next one, when known here (0: any).
template <int R> bool IntegralWalk::barredLevelOf(int d, int& at) {
    const auto z = static_cast<size_t>(d);
    const Level& p = m_level[z];
    const int n = m_n, r = R > 0 ? R : m_len - d - 1;
    for (;;) {
        // The next number a: the first free one from m_next on, while r free numbers can follow.
        const int j = m_next[z];
        const int a = nextFree(p, j, r);
        if (a > j && !reject(subtreesFrom(j, a, r))) return false;
        m_next[z] = a;
        if (a > n - r) {
            at = d - 1;
            return true;
        }
        m_next[z] = a + 1;
        m_cand[z] = m_value[static_cast<size_t>(a)];
        m_idx[z] = static_cast<uint8_t>(a - 1);
        m_kept.prefixChanged(d);
        // a leaves enough free numbers above it: what the next one can be needs no trimming.
        const Mask after = barredAfter(p.barred, d + 1, a, false);
        if (r == 1) {
            const int c = FirstFree(after, a) + 1;
            if (c > n) {
                if (!reject(n - a)) return false;
                continue;
            }
            if (c > a + 1 && !reject(c - a - 1)) return false;
            m_next[z + 1] = c + 1;
            m_cand[z + 1] = m_value[static_cast<size_t>(c)];
            m_idx[z + 1] = static_cast<uint8_t>(c - 1);
            m_kept.prefixChanged(d + 1);
            at = m_len - 1;
            if (!leaf(at, p.indices | Mask::bit(a - 1) | Mask::bit(c - 1))) return false;
        } else {
            Level& s = m_level[z + 1];
            s.barred = after;
            s.childLimit = childLimit(s, d + 1);
            if (FirstFree(after, a) + 1 > std::min(n - r + 1, s.childLimit)) {
                if (!reject(Binomial(n - a, r))) return false;
                continue;
            }
            s.indices = p.indices | Mask::bit(a - 1);
            m_next[z + 1] = a + 1;
            if (!(R > 1 ? barredLevelOf<(R > 1 ? R - 1 : 1)>(d + 1, at) : barredLevel(d + 1, at)))
                return false;
        }
        if (at < d) return true;
    }
}

// Skips what is left of the subtrees of the prefixes deeper than `to`; the walk goes on with the
// next number at depth `to`.
bool IntegralWalk::unwind(int& d, int to) {
    assert(to < d && d == m_len - 1);
    Count rest = 0;
    for (int k = m_len - 1; k > to; --k)
        rest += Binomial(m_n - m_next[static_cast<size_t>(k)] + 1, m_len - k);
    d = to;
    return reject(rest);
}

// The last tests of a complete candidate (the prefix of depth d plus the number just entered,
// `indices` as a set), then the store; distancesPassed: the distance conditions are known to
// pass. False when the run ends.
bool IntegralWalk::leaf(int& d, Mask indices, bool distancesPassed) {
    const KeptIndex::Mode mode = m_kept.mode();
    if ((!distancesPassed && !m_cond.distancesPass(m_cand.data())) ||
        (!m_barring && mode != KeptIndex::Mode::Never && m_kept.fails(m_idx.data(), indices)))
        return reject(1);
    if (m_part != nullptr) {
        m_part->columns.insert(m_part->columns.end(), m_cand.begin(), m_cand.begin() + m_len);
        m_part->before.push_back(m_part->after);
        m_part->after = 0;
        // A part that keeps as many columns as the store holds reaches the limit in any case.
        return m_part->before.size() < static_cast<size_t>(MaxColonne) && partGoesOn();
    }
    m_c.Colonne.setColumn(m_progress.kept() + 1, m_cand.data(), m_len);
    if (mode == KeptIndex::Mode::Never) return m_progress.keep();
    m_kept.add(m_idx.data(), indices);
    if (!m_progress.keep()) return false;
    switch (mode) {
    case KeptIndex::Mode::Never:
        return true;
    case KeptIndex::Mode::AfterFirst:
        return unwind(d, -1);
    case KeptIndex::Mode::Table:
    case KeptIndex::Mode::Scan: {
        // Every later column under the first t numbers of this one shares t with it.
        const int t = m_kept.shared();
        if (m_barring) {
            Level& top = m_level[static_cast<size_t>(t - 1)];
            top.barred |= indices - top.indices;
            top.childLimit = childLimit(top, t - 1);
        }
        return unwind(d, t - 1);
    }
    }
    return true;
}

// The candidates under a prefix of depth len-1 when no test looks at a column alone: each one
// only needs its last number and the reduction. False when the run ends.
bool IntegralWalk::plainLeaves(int& d) {
    const auto z = static_cast<size_t>(d);
    const Level& p = m_level[z];
    assert(m_kept.mode() != KeptIndex::Mode::Never); // otherwise every candidate is kept at once
    while (m_next[z] <= m_n && d == m_len - 1) {
        const int j = m_next[z];
        if (m_barring && p.barred.has(j - 1)) {
            // The barred numbers up to the next free one, at once.
            const int to = std::min(FirstFree(p.barred, j - 1) + 1, m_n + 1);
            m_next[z] = to;
            if (!reject(static_cast<Count>(to - j))) return false;
            continue;
        }
        m_next[z] = j + 1;
        m_cand[z] = m_value[static_cast<size_t>(j)];
        m_idx[z] = static_cast<uint8_t>(j - 1);
        m_kept.prefixChanged(d);
        if (!leaf(d, p.indices | Mask::bit(j - 1))) return false;
    }
    return true;
}

// The last numbers that the fixed numbers and the even count let pass, with `fixed` fixed and
// `even` even numbers among the others.
Mask IntegralWalk::fixedAndEven(int fixed, int even) const {
    Mask allowed = Mask::range(1, 127);
    if (m_cond.fisse) {
        const int need = m_cond.numFisse - fixed;
        allowed = need == 0 ? allowed - m_cond.fixedNumbers : need == 1 ? m_cond.fixedNumbers : Mask{};
    }
    if (m_cond.pari) {
        const bool odd = (m_cond.pariAmmessi >> even) & 1u, twice = (m_cond.pariAmmessi >> (even + 1)) & 1u;
        allowed = odd && twice ? allowed
                  : odd        ? allowed - m_evenNumbers
                  : twice      ? allowed & m_evenNumbers
                               : Mask{};
    }
    return allowed;
}

// The numbers that can complete the prefix p of depth d = len-1 as far as the tests on a column
// alone tell: fixed numbers, sum, even count, longest run, filter tables, and the distance
// conditions read as true or false. Ascending forecasts only.
Mask IntegralWalk::lastNumbersAlone(const Level& p, int d) const {
    Mask allowed = fixedEven(p.fixed, p.even);
    if (m_cond.somma) {
        const int lo = std::max(1, m_cond.sommaMin - p.sum), hi = std::min(127, m_cond.sommaMax - p.sum);
        allowed = allowed & Mask::range(lo, hi);
    }
    const int last = m_cand[static_cast<size_t>(d - 1)];
    if (m_cond.consecutivi)
        allowed =
            ApplyRun(allowed, RuleOf(m_cond.consecutiviAmmessi, p.runMax, p.runTail), Mask::bit(last + 1));
    // The groups open over the prefix of depth d-1: the prefix of depth d took no look at them.
    const Level& up = m_level[static_cast<size_t>(d - 1)];
    for (size_t t = 0; t < 3 && allowed.any(); ++t) {
        const CompiledTable& table = *m_tables[t];
        if (table.satisfied || (t == 1 && up.orSatisfied)) continue;
        const uint32_t* open = &m_lists[t][static_cast<size_t>(d - 1) * table.groups.size()];
        Mask any, twice; // numbers with which some group passes; two or more (XOR)
        for (uint32_t k = 0; k < up.open[t]; ++k) {
            const FilterGroup& g = table.groups[open[k]];
            const Mask pass = GroupPasses(g.numbers, g.presenze, Common(p.numbers, g.numbers));
            if (table.kind == TableKind::And) {
                allowed = allowed & pass;
            } else {
                twice |= g.weight >= 2 ? pass : any & pass;
                any |= pass;
            }
        }
        if (table.kind == TableKind::Or) allowed = allowed & any;
        if (table.kind == TableKind::Xor)
            allowed = up.xorPass == 0   ? allowed & (any - twice)
                      : up.xorPass == 1 ? allowed - (any | twice)
                                        : Mask{};
    }
    if (m_distanceBounds && allowed.any()) allowed = allowed & m_distances.lastNumbers(p.gaps, last);
    return allowed;
}

// The candidates under a prefix of depth len-1 of an ascending forecast: only the last numbers
// that can pass the tests on a column alone are tried, each through the exact last tests. False
// when the run ends.
bool IntegralWalk::lastNumbers(int& d) {
    const auto z = static_cast<size_t>(d);
    const Level& p = m_level[z];
    int j = m_next[z];
    const Mask allowed = j <= m_n ? lastNumbersAlone(p, d) & m_suffix[static_cast<size_t>(j)] : Mask{};
    // With plain tables the set already holds exactly the numbers the distance conditions pass.
    const bool exact = !m_distanceBounds || m_distances.exact();
    for (int half = 0; half < 2; ++half) {
        for (uint64_t w = half == 0 ? allowed.lo : allowed.hi; w != 0; w &= w - 1) {
            const int v = 64 * half + std::countr_zero(w);
            const int k = m_indexOf[static_cast<size_t>(v)];
            if (m_barring && p.barred.has(k - 1)) continue;
            if (k > j && !reject(static_cast<Count>(k - j))) return false;
            m_next[z] = j = k + 1;
            m_cand[z] = static_cast<uint8_t>(v);
            m_idx[z] = static_cast<uint8_t>(k - 1);
            m_kept.prefixChanged(d);
            if (!leaf(d, p.indices | Mask::bit(k - 1), exact)) return false;
            if (d != m_len - 1) return true; // the reduction skipped the rest of this subtree
        }
    }
    m_next[z] = m_n + 1;
    return j > m_n || reject(static_cast<Count>(m_n + 1 - j));
}

// The candidates under the prefix of depth d = len-2 of an ascending forecast when no reduction
// is in force, where lastThreeNumbers does not lead: columns of 3, and parts of a walk split
// over threads that start at this depth. False when the run ends.
bool IntegralWalk::lastTwoNumbers(int d) {
    const auto z = static_cast<size_t>(d);
    const Level& p = m_level[z];
    const auto groups = forOpenGroups(d, [&](size_t t, uint32_t k, const FilterGroup& g, int h) {
        m_pairGroups[t][k] = {g.numbers, GroupPasses(g.numbers, g.presenze, h),
                              GroupPasses(g.numbers, g.presenze, h + 1), g.weight};
    });
    return pairsUnder(d, groups, !m_tables[1]->satisfied && !p.orSatisfied, p.xorPass, 0);
}

// Whether the filter tables can still pass once v (at index start-1) joins the prefix of
// len-3 whose open groups are in m_tripleGroups, two numbers being still to come; fills
// m_pairGroups for the last two numbers.
bool IntegralWalk::tablesOpen(const std::array<uint32_t, 3>& groups, bool orOpen, int xorPass, int v,
                              int start) {
    const Mask suffix = m_suffix[static_cast<size_t>(start)];
    const int rest = m_n - start + 1;
    bool orAlive = !orOpen;
    int xorCount = xorPass;
    bool xorAlive = xorPass > 0;
    XorNeed need;         // as in filters
    uint32_t needing = 0; // the open XOR groups that need hits to fail (at most 8 groups are open)
    assert(groups[2] <= 32);
    for (size_t t = 0; t < 3; ++t)
        for (uint32_t k = 0; k < groups[t]; ++k) {
            const TripleGroup& g = m_tripleGroups[t][k];
            const size_t in = g.numbers.has(v);
            m_pairGroups[t][k] = {g.numbers, g.passes[in], g.passes[in + 1], g.weight};
            const int hits = g.hits + static_cast<int>(in);
            const Verdict verdict = ClassifyCounts(g.presenze, hits, Common(suffix, g.numbers), 2, rest);
            if (t == 0 && verdict == Verdict::Fail) return false;
            if (t == 1) orAlive = orAlive || verdict != Verdict::Fail;
            if (t == 2 && verdict != Verdict::Fail) {
                xorAlive = true;
                if (verdict == Verdict::Pass) xorCount += g.weight;
                if (verdict == Verdict::Open && need.add(g.presenze, hits, g.weight) > 0) needing |= 1u << k;
            }
        }
    if (!orAlive || xorCount >= 2 || !(xorAlive || !m_tables[2]->inUse)) return false;
    const int needed = need.hits(xorCount);
    if (needed <= 2) return true;
    HitSupply supply(suffix);
    for (; needing != 0; needing &= needing - 1)
        supply.add(m_tripleGroups[2][static_cast<size_t>(std::countr_zero(needing))].numbers);
    return supply.most(2) >= needed;
}

// The candidates under the prefix of depth d = len-3 of an ascending forecast when no reduction
// is in force: each next number goes through the bounds without a step of the walk, and the
// filter groups open over this prefix serve the last two numbers of every next number, their
// sets of last numbers built here once for 0, 1 and 2 hits among the two numbers before the
// last. False when the run ends.
bool IntegralWalk::lastThreeNumbers(int d) {
    const auto z = static_cast<size_t>(d);
    const Level& p = m_level[z];
    Level& s = m_level[z + 1];
    const int lastP = m_cand[z - 1];
    const auto groups = forOpenGroups(d, [&](size_t t, uint32_t k, const FilterGroup& g, int h) {
        m_tripleGroups[t][k] = {g.numbers,
                                {GroupPasses(g.numbers, g.presenze, h),
                                 GroupPasses(g.numbers, g.presenze, h + 1),
                                 GroupPasses(g.numbers, g.presenze, h + 2)},
                                g.presenze,
                                static_cast<uint8_t>(h),
                                g.weight};
    });
    const bool orOpen = !m_tables[1]->satisfied && !p.orSatisfied;
    const int highest = m_distanceBounds ? m_distances.nextLimit(p.gaps, d, lastP) : 127;
    Count pending = 0; // rejected candidates not yet reported
    for (int j = m_next[z]; j <= m_n - 2; ++j) {
        const auto y = static_cast<size_t>(j);
        const int v = m_value[y];
        if (v > highest || (m_cond.somma && p.sum + v + leastAfter(j, d + 1, 2) > m_cond.sommaMax)) {
            // As for the last two numbers: a later next number only widens its gap and raises
            // the least sum.
            pending += Binomial(m_n - j + 1, 3);
            break;
        }
        const bool following = v == lastP + 1;
        if (following && follows(d)) {
            pending += Binomial(m_n - j, 2);
            continue;
        }
        s.sum = p.sum + v;
        s.even = p.even + m_isEven[y];
        s.fixed = p.fixed + m_isFixed[y];
        s.runTail = following ? p.runTail + 1 : 1;
        s.runMax = std::max(p.runMax, s.runTail);
        if (m_distanceBounds) m_distances.place(p.gaps, s.gaps, d, v - lastP);
        if (const Fit fit = bounds(s, j + 1, 2); fit != Fit::Fits) {
            if (fit == Fit::Dead) {
                pending += Binomial(m_n - j, 2);
                continue;
            }
            // With this next number's subtree, those of the later ones ruled out alike.
            const int to = std::min(nextToTry(fit, j), m_n - 1);
            pending += subtreesFrom(j, to, 2);
            j = to - 1;
            continue;
        }
        if (!tablesOpen(groups, orOpen, p.xorPass, v, j + 1)) {
            pending += Binomial(m_n - j, 2);
            continue;
        }
        m_cand[z] = static_cast<uint8_t>(v);
        m_idx[z] = static_cast<uint8_t>(j - 1);
        m_kept.prefixChanged(d);
        s.indices = p.indices | Mask::bit(j - 1);
        m_next[z + 1] = j + 1;
        if (!pairsUnder(d + 1, groups, orOpen, p.xorPass, pending)) return false;
        pending = 0;
    }
    m_next[z] = m_n + 1;
    return pending == 0 || reject(pending);
}

// The last two numbers under the prefix of depth d = len-2, the open groups of each table
// being in m_pairGroups; `pending` rejected candidates before them are not yet reported. What
// the last number may be depends on the next one through a few facts (fixed, even, lengthening
// the run, inside which groups) and through its value (sum, gaps): the parts that depend on the
// facts are built once for the prefix, so that a next number that leaves no last number costs
// a few operations on masks. False when the run ends.
bool IntegralWalk::pairsUnder(int d, const std::array<uint32_t, 3>& groups, bool orOpen, int xorPass,
                              Count pending) {
    const auto z = static_cast<size_t>(d);
    const Level& p = m_level[z];
    const int lastP = m_cand[z - 1];
    // 1. Fixed numbers and even counts, by whether the next number is fixed and even.
    std::array<Mask, 4> base;
    for (int f = 0; f < 2; ++f)
        for (int e = 0; e < 2; ++e)
            base[static_cast<size_t>(f * 2 + e)] = fixedEven(p.fixed + f, p.even + e);
    // 2. The longest run, by whether the next number follows the prefix's last one.
    std::array<RunRule, 2> runs{RunRule::Any, RunRule::Any};
    if (m_cond.consecutivi) {
        runs[0] = RuleOf(m_cond.consecutiviAmmessi, std::max(p.runMax, 1), 1);
        runs[1] = RuleOf(m_cond.consecutiviAmmessi, std::max(p.runMax, p.runTail + 1), p.runTail + 1);
    }
    const bool xorOpen = !m_tables[2]->satisfied;
    const bool exact = !m_distanceBounds || m_distances.exact();
    // A next number beyond this leaves the distance conditions no record that can pass.
    const int highest = m_distanceBounds ? m_distances.nextLimit(p.gaps, d, lastP) : 127;
    // 3. Each next number, and the last numbers it leaves.
    int j = m_next[z];
    for (; j < m_n; ++j) {
        const auto y = static_cast<size_t>(j);
        const int v = m_value[y];
        if (v > highest || (m_cond.somma && p.sum + v + leastAfter(j, d + 1, 1) > m_cond.sommaMax)) {
            // A later next number only widens its gap, and with its least last number only
            // raises the sum.
            pending += Binomial(m_n - j + 1, 2);
            j = m_n;
            break;
        }
        if (v == lastP + 1 && follows(d)) {
            pending += static_cast<Count>(m_n - j);
            continue;
        }
        Mask allowed = base[static_cast<size_t>(m_isFixed[y] * 2 + m_isEven[y])] & m_suffix[y + 1];
        if (m_cond.somma)
            allowed = allowed & Mask::range(std::max(1, m_cond.sommaMin - p.sum - v),
                                            std::min(127, m_cond.sommaMax - p.sum - v));
        if (m_cond.consecutivi) allowed = ApplyRun(allowed, runs[v == lastP + 1], Mask::bit(v + 1));
        for (uint32_t k = 0; k < groups[0] && allowed.any(); ++k) {
            const PairGroup& g = m_pairGroups[0][k];
            allowed = allowed & (g.numbers.has(v) ? g.with : g.without);
        }
        if (orOpen && allowed.any()) {
            Mask any;
            for (uint32_t k = 0; k < groups[1]; ++k) {
                const PairGroup& g = m_pairGroups[1][k];
                any |= g.numbers.has(v) ? g.with : g.without;
            }
            allowed = allowed & any;
        }
        if (xorOpen && allowed.any()) {
            Mask any, twice;
            for (uint32_t k = 0; k < groups[2]; ++k) {
                const PairGroup& g = m_pairGroups[2][k];
                const Mask pass = g.numbers.has(v) ? g.with : g.without;
                twice |= g.weight >= 2 ? pass : any & pass;
                any |= pass;
            }
            allowed = xorPass == 0   ? allowed & (any - twice)
                      : xorPass == 1 ? allowed - (any | twice)
                                     : Mask{};
        }
        if (m_distanceBounds && allowed.any()) {
            allowed = allowed & m_distances.lastNumbersAfter(p.gaps, d, v - lastP, v);
        }
        if (!allowed.any()) {
            pending += static_cast<Count>(m_n - j);
            continue;
        }
        // 4. The candidates with a last number from the set, through the exact last tests.
        m_cand[z] = static_cast<uint8_t>(v);
        m_idx[z] = static_cast<uint8_t>(j - 1);
        if (exact && m_part == nullptr) {
            // Every last number of the set passes: when no progress step, look at the flags or
            // limit falls among this next number's candidates, they are stored at once.
            const int keeps = Size(allowed);
            const Count span = pending + static_cast<Count>(m_n - j);
            if (m_progress.quiet(span, keeps)) {
                int32_t column = m_progress.kept() + 1;
                for (int half = 0; half < 2; ++half)
                    for (uint64_t w = half == 0 ? allowed.lo : allowed.hi; w != 0; w &= w - 1) {
                        m_cand[z + 1] = static_cast<uint8_t>(64 * half + std::countr_zero(w));
                        m_c.Colonne.setColumn(column++, m_cand.data(), m_len);
                    }
                m_progress.advance(span, keeps);
                pending = 0;
                continue;
            }
        }
        const Mask indices = p.indices | Mask::bit(j - 1);
        int next = j + 1;
        for (int half = 0; half < 2; ++half) {
            for (uint64_t w = half == 0 ? allowed.lo : allowed.hi; w != 0; w &= w - 1) {
                const int u = 64 * half + std::countr_zero(w);
                const int k = m_indexOf[static_cast<size_t>(u)];
                pending += static_cast<Count>(k - next);
                next = k + 1;
                if (pending != 0 && !reject(pending)) return false;
                pending = 0;
                m_cand[z + 1] = static_cast<uint8_t>(u);
                m_idx[z + 1] = static_cast<uint8_t>(k - 1);
                int leafDepth = d + 1;
                if (!leaf(leafDepth, indices | Mask::bit(k - 1), exact)) return false;
            }
        }
        pending += static_cast<Count>(m_n + 1 - next);
    }
    m_next[z] = m_n + 1;
    return pending == 0 || reject(pending);
}

// Stores the columns at offsets lo..hi-1 of the subtree whose position p starts at index i and
// whose first column is at offset base; offset 0 is column col0. Position by position: a number
// at position p is the same over the whole subtree below it, and the last positions are copied
// from the list of every combination of as many numbers. Offsets stay below the limit of the
// store; a subtree size is capped well above it.
void IntegralWalk::fillTree(int p, int i, int64_t base, int64_t lo, int64_t hi, int32_t col0) {
    assert(lo < hi && hi <= MaxColonne);
    ColumnStore& store = m_c.Colonne;
    const int left = m_len - p; // positions after p
    if (left + 1 == m_tailLen) {
        // The combinations from index i on are the end of the list.
        const auto size = static_cast<int64_t>(Binomial(m_n - i + 1, m_tailLen));
        const int64_t a = std::max(base, lo), b = std::min(base + size, hi);
        if (a >= b) return;
        const auto from = static_cast<size_t>(m_tailCount - size + (a - base));
        for (int q = 0; q < m_tailLen; ++q)
            store.copy(col0 + static_cast<int32_t>(a), p + q,
                       &m_tail[static_cast<size_t>(q) * static_cast<size_t>(m_tailCount) + from],
                       static_cast<int32_t>(b - a));
        return;
    }
    constexpr int64_t Cap = int64_t{1} << 40;
    for (int k = i; k <= m_n - left && base < hi; ++k) {
        const Count exact = Binomial(m_n - k, left);
        const int64_t size = exact > static_cast<Count>(Cap) ? Cap : static_cast<int64_t>(exact);
        if (base + size > lo) {
            const int64_t a = std::max(base, lo), b = std::min(base + size, hi);
            store.fill(col0 + static_cast<int32_t>(a), p, m_value[static_cast<size_t>(k)],
                       static_cast<int32_t>(b - a));
            fillTree(p + 1, k + 1, base, lo, hi, col0);
        }
        base += size;
    }
}

// Every candidate passes: the columns are stored a run at a time, each run up to the next step
// boundary or the limit. False when the run ends.
bool IntegralWalk::keepAll() {
    // The last positions come from the list of every combination of that many numbers, position
    // by position, as long as the list stays small.
    constexpr Count MaxTail = Count{1} << 18;
    m_tailLen = 1;
    while (m_tailLen < m_len && static_cast<Count>(m_tailLen + 1) * Binomial(m_n, m_tailLen + 1) <= MaxTail)
        ++m_tailLen;
    m_tailCount = static_cast<int64_t>(Binomial(m_n, m_tailLen));
    m_tail.resize(static_cast<size_t>(m_tailLen) * static_cast<size_t>(m_tailCount));
    std::array<int, MaxLenColonna> index{};
    for (int q = 0; q < m_tailLen; ++q)
        index[static_cast<size_t>(q)] = q + 1;
    for (int64_t o = 0; o < m_tailCount; ++o) {
        for (int q = 0; q < m_tailLen; ++q)
            m_tail[static_cast<size_t>(q) * static_cast<size_t>(m_tailCount) + static_cast<size_t>(o)] =
                m_value[static_cast<size_t>(index[static_cast<size_t>(q)])];
        int q = m_tailLen - 1;
        while (q >= 0 && index[static_cast<size_t>(q)] == m_n - m_tailLen + 1 + q)
            --q;
        if (q < 0) break;
        ++index[static_cast<size_t>(q)];
        for (int u = q + 1; u < m_tailLen; ++u)
            index[static_cast<size_t>(u)] = index[static_cast<size_t>(u - 1)] + 1;
    }
    const Count total = Binomial(m_n, m_len);
    for (Count done = 0; done < total;) {
        // The run ends at the limit at the latest, so offsets fit in 32 bits.
        const auto run = static_cast<int32_t>(std::min(total - done, m_progress.runRoom()));
        const auto from = static_cast<int64_t>(done);
        assert(m_progress.kept() == from);
        fillTree(1, 1, 0, from, from + run, 1);
        if (!m_progress.keepRun(run)) return false;
        done += static_cast<Count>(run);
    }
    return true;
}

// Sets the root of the walk; false when no candidate can pass.
bool IntegralWalk::initRoot() {
    Level& root = m_level[0];
    root = Level{};
    for (size_t t = 0; t < 3; ++t) {
        const CompiledTable& table = *m_tables[t];
        for (uint32_t k = 0; k < table.groups.size(); ++k)
            m_lists[t][k] = k;
        root.open[t] = table.satisfied ? 0 : static_cast<uint32_t>(table.groups.size());
    }
    root.orSatisfied = m_cond.orTable.satisfied;
    root.gaps = DistanceBounds::initial();
    root.xorPass = m_cond.xorTable.base;
    if (m_barring && m_kept.shared() == 1)
        root.barred = m_kept.newExtensions(m_idx.data(), 0, Mask::range(0, m_n - 1));
    root.childLimit = childLimit(root, 0);
    const bool tablesFail =
        m_cond.andTable.alwaysFails || m_cond.orTable.alwaysFails || m_cond.xorTable.alwaysFails;
    return !tablesFail && bounds(root, 1, m_len) == Fit::Fits;
}

void IntegralWalk::run() {
    if (!initRoot()) {
        reject(Binomial(m_n, m_len));
        return;
    }
    if (m_plain && m_kept.mode() == KeptIndex::Mode::Never) {
        keepAll();
        return;
    }
    m_next[0] = 1;
    walkFrom(0);
}

// Walks the subtrees of the prefix of depth base (m_next[base] is its next number); false when
// the run ends.
bool IntegralWalk::walkFrom(int base) {
    int d = base;
    while (d >= base) {
        const auto z = static_cast<size_t>(d);
        const int r = m_len - d - 1; // numbers still to come after the one entered now
        if (m_barredLevels && d == m_kept.shared() - 1) {
            if (!barredLevel(d, d)) return false;
            continue;
        }
        if (r == 2 && m_lastThree && fewGroups(m_level[z])) {
            if (!lastThreeNumbers(d)) return false;
            --d;
            continue;
        }
        if (r == 1 && m_lastTwo) {
            if (!lastTwoNumbers(d)) return false;
            --d;
            continue;
        }
        if (r == 0 && (m_plain || m_lastAsSet)) {
            if (!(m_plain ? plainLeaves(d) : lastNumbers(d))) return false;
            if (d == m_len - 1) --d;
            continue;
        }
        int j = m_next[z];
        if (m_barring && j <= m_n - r) {
            // 1. Skip the barred numbers in one step: each one's subtree shares t numbers with a
            //    kept column (the sum of their sizes telescopes); and when the next free one is
            //    past the last that leaves enough numbers above it, the rest of the level.
            const int to = nextFree(m_level[z], j, r);
            if (to > j) {
                if (!reject(subtreesFrom(j, to, r))) return false;
                m_next[z] = j = to;
            }
        }
        if (j > m_n - r) {
            --d;
            continue;
        }
        m_next[z] = j + 1;
        assert(j >= 1 && j <= m_n - r && (d == 0 || j > m_idx[z - 1] + 1));
        if (d > 0 && m_value[static_cast<size_t>(j)] == m_cand[z - 1] + 1 && follows(d)) {
            // A number that lengthens the run at the end where nothing can: no look at the rest.
            if (!reject(Binomial(m_n - j, r))) return false;
            continue;
        }
        if (const Fit fit = enter(d, j, r); fit != Fit::Fits) {
            // 2. Skip the subtree: no completion of this prefix can pass; and with it those of
            //    the later numbers at this depth that are ruled out alike.
            Count skipped = Binomial(m_n - j, r);
            if (fit != Fit::Dead) {
                const int to = std::min(nextToTry(fit, j), m_n - r + 1);
                skipped = subtreesFrom(j, to, r);
                m_next[z] = to;
            }
            if (!reject(skipped)) return false;
            continue;
        }
        if (r == 0) {
            // 3. A complete candidate.
            if (!leaf(d, m_level[static_cast<size_t>(m_len)].indices)) return false;
            continue;
        }
        // 4. Go down: the numbers barred after the new prefix grow by its new subsets.
        ++d;
        m_next[static_cast<size_t>(d)] = j + 1;
        Level& s = m_level[static_cast<size_t>(d)];
        s.barred = m_barring && m_kept.shared() >= 2 && d >= m_kept.shared() - 1
                       ? barredAfter(m_level[z].barred, d, j)
                       : m_level[z].barred;
        if (m_barring) {
            s.childLimit = childLimit(s, d);
            // No number can come next: the subtree is skipped here rather than one level down.
            if (FirstFree(s.barred, j) + 1 > std::min(m_n - r + 1, s.childLimit)) {
                --d;
                if (!reject(Binomial(m_n - j, r))) return false;
            }
        }
    }
    return true;
}

bool IntegralWalk::splittable() const {
    const RunControl& ctl = m_progress.control();
    return ctl.threads != 1 && m_kept.mode() == KeptIndex::Mode::Never && !m_plain && m_len >= 3 &&
           static_cast<double>(Binomial(m_n, m_len)) >= ctl.parallelFrom;
}

// The parts in walk order: the subtrees of prefixes, each split further while it holds more
// than a 256th of the run and its prefix is shorter than len-2 (the walk chooses the last two
// numbers together).
std::vector<Part> IntegralWalk::parts() const {
    const Count limit = std::max<Count>(Binomial(m_n, m_len) / 256, 1);
    std::vector<Part> out;
    Part p;
    auto split = [&](auto& self, int depth, int from) -> void {
        for (int j = from; j <= m_n - (m_len - depth - 1); ++j) {
            p.idx[static_cast<size_t>(depth)] = static_cast<uint8_t>(j);
            if (Binomial(m_n - j, m_len - depth - 1) > limit && depth + 1 < m_len - 2) {
                self(self, depth + 1, j + 1);
            } else {
                p.depth = depth + 1;
                out.push_back(p);
            }
        }
    };
    split(split, 0, 1);
    return out;
}

// Walks the subtree of one part into out; stops early when abort is set.
void IntegralWalk::walkPart(const Part& part, PartResult& out, const std::atomic<bool>& abort) {
    m_part = &out;
    m_abort = &abort;
    const int depth = part.depth;
    bool open = initRoot();
    for (int q = 0; q < depth && open; ++q) {
        const int j = part.idx[static_cast<size_t>(q)];
        open = enter(q, j, m_len - q - 1) == Fit::Fits;
        m_next[static_cast<size_t>(q + 1)] = j + 1;
    }
    if (open)
        walkFrom(depth);
    else
        out.after += Binomial(m_n - part.idx[static_cast<size_t>(depth - 1)], m_len - depth);
    m_part = nullptr;
}

// Hands a walked part to the run's progress and stores its columns; false when the run ends.
bool IntegralWalk::replay(const PartResult& r) {
    for (size_t i = 0; i < r.before.size(); ++i) {
        if (r.before[i] != 0 && !m_progress.reject(r.before[i])) return false;
        m_c.Colonne.setColumn(m_progress.kept() + 1, &r.columns[i * static_cast<size_t>(m_len)], m_len);
        if (!m_progress.keep()) return false;
    }
    return r.after == 0 || m_progress.reject(r.after);
}

// The walk split into parts that `threads` helper threads walk in turn, each into a result of
// its own. The calling thread stores the walked parts in walk order, so the columns and every
// report are those of one walk, and it alone reports; the helpers stay at most Window parts
// ahead of it. While it waits for a part it still publishes the counts and pauses.
void IntegralWalk::runInParts(int threads) {
    if (!initRoot()) {
        reject(Binomial(m_n, m_len));
        return;
    }
    const std::vector<Part> all = parts();
    // Consecutive small parts go together, a 256th of the run or more each: every part handed
    // over costs the calling thread a wake-up.
    std::vector<size_t> first{0}; // part k holds all[first[k]..first[k+1]-1]
    const Count share = Binomial(m_n, m_len) / 256;
    Count held = 0;
    for (size_t i = 0; i < all.size(); ++i) {
        const Part& part = all[i];
        held += Binomial(m_n - part.idx[static_cast<size_t>(part.depth - 1)], m_len - part.depth);
        if (held >= share || i + 1 == all.size()) {
            first.push_back(i + 1);
            held = 0;
        }
    }
    const size_t count = first.size() - 1;
    constexpr size_t Window = 64;
    std::vector<PartResult> results(count);
    const auto done = std::make_unique<std::atomic<int>[]>(count);
    std::atomic<size_t> claimed{0}, stored{0};
    std::atomic<bool> abort{false};
    std::mutex mutex;
    std::condition_variable walked;
    auto walkParts = [&](IntegralWalk& w, size_t k, PartResult& out) {
        // A part cut short (a stop, the end of the run, the limit) ends the group there.
        for (size_t i = first[k]; i < first[k + 1]; ++i) {
            w.walkPart(all[i], out, abort);
            if (out.truncated || abort.load() || out.before.size() >= static_cast<size_t>(MaxColonne)) break;
        }
    };
    auto helper = [&] {
        IntegralWalk w(m_c, m_numeri, m_n, m_progress);
        for (;;) {
            const size_t k = claimed.fetch_add(1);
            if (k >= count) return;
            for (size_t seen = stored.load(); k >= seen + Window; seen = stored.load())
                stored.wait(seen);
            if (abort.load()) return;
            try {
                walkParts(w, k, results[k]);
            } catch (const std::bad_alloc&) {
                results[k] = PartResult{};
                results[k].failed = true;
            }
            done[k].store(1, std::memory_order_release);
            std::lock_guard<std::mutex> lock(mutex);
            walked.notify_one();
        }
    };
    std::vector<std::thread> helpers;
    try {
        for (int t = 0; t < threads; ++t)
            helpers.emplace_back(helper);
    } catch (const std::system_error&) {
        // No more threads: those started walk every part; with none, the calling thread does.
    }
    for (size_t next = 0; next < count;) {
        if (helpers.empty() || done[next].load(std::memory_order_acquire) != 0) {
            PartResult& r = results[next];
            if (helpers.empty() || r.failed) {
                r = PartResult{};
                walkParts(*this, next, r);
            }
            bool goOn = replay(r);
            if (goOn && r.truncated) {
                // A part cut short by a stop ends the run where its walk ended.
                m_progress.stopHere();
                goOn = false;
            }
            r = PartResult{};
            stored.store(++next);
            stored.notify_all();
            if (!goOn) break;
            continue;
        }
        std::unique_lock<std::mutex> lock(mutex);
        walked.wait_for(lock, std::chrono::milliseconds(20),
                        [&] { return done[next].load(std::memory_order_acquire) != 0; });
        lock.unlock();
        // A stop reaches the helpers, which end their parts at once; one asked during a pause
        // ends the run at the counts the pause showed.
        if (!m_progress.waiting()) break;
    }
    abort.store(true);
    stored.store(count + Window); // wakes a helper waiting for room
    stored.notify_all();
    for (std::thread& t : helpers)
        t.join();
}

} // namespace

bool CanWalk(const uint8_t* numeri, int n) {
#ifdef DV_WALK_POPCNT
    if (!__builtin_cpu_supports("popcnt")) return false;
#endif
    return IsSet(numeri, n);
}

void WalkIntegral(Corpo& c, const uint8_t* numeri, int n, RunProgress& progress) {
    IntegralWalk walk(c, numeri, n, progress);
    const int threads = progress.control().threads;
    const int cores = static_cast<int>(std::thread::hardware_concurrency());
    const int use = threads > 0 ? threads : std::clamp(cores, 1, 4);
    if (use > 1 && walk.splittable())
        walk.runInParts(use);
    else
        walk.run();
}

} // namespace dv::engine
