// The window of the number distance conditions: one condition a panel, 25 panels.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"
#include "filters/EditorDistanze.h"
#include "windows/frmFiltriPannelli.h"

#include <array>
#include <memory>

class QLabel;

namespace dv {

class frmFiltriDistanzaNumeri : public DialogoPannelli {
    Q_OBJECT
public:
    frmFiltriDistanzaNumeri(Corpo& corpo, Ui& ui, QWidget* parent = nullptr);

protected:
    void cellaAttivata(QLabel& cella) override;
    void mostraPannello() override;

private:
    void costruisci();
    void mostraLimiti();
    void mostraCella(QLabel& cella);

    std::unique_ptr<EditorDistanze> m_pannello;
    std::array<QLabel*, 25> m_lbPFromPTo{};    // elements 1..24
    std::array<QLabel*, 90> m_lbDistanzaMin{}; // elements 1..89
    std::array<QLabel*, 90> m_lbDistanzaMax{}; // elements 1..89
    QLabel* m_lblNumDistMin = nullptr;
    QLabel* m_lblNumDistMax = nullptr;
};

} // namespace dv
