#include "windows/frmMAINOperazioni.h"

#include "core/Helpers.h"
#include "core/Sistema.h"
#include "windows/frmCalcoloWorker.h"
#include "windows/frmMAIN.h"
#include "windows/frmVisualizza.h"
#include "windows/QtUi.h"

#include <QAction>
#include <QPushButton>

namespace dv {

frmMAINOperazioni::frmMAINOperazioni(frmMAIN& window)
    : m_window(window), m_worker(std::make_unique<frmCalcoloWorker>(window.corpo(), window.ui(), window)) {
    window.collega("menuCalcolo", [this] { calcolo(); });
    window.collega("cmdCalcolo", [this] { calcolo(); });
    window.collega("menuMescola", [this] { mescola(); });
    window.collega("menuModifiche", [this] { modifiche(); });
    window.collega("cmdModifiche", [this] { modifiche(); });
    window.collega("cmdCancella", [this] { cancella(); });
    window.collega("menuVisualizza", [this] { visualizza(); });
    window.collega("cmdVisualizza", [this] { visualizza(); });
}

frmMAINOperazioni::~frmMAINOperazioni() = default;

void frmMAINOperazioni::calcolo() {
    m_worker->avvia();
}

bool frmMAINOperazioni::inCorso() const {
    return m_worker->inCorso();
}

void frmMAINOperazioni::mescola() {
    QAction* entry = m_window.azione(QStringLiteral("menuMescola"));
    entry->setEnabled(false);
    MescolaColonne(m_window.corpo(), m_window.ui(), SecondiDaMezzanotte());
    entry->setEnabled(true);
}

void frmMAINOperazioni::modifiche() {
    QtUi& ui = m_window.ui();
    if (ui.questionBox(ui.Lang("0054"), "", BoxIcon::Question)) ModificaSistema(m_window.corpo(), ui);
}

void frmMAINOperazioni::visualizza() {
    if (m_window.corpo().pronostico.NumColonne <= 0) return;
    frmVisualizza dialog(m_window.corpo(), m_window.ui(), &m_window);
    dialog.exec();
}

void frmMAINOperazioni::cancella() {
    ResetSistema(m_window.corpo(), m_window.ui(), false);
}

} // namespace dv
