#include "windows/frmSpoglio.h"

#include "core/Finestra.h"
#include "platform/ApplyLanguage.h"
#include "prize/Premi.h"
#include "windows/QtUi.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QFocusEvent>
#include <QFont>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QStackedLayout>
#include <QTimer>
#include <QVBoxLayout>

namespace dv {

// The items "C. c" of one category: a column number each, made text when shown.
class ModelloColonneVincenti : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;
    void imposta(ListaColonne colonne) {
        beginResetModel();
        m_colonne = std::move(colonne);
        endResetModel();
    }
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_colonne.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || !index.isValid()) return {};
        return QStringLiteral("C. %1").arg(m_colonne[static_cast<size_t>(index.row())]);
    }

private:
    ListaColonne m_colonne;
};

frmSpoglio::frmSpoglio(Corpo& corpo, QtUi& ui, QWidget* parent) : QWidget(parent), m_corpo(corpo), m_ui(ui) {
    setWindowFlag(Qt::Window);
    setObjectName(QStringLiteral("frmSpoglio"));
    setWindowTitle(QStringLiteral("Spoglio"));
    costruisci();
}

frmSpoglio::~frmSpoglio() = default;

QLineEdit* frmSpoglio::casella(const char* name, int index, const QString& mask) {
    auto* box = new QLineEdit(this);
    box->setObjectName(QString::fromLatin1(name));
    if (index >= 0) box->setProperty("index", index);
    box->setInputMask(mask + QStringLiteral(";_"));
    box->setAlignment(Qt::AlignCenter);
    box->setMaximumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0")) * (mask.size() + 3) + 12);
    box->installEventFilter(this);
    return box;
}

void frmSpoglio::costruisci() {
    auto* numeri = new QGridLayout;
    for (int i = 0; i < 20; ++i) {
        m_meSpoglio[static_cast<size_t>(i)] = casella("meSpoglio", i, QStringLiteral("99"));
        numeri->addWidget(m_meSpoglio[static_cast<size_t>(i)], i / 10, i % 10);
    }
    auto etichetta = [this](const char* name, const QString& text) {
        auto* l = new QLabel(text, this);
        l->setObjectName(QString::fromLatin1(name));
        return l;
    };
    m_meNumORO = casella("meNumORO", -1, QStringLiteral("99"));
    m_meDoppioOro = casella("meDoppioOro", -1, QStringLiteral("99"));
    m_meDa = casella("meDa", -1, QStringLiteral("9999999"));
    m_meA = casella("meA", -1, QStringLiteral("999999"));
    m_cmdSpoglio = new QPushButton(QStringLiteral("Spoglio"), this);
    m_cmdSpoglio->setObjectName(QStringLiteral("cmdSpoglio"));
    m_cmdCancella = new QPushButton(QStringLiteral("Cancella"), this);
    m_cmdCancella->setObjectName(QStringLiteral("cmdCancella"));
    connect(m_cmdSpoglio, &QPushButton::clicked, this, &frmSpoglio::cmdSpoglio_Click);
    m_cmdSpoglio->installEventFilter(this);
    m_cmdCancella->installEventFilter(this);
    connect(m_cmdCancella, &QPushButton::clicked, this, &frmSpoglio::cmdCancella_Click);

    auto* riga = new QHBoxLayout;
    riga->addWidget(etichetta("lblNumOro", QStringLiteral("Numero ORO")));
    riga->addWidget(m_meNumORO);
    riga->addWidget(etichetta("lblDoppioORO", QStringLiteral("Doppio ORO")));
    riga->addWidget(m_meDoppioOro);
    riga->addStretch();
    riga->addWidget(etichetta("lblDA", QStringLiteral("Dalla colonna")));
    riga->addWidget(m_meDa);
    riga->addWidget(etichetta("lblA", QStringLiteral("alla colonna")));
    riga->addWidget(m_meA);
    riga->addStretch();
    riga->addWidget(m_cmdSpoglio);
    riga->addWidget(m_cmdCancella);

    // The results, and under them the text seen while they are hidden.
    m_frameVincite = new QGroupBox(this);
    m_frameVincite->setObjectName(QStringLiteral("frameVincite"));
    auto* vincite = new QGridLayout(m_frameVincite);
    auto* lblColVincente = new QLabel(QStringLiteral("Colonna vincente"), m_frameVincite);
    lblColVincente->setObjectName(QStringLiteral("lblColVincente"));
    vincite->addWidget(lblColVincente, 0, 0, 1, 11);
    QFont courier(QStringLiteral("Courier New"));
    courier.setStyleHint(QFont::Monospace);
    for (int i = 0; i <= 10; ++i) {
        const size_t k = static_cast<size_t>(i);
        m_lblCategoria[k] = new QLabel(QStringLiteral("Punti %1").arg(i), m_frameVincite);
        m_lblCategoria[k]->setObjectName(QStringLiteral("lblCategoria"));
        m_lblCategoria[k]->setProperty("index", i);
        m_labVincite[k] = new QLabel(QStringLiteral("-"), m_frameVincite);
        m_labVincite[k]->setObjectName(QStringLiteral("labVincite"));
        m_labVincite[k]->setProperty("index", i);
        m_listVin[k] = new QListView(m_frameVincite);
        m_listVin[k]->setObjectName(QStringLiteral("listVin"));
        m_listVin[k]->setProperty("index", i);
        m_listVin[k]->setFont(courier);
        m_listVin[k]->setUniformItemSizes(true);
        m_listVin[k]->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("C. 000000")) + 16);
        m_colonne[k] = new ModelloColonneVincenti(m_listVin[k]);
        m_listVin[k]->setModel(m_colonne[k]);
        vincite->addWidget(m_lblCategoria[k], 1, i);
        vincite->addWidget(m_labVincite[k], 2, i);
        vincite->addWidget(m_listVin[k], 3, i);
    }
    auto* punti = new QHBoxLayout;
    m_lblMaxPunti = etichetta("lblMaxPunti", QStringLiteral("-"));
    m_lblMinPunti = etichetta("lblMinPunti", QStringLiteral("-"));
    m_labTot = etichetta("labTot", QStringLiteral("-"));
    m_labTot->setStyleSheet(QStringLiteral("font-weight: bold;"));
    punti->addWidget(etichetta("lblTitoloMax", QStringLiteral("Punti Max")));
    punti->addWidget(m_lblMaxPunti);
    punti->addStretch();
    punti->addWidget(etichetta("lblTitoloMin", QStringLiteral("Punti Min")));
    punti->addWidget(m_lblMinPunti);
    punti->addStretch();
    punti->addWidget(etichetta("lblTitoloTot", QStringLiteral("Totale vinto")));
    punti->addWidget(m_labTot);
    vincite->addLayout(punti, 4, 0, 1, 11);
    m_lbElaborazione = etichetta("lbElaborazione", QStringLiteral("Elaborazione in corso"));
    m_lbElaborazione->setAlignment(Qt::AlignCenter);
    auto* sotto = new QWidget(this);
    auto* pila = new QStackedLayout(sotto);
    pila->setStackingMode(QStackedLayout::StackAll);
    pila->addWidget(m_frameVincite);
    pila->addWidget(m_lbElaborazione);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(numeri);
    layout->addLayout(riga);
    layout->addWidget(sotto, 1);
    resize(900, 560);
}

