#include "windows/AttesaDownload.h"

#include "core/Ui.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>

namespace dv {

namespace {

QString testo(Ui& ui, const char* key, const char* english) {
    const std::string t = ui.Lang(key);
    return QString::fromStdString(t.empty() ? std::string(english) : t);
}

// Escape and the close button stop the work instead of leaving it unseen.
class Attesa : public QDialog {
public:
    Attesa(QWidget* parent, Ui& ui, std::shared_ptr<std::atomic<bool>> stop)
        : QDialog(parent), m_stop(std::move(stop)) {
        setWindowTitle(QStringLiteral("Dorvanta"));
        setMinimumWidth(fontMetrics().averageCharWidth() * 40);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(new QLabel(testo(ui, "0257", "Downloading..."), this));
        m_ferma = new QPushButton(testo(ui, "0191", "&Stop"), this);
        layout->addWidget(m_ferma, 0, Qt::AlignRight);
        connect(m_ferma, &QPushButton::clicked, this, [this] { reject(); });
    }
    void reject() override {
        m_stop->store(true);
        m_ferma->setEnabled(false);
    }
    void fine() { QDialog::accept(); }

private:
    std::shared_ptr<std::atomic<bool>> m_stop;
    QPushButton* m_ferma;
};

} // namespace

void EseguiConAttesa(QWidget* parent, Ui& ui,
                     const std::function<void(std::shared_ptr<const std::atomic<bool>> stop)>& lavoro) {
    auto stop = std::make_shared<std::atomic<bool>>(false);
    Attesa attesa(parent, ui, stop);
    QThread* thread = QThread::create([&lavoro, stop] { lavoro(stop); });
    QObject::connect(thread, &QThread::finished, &attesa, &Attesa::fine, Qt::QueuedConnection);
    thread->start();
    // The pointer says busy but shows that the stop can be clicked.
    QApplication::setOverrideCursor(Qt::BusyCursor);
    attesa.exec();
    QApplication::restoreOverrideCursor();
    thread->wait();
    delete thread;
}

} // namespace dv
