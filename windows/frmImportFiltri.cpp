#include "windows/frmImportFiltri.h"

#include "archive/Archivio.h"
#include "core/Cartelle.h"
#include "platform/ApplyLanguage.h"
#include "windows/frmFiltriPannelli.h"

#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <functional>

namespace dv {

namespace {
constexpr uint32_t Bianco = 0xFFFFFF, Nero = 0x000000, Rosso = 0x0000FF, Giallo = 0x00FFFF;

QLabel* Etichetta(QWidget* parent, const char* name, const QString& text, int index = -1) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(QString::fromLatin1(name));
    if (index >= 0) l->setProperty("index", index);
    return l;
}

// Puts the list on the entry with that text; a list that can be edited takes any text.
void Scegli(QComboBox& c, const std::string& testo) {
    const QString t = QString::fromStdString(testo);
    const int i = c.findText(t);
    if (i >= 0)
        c.setCurrentIndex(i);
    else if (c.isEditable())
        c.setCurrentText(t);
}
} // namespace

frmImportFiltri::frmImportFiltri(Corpo& corpo, Ui& ui, TipoFiltro tipo, QWidget* parent)
    : QDialog(parent), m_corpo(corpo), m_ui(ui), m_tipo(tipo) {
    costruisci();
    ApplyLanguage(*this, m_ui.languageFile());
    carica();
}

