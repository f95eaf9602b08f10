#include "prize/VerificaSistemi.h"

#include "core/Helpers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>

namespace dv {

namespace {

constexpr size_t PocheLinee = 8;
constexpr size_t PassoAvanzamento = 10'000;

// Each line of colonne2 against each record of colonne1 through a presence table; the two threads
// take half of the records each, the second counting into secondo.
void ContaDiretto(const std::vector<RecordNumeri>& colonne1, const std::vector<RecordNumeri>& colonne2,
                  int len, std::vector<std::vector<int32_t>>& conteggi,
                  std::vector<std::vector<int32_t>>& secondo, AvanzamentoSpoglio& avanzamento) {
    const size_t records = colonne1.size() - 1;
    for (size_t r = 0; r < conteggi.size(); ++r) {
        std::array<uint8_t, 256> presenza{};
        const RecordNumeri& linea = colonne2[r + 1];
        for (int k = 0; k < std::min<int>(linea.count, 25); ++k)
            if (linea.numbers[static_cast<size_t>(k)] <= 90)
                presenza[linea.numbers[static_cast<size_t>(k)]] = 1;
        presenza[0] = 0;
        DueParti(records >= 100'000, [&](int t, int n) {
            const size_t j0 = 1 + records * static_cast<size_t>(t) / static_cast<size_t>(n);
            const size_t j1 = 1 + records * static_cast<size_t>(t + 1) / static_cast<size_t>(n);
            int32_t* conta = t == 0 ? conteggi[r].data() : secondo[r].data();
            for (size_t a = j0; a < j1; a += PassoAvanzamento) {
                if (avanzamento.stop.load(std::memory_order_relaxed)) return;
                const size_t b = std::min(j1, a + PassoAvanzamento);
                for (size_t j = a; j < b; ++j) {
                    const uint8_t* x = colonne1[j].numbers.data();
                    int h = 0;
                    for (int p = 0; p < len; ++p)
                        h += presenza[x[p]];
                    ++conta[h];
                }
                if (t == 0)
                    avanzamento.progress(static_cast<double>(r * records + (b - j0) * static_cast<size_t>(n)),
                                         static_cast<double>(conteggi.size() * records));
            }
        });
    }
}

// Every line of colonne2 against the bit planes of colonne1.
void ContaPiani(const std::vector<RecordNumeri>& colonne1, const std::vector<RecordNumeri>& colonne2, int len,
                std::vector<std::vector<int32_t>>& conteggi, AvanzamentoSpoglio& avanzamento) {
    PianiColonne piani;
    piani.daRecord(colonne1, len);
    const size_t righe = conteggi.size();
    std::vector<EstrazionePiani> linee(righe);
    for (size_t r = 0; r < righe; ++r) {
        const RecordNumeri& rec = colonne2[r + 1];
        linee[r].imposta(piani, rec.numbers.data(), std::min<int>(rec.count, 25), 0, 0);
    }
    // The lines are shared between the two threads; the blocks of columns go by once for each.
    const int32_t blocchi = piani.blocchi();
    const int32_t passo = 157; // blocks in about 10,000 lines
    DueParti(int64_t{blocchi} * static_cast<int64_t>(righe) >= 4096, [&](int t, int n) {
        const size_t r0 = righe * static_cast<size_t>(t) / static_cast<size_t>(n);
        const size_t r1 = righe * static_cast<size_t>(t + 1) / static_cast<size_t>(n);
        ClassiBlocco classi;
        for (int32_t b0 = 0; b0 < blocchi; b0 += passo) {
            if (avanzamento.stop.load(std::memory_order_relaxed)) return;
            const int32_t b1 = std::min(blocchi, b0 + passo);
            for (int32_t b = b0; b < b1; ++b)
                for (size_t r = r0; r < r1; ++r) {
                    Classifica(piani, b, ~uint64_t{0}, linee[r], classi);
                    int32_t* conta = conteggi[r].data();
                    for (int h = 0; h <= classi.hMax; ++h)
                        conta[h] += std::popcount(classi.m[static_cast<size_t>(h)][0]);
                }
            if (t == 0) avanzamento.progress(static_cast<double>(b1), static_cast<double>(blocchi));
        }
    });
}

} // namespace

