// Random mixes of the conditions a player sets together: even counts, longest runs, distance
// conditions and small filter tables, now and then a sum or fixed numbers. The benchmark draws
// its mixed states from here, and the differential test draws the same mixes on small forecasts.
#pragma once

#include "core/Corpo.h"

#include <algorithm>
#include <random>
#include <vector>

namespace dv::test {

class MixedConditions {
public:
    explicit MixedConditions(std::mt19937_64& rng) : m_rng(rng) {}

    int uniform(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(m_rng); }
    bool chance(double p) { return std::bernoulli_distribution(p)(m_rng); }

    // n numbers of 1..90: a stretch of the grid, or numbers spread over it; ascending.
    std::vector<int> forecast(int n) {
        std::vector<int> v;
        if (chance(0.5)) {
            const int from = uniform(1, 91 - n);
            for (int i = 0; i < n; ++i)
                v.push_back(from + i);
            return v;
        }
        for (int i = 1; i <= 90; ++i)
            v.push_back(i);
        std::shuffle(v.begin(), v.end(), m_rng);
        v.resize(static_cast<size_t>(n));
        std::sort(v.begin(), v.end());
        return v;
    }

    // Adds a mix of conditions to c, whose forecast and column length are set. At least two of
    // even counts, runs and distance conditions are drawn.
    void draw(Corpo& c) {
        const int len = c.LenColonna;
        m_forecast.assign(c.pronostico.Numeri.begin(), c.pronostico.Numeri.begin() + c.pronostico.Quanti);
        const int kinds = uniform(0, 3); // which of the three is left out (3: none)
        Condizioni& k = c.condizioni;
        if (kinds != 0) {
            k.CondPari = Vero;
            const int mid = len / 2 + uniform(-1, 1);
            const int width = uniform(0, 2);
            for (int e = std::max(0, mid - width); e <= std::min(len, mid + width); ++e)
                k.TabPari[static_cast<size_t>(e)] = Vero;
        }
        if (kinds != 1) {
            c.consecutivi.CondConsecutivi = Vero;
            const int from = uniform(1, 2), to = from + uniform(0, 2);
            for (int r = from; r <= std::min(to, len); ++r)
                c.consecutivi.MaskConsecutivi |= 1 << r;
        }
        if (kinds != 2) {
            const int records = chance(0.7) ? 1 : uniform(2, 3);
            for (int i = 0; i < records; ++i)
                c.CondizioniDistanza.append(distance(len));
        }
        if (chance(0.25)) {
            k.CondSomma = Vero;
            int sum = 0;
            for (int v : m_forecast)
                sum += v;
            const int mid = sum * len / static_cast<int>(m_forecast.size()) + uniform(-len * 3, len * 3);
            const int half = uniform(len * 2, len * 8);
            k.SommaMinMax = {static_cast<int16_t>(mid - half), static_cast<int16_t>(mid + half)};
        }
        if (chance(0.15)) {
            k.CondFisse = Vero;
            k.NumFisse = static_cast<uint8_t>(uniform(1, 2));
            for (int i = 0; i < k.NumFisse;) {
                const int v = pick();
                if (k.TabFisse[static_cast<size_t>(v)] == 1) continue;
                k.TabFisse[static_cast<size_t>(v)] = 1;
                ++i;
            }
        }
        const int table = uniform(0, 3); // AND, OR, XOR or none
        if (table < 3) {
            TabellaFiltri* t[] = {&c.FiltriAND, &c.FiltriOR, &c.FiltriXOR};
            const int records = uniform(1, 6);
            for (int i = 0; i < records; ++i)
                t[table]->append(filter(len, table));
        }
    }

    // A distance condition on some of the pairs: the smallest gap kept small, the greatest
    // kept under a bound, or both.
    CondizioneDistanza distance(int len) {
        CondizioneDistanza d;
        std::vector<int> pairs;
        for (int p = 1; p < len; ++p)
            if (chance(0.6)) pairs.push_back(p);
        if (pairs.empty()) pairs.push_back(uniform(1, len - 1));
        d.NumPosizioni = static_cast<uint8_t>(pairs.size());
        for (size_t i = 0; i < pairs.size(); ++i)
            d.Posizioni[i + 1] = static_cast<uint8_t>(pairs[i]);
        const int what = uniform(0, 2);
        if (what != 1) {
            const int from = uniform(1, 2), to = from + uniform(0, 3);
            for (int x = from; x <= to; ++x)
                d.DistanzaMin[static_cast<size_t>(x)] = Vero;
            d.NumDistanzeMin = static_cast<uint8_t>(to - from + 1);
        }
        if (what != 0) {
            const int spread = std::max(2, static_cast<int>(m_forecast.size()) / len);
            const int from = uniform(2, spread + 1), to = from + uniform(0, spread * 2);
            for (int x = from; x <= std::min(89, to); ++x)
                d.DistanzaMax[static_cast<size_t>(x)] = Vero;
            d.NumDistanzeMax = static_cast<uint8_t>(std::min(89, to) - from + 1);
        }
        d.Stato = Vero;
        return d;
    }

    // A record of 4 to 10 numbers of the forecast; the counts it allows depend on the table.
    ColonnaFiltro filter(int len, int table) {
        ColonnaFiltro f;
        const int numbers = static_cast<int>(m_forecast.size());
        const int size = uniform(std::min(4, numbers), std::min(10, numbers));
        for (int i = 0; i < size;) {
            const int v = pick();
            if (f.Numeri[static_cast<size_t>(v)] == 1) continue;
            f.Numeri[static_cast<size_t>(v)] = 1;
            ++i;
        }
        const int expect = size * len / static_cast<int>(m_forecast.size());
        const int from = std::max(0, expect - uniform(table == 0 ? 1 : 0, 2));
        const int to = std::min(len, expect + (table == 0 ? uniform(1, 3) : uniform(-1, 1)));
        for (int b = from; b <= to; ++b)
            f.Presenze |= 1 << b;
        f.Stato = Vero;
        return f;
    }

private:
    int pick() {
        return m_forecast[static_cast<size_t>(uniform(0, static_cast<int>(m_forecast.size()) - 1))];
    }

    std::mt19937_64& m_rng;
    std::vector<int> m_forecast;
};

} // namespace dv::test
