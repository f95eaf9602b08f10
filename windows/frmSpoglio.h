// "Spoglio": the check of the system's columns against one draw that the user types in or that the
// archive window hands over. The check itself is prize/Spoglio; the window keeps the boxes, runs
// the validation in its order and shows the winning columns by category.
#pragma once

#include "core/Corpo.h"
#include "prize/Spoglio.h"

#include <QWidget>

#include <array>

class QGroupBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;

namespace dv {

class QtUi;
class ModelloColonneVincenti;

class frmSpoglio : public QWidget {
    Q_OBJECT
public:
    frmSpoglio(Corpo& corpo, QtUi& ui, QWidget* parent = nullptr);
    ~frmSpoglio() override;

    // Opening: centred and translated, init, the counts at "0", the range of all columns.
    void apri();
    // The lists emptied, the categories of the kind of play, the boxes from NumeriSpoglio,
    // OroSpoglio and DoppioOroSpoglio. False, doing nothing, for columns longer than 10.
    bool init();
    // meDa "1", meA the number of columns.
    void setValoreDalAl();
    void cmdSpoglio_Click();
    void cmdCancella_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void costruisci();
    QLineEdit* casella(const char* name, int index, const QString& mask);
    // The box's value stored into the draw, unless it reads 0 (an emptied box keeps the number).
    void memorizza(QLineEdit* box);
    void mostraRisultato(const RisultatoSpoglio& r);

    Corpo& m_corpo;
    QtUi& m_ui;
    std::array<QLineEdit*, 20> m_meSpoglio{};
    QLineEdit* m_meNumORO = nullptr;
    QLineEdit* m_meDoppioOro = nullptr;
    QLineEdit* m_meDa = nullptr;
    QLineEdit* m_meA = nullptr;
    QPushButton* m_cmdSpoglio = nullptr;
    QPushButton* m_cmdCancella = nullptr;
    QGroupBox* m_frameVincite = nullptr;
    std::array<QListView*, 11> m_listVin{};
    std::array<ModelloColonneVincenti*, 11> m_colonne{};
    std::array<QLabel*, 11> m_lblCategoria{};
    std::array<QLabel*, 11> m_labVincite{};
    QLabel* m_lblMaxPunti = nullptr;
    QLabel* m_lblMinPunti = nullptr;
    QLabel* m_labTot = nullptr;
    QLabel* m_lbElaborazione = nullptr;
};

} // namespace dv
