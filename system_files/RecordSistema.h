// The field order of every record of a system file, told once. The same function serves the
// reader and the writer: it hands each field, with its width, to a visitor that either reads
// it from a LettoreBinario or writes it to a ScrittoreBinario.
#pragma once

#include "core/Corpo.h"
#include "system_files/FlussoBinario.h"

#include <array>
#include <cstdint>
#include <string>

namespace dv {

constexpr int32_t MarcaCondizioni = 12345;
constexpr int32_t FineCondizioni1 = 100;
constexpr int32_t FineCondizioni2 = 200;

// The tags of the conditions block, in the order they are written.
enum TagCondizione : int32_t {
    TagDistanzaMinima = 8,
    TagFiltroAND = 1,
    TagFiltroOR = 16,
    TagFiltroXOR = 64,
    TagConsecutivi = 2,
    TagCondizioneDistanza = 32,
};

// Fields 2 to 15 of a system file: what precedes the columns.
struct IntestazioneSistema {
    int16_t LenColonna = 10;
    uint8_t Quanti = 0;
    int32_t NumColonne = 0;
    std::string Descrizione;
    std::array<uint8_t, 90> Numeri{};
    Condizioni condizioni;
};

// How the header differs between versions.
struct FormatoIntestazione {
    bool haLenColonna = true; // absent in "dvqsy000002"
    int vociTabPari = 26;     // 11 up to "dvqsy000003"
};

template <class Io> void CampiIntestazione(Io& io, IntestazioneSistema& h, const FormatoIntestazione& f) {
    if (f.haLenColonna) io.i16(h.LenColonna);
    io.u8(h.Quanti);
    io.i32(h.NumColonne);
    io.str(h.Descrizione);
    io.bytes(h.Numeri.data(), 90);
    Condizioni& k = h.condizioni;
    io.i16(k.CondPari);
    io.i16(k.CondSomma);
    io.i16(k.CondFisse);
    for (int e = 0; e < f.vociTabPari; ++e) io.i16(k.TabPari[static_cast<size_t>(e)]);
    io.i16(k.SommaMinMax[0]);
    io.i16(k.SommaMinMax[1]);
    io.bytes(&k.TabFisse[1], 90);
    io.u8(k.NumFisse);
    io.i16(k.CondRidotto);
    io.u8(k.ValRidotto);
}

// 96 bytes: the 90 flags of numbers 1..90, Presenze, Stato.
template <class Io> void CampiColonnaFiltro(Io& io, ColonnaFiltro& r) {
    io.bytes(&r.Numeri[1], 90);
    io.i32(r.Presenze);
    io.i16(r.Stato);
}

// 386 bytes: positions 1..25, distances 1..89 of both tables, Stato.
template <class Io> void CampiCondizioneDistanza(Io& io, CondizioneDistanza& r) {
    io.u8(r.NumPosizioni);
    io.bytes(&r.Posizioni[1], 25);
    io.u8(r.NumDistanzeMin);
    for (size_t d = 1; d <= 89; ++d) io.i16(r.DistanzaMin[d]);
    io.u8(r.NumDistanzeMax);
    for (size_t d = 1; d <= 89; ++d) io.i16(r.DistanzaMax[d]);
    io.i16(r.Stato);
}

// 6 bytes.
template <class Io> void CampiConsecutivi(Io& io, Consecutivi& r) {
    io.i32(r.MaskConsecutivi);
    io.i16(r.CondConsecutivi);
}

// 3 bytes.
template <class Io> void CampiDistanzaMinima(Io& io, DistanzaMinima& r) {
    io.u8(r.ValDistanzaMinima);
    io.i16(r.CondDistanzaMinima);
}

// A string inside a record: a 2-byte length, then the bytes.
class StringaTroppoLunga {};

// Visitor that reads each field. A string whose length runs past the end of the file throws
// StringaTroppoLunga, so no length read from a file sizes a buffer unchecked.
class LeggiCampi {
public:
    explicit LeggiCampi(LettoreBinario& in) : m_in(in) {}
    void u8(uint8_t& v) { m_in.u8(v); }
    void i16(int16_t& v) { m_in.i16(v); }
    void i32(int32_t& v) { m_in.i32(v); }
    void bytes(uint8_t* p, size_t n) { m_in.bytes(p, n); }
    void str(std::string& s) {
        uint16_t len = 0;
        m_in.u16(len);
        if (len > m_in.restanti()) throw StringaTroppoLunga{};
        s.assign(len, '\0');
        m_in.bytes(reinterpret_cast<uint8_t*>(s.data()), len);
    }

private:
    LettoreBinario& m_in;
};

// Visitor that writes each field. Fields are taken by reference only to share the field lists.
class ScriviCampi {
public:
    explicit ScriviCampi(ScrittoreBinario& out) : m_out(out) {}
    void u8(uint8_t& v) { m_out.u8(v); }
    void i16(int16_t& v) { m_out.i16(v); }
    void i32(int32_t& v) { m_out.i32(v); }
    void bytes(uint8_t* p, size_t n) { m_out.bytes(p, n); }
    void str(std::string& s) {
        const size_t len = s.size() > 0xFFFF ? 0xFFFF : s.size();
        m_out.u16(static_cast<uint16_t>(len));
        m_out.bytes(reinterpret_cast<const uint8_t*>(s.data()), len);
    }

private:
    ScrittoreBinario& m_out;
};

} // namespace dv
