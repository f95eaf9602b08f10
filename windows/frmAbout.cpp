#include "windows/frmAbout.h"

#include "core/Ui.h"
#include "platform/ApplyLanguage.h"
#include "platform/Shell.h"
#include "settings/Impostazioni.h"

#include <QEvent>
#include <QFont>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace dv {

frmAbout::frmAbout(Ui& ui, QWidget* parent, std::function<bool(const std::string&)> opener)
    : QDialog(parent), m_opener(opener ? std::move(opener) : [](const std::string& s) { return OpenDocument(s); }) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("Informazioni su Dorvanta"));
    auto* box = new QVBoxLayout(this);
    auto add = [this, box](const char* name, const QString& text) {
        auto* l = new QLabel(text, this);
        l->setObjectName(QString::fromLatin1(name));
        l->setWordWrap(true);
        box->addWidget(l);
        return l;
    };
    QLabel* titolo = add("lblTitolo", QStringLiteral("Dorvanta"));
    QFont big = titolo->font();
    big.setPointSize(big.pointSize() * 2);
    big.setBold(true);
    titolo->setFont(big);
    add("lblVersione", QStringLiteral("Ver. ") + QString::fromStdString(VersioneProgramma()));
    add("lblDescrizione", QStringLiteral("Sviluppo, riduzione, spoglio e stampa di sistemi per il 10eLotto."));
    add("lblAvviso", QString::fromUtf8("Il gioco è vietato ai minori e può causare dipendenza patologica."));
    m_lbURL = add("lbURL", QString::fromStdString(IndirizzoPaginaWeb()));
    m_lbURL->setWordWrap(false);
    setMinimumWidth(420);
    m_lbURL->setCursor(Qt::PointingHandCursor);
    m_lbURL->setStyleSheet(QStringLiteral("color: blue; text-decoration: underline;"));
    m_lbURL->installEventFilter(this);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    box->addWidget(ok, 0, Qt::AlignRight);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    ApplyLanguage(*this, ui.languageFile());
}

bool frmAbout::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_lbURL && event->type() == QEvent::MouseButtonRelease) {
        lbURL_Click();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmAbout::lbURL_Click() { m_opener(m_lbURL->text().toStdString()); }

} // namespace dv
