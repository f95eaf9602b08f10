// The listing of a system: a heading with the system's data, on request the forecast and its
// conditions, on request every column, twenty side by side in blocks. The job's unit is the twip.
// Pages are broken by counting blocks: the first page holds three blocks below the forecast (one
// more for each copy printed without it), the following pages five.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"
#include "print/OperazioniStampa.h"

#include <string>

namespace dv {

struct OpzioniTabulato {
    bool colonne = true;    // chkCol
    bool pronostico = true; // chkProno
    bool colori = true;     // chkColor: the colour pictures, else the black-and-white ones
    int copie = 1;
    std::string intestazione; // the header of the settings
    std::string sitoWeb;      // the program's web host, shown in the headings
};

// Layout constants, in twips.
inline constexpr double MargineTabulato = 120;
inline constexpr double PassoTabulato = 250;
inline constexpr double XImmaginiTabulato = 4000;
inline constexpr int NumeriPerRigaTabulato = 30;
inline constexpr int ColonnePerBlocco = 20;
inline constexpr int BlocchiPaginaSeguente = 5;

// The pictures that a listing paints, by name.
inline constexpr const char* ImmaginiTabulato[4] = {"logoColor", "logoBW", "vietatoColor", "vietatoBW"};

// The host of a web address: "http://host:port/path" gives "host:port".
std::string HostWeb(const std::string& url);

// False, after the box of "0039", when neither the columns nor the forecast are to be printed:
// then no job is started.
bool ControllaTabulato(const OpzioniTabulato& o, Ui& ui);

// Prints the copies, each as a job of its own that ends with `end`. Sorts the forecast.
void StampaTabulato(Corpo& c, const OpzioniTabulato& o, OperazioniStampa& out, Ui& ui);

} // namespace dv
