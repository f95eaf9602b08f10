// The window shown while the program starts: its name, version and what it is doing.
#pragma once

#include <QWidget>

class QLabel;

namespace dv {

class frmSplash : public QWidget {
    Q_OBJECT
public:
    explicit frmSplash(QWidget* parent = nullptr);
    // The line that tells what start-up is doing.
    void mostraStato(const QString& text);

private:
    QLabel* m_stato;
};

} // namespace dv
