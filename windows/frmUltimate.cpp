#include "windows/frmUltimate.h"

#include "archive/Archivio.h"
#include "archive/UltimateAggiorna.h"
#include "core/Cartelle.h"
#include "platform/ApplyLanguage.h"
#include "windows/AttesaDownload.h"
#include "windows/frmCalcolo.h"
#include "windows/frmFiltriPannelli.h"
#include "windows/QtUi.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace dv {

namespace {

constexpr uint32_t Giallo = 0x00FFFF, Nero = 0x000000;

// Forwards the search's reports, made on the worker thread, to the progress window by queued calls.
class Inoltro : public EngineObserver {
public:
    explicit Inoltro(frmCalcolo* w) : m_w(w) {}
    void started(double total) override {
        frmCalcolo* w = m_w;
        QMetaObject::invokeMethod(
            w, [w, total] { w->mostraIntegrale(total); }, Qt::QueuedConnection);
    }
    void progress(const ProgressInfo& info) override {
        frmCalcolo* w = m_w;
        QMetaObject::invokeMethod(
            w, [w, info] { w->mostraAvanzamento(info); }, Qt::QueuedConnection);
    }

private:
    frmCalcolo* m_w;
};

QLabel* Etichetta(QWidget* parent, const char* name, const QString& text) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(QString::fromLatin1(name));
    return l;
}

} // namespace

frmUltimate::frmUltimate(Corpo& corpo, QtUi& ui, std::function<ServerArchivi()> server, QWidget* parent)
    : QWidget(parent, Qt::Window), m_corpo(corpo), m_ui(ui), m_server(std::move(server)) {
    costruisci();
    ApplyLanguage(*this, m_ui.languageFile());
    carica();
}

frmUltimate::~frmUltimate() {
    m_control.StopElaborazione = true;
    attendiThread();
}

void frmUltimate::attendiThread() {
    // The worker may be waiting for the window thread (a box, the pointer): serve it until it ends.
    while (m_inCorso)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    if (m_thread.joinable()) m_thread.join();
}

void frmUltimate::costruisci() {
    setObjectName("frmUltimate");
    setWindowTitle("Ultimate 5 minuti");

    auto* frameTipoGiocata = new QGroupBox("Giocata", this);
    frameTipoGiocata->setObjectName("frameTipoGiocata");
    auto* tipi = new QVBoxLayout(frameTipoGiocata);
    const char* nomi[] = {"Ambo", "Terno", "Quaterna"};
    for (int i = 0; i < 3; ++i) {
        auto* o = new QRadioButton(nomi[i], frameTipoGiocata);
        o->setObjectName("optTipoGiocata");
        o->setProperty("index", i);
        tipi->addWidget(o);
        connect(o, &QRadioButton::clicked, this, [this, i] { optTipoGiocata_Click(i); });
        m_optTipoGiocata[static_cast<size_t>(i)] = o;
    }

    m_vsQta = new QScrollBar(Qt::Vertical, this);
    m_vsQta->setObjectName("vsQta");
    m_vsQta->setRange(1, 10);
    m_vsQta->setPageStep(1);
    m_vsQta->setMinimumHeight(60);
    connect(m_vsQta, &QScrollBar::valueChanged, this, [this](int v) {
        m_qta = v;
        ricalcola();
    });
    m_lbQta = Etichetta(this, "lbQta", "1");
    m_lbQta->setMinimumWidth(30);
    m_lbQta->setStyleSheet("font-weight: bold; font-size: 14pt;");

    auto* valori = new QGridLayout;
    m_lbNumDecadimento = Etichetta(this, "lbNumDecadimento", QString());
    m_lbNumEstrazioni = Etichetta(this, "lbNumEstrazioni", QString());
    auto* lbNumPrevisioni = Etichetta(this, "lbNumPrevisioni", QString());
    const struct {
        const char* nome;
        const char* testo;
        QLabel* valore;
    } righe[] = {{"lbDecadimento", "Decadimento", m_lbNumDecadimento},
                 {"lbEstrazioni", "Estrazioni valutate", m_lbNumEstrazioni},
                 {"lbPrevisioni", "Previsioni Trovate", lbNumPrevisioni}};
    int r = 0;
    for (const auto& riga : righe) {
        valori->addWidget(Etichetta(this, riga.nome, riga.testo), r, 0);
        riga.valore->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        riga.valore->setMinimumWidth(fontMetrics().horizontalAdvance("-0,00000000000000"));
        riga.valore->setStyleSheet("font-weight: bold;");
        valori->addWidget(riga.valore, r++, 1);
    }

    m_cmdUpdate = new QPushButton("Aggiorna Archivio", this);
    m_cmdUpdate->setObjectName("cmdUpdate");
    m_cmdUpdate->setToolTip("Click per iniziare l'aggiornamento");
    connect(m_cmdUpdate, &QPushButton::clicked, this, &frmUltimate::cmdUpdate_Click);
    m_cmdCalcolo = new QPushButton("Elabora Sistema", this);
    m_cmdCalcolo->setObjectName("cmdCalcolo");
    connect(m_cmdCalcolo, &QPushButton::clicked, this, &frmUltimate::cmdCalcolo_Click);

    m_lbResult = new QPlainTextEdit(this);
    m_lbResult->setObjectName("lbResult");
    m_lbResult->setReadOnly(true);
    m_lbResult->setMinimumSize(260, 220);
    m_lbElaborazione = Etichetta(this, "lbElaborazione", "Elaborazione in corso");
    m_lbElaborazione->setAlignment(Qt::AlignCenter);
    m_lbElaborazione->setStyleSheet("color: rgb(160,0,0); font-weight: bold;");
    m_lbElaborazione->setVisible(false);

    auto* qta = new QHBoxLayout;
    qta->addWidget(m_vsQta);
    qta->addWidget(m_lbQta);
    auto* sopra = new QHBoxLayout;
    sopra->addWidget(frameTipoGiocata);
    sopra->addLayout(qta);
    sopra->addLayout(valori, 1);
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(m_cmdUpdate);
    pulsanti->addStretch();
    pulsanti->addWidget(m_cmdCalcolo);
    auto* v = new QVBoxLayout(this);
    v->addLayout(sopra);
    v->addLayout(pulsanti);
    v->addWidget(m_lbElaborazione);
    v->addWidget(m_lbResult, 1);
}

