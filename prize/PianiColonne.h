// Columns in bit planes, the form in which the checks compare millions of columns with draws.
// Columns go in blocks of 64; for each number that the columns use, a block holds one 64-bit word
// whose bit j says that column 64*b + j + 1 holds the number. A draw then meets a whole block at
// once: the hits of 64 columns are the sum, in vertical counters, of the planes of the draw's
// numbers, and one popcount counts the columns of a category.
#pragma once

#include "core/ColumnStore.h"
#include "system_files/ColonneTesto.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

namespace dv {

// Receives the progress of a long check and carries its stop flag. progress() is called from
// the thread that runs the check, at fixed counts of columns, never per column.
class AvanzamentoSpoglio {
public:
    virtual ~AvanzamentoSpoglio() = default;
    // done of total units of work (columns times draws or lines) are behind.
    virtual void progress(double done, double total) { (void)done, (void)total; }
    std::atomic<bool> stop{false};
};

class PianiColonne {
public:
    // The count numbers of position 1..len of columns 1..count of the store. candidati are the
    // numbers the columns are expected to use (the forecast); a number outside them makes the
    // build start again over all ninety.
    void daSistema(const ColumnStore& store, int32_t count, int len, const uint8_t* candidati,
                   int nCandidati);
    // Records 1..size-1 of a text file of columns, positions 0..len-1 of each; a position past
    // the record's count holds 0.
    void daRecord(const std::vector<RecordNumeri>& records, int len);

    int32_t colonne() const { return m_colonne; }
    int32_t blocchi() const { return m_blocchi; }
    int len() const { return m_len; }
    // Planes per block; word numeri() of a block holds its ordinary columns.
    int numeri() const { return m_numeri; }
    // The plane of number n (1..90) in a block, or -1 when no column holds it.
    int piano(int n) const { return n >= 1 && n <= 90 ? m_piano[static_cast<size_t>(n)] : -1; }
    // Block b: the planes, then the mask of its ordinary columns.
    const uint64_t* blocco(int32_t b) const { return &m_parole[static_cast<size_t>(b) * m_passo]; }
    uint64_t ordinarie(int32_t b) const { return blocco(b)[m_numeri]; }

    // A column that holds a number twice: each position counts as a hit of its own, so such a
    // column is left out of the planes and counted one position at a time.
    struct Speciale {
        int32_t colonna = 0; // 1-based
        uint8_t len = 0;
        std::array<uint8_t, 25> numeri{};
    };
    // The special columns of block b, in column order.
    const Speciale* specialiDa(int32_t b) const {
        return m_speciali.data() + m_primoSpeciale[static_cast<size_t>(b)];
    }
    const Speciale* specialiA(int32_t b) const {
        return m_speciali.data() + m_primoSpeciale[static_cast<size_t>(b) + 1];
    }

private:
    void prepara(int32_t count, int len, const std::array<bool, 91>& usati);
    template <typename Leggi> bool costruisci(Leggi leggi, const uint8_t* const* righe);

    int32_t m_colonne = 0;
    int32_t m_blocchi = 0;
    int m_len = 0;
    int m_numeri = 0;   // planes per block
    size_t m_passo = 0; // words per block: planes, ordinary columns, a scratch word
    std::array<int8_t, 91> m_piano{};
    std::vector<uint64_t> m_parole;
    std::vector<Speciale> m_speciali;
    std::vector<int32_t> m_primoSpeciale;
};

// A draw or a line as the planes see it: the planes of its numbers, and of its Oro numbers when
// they are among its numbers.
struct EstrazionePiani {
    std::array<uint64_t, 2> maschera{}; // bit n-1 for each number n of the draw (1..90)
    int n = 0;                          // planes in piani
    std::array<int16_t, 90> piani{};
    int pianoOro = -1;           // plane of the Numero Oro when it is drawn and some column holds it
    int pianoDoppio = -1;        // the same for the Doppio Oro
    uint8_t oro = 0, doppio = 0; // the Oro numbers when they are drawn, else 0