void frmSpoglio::apri() {
    ApplyLanguage(*this, m_ui.languageFile());
    if (!isVisible()) {
        if (const QScreen* s = screen()) move(s->availableGeometry().center() - rect().center());
    }
    init();
    for (QLabel* l : m_labVincite)
        l->setText(QStringLiteral("0"));
    setValoreDalAl();
    show();
    raise();
    activateWindow();
}

bool frmSpoglio::init() {
    if (!InitPremi(m_corpo.LenColonna)) return false;
    const int len = m_corpo.LenColonna;
    for (size_t i = 0; i <= 10; ++i) {
        // 1. Lists emptied, counts "-".
        m_colonne[i]->imposta({});
        m_labVincite[i]->setText(QStringLiteral("-"));
        // 2. The categories of the kind of play.
        const int h = static_cast<int>(i);
        const bool esiste = m_corpo.TipoGiocata == 1 ? Premio(PremiClassico, len, h) != 0 : h <= len;
        m_lblCategoria[i]->setText(esiste ? QString::fromStdString(m_ui.Lang("0064")) +
                                                QStringLiteral(" %1").arg(h)
                                          : QStringLiteral("-"));
        for (QWidget* w : std::initializer_list<QWidget*>{m_lblCategoria[i], m_listVin[i], m_labVincite[i]})
            w->setEnabled(esiste);
    }
    // 3. The boxes from the draw under check.
    for (size_t i = 0; i < 20; ++i)
        m_meSpoglio[i]->setText(QString::fromStdString(TestoCasella(m_corpo.NumeriSpoglio[i + 1])));
    m_meNumORO->setText(QString::fromStdString(TestoCasella(m_corpo.OroSpoglio)));
    m_meDoppioOro->setText(QString::fromStdString(TestoCasella(m_corpo.DoppioOroSpoglio)));
    return true;
}

