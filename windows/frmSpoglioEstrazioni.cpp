#include "windows/frmSpoglioEstrazioni.h"

#include "platform/ApplyLanguage.h"
#include "prize/Premi.h"
#include "prize/Spoglio.h"
#include "windows/frmSpoglioGriglia.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStackedLayout>
#include <QTableView>
#include <QVBoxLayout>

#include <filesystem>

namespace dv {

frmSpoglioEstrazioni::frmSpoglioEstrazioni(Corpo& corpo, QtUi& ui, QWidget* parent)
    : QWidget(parent), m_corpo(corpo), m_ui(ui) {
    setWindowFlag(Qt::Window);
    setObjectName(QStringLiteral("frmSpoglioEstrazioni"));
    setWindowTitle(QStringLiteral("Spoglio Estrazioni"));
    costruisci();
    ApplyLanguage(*this, m_ui.languageFile());
    m_lblElaborazione->setText(QString::fromStdString(m_ui.Lang("0029")) + QStringLiteral("\n...."));
}

frmSpoglioEstrazioni::~frmSpoglioEstrazioni() = default;

void frmSpoglioEstrazioni::costruisci() {
    m_controlli = new QWidget(this);
    auto etichetta = [this](const char* name, const QString& text, int index = -1) {
        auto* l = new QLabel(text, m_controlli);
        l->setObjectName(QString::fromLatin1(name));
        if (index >= 0) l->setProperty("index", index);
        return l;
    };
    auto combo = [this](const char* name) {
        auto* c = new QComboBox(m_controlli);
        c->setObjectName(QString::fromLatin1(name));
        return c;
    };
    m_cmbDal = combo("cmbDal");
    m_cmbAl = combo("cmbAl");
    m_cmbConcDal = combo("cmbConcDal");
    m_cmbConcAl = combo("cmbConcAl");
    for (int k = 1; k <= 288; ++k) {
        m_cmbConcDal->addItem(QString::number(k));
        m_cmbConcAl->addItem(QString::number(k));
    }
    m_lblConc[0] = etichetta("lblConc", QStringLiteral("CONC"), 0);
    m_lblConc[1] = etichetta("lblConc", QStringLiteral("CONC"), 1);
    m_cmdSpoglioEstrazioni = new QPushButton(QStringLiteral("&Spoglio"), m_controlli);
    m_cmdSpoglioEstrazioni->setObjectName(QStringLiteral("cmdSpoglioEstrazioni"));
    connect(m_cmdSpoglioEstrazioni, &QPushButton::clicked, this,
            &frmSpoglioEstrazioni::cmdSpoglioEstrazioni_Click);
    m_cmdCSV = new QPushButton(QStringLiteral("CSV"), m_controlli);
    m_cmdCSV->setObjectName(QStringLiteral("cmdCSV"));
    m_cmdCSV->setToolTip(QStringLiteral("Export to CSV"));
    connect(m_cmdCSV, &QPushButton::clicked, this, &frmSpoglioEstrazioni::cmdCSV_Click);
    m_griglia = new GrigliaFiltri(this, m_controlli);

    auto* scelta = new QHBoxLayout;
    scelta->addWidget(etichetta("lblDAL", QStringLiteral("DAL")));
    scelta->addWidget(m_cmbDal);
    scelta->addWidget(m_lblConc[0]);
    scelta->addWidget(m_cmbConcDal);
    scelta->addSpacing(16);
    scelta->addWidget(etichetta("lblAL", QStringLiteral("AL")));
    scelta->addWidget(m_cmbAl);
    scelta->addWidget(m_lblConc[1]);
    scelta->addWidget(m_cmbConcAl);
    scelta->addSpacing(16);
    scelta->addWidget(m_cmdSpoglioEstrazioni);
    scelta->addStretch();
    scelta->addWidget(&m_griglia->chkFiltri());
    scelta->addWidget(m_cmdCSV);

    auto* totali = new QGridLayout;
    m_lblNumEstr = etichetta("lblNumEstr", QStringLiteral("0"));
    m_lblTotGiocato = etichetta("lblTotGiocato", QStringLiteral("0"));
    m_lblTotVinto = etichetta("lblTotVinto", QStringLiteral("0"));
    totali->addWidget(etichetta("lbNumeroEstrazioni", QStringLiteral("Numero Estrazioni")), 0, 0);
    totali->addWidget(m_lblNumEstr, 0, 1);
    totali->addWidget(etichetta("lblTotaleGiocato", QStringLiteral("Totale Giocato")), 0, 2);
    totali->addWidget(m_lblTotGiocato, 0, 3);
    totali->addWidget(etichetta("lblTotaleVinto", QStringLiteral("Totale Vinto")), 0, 4);
    totali->addWidget(m_lblTotVinto, 0, 5);
    totali->setColumnStretch(6, 1);

    // The grid, and under it the text seen while it is hidden.
    m_lblElaborazione = etichetta("lblElaborazione", QString());
    m_lavoro = ComponiFinestraSpoglio(*this, *m_controlli, scelta, *m_griglia, *m_lblElaborazione, totali);
    resize(1100, 600);
}

bool frmSpoglioEstrazioni::populateCmbEstrazioni() {
    m_controlli->setEnabled(false);
    const bool cinqueMinuti = m_corpo.TipoArchivio != ArchivioSerale;
    for (QWidget* w :
         std::initializer_list<QWidget*>{m_lblConc[0], m_lblConc[1], m_cmbConcDal, m_cmbConcAl}) {
        w->setVisible(cinqueMinuti);
        w->setEnabled(cinqueMinuti);
    }
    m_cmbConcDal->setCurrentIndex(0);
    m_cmbConcAl->setCurrentIndex(m_cmbConcAl->count() - 1);
    std::vector<std::string> date;
    const bool ok = DateSpoglio(m_corpo.mArrEstrazioni, m_ui, date);
    QStringList voci;
    voci.reserve(static_cast<qsizetype>(date.size()));
    for (const std::string& d : date)
        voci.push_back(QString::fromLatin1(d));
    for (QComboBox* c : {m_cmbDal, m_cmbAl}) {
        c->clear();
        c->addItems(voci);
    }
    if (ok) {
        m_cmbDal->setCurrentIndex(0);
        m_cmbAl->setCurrentIndex(m_cmbAl->count() - 1);
    }
    m_controlli->setEnabled(true);
    return ok;
}

void frmSpoglioEstrazioni::cmdSpoglioEstrazioni_Click() {
    if (!InitPremi(m_corpo.LenColonna)) {
        m_ui.messageBox(TestoNonDisponibile, TitoloNonDisponibile, BoxIcon::Critical);
        return;
    }
    m_griglia->azzera();
    SpoglioArchivioEstrazioni();
}

void frmSpoglioEstrazioni::SpoglioArchivioEstrazioni() {
    if (m_cmbDal->currentIndex() < 0) return;
    const std::string dal = m_cmbDal->currentText().toStdString(), al = m_cmbAl->currentText().toStdString();
    if (DataPrecedente(al, dal)) {
        m_ui.messageBox("Error -2147211504 (" + m_ui.Lang("0022") +
                            ") in procedure SpoglioArchivioEstrazioni of Form frmSpoglioEstrazioni",
                        "", BoxIcon::None);
        return;
    }
    // The stretch, the columns as planes and a copy of the archive are taken here, so that the
    // check on its thread reads nothing that the other windows may change meanwhile.
    m_ui.setBusy(true);
    m_griglia->setVisible(false);
    m_controlli->setEnabled(false);
    QApplication::processEvents();
    m_archivio = m_corpo.mArrEstrazioni;
    const Tratto tratto = TrovaTratto(m_archivio, dal, m_cmbConcDal->currentText().toInt(), al,
                                      m_cmbConcAl->currentText().toInt());
    m_piani = std::make_unique<PianiColonne>();
    m_piani->daSistema(m_corpo.Colonne, m_corpo.pronostico.NumColonne, m_corpo.LenColonna,
                       m_corpo.pronostico.Numeri.data(), m_corpo.pronostico.Quanti);
    const GiocataSpoglio giocata = GiocataSpoglio::da(m_corpo);
    m_risultato = std::make_unique<RisultatoEstrazioni>();
    m_ui.setDialogParent(this);
    m_lavoro->avvia(
        [this, giocata, tratto](AvanzamentoSpoglio& a) {
            *m_risultato = SpoglioArchivio(giocata, m_archivio, *m_piani, tratto, m_ui, a);
        },
        [this, tratto](bool fermato) {
            if (!fermato) {
                m_corpo.OroSpoglio = m_archivio[static_cast<size_t>(tratto.ultimo)].NumeroOro;
                m_corpo.DoppioOroSpoglio = m_archivio[static_cast<size_t>(tratto.ultimo)].DoppioOro;
            }
            concludi(fermato || m_risultato->fermato);
        });
}

void frmSpoglioEstrazioni::concludi(bool fermato) {
    m_ui.setDialogParent(nullptr);
    m_piani.reset();
    if (!fermato) {
        const RisultatoEstrazioni& r = *m_risultato;
        const char sep = QLocale().groupSeparator().at(0).toLatin1();
        m_griglia->modello().imposta(
            GrigliaSpoglio(m_archivio, r, sep ? sep : '.'), 1, [](int riga, int colonna) {
                return riga == 0 ? ModelloGriglia::Stile{ColoreTotaliSpoglio, true}
                                 : ModelloGriglia::Stile{ColoreCellaSpoglio(colonna), false};
            });
        const QLocale locale;
        m_lblNumEstr->setText(locale.toString(r.NumEstrazioni));
        m_lblTotGiocato->setText(locale.toString(r.TotGiocato));
        m_lblTotVinto->setText(locale.toString(r.TotVinto));
    }
    m_griglia->setVisible(true);
    m_griglia->mostra();
    if (!fermato) adattaLarghezza();
    m_controlli->setEnabled(true);
    m_ui.setBusy(false);
}

int frmSpoglioEstrazioni::larghezzaGriglia() const {
    const QTableView& v = m_griglia->vista();
    int w = 2 * v.frameWidth() + v.verticalScrollBar()->sizeHint().width() +
            (v.verticalHeader()->isVisible() ? v.verticalHeader()->width() : 0);
    for (int c = 0; c < v.model()->columnCount(); ++c)
        w += v.columnWidth(c);
    return w;
}

void frmSpoglioEstrazioni::adattaLarghezza() {
    // The grid's width plus 350 twips (1440 to the inch), but never less than the room the layout
    // keeps beside the grid, so that every column shows; no wider than the screen.
    const int margine = 350 * logicalDpiX() / 1440;
    const int fuori = width() - m_griglia->vista().width();
    int larghezza = larghezzaGriglia() + std::max(margine, fuori);
    if (const QScreen* s = screen()) larghezza = std::min(larghezza, s->availableGeometry().width());
    resize(larghezza, height());
}

std::string frmSpoglioEstrazioni::percorsoCsv() const {
    return m_corpo.AppDir + "/csv/" + NomeCsv(m_corpo.TitoloFile);
}

void frmSpoglioEstrazioni::cmdCSV_Click() {
    if (!m_risultato || m_risultato->righe.empty() || m_lavoro->inCorso()) return;
    const char sep = QLocale().groupSeparator().at(0).toLatin1();
    const std::string path = percorsoCsv();
    std::error_code ec;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ec);
    if (MSHFlexGridTocsv(GrigliaSpoglio(m_archivio, *m_risultato, sep ? sep : '.'), path, m_ui))
        m_ui.dialogs().openDocument(path);
}

void frmSpoglioEstrazioni::closeEvent(QCloseEvent* event) {
    if (m_lavoro->inCorso() && !m_corpo.ChiusuraInCorso) {
        event->ignore();
        return;
    }
    if (m_corpo.ChiusuraInCorso) {
        event->accept();
        return;
    }
    event->ignore();
    hide();
}

} // namespace dv
