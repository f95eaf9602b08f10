#include "windows/frmMatr.h"

#include "core/Cartelle.h"
#include "core/Helpers.h"
#include "matrix/AggiornaMatrici.h"
#include "platform/ApplyLanguage.h"
#include "platform/DownloadFile.h"
#include "settings/Ansi.h"
#include "settings/FileTesto.h"
#include "system_files/ErroreEsecuzione.h"
#include "windows/FermaLavoro.h"
#include "windows/frmOrdinaPronostico.h"
#include "windows/QtUiDialogs.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEvent>
#include <QEventLoop>
#include <QFont>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>

namespace dv {

namespace {

QString Testo(const std::string& ansi) {
    return QString::fromStdString(AnsiToUtf8(TrimCampo(ansi)));
}

} // namespace

frmMatr::frmMatr(Corpo& corpo, Ui& ui, const Impostazioni& impostazioni, Modo modo, QWidget* parent,
                 ServiziMatrici servizi)
    : QDialog(parent), m_corpo(corpo), m_ui(ui), m_imp(impostazioni), m_modo(modo),
      m_servizi(std::move(servizi)), m_fisse(corpo.LenColonna) {
    if (!m_servizi.download) m_servizi.download = ScaricatoreDiRete();
    if (!m_servizi.chiedi)
        m_servizi.chiedi = [this](const std::string& prompt,
                                  const std::string& proposta) -> std::optional<std::string> {
            bool ok = false;
            // While an adaptation runs this window is disabled, and so would be a child of it.
            QWidget* genitore = m_occupato && m_avanzamento ? m_avanzamento : static_cast<QWidget*>(this);
            const QString r = QInputDialog::getText(genitore, QString::fromLatin1(TitoloApplicazione),
                                                    QString::fromStdString(prompt), QLineEdit::Normal,
                                                    QString::fromStdString(proposta), &ok);
            if (!ok) return std::nullopt;
            return r.toStdString();
        };
    if (!m_servizi.ordina)
        m_servizi.ordina = [this] {
            frmOrdinaPronostico ordine(m_corpo, m_ui, this);
            ordine.exec();
        };
    creaControlli();
    // The load: the catalogue with the forecast's filter, or of everything.
    const uint8_t filtro = m_modo == Modo::Adatta ? m_corpo.pronostico.Quanti : 0;
    m_catalogo = BuildMatrixCatalog(m_corpo.AppDir, filtro, m_corpo.LenColonna, OggiSeriale());
    ApplyLanguage(*this, m_ui.languageFile());
    riempiLista();
}

frmMatr::~frmMatr() {
    if (m_thread) {
        // The window goes while an update runs: it stops before its next file, unheard.
        FermaLavoro(m_thread, *m_ferma, this);
        m_ui.setBusy(false);
    }
    delete m_avanzamento;
}

namespace {

// The progress window during an update closes as its stop button does.
class FinestraAvanzamento : public QWidget {
public:
    explicit FinestraAvanzamento(std::function<void()> chiudi)
        : QWidget(nullptr, Qt::Dialog), m_chiudi(std::move(chiudi)) {}

protected:
    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        m_chiudi();
    }

private:
    std::function<void()> m_chiudi;
};

} // namespace

void frmMatr::creaAvanzamento() {
    // Without a parent, since this window is disabled while the update runs; modal, so that it
    // stays reachable above this modal window.
    m_avanzamento = new FinestraAvanzamento([this] { interrompi(); });
    m_avanzamento->setObjectName(QStringLiteral("frmMatrAvanzamento"));
    m_avanzamento->setWindowModality(Qt::ApplicationModal);
    m_avanzamento->setWindowTitle(windowTitle());
    auto* layout = new QVBoxLayout(m_avanzamento);
    m_lblAvanzamento = new QLabel(m_avanzamento);
    m_lblAvanzamento->setObjectName(QStringLiteral("lblAvanzamento"));
    m_lblAvanzamento->setMinimumWidth(
        m_lblAvanzamento->fontMetrics().horizontalAdvance(QString(40, QLatin1Char('0'))));
    layout->addWidget(m_lblAvanzamento);
    m_cmdInterrompi = new QPushButton(QString::fromStdString(m_ui.Lang("0191")), m_avanzamento);
    m_cmdInterrompi->setObjectName(QStringLiteral("cmdInterrompi"));
    m_testoElaborazione = m_lbElaborazione->text();
    connect(m_cmdInterrompi, &QPushButton::clicked, this, &frmMatr::interrompi);
    layout->addWidget(m_cmdInterrompi, 0, Qt::AlignRight);
}

