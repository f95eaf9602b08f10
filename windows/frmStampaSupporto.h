// What the printing windows share: where a job goes (a printer by name, or a PDF file chosen in a
// save dialog for the "PDF" entry and for "save as PDF"), the preview, the job on a worker thread,
// and the drawing of the play slip that the slip and calibration windows show.
#pragma once

#include "platform/StampanteQt.h"
#include "print/TaraturaScheda.h"

#include <QObject>
#include <QPixmap>

#include <atomic>

#include <functional>
#include <memory>
#include <string>
#include <thread>

class QWidget;

namespace dv {

class Ui;

// The job for the printer named nome: the "PDF" entry (unless a real printer bears that name)
// asks for a file with a save dialog; a printer that does not exist gives the default printer.
// Null when the user cancelled or the machine has no printer (after the box of "0048").
std::unique_ptr<LavoroStampa> ApriDestinazione(const std::string& nome, bool qualitaNormale, Ui& ui,
                                               const std::string& cartella, const std::string& nomeProposto);
// A PDF file chosen in a save dialog; null when the user cancelled.
std::unique_ptr<LavoroStampa> ApriPdf(Ui& ui, const std::string& cartella, const std::string& nomeProposto);

// Qt's preview dialog over the printer named nome (or the default), drawing the job as emetti
// does; modal.
void Anteprima(QWidget* parent, const std::string& nome,
               const std::function<void(OperazioniStampa&)>& emetti);

// Runs a job on a worker thread and calls fine on the window thread when it has ended. One job at
// a time; the destructor waits for a job still running.
class LavoroInSottofondo : public QObject {
public:
    explicit LavoroInSottofondo(QObject* parent = nullptr) : QObject(parent) {}
    ~LavoroInSottofondo() override;
    void avvia(std::function<void()> lavoro, std::function<void()> fine);
    bool inCorso() const { return m_inCorso; }
    // Waits, serving the window thread, until the job has ended (tests).
    void attendi();

private:
    std::thread m_thread;
    bool m_inCorso = false;
    std::atomic<bool> m_finito{true};
};

// "Error 482 (text) in procedure <procedura>": the box of a failed print.
std::string TestoErroreStampa(const std::string& errore, const std::string& procedura);

// A drawing of the 10eLotto play slip from the geometry of cal, at pxPerMm pixels a millimetre:
// the ninety numbers, the ten stakes, the kinds of draw, the game options and the header line.
QPixmap DisegnoScheda(const SlipCalibration& cal, double pxPerMm);

} // namespace dv
