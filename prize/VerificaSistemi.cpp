#include "prize/VerificaSistemi.h"

#include "core/Helpers.h"

#include <algorithm>
#include <bit>
#include <memory>

namespace dv {

RisultatoVerifica VerificaSistema(const std::vector<RecordNumeri>& colonne1,
                                  const std::vector<RecordNumeri>& colonne2,
                                  AvanzamentoSpoglio& avanzamento) {
    RisultatoVerifica v;
    v.lenFile1 = colonne1.size() > 1 ? std::min<int>(colonne1[1].count, 25) : 0;
    const int len = v.lenFile1;
    PianiColonne piani;
    piani.daRecord(colonne1, len);
    const size_t righe = colonne2.size() > 1 ? colonne2.size() - 1 : 0;
    std::vector<EstrazionePiani> linee(righe);
    for (size_t r = 0; r < righe; ++r) {
        const RecordNumeri& rec = colonne2[r + 1];
        linee[r].imposta(piani, rec.numbers.data(), std::min<int>(rec.count, 25), 0, 0);
    }
    v.conteggi.assign(righe, std::vector<int32_t>(static_cast<size_t>(len) + 3, 0));

    // Every line of the first file against every line of the second: with many lines the lines
    // are shared between the threads, with few the columns are.
    const int32_t blocchi = piani.blocchi();
    const int32_t passo = 157; // blocks in about 10,000 lines
    const bool perLinee = righe >= 2;
    std::vector<std::vector<int32_t>> secondo(perLinee ? 0 : righe, std::vector<int32_t>(26, 0));
    DueParti(int64_t{blocchi} * static_cast<int64_t>(righe) >= 4096, [&](int t, int n) {
        const size_t r0 = perLinee ? righe * static_cast<size_t>(t) / static_cast<size_t>(n) : 0;
        const size_t r1 = perLinee ? righe * static_cast<size_t>(t + 1) / static_cast<size_t>(n) : righe;
        const int32_t primo = perLinee ? 0 : static_cast<int32_t>(int64_t{blocchi} * t / n);
        const int32_t ultimo = perLinee ? blocchi : static_cast<int32_t>(int64_t{blocchi} * (t + 1) / n);
        ClassiBlocco classi;
        for (int32_t b0 = primo; b0 < ultimo; b0 += passo) {
            if (avanzamento.stop.load(std::memory_order_relaxed)) return;
            const int32_t b1 = std::min(ultimo, b0 + passo);
            for (int32_t b = b0; b < b1; ++b)
                for (size_t r = r0; r < r1; ++r) {
                    Classifica(piani, b, ~uint64_t{0}, linee[r], classi);
                    int32_t* conta = (t == 1 && !perLinee) ? secondo[r].data() : v.conteggi[r].data();
                    for (int h = 0; h <= classi.hMax; ++h)
                        conta[h] += std::popcount(classi.m[static_cast<size_t>(h)][0]);
                }
            if (t == 0)
                avanzamento.progress(static_cast<double>(b1 - primo), static_cast<double>(ultimo - primo));
        }
    });
    if (avanzamento.stop.load()) {
        v.fermato = true;
        return v;
    }

    // Each row's lowest and highest hits; the totals.
    v.totali.assign(static_cast<size_t>(len) + 3, 0);
    int32_t maxTutti = 0, minTutti = 255;
    for (size_t r = 0; r < righe; ++r) {
        auto& c = v.conteggi[r];
        if (!perLinee)
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
