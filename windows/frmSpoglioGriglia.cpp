#include "windows/frmSpoglioGriglia.h"

#include "platform/GrigliaAppunti.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEventLoop>
#include <QFont>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedLayout>
#include <QTableView>
#include <QVBoxLayout>

#include <unordered_set>

namespace dv {

namespace {
QColor Colore(int32_t bgr) {
    return QColor(bgr & 0xff, (bgr >> 8) & 0xff, (bgr >> 16) & 0xff);
}
} // namespace

void ModelloGriglia::imposta(GrigliaTesti griglia, int fisse, std::function<Stile(int, int)> stile) {
    beginResetModel();
    m_griglia = std::move(griglia);
    m_fisse = fisse;
    m_stile = std::move(stile);
    endResetModel();
}

void ModelloGriglia::azzera() {
    GrigliaTesti g;
    g.righe = 2;
    g.colonne = 1;
    g.testo = [](int riga, int) { return std::string(riga == 0 ? "-" : ""); };
    imposta(std::move(g), 0, {});
}

QString ModelloGriglia::testo(int riga, int colonna) const {
    return QString::fromLatin1(m_griglia.testo(riga + 1, colonna));
}

int ModelloGriglia::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || m_griglia.righe < 1 ? 0 : m_griglia.righe - 1;
}

int ModelloGriglia::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_griglia.colonne;
}

QVariant ModelloGriglia::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::DisplayRole) return testo(index.row(), index.column());
    if ((role != Qt::BackgroundRole && role != Qt::FontRole) || !m_stile) return {};
    const Stile s = m_stile(index.row(), index.column());
    if (role == Qt::BackgroundRole) return s.sfondo >= 0 ? QVariant(Colore(s.sfondo)) : QVariant();
    if (!s.grassetto) return {};
    QFont f;
    f.setBold(true);
    return f;
}

QVariant ModelloGriglia::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && m_griglia.righe > 0)
        return QString::fromLatin1(m_griglia.testo(0, section));
    if (orientation == Qt::Vertical && role == Qt::DisplayRole) return QString();
    return QAbstractTableModel::headerData(section, orientation, role);
}

void FiltroGriglia::impostaFiltri(std::vector<QString> filtri) {
    m_filtri = std::move(filtri);
    invalidateFilter();
}

bool FiltroGriglia::filterAcceptsRow(int row, const QModelIndex&) const {
    const auto* m = static_cast<const ModelloGriglia*>(sourceModel());
    if (row < m->fisse()) return true;
    for (size_t c = 0; c < m_filtri.size(); ++c)
        if (m_filtri[c] != QLatin1String("*") && m->testo(row, static_cast<int>(c)) != m_filtri[c])
            return false;
    return true;
}

GrigliaFiltri::GrigliaFiltri(QWidget* form, QWidget* parent) : QWidget(parent), m_form(form) {
    m_modello = new ModelloGriglia(this);
    m_filtro = new FiltroGriglia(this);
    m_filtro->setSourceModel(m_modello);
    m_chkFiltri = new QCheckBox(QStringLiteral("&Filtri"), form);
    m_chkFiltri->setObjectName(QStringLiteral("chkFiltri"));
    connect(m_chkFiltri, &QCheckBox::toggled, this, &GrigliaFiltri::filtriAttivati);
    // The strip over the headers that holds the filter boxes; element 0 exists from the start.
    m_striscia = new QWidget(this);
    m_striscia->setFixedHeight(QComboBox().sizeHint().height());
    m_striscia->setVisible(false);
    auto* primo = new QComboBox(m_striscia);
    primo->setObjectName(QStringLiteral("cmbFilter"));
    primo->setProperty("index", 0);
    primo->setVisible(false);
    m_cmbFilter.push_back(primo);
    m_flexGrid = new QTableView(this);
    m_flexGrid->setObjectName(QStringLiteral("flexGrid"));
    m_flexGrid->setModel(m_filtro);
    m_flexGrid->verticalHeader()->setVisible(false);
    m_flexGrid->verticalHeader()->setDefaultSectionSize(m_flexGrid->fontMetrics().height() + 6);
    m_flexGrid->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_striscia);
    layout->addWidget(m_flexGrid, 1);
    m_modello->azzera();
}

void GrigliaFiltri::azzera() {
    m_chkFiltri->setChecked(false);
    m_modello->azzera();
}

void GrigliaFiltri::mostra() {
    AdattaColonneFlex(*m_flexGrid);
    m_flexGrid->setMinimumWidth(0);
    // A column is never narrower than its header.
    const QHeaderView* h = m_flexGrid->horizontalHeader();
    for (int c = 0; c < m_modello->columnCount(); ++c)
        m_flexGrid->setColumnWidth(c, std::max(m_flexGrid->columnWidth(c), h->sectionSizeHint(c)));
}

QComboBox* GrigliaFiltri::filtro(int c) const {
    if (!m_chkFiltri->isChecked() || c < 0 || static_cast<size_t>(c) >= m_cmbFilter.size()) return nullptr;
    return m_cmbFilter[static_cast<size_t>(c)];
}

