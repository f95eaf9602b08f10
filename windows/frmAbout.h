// The about window: the program's name, version and purpose, and the address of its web page.
#pragma once

#include <QDialog>

#include <functional>
#include <string>

class QLabel;

namespace dv {

class Ui;

class frmAbout : public QDialog {
    Q_OBJECT
public:
    // opener hands the address to the platform; OpenDocument when none is given.
    explicit frmAbout(Ui& ui, QWidget* parent = nullptr, std::function<bool(const std::string&)> opener = {});

    void lbURL_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<bool(const std::string&)> m_opener;
    QLabel* m_lbURL = nullptr;
};

} // namespace dv
