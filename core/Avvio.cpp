#include "core/Avvio.h"

#include "core/Helpers.h"
#include "core/Sistema.h"

namespace dv {

namespace {
void TogliFisseNonSelezionate(Corpo& c, bool soloSeContate) {
    for (int n = 1; n <= 90; ++n) {
        if (c.condizioni.TabFisse[static_cast<size_t>(n)] == 1 && !c.Griglia[static_cast<size_t>(n - 1)]) {
            c.condizioni.TabFisse[static_cast<size_t>(n)] = 0;
            if (!soloSeContate || c.condizioni.NumFisse != 0) --c.condizioni.NumFisse;
        }
    }
}
} // namespace

void PreparaSviluppo(Corpo& c) {
    AggiornaPronostico(c);
    TogliFisseNonSelezionate(c, false);
}

void PreparaRielaborazione(Corpo& c) { TogliFisseNonSelezionate(c, true); }

void ConcludiElaborazione(Corpo& c, Ui& ui) {
    ui.ViewStatusBar();
    if (c.pronostico.NumColonne >= 1) LockGUI(c, ui);
}

void UiEngineObserver::started(double total) {
    if (m_inner) m_inner->started(total);
}

void UiEngineObserver::progress(const ProgressInfo& info) {
    if (m_inner) m_inner->progress(info);
}

void UiEngineObserver::limitReached(const ProgressInfo& info) {
    if (m_inner) m_inner->limitReached(info);
    AvvisoLimiteColonne(m_ui);
}

void UiEngineObserver::finished(double elapsedSeconds) {
    if (m_inner) m_inner->finished(elapsedSeconds);
    m_ui.messageBox(TestoTempoTrascorso(elapsedSeconds), "", BoxIcon::None);
}

RunResult Elabora(Corpo& c, Ui& ui, RunControl& ctl, EngineObserver& progress) {
    UiEngineObserver obs(ui, &progress);
    RunResult r;
    if (c.pronostico.NumColonne != 0) {
        PreparaRielaborazione(c);
        r = RielaboraColonne(c, ctl, obs, DescrizioneSistema(c, ui));
    } else {
        PreparaSviluppo(c);
        r = SviluppaIntegrale(c, c.pronostico.Quanti, c.pronostico.Numeri.data(), ctl, obs, DescrizioneSistema(c, ui));
    }
    ConcludiElaborazione(c, ui);
    if (c.ModalitaRicalcolo) Sblocca_x_Ricalcolo(c, ui);
    return r;
}

} // namespace dv
