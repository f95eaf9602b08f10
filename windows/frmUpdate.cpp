#include "windows/frmUpdate.h"

#include "archive/Aggiornamento.h"
#include "archive/Archivio.h"
#include "archive/EstrazioneScelta.h"
#include "core/Cartelle.h"
#include "platform/ApplyLanguage.h"
#include "platform/GrigliaAppunti.h"
#include "windows/FermaLavoro.h"
#include "windows/frmFiltriPannelli.h"
#include "windows/frmUpdateModello.h"
#include "windows/QtUi.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTableView>
#include <QThread>
#include <QVBoxLayout>

#include <algorithm>
#include <new>
#include <utility>

namespace dv {

namespace {

QLabel* etichetta(QWidget* parent, const char* name, const char* caption) {
    auto* l = new QLabel(QString::fromUtf8(caption), parent);
    l->setObjectName(QString::fromLatin1(name));
    return l;
}

} // namespace

frmUpdate::frmUpdate(Corpo& corpo, QtUi& ui, Finestre& finestre, ServiziArchivio servizi, QWidget* parent)
    : QWidget(parent), m_corpo(corpo), m_ui(ui), m_finestre(finestre), m_servizi(std::move(servizi)),
      m_modello(std::make_unique<frmUpdateModello>()) {
    setWindowFlag(Qt::Window);
    setObjectName(QStringLiteral("frmUpdate"));
    setWindowTitle(QStringLiteral(" Archivio Estrazioni"));
    creaControlli();
}

frmUpdate::~frmUpdate() {
    // The end of the program while a run is on: its result is no longer wanted, and a download
    // in progress is stopped.
    FermaLavoro(m_thread, *m_ferma, this);
    m_flexGrid->setModel(nullptr);
}

void frmUpdate::creaControlli() {
    m_frameTipoArchivio = new QGroupBox(QStringLiteral("Archivio"), this);
    m_frameTipoArchivio->setObjectName(QStringLiteral("frameTipoArchivio"));
    auto* opzioni = new QHBoxLayout(m_frameTipoArchivio);
    const char* captions[] = {"S&erale", "5 m&in", "&manuale"};
    for (int i = 0; i < 3; ++i) {
        m_OptArchivio[i] = new QRadioButton(QString::fromLatin1(captions[i]), m_frameTipoArchivio);
        m_OptArchivio[i]->setObjectName(QStringLiteral("OptArchivio"));
        m_OptArchivio[i]->setProperty("index", i);
        opzioni->addWidget(m_OptArchivio[i]);
        connect(m_OptArchivio[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on) OptArchivio_Click(i);
        });
    }

    m_cmdUpdate = new QPushButton(QStringLiteral("&Aggiorna"), this);
    m_cmdUpdate->setObjectName(QStringLiteral("cmdUpdate"));
    m_cmdUpdate->setToolTip(QStringLiteral("Click per iniziare l'aggiornamento"));
    connect(m_cmdUpdate, &QPushButton::clicked, this, &frmUpdate::cmdUpdate_Click);
    m_cmdStatistiche = new QPushButton(QStringLiteral("&Statistiche"), this);
    m_cmdStatistiche->setObjectName(QStringLiteral("cmdStatistiche"));
    m_cmdStatistiche->setToolTip(QStringLiteral("Click per visualizzare le statistiche"));
    m_cmdStatistiche->setVisible(false);
    connect(m_cmdStatistiche, &QPushButton::clicked, this, &frmUpdate::cmdStatistiche_Click);
    m_cmdInterrompi = new QPushButton(QStringLiteral("&Interrompi"), this);
    m_cmdInterrompi->setObjectName(QStringLiteral("cmdInterrompi"));
    m_cmdInterrompi->setVisible(false);
    connect(m_cmdInterrompi, &QPushButton::clicked, this, &frmUpdate::cmdInterrompi_Click);

    auto* alto = new QHBoxLayout;
    alto->addWidget(m_frameTipoArchivio);
    alto->addWidget(m_cmdUpdate);
    alto->addWidget(m_cmdStatistiche);
    alto->addWidget(m_cmdInterrompi);
    alto->addStretch();

    // The headings above the grid's one column, placed over the fields of its rows.
    m_intestazioni = new QWidget(this);
    for (const auto& [name, caption] : {std::pair{"lblData", "Data"},
                                        {"lblEstrazione", "Estrazione"},
                                        {"lblColonnaVincente", "Colonna Vincente"},
                                        {"lblNumeroORO", "Numero ORO"},
                                        {"lblDoppioOro", "Doppio ORO"}})
        etichetta(m_intestazioni, name, caption);
    m_intestazioni->setMinimumHeight(fontMetrics().height() + 4);

