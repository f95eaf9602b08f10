#include "core/engine/Filters.h"

#include <algorithm>

namespace dv::engine {

namespace {

// Records in table order as masks restricted to the numbers a column can hold.
std::vector<FilterGroup> AsMasks(const TabellaFiltri& table, Mask universe) {
    std::vector<FilterGroup> out;
    out.reserve(static_cast<size_t>(table.count()));
    for (int i = 1; i <= table.count(); ++i) {
        const ColonnaFiltro& f = table[i];
        Mask m;
        // Element 0 is never set, so a 0 in a column (checked byte by byte) is never a hit.
        for (int v = 0; v <= 90; ++v)
            if (f.Numeri[static_cast<size_t>(v)] == 1) m |= Mask::bit(v);
        // Counts reach at most 25, where Potenze2 ends.
        out.push_back(FilterGroup{m & universe, static_cast<uint32_t>(f.Presenze) & 0x3FF'FFFFu, 1});
    }
    return out;
}

// Merges records with the same numbers: AND keeps the counts all of them allow, OR those any
// of them allows; XOR merges only identical records, which pass or fail together.
std::vector<FilterGroup> Group(std::vector<FilterGroup> records, TableKind k) {
    std::sort(records.begin(), records.end(), [](const FilterGroup& a, const FilterGroup& b) {
        return a.numbers == b.numbers ? a.presenze < b.presenze : a.numbers < b.numbers;
    });
    std::vector<FilterGroup> out;
    for (const FilterGroup& r : records) {
        if (!out.empty() && out.back().numbers == r.numbers) {
            FilterGroup& g = out.back();
            if (k == TableKind::And) {
                g.presenze &= r.presenze;
                continue;
            }
            if (k == TableKind::Or) {
                g.presenze |= r.presenze;
                continue;
            }
            if (g.presenze == r.presenze) {
                g.weight = 2;
                continue;
            }
        }
        out.push_back(r);
    }
    return out;
}

} // namespace

void CompiledTable::compile(const TabellaFiltri& table, TableKind k, Mask universe, int universeSize,
                            int len) {
    kind = k;
    inUse = table.count() > 0;
    alwaysFails = false;
    satisfied = !inUse || k == TableKind::And;
    base = 0;
    groups.clear();
    lastDecider = 0;
    if (!inUse) return;
    for (const FilterGroup& g : Group(AsMasks(table, universe), k)) {
        const Verdict v =
            universeSize == 0 ? Verdict::Open : Classify(g, Mask{}, universe, len, universeSize);
        switch (v) {
        case Verdict::Fail:
            if (k == TableKind::And) alwaysFails = true;
            break;
        case Verdict::Pass:
            if (k == TableKind::Or) satisfied = true;
            if (k == TableKind::Xor) base = std::min(2, base + g.weight);
            break;
        case Verdict::Open:
            groups.push_back(g);
            break;
        }
    }
    if (k == TableKind::And) satisfied = !alwaysFails && groups.empty();
    if (k == TableKind::Or) {
        if (satisfied) groups.clear();
        alwaysFails = !satisfied && groups.empty();
    }
    if (k == TableKind::Xor) {
        alwaysFails = base >= 2 || (base == 0 && groups.empty());
        satisfied = base == 1 && groups.empty();
    }
}

} // namespace dv::engine
