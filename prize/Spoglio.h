// The single-draw check: the columns of the system against twenty numbers, a Numero Oro and a
// Doppio Oro, with the validation of what the user typed, in the order the window runs it.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"
#include "prize/PianiColonne.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace dv {

// The text under which the check refuses columns longer than 10 (critical box, title "Warning").
inline constexpr const char* TestoNonDisponibile = "NON disponibile per colonne con lunghezza > 10";
inline constexpr const char* TitoloNonDisponibile = "Warning";

// The boxes of the check window as text: the twenty numbers, the Oro numbers, the range.
struct CaselleSpoglio {
    std::array<std::string, 20> numeri;
    std::string oro, doppio, da, a;
};

// Where the focus goes after a refusal.
enum : int { FuocoNessuno = -1, FuocoOro = 20, FuocoDoppio = 21 };

struct EsitoValidazione {
    bool ok = false;
    int fuoco = FuocoNessuno; // 0..19 a number box, FuocoOro, FuocoDoppio
    int32_t dal = 0, al = 0;
};

// A box's text read as a number: leading blanks skipped, digits up to the first other character;
// "__" and "" read 0.
int32_t ValoreCasella(const std::string& testo);
// A number as a box shows it: two digits, or "__" for 0.
std::string TestoCasella(uint8_t n);

// The validation of a run, steps 1 to 7: length, the boxes sorted in place, repeats, range, the
// columns' range, the draw stored into NumeriSpoglio, OroSpoglio and DoppioOroSpoglio, the Oro
// tests. A refusal shows its box and says where the focus goes.
EsitoValidazione ValidaSpoglio(Corpo& c, Ui& ui, CaselleSpoglio& caselle);

// An allocator that leaves new elements of plain types uninitialised, so that a list can grow
// ahead of what it holds without being written twice.
template <typename T> struct SenzaAzzerare : std::allocator<T> {
    template <typename U> struct rebind { using other = SenzaAzzerare<U>; };
    SenzaAzzerare() = default;
    template <typename U> SenzaAzzerare(const SenzaAzzerare<U>&) noexcept {}
    template <typename U> void construct(U* p) noexcept { ::new (static_cast<void*>(p)) U; }
    template <typename U, typename... A> void construct(U* p, A&&... a) {
        ::new (static_cast<void*>(p)) U(std::forward<A>(a)...);
    }
};
using ListaColonne = std::vector<int32_t, SenzaAzzerare<int32_t>>;

// What a run shows: the winning columns by hits, their counts, the points and the total.
struct RisultatoSpoglio {
    std::array<ListaColonne, 11> colonne; // column numbers, ascending, by hits
    std::array<int32_t, 11> Vincite{};
    int32_t TotaleVinto = 0;
    uint8_t MaxPunti = 0;
    uint8_t MinPunti = 10;
};

// Checks columns dal..al of the system against the draw in NumeriSpoglio, OroSpoglio and
// DoppioOroSpoglio, each column's prize rounded by itself. The length must be at most 10.
RisultatoSpoglio SpoglioColonne(const Corpo& c, int32_t dal, int32_t al,
                                ModoSpoglio modo = ModoSpoglio::Automatico);

// labTot: the total in the format "###,###,###,##0.00" with sep between thousands and dec
// before the cents.
std::string TestoTotale(int32_t totale, char sep, char dec);

} // namespace dv
