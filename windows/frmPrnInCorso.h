// "Stampa in corso...": the progress of the slip printing and the button that stops it. It is
// shown without a parent while the slip window is disabled.
#pragma once

#include <QWidget>

#include <atomic>

class QLabel;
class QPushButton;

namespace dv {

class DialogService;
class Ui;

class frmPrnInCorso : public QWidget {
    Q_OBJECT
public:
    frmPrnInCorso(Ui& ui, DialogService& dialogs, std::atomic<bool>& fermata, QWidget* parent = nullptr);

    // The progress text of the slip being printed.
    void mostraScheda(const QString& testo);
    QString testoScheda() const;

    // cmdInterrompi: beep, then ask "0020"; on yes the printing loop stops at the next slip.
    void cmdInterrompi_Click();

protected:
    // Closing the window while printing is the same as cmdInterrompi.
    void closeEvent(QCloseEvent* event) override;

private:
    Ui& m_ui;
    DialogService& m_dialogs;
    std::atomic<bool>& m_fermata;
    QLabel* m_lblScheda;
    QPushButton* m_cmdInterrompi;
};

} // namespace dv