RisultatoVerifica VerificaSistema(const std::vector<RecordNumeri>& colonne1,
                                  const std::vector<RecordNumeri>& colonne2,
                                  AvanzamentoSpoglio& avanzamento) {
    RisultatoVerifica v;
    v.lenFile1 = colonne1.size() > 1 ? std::min<int>(colonne1[1].count, 25) : 0;
    const int len = v.lenFile1;
    const size_t righe = colonne2.size() > 1 ? colonne2.size() - 1 : 0;
    v.conteggi.assign(righe, std::vector<int32_t>(static_cast<size_t>(len) + 3, 0));
    // A few lines are met by reading the first file once per line; building its planes pays only
    // for many lines.
    const bool pochi = righe < PocheLinee;
    std::vector<std::vector<int32_t>> secondo(righe, std::vector<int32_t>(26, 0));
    if (pochi)
        ContaDiretto(colonne1, colonne2, len, v.conteggi, secondo, avanzamento);
    else
        ContaPiani(colonne1, colonne2, len, v.conteggi, avanzamento);
    if (avanzamento.stop.load()) {
        v.fermato = true;
        return v;
    }

    // Each row's lowest and highest hits; the totals.
    v.totali.assign(static_cast<size_t>(len) + 3, 0);
    int32_t maxTutti = 0, minTutti = 255;
    for (size_t r = 0; r < righe; ++r) {
        auto& c = v.conteggi[r];
        for (int h = 0; h <= len; ++h)
            c[static_cast<size_t>(h)] += secondo[r][static_cast<size_t>(h)];
        int32_t mx = 0, mn = 255;
        for (int h = 0; h <= len; ++h)
            if (c[static_cast<size_t>(h)] != 0) {
                mx = std::max(mx, h);
                mn = std::min(mn, h);
            }
        c[static_cast<size_t>(len) + 1] = mn;
        c[static_cast<size_t>(len) + 2] = mx;
        for (size_t i = 0; i < c.size(); ++i)
            v.totali[i] += c[i];
        maxTutti = std::max(maxTutti, mx);
        minTutti = std::min(minTutti, mn);
    }
    v.totali[static_cast<size_t>(len) + 2] = maxTutti;
    v.totali[static_cast<size_t>(len) + 1] = minTutti;
    return v;
}

std::vector<std::string> IntestazioneVerifica(int lenFile1) {
    std::vector<std::string> h{"N.", "Col ", "Max", "Min"};
    for (int p = lenFile1; p >= 0; --p)
        h.push_back("Pt." + std::to_string(p));
    return h;
}

std::vector<std::string> CelleVerifica(const RisultatoVerifica& v, const RecordNumeri& riga, size_t r) {
    std::vector<std::string> c{std::to_string(r + 1)};
    std::string numeri = NumeriToString(riga.numbers.data(), std::min<int>(riga.count, 25), 1);
    std::replace(numeri.begin(), numeri.end(), ' ', '-');
    c.push_back(std::move(numeri));
    const auto& conta = v.conteggi[r];
    for (size_t i = conta.size(); i-- > 0;)
        c.push_back(std::to_string(conta[i]));
    return c;
}

std::vector<std::string> TotaliVerifica(const RisultatoVerifica& v) {
    std::vector<std::string> c{"TOT", ""};
    for (size_t i = v.totali.size(); i-- > 0;)
        c.push_back(std::to_string(v.totali[i]));
    return c;
}

} // namespace dv

namespace dv {

GrigliaTesti GrigliaVerifica(const std::vector<RecordNumeri>& colonne2, const RisultatoVerifica& v) {
    GrigliaTesti g;
    g.righe = static_cast<int>(v.conteggi.size()) + 2;
    g.colonne = v.lenFile1 + 5;
    auto ultima = std::make_shared<std::pair<int, std::vector<std::string>>>(-1, std::vector<std::string>{});
    g.testo = [&colonne2, &v, ultima](int riga, int colonna) {
        if (ultima->first != riga) {
            ultima->first = riga;
            const size_t r = static_cast<size_t>(riga);
            if (riga == 0)
                ultima->second = IntestazioneVerifica(v.lenFile1);
            else if (r == v.conteggi.size() + 1)
                ultima->second = TotaliVerifica(v);
            else
                ultima->second = CelleVerifica(v, colonne2[r], r - 1);
        }
        return ultima->second[static_cast<size_t>(colonna)];
    };
    return g;
}

} // namespace dv
