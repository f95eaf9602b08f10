#include "windows/DialoghiCondizione.h"

#include "core/dialogs/Condizione.h"
#include "platform/ApplyLanguage.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace dv {

QColor ColoreQt(uint32_t bgr) {
    return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
}

QString StileCella(uint32_t fondo, uint32_t testo, bool grassetto) {
    return QStringLiteral(
               "QLabel { background: %1; color: %2; font-weight: %3; border: 1px solid rgb(160,160,160); }")
        .arg(ColoreQt(fondo).name(), ColoreQt(testo).name(),
             grassetto ? QStringLiteral("bold") : QStringLiteral("normal"));
}

Dialogo::Dialogo(Corpo& corpo, Ui& ui, QWidget* parent) : QDialog(parent), m_corpo(corpo), m_ui(ui) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void Dialogo::done(int r) {
    if (!chiudi()) return;
    QDialog::done(r);
}

QVBoxLayout* Dialogo::impagina(const char* nome, const char* titolo) {
    setObjectName(QString::fromLatin1(nome));
    setWindowTitle(QString::fromLatin1(titolo));
    return new QVBoxLayout(this);
}

FrameCondizione* Dialogo::condizione(const char* nomeOpzioni, int16_t& flag) {
    auto* frame = new FrameCondizione(QString::fromLatin1(nomeOpzioni), flag, this);
    static_cast<QVBoxLayout*>(layout())->addWidget(frame);
    return frame;
}

void Dialogo::applicaLingua() {
    ApplyLanguage(*this, m_ui.languageFile());
}

void Dialogo::soloLettura(std::initializer_list<QWidget*> frames) {
    const bool modificabile = !SoloLettura(m_corpo);
    for (QWidget* f : frames)
        f->setEnabled(modificabile);
}

DialogoRiduzione::DialogoRiduzione(Corpo& corpo, Ui& ui, QWidget* parent, const Forma& forma, int16_t& flag)
    : Dialogo(corpo, ui, parent), m_forma(forma) {
    auto* layout = impagina(forma.finestra, forma.titolo);
    auto* frameCondizione = condizione("optCond", flag);
    const Barra b = forma.carica(corpo);
    m_valore = new FrameBarra(QString::fromLatin1(forma.barra), QString::fromLatin1(forma.etichetta),
                              b.minimo, b.massimo, b.valore, this);
    layout->addWidget(m_valore);
    soloLettura({frameCondizione, m_valore});
    applicaLingua();
}

bool DialogoRiduzione::chiudi() {
    m_forma.chiudi(m_corpo, m_ui, m_valore->valore());
    return true;
}

FrameCondizione::FrameCondizione(const QString& nomeOpzioni, int16_t& flag, QWidget* parent)
    : QGroupBox(QStringLiteral("Condizione"), parent), m_flag(flag) {
    setObjectName(QStringLiteral("frameCondizione"));
    auto* layout = new QHBoxLayout(this);
    auto* gruppo = new QButtonGroup(this);
    const QString captions[2] = {QStringLiteral("ON"), QStringLiteral("OFF")};
    for (int i = 0; i < 2; ++i) {
        auto* opt = new QRadioButton(captions[i], this);
        opt->setObjectName(nomeOpzioni);
        opt->setProperty("index", i);
        gruppo->addButton(opt, i);
        layout->addWidget(opt);
        m_opzioni.push_back(opt);
    }
    connect(gruppo, &QButtonGroup::idClicked, this, &FrameCondizione::click);
    click(IndiceCondizione(flag));
}

void FrameCondizione::click(int index) {
    ImpostaCondizione(m_flag, index);
    for (int i = 0; i < 2; ++i) {
        QRadioButton* opt = m_opzioni[static_cast<size_t>(i)];
        const bool scelta = i == index;
        opt->setChecked(scelta);
        opt->setStyleSheet(
            scelta ? QStringLiteral("QRadioButton { background: %1; color: %2; padding: 2px 6px; }")
                         .arg(ColoreQt(ColoreRosso).name(), ColoreQt(ColoreBianco).name())
                   : QString());
    }
}

