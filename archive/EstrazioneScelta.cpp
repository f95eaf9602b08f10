#include "archive/EstrazioneScelta.h"

#include "core/Corpo.h"
#include "core/Helpers.h"
#include "core/Sistema.h"
#include "core/Ui.h"

namespace dv {

int32_t PronosticoDaArchivioEstrazione(Corpo& c, Ui& ui, int32_t offset) {
    const int32_t indice = UBound(c.mArrEstrazioni) - offset;
    if (offset < 0 || indice < 1) return 0;
    CancellaPronostico(c, ui);
    const Estrazione& e = c.mArrEstrazioni[static_cast<size_t>(indice)];
    for (int i = 1; i <= 20; ++i) {
        const int numero = e.Numeri[static_cast<size_t>(i)];
        if (numero >= 1 && numero <= 90) GrigliaNumeriClick(c, ui, numero - 1);
    }
    return indice;
}

void EstrazioneInSpoglio(Corpo& c, const Estrazione& e) {
    c.NumeriSpoglio = e.Numeri;
    c.NumeriSpoglio[0] = 0;
    c.OroSpoglio = e.NumeroOro;
    c.DoppioOroSpoglio = e.DoppioOro;
}

std::string TestoEstrazioneScelta(const Estrazione& e, Ui& ui, const char* chiave) {
    std::string testo = ui.Lang("0050");
    testo += " \r\n";
    testo += NumeriToString(e.Numeri.data() + 1, 20, 1);
    testo += "\r\n";
    testo.append(e.Data.data(), e.Data.size());
    testo += ' ';
    testo += ui.Lang(chiave);
    return testo;
}

} // namespace dv
