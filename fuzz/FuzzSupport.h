// What the fuzz targets share: the standard headers they all use, a scratch folder of their own
// process, the input written to a file there (most readers take a path), a fresh state, and a
// failed invariant that stops the run.
#pragma once

#include "core/Corpo.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <unistd.h>

namespace dv::fuzz {

// A folder of this process below the system's temporary folder, made on first use and removed
// when the process ends normally (a crash leaves it, beside its input).
inline const std::string& CartellaFuzz() {
    // Never destroyed, so the clean-up at exit can still read it.
    static const std::string& cartella = *new std::string([] {
        const auto p = std::filesystem::temp_directory_path() / ("dv_fuzz_" + std::to_string(::getpid()));
        std::filesystem::create_directories(p);
        std::atexit([] {
            std::error_code ec;
            std::filesystem::remove_all(CartellaFuzz(), ec);
        });
        return p.string();
    }());
    return cartella;
}

inline std::string PercorsoFuzz(const std::string& name) {
    return (std::filesystem::path(CartellaFuzz()) / name).string();
}

// Writes the input to name inside CartellaFuzz() (or to name itself when it is a whole path),
// making its folder first; returns its path.
inline std::string InputFuzz(const std::string& name, const uint8_t* data, size_t size) {
    const std::string path = PercorsoFuzz(name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    return path;
}

// Stops the run, so the fuzzer keeps the input, when an invariant does not hold.
inline void Verifica(bool ok, const char* what) {
    if (ok) return;
    std::fprintf(stderr, "broken invariant: %s\n", what);
    std::abort();
}

// True when text holds a control character, such as a CR that reads as a line end once the value
// is written back.
inline bool ConControllo(const std::string& text) {
    for (const char ch : text)
        if (static_cast<unsigned char>(ch) < 0x20) return true;
    return false;
}

// A fresh state that keeps the store already allocated: only its used part is erased.
inline void Rinnova(Corpo& c) {
    ColumnStore store = std::move(c.Colonne);
    store.erase();
    c = Corpo{};
    c.Colonne = std::move(store);
}

// The state's bounds, which every reader must leave holding whatever the file said.
inline void VerificaStato(const Corpo& c) {
    Verifica(c.LenColonna >= 1 && c.LenColonna <= MaxLenColonna, "LenColonna in 1..25");
    Verifica(c.pronostico.NumColonne >= 0 && c.pronostico.NumColonne <= MaxColonne, "NumColonne in range");
    Verifica(c.pronostico.Quanti <= 90, "Quanti <= 90");
    Verifica(c.FiltriAND.count() <= MaxFiltri && c.FiltriOR.count() <= MaxFiltri &&
                 c.FiltriXOR.count() <= MaxFiltri,
             "filter tables within capacity");
    Verifica(c.CondizioniDistanza.count() <= MaxCondizioniDistanza, "distance table within capacity");
}

// The second state holds the first one's columns, cell for cell.
inline void VerificaStesseColonne(const Corpo& c, const Corpo& d) {
    Verifica(d.LenColonna == c.LenColonna && d.pronostico.NumColonne == c.pronostico.NumColonne,
             "the same shape again");
    for (int32_t j = 1; j <= c.pronostico.NumColonne; ++j)
        for (int p = 1; p <= c.LenColonna; ++p)
            Verifica(d.Colonne.get(j, p) == c.Colonne.get(j, p), "same columns");
}

} // namespace dv::fuzz
