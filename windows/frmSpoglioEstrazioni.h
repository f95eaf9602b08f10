// "Spoglio Estrazioni": the system against a stretch of the archive in memory, a row per draw,
// with what it would have won and cost. The check runs on a thread of its own with its progress
// and a stop; the window's controls are disabled meanwhile. Closing only hides the window.
#pragma once

#include "core/Corpo.h"
#include "prize/SpoglioEstrazioni.h"

#include <QWidget>

#include <memory>

class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace dv {

class QtUi;
class GrigliaFiltri;
class LavoroSpoglio;

class frmSpoglioEstrazioni : public QWidget {
    Q_OBJECT
public:
    frmSpoglioEstrazioni(Corpo& corpo, QtUi& ui, QWidget* parent = nullptr);
    ~frmSpoglioEstrazioni() override;

    // The date lists from the archive in memory; false when it has too many dates.
    bool populateCmbEstrazioni();
    void cmdSpoglioEstrazioni_Click();
    void cmdCSV_Click();
    GrigliaFiltri& griglia() { return *m_griglia; }
    LavoroSpoglio& lavoro() { return *m_lavoro; }
    // The path the CSV file is written to.
    std::string percorsoCsv() const;
    // The width the grid needs to show every column: the columns, its frame, header and scroll bar.
    int larghezzaGriglia() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void costruisci();
    void SpoglioArchivioEstrazioni();
    void concludi(bool fermato);
    // After a run: the window as wide as the grid plus 350 twips.
    void adattaLarghezza();

    Corpo& m_corpo;
    QtUi& m_ui;
    QWidget* m_controlli = nullptr;
    QComboBox* m_cmbDal = nullptr;
    QComboBox* m_cmbAl = nullptr;
    QComboBox* m_cmbConcDal = nullptr;
    QComboBox* m_cmbConcAl = nullptr;
    QLabel* m_lblConc[2] = {};
    QPushButton* m_cmdSpoglioEstrazioni = nullptr;
    QPushButton* m_cmdCSV = nullptr;
    QLabel* m_lblNumEstr = nullptr;
    QLabel* m_lblTotGiocato = nullptr;
    QLabel* m_lblTotVinto = nullptr;
    QLabel* m_lblElaborazione = nullptr;
    GrigliaFiltri* m_griglia = nullptr;
    std::unique_ptr<LavoroSpoglio> m_lavoro;
    // The result shown and the archive it was checked against, kept apart from the state.
    std::unique_ptr<RisultatoEstrazioni> m_risultato;
    ArrayEstrazioni m_archivio;
    std::unique_ptr<PianiColonne> m_piani;
};

} // namespace dv
