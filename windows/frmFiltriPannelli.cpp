#include "windows/frmFiltriPannelli.h"

#include "core/Helpers.h"

#include "platform/ApplyLanguage.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>

namespace dv {

namespace {
const char* const PropSpostamento = "spostamento";
const char* const PropCella = "cella";

QLabel* Contatore(QWidget* parent, const char* nome) {
    auto* l = new QLabel(parent);
    l->setObjectName(nome);
    l->setMinimumWidth(56);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setFrameShape(QFrame::Panel);
    l->setFrameShadow(QFrame::Sunken);
    return l;
}
} // namespace

QColor ColoreBGR(uint32_t bgr) {
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF), static_cast<int>((bgr >> 16) & 0xFF));
}

void Colora(QWidget& w, int64_t sfondoBGR, uint32_t testoBGR) {
    if (sfondoBGR < 0) {
        w.setAutoFillBackground(false);
        w.setPalette(QPalette());
        return;
    }
    QPalette p = w.palette();
    p.setColor(QPalette::Window, ColoreBGR(static_cast<uint32_t>(sfondoBGR)));
    p.setColor(QPalette::WindowText, ColoreBGR(testoBGR));
    p.setColor(QPalette::Text, ColoreBGR(testoBGR));
    w.setBackgroundRole(QPalette::Window);
    w.setAutoFillBackground(true);
    w.setPalette(p);
}

DialogoPannelli::DialogoPannelli(Ui& ui, QWidget* parent) : QDialog(parent), m_ui(ui) {
    m_frameCondizione = new QGroupBox(this);
    m_frameCondizione->setObjectName("frameCondizione");
    const char* testi[2] = {"ON", "OFF"};
    for (int i = 0; i < 2; ++i) {
        auto* o = new QRadioButton(testi[i], this);
        o->setObjectName("optCond");
        o->setProperty("index", i);
        connect(o, &QRadioButton::clicked, this, [this, i] {
            m_editor->clickStato(i == 0);
            mostraStato();
        });
        m_optCond[static_cast<size_t>(i)] = o;
    }
    m_cmdCancella = new QPushButton("Cancella", this);
    m_cmdCancella->setObjectName("cmdCancella");
    m_cmdCancella->setAutoDefault(false);
    connect(m_cmdCancella, &QPushButton::clicked, this, [this] {
        m_editor->cancellaPannello();
        ridisegna();
    });
}

QLabel* DialogoPannelli::nuovaCella(const QString& nome, int index, const QString& testo) {
    auto* l = new QLabel(testo, this);
    l->setObjectName(nome);
    l->setProperty("index", index);
    l->setProperty(PropCella, true);
    l->setAlignment(Qt::AlignCenter);
    l->setMinimumSize(26, 20);
    l->setFrameShape(QFrame::Box);
    l->installEventFilter(this);
    return l;
}

QPushButton* DialogoPannelli::pulsante(const char* nome, const QString& testo, const QString& suggerimento,
                                       Spostamento s) {
    auto* b = new QPushButton(testo, this);
    b->setObjectName(nome);
    b->setToolTip(suggerimento);
    b->setAutoDefault(false);
    b->setProperty(PropSpostamento, static_cast<int>(s));
    b->installEventFilter(this);
    connect(b, &QPushButton::clicked, this, [this, s] { sposta(s); });
    return b;
}

QLayout* DialogoPannelli::barraNavigazione() {
    auto* h = new QHBoxLayout;
    h->addWidget(pulsante("cmdBOTTOM", "|<", "Primo Pannello", Spostamento::Primo));
    h->addWidget(pulsante("cmdPrev2", "<<", "Indietro di 10 pannelli", Spostamento::Indietro2));
    h->addWidget(pulsante("cmdPrev1", "<", "Indietro di 1 pannello", Spostamento::Indietro1));
    m_lblnFiltro = Contatore(this, "lblnFiltro");
    m_lblTotFiltri = Contatore(this, "lblTotFiltri");
    auto* barra = new QLabel("/", this);
    barra->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    h->addWidget(m_lblnFiltro);
    h->addWidget(barra);
    h->addWidget(m_lblTotFiltri);
    h->addWidget(pulsante("cmdNext1", ">", "Avanti di 1 pannello", Spostamento::Avanti1));
    h->addWidget(pulsante("cmdNext2", ">>", "Avanti di 10 pannelli", Spostamento::Avanti2));
    h->addWidget(pulsante("cmdTOP", ">|", "Ultimo Pannello", Spostamento::Ultimo));
    return h;
}

