// The rows of the archive window's grid: a model over the archive in memory, newest draw first,
// draws without numbers left out. It keeps only the index of each shown record; a row's text is
// built when the view asks for it, so an archive of 500,000 draws costs nothing until shown.
#pragma once

#include "archive/Estrazione.h"

#include <QAbstractTableModel>

#include <vector>

namespace dv {

class frmUpdateModello : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    // The rows of a, read from its last record down to its first; a stays the model's until the
    // next call (or until vuota). Blank draws are left out.
    void ricarica(const ArrayEstrazioni& a);
    // No rows, and no archive held.
    void vuota();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    // The text of row r, as the grid shows it.
    QString testo(int r) const;

private:
    const ArrayEstrazioni* m_archivio = nullptr;
    std::vector<int32_t> m_indici; // row r shows record m_indici[r]
};

} // namespace dv