void frmUltimate::carica() {
    m_lbElaborazione->setText("\n" + QString::fromStdString(m_ui.Lang("0029")) + "...");
    m_tipo = 2;
    m_qta = 1;
    m_vsQta->blockSignals(true);
    m_vsQta->setValue(1);
    m_vsQta->blockSignals(false);
    m_lbResult->clear();
    m_optTipoGiocata[0]->setChecked(true);
    optTipoGiocata_Click(0);
}

void frmUltimate::apri() {
    if (!isVisible()) {
        ApplyLanguage(*this, m_ui.languageFile());
        carica();
    }
    show();
    raise();
    activateWindow();
}

void frmUltimate::optTipoGiocata_Click(int index) {
    for (int i = 0; i < 3; ++i) {
        QRadioButton& o = *m_optTipoGiocata[static_cast<size_t>(i)];
        if (i == index)
            Colora(o, Giallo, Nero);
        else
            Colora(o, -1);
    }
    m_tipo = index + 2;
    ricalcola();
}

void frmUltimate::ricalcola() {
    const ParametriUltimate p = UltimateParametri(m_tipo, m_qta);
    const QLocale locale;
    m_lbQta->setText(QString::number(m_qta));
    m_lbNumDecadimento->setText(locale.toString(p.decadimento, 'f', 11));
    m_lbNumEstrazioni->setText(locale.toString(p.estrazioni));
}

void frmUltimate::cmdCalcolo_Click() {
    if (m_inCorso) return;
    if (m_thread.joinable()) m_thread.join();
    m_inCorso = true;
    // The main window is disabled as well, and with it this window, which it owns: nothing else
    // may touch the column store until the found combinations are written into it.
    QWidget* padrone = parentWidget() ? parentWidget() : this;
    padrone->setEnabled(false);
    setEnabled(false);
    m_ui.setBusy(true);
    m_lbResult->setEnabled(false);
    m_lbElaborazione->setVisible(true);

    m_control.StopElaborazione = false;
    m_calcolo = std::make_unique<frmCalcolo>(m_ui, m_control);
    m_calcolo->show();
    m_ui.setDialogParent(m_calcolo.get());

    const int n = m_tipo;
    const int32_t e = UltimateEstrazioni(m_tipo, m_qta);
    const std::string archivio = m_corpo.PathArchivio5Min;
    const std::string cartella = PercorsoIn(m_corpo.AppDir, {"archivio"});
    frmCalcolo* finestra = m_calcolo.get();
    m_thread = std::thread([this, n, e, archivio, cartella, finestra] {
        // The search always runs on the five-minute archive, read into an array of its own.
        const ArrayEstrazioni a = LoadArchivioDAT(archivio, cartella, m_ui);
        Inoltro inoltro(finestra);
        RisultatoUltimate r = UltimateCerca(a, n, e, m_control, inoltro);
        QMetaObject::invokeMethod(
            this, [this, r = std::move(r)] { concludiCalcolo(r); }, Qt::QueuedConnection);
    });
}

void frmUltimate::concludiCalcolo(const RisultatoUltimate& r) {
    if (m_thread.joinable()) m_thread.join();
    m_ui.setDialogParent(nullptr);
    if (m_calcolo) m_calcolo->hide();
    // The found combinations go into the column store; the system's count stays as it is.
    ScriviColonneUltimate(m_corpo.Colonne, r);
    m_inCorso = false;
    riabilita();
    if (r.overflow)
        m_ui.messageBox(TestoOverflowUltimate(") in procedure cmdCalcolo_Click of Form frmUltimate"), "",
                        BoxIcon::None);
    else
        m_lbResult->setPlainText(QString::fromStdString(TestoUltimate(r)).replace("\r\n", "\n"));
    emit calcoloConcluso();
}

void frmUltimate::riabilita() {
    m_lbElaborazione->setVisible(false);
    if (QWidget* padrone = parentWidget()) padrone->setEnabled(true);
    setEnabled(true);
    m_lbResult->setEnabled(true);
    m_ui.setBusy(false);
    raise();
    activateWindow();
}

void frmUltimate::cmdUpdate_Click() {
    if (m_inCorso) return;
    if (m_thread.joinable()) m_thread.join();
    m_inCorso = true;
    m_cmdUpdate->setEnabled(false);
    m_cmdCalcolo->setEnabled(false);
    m_ui.setBusy(true);
    // The download runs off the window thread while a small window offers a stop that reaches it.
    const ServerArchivi server = m_server();
    EseguiConAttesa(this, m_ui, [this, &server](std::shared_ptr<const std::atomic<bool>> stop) {
        AggiornaArchivioUltimate(m_corpo, m_ui, {server.indirizzo, server.download.conStop(std::move(stop))});
    });
    m_inCorso = false;
    m_cmdUpdate->setEnabled(true);
    m_cmdCalcolo->setEnabled(true);
    m_ui.setBusy(false);
    emit aggiornamentoConcluso();
}

void frmUltimate::closeEvent(QCloseEvent* event) {
    // A search or an update in progress keeps the window; the progress window's button stops it.
    if (m_inCorso)
        event->ignore();
    else
        QWidget::closeEvent(event);
}

} // namespace dv