QLayout* DialogoPannelli::barraContatori() {
    auto* h = new QHBoxLayout;
    m_lblTotFiltriON = Contatore(this, "lblTotFiltriON");
    m_lblTotFiltriOFF = Contatore(this, "lblTotFiltriOFF");
    h->addWidget(new QLabel("ON", this));
    h->addWidget(m_lblTotFiltriON);
    h->addWidget(new QLabel("OFF", this));
    h->addWidget(m_lblTotFiltriOFF);
    h->addStretch();
    return h;
}

void DialogoPannelli::ridisegna() {
    mostraPannello();
    mostraStato();
}

void DialogoPannelli::mostraStato() {
    const bool on = m_editor->acceso();
    m_optCond[on ? 0 : 1]->setChecked(true);
    // The chosen option is black on yellow; the other keeps the system's colours.
    Colora(*m_optCond[on ? 0 : 1], 0x00FFFF);
    Colora(*m_optCond[on ? 1 : 0], -1);
    const char sep = SeparatoreMigliaia(m_ui);
    m_lblnFiltro->setText(QString::fromStdString(FormatPannello(m_editor->indice(), sep)));
    m_lblTotFiltri->setText(QString::fromStdString(FormatPannello(m_editor->ultimo(), sep)));
    m_lblTotFiltriON->setText(QString::fromStdString(FormatPannello(m_editor->totaleON(), sep)));
    m_lblTotFiltriOFF->setText(QString::fromStdString(FormatPannello(m_editor->totaleOFF(), sep)));
}

void DialogoPannelli::completaCaricamento() {
    ApplyLanguage(*this, m_ui.languageFile());
    m_frameCondizione->setEnabled(!m_editor->solaLettura());
}

void DialogoPannelli::sposta(Spostamento s) {
    m_editor->sposta(s);
    ridisegna();
}

void DialogoPannelli::done(int r) {
    // Closing saves the panel and compacts the table, once, however the window is closed.
    if (!m_chiuso && m_editor) {
        m_chiuso = true;
        m_editor->chiudi();
    }
    QDialog::done(r);
}

void DialogoPannelli::closeEvent(QCloseEvent* event) {
    // A window closed before it was ever shown saves its panel too.
    if (!m_chiuso) done(QDialog::Rejected);
    QDialog::closeEvent(event);
}

void DialogoPannelli::sweep(const QPoint& globalPos) {
    QWidget* sotto = childAt(mapFromGlobal(globalPos));
    if (sotto == m_sotto) return;
    m_sotto = sotto;
    if (sotto && sotto->property(PropCella).toBool() && sotto->isEnabled())
        cellaAttivata(*static_cast<QLabel*>(sotto));
}

bool DialogoPannelli::eventFilter(QObject* watched, QEvent* event) {
    // A key held on a navigation button runs through the panels; Tab and Escape keep their
    // usual meaning, so the focus can leave the button and the window can be closed.
    if (event->type() == QEvent::KeyPress && watched->property(PropSpostamento).isValid()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Escape) return false;
        sposta(static_cast<Spostamento>(watched->property(PropSpostamento).toInt()));
        return true;
    }
    if (!watched->property(PropCella).toBool()) return QDialog::eventFilter(watched, event);
    auto* cella = static_cast<QLabel*>(watched);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton || !cella->isEnabled()) return false;
        m_trascina = true;
        m_sotto = cella;
        cellaAttivata(*cella);
        return true;
    case QEvent::MouseMove:
        if (!m_trascina) return false;
        sweep(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        return true;
    case QEvent::MouseButtonRelease:
        m_trascina = false;
        m_sotto = nullptr;
        return false;
    default: return false;
    }
}

} // namespace dv
