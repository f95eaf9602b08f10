#include "windows/frmTabulato.h"

#include "core/Ui.h"
#include "platform/ApplyLanguage.h"
#include "platform/StampanteQt.h"
#include "windows/frmStampaSupporto.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

#include <filesystem>

namespace dv {

namespace {
// "nome.dvs" as "nome.pdf", the name a save dialog proposes.
std::string NomePdf(const std::string& titolo) {
    return std::filesystem::path(titolo).replace_extension(".pdf").string();
}
} // namespace

frmTabulato::frmTabulato(Corpo& corpo, Ui& ui, Impostazioni& impostazioni, QWidget* parent)
    : QDialog(parent), m_corpo(corpo), m_ui(ui), m_imp(impostazioni),
      m_lavoro(std::make_unique<LavoroInSottofondo>()) {
    creaControlli();
    ApplyLanguage(*this, ui.languageFile());
    if (const QScreen* screen = this->screen()) move(screen->availableGeometry().center() - rect().center());
}

frmTabulato::~frmTabulato() = default;

void frmTabulato::creaControlli() {
    setObjectName(QStringLiteral("frmTabulato"));
    setWindowTitle(QStringLiteral("Stampa Tabulato"));
    auto* grid = new QGridLayout(this);
    const auto check = [this](const char* name, const char* caption) {
        auto* c = new QCheckBox(QString::fromUtf8(caption), this);
        c->setObjectName(QString::fromLatin1(name));
        c->setChecked(true);
        return c;
    };
    m_chkCol = check("chkCol", "C&olonne");
    m_chkProno = check("chkProno", "&Pronostico");
    m_chkColor = check("chkColor", "A colori");
    grid->addWidget(m_chkCol, 0, 0);
    grid->addWidget(m_chkProno, 1, 0);
    grid->addWidget(m_chkColor, 2, 0);

    m_lblCopie = new QLabel(QStringLiteral("Copie"), this);
    m_lblCopie->setObjectName(QStringLiteral("lblCopie"));
    m_labCopie = new QLabel(QStringLiteral("1"), this);
    m_labCopie->setObjectName(QStringLiteral("labCopie"));
    m_labCopie->setMinimumWidth(24);
    m_VsCopie = new QScrollBar(Qt::Vertical, this);
    m_VsCopie->setObjectName(QStringLiteral("VsCopie"));
    // Up raises the count, as the arrows of a spin box do.
    m_VsCopie->setInvertedAppearance(true);
    m_VsCopie->setInvertedControls(true);
    m_VsCopie->setRange(1, 20);
    m_VsCopie->setFixedHeight(44);
    auto* copie = new QHBoxLayout;
    copie->addWidget(m_lblCopie);
    copie->addWidget(m_labCopie);
    copie->addWidget(m_VsCopie);
    grid->addLayout(copie, 0, 1, 3, 1);

    const auto button = [this](const char* name, const char* caption) {
        auto* b = new QPushButton(QString::fromUtf8(caption), this);
        b->setObjectName(QString::fromLatin1(name));
        return b;
    };
    m_cmdStampa = button("cmdStampa", "&Stampa");
    m_cmdAnteprima = button("cmdAnteprima", "&Anteprima");
    m_cmdPdf = button("cmdPdf", "Salva P&DF");
    m_cmdImpostazioni = button("cmdImpostazioni", "&Impostazioni");
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {m_cmdStampa, m_cmdAnteprima, m_cmdPdf, m_cmdImpostazioni})
        buttons->addWidget(b);
    grid->addLayout(buttons, 3, 0, 1, 2);

    connect(m_VsCopie, &QScrollBar::valueChanged, this, &frmTabulato::VsCopie_Change);
    connect(m_cmdStampa, &QPushButton::clicked, this, &frmTabulato::cmdStampa_Click);
    connect(m_cmdAnteprima, &QPushButton::clicked, this, &frmTabulato::cmdAnteprima_Click);
    connect(m_cmdPdf, &QPushButton::clicked, this, &frmTabulato::cmdPdf_Click);
    connect(m_cmdImpostazioni, &QPushButton::clicked, this, [this] {
        if (apriImpostazioni) apriImpostazioni();
    });
}

void frmTabulato::VsCopie_Change(int value) {
    m_labCopie->setText(QString::number(value));
}

OpzioniTabulato frmTabulato::opzioni() const {
    OpzioniTabulato o;
    o.colonne = m_chkCol->isChecked();
    o.pronostico = m_chkProno->isChecked();
    o.colori = m_chkColor->isChecked();
    o.copie = m_labCopie->text().toInt();
    o.intestazione = m_imp.Intestazione;
    o.sitoWeb = HostWeb(IndirizzoPaginaWeb());
    return o;
}

void frmTabulato::cmdStampa_Click() {
    if (!ControllaTabulato(opzioni(), m_ui)) return;
    stampa(
        ApriDestinazione(m_imp.StampanteTabulato, true, m_ui, m_corpo.AppDir, NomePdf(m_corpo.TitoloFile)));
}

void frmTabulato::cmdPdf_Click() {
    if (!ControllaTabulato(opzioni(), m_ui)) return;
    stampa(ApriPdf(m_ui, m_corpo.AppDir, NomePdf(m_corpo.TitoloFile)));
}

void frmTabulato::cmdAnteprima_Click() {
    const OpzioniTabulato o = opzioni();
    if (!ControllaTabulato(o, m_ui)) return;
    Anteprima(this, m_imp.StampanteTabulato,
              [&](OperazioniStampa& out) { StampaTabulato(m_corpo, o, out, m_ui); });
}

void frmTabulato::stampa(std::unique_ptr<LavoroStampa> job) {
    if (!job) return;
    setEnabled(false);
    m_ui.setBusy(true);
    auto errore = std::make_shared<std::string>();
    auto lavoro = std::shared_ptr<LavoroStampa>(std::move(job));
    const OpzioniTabulato o = opzioni();
    m_lavoro->avvia(
        [this, o, lavoro, errore] {
            StampaTabulato(m_corpo, o, lavoro->operazioni(), m_ui);
            lavoro->concludi(*errore);
        },
        [this, errore] {
            m_ui.setBusy(false);
            setEnabled(true);
            if (!errore->empty())
                m_ui.messageBox(TestoErroreStampa(*errore, "Stampa Tabulato"), "", BoxIcon::None);
        });
}

void frmTabulato::reject() {
    if (m_lavoro->inCorso()) return;
    QDialog::reject();
}

void frmTabulato::attendi() {
    m_lavoro->attendi();
}

} // namespace dv