void frmSpoglio::setValoreDalAl() {
    m_meDa->setText(QStringLiteral("1"));
    m_meA->setText(QString::number(m_corpo.pronostico.NumColonne));
}

void frmSpoglio::memorizza(QLineEdit* box) {
    const int32_t v = ValoreCasella(box->text().toStdString());
    if (v == 0) return;
    const auto n = static_cast<uint8_t>(std::min(v, int32_t{255}));
    if (box == m_meNumORO)
        m_corpo.OroSpoglio = n;
    else if (box == m_meDoppioOro)
        m_corpo.DoppioOroSpoglio = n;
    else
        m_corpo.NumeriSpoglio[static_cast<size_t>(box->property("index").toInt()) + 1] = n;
}

bool frmSpoglio::eventFilter(QObject* watched, QEvent* event) {
    // Enter on the button that has the focus presses it, as the boxes' Enter leads there.
    if (auto* b = qobject_cast<QPushButton*>(watched); b && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            b->click();
            return true;
        }
    }
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (!box) return QWidget::eventFilter(watched, event);
    const bool numero = box->objectName() == QLatin1String("meSpoglio");
    const bool oro = box == m_meNumORO || box == m_meDoppioOro;
    if (event->type() == QEvent::FocusIn) {
        QTimer::singleShot(0, box, &QLineEdit::selectAll);
    } else if (event->type() == QEvent::FocusOut && (numero || oro)) {
        memorizza(box);
    } else if (event->type() == QEvent::KeyPress && numero) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            const int i = box->property("index").toInt();
            if (i < 19)
                m_meSpoglio[static_cast<size_t>(i) + 1]->setFocus();
            else
                m_cmdSpoglio->setFocus();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void frmSpoglio::cmdSpoglio_Click() {
    init();
    CaselleSpoglio caselle;
    for (size_t i = 0; i < 20; ++i)
        caselle.numeri[i] = m_meSpoglio[i]->text().toStdString();
    caselle.oro = m_meNumORO->text().toStdString();
    caselle.doppio = m_meDoppioOro->text().toStdString();
    caselle.da = m_meDa->text().toStdString();
    caselle.a = m_meA->text().toStdString();
    const EsitoValidazione e = ValidaSpoglio(m_corpo, m_ui, caselle);
    // The boxes show the sorted draw, also after a refusal.
    for (size_t i = 0; i < 20; ++i) {
        const int32_t v = ValoreCasella(caselle.numeri[i]);
        m_meSpoglio[i]->setText(v == 0 ? QString() : QStringLiteral("%1").arg(v, 2, 10, QChar('0')));
    }
    if (!e.ok) {
        if (e.fuoco >= 0 && e.fuoco < 20) m_meSpoglio[static_cast<size_t>(e.fuoco)]->setFocus();
        if (e.fuoco == FuocoOro) m_meNumORO->setFocus();
        if (e.fuoco == FuocoDoppio) m_meDoppioOro->setFocus();
        return;
    }
    m_ui.setBusy(true);
    setEnabled(false);
    m_frameVincite->setVisible(false);
    for (size_t i = 0; i <= 10; ++i) {
        m_colonne[i]->imposta({});
        m_labVincite[i]->setText(QStringLiteral("-"));
    }
    QApplication::processEvents();
    mostraRisultato(SpoglioColonne(m_corpo, e.dal, e.al));
    m_ui.setBusy(false);
    setEnabled(true);
    m_frameVincite->setVisible(true);
}

void frmSpoglio::mostraRisultato(const RisultatoSpoglio& r) {
    const QLocale locale;
    m_lblMaxPunti->setText(QStringLiteral(" %1").arg(r.MaxPunti));
    m_lblMinPunti->setText(QStringLiteral(" %1").arg(r.MinPunti));
    m_labTot->setText(locale.toString(static_cast<double>(r.TotaleVinto), 'f', 2));
    for (size_t i = 0; i <= 10; ++i) {
        m_labVincite[i]->setText(QString::number(r.Vincite[i]));
        m_colonne[i]->imposta(r.colonne[i]);
    }
}

void frmSpoglio::cmdCancella_Click() {
    for (size_t i = 0; i <= 10; ++i) {
        m_colonne[i]->imposta({});
        m_labVincite[i]->setText(QStringLiteral("-"));
    }
    m_corpo.NumeriSpoglio.fill(0);
    for (QLineEdit* box : m_meSpoglio)
        box->setText(QString());
    m_meNumORO->setText(QString());
    m_meDoppioOro->setText(QString());
    for (QLabel* l : {m_lblMaxPunti, m_lblMinPunti, m_labTot})
        l->setText(QStringLiteral("-"));
    m_meSpoglio[0]->setFocus();
}

} // namespace dv
