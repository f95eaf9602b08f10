// Play slips: one column a slip, a black 2 mm square in each box to be marked, at the positions
// of the printer's calibration; and the calibration's test page with every box marked. The job's
// unit is the millimetre.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"
#include "print/OperazioniStampa.h"
#include "print/TaraturaScheda.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace dv {

struct OpzioniSchedine {
    // chkTipoEstrazione: "5 Min", "Lotto", "Immediata".
    std::array<bool, 3> tipoEstrazione{true, false, false};
    std::string intestazione; // the header of the settings
    std::string sitoWeb;      // the program's web address, on the last line of a slip
};

// The side of a mark, in millimetres.
inline constexpr float LatoSegno = 2.0f;

struct IntervalloSchedine {
    int32_t da = 0;
    int32_t a = 0;
};

// The range of meDa and meA (an empty text reads as 0), or nothing after the box of "0022" (from
// above to), "0023" (from below 1) or "0024" (to above the count), titled " !!! ERROR !!! ".
std::optional<IntervalloSchedine> ControllaIntervallo(const Corpo& c, std::string_view da, std::string_view a,
                                                      Ui& ui);

// What the loop of slips reports, and asks before each slip.
class AvanzamentoSchedine {
public:
    virtual ~AvanzamentoSchedine() = default;
    // True when the user asked to stop.
    virtual bool fermata() = 0;
    // Slip n is being printed; testo is the progress label's text.
    virtual void scheda(int32_t n, const std::string& testo) = 0;
};

enum class EsitoSchedine { Completata, Interrotta };

// Prints the slips of the range, each followed by a new page, and ends the job. The stop is
// looked at before each slip; a stop ends the job with the slips already printed.
EsitoSchedine StampaScheda10eLottoNew(const Corpo& c, const SlipCalibration& cal, const OpzioniSchedine& o,
                                      IntervalloSchedine r, OperazioniStampa& out,
                                      AvanzamentoSchedine& avanzamento, Ui& ui);

// The marks and texts of slip n (column n; a column outside the store is empty). parola is the
// language's word for a slip ("0030").
void StampaScheda(const Corpo& c, const SlipCalibration& cal, const OpzioniSchedine& o, int32_t n,
                  const std::string& parola, OperazioniStampa& out);

// The calibration's test page: every number, amount, kind of draw and game option marked, the
// header, "Test.dvs Scheda n. 0", the cost of a column, and the program's line; then the end.
void StampaTestTaratura(const Corpo& c, const SlipCalibration& cal, const OpzioniSchedine& o,
                        OperazioniStampa& out);

} // namespace dv
