// Helpers of the grids (table views): the selection copied to the clipboard as text, for each row
// of the selection a line of its cells from the first to the last selected column, joined by TAB
// and ended by CR LF; and the columns fitted to their texts.
#pragma once

#include <QString>

class QAbstractItemView;
class QTableView;

namespace dv {

// The text of the rectangle that holds every selected cell of the view (a selection made
// backwards or in pieces counts by its outer corners); with nothing selected, the current cell.
// Empty when the view has neither.
QString TestoSelezioneGriglia(const QAbstractItemView& grid);

// Puts TestoSelezioneGriglia on the clipboard, in place of what was there, with the busy pointer
// meanwhile.
void CopyMSHFlexGridToClipBoard(const QAbstractItemView& grid);

// Each column as wide as its widest text (as the view's font draws it) plus a margin, and the view
// at least as wide as all its columns together plus room for a scroll bar. Only the first 2,000
// rows are measured, so that a grid of many rows is fitted at once.
void AdattaColonneFlex(QTableView& grid);

} // namespace dv
