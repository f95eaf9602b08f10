// " Archivio Estrazioni": the archive window. Shows the archive in memory, newest draw first;
// chooses which of the three archives (evening, five-minute, manual) is in memory; updates it.
// It is the only window that changes mArrEstrazioni and TipoArchivio.
//
// Made unseen at start, it lives as long as the program and is hidden, not closed, when the user
// closes it. Its load (carica) reads the evening archive. Loads after an option click and updates
// run on a thread of their own while the window stays responsive; the busy flag then refuses a
// close and a second run, and the new archive goes into mArrEstrazioni on the window thread.
#pragma once

#include "archive/Estrazione.h"
#include "core/Corpo.h"
#include "settings/Online.h"
#include "windows/Finestre.h"

#include <QWidget>

#include <atomic>
#include <functional>
#include <memory>
#include <string>

class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTableView;
class QThread;

namespace dv {

class QtUi;
class frmUpdateModello;

// What the window asks of the platform; tests give their own.
struct ServiziArchivio {
    std::function<std::string()> server; // the web server's base address, read at each update
    Scaricatore download;                // fetches one URL into one file
    std::string cartellaDesktop;         // where the manual import's file chooser opens
};

class frmUpdate : public QWidget {
    Q_OBJECT
public:
    frmUpdate(Corpo& corpo, QtUi& ui, Finestre& finestre, ServiziArchivio servizi, QWidget* parent = nullptr);
    ~frmUpdate() override;

    // The window's load: language texts, busy flag cleared, lbElaborazione, the grid, the evening
    // archive read into mArrEstrazioni and shown.
    void carica();

    // Fills the grid, lbLast and lbTotale from mArrEstrazioni.
    void PopolaListView();
    void cmdUpdate_Click();
    // Stops the download of an update in progress; the archive stays as it was.
    void cmdInterrompi_Click();
    void OptArchivio_Click(int index);
    void cmdStatistiche_Click();
    // A double click on row r: the draw becomes the forecast, or the draw under check when a
    // system is open.
    void flexGrid_DblClick(int r);

    // True while a load or an update runs.
    bool occupato() const { return m_occupato; }
    // Waits, serving events, until no load or update runs (for tests and for the end).
    void attendi();
    frmUpdateModello& modello() { return *m_modello; }

signals:
    // A load or an update has ended and the window is ready again.
    void lavoroConcluso();

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void creaControlli();
    // Runs lavoro on a thread of its own; then, on the window thread, puts its archive into
    // mArrEstrazioni, fills the grid and runs poi.
    void avvia(std::function<ArrayEstrazioni()> lavoro, std::function<void()> poi);
    void evidenziaOpzione(int index);
    // The headings over the fields of the grid's rows.
    void posizionaIntestazioni();
    // Runs f; an exception ends in the error box that names the procedure.
    void protetto(const char* procedura, const std::function<void()>& f);

    Corpo& m_corpo;
    QtUi& m_ui;
    Finestre& m_finestre;
    ServiziArchivio m_servizi;
    bool m_occupato = false;
    QThread* m_thread = nullptr;
    std::shared_ptr<std::atomic<bool>> m_ferma = std::make_shared<std::atomic<bool>>(false);
    std::unique_ptr<frmUpdateModello> m_modello;

    QGroupBox* m_frameTipoArchivio = nullptr;
    QRadioButton* m_OptArchivio[3] = {};
    QPushButton* m_cmdUpdate = nullptr;
    QPushButton* m_cmdStatistiche = nullptr;
    QPushButton* m_cmdInterrompi = nullptr; // shown while an update downloads
    QWidget* m_intestazioni = nullptr;
    QTableView* m_flexGrid = nullptr;
    QGroupBox* m_frameUltimaEstrazione = nullptr;
    QLabel* m_lbLast = nullptr;
    QLabel* m_lbTotale = nullptr;
    QLabel* m_lblTotEstrazioni = nullptr;
    QLabel* m_lbElaborazione = nullptr;
};

} // namespace dv
