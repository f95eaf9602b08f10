// What the windows of the filter tables and of the distance conditions share: the navigation
// buttons with their held-key repeat, the ON/OFF option and counts, the frame that a locked
// system disables, and cells of labels that a press or a sweep of the pointer toggles.
#pragma once

#include "core/Ui.h"
#include "filters/Pannelli.h"

#include <QDialog>

#include <array>
#include <cstdint>

class QGroupBox;
class QLabel;
class QLayout;
class QPushButton;
class QRadioButton;

namespace dv {

// A colour as the program writes it (0xBBGGRR: blue in the high byte).
QColor ColoreBGR(uint32_t bgr);
// Paints a label or option; a negative background gives back the system's colours.
void Colora(QWidget& w, int64_t sfondoBGR, uint32_t testoBGR = 0x000000);

class DialogoPannelli : public QDialog {
    Q_OBJECT
protected:
    DialogoPannelli(Ui& ui, QWidget* parent);

    // Binds the panel logic; called by the window once its editor exists, before ridisegna().
    void collega(NavigazionePannelli& editor) { m_editor = &editor; }
    // A label element index of the control array nome, that a press or a sweep activates.
    QLabel* nuovaCella(const QString& nome, int index, const QString& testo);
    // The navigation buttons and the current index over the total.
    QLayout* barraNavigazione();
    // The ON and OFF counts.
    QLayout* barraContatori();

    // A press or a sweep entered the cell: toggle what it stands for and repaint it.
    virtual void cellaAttivata(QLabel& cella) = 0;
    // The window's own controls from the panel.
    virtual void mostraPannello() = 0;
    // The whole panel and the counts.
    void ridisegna();
    // The option and the counts.
    void mostraStato();
    // The language texts of the window and the enabled state of frameCondizione.
    void completaCaricamento();

    void done(int r) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    Ui& m_ui;
    QGroupBox* m_frameCondizione;
    std::array<QRadioButton*, 2> m_optCond{};
    QPushButton* m_cmdCancella;

private:
    QPushButton* pulsante(const char* nome, const QString& testo, const QString& suggerimento, Spostamento s);
    void sposta(Spostamento s);
    void sweep(const QPoint& globalPos);

    NavigazionePannelli* m_editor = nullptr;
    QLabel* m_lblnFiltro = nullptr;
    QLabel* m_lblTotFiltri = nullptr;
    QLabel* m_lblTotFiltriON = nullptr;
    QLabel* m_lblTotFiltriOFF = nullptr;
    QWidget* m_sotto = nullptr; // the widget under the pointer at the last event of a sweep
    bool m_trascina = false;
    bool m_chiuso = false;
};

} // namespace dv