    m_flexGrid = new QTableView(this);
    m_flexGrid->setObjectName(QStringLiteral("flexGrid"));
    m_flexGrid->setModel(m_modello.get());
    m_flexGrid->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_flexGrid->horizontalHeader()->hide();
    m_flexGrid->horizontalHeader()->setStretchLastSection(true);
    m_flexGrid->verticalHeader()->hide();
    // Rows of one height: the view then places 500,000 rows without measuring them.
    m_flexGrid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_flexGrid->verticalHeader()->setDefaultSectionSize(m_flexGrid->fontMetrics().height() + 4);
    m_flexGrid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_flexGrid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_flexGrid->setWordWrap(false);
    m_flexGrid->setShowGrid(false);
    m_flexGrid->installEventFilter(this);
    connect(m_flexGrid, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { flexGrid_DblClick(index.row()); });

    m_lbElaborazione = etichetta(this, "lbElaborazione", "Elaborazione in corso");

    m_frameUltimaEstrazione = new QGroupBox(QStringLiteral("Ultima Estrazione"), this);
    m_frameUltimaEstrazione->setObjectName(QStringLiteral("frameUltimaEstrazione"));
    m_lbLast = etichetta(m_frameUltimaEstrazione, "lbLast", "");
    m_lbLast->setFont(m_flexGrid->font());
    m_lbLast->setTextInteractionFlags(Qt::TextSelectableByMouse);
    (new QVBoxLayout(m_frameUltimaEstrazione))->addWidget(m_lbLast);

    m_lbTotale = etichetta(this, "lbTotale", "0");
    m_lblTotEstrazioni = etichetta(this, "lblTotEstrazioni", " Estrazioni Totali");
    auto* totale = new QHBoxLayout;
    totale->addWidget(m_lbTotale);
    totale->addWidget(m_lblTotEstrazioni);
    totale->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(alto);
    layout->addWidget(m_intestazioni);
    layout->addWidget(m_flexGrid, 1);
    layout->addWidget(m_lbElaborazione);
    layout->addWidget(m_frameUltimaEstrazione);
    layout->addLayout(totale);
    resize(1000, 600);
}

void frmUpdate::protetto(const char* procedura, const std::function<void()>& f) {
    try {
        f();
    } catch (const std::bad_alloc&) {
        m_ui.setBusy(false);
        m_flexGrid->setEnabled(true);
        m_ui.messageBox(std::string("Error 7 (Out of memory) in procedure ") + procedura +
                            " of Form frmUpdate",
                        "", BoxIcon::None);
    }
}

void frmUpdate::carica() {
    protetto("Form_Load", [this] {
        ApplyLanguage(*this, m_ui.languageFile());
        m_occupato = false;
        m_lbElaborazione->setText(QString::fromStdString(m_ui.Lang("0029")) + QStringLiteral("..."));
        {
            // The option of the archive in memory, marked without loading it a second time.
            const QSignalBlocker blocca(m_OptArchivio[0]);
            m_OptArchivio[0]->setChecked(true);
        }
        // The evening archive, read here on the window thread: the windows made after this one
        // read it as they load.
        m_corpo.mArrEstrazioni =
            LoadArchivioDAT(m_corpo.PathArchivioSerale, PercorsoIn(m_corpo.AppDir, {"archivio"}), m_ui);
        PopolaListView();
    });
}

void frmUpdate::PopolaListView() {
    protetto("PopolaListView", [this] {
        // 1. and 2. The grid off and filled again, newest draw first, blank draws left out.
        m_ui.setBusy(true);
        m_flexGrid->setEnabled(false);
        m_flexGrid->setUpdatesEnabled(false);
        m_modello->ricarica(m_corpo.mArrEstrazioni);
        // 3. An empty archive hides the grid.
        if (ArchivioVuoto(m_corpo.mArrEstrazioni)) {
            m_flexGrid->setVisible(false);
            m_lbElaborazione->clear();
        } else {
            m_lbElaborazione->setText(QString::fromStdString(m_ui.Lang("0029")) + QStringLiteral("..."));
            m_flexGrid->setVisible(true);
        }
        // 4. The grid back on.
        m_flexGrid->setEnabled(true);
        m_flexGrid->setUpdatesEnabled(true);
        AdattaColonneFlex(*m_flexGrid);
        // The window as wide as the rows need.
        layout()->activate();
        if (width() < minimumSizeHint().width()) resize(minimumSizeHint().width(), height());
        m_ui.setBusy(false);
        // 5. The newest draw and the count.
        const int righe = m_modello->rowCount();
        if (righe == 0) {
            m_lbLast->clear();
            m_lbTotale->setText(QStringLiteral("0"));
        } else {
            m_flexGrid->selectRow(0);
            m_flexGrid->scrollToTop();
            m_lbLast->setText(m_modello->testo(0));
            m_lbTotale->setText(QString::number(righe));
        }
    });
}