FrameBarra::FrameBarra(const QString& nomeBarra, const QString& nomeEtichetta, int minimo, int massimo,
                       int valore, QWidget* parent)
    : QGroupBox(parent) {
    setObjectName(QStringLiteral("frameValore"));
    auto* layout = new QHBoxLayout(this);
    m_barra = new QScrollBar(Qt::Horizontal, this);
    m_barra->setObjectName(nomeBarra);
    m_barra->setRange(minimo, massimo);
    m_barra->setPageStep(1);
    m_barra->setValue(valore);
    m_barra->setMinimumWidth(160);
    m_etichetta = new QLabel(QString::number(valore), this);
    m_etichetta->setObjectName(nomeEtichetta);
    m_etichetta->setFrameShape(QFrame::StyledPanel);
    m_etichetta->setAlignment(Qt::AlignCenter);
    m_etichetta->setMinimumWidth(40);
    layout->addWidget(m_barra, 1);
    layout->addWidget(m_etichetta);
    connect(m_barra, &QScrollBar::valueChanged, m_etichetta,
            [this](int v) { m_etichetta->setText(QString::number(v)); });
}

int FrameBarra::valore() const {
    return m_barra->value();
}

TabellaCelle::TabellaCelle(const QString& nome, int primo, int quante, int perRiga, bool sweep,
                           QWidget* parent)
    : QFrame(parent), m_primo(primo), m_sweep(sweep) {
    setFrameShape(QFrame::StyledPanel);
    auto* layout = new QGridLayout(this);
    layout->setSpacing(2);
    layout->setContentsMargins(4, 4, 4, 4);
    for (int k = 0; k < quante; ++k) {
        auto* cell = new QLabel(QString::asprintf("%02d", primo + k), this);
        cell->setObjectName(nome);
        cell->setProperty("index", primo + k);
        cell->setAlignment(Qt::AlignCenter);
        cell->setMinimumSize(30, 24);
        cell->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        cell->setAttribute(Qt::WA_TransparentForMouseEvents);
        layout->addWidget(cell, k / perRiga, k % perRiga);
        m_celle.push_back(cell);
    }
    for (int k = 0; k < quante; ++k)
        mostraAcceso(primo + k, false);
}

int TabellaCelle::cellaIn(const QPoint& pos) const {
    for (size_t k = 0; k < m_celle.size(); ++k) {
        const QLabel* cell = m_celle[k];
        if (cell->isVisible() && cell->geometry().contains(pos)) return m_primo + static_cast<int>(k);
    }
    return -1;
}

void TabellaCelle::mostraAcceso(int index, bool acceso) {
    QLabel* cell = cella(index);
    cell->setProperty("tag", acceso ? QStringLiteral("1") : QStringLiteral("0"));
    cell->setStyleSheet(acceso ? StileCella(ColoreRosso, ColoreBianco, true)
                               : StileCella(ColoreBianco, ColoreNero, false));
}

void TabellaCelle::mousePressEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton) return QFrame::mousePressEvent(e);
    const int index = cellaIn(e->position().toPoint());
    if (m_sweep) {
        if (m_gesto.press(index)) emit cellaCliccata(index);
        return;
    }
    m_sorgente = index;
    if (index >= 0) emit premuta(index);
}

void TabellaCelle::mouseMoveEvent(QMouseEvent* e) {
    if (!(e->buttons() & Qt::LeftButton)) return QFrame::mouseMoveEvent(e);
    const int index = cellaIn(e->position().toPoint());
    if (m_sweep) {
        if (m_gesto.move(index)) emit cellaCliccata(index);
        return;
    }
    if (m_sorgente < 0) return;
    setCursor(Qt::ClosedHandCursor);
    emit trascinata(m_sorgente, index);
}

void TabellaCelle::mouseReleaseEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton) return QFrame::mouseReleaseEvent(e);
    if (m_sweep) {
        m_gesto.release();
        return;
    }
    unsetCursor();
    const int sorgente = m_sorgente;
    m_sorgente = -1;
    if (sorgente >= 0) emit rilasciata(sorgente, cellaIn(e->position().toPoint()));
}

} // namespace dv
