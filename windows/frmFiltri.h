// The window of one filter table (AND, OR or XOR): one filter column a panel, 150,000 panels.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"
#include "filters/EditorFiltri.h"
#include "windows/frmFiltriPannelli.h"

#include <array>
#include <functional>
#include <memory>

class QLabel;
class QPushButton;

namespace dv {

class frmFiltri : public DialogoPannelli {
    Q_OBJECT
public:
    // The window of table, which is one of FiltriAND, FiltriOR and FiltriXOR of corpo; its
    // kind follows from which one it is.
    frmFiltri(Corpo& corpo, Ui& ui, TabellaFiltri& table, QWidget* parent = nullptr);
    // The window of the table that tipo selects.
    frmFiltri(Corpo& corpo, Ui& ui, TipoFiltro tipo, QWidget* parent = nullptr);

    TipoFiltro tipoFiltro() const { return m_tipo; }
    // Changes the table shown: panel 1 of the other table, nothing saved of the one before.
    void setTipoFiltro(TipoFiltro tipo);
    // The import of a whole table (1 AND, 2 OR, 3 XOR), shown modally by cmdLoadFiltri; the button
    // is shown only when there is one.
    void setImporta(std::function<void(int tabella)> importa);
    // cmdLoadFiltri: the import of this table, then panel 1 and record 1 of what it holds.
    void cmdLoadFiltri_Click();

protected:
    void cellaAttivata(QLabel& cella) override;
    void mostraPannello() override;

private:
    void costruisci();
    void carica();
    void mostraNumero(int n);
    void mostraPresenza(int k);

    Corpo& m_corpo;
    TipoFiltro m_tipo;
    std::unique_ptr<EditorFiltri> m_pannello;
    std::array<QLabel*, 90> m_labGriglia{};
    std::array<QLabel*, 26> m_lbPresenze{};
    QLabel* m_lblNumSelezionati = nullptr;
    QPushButton* m_cmdCancellaTutto = nullptr;
    QPushButton* m_cmdLoadFiltri = nullptr;
    std::function<void(int)> m_importa;
};

} // namespace dv