void frmImportFiltri::costruisci() {
    setObjectName("frmImportFiltri");
    setWindowTitle("Importa Colonne Filtro");

    auto* sorgente = new QHBoxLayout;
    const char* sorgenti[] = {"File", "Archivio"};
    for (int i = 0; i < 2; ++i) {
        auto* o = new QRadioButton(sorgenti[i], this);
        o->setObjectName("optImportSource");
        o->setProperty("index", i);
        connect(o, &QRadioButton::clicked, this, [this, i] { optImportSource_Click(i); });
        sorgente->addWidget(o);
        m_optImportSource[static_cast<size_t>(i)] = o;
    }

    m_frameDaFile = new QGroupBox("Importa da File", this);
    m_frameDaFile->setObjectName("frameDaFile");
    m_cmdImportaFiltri = new QPushButton("Scegli il file...", m_frameDaFile);
    m_cmdImportaFiltri->setObjectName("cmdImportaFiltri");
    m_cmdImportaFiltri->setAutoDefault(false);
    connect(m_cmdImportaFiltri, &QPushButton::clicked, this, &frmImportFiltri::cmdImportaFiltri_Click);
    (new QHBoxLayout(m_frameDaFile))->addWidget(m_cmdImportaFiltri);

    m_frameDateArchivio = new QGroupBox("Importa da Archivio", this);
    m_frameDateArchivio->setObjectName("frameDateArchivio");
    m_frameDateArchivio->installEventFilter(this);
    auto combo = [this](const char* nome, bool modificabile) {
        auto* c = new QComboBox(m_frameDateArchivio);
        c->setObjectName(QString::fromLatin1(nome));
        c->setEditable(modificabile);
        c->setMinimumContentsLength(modificabile ? 4 : 10);
        c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        return c;
    };
    m_cmbDal = combo("cmbDal", false);
    m_cmbAl = combo("cmbAl", false);
    m_cmbConcDal = combo("cmbConcDal", true);
    m_cmbConcAl = combo("cmbConcAl", true);
    m_lblConc[0] = Etichetta(m_frameDateArchivio, "lblConc", "CONC", 0);
    m_lblConc[1] = Etichetta(m_frameDateArchivio, "lblConc", "CONC", 1);
    m_lbMnu = Etichetta(m_frameDateArchivio, "lbMnu", QString::fromUtf8("\u25bc"));
    m_lbMnu->setCursor(Qt::PointingHandCursor);
    m_lbMnu->setToolTip("Genesi");
    m_lbMnu->installEventFilter(this);
    auto* date = new QGridLayout(m_frameDateArchivio);
    date->addWidget(Etichetta(m_frameDateArchivio, "lblDAL", "DAL"), 0, 0);
    date->addWidget(m_cmbDal, 0, 1);
    date->addWidget(m_lblConc[0], 0, 2);
    date->addWidget(m_cmbConcDal, 0, 3);
    date->addWidget(m_lbMnu, 0, 4);
    date->addWidget(Etichetta(m_frameDateArchivio, "lblAL", "AL"), 1, 0);
    date->addWidget(m_cmbAl, 1, 1);
    date->addWidget(m_lblConc[1], 1, 2);
    date->addWidget(m_cmbConcAl, 1, 3);

    auto* framePresenze = new QGroupBox("Presenze", this);
    framePresenze->setObjectName("framePresenze");
    framePresenze->setToolTip("Imposta le presenze per ogni colonna");
    auto* presenze = new QGridLayout(framePresenze);
    presenze->setSpacing(2);
    for (int k = 0; k <= MaxLenColonna; ++k) {
        QLabel* l = Etichetta(framePresenze, "lbPresenze", QString::number(k), k);
        l->setAlignment(Qt::AlignCenter);
        l->setMinimumSize(24, 22);
        l->setFrameShape(QFrame::Box);
        l->installEventFilter(this);
        presenze->addWidget(l, k / 13, k % 13);
        m_lbPresenze[static_cast<size_t>(k)] = l;
    }

    m_cmdProcess = new QPushButton("Importa Colonne", this);
    m_cmdProcess->setObjectName("cmdProcess");
    m_cmdProcess->setAutoDefault(false);
    connect(m_cmdProcess, &QPushButton::clicked, this, &frmImportFiltri::cmdProcess_Click);

    m_menuPopup = new QMenu(this);
    m_menuPopup->setObjectName("menuPopup");
    const struct {
        const char* nome;
        const char* testo;
        std::function<IntervalloImport(const ArrayEstrazioni&)> intervallo;
    } voci[] = {
        {"mnuCercaAmbo", "Genesi Ambo (ultime 157 estrazioni)",
         [](const auto& a) { return UltimeEstrazioni(a, 157); }},
        {"mnuCercaTerno", "Genesi Terno (ultime 1.152 estrazioni)",
         [](const auto& a) { return UltimeEstrazioni(a, 1152); }},
        {"mnuCercaQuaterna", "Genesi Quaterna (ultime 7.200 estrazioni)",
         [](const auto& a) { return UltimeEstrazioni(a, 7200); }},
        {"mnulast5days", "ultimi 5 giorni", [](const auto& a) { return UltimiGiorni(a, 5); }},
        {"mnulast10days", "ultimi 10 giorni", [](const auto& a) { return UltimiGiorni(a, 10); }},
    };
    for (const auto& v : voci) {
        QAction* a = m_menuPopup->addAction(QString::fromUtf8(v.testo));
        a->setObjectName(QString::fromLatin1(v.nome));
        connect(a, &QAction::triggered, this,
                [this, f = v.intervallo] { mostraIntervallo(f(m_corpo.mArrEstrazioni)); });
    }

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(sorgente);
    layout->addWidget(m_frameDaFile);
    layout->addWidget(m_frameDateArchivio);
    layout->addWidget(framePresenze);
    layout->addWidget(m_cmdProcess, 0, Qt::AlignHCenter);
}

void frmImportFiltri::carica() {
    for (int k = 0; k <= MaxLenColonna; ++k) {
        m_lbPresenze[static_cast<size_t>(k)]->setVisible(k <= m_corpo.LenColonna);
        mostraPresenza(k);
    }
    for (int c = 1; c <= 288; ++c) {
        m_cmbConcDal->addItem(QString::number(c));
        m_cmbConcAl->addItem(QString::number(c));
    }
    // The dates of the archive in memory, each once; the lists on their first and last entry.
    for (const std::string& d : DateArchivio(m_corpo.mArrEstrazioni)) {
        m_cmbDal->addItem(QString::fromStdString(d));
        m_cmbAl->addItem(QString::fromStdString(d));
    }
    m_cmbDal->setCurrentIndex(0);
    m_cmbAl->setCurrentIndex(m_cmbAl->count() - 1);
    // The draw numbers belong to the five-minute and the manual archive only.
    const bool concorsi = m_corpo.TipoArchivio != ArchivioSerale;
    for (QWidget* w : {static_cast<QWidget*>(m_cmbConcDal), static_cast<QWidget*>(m_cmbConcAl),
                       static_cast<QWidget*>(m_lblConc[0]), static_cast<QWidget*>(m_lblConc[1])}) {
        w->setVisible(concorsi);
        w->setEnabled(concorsi);
    }
    m_cmbConcDal->setCurrentIndex(0);
    m_cmbConcAl->setCurrentIndex(m_cmbConcAl->count() - 1);
    m_optImportSource[1]->setChecked(true);
    optImportSource_Click(1);
}

