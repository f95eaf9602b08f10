#include "platform/GrigliaAppunti.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <climits>

namespace dv {

QString TestoSelezioneGriglia(const QAbstractItemView& grid) {
    const QAbstractItemModel* model = grid.model();
    if (!model) return {};
    int r0 = INT_MAX, r1 = -1, c0 = INT_MAX, c1 = -1;
    if (const QItemSelectionModel* sel = grid.selectionModel()) {
        for (const QItemSelectionRange& range : sel->selection()) {
            r0 = std::min(r0, range.top());
            r1 = std::max(r1, range.bottom());
            c0 = std::min(c0, range.left());
            c1 = std::max(c1, range.right());
        }
    }
    if (r1 < 0) {
        const QModelIndex current = grid.currentIndex();
        if (!current.isValid()) return {};
        r0 = r1 = current.row();
        c0 = c1 = current.column();
    }
    QString testo;
    for (int r = r0; r <= r1; ++r) {
        for (int c = c0; c <= c1; ++c) {
            if (c > c0) testo += QLatin1Char('\t');
            testo += model->index(r, c).data(Qt::DisplayRole).toString();
        }
        testo += QLatin1String("\r\n");
    }
    return testo;
}

void CopyMSHFlexGridToClipBoard(const QAbstractItemView& grid) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const QString testo = TestoSelezioneGriglia(grid);
    QGuiApplication::restoreOverrideCursor();
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(testo);
}

void AdattaColonneFlex(QTableView& grid) {
    const QAbstractItemModel* model = grid.model();
    if (!model) return;
    constexpr int RigheMisurate = 2000;
    constexpr int Margine = 16; // beside the text, as the cells' own padding
    const QFontMetrics fm(grid.font());
    const int righe = std::min(model->rowCount(), RigheMisurate);
    int totale = 0;
    for (int c = 0; c < model->columnCount(); ++c) {
        int larghezza = 0;
        for (int r = 0; r < righe; ++r)
            larghezza = std::max(larghezza, fm.horizontalAdvance(model->index(r, c).data().toString()));
        grid.setColumnWidth(c, larghezza + Margine);
        totale += larghezza + Margine;
    }
    grid.setMinimumWidth(totale + grid.verticalScrollBar()->sizeHint().width() + 2 * grid.frameWidth() +
                         (grid.verticalHeader()->isVisible() ? grid.verticalHeader()->width() : 0));
}

} // namespace dv
