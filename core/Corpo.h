// The program's working state: one forecast, one set of conditions, one stored system.
// Owned by the application and passed by reference; a test builds as many as it needs.
#pragma once

#include "archive/Estrazione.h"
#include "core/ColumnStore.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace dv {

constexpr int MaxLenColonna = 25;
constexpr int MaxFiltri = 150'000;
constexpr int MaxCondizioniDistanza = 25;

// 16-bit booleans, as in memory and in files.
constexpr int16_t Vero = -1;
constexpr int16_t Falso = 0;

// One filter column. Numeri[i] is 1 when number i (1..90) belongs to the filter; element 0 is
// never set, so a 0 inside a column is never counted as one of the filter's numbers.
struct ColonnaFiltro {
    std::array<uint8_t, 91> Numeri{};
    int32_t Presenze = 0; // bit k: a column may hold exactly k of the filter's numbers
    int16_t Stato = 0;    // -1 ON, 0 OFF
};

// One number distance condition. Elements 1..89 of the two tables are distances.
struct CondizioneDistanza {
    uint8_t NumPosizioni = 0;
    std::array<uint8_t, 26> Posizioni{}; // elements 1..25: pair p is positions p and p+1
    uint8_t NumDistanzeMin = 0;
    std::array<int16_t, 90> DistanzaMin{}; // elements 1..89
    uint8_t NumDistanzeMax = 0;
    std::array<int16_t, 90> DistanzaMax{}; // elements 1..89
    int16_t Stato = 0;
};

struct Pronostico {
    uint8_t Quanti = 0;
    int32_t NumColonne = 0;
    std::string Descrizione;
    std::array<uint8_t, 90> Numeri{}; // 0..Quanti-1 are numbers, the rest 0
};

struct Condizioni {
    int16_t CondPari = Falso;
    int16_t CondSomma = Falso;
    int16_t CondFisse = Falso;
    std::array<int16_t, 26> TabPari{};     // TabPari[e]: a column with e even numbers passes
    std::array<int16_t, 2> SommaMinMax{};  // least and greatest sum
    std::array<uint8_t, 91> TabFisse{};    // elements 1..90; element 0 stays 0
    uint8_t NumFisse = 0;
    int16_t CondRidotto = Falso;
    uint8_t ValRidotto = 0;
};

struct Consecutivi {
    int32_t MaskConsecutivi = 0; // bit i: a longest run of i numbers passes
    int16_t CondConsecutivi = Falso;
};

struct DistanzaMinima {
    uint8_t ValDistanzaMinima = 0;
    int16_t CondDistanzaMinima = Falso;
};

// A table of condition records with first index 1, as the engine and the files see it.
// Entries 1..count are valid; storage grows on demand up to the table's capacity.
template <typename Record, int Capacity> class TabellaCondizioni {
public:
    static constexpr int capacity = Capacity;

    int32_t count() const { return m_count; }
    const Record& operator[](int i) const { return m_records[static_cast<size_t>(i)]; }
    Record& operator[](int i) {
        ensure(i);
        return m_records[static_cast<size_t>(i)];
    }
    // Adds a record behind the last valid one; false when the table is full.
    bool append(const Record& r) {
        if (m_count >= Capacity) return false;
        ++m_count;
        (*this)[m_count] = r;
        return true;
    }
    // Sets the count of valid entries (after a window edits panels in place).
    void setCount(int32_t n) {
        ensure(n);
        m_count = n;
    }
    // Erases every record and sets the count to 0.
    void clear() {
        m_records.clear();
        m_count = 0;
    }
    const Record* data() const { return m_records.data(); }
    // The highest index that storage holds; every record past it is all zero.
    int32_t stored() const { return static_cast<int32_t>(m_records.size()) - 1; }

private:
    void ensure(int i) {
        if (static_cast<size_t>(i) >= m_records.size()) m_records.resize(static_cast<size_t>(i) + 1);
    }
    std::vector<Record> m_records{1};
    int32_t m_count = 0;
};

using TabellaFiltri = TabellaCondizioni<ColonnaFiltro, MaxFiltri>;
using TabellaDistanze = TabellaCondizioni<CondizioneDistanza, MaxCondizioniDistanza>;

// The whole working state, with the names the rest of the program is written against.
struct Corpo {
    int16_t LenColonna = 10;
    uint8_t TipoGiocata = 1;
    float Importo = 1.0f;
    float CostoColonna = 1.0f;
    float IndiceImporto = 0.0f;
    int32_t SistemaBloccato = 0;
    int16_t StopElaborazione = Falso;
    double InizioElaborazione = 0.0;
    int16_t ModalitaRicalcolo = Falso;
    int16_t ChiusuraInCorso = Falso;

    std::string AppDir;
    std::string FileCorrente;
    std::string TitoloFile = "nuovo.dvs";
    std::string PathArchivioSerale;
    std::string PathArchivio5Min;
    std::string PathArchivioManuale;
    std::string PathArchivioDownload;

    Pronostico pronostico;
    Condizioni condizioni;
    Consecutivi consecutivi;
    DistanzaMinima distanzaMinima;

    TabellaFiltri FiltriAND;
    TabellaFiltri FiltriOR;
    TabellaFiltri FiltriXOR;
    TabellaDistanze CondizioniDistanza;
    // The scratch record that reading a system file fills with each distance condition; it
    // outlives the read, and its Stato gives the check mark of menuDistanzaNumeri after an open.
    CondizioneDistanza CondizioneDistanzaLetta;

    // The selection of the grid of 90 (the cells' tags): Griglia[i] is number i+1.
    std::array<bool, 90> Griglia{};

    ColumnStore Colonne;

    // The archive in memory (first index 1, at least one element) and which one it is:
    // 0 evening, 1 five-minute, 2 manual. Only the archive window changes them.
    ArrayEstrazioni mArrEstrazioni = ArrayEstrazioni(2);
    int32_t TipoArchivio = ArchivioSerale;

    // The draw under check: elements 1..20 of NumeriSpoglio, 0 meaning not entered. It outlives
    // the check window, so the last draw entered comes back when the window opens again.
    std::array<uint8_t, 21> NumeriSpoglio{};
    uint8_t OroSpoglio = 0;
    uint8_t DoppioOroSpoglio = 0;
};

// Potenze2[i] = 2^i for i in 0..25.
constexpr std::array<int32_t, 26> Potenze2 = [] {
    std::array<int32_t, 26> p{};
    for (int i = 0; i < 26; ++i) p[static_cast<size_t>(i)] = int32_t{1} << i;
    return p;
}();

} // namespace dv