void GrigliaFiltri::filtriAttivati(bool on) {
    // Off: the extra boxes go, the first is hidden, every row shows again.
    for (size_t c = 1; c < m_cmbFilter.size(); ++c)
        delete m_cmbFilter[c];
    m_cmbFilter.resize(1);
    m_cmbFilter[0]->clear();
    m_cmbFilter[0]->setVisible(false);
    m_filtro->impostaFiltri({});
    m_striscia->setVisible(on);
    if (!on) return;
    // On: one box per column, "*" and the column's texts in the order they first appear; a box is
    // shown only when its column lies within the grid's visible width.
    const int colonne = m_modello->columnCount(), righe = m_modello->rowCount();
    std::vector<std::vector<QString>> valori(static_cast<size_t>(colonne));
    std::vector<std::unordered_set<QString>> visti(static_cast<size_t>(colonne));
    for (int r = m_modello->fisse(); r < righe; ++r)
        for (int c = 0; c < colonne; ++c) {
            QString t = m_modello->testo(r, c);
            if (visti[static_cast<size_t>(c)].insert(t).second)
                valori[static_cast<size_t>(c)].push_back(std::move(t));
        }
    const int larghezza = m_flexGrid->viewport()->width();
    int x = 0;
    for (int c = 0; c < colonne; ++c) {
        QComboBox* box = c == 0 ? m_cmbFilter[0] : new QComboBox(m_striscia);
        if (c > 0) {
            box->setObjectName(QStringLiteral("cmbFilter"));
            box->setProperty("index", c);
            m_cmbFilter.push_back(box);
        }
        box->addItem(QStringLiteral("*"));
        for (const QString& v : valori[static_cast<size_t>(c)])
            box->addItem(v);
        box->setCurrentIndex(0);
        const int w = m_flexGrid->columnWidth(c);
        box->setGeometry(m_flexGrid->frameWidth() + x, 0, w, m_striscia->height());
        x += w;
        box->setVisible(x <= larghezza);
        connect(box, &QComboBox::currentIndexChanged, this, &GrigliaFiltri::applicaFiltri);
    }
}

void GrigliaFiltri::applicaFiltri() {
    std::vector<QString> filtri;
    for (QComboBox* box : m_cmbFilter)
        filtri.push_back(box->currentText());
    m_filtro->impostaFiltri(std::move(filtri));
}

bool GrigliaFiltri::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_flexGrid && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        CopyMSHFlexGridToClipBoard(*m_flexGrid);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// Forwards the check's progress, made on its thread, to the bar by queued calls.
class LavoroSpoglio::Avanzamento : public AvanzamentoSpoglio {
public:
    explicit Avanzamento(QProgressBar& barra) : m_barra(&barra) {}
    void progress(double done, double total) override {
        const int valore = total > 0 ? static_cast<int>(done * 100 / total) : 100;
        QProgressBar* b = m_barra;
        QMetaObject::invokeMethod(
            b, [b, valore] { b->setValue(valore); }, Qt::QueuedConnection);
    }

private:
    QProgressBar* m_barra;
};

LavoroSpoglio::LavoroSpoglio(QProgressBar& barra, QPushButton& stop) : m_barra(barra), m_stop(stop) {
    m_barra.setRange(0, 100);
    m_barra.setVisible(false);
    m_stop.setVisible(false);
    connect(&m_stop, &QPushButton::clicked, this, [this] {
        if (m_avanzamento) m_avanzamento->stop = true;
    });
}

LavoroSpoglio::~LavoroSpoglio() {
    if (m_avanzamento) m_avanzamento->stop = true;
    attendi();
}

void LavoroSpoglio::avvia(std::function<void(AvanzamentoSpoglio&)> lavoro, std::function<void(bool)> fine) {
    if (m_inCorso) return;
    if (m_thread.joinable()) m_thread.join();
    m_inCorso = true;
    m_avanzamento = std::make_unique<Avanzamento>(m_barra);
    m_barra.setValue(0);
    m_barra.setVisible(true);
    m_stop.setVisible(true);
    m_stop.setEnabled(true);
    Avanzamento* a = m_avanzamento.get();
    m_thread = std::thread([this, a, lavoro = std::move(lavoro), fine = std::move(fine)] {
        lavoro(*a);
        QMetaObject::invokeMethod(
            this,
            [this, fine] {
                if (m_thread.joinable()) m_thread.join();
                m_barra.setVisible(false);
                m_stop.setVisible(false);
                const bool fermato = m_avanzamento->stop.load();
                m_inCorso = false;
                fine(fermato);
            },
            Qt::QueuedConnection);
    });
}

void LavoroSpoglio::attendi() {
    while (m_inCorso)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    if (m_thread.joinable()) m_thread.join();
}

std::unique_ptr<LavoroSpoglio> ComponiFinestraSpoglio(QWidget& form, QWidget& controlli, QLayout* sopra,
                                                      GrigliaFiltri& griglia, QLabel& lblElaborazione,
                                                      QLayout* sotto) {
    lblElaborazione.setAlignment(Qt::AlignCenter);
    auto* centro = new QWidget(&controlli);
    auto* pila = new QStackedLayout(centro);
    pila->setStackingMode(QStackedLayout::StackAll);
    pila->addWidget(&griglia);
    pila->addWidget(&lblElaborazione);
    auto* interno = new QVBoxLayout(&controlli);
    interno->setContentsMargins(0, 0, 0, 0);
    interno->addLayout(sopra);
    interno->addWidget(centro, 1);
    interno->addLayout(sotto);

    auto* barra = new QProgressBar(&form);
    barra->setObjectName(QStringLiteral("pbElaborazione"));
    auto* stop = new QPushButton(QStringLiteral("Stop"), &form);
    stop->setObjectName(QStringLiteral("cmdStop"));
    auto* avanzamento = new QHBoxLayout;
    avanzamento->addWidget(barra, 1);
    avanzamento->addWidget(stop);
    auto* layout = new QVBoxLayout(&form);
    layout->addWidget(&controlli, 1);
    layout->addLayout(avanzamento);
    return std::make_unique<LavoroSpoglio>(*barra, *stop);
}

} // namespace dv
