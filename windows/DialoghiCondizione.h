// The pieces the condition dialogs, the viewer and the forecast order share: the base of a
// dialog that runs its closing rule, the ON/OFF frame of a condition, and a table of cells
// that takes the sweeping gesture or a drag from cell to cell.
#pragma once

#include "core/Corpo.h"
#include "core/dialogs/Riduzioni.h"
#include "core/dialogs/SweepGesture.h"
#include "core/Ui.h"

#include <QDialog>
#include <QFrame>
#include <QGroupBox>

#include <cstdint>
#include <initializer_list>
#include <vector>

class QLabel;
class QRadioButton;
class QScrollBar;
class QVBoxLayout;

namespace dv {

// A colour as the program writes it (0xBBGGRR).
QColor ColoreQt(uint32_t bgr);
// The style sheet of a cell: background, text colour, bold.
QString StileCella(uint32_t fondo, uint32_t testo, bool grassetto);

class FrameCondizione;

// A modal window of the program. Every way of closing it (the title bar, Esc) runs chiudi()
// first, and a false answer keeps the window open.
class Dialogo : public QDialog {
    Q_OBJECT
public:
    Dialogo(Corpo& corpo, Ui& ui, QWidget* parent);
    void done(int r) override;

protected:
    // Names and titles the window and gives it a column of frames.
    QVBoxLayout* impagina(const char* nome, const char* titolo);
    // A condition dialog's frame of ON/OFF options for flag, on top of the column.
    FrameCondizione* condizione(const char* nomeOpzioni, int16_t& flag);
    // The closing rule of the window; false cancels the closing.
    virtual bool chiudi() { return true; }
    // Captions, tool tips and tags from the language in use; called at the end of the load.
    void applicaLingua();
    // While a finished system is locked, the frames holding the controls are disabled: the
    // dialog only shows the conditions.
    void soloLettura(std::initializer_list<QWidget*> frames);

    Corpo& m_corpo;
    Ui& m_ui;
};

// The frame "Condizione" with the options "ON" (index 0) and "OFF" (index 1). A click writes
// the flag at once; the chosen option is white on red.
class FrameCondizione : public QGroupBox {
    Q_OBJECT
public:
    FrameCondizione(const QString& nomeOpzioni, int16_t& flag, QWidget* parent);
    QRadioButton* opzione(int index) const { return m_opzioni[static_cast<size_t>(index)]; }
    // The click of option index, as the load runs it too.
    void click(int index);

private:
    int16_t& m_flag;
    std::vector<QRadioButton*> m_opzioni;
};

// The value of a reduction: a horizontal scroll bar and the label that shows its value.
class FrameBarra : public QGroupBox {
    Q_OBJECT
public:
    FrameBarra(const QString& nomeBarra, const QString& nomeEtichetta, int minimo, int massimo, int valore,
               QWidget* parent);
    QScrollBar* barra() const { return m_barra; }
    int valore() const;

private:
    QScrollBar* m_barra;
    QLabel* m_etichetta;
};

// Cells numbered primo..primo+quante-1 in rows of perRiga, each a label named nome with its
// element number as the property "index". With the sweeping gesture on, a press toggles a cell
// and each further cell entered with the button held toggles once: cellaCliccata reports each
// toggle. Otherwise premuta, trascinata and rilasciata report a drag from cell to cell.
class TabellaCelle : public QFrame {
    Q_OBJECT
public:
    TabellaCelle(const QString& nome, int primo, int quante, int perRiga, bool sweep, QWidget* parent);
    QLabel* cella(int index) const { return m_celle[static_cast<size_t>(index - m_primo)]; }
    int primo() const { return m_primo; }
    int quante() const { return static_cast<int>(m_celle.size()); }
    // The shown cell under a point of this frame, or -1.
    int cellaIn(const QPoint& pos) const;
    // The look of a cell that is on (white on red) or off (black on white); the tag follows.
    void mostraAcceso(int index, bool acceso);

signals:
    void cellaCliccata(int index);
    void premuta(int index);
    void trascinata(int sorgente, int sopra);
    void rilasciata(int sorgente, int sopra);

protected:
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;

private:
    std::vector<QLabel*> m_celle;
    int m_primo;
    bool m_sweep;
    SweepGesture m_gesto;
    int m_sorgente = -1; // the cell a drag started from
};

} // namespace dv

namespace dv {

// frmRidotto and frmDistanzaMinima: the ON/OFF frame and a scroll bar for the value; the
// closing writes the value and keeps the two reductions from being on together.
class DialogoRiduzione : public Dialogo {
    Q_OBJECT
public:
    struct Forma {
        const char* finestra;
        const char* titolo;
        const char* barra;
        const char* etichetta;
        Barra (*carica)(const Corpo&);
        void (*chiudi)(Corpo&, Ui&, int);
    };
    DialogoRiduzione(Corpo& corpo, Ui& ui, QWidget* parent, const Forma& forma, int16_t& flag);
    FrameBarra* valore() const { return m_valore; }

protected:
    bool chiudi() override;

private:
    Forma m_forma;
    FrameBarra* m_valore;
};

} // namespace dv
