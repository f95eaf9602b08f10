#include "windows/frmMAINGriglia.h"

#include <algorithm>

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

namespace dv {

namespace {
const QString StileSelezionata = QStringLiteral("QLabel { background: rgb(255,128,0); color: white; "
                                                "font-weight: bold; border: 1px solid rgb(200,100,0); }");
const QString StileLibera = QStringLiteral("QLabel { background: white; color: rgb(255,128,0); font-weight: "
                                           "normal; border: 1px solid rgb(230,200,170); }"
                                           "QLabel:disabled { color: rgb(200,170,140); }");
// The keyboard's cell while the grid has the focus.
const QString StileCorrente = QStringLiteral("QLabel { border: 3px solid rgb(0,90,200); }");
} // namespace

GrigliaNumeri::GrigliaNumeri(const QString& cellName, QWidget* parent) : QFrame(parent) {
    setFrameShape(QFrame::StyledPanel);
    setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QGridLayout(this);
    layout->setSpacing(2);
    layout->setContentsMargins(4, 4, 4, 4);
    for (int i = 0; i < 90; ++i) {
        auto* cell = new QLabel(QString::asprintf("%02d", i + 1), this);
        cell->setObjectName(cellName);
        cell->setProperty("index", i);
        cell->setProperty("tag", QStringLiteral("0"));
        cell->setAlignment(Qt::AlignCenter);
        cell->setMinimumSize(30, 24);
        cell->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        cell->setStyleSheet(StileLibera);
        cell->installEventFilter(this);
        layout->addWidget(cell, i / 10, i % 10);
        m_celle[static_cast<size_t>(i)] = cell;
    }
}

void GrigliaNumeri::mostra(const std::array<bool, 90>& selected) {
    for (size_t i = 0; i < 90; ++i) {
        const QString tag = selected[i] ? QStringLiteral("1") : QStringLiteral("0");
        if (m_celle[i]->property("tag").toString() == tag) continue;
        m_celle[i]->setProperty("tag", tag);
        stile(static_cast<int>(i));
    }
}

void GrigliaNumeri::stile(int index) {
    QLabel* cell = m_celle[static_cast<size_t>(index)];
    const bool selected = cell->property("tag").toString() == QStringLiteral("1");
    QString style = selected ? StileSelezionata : StileLibera;
    if (index == m_corrente && hasFocus()) style += StileCorrente;
    cell->setStyleSheet(style);
}

void GrigliaNumeri::spostaA(int index) {
    const int prima = m_corrente;
    m_corrente = std::clamp(index, 0, 89);
    stile(prima);
    stile(m_corrente);
}

void GrigliaNumeri::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left: spostaA(m_corrente % 10 == 0 ? m_corrente : m_corrente - 1); break;
    case Qt::Key_Right: spostaA(m_corrente % 10 == 9 ? m_corrente : m_corrente + 1); break;
    case Qt::Key_Up: spostaA(m_corrente < 10 ? m_corrente : m_corrente - 10); break;
    case Qt::Key_Down: spostaA(m_corrente >= 80 ? m_corrente : m_corrente + 10); break;
    case Qt::Key_Home: spostaA(0); break;
    case Qt::Key_End: spostaA(89); break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter: emit cellaCliccata(m_corrente); break;
    default: QFrame::keyPressEvent(event); return;
    }
    event->accept();
}

void GrigliaNumeri::focusInEvent(QFocusEvent* event) {
    QFrame::focusInEvent(event);
    stile(m_corrente);
}

void GrigliaNumeri::focusOutEvent(QFocusEvent* event) {
    QFrame::focusOutEvent(event);
    stile(m_corrente);
}

int GrigliaNumeri::cellaIn(const QPoint& globalPos) const {
    for (int i = 0; i < 90; ++i) {
        const QLabel* cell = m_celle[static_cast<size_t>(i)];
        if (cell->rect().contains(cell->mapFromGlobal(globalPos))) return i;
    }
    return -1;
}

bool GrigliaNumeri::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto* me = static_cast<QMouseEvent*>(event);
        if (me->button() != Qt::LeftButton) break;
        const int index = watched->property("index").toInt();
        m_premuto = true;
        m_sotto = index;
        spostaA(index);
        emit cellaCliccata(index);
        return true;
    }
    case QEvent::MouseMove: {
        // The cell pressed keeps the mouse while the button is held; the cell entered is found
        // from the pointer's position.
        auto* me = static_cast<QMouseEvent*>(event);
        if (!m_premuto || !(me->buttons() & Qt::LeftButton)) break;
        const int index = cellaIn(me->globalPosition().toPoint());
        if (index != m_sotto) {
            m_sotto = index;
            if (index >= 0) emit cellaCliccata(index);
        }
        return true;
    }
    case QEvent::MouseButtonRelease:
        m_premuto = false;
        m_sotto = -1;
        break;
    default:
        break;
    }
    return QFrame::eventFilter(watched, event);
}

} // namespace dv
