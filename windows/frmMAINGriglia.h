// The grid of the ninety numbers, cells "01".."90" in nine rows of ten. A press on a cell
// toggles it; with the button held, each cell the pointer enters is toggled too, so a sweep
// selects (or clears) a run of numbers in one gesture. The grid is one control for the keyboard:
// the arrow keys move a current cell, framed in blue while the grid has the focus, and Space or
// Enter toggles it.
#pragma once

#include <QFrame>

#include <array>

class QLabel;

namespace dv {

class GrigliaNumeri : public QFrame {
    Q_OBJECT
public:
    // The cells form the control array cellName: each has that object name and its position
    // 0..89 as the property "index".
    explicit GrigliaNumeri(const QString& cellName, QWidget* parent = nullptr);

    // Shows the selection: selected[i] is number i+1.
    void mostra(const std::array<bool, 90>& selected);
    QLabel* cella(int index) const { return m_celle[static_cast<size_t>(index)]; }
    // The cell the keyboard works on, 0..89.
    int corrente() const { return m_corrente; }
    // The orange of a selected cell.
    static QColor arancio() { return QColor(255, 128, 0); }

signals:
    // The user toggled cell index (0..89).
    void cellaCliccata(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int cellaIn(const QPoint& globalPos) const;
    void stile(int index);
    void spostaA(int index);

    std::array<QLabel*, 90> m_celle{};
    int m_sotto = -1;       // the cell under the pointer during a sweep
    bool m_premuto = false; // the button went down on a cell
    int m_corrente = 0;     // the keyboard's cell
};

} // namespace dv
