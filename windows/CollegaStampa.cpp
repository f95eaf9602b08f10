// Wires the stampa area's windows into the main window: the listing (cmdTabulato, menuTabulato)
// and the slips (cmdSchedine, menuSchedine) with their calibration.
#include "windows/Aree.h"
#include "windows/frmMAIN.h"
#include "windows/frmMAINFile.h"
#include "windows/frmStampa.h"
#include "windows/frmTabulato.h"
#include "windows/frmTaratura10eLotto.h"
#include "windows/QtUi.h"

#include <memory>

namespace dv {

namespace {

// The windows of the area and the calibration in memory, alive as long as the main window.
class AreaStampa : public QObject {
public:
    explicit AreaStampa(frmMAIN& main) : QObject(&main), m_main(main) {}
    ~AreaStampa() override { m_stampa.reset(); }

    // The listing, modal over the main window.
    void tabulato() {
        frmTabulato f(m_main.corpo(), m_main.ui(), m_main.impostazioni(), &m_main);
        f.apriImpostazioni = [this] { m_main.file().impostazioni(); };
        m_main.ui().setDialogParent(&f);
        f.exec();
        m_main.ui().setDialogParent(nullptr);
    }

    // The slips: the main window is disabled while the window is open, and enabled when it closes.
    void schedine() {
        if (!m_stampa) {
            m_stampa = std::make_unique<frmStampa>(m_main.corpo(), m_main.ui(), m_main.dialogs(),
                                                   m_main.impostazioni(), m_cal);
            m_stampa->apriTaratura = [this](const std::string& stampante) { taratura(stampante); };
            m_stampa->chiusa = [this] {
                m_main.ui().setDialogParent(nullptr);
                m_main.setEnabled(true);
                m_main.activateWindow();
            };
        }
        m_main.setEnabled(false);
        m_main.ui().setDialogParent(m_stampa.get());
        m_stampa->carica();
        m_stampa->show();
        m_stampa->raise();
    }

    void taratura(const std::string& stampante) {
        frmTaratura10eLotto f(m_main.corpo(), m_main.ui(), m_main.impostazioni(), m_cal, stampante,
                              m_stampa.get());
        m_main.ui().setDialogParent(&f);
        f.carica();
        f.exec();
        m_main.ui().setDialogParent(m_stampa.get());
    }

private:
    frmMAIN& m_main;
    SlipCalibration m_cal;
    std::unique_ptr<frmStampa> m_stampa;
};

} // namespace

void CollegaStampa(frmMAIN& main) {
    auto* area = new AreaStampa(main);
    for (const char* name : {"cmdTabulato", "menuTabulato"})
        main.collega(name, [area] { area->tabulato(); });
    for (const char* name : {"cmdSchedine", "menuSchedine"})
        main.collega(name, [area] { area->schedine(); });
    main.aggiornaVisibilitaMenu();
}

} // namespace dv
