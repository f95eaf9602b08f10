// The Ultimate window: the kind and quantity of forecasts, the decay and the draws to evaluate, the
// update of the five-minute archive, and the search with its result text. The search and the
// update run off the window thread; the window (and the main window) stay disabled meanwhile.
#pragma once

#include "archive/Aggiornamento.h"
#include "archive/Ultimate.h"
#include "core/Corpo.h"

#include <QWidget>

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace dv {

class frmCalcolo;
class QtUi;

class frmUltimate : public QWidget {
    Q_OBJECT
public:
    // server gives the address and the downloader of the archives at the time of an update.
    frmUltimate(Corpo& corpo, QtUi& ui, std::function<ServerArchivi()> server, QWidget* parent = nullptr);
    ~frmUltimate() override;

    int tipo() const { return m_tipo; }
    int qta() const { return m_qta; }
    bool inCorso() const { return m_inCorso; }
    // The progress window of the current or last search; null before the first.
    frmCalcolo* calcolo() const { return m_calcolo.get(); }

    // The window's load state again: ambo, quantity 1, no result.
    void carica();
    // menuUltimate: a window not on screen is loaded afresh, in the language in use, and shown.
    void apri();
    void cmdCalcolo_Click();
    void cmdUpdate_Click();

signals:
    void calcoloConcluso();
    void aggiornamentoConcluso();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void costruisci();
    void optTipoGiocata_Click(int index);
    // lbQta, lbNumDecadimento and lbNumEstrazioni from tipo and qta.
    void ricalcola();
    void concludiCalcolo(const RisultatoUltimate& r);
    // The window and its owner back to work after a search.
    void riabilita();
    void attendiThread();

    Corpo& m_corpo;
    QtUi& m_ui;
    std::function<ServerArchivi()> m_server;
    int m_tipo = 2;
    int m_qta = 1;
    std::array<QRadioButton*, 3> m_optTipoGiocata{};
    QScrollBar* m_vsQta = nullptr;
    QLabel* m_lbQta = nullptr;
    QLabel* m_lbNumDecadimento = nullptr;
    QLabel* m_lbNumEstrazioni = nullptr;
    QLabel* m_lbElaborazione = nullptr;
    QPushButton* m_cmdUpdate = nullptr;
    QPushButton* m_cmdCalcolo = nullptr;
    QPlainTextEdit* m_lbResult = nullptr;

    RunControl m_control;
    std::unique_ptr<frmCalcolo> m_calcolo;
    std::thread m_thread;
    std::atomic<bool> m_inCorso{false};
};

} // namespace dv
