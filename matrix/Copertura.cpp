#include "matrix/Copertura.h"

#include "matrix/Garanzia.h"

#include <algorithm>
#include <array>
#include <bit>
#include <random>

namespace dv {

namespace {

struct Binomiali {
    std::array<std::array<uint64_t, 32>, 128> c{};
    Binomiali() {
        for (size_t n = 0; n < 128; ++n) {
            c[n][0] = 1;
            for (size_t k = 1; k < 32; ++k)
                c[n][k] = n == 0 ? 0 : c[n - 1][k - 1] + c[n - 1][k];
        }
    }
};

class Stato {
public:
    Stato(int v, int m)
        : m_v(v), m_m(m), m_totale(NumeroSottoinsiemi(v, m)), m_bit((m_totale + 63) / 64, 0) {}

    uint64_t totale() const { return m_totale; }
    uint64_t coperti() const { return m_coperti; }
    bool coperto(uint64_t r) const { return (m_bit[r >> 6] >> (r & 63)) & 1u; }
    // The colex rank of an ascending subset of 0-based indices.
    uint64_t rango(const int* s) const {
        uint64_t r = 0;
        for (int i = 0; i < m_m; ++i)
            r += m_b.c[static_cast<size_t>(s[i])][static_cast<size_t>(i) + 1];
        return r;
    }
    // The first uncovered subset at or after the cursor, unranked into s.
    bool primoScoperto(int* s) {
        while (m_cursore < m_totale && coperto(m_cursore))
            ++m_cursore;
        if (m_cursore >= m_totale) return false;
        uint64_t r = m_cursore;
        for (int i = m_m; i >= 1; --i) {
            int x = i - 1;
            while (m_b.c[static_cast<size_t>(x) + 1][static_cast<size_t>(i)] <= r)
                ++x;
            s[i - 1] = x;
            r -= m_b.c[static_cast<size_t>(x)][static_cast<size_t>(i)];
        }
        return true;
    }
    // Visits every M-subset holding at least t members of col (ascending 0-based, k long).
    template <typename F> void perOgni(const int* col, int k, int t, F&& f) const {
        std::array<bool, 128> in{};
        for (int i = 0; i < k; ++i)
            in[static_cast<size_t>(col[i])] = true;
        std::vector<int> fuori;
        for (int i = 0; i < m_v; ++i)
            if (!in[static_cast<size_t>(i)]) fuori.push_back(i);
        for (int j = t; j <= std::min(k, m_m); ++j) {
            if (m_m - j > static_cast<int>(fuori.size())) continue;
            std::array<int, 32> a{}, b{};
            for (int i = 0; i < j; ++i)
                a[static_cast<size_t>(i)] = i;
            do {
                for (int i = 0; i < m_m - j; ++i)
                    b[static_cast<size_t>(i)] = i;
                do {
                    // Merge the two ascending parts into the subset.
                    std::array<int, 32> s{};
                    int x = 0, y = 0;
                    for (int i = 0; i < m_m; ++i) {
                        const int va = x < j ? col[a[static_cast<size_t>(x)]] : 1 << 20;
                        const int vb =
                            y < m_m - j ? fuori[static_cast<size_t>(b[static_cast<size_t>(y)])] : 1 << 20;
                        if (va < vb) {
                            s[static_cast<size_t>(i)] = va;
                            ++x;
                        } else {
                            s[static_cast<size_t>(i)] = vb;
                            ++y;
                        }
                    }
                    f(rango(s.data()));
                } while (avanza(b.data(), m_m - j, static_cast<int>(fuori.size())));
            } while (avanza(a.data(), j, k));
        }
    }
    void copri(uint64_t r) {
        uint64_t& w = m_bit[r >> 6];
        const uint64_t b = uint64_t{1} << (r & 63);
        if (!(w & b)) {
            w |= b;
            ++m_coperti;
        }
    }

private:
    // The next j-subset of 0..n-1 in lexicographic order; false after the last.
    static bool avanza(int* a, int j, int n) {
        int i = j - 1;
        while (i >= 0 && a[i] == n - j + i)
            --i;
        if (i < 0) return false;
        ++a[i];
        for (int x = i + 1; x < j; ++x)
            a[x] = a[x - 1] + 1;
        return true;
    }

    int m_v, m_m;
    uint64_t m_totale;
    std::vector<uint64_t> m_bit;
    uint64_t m_coperti = 0;
    uint64_t m_cursore = 0;
    Binomiali m_b;
};

} // namespace

std::vector<std::vector<uint8_t>> CoperturaGreedy(int v, int k, int t, int m, uint32_t seed, int candidati) {
    std::vector<std::vector<uint8_t>> out;
    if (v < 1 || v > 90 || k < 1 || k > v || k > 31 || t < 1 || t > k || t > m || m > v || m > 31) return out;
    if (NumeroSottoinsiemi(v, m) > MaxSottoinsiemiCopertura) return out;
    Stato stato(v, m);
    std::mt19937 rng(seed);
    std::array<int, 32> s{};
    while (stato.primoScoperto(s.data())) {
        std::vector<int> migliore;
        uint64_t guadagnoMigliore = 0;
        for (int cand = 0; cand < std::max(1, candidati); ++cand) {
            // T members of the uncovered subset, then K - T other indices.
            std::vector<int> dentro(s.begin(), s.begin() + m);
            std::shuffle(dentro.begin(), dentro.end(), rng);
            std::vector<int> col(dentro.begin(), dentro.begin() + t);
            std::vector<int> resto;
            for (int i = 0; i < v; ++i)
                if (std::find(col.begin(), col.end(), i) == col.end()) resto.push_back(i);
            std::shuffle(resto.begin(), resto.end(), rng);
            col.insert(col.end(), resto.begin(), resto.begin() + (k - t));
            std::sort(col.begin(), col.end());
            uint64_t guadagno = 0;
            stato.perOgni(col.data(), k, t, [&](uint64_t r) { guadagno += !stato.coperto(r); });
            if (guadagno > guadagnoMigliore) {
                guadagnoMigliore = guadagno;
                migliore = col;
            }
        }
        stato.perOgni(migliore.data(), k, t, [&](uint64_t r) { stato.copri(r); });
        std::vector<uint8_t> colonna;
        for (int i : migliore)
            colonna.push_back(static_cast<uint8_t>(i + 1));
        out.push_back(std::move(colonna));
    }
    return out;
}

} // namespace dv
