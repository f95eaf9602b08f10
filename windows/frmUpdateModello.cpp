#include "windows/frmUpdateModello.h"

#include "archive/Archivio.h"

namespace dv {

void frmUpdateModello::ricarica(const ArrayEstrazioni& a) {
    beginResetModel();
    m_archivio = &a;
    m_indici.clear();
    m_indici.reserve(a.size());
    for (int32_t i = UBound(a); i >= 1; --i)
        if (!EstrazioneVuota(a[static_cast<size_t>(i)])) m_indici.push_back(i);
    endResetModel();
}

void frmUpdateModello::vuota() {
    beginResetModel();
    m_archivio = nullptr;
    m_indici.clear();
    endResetModel();
}

int frmUpdateModello::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_indici.size());
}

int frmUpdateModello::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 1;
}

QString frmUpdateModello::testo(int r) const {
    if (!m_archivio || r < 0 || r >= rowCount()) return {};
    return QString::fromLatin1(
        RigaEstrazione((*m_archivio)[static_cast<size_t>(m_indici[static_cast<size_t>(r)])]));
}

QVariant frmUpdateModello::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid()) return {};
    return testo(index.row());
}

} // namespace dv