    void imposta(const PianiColonne& p, const uint8_t* numeri, int count, uint8_t numeroOro,
                 uint8_t doppioOro);
    bool presente(int n) const {
        return n >= 1 && n <= 90 && ((maschera[static_cast<size_t>(n - 1) >> 6] >> ((n - 1) & 63)) & 1);
    }
};

// The columns of one block by category: m[h][k] holds the columns with h hits whose Oro flags
// are k (bit 0 the Numero Oro among the hits, bit 1 the Doppio Oro). Rows above hMax are empty.
struct ClassiBlocco {
    int hMax = 0;
    std::array<std::array<uint64_t, 4>, 26> m;
};

// The categories of the columns of block b selected by scelte (bit j: column 64*b + j + 1)
// against the draw, counting at most lenMax hits. Special columns are counted position by
// position, as the rules count them.
void Classifica(const PianiColonne& p, int32_t b, uint64_t scelte, const EstrazionePiani& e,
                ClassiBlocco& out);

// Columns counted by hits over a run of blocks: tutte[h] all of them, oro1[h] those holding the
// Numero Oro among their hits, oro2[h] the Doppio Oro, entrambi[h] both.
struct SommeClassi {
    std::array<int32_t, 26> tutte{}, oro1{}, oro2{}, entrambi{};
};

// The hits of special column s against the draw, and its Oro flags (bit 0, bit 1).
std::pair<int, int> ClasseSpeciale(const PianiColonne::Speciale& s, const EstrazionePiani& e);

// Adds to s the special columns of blocks b0..b1-1, counted one position at a time.
inline void ContaSpeciali(const PianiColonne& p, int32_t b0, int32_t b1, const EstrazionePiani& e,
                          SommeClassi& s) {
    for (const PianiColonne::Speciale* x = p.specialiDa(b0); x != p.specialiA(b1 - 1); ++x) {
        const auto [h, k] = ClasseSpeciale(*x, e);
        const size_t i = static_cast<size_t>(h);
        ++s.tutte[i];
        s.oro1[i] += k & 1;
        s.oro2[i] += k >> 1;
        s.entrambi[i] += k == 3;
    }
}

namespace dettaglio {
// ContaBlocchi for draws of fewer than 2^Bits numbers among the planes: the counters and the
// tests of a count are unrolled.
template <int Bits>
void ContaBlocchi(const PianiColonne& p, int32_t b0, int32_t b1, const EstrazionePiani& e, SommeClassi& s) {
    const int hMax = std::min(e.n, p.len());
    const bool conOro = e.pianoOro >= 0 || e.pianoDoppio >= 0;
    for (int32_t b = b0; b < b1; ++b) {
        const uint64_t* w = p.blocco(b);
        std::array<uint64_t, Bits + 1> c{};
        for (int i = 0; i < e.n; ++i) {
            uint64_t carry = w[e.piani[static_cast<size_t>(i)]];
            for (int k = 0; k < Bits; ++k) {
                const uint64_t t = c[static_cast<size_t>(k)] & carry;
                c[static_cast<size_t>(k)] ^= carry;
                carry = t;
            }
        }
        const uint64_t sel = p.ordinarie(b);
        const uint64_t a1 = e.pianoOro >= 0 ? w[e.pianoOro] : 0;
        const uint64_t a2 = e.pianoDoppio >= 0 ? w[e.pianoDoppio] : 0;
        const uint64_t a12 = a1 & a2;
        for (int h = 0; h <= hMax; ++h) {
            uint64_t eq = sel;
            for (int k = 0; k < Bits; ++k) {
                const uint64_t m = uint64_t{0} - static_cast<uint64_t>((h >> k) & 1);
                eq &= ~(c[static_cast<size_t>(k)] ^ m);
            }
            const size_t i = static_cast<size_t>(h);
            s.tutte[i] += std::popcount(eq);
            if (conOro) {
                s.oro1[i] += std::popcount(eq & a1);
                s.oro2[i] += std::popcount(eq & a2);
                s.entrambi[i] += std::popcount(eq & a12);
            }
        }
        ContaSpeciali(p, b, b + 1, e, s);
    }
}
} // namespace dettaglio

// Adds the columns of blocks b0..b1-1 to s by category. The counting of Classifica without its
// masks: the loop that checks a whole archive.
inline void ContaBlocchi(const PianiColonne& p, int32_t b0, int32_t b1, const EstrazionePiani& e,
                         SommeClassi& s) {
    switch (std::bit_width(static_cast<unsigned>(e.n))) {
    case 0:
        return dettaglio::ContaBlocchi<0>(p, b0, b1, e, s);
    case 1:
        return dettaglio::ContaBlocchi<1>(p, b0, b1, e, s);
    case 2:
        return dettaglio::ContaBlocchi<2>(p, b0, b1, e, s);
    case 3:
        return dettaglio::ContaBlocchi<3>(p, b0, b1, e, s);
    case 4:
        return dettaglio::ContaBlocchi<4>(p, b0, b1, e, s);
    default:
        return dettaglio::ContaBlocchi<5>(p, b0, b1, e, s);
    }
}

// How a check walks the columns: Automatico takes vector instructions when the processor has
// them and a second thread when the work is long; the others force one way, so that each can be
// tested against the literal loop.
enum class ModoSpoglio { Automatico, Semplice, DueThread };

// True when the processor runs the checks' AVX2 loops.
bool ConAvx2();

// Blocks b0..b1-1 (at most 64) of the planes with each plane's words side by side, so that
// ContaTrasposti counts four blocks at once. Loaded once, it serves every draw.
class BlocchiTrasposti {
public:
    static constexpr int32_t MaxBlocchi = 64;
    void carica(const PianiColonne& p, int32_t b0, int32_t b1);
    int32_t b0() const { return m_b0; }
    int32_t b1() const { return m_b1; }
    // The words of plane u (or of the ordinary columns, u = planes) of the blocks, then zeros up
    // to a multiple of four.
    const uint64_t* piano(int u) const { return &m_parole[static_cast<size_t>(u) * MaxBlocchi]; }

private:
    int32_t m_b0 = 0, m_b1 = 0;
    std::vector<uint64_t> m_parole;
};

// Adds to s the columns of the loaded blocks by category against the draw: what ContaBlocchi
// gives for the same blocks, with AVX2. Only when ConAvx2().
void ContaTrasposti(const PianiColonne& p, const BlocchiTrasposti& t, const EstrazionePiani& e,
                    SommeClassi& s);

// Runs f(0) here and, when two threads are worth it, f(1) on a second thread; f(i) does its
// share i of n.
template <typename F> void DueParti(bool dueThread, F f);

} // namespace dv

#include <thread>

template <typename F> void dv::DueParti(bool dueThread, F f) {
    if (!dueThread) {
        f(0, 1);
        return;
    }
    std::thread altro([&f] { f(1, 2); });
    f(0, 2);
    altro.join();
}
