#include "server/ArchivioDemo.h"

#include "core/Helpers.h"

#include <algorithm>
#include <cstdio>

namespace dv::server {

namespace {

constexpr const char* Intestazione = "Data\tConcorso\tEstratti (20)\tOro\tDoppio Oro\r\n";

uint64_t SplitMix(uint64_t& stato) {
    uint64_t z = (stato += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

int DataNumerica(double giorno) {
    return std::stoi(DataToYYYYMMDD(giorno));
}

// Days since 1 January of the year of that date (0 for 1 January).
int GiornoDellAnno(double giorno) {
    const int data = DataNumerica(giorno);
    int n = 0;
    while (DataNumerica(giorno - n - 1) / 10000 == data / 10000)
        ++n;
    return n;
}

void AggiungiRiga(std::string& out, int data, int concorso, const EstrazioneDemo& e) {
    char buf[160];
    int n = std::snprintf(buf, sizeof buf, "%02d/%02d/%04d\t%d", data % 100, data / 100 % 100, data / 10000,
                          concorso);
    for (uint8_t v : e.numeri)
        n += std::snprintf(buf + n, sizeof buf - static_cast<size_t>(n), "\t%d", v);
    std::snprintf(buf + n, sizeof buf - static_cast<size_t>(n), "\t%d\t%d\r\n", e.oro, e.doppio);
    out += buf;
}

} // namespace

EstrazioneDemo EstrazioneDemoDi(int yyyymmdd, int concorso, int tipo) {
    uint64_t stato = (static_cast<uint64_t>(yyyymmdd) << 20) ^ (static_cast<uint64_t>(concorso) << 2) ^
                     static_cast<uint64_t>(tipo);
    // A partial shuffle of 1..90: the first twenty places are the draw, in the order drawn.
    std::array<uint8_t, 90> urna{};
    for (int i = 0; i < 90; ++i)
        urna[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
    for (int i = 0; i < 20; ++i) {
        const auto j =
            static_cast<size_t>(i) + static_cast<size_t>(SplitMix(stato) % static_cast<uint64_t>(90 - i));
        std::swap(urna[static_cast<size_t>(i)], urna[j]);
    }
    EstrazioneDemo e;
    std::copy(urna.begin(), urna.begin() + 20, e.numeri.begin());
    e.oro = urna[0];
    e.doppio = urna[1];
    std::sort(e.numeri.begin(), e.numeri.end());
    return e;
}

std::string ArchivioDemoSerale(double oggi, int minuti) {
    std::string out = Intestazione;
    const int ultimo = minuti >= 20 * 60 ? 0 : 1;
    const int primo = 365 * 3 - 1;
    int giornoAnno = GiornoDellAnno(oggi - primo);
    int anno = DataNumerica(oggi - primo) / 10000;
    for (int d = primo; d >= ultimo; --d) {
        const int data = DataNumerica(oggi - d);
        if (data / 10000 != anno) {
            anno = data / 10000;
            giornoAnno = 0;
        }
        AggiungiRiga(out, data, giornoAnno + 1, EstrazioneDemoDi(data, giornoAnno + 1, 0));
        ++giornoAnno;
    }
    return out;
}

std::string ArchivioDemo5Minuti(double oggi, int minuti, int dal) {
    std::string out = Intestazione;
    out.reserve(150u * 288u * 80u);
    for (int d = 149; d >= 0; --d) {
        const int data = DataNumerica(oggi - d);
        if (data < dal) continue;
        const int fino = d == 0 ? std::min(288, minuti / 5) : 288;
        for (int k = 1; k <= fino; ++k)
            AggiungiRiga(out, data, k, EstrazioneDemoDi(data, k, 1));
    }
    return out;
}

} // namespace dv::server
