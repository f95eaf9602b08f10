#include "windows/frmStatistiche.h"

#include "archive/Archivio.h"
#include "core/Corpo.h"
#include "core/Helpers.h"
#include "platform/ApplyLanguage.h"
#include "settings/Folders.h"
#include "system_files/ErroreEsecuzione.h"
#include "windows/frmFiltriPannelli.h"
#include "windows/frmStatisticheGrafico.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"

#include <QChartView>
#include <QCloseEvent>
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QStringList>
#include <QVBoxLayout>

#include <ctime>

namespace dv {

namespace {

// Boxes shown while the statistics work belong to this window.
class GenitoreBox {
public:
    GenitoreBox(QtUi& ui, QWidget* w) : m_ui(ui), m_prima(ui.dialogParent()) { ui.setDialogParent(w); }
    ~GenitoreBox() { m_ui.setDialogParent(m_prima); }

private:
    QtUi& m_ui;
    QWidget* m_prima;
};

template <typename T> T* Controllo(QWidget* parent, const char* nome, int indice = -1) {
    auto* c = new T(parent);
    c->setObjectName(QString::fromLatin1(nome));
    if (indice >= 0) c->setProperty("index", indice);
    return c;
}

QLabel* Etichetta(QWidget* parent, const char* nome, const char* testo, int indice = -1) {
    auto* l = Controllo<QLabel>(parent, nome, indice);
    l->setText(QString::fromUtf8(testo));
    return l;
}

} // namespace

frmStatistiche::frmStatistiche(Corpo& corpo, QtUi& ui, DialogService& dialogs, QWidget* parent)
    : QWidget(parent, Qt::Window), m_corpo(corpo), m_ui(ui), m_dialogs(dialogs) {
    setObjectName(QStringLiteral("frmStatistiche"));
    setWindowTitle(QStringLiteral("Statistiche Archivio Estrazioni"));
    costruisci();
}

void frmStatistiche::costruisci() {
    auto* layout = new QVBoxLayout(this);

    auto* intervallo = new QHBoxLayout;
    m_cmbDal = Controllo<QComboBox>(this, "cmbDal");
    m_cmbAl = Controllo<QComboBox>(this, "cmbAl");
    m_cmbConcDal = Controllo<QComboBox>(this, "cmbConcDal");
    m_cmbConcAl = Controllo<QComboBox>(this, "cmbConcAl");
    m_lblConc[0] = Etichetta(this, "lblConc", "CONC", 0);
    m_lblConc[1] = Etichetta(this, "lblConc", "CONC", 1);
    intervallo->addWidget(Etichetta(this, "lblDAL", "DAL"));
    intervallo->addWidget(m_cmbDal);
    intervallo->addWidget(m_lblConc[0]);
    intervallo->addWidget(m_cmbConcDal);
    intervallo->addSpacing(16);
    intervallo->addWidget(Etichetta(this, "lblAL", "AL"));
    intervallo->addWidget(m_cmbAl);
    intervallo->addWidget(m_lblConc[1]);
    intervallo->addWidget(m_cmbConcAl);
    intervallo->addStretch();
    auto* cmdRefresh = Controllo<QPushButton>(this, "cmdRefresh");
    cmdRefresh->setText(QStringLiteral("Ricalcola Statistiche"));
    connect(cmdRefresh, &QPushButton::clicked, this, [this] { refreshStat(); });
    intervallo->addWidget(cmdRefresh);
    layout->addLayout(intervallo);

    m_frameContainer = Controllo<QFrame>(this, "frameContainer");
    auto* contenitore = new QHBoxLayout(m_frameContainer);
    contenitore->setContentsMargins(0, 0, 0, 0);
    auto* opzioni = new QVBoxLayout;
    static constexpr const char* Didascalie[NumeroGrafici] = {"&Consecutivi", "&Ripetuti", "&Pari",
                                                              "&Dispari",     "&Somma",    "&Frequenza"};
    for (int i = 0; i < NumeroGrafici; ++i) {
        auto* o = Controllo<QRadioButton>(m_frameContainer, "optStat", i);
        o->setText(QString::fromLatin1(Didascalie[i]));
        connect(o, &QRadioButton::clicked, this, [this, i] { optStat(i); });
        opzioni->addWidget(o);
        m_optStat[static_cast<size_t>(i)] = o;
    }
    opzioni->addStretch();
    contenitore->addLayout(opzioni);
    m_chartStat = new QChartView(m_frameContainer);
    m_chartStat->setObjectName(QStringLiteral("chartStat"));
    m_chartStat->setRenderHint(QPainter::Antialiasing);
    m_area = new QScrollArea(m_frameContainer);
    m_area->setWidgetResizable(true);
    m_area->setWidget(m_chartStat);
    contenitore->addWidget(m_area, 1);
    layout->addWidget(m_frameContainer, 1);

    auto* piede = new QHBoxLayout;
    m_lbElaborazione = Etichetta(this, "lbElaborazione", "Elaborazione in corso");
    m_lbElaborazione->setVisible(false);
    piede->addWidget(m_lbElaborazione);
    piede->addStretch();
    auto* cmdTxtButton = Controllo<QPushButton>(this, "cmdTxt");
    cmdTxtButton->setText(QStringLiteral("File Statistiche CSV"));
    connect(cmdTxtButton, &QPushButton::clicked, this, [this] { cmdTxt(); });
    piede->addWidget(cmdTxtButton);
    layout->addLayout(piede);
    // Room for twenty rows where the screen allows it; the chart scrolls otherwise.
    QSize misura(900, 820);
    if (const QScreen* schermo = screen())
        misura = misura.boundedTo(schermo->availableGeometry().size() * 0.9);
    resize(misura);
}

void frmStatistiche::carica() {
    ApplyLanguage(*this, m_ui.languageFile());
    QStringList concorsi;
    for (int i = 1; i <= 288; ++i)
        concorsi << QString::number(i);
    m_cmbConcDal->addItems(concorsi);
    m_cmbConcAl->addItems(concorsi);
    populateCmbEstrazioni();
    refreshStat();
}

bool frmStatistiche::intervalloNellArchivio() const {
    const std::string dal = m_cmbDal->currentText().toStdString();
    const std::string al = m_cmbAl->currentText().toStdString();
    bool trovatoDal = false, trovatoAl = false;
    for (int32_t i = 1; i <= UBound(m_corpo.mArrEstrazioni) && !(trovatoDal && trovatoAl); ++i) {
        const std::string data = m_corpo.mArrEstrazioni[static_cast<size_t>(i)].dataTesto();
        trovatoDal = trovatoDal || data == dal;
        trovatoAl = trovatoAl || data == al;
    }
    return trovatoDal && trovatoAl;
}

bool frmStatistiche::populateCmbEstrazioni() {
    GenitoreBox genitore(m_ui, isVisible() ? this : nullptr);
    // 1. The draw-number lists only for the five-minute and the manual archive; they take in
    // whole dates otherwise.
    const bool conc = m_corpo.TipoArchivio != ArchivioSerale;
    for (QWidget* w : {static_cast<QWidget*>(m_lblConc[0]), static_cast<QWidget*>(m_lblConc[1]),
                       static_cast<QWidget*>(m_cmbConcDal), static_cast<QWidget*>(m_cmbConcAl)}) {
        w->setVisible(conc);
        w->setEnabled(conc);
    }
    m_cmbConcDal->setCurrentIndex(0);
    m_cmbConcAl->setCurrentIndex(m_cmbConcAl->count() - 1);
    // 2. The date lists emptied and kept disabled while they fill.
    setEnabled(false);
    m_cmbDal->setEnabled(false);
    m_cmbAl->setEnabled(false);
    m_cmbDal->clear();
    m_cmbAl->clear();
    // 3. Every different date of the archive.
    bool ok = false;
    try {
        std::vector<std::string> date;
        ok = ElencoDateEstrazioni(m_corpo.mArrEstrazioni, date, m_ui);
        QStringList voci;
        voci.reserve(static_cast<qsizetype>(date.size()));
        for (const std::string& d : date)
            voci << QString::fromStdString(d);
        m_cmbDal->addItems(voci);
        m_cmbAl->addItems(voci);
    } catch (const std::bad_alloc&) {
        // This message names the procedure as the archive check's window does.
        setEnabled(true);
        MostraErrore(m_ui, errori::MemoriaEsaurita(),
                     ") in procedure populateCmbEstrazioni of Form frmSpoglioEstrazioni");
        return false;
    }
    if (!ok) {
        // The lists stay as they are and disabled; the window itself stays usable.
        setEnabled(true);
        return false;
    }
    // 4. The whole archive at first.
    m_cmbDal->setCurrentIndex(0);
    m_cmbAl->setCurrentIndex(m_cmbAl->count() - 1);
    m_cmbDal->setEnabled(true);
    m_cmbAl->setEnabled(true);
    setEnabled(true);
    return true;
}

IntervalloStatistiche frmStatistiche::intervallo() const {
    return {m_cmbDal->currentText().toStdString(), m_cmbAl->currentText().toStdString(),
            m_cmbConcDal->currentText().toInt(), m_cmbConcAl->currentText().toInt()};
}

void frmStatistiche::refreshStat() {
    GenitoreBox genitore(m_ui, isVisible() ? this : nullptr);
    try {
        // 1. A new CSV file in the temp folder, named after the time.
        const std::string temp = GetTempFolder(m_corpo.AppDir);
        m_csvPath = PercorsoCsvStatistiche(temp, std::time(nullptr));
        // 2. The charts hidden while the counts are made.
        m_frameContainer->setVisible(false);
        m_lbElaborazione->setVisible(true);
        repaint();
        // 3. The computation.
        m_ui.setBusy(true);
        Statistiche(m_corpo.mArrEstrazioni, m_corpo.TipoArchivio, intervallo(), temp, m_csvPath, m_ui,
                    m_tabelle);
        m_ui.setBusy(false);
        // 4. The first chart, its option focused.
        m_lbElaborazione->setVisible(false);
        m_frameContainer->setVisible(true);
        optStat(0);
        m_optStat[0]->setFocus();
        setEnabled(true);
    } catch (const ErroreEsecuzione& e) {
        m_ui.setBusy(false);
        MostraErrore(m_ui, e, ") in procedure refreshStat of Form frmStatistiche");
    } catch (const std::bad_alloc&) {
        m_ui.setBusy(false);
        MostraErrore(m_ui, errori::MemoriaEsaurita(), ") in procedure refreshStat of Form frmStatistiche");
    } catch (const std::exception&) {
        m_ui.setBusy(false);
        MostraErrore(m_ui, errori::AccessoNegato(), ") in procedure refreshStat of Form frmStatistiche");
    }
}

void frmStatistiche::optStat(int index) {
    if (index < 0 || index >= NumeroGrafici) return;
    m_grafico = index;
    for (int i = 0; i < NumeroGrafici; ++i) {
        QRadioButton* o = m_optStat[static_cast<size_t>(i)];
        if (i == index) {
            o->setChecked(true);
            Colora(*o, 0x00FFFF);
        } else {
            Colora(*o, -1);
        }
    }
    m_chartStat->setVisible(false);
    const std::vector<RigaGrafico> righe = RigheGrafico(m_tabelle, index);
    MostraGraficoBarre(*m_chartStat, m_ui.Lang(ChiaveTitoloGrafico(index)), righe);
    m_chartStat->setVisible(true);
}

void frmStatistiche::cmdTxt() {
    if (m_csvPath.empty() || m_dialogs.openDocument(m_csvPath)) return;
    GenitoreBox genitore(m_ui, this);
    m_ui.messageBox(TestoCon(m_ui.Lang("0140"), m_csvPath), "", BoxIcon::Exclamation);
}

void frmStatistiche::closeEvent(QCloseEvent* event) {
    // Only hidden: the window lives as long as the program, unless the program is ending.
    if (m_corpo.ChiusuraInCorso != Falso) {
        event->accept();
        return;
    }
    event->ignore();
    hide();
}

} // namespace dv
