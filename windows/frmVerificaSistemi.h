// "Verifica Sistemi": two text files of columns compared, a row per line of the second file with
// how many lines of the first share 0, 1, 2, ... numbers with it. The comparison runs on a thread
// of its own with its progress and a stop; the window's controls are disabled meanwhile.
#pragma once

#include "core/Corpo.h"
#include "prize/VerificaSistemi.h"

#include <QWidget>

#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;

namespace dv {

class QtUi;
class GrigliaFiltri;
class LavoroSpoglio;

class frmVerificaSistemi : public QWidget {
    Q_OBJECT
public:
    frmVerificaSistemi(Corpo& corpo, QtUi& ui, QWidget* parent = nullptr);
    ~frmVerificaSistemi() override;

    // cmdLoad1 (primo) and cmdLoad2: the file chooser on "txt", the file read as columns.
    void cmdLoad_Click(bool primo);
    void cmdVerificaSistema_Click();
    void cmdCSV_Click();
    GrigliaFiltri& griglia() { return *m_griglia; }
    LavoroSpoglio& lavoro() { return *m_lavoro; }
    std::string percorsoCsv() const;

protected:
    // Closing lets go of both files and of the result.
    void closeEvent(QCloseEvent* event) override;

private:
    void costruisci();
    void concludi(bool fermato);

    Corpo& m_corpo;
    QtUi& m_ui;
    QWidget* m_controlli = nullptr;
    QPushButton* m_cmdLoad[2] = {};
    QLabel* m_lblFile[2] = {};
    QPushButton* m_cmdVerificaSistema = nullptr;
    QPushButton* m_cmdCSV = nullptr;
    QLabel* m_lblNumEstr = nullptr;
    QLabel* m_lblElaborazione = nullptr;
    GrigliaFiltri* m_griglia = nullptr;
    std::unique_ptr<LavoroSpoglio> m_lavoro;
    std::vector<RecordNumeri> m_colonne[2]; // Colonne1 and Colonne2; empty until a file is read
    std::unique_ptr<RisultatoVerifica> m_risultato;
};

} // namespace dv
