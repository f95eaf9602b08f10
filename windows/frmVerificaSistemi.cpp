#include "windows/frmVerificaSistemi.h"

#include "platform/ApplyLanguage.h"
#include "prize/SpoglioEstrazioni.h"
#include "windows/frmSpoglioGriglia.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <filesystem>

namespace dv {

frmVerificaSistemi::frmVerificaSistemi(Corpo& corpo, QtUi& ui, QWidget* parent)
    : QWidget(parent), m_corpo(corpo), m_ui(ui) {
    setWindowFlag(Qt::Window);
    setObjectName(QStringLiteral("frmVerificaSistemi"));
    setWindowTitle(QStringLiteral("Verifica Sistemi"));
    costruisci();
    ApplyLanguage(*this, m_ui.languageFile());
    m_lblElaborazione->setText(QString::fromStdString(m_ui.Lang("0029")) + QStringLiteral("\n...."));
}

frmVerificaSistemi::~frmVerificaSistemi() = default;

void frmVerificaSistemi::costruisci() {
    m_controlli = new QWidget(this);
    auto etichetta = [this](const char* name, const QString& text) {
        auto* l = new QLabel(text, m_controlli);
        l->setObjectName(QString::fromLatin1(name));
        return l;
    };
    auto pulsante = [this](const char* name, const QString& text) {
        auto* b = new QPushButton(text, m_controlli);
        b->setObjectName(QString::fromLatin1(name));
        return b;
    };
    auto* file = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        m_cmdLoad[i] = pulsante(i == 0 ? "cmdLoad1" : "cmdLoad2", QStringLiteral("..."));
        m_lblFile[i] = etichetta(i == 0 ? "lblFile1" : "lblFile2",
                                 i == 0 ? QStringLiteral("File1") : QStringLiteral("File2"));
        m_lblFile[i]->setMinimumWidth(160);
        connect(m_cmdLoad[i], &QPushButton::clicked, this, [this, i] { cmdLoad_Click(i == 0); });
        file->addWidget(m_cmdLoad[i]);
        file->addWidget(m_lblFile[i]);
    }
    m_cmdVerificaSistema = pulsante("cmdVerificaSistema", QStringLiteral("&Verifica"));
    connect(m_cmdVerificaSistema, &QPushButton::clicked, this, &frmVerificaSistemi::cmdVerificaSistema_Click);
    m_cmdCSV = pulsante("cmdCSV", QStringLiteral("CSV"));
    m_cmdCSV->setToolTip(QStringLiteral("Export to CSV"));
    connect(m_cmdCSV, &QPushButton::clicked, this, &frmVerificaSistemi::cmdCSV_Click);
    m_griglia = new GrigliaFiltri(this, m_controlli);
    file->addWidget(m_cmdVerificaSistema);
    file->addStretch();
    file->addWidget(&m_griglia->chkFiltri());
    file->addWidget(m_cmdCSV);

    m_lblElaborazione = etichetta("lblElaborazione", QString());
    auto* conta = new QHBoxLayout;
    m_lblNumEstr = etichetta("lblNumEstr", QStringLiteral("0"));
    conta->addWidget(etichetta("lbNumeroEstrazioni", QStringLiteral("Numero Colonne")));
    conta->addWidget(m_lblNumEstr);
    conta->addStretch();

    m_lavoro = ComponiFinestraSpoglio(*this, *m_controlli, file, *m_griglia, *m_lblElaborazione, conta);
    resize(800, 560);
}

void frmVerificaSistemi::cmdLoad_Click(bool primo) {
    QPushButton* b = m_cmdLoad[primo ? 0 : 1];
    QLabel* l = m_lblFile[primo ? 0 : 1];
    b->setEnabled(false);
    const std::string path = m_ui.chooseOpenFile(m_corpo.AppDir + "/txt", "File TXT (*.txt)|*.txt");
    if (path.empty()) {
        l->setText(primo ? QStringLiteral("File1") : QStringLiteral("File2"));
    } else {
        l->setText(QFileInfo(QString::fromStdString(path)).fileName());
        m_colonne[primo ? 0 : 1] = LoadTxtToColonneArray(m_ui, path);
    }
    b->setEnabled(true);
}

void frmVerificaSistemi::cmdVerificaSistema_Click() {
    // Without both files there is nothing to compare: say which one is missing.
    for (int i = 0; i < 2; ++i)
        if (m_colonne[i].size() < 2) {
            m_ui.messageBox(m_ui.Lang(i == 0 ? "0120" : "0121"), "", BoxIcon::Exclamation);
            return;
        }
    m_griglia->azzera();
    m_ui.setBusy(true);
    m_griglia->setVisible(false);
    m_controlli->setEnabled(false);
    QApplication::processEvents();
    m_risultato = std::make_unique<RisultatoVerifica>();
    m_lavoro->avvia(
        [this](AvanzamentoSpoglio& a) { *m_risultato = VerificaSistema(m_colonne[0], m_colonne[1], a); },
        [this](bool fermato) { concludi(fermato || m_risultato->fermato); });
}

void frmVerificaSistemi::concludi(bool fermato) {
    if (!fermato) {
        m_griglia->modello().imposta(GrigliaVerifica(m_colonne[1], *m_risultato), 0, {});
        m_lblNumEstr->setText(QLocale().toString(static_cast<qlonglong>(m_risultato->conteggi.size())));
    } else {
        m_risultato.reset();
    }
    m_griglia->setVisible(true);
    m_griglia->mostra();
    m_controlli->setEnabled(true);
    m_ui.setBusy(false);
}

std::string frmVerificaSistemi::percorsoCsv() const {
    return m_corpo.AppDir + "/csv/" + NomeCsv(m_corpo.TitoloFile);
}

void frmVerificaSistemi::cmdCSV_Click() {
    if (!m_risultato || m_lavoro->inCorso()) return;
    const std::string path = percorsoCsv();
    std::error_code ec;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ec);
    if (MSHFlexGridTocsv(GrigliaVerifica(m_colonne[1], *m_risultato), path, m_ui))
        m_ui.dialogs().openDocument(path);
}

void frmVerificaSistemi::closeEvent(QCloseEvent* event) {
    if (m_lavoro->inCorso()) {
        event->ignore();
        return;
    }
    m_griglia->azzera();
    m_colonne[0].clear();
    m_colonne[1].clear();
    m_risultato.reset();
    for (int i = 0; i < 2; ++i)
        m_lblFile[i]->setText(i == 0 ? QStringLiteral("File1") : QStringLiteral("File2"));
    m_lblNumEstr->setText(QStringLiteral("0"));
    event->accept();
}

} // namespace dv
