// frmMatr: the catalogue of matrices, the header of the selected one, and its adaptation to the
// forecast. Opened by the adapt command with the forecast's filter (cmdAdatta and cmdMatriceTXT
// shown), or as the list of every matrix with the update and folder buttons.
//
//     dv::frmMatr f(corpo, ui, impostazioni, dv::frmMatr::Modo::Adatta, this);
//     f.exec();
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"
#include "matrix/Adatta.h"
#include "matrix/Catalogo.h"
#include "settings/Impostazioni.h"
#include "settings/Online.h"

#include <QDialog>
#include <QString>

#include <atomic>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QThread;

namespace dv {

// What the window asks of the platform; tests give their own. Empty entries take the desktop's.
struct ServiziMatrici {
    Scaricatore download;                                 // downloads from the web server
    ChiediNumero chiedi;                                  // the input box of a fixed number
    std::function<void()> ordina;                         // frmOrdinaPronostico, modally
    std::function<void(const std::string&)> apriCartella; // the folder in the file browser
};

class frmMatr : public QDialog {
    Q_OBJECT
public:
    enum class Modo { Adatta, Elenco };

    frmMatr(Corpo& corpo, Ui& ui, const Impostazioni& impostazioni, Modo modo, QWidget* parent = nullptr,
            ServiziMatrici servizi = {});
    ~frmMatr() override;

    const std::vector<MATRIX_CATALOG_ENTRY>& catalogo() const { return m_catalogo; }
    // Shows row i of the catalogue, as a click on flQVN does.
    void mostraRiga(int i);

    void cmdAdatta_Click();
    void cmdMatriceTXT_Click();
    void cmdUpdateMatrix_Click();
    void cmdOpenDir_Click();

    // True while an update or an adaptation runs on its thread; the window is disabled meanwhile
    // and the progress window, with its stop button, is shown.
    bool occupato() const { return m_occupato; }
    // Waits, serving events, until no update or adaptation runs.
    void attendi();
    // The stop button of the progress window: an update ends before its next file, an adaptation
    // within a few tens of thousands of columns, leaving the system empty and this window open.
    void interrompi();
    QWidget* finestraAvanzamento() const { return m_avanzamento; }

    // A close or Escape while work runs is refused with a message.
    void reject() override;

signals:
    // An update or an adaptation has ended and the window is ready again.
    void aggiornamentoConcluso();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void creaControlli();
    QLineEdit* campo(const char* nome, const QString& etichetta);
    // The catalogue into flQVN and the window's caption.
    void riempiLista();
    void etichetta(QLabel* l, bool rossa, const std::string& testo);
    // Runs an adaptation on a thread of its own, the fixed numbers asked of the window thread;
    // on success the window closes, on an error the message is shown and the window stays open.
    void adatta(std::function<void(const ChiediNumero&, const AvanzamentoAdattamento&)> f);
    // Runs lavoro on a thread of its own with the window disabled and the progress window shown;
    // then, on the window thread, shows its error (the box's text ending in procedura), makes the
    // window ready again and calls poi with whether lavoro ended without error.
    void avvia(std::function<void()> lavoro, const std::string& procedura, std::function<void(bool)> poi);
    // The error box's text of a fault of the work's thread.
    std::string testoGuasto(const std::exception_ptr& guasto, const std::string& procedura);
    void creaAvanzamento();
    // The language text chiave with numero and totale, in the progress window and under the list.
    void mostraAvanzamento(const char* chiave, int64_t numero, int64_t totale);

    Corpo& m_corpo;
    Ui& m_ui;
    const Impostazioni& m_imp;
    Modo m_modo;
    ServiziMatrici m_servizi;
    std::vector<MATRIX_CATALOG_ENTRY> m_catalogo;
    std::vector<int> m_righe; // catalogue index of each row of flQVN
    FisseMatrice m_fisse;
    bool m_occupato = false;
    QThread* m_thread = nullptr;
    std::shared_ptr<std::atomic<bool>> m_ferma;
    QWidget* m_avanzamento = nullptr;
    QLabel* m_lblAvanzamento = nullptr;
    QPushButton* m_cmdInterrompi = nullptr;
    QString m_testoElaborazione; // the caption of lbElaborazione, given back after an update

    QListWidget* m_flQVN = nullptr;
    QFrame* m_frameInfo = nullptr;
    QLabel* m_lbElaborazione = nullptr;
    std::vector<QLineEdit*> m_campi;
    QLabel* m_lblChkVersion = nullptr;
    QLabel* m_lblOK = nullptr;
    QLabel* m_lblScaduta = nullptr;
    QPushButton* m_cmdAdatta = nullptr;
    QPushButton* m_cmdMatriceTXT = nullptr;
    QPushButton* m_cmdUpdateMatrix = nullptr;
    QPushButton* m_cmdOpenDir = nullptr;
};

} // namespace dv