void frmImportFiltri::optImportSource_Click(int index) {
    const bool archivio = index == 1;
    m_frameDateArchivio->setEnabled(archivio);
    m_frameDaFile->setEnabled(!archivio);
    m_cmdImportaFiltri->setEnabled(!archivio);
    m_cmdProcess->setEnabled(archivio || !m_file.empty());
}

void frmImportFiltri::cmdImportaFiltri_Click() {
    m_file = m_ui.chooseOpenFile(PercorsoIn(m_corpo.AppDir, {"txt"}), "File TXT (*.txt)|*.txt");
    m_cmdProcess->setEnabled(!m_file.empty());
}

void frmImportFiltri::mostraIntervallo(const IntervalloImport& r) {
    Scegli(*m_cmbDal, r.dal);
    Scegli(*m_cmbAl, r.al);
    Scegli(*m_cmbConcDal, r.concDal);
    Scegli(*m_cmbConcAl, r.concAl);
}

void frmImportFiltri::mostraPresenza(int k) {
    if (m_presenze[static_cast<size_t>(k)])
        Colora(*m_lbPresenze[static_cast<size_t>(k)], Rosso, Giallo);
    else
        Colora(*m_lbPresenze[static_cast<size_t>(k)], Bianco, Nero);
}

void frmImportFiltri::apriMenu(const QPoint& globalPos) {
    m_menuPopup->popup(globalPos);
}

bool frmImportFiltri::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const auto* e = static_cast<QMouseEvent*>(event);
        if (watched == m_lbMnu) {
            apriMenu(e->globalPosition().toPoint());
            return true;
        }
        if (watched->objectName() == "lbPresenze") {
            const int k = indiceArray(*watched);
            m_presenze[static_cast<size_t>(k)] = !m_presenze[static_cast<size_t>(k)];
            mostraPresenza(k);
            return true;
        }
    }
    // A right click on the range of dates offers the ready-made ranges, unless a system is locked.
    if (watched == m_frameDateArchivio && event->type() == QEvent::ContextMenu &&
        m_corpo.SistemaBloccato != -1 && m_frameDateArchivio->isEnabled()) {
        apriMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmImportFiltri::cmdProcess_Click() {
    // 1. The allowed counts, the same for every column imported; none at all is allowed too.
    const int32_t mask = MascheraPresenze(m_presenze);
    // 2. The question before the table is replaced.
    if (!m_ui.questionBox(m_ui.Lang("0006") + "\n" + m_ui.Lang("0007"), "", BoxIcon::Question)) return;
    TabellaFiltri& tabella = TabellaDelTipo(m_corpo, m_tipo);
    if (m_optImportSource[0]->isChecked()) {
        // 3. A file that cannot be read in full leaves the table as it was, and the window stays.
        const auto conta = loadFileToFilters(tabella, m_ui, m_file, mask);
        if (!conta) return;
        tabella.setCount(*conta);
    } else {
        // 4. The range of the four lists.
        const int32_t conta =
            loadArchiveToFilters(tabella, m_corpo.mArrEstrazioni, m_ui, m_cmbDal->currentText().toStdString(),
                                 m_cmbAl->currentText().toStdString(), m_cmbConcDal->currentText().toInt(),
                                 m_cmbConcAl->currentText().toInt(), mask);
        tabella.setCount(conta);
    }
    // 5.
    accept();
}

} // namespace dv
