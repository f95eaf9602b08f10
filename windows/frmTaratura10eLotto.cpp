#include "windows/frmTaratura10eLotto.h"

#include "core/Ui.h"
#include "platform/ApplyLanguage.h"
#include "platform/StampanteQt.h"
#include "print/Schedine.h"
#include "print/Tabulato.h"
#include "settings/ScritturaSicura.h"
#include "windows/frmStampaSupporto.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include <filesystem>

namespace dv {

namespace {
// The frames, each with the names of its two bars and text boxes.
struct Riquadro {
    const char* frame;
    const char* caption;
    const char* suffisso;
};
constexpr Riquadro Riquadri[6] = {{"frameNumero1", "Posizione NUMERO 1", "_UNO"},
                                  {"frameDisTraNumeri", "Distanza tra i numeri", "_UNO"},
                                  {"framePosImporto", "Posizione IMPORTO", "_IMPORTO"},
                                  {"framePosEstrazioni", "Posizione ESTRAZIONI", "_ESTRAZIONI"},
                                  {"frmOpzioniGioco", "Posiione OPZIONI DI GIOCO", "_OPZIONIGIOCO"},
                                  {"framePosIntestazione", "Posizione INTESTAZIONE", "_INTESTAZIONE"}};
} // namespace

frmTaratura10eLotto::frmTaratura10eLotto(Corpo& corpo, Ui& ui, Impostazioni& impostazioni,
                                         SlipCalibration& cal, std::string STAMPANTE, QWidget* parent)
    : QDialog(parent), m_corpo(corpo), m_ui(ui), m_imp(impostazioni), m_cal(cal),
      m_stampante(std::move(STAMPANTE)) {
    creaControlli();
    ApplyLanguage(*this, ui.languageFile());
    adjustSize();
    if (const QScreen* screen = this->screen()) move(screen->availableGeometry().center() - rect().center());
}

void frmTaratura10eLotto::creaControlli() {
    setObjectName(QStringLiteral("frmTaratura10eLotto"));
    setWindowTitle(QStringLiteral("Taratura Scheda 10eLotto"));
    auto* columns = new QHBoxLayout(this);
    // Room for the longest captions of the boxes and the quality option in every language.
    setMinimumWidth(760);
    auto* grid = new QGridLayout;
    columns->addLayout(grid);
    for (int f = 0; f < 6; ++f) {
        const Riquadro& r = Riquadri[f];
        auto* frame = new QGroupBox(QString::fromLatin1(r.caption), this);
        frame->setObjectName(QString::fromLatin1(r.frame));
        auto* inside = new QGridLayout(frame);
        for (int k = 0; k < 2; ++k) {
            const int i = 2 * f + k;
            // "Dis" for the distances, "Pos" for the positions; X then Y.
            const QString nome = QString::fromLatin1(f == 1 ? "Dis" : "Pos") +
                                 QLatin1Char(k == 0 ? 'X' : 'Y') + QString::fromLatin1(r.suffisso);
            auto* label = new QLabel(k == 0 ? QStringLiteral("X") : QStringLiteral("Y"), frame);
            m_vs[i] = new QScrollBar(Qt::Horizontal, frame);
            m_vs[i]->setObjectName(QStringLiteral("vs") + nome);
            m_vs[i]->setRange(0, 3000);
            m_vs[i]->setSingleStep(1);
            m_vs[i]->setPageStep(10);
            m_vs[i]->setMinimumWidth(160);
            m_txt[i] = new QLineEdit(frame);
            m_txt[i]->setObjectName(QStringLiteral("txt") + nome);
            m_txt[i]->setMaximumWidth(70);
            inside->addWidget(label, k, 0);
            inside->addWidget(m_vs[i], k, 1);
            inside->addWidget(m_txt[i], k, 2);
            // A bar shows its value in millimetres beside it; a value typed there moves the bar.
            connect(m_vs[i], &QScrollBar::valueChanged, this,
                    [this, i](int v) { m_txt[i]->setText(QString::fromStdString(TestoMm(MmDaBarra(v)))); });
            connect(m_txt[i], &QLineEdit::editingFinished, this, [this, i] {
                bool ok = false;
                const double v = m_txt[i]->text().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
                if (ok) m_vs[i]->setValue(BarraDaMm(static_cast<float>(v)));
            });
        }
        grid->addWidget(frame, f / 2, f % 2);
    }

    m_frameStampante = new QGroupBox(QStringLiteral("&Stampante"), this);
    m_frameStampante->setObjectName(QStringLiteral("frameStampante"));
    m_cmbStampante = new QComboBox(m_frameStampante);
    m_cmbStampante->setObjectName(QStringLiteral("cmbStampante"));
    m_cmbStampante->setEditable(true);
    (new QVBoxLayout(m_frameStampante))->addWidget(m_cmbStampante);
    grid->addWidget(m_frameStampante, 3, 0);

    m_frameQualitaStampa = new QGroupBox(QStringLiteral("Qualita' di stampa"), this);
    m_frameQualitaStampa->setObjectName(QStringLiteral("frameQualitaStampa"));
    auto* quality = new QHBoxLayout(m_frameQualitaStampa);
    const char* captions[2] = {"&Normale", "&Bassa"};
    for (int i = 0; i < 2; ++i) {
        m_optColor[i] = new QRadioButton(QString::fromLatin1(captions[i]), m_frameQualitaStampa);
        m_optColor[i]->setObjectName(QStringLiteral("optColor"));
        m_optColor[i]->setProperty("index", i);
        quality->addWidget(m_optColor[i]);
        connect(m_optColor[i], &QRadioButton::clicked, this, [this, i] { optColor_Click(i); });
    }
    grid->addWidget(m_frameQualitaStampa, 3, 1);

    m_cmdTest = new QPushButton(QStringLiteral("Test Taratura"), this);
    m_cmdTest->setObjectName(QStringLiteral("cmdTest"));
    m_cmdSalva = new QPushButton(QStringLiteral("Salva Taratura"), this);
    m_cmdSalva->setObjectName(QStringLiteral("cmdSalva"));
    grid->addWidget(m_cmdTest, 4, 0);
    grid->addWidget(m_cmdSalva, 4, 1);
    connect(m_cmdTest, &QPushButton::clicked, this, &frmTaratura10eLotto::cmdTest_Click);
    connect(m_cmdSalva, &QPushButton::clicked, this, &frmTaratura10eLotto::cmdSalva_Click);

    m_Image1 = new QLabel(this);
    m_Image1->setObjectName(QStringLiteral("Image1"));
    m_Image1->setPixmap(DisegnoScheda(SlipCalibration{}, 2.4));
    columns->addWidget(m_Image1);
}

std::string frmTaratura10eLotto::percorso() const {
    return PercorsoTaratura(m_corpo.AppDir, m_stampante);
}

void frmTaratura10eLotto::carica() {
    m_cal = LoadCalibration(percorso());
    ShowCalibration();
}

void frmTaratura10eLotto::ShowCalibration() {
    for (int i = 0; i < NumeroValoriTaratura; ++i) {
        m_txt[i]->setText(QString::fromStdString(TestoMm(ValoreTaratura(m_cal, i))));
        m_vs[i]->setValue(BarraDaMm(ValoreTaratura(m_cal, i)));
    }
    m_cmbStampante->clear();
    for (const std::string& s : ElencoStampantiConPdf())
        m_cmbStampante->addItem(QString::fromStdString(s));
    m_cmbStampante->setCurrentIndex(m_cmbStampante->findText(QString::fromStdString(m_cal.STAMPANTE)));
    if (m_cmbStampante->currentIndex() < 0 && m_cmbStampante->count() > 0) {
        m_ui.messageBox("Stampante non configurata", "", BoxIcon::Critical);
        m_cmbStampante->setEditText(QString::fromStdString(m_stampante));
    } else if (m_cmbStampante->count() == 0) {
        m_ui.messageBox(m_ui.Lang("0048"), "", BoxIcon::Critical);
    }
    optColor_Click(m_cal.INTENSITA_STAMPA == 9999 ? 0 : 1);
}

void frmTaratura10eLotto::ReadBars() {
    for (int i = 0; i < NumeroValoriTaratura; ++i)
        ValoreTaratura(m_cal, i) = MmDaBarra(m_vs[i]->value());
    m_cal.STAMPANTE = m_cmbStampante->currentText().toStdString();
}

void frmTaratura10eLotto::optColor_Click(int index) {
    // The chosen option bold on yellow with black text, the other in the window's colours.
    for (int i = 0; i < 2; ++i) {
        if (i == index) m_optColor[i]->setChecked(true);
        m_optColor[i]->setStyleSheet(
            i == index ? QStringLiteral(
                             "QRadioButton { background-color: yellow; color: black; font-weight: bold; }")
                       : QString());
    }
    m_cal.INTENSITA_STAMPA = index > 0 ? 1111 : 9999;
}

void frmTaratura10eLotto::cmdSalva_Click() {
    const std::string path = percorso();
    ReadBars();
    int errore = 0;
    if (!SalvaTaratura(path, m_cal, &errore)) {
        m_ui.messageBox(m_ui.Lang("0200") + " " + path + ": " + TestoCausa(m_ui, CausaErrore(errore)), "",
                        BoxIcon::Critical);
        return;
    }
    setWindowTitle(QStringLiteral("Taratura Scheda 10eLotto (%1)")
                       .arg(QString::fromStdString(std::filesystem::path(path).filename().string())));
}

void frmTaratura10eLotto::cmdTest_Click() {
    ReadBars();
    auto job = ApriDestinazione(m_cal.STAMPANTE, m_cal.qualitaNormale(), m_ui, m_corpo.AppDir, "Test.pdf");
    if (!job) return;
    OpzioniSchedine o;
    o.intestazione = m_imp.Intestazione;
    o.sitoWeb = HostWeb(IndirizzoPaginaWeb());
    m_ui.setBusy(true);
    StampaTestTaratura(m_corpo, m_cal, o, job->operazioni());
    std::string errore;
    const bool ok = job->concludi(errore);
    m_ui.setBusy(false);
    if (!ok)
        m_ui.messageBox(TestoErroreStampa(errore, "Taratura of Form frmTaratura10eLotto"), "", BoxIcon::None);
}

} // namespace dv
