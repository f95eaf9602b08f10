// A grid's selection copied to the clipboard as text: for each row of the selection a line of its
// cells from the first to the last selected column, joined by TAB and ended by CR LF.
#pragma once

#include <QString>

class QAbstractItemView;

namespace dv {

// The text of the rectangle that holds every selected cell of the view (a selection made
// backwards or in pieces counts by its outer corners); with nothing selected, the current cell.
// Empty when the view has neither.
QString TestoSelezioneGriglia(const QAbstractItemView& grid);

// Puts TestoSelezioneGriglia on the clipboard, in place of what was there, with the busy pointer
// meanwhile.
void CopyMSHFlexGridToClipBoard(const QAbstractItemView& grid);

} // namespace dv