QLineEdit* frmMatr::campo(const char* nome, const QString& etichetta) {
    auto* e = new QLineEdit(this);
    e->setObjectName(QString::fromLatin1(nome));
    e->setToolTip(etichetta);
    e->setReadOnly(true);
    e->installEventFilter(this);
    m_campi.push_back(e);
    return e;
}

void frmMatr::creaControlli() {
    setObjectName(QStringLiteral("frmMatr"));
    setWindowTitle(QStringLiteral("Matrici Disponibili"));
    auto* layout = new QVBoxLayout(this);

    m_flQVN = new QListWidget(this);
    m_flQVN->setObjectName(QStringLiteral("flQVN"));
    QFont courier(QStringLiteral("Courier New"));
    courier.setStyleHint(QFont::Monospace);
    m_flQVN->setFont(courier);
    m_flQVN->setMinimumWidth(m_flQVN->fontMetrics().horizontalAdvance(QString(52, QLatin1Char('0'))));
    m_flQVN->setMinimumHeight(180);
    layout->addWidget(m_flQVN, 1);
    connect(m_flQVN, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && row < static_cast<int>(m_righe.size())) mostraRiga(m_righe[static_cast<size_t>(row)]);
    });

    // frameInfo hides lbElaborazione, which shows while an update runs.
    auto* info = new QWidget(this);
    auto* stack = new QGridLayout(info);
    stack->setContentsMargins(0, 0, 0, 0);
    m_lbElaborazione = new QLabel(QStringLiteral("Elaborazione in corso"), info);
    m_lbElaborazione->setObjectName(QStringLiteral("lbElaborazione"));
    m_lbElaborazione->setAlignment(Qt::AlignCenter);
    m_frameInfo = new QFrame(info);
    m_frameInfo->setObjectName(QStringLiteral("frameInfo"));
    m_frameInfo->setFrameShape(QFrame::StyledPanel);
    m_frameInfo->setAutoFillBackground(true);
    stack->addWidget(m_lbElaborazione, 0, 0);
    stack->addWidget(m_frameInfo, 0, 0);
    layout->addWidget(info);

    auto* griglia = new QGridLayout(m_frameInfo);
    const struct {
        const char* nome;
        const char* etichetta;
        const char* testo;
        int riga, colonna, ampiezza;
    } campi[] = {
        {"txtNumMatrix", "lblNumMatrix", "Numeri della Matrice", 0, 0, 1},
        {"txtLenCol", "lblLenCol", "Lunghezza Colonna", 0, 2, 1},
        {"txtGaranty", "lblGaranty", "Garanzia della Matrice", 1, 0, 1},
        {"txtPickUp", "lblPickUp", "Numeri Estratti per la Garanzia", 1, 2, 1},
        {"txtFixedNum", "lblFixedNum", "Numero Fisse", 2, 0, 1},
        {"txtColMatrix", "lblColMatrix", "Colonne della Matrice", 2, 2, 1},
        {"txtPercentage", "lblPercentage", "Percentuale Garanzia di Vincita", 3, 0, 1},
        {"txtValidFrom", "lblValidFrom", "Valida Dal", 3, 2, 1},
        {"txtValidTo", "lblValidTo", "Valida Al", 4, 2, 1},
        {"txtAuthor", "lblAuthor", "Autore Matrice", 4, 0, 1},
        {"txtDescription", "lblDescription", "Descrizione Matrice", 5, 0, 3},
        {"txtFileName", "lblFileName", "File Matrice", 6, 0, 3},
    };
    for (const auto& c : campi) {
        auto* l = new QLabel(QString::fromUtf8(c.testo), m_frameInfo);
        l->setObjectName(QString::fromLatin1(c.etichetta));
        griglia->addWidget(l, c.riga, c.colonna);
        griglia->addWidget(campo(c.nome, QString::fromUtf8(c.testo)), c.riga, c.colonna + 1, 1, c.ampiezza);
    }
    auto* stati = new QHBoxLayout;
    for (auto [l, nome] : {std::pair{&m_lblChkVersion, "lblChkVersion"}, std::pair{&m_lblOK, "lblOK"},
                           std::pair{&m_lblScaduta, "lblScaduta"}}) {
        *l = new QLabel(m_frameInfo);
        (*l)->setObjectName(QString::fromLatin1(nome));
        (*l)->setWordWrap(true);
        (*l)->setAutoFillBackground(true);
        stati->addWidget(*l, 1);
    }
    griglia->addLayout(stati, 7, 0, 1, 4);

    auto* pulsanti = new QHBoxLayout;
    auto pulsante = [this, pulsanti](const char* nome, const char* testo, const char* tip,
                                     void (frmMatr::*f)()) {
        auto* b = new QPushButton(QString::fromUtf8(testo), this);
        b->setObjectName(QString::fromLatin1(nome));
        b->setToolTip(QString::fromUtf8(tip));
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, f);
        pulsanti->addWidget(b);
        return b;
    };
    m_cmdAdatta = pulsante("cmdAdatta", "&Adatta", "Adatta la Matrice", &frmMatr::cmdAdatta_Click);
    m_cmdMatriceTXT = pulsante("cmdMatriceTXT", "&File TXT", "Adatta Matrice Personalizzata",
                               &frmMatr::cmdMatriceTXT_Click);
    m_cmdUpdateMatrix = pulsante("cmdUpdateMatrix", "A&ggiorna Matrici", "Scarica le matrici dal server",
                                 &frmMatr::cmdUpdateMatrix_Click);
    m_cmdOpenDir = pulsante("cmdOpenDir", "Apri &Cartella", "Apri la cartella delle matrici",
                            &frmMatr::cmdOpenDir_Click);
    pulsanti->addStretch();
    layout->addLayout(pulsanti);

    const bool adatta = m_modo == Modo::Adatta;
    m_cmdAdatta->setVisible(adatta);
    m_cmdMatriceTXT->setVisible(adatta);
    m_cmdUpdateMatrix->setVisible(!adatta);
    m_cmdOpenDir->setVisible(!adatta);
    // Nothing to adapt until a row is shown.
    m_cmdAdatta->setEnabled(false);
    m_cmdMatriceTXT->setEnabled(false);
    for (QLabel* l : {m_lblChkVersion, m_lblOK, m_lblScaduta})
        etichetta(l, false, {});
}