void frmUpdate::avvia(std::function<ArrayEstrazioni()> lavoro, std::function<void()> poi) {
    auto risultato = std::make_shared<ArrayEstrazioni>();
    auto errore = std::make_shared<bool>(false);
    m_thread = QThread::create([lavoro = std::move(lavoro), risultato, errore] {
        try {
            *risultato = lavoro();
        } catch (const std::bad_alloc&) {
            *errore = true;
        }
    });
    connect(m_thread, &QThread::finished, this, [this, risultato, errore, poi = std::move(poi)] {
        m_thread->wait();
        delete m_thread;
        m_thread = nullptr;
        if (*errore || risultato->size() < 2) {
            // Out of memory while reading: the archive counts as empty.
            *risultato = ArrayEstrazioni(2);
            m_ui.messageBox("Error 7 (Out of memory) in procedure LoadArchivioDAT of Form frmUpdate", "",
                            BoxIcon::None);
        }
        m_corpo.mArrEstrazioni = std::move(*risultato);
        PopolaListView();
        poi();
        emit lavoroConcluso();
    });
    m_thread->start();
}

void frmUpdate::cmdUpdate_Click() {
    if (m_occupato) return;
    // 1. The button off, the busy flag, the pointer, the grid off.
    m_cmdUpdate->setEnabled(false);
    m_occupato = true;
    m_ui.setBusy(true);
    m_flexGrid->setEnabled(false);
    // 2. The first option chosen, in the order 0, 1, 2, is updated.
    int scelta = m_corpo.TipoArchivio;
    for (int i = 2; i >= 0; --i)
        if (m_OptArchivio[i]->isChecked()) scelta = i;
    // The download runs on the update's thread; the stop button reaches it there.
    m_ferma = std::make_shared<std::atomic<bool>>(false);
    const ServerArchivi server{m_servizi.server ? m_servizi.server() : std::string(),
                               m_servizi.download.conStop(m_ferma)};
    if (scelta != ArchivioManuale) {
        m_cmdInterrompi->setEnabled(true);
        m_cmdInterrompi->setVisible(true);
    }
    const std::string desktop = m_servizi.cartellaDesktop;
    const std::string cartella = PercorsoIn(m_corpo.AppDir, {"archivio"});
    const Corpo& c = m_corpo;
    QtUi& ui = m_ui;
    avvia(
        [scelta, server, desktop, cartella, &c, &ui] {
            std::string path;
            if (scelta == ArchivioSerale) {
                AggiornaArchivioSerale(c, ui, server);
                path = c.PathArchivioSerale;
            } else if (scelta == Archivio5Minuti) {
                AggiornaArchivio5Minuti(-120, c, ui, server);
                path = c.PathArchivio5Min;
            } else {
                ImportaArchivioManuale(c, ui, desktop);
                path = c.PathArchivioManuale;
            }
            // 3. The archive read again, whatever the outcome: a failed update left it as it was.
            return LoadArchivioDAT(path, cartella, ui);
        },
        [this] {
            // 4. The statistics recomputed, then the date lists of the archive check and of the
            // statistics rebuilt.
            if (m_finestre.ricalcolaStatistiche) m_finestre.ricalcolaStatistiche();
            if (m_finestre.popolaSpoglioEstrazioni) m_finestre.popolaSpoglioEstrazioni();
            if (m_finestre.popolaStatistiche) m_finestre.popolaStatistiche();
            // 5. The window ready again.
            m_cmdInterrompi->setVisible(false);
            m_cmdUpdate->setEnabled(true);
            m_occupato = false;
            m_ui.setBusy(false);
            m_flexGrid->setEnabled(true);
        });
}

void frmUpdate::cmdInterrompi_Click() {
    m_ferma->store(true);
    m_cmdInterrompi->setEnabled(false);
}

void frmUpdate::evidenziaOpzione(int index) {
    // The chosen option black on yellow, the others in the system's colours.
    for (int i = 0; i < 3; ++i)
        Colora(*m_OptArchivio[i], i == index ? 0x00FFFF : -1);
}

