// frmSomma: the sum condition. Two boxes for the least and greatest accepted sum, beside the
// least and greatest sum a column of this forecast can have.
#pragma once

#include "core/dialogs/Somma.h"
#include "windows/DialoghiCondizione.h"

class QLabel;
class QLineEdit;

namespace dv {

class frmSomma : public Dialogo {
    Q_OBJECT
public:
    frmSomma(Corpo& corpo, Ui& ui, QWidget* parent = nullptr);

protected:
    bool chiudi() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    LimitiSomma m_limiti;
    QLineEdit* m_meDa;
    QLineEdit* m_meA;
};

} // namespace dv
