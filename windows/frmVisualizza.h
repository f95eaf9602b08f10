// frmVisualizza: pages through the stored columns, ten at a time, the unit a play slip holds.
#pragma once

#include "core/dialogs/Visualizza.h"
#include "windows/DialoghiCondizione.h"

#include <array>
#include <functional>

class QLabel;
class QPushButton;

namespace dv {

class frmVisualizza : public Dialogo {
    Q_OBJECT
public:
    frmVisualizza(Corpo& corpo, Ui& ui, QWidget* parent = nullptr);
    const PannelliSistema& pannelli() const { return m_pannelli; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPushButton* pulsante(const char* nome, const QString& testo, const QString& suggerimento,
                          std::function<void()> azione);
    void disegna();

    PannelliSistema m_pannelli;
    std::array<QLabel*, ColonnePerPannello> m_righe{};
    QLabel* m_labNscheda;
};

} // namespace dv