void frmUpdate::OptArchivio_Click(int index) {
    if (index < 0 || index > 2) return;
    if (m_occupato) {
        // During an update the options stay as they were: the archive in memory is still theirs.
        QRadioButton* attuale = m_OptArchivio[std::clamp(m_corpo.TipoArchivio, 0, 2)];
        const QSignalBlocker blocca(attuale);
        attuale->setChecked(true);
        return;
    }
    protetto("OptArchivio_Click", [this, index] {
        // 1. and 2. The button and the options off, the busy flag; the option marked.
        m_cmdUpdate->setEnabled(false);
        m_frameTipoArchivio->setEnabled(false);
        m_occupato = true;
        evidenziaOpzione(index);
        m_ui.setBusy(true);
        m_flexGrid->setEnabled(false);
        // 3. The archive of that option read into memory.
        m_corpo.TipoArchivio = index;
        const std::string path = index == ArchivioSerale    ? m_corpo.PathArchivioSerale
                                 : index == Archivio5Minuti ? m_corpo.PathArchivio5Min
                                                            : m_corpo.PathArchivioManuale;
        const std::string cartella = PercorsoIn(m_corpo.AppDir, {"archivio"});
        QtUi& ui = m_ui;
        avvia([path, cartella, &ui] { return LoadArchivioDAT(path, cartella, ui); },
              [this] {
                  // 4. The statistics' date lists rebuilt, then the statistics recomputed; then the
                  // date lists of the archive check.
                  if (m_finestre.popolaStatistiche) m_finestre.popolaStatistiche();
                  if (m_finestre.ricalcolaStatistiche) m_finestre.ricalcolaStatistiche();
                  if (m_finestre.popolaSpoglioEstrazioni) m_finestre.popolaSpoglioEstrazioni();
                  // 5. The window ready again.
                  m_cmdUpdate->setEnabled(true);
                  m_frameTipoArchivio->setEnabled(true);
                  m_occupato = false;
                  m_ui.setBusy(false);
                  m_flexGrid->setEnabled(true);
              });
    });
}

void frmUpdate::cmdStatistiche_Click() {
    if (m_finestre.mostraStatistiche) m_finestre.mostraStatistiche();
}

void frmUpdate::flexGrid_DblClick(int r) {
    if (m_occupato || r < 0) return;
    // Row r stands for the record at the upper bound minus r, as the rows are counted from the
    // newest record (with a blank draw among the newer ones, that is the record beside the row).
    const int32_t indice = UBound(m_corpo.mArrEstrazioni) - r;
    if (indice < 1) return;
    const Estrazione e = m_corpo.mArrEstrazioni[static_cast<size_t>(indice)];
    if (m_corpo.pronostico.NumColonne < 1) {
        PronosticoDaArchivioEstrazione(m_corpo, m_ui, r);
        m_ui.messageBox(TestoEstrazioneScelta(e, m_ui, "0051"), "", BoxIcon::Information);
        return;
    }
    EstrazioneInSpoglio(m_corpo, e);
    if (m_finestre.initSpoglio && m_finestre.initSpoglio()) {
        m_ui.messageBox(TestoEstrazioneScelta(e, m_ui, "0052"), "", BoxIcon::Information);
        if (m_finestre.mostraSpoglio) m_finestre.mostraSpoglio();
    }
}

void frmUpdate::attendi() {
    if (!m_occupato) return;
    QEventLoop loop;
    connect(this, &frmUpdate::lavoroConcluso, &loop, &QEventLoop::quit);
    loop.exec();
}

void frmUpdate::closeEvent(QCloseEvent* event) {
    if (m_corpo.ChiusuraInCorso != Falso) {
        // The program is ending: the run in progress ends first.
        attendi();
        event->accept();
        return;
    }
    event->ignore();
    if (m_occupato) {
        m_ui.messageBox(m_ui.Lang("0029") + "...", "", BoxIcon::Information);
        return;
    }
    hide();
}

void frmUpdate::showEvent(QShowEvent* event) {
    // The statistics button only where the statistics window is part of the program.
    m_cmdStatistiche->setVisible(static_cast<bool>(m_finestre.mostraStatistiche));
    QWidget::showEvent(event);
    posizionaIntestazioni();
}

void frmUpdate::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    posizionaIntestazioni();
}

void frmUpdate::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) posizionaIntestazioni();
}

void frmUpdate::posizionaIntestazioni() {
    // The middle of each field in a row's text, in characters: the date, the number of the draw,
    // the twenty numbers, Numero Oro and Doppio Oro (see RigaEstrazione).
    const struct {
        const char* name;
        double centro;
    } campi[] = {{"lblData", 7},
                 {"lblEstrazione", 20.5},
                 {"lblColonnaVincente", 77.5},
                 {"lblNumeroORO", 139},
                 {"lblDoppioOro", 155}};
    const int carattere = QFontMetrics(m_flexGrid->font()).horizontalAdvance(QLatin1Char('0'));
    const int inizio = m_flexGrid->x() - m_intestazioni->x() + m_flexGrid->frameWidth() + 4;
    for (const auto& c : campi) {
        auto* l = m_intestazioni->findChild<QLabel*>(QString::fromLatin1(c.name));
        l->adjustSize();
        l->move(inizio + static_cast<int>(c.centro * carattere) - l->width() / 2, 2);
    }
}

bool frmUpdate::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_flexGrid && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        CopyMSHFlexGridToClipBoard(*m_flexGrid);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace dv
