#include "windows/frmCalcoloWorker.h"

#include "core/Avvio.h"
#include "windows/frmCalcolo.h"
#include "windows/QtUi.h"

#include <QCoreApplication>
#include <QPointer>

namespace dv {

namespace {
// Forwards the engine's reports, made on the worker thread, to the progress window by queued
// calls: the worker never waits for a repaint. The counts between them the window polls itself.
class ProgressForwarder : public EngineObserver {
public:
    explicit ProgressForwarder(frmCalcolo* window) : m_window(window) {}
    void started(double total) override {
        post([total](frmCalcolo* w) { w->mostraIntegrale(total); });
    }
    void limitReached(const ProgressInfo& info) override {
        post([info](frmCalcolo* w) { w->mostraLimite(info); });
    }
    // The final counts, ahead of the elapsed-time box.
    void finished(double) override {
        post([](frmCalcolo* w) { w->mostraConteggiVivi(); });
    }

private:
    template <typename F> void post(F f) {
        frmCalcolo* w = m_window;
        QMetaObject::invokeMethod(
            w, [w, f] { f(w); }, Qt::QueuedConnection);
    }
    frmCalcolo* m_window;
};
} // namespace

frmCalcoloWorker::frmCalcoloWorker(Corpo& corpo, QtUi& ui, QWidget& mainWindow)
    : m_corpo(corpo), m_ui(ui), m_main(mainWindow) {}

frmCalcoloWorker::~frmCalcoloWorker() {
    if (m_thread.joinable()) {
        // The worker may be waiting for the window thread (a box, the status line): keep serving
        // it until it has ended.
        m_control.StopElaborazione = true;
        m_control.resume();
        while (!m_threadFinito)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        m_thread.join();
    }
}

void frmCalcoloWorker::avvia() {
    if (m_inCorso) return;
    if (m_thread.joinable()) m_thread.join();
    m_inCorso = true;
    m_threadFinito = false;

    m_main.setEnabled(false);
    m_control.resetCounts();
    m_finestra = std::make_unique<frmCalcolo>(m_ui, m_control);
    m_finestra->show();
    m_ui.setDialogParent(m_finestra.get());

    frmCalcolo* window = m_finestra.get();
    m_thread = std::thread([this, window] {
        ProgressForwarder forwarder(window);
        const RunResult r = Elabora(m_corpo, m_ui, m_control, forwarder);
        QMetaObject::invokeMethod(
            this,
            [this, r] {
                m_risultato = r;
                concludi();
            },
            Qt::QueuedConnection);
        m_threadFinito = true;
    });
}

void frmCalcoloWorker::concludi() {
    if (m_thread.joinable()) m_thread.join();
    m_ui.setDialogParent(nullptr);
    if (m_finestra) {
        m_finestra->mostraConteggiVivi();
        m_finestra->hide();
    }
    m_main.setEnabled(true);
    m_main.raise();
    m_main.activateWindow();
    m_inCorso = false;
    emit conclusa();
}

} // namespace dv
