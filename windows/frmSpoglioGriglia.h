// What the archive check and the comparison windows share: the grid of a result as a model over
// its texts, the per-column filters over the headers, the copy gesture, and the run of a check on
// a thread of its own with its progress and its stop.
#pragma once

#include "prize/PianiColonne.h"
#include "system_files/GrigliaCsv.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QWidget>

#include <functional>
#include <memory>
#include <thread>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;
class QTableView;

namespace dv {

// The rows 1.. of a grid of texts (row 0 is the header). The first fisse rows are not filtered and
// take no part in the filter lists. stile gives a cell's background (0xBBGGRR, -1 none) and bold.
class ModelloGriglia : public QAbstractTableModel {
public:
    struct Stile {
        int32_t sfondo = -1;
        bool grassetto = false;
    };
    using QAbstractTableModel::QAbstractTableModel;

    // Shows the grid; its texts must outlive the model or the next call.
    void imposta(GrigliaTesti griglia, int fisse, std::function<Stile(int riga, int colonna)> stile);
    // One column and one row holding "-": the grid after a reset.
    void azzera();
    int fisse() const { return m_fisse; }
    QString testo(int riga, int colonna) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    GrigliaTesti m_griglia;
    int m_fisse = 0;
    std::function<Stile(int, int)> m_stile;
};

// Keeps a row when every column's filter is "*" or the cell's very text.
class FiltroGriglia : public QSortFilterProxyModel {
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    void impostaFiltri(std::vector<QString> filtri);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    std::vector<QString> m_filtri;
};

// flexGrid, chkFiltri and the cmbFilter boxes over the headers; Ctrl+C copies the selection.
class GrigliaFiltri : public QWidget {
    Q_OBJECT
public:
    GrigliaFiltri(QWidget* form, QWidget* parent);
    ModelloGriglia& modello() { return *m_modello; }
    QTableView& vista() { return *m_flexGrid; }
    QCheckBox& chkFiltri() { return *m_chkFiltri; }
    // The filters off and the grid reset to one cell "-".
    void azzera();
    // The grid shows what the model now holds, its columns fitted to their texts.
    void mostra();
    // The filter box of column c (element c of cmbFilter), null when the filters are off.
    QComboBox* filtro(int c) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void filtriAttivati(bool on);
    void applicaFiltri();

    QWidget* m_form;
    ModelloGriglia* m_modello;
    FiltroGriglia* m_filtro;
    QTableView* m_flexGrid;
    QCheckBox* m_chkFiltri;
    QWidget* m_striscia;
    std::vector<QComboBox*> m_cmbFilter;
};

// Runs a check on a thread of its own: progress goes to a bar, cmdStop asks the check to stop,
// and fine runs on the window thread when the check has ended.
class LavoroSpoglio : public QObject {
    Q_OBJECT
public:
    LavoroSpoglio(QProgressBar& barra, QPushButton& stop);
    ~LavoroSpoglio() override;
    void avvia(std::function<void(AvanzamentoSpoglio&)> lavoro, std::function<void(bool fermato)> fine);
    bool inCorso() const { return m_inCorso; }
    // Waits, serving events, until the check has ended (for tests and for the end).
    void attendi();

private:
    class Avanzamento;
    QProgressBar& m_barra;
    QPushButton& m_stop;
    std::unique_ptr<Avanzamento> m_avanzamento;
    std::thread m_thread;
    bool m_inCorso = false;
};

// Lays out a check window: in controlli the row sopra, the grid with lblElaborazione under it (seen
// while the grid is hidden) and the row sotto; under controlli the progress bar and cmdStop.
// Returns the runner of the window's checks.
std::unique_ptr<LavoroSpoglio> ComponiFinestraSpoglio(QWidget& form, QWidget& controlli, QLayout* sopra,
                                                      GrigliaFiltri& griglia, QLabel& lblElaborazione,
                                                      QLayout* sotto);

} // namespace dv