bool frmMatr::eventFilter(QObject* watched, QEvent* event) {
    auto* e = qobject_cast<QLineEdit*>(watched);
    if (e && event->type() == QEvent::FocusIn) {
        // Selected whole once the click that gave the focus is over.
        QTimer::singleShot(0, e, &QLineEdit::selectAll);
    } else if (e && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            focusNextChild();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmMatr::riempiLista() {
    m_flQVN->clear();
    m_righe.clear();
    for (size_t i = 0; i < m_catalogo.size(); ++i) {
        if (m_catalogo[i].FILE_NAME.empty()) continue;
        m_flQVN->addItem(QString::fromStdString(AnsiToUtf8(RigaCatalogo(m_catalogo[i]))));
        m_righe.push_back(static_cast<int>(i));
    }
    setWindowTitle(QString::fromStdString(m_ui.Lang("0019") + " (" + std::to_string(m_righe.size()) + ")"));
}

void frmMatr::etichetta(QLabel* l, bool rossa, const std::string& testo) {
    l->setText(rossa ? QString::fromStdString(testo) : QString());
    QPalette p = palette();
    if (rossa) {
        p.setColor(QPalette::Window, Qt::red);
        p.setColor(QPalette::WindowText, Qt::white);
    }
    l->setPalette(p);
}

void frmMatr::mostraRiga(int i) {
    if (i < 0 || i >= static_cast<int>(m_catalogo.size())) return;
    const MATRIX_CATALOG_ENTRY& e = m_catalogo[static_cast<size_t>(i)];
    const QString valori[] = {QString::number(e.NUMBERS_OF_MATRIX_V),
                              QString::number(e.LENGTH_OF_COLUMN_K),
                              QString::number(e.GARANTY_T),
                              QString::number(e.PICK_UP_NUMBERS_M),
                              QString::number(e.FIXED_NUMBERS_OF_MATRIX_F),
                              QString::number(e.COLUMNS_OF_MATRIX_C),
                              Testo(e.PERCENTAGE_COVER),
                              QString::fromStdString(DataGGMMAAAA(e.VALID_FROM)),
                              QString::fromStdString(DataGGMMAAAA(e.VALID_TO)),
                              Testo(e.AUTHOR),
                              Testo(e.DESCRIPTION),
                              QString::fromStdString(e.FILE_NAME)};
    for (size_t c = 0; c < m_campi.size(); ++c)
        m_campi[c]->setText(valori[c]);
    etichetta(m_lblChkVersion, !e.SIGNATURE_OK, m_ui.Lang("0008"));
    etichetta(m_lblOK, !e.CRC_OK, m_ui.Lang("0009"));
    etichetta(m_lblScaduta, e.EXPIRED, m_ui.Lang("0010"));
    m_cmdMatriceTXT->setEnabled(!e.STARTED);
    m_cmdAdatta->setEnabled(e.STARTED && e.CRC_OK && e.SIGNATURE_OK && !e.EXPIRED);
}

void frmMatr::adatta(std::function<void(const ChiediNumero&, const AvanzamentoAdattamento&)> f) {
    m_ferma = std::make_shared<std::atomic<bool>>(false);
    // The input box of a fixed number is asked of the window thread and waited for.
    const ChiediNumero chiedi = [this](const std::string& prompt, const std::string& proposta) {
        std::optional<std::string> r;
        QMetaObject::invokeMethod(
            this, [&] { r = m_servizi.chiedi(prompt, proposta); }, Qt::BlockingQueuedConnection);
        return r;
    };
    const AvanzamentoAdattamento avanzamento = [this, ferma = m_ferma](int32_t fatte, int32_t totale) {
        if (ferma->load()) return false;
        QMetaObject::invokeMethod(
            this, [this, fatte, totale] { mostraAvanzamento("0193", fatte, totale); }, Qt::QueuedConnection);
        return true;
    };
    avvia([f = std::move(f), chiedi, avanzamento] { f(chiedi, avanzamento); }, "",
          [this](bool riuscito) {
              // A stopped adaptation leaves the system empty and this window open.
              if (riuscito && !m_ferma->load()) accept();
          });
}

void frmMatr::cmdAdatta_Click() {
    const int row = m_flQVN->currentRow();
    if (row < 0 || row >= static_cast<int>(m_righe.size())) return;
    m_servizi.ordina();
    const std::string path = PercorsoIn(m_corpo.AppDir, {"matrici"}) + SeparatoreCartelle +
                             m_catalogo[static_cast<size_t>(m_righe[static_cast<size_t>(row)])].FILE_NAME;
    adatta([this, path](const ChiediNumero& chiedi, const AvanzamentoAdattamento& avanzamento) {
        AdattaMatriceCatalogo(m_corpo, m_ui, path, m_fisse, chiedi, avanzamento);
    });
}

void frmMatr::cmdMatriceTXT_Click() {
    const std::string path = m_ui.chooseOpenFile(PercorsoIn(m_corpo.AppDir, {"txt"}), "txt(*.txt)|*.txt");
    if (path.empty()) {
        // A cancelled dialog still adapts: the empty matrix leaves an empty system.
        adatta([this](const ChiediNumero& chiedi, const AvanzamentoAdattamento& avanzamento) {
            AdattaMatriceTesto(m_corpo, m_ui, MATRIX_STRUCTURE{}, false, m_fisse, chiedi, avanzamento);
        });
        return;
    }
    MATRIX_STRUCTURE m;
    try {
        m = ImportaMatricePerAdattare(m_corpo, m_ui, path, OggiSeriale());
    } catch (const ErroreEsecuzione& e) {
        m_ui.messageBox(TestoErrore(m_ui, e, ")"), "", BoxIcon::None);
        return;
    }
    m_servizi.ordina();
    adatta([this, m = std::move(m)](const ChiediNumero& chiedi, const AvanzamentoAdattamento& avanzamento) {
        AdattaMatriceTesto(m_corpo, m_ui, m, true, m_fisse, chiedi, avanzamento);
    });
}

std::string frmMatr::testoGuasto(const std::exception_ptr& guasto, const std::string& procedura) {
    try {
        std::rethrow_exception(guasto);
    } catch (const ErroreEsecuzione& e) {
        return TestoErrore(m_ui, e, ")" + procedura);
    } catch (const std::exception& e) {
        return std::string("Error 0 (") + e.what() + ")" + procedura;
    } catch (...) {
        return "Error 0 ()" + procedura;
    }
}

void frmMatr::avvia(std::function<void()> lavoro, const std::string& procedura,
                    std::function<void(bool)> poi) {
    m_occupato = true;
    m_ui.setBusy(true);
    setEnabled(false);
    if (!m_avanzamento) creaAvanzamento();
    m_lblAvanzamento->setText(m_testoElaborazione);
    m_cmdInterrompi->setEnabled(true);
    m_avanzamento->adjustSize();
    m_avanzamento->move(geometry().center() - m_avanzamento->rect().center());
    m_avanzamento->show();
    repaint();

    // A fault of the thread is kept as it is and told once the thread is over, on the window's
    // thread, where the language file may be read: its cause then comes in the user's language.
    auto errore = std::make_shared<std::exception_ptr>();
    m_thread = QThread::create([lavoro = std::move(lavoro), errore] {
        try {
            lavoro();
        } catch (...) {
            *errore = std::current_exception();
        }
    });
    connect(m_thread, &QThread::finished, this, [this, errore, procedura, poi = std::move(poi)] {
        m_thread->wait();
        delete m_thread;
        m_thread = nullptr;
        m_avanzamento->hide();
        if (*errore) m_ui.messageBox(testoGuasto(*errore, procedura), "", BoxIcon::None);
        m_lbElaborazione->setText(m_testoElaborazione);
        m_ui.setBusy(false);
        m_frameInfo->show();
        setEnabled(true);
        m_occupato = false;
        poi(!*errore);
        emit aggiornamentoConcluso();
    });
    m_thread->start();
}

void frmMatr::cmdUpdateMatrix_Click() {
    if (m_occupato) return;
    // lbElaborazione shows where frameInfo was.
    m_frameInfo->hide();
    // The list and each file are fetched on a thread of their own; the window hears of each file
    // before it is fetched and answers whether to go on.
    m_ferma = std::make_shared<std::atomic<bool>>(false);
    const Impostazioni imp = m_imp;
    const std::string appDir = m_corpo.AppDir;
    // The stop reaches the file being fetched as well, not only the next one.
    const Scaricatore download = m_servizi.download.conStop(m_ferma);
    auto rapporto = std::make_shared<RapportoDownload>();
    const AvanzamentoMatrici avanzamento = [this, ferma = m_ferma](size_t numero, size_t totale) {
        if (ferma->load()) return false;
        QMetaObject::invokeMethod(
            this, [this, numero, totale] { mostraAvanzamento("0190", numero, totale); },
            Qt::QueuedConnection);
        return true;
    };
    avvia([imp, appDir, download, avanzamento,
           rapporto] { AggiornaMatrici(imp, appDir, download, avanzamento, rapporto.get()); },
          " in procedure cmdUpdateMatrix_Click of Form frmMatr",
          [this, rapporto](bool) {
              // What failed, and why, in one box; a stop asked for by the user needs none.
              rapporto->interrotto = false;
              const std::string messaggio = MessaggioRapporto(*rapporto, m_ui);
              if (!messaggio.empty()) m_ui.messageBox(messaggio, "", BoxIcon::Exclamation);
              try {
                  m_catalogo = BuildMatrixCatalog(m_corpo.AppDir, 0, m_corpo.LenColonna, OggiSeriale());
                  riempiLista();
              } catch (const std::exception& e) {
                  m_ui.messageBox(std::string("Error 0 (") + e.what() +
                                      ") in procedure cmdUpdateMatrix_Click of Form frmMatr",
                                  "", BoxIcon::None);
              }
          });
}

void frmMatr::mostraAvanzamento(const char* chiave, int64_t numero, int64_t totale) {
    if (!m_occupato || m_ferma->load()) return;
    const QString testo =
        QString::fromStdString(TestoCon(m_ui.Lang(chiave), std::to_string(numero), std::to_string(totale)));
    m_lblAvanzamento->setText(testo);
    m_lbElaborazione->setText(testo);
}

void frmMatr::interrompi() {
    if (!m_occupato) return;
    m_ferma->store(true);
    m_cmdInterrompi->setEnabled(false);
}

void frmMatr::attendi() {
    if (!m_occupato) return;
    QEventLoop loop;
    connect(this, &frmMatr::aggiornamentoConcluso, &loop, &QEventLoop::quit);
    loop.exec();
}

void frmMatr::reject() {
    if (m_occupato) {
        m_ui.messageBox(m_ui.Lang("0192"), "", BoxIcon::Information);
        return;
    }
    QDialog::reject();
}

void frmMatr::cmdOpenDir_Click() {
    const std::string cartella = PercorsoIn(m_corpo.AppDir, {"matrici"});
    if (m_servizi.apriCartella) m_servizi.apriCartella(cartella);
}

} // namespace dv
