#include "windows/frmImpostazioni.h"

#include "windows/AttesaDownload.h"

#include "core/Helpers.h"
#include "core/Ui.h"
#include "platform/ApplyLanguage.h"
#include "platform/TraduzioniQt.h"
#include "settings/Ansi.h"
#include "settings/ScritturaSicura.h"
#include "platform/DownloadFile.h"
#include "platform/Shell.h"
#include "print/StampantePdf.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <exception>

namespace dv {

frmImpostazioni::frmImpostazioni(Impostazioni& impostazioni, Lingua& lingua, Ui& ui, QWidget* parent,
                                 ServiziImpostazioni servizi)
    : QDialog(parent), m_imp(impostazioni), m_lingua(lingua), m_ui(ui), m_servizi(std::move(servizi)) {
    // The printers, and the entry "PDF" that prints into a file.
    if (!m_servizi.stampanti) m_servizi.stampanti = [] { return ConStampantePdf(ElencoStampanti()); };
    if (!m_servizi.download) m_servizi.download = ScaricatoreDiRete();
    creaControlli();
    protetto("Form_Load", [this] { Form_Load(); });
}

void frmImpostazioni::creaControlli() {
    setObjectName(QStringLiteral("frmImpostazioni"));
    setWindowTitle(QStringLiteral("Impostazioni"));
    auto* grid = new QGridLayout(this);

    m_lblIntestazione = new QLabel(QStringLiteral("Intestazione stampa"), this);
    m_lblIntestazione->setObjectName(QStringLiteral("lblIntestazione"));
    m_mskIntestazione = new QLineEdit(this);
    m_mskIntestazione->setObjectName(QStringLiteral("mskIntestazione"));
    m_mskIntestazione->setMaxLength(static_cast<int>(LunghezzaIntestazione));
    m_mskIntestazione->setMinimumWidth(380);
    grid->addWidget(m_lblIntestazione, 0, 0);
    grid->addWidget(m_mskIntestazione, 0, 1, 1, 3);

    m_lblStampanteTabulato = new QLabel(QStringLiteral("Stampante Tabulato"), this);
    m_lblStampanteTabulato->setObjectName(QStringLiteral("lblStampanteTabulato"));
    m_cmbStampante = new QComboBox(this);
    m_cmbStampante->setObjectName(QStringLiteral("cmbStampante"));
    grid->addWidget(m_lblStampanteTabulato, 1, 0);
    grid->addWidget(m_cmbStampante, 1, 1, 1, 3);

    m_lbLanguage = new QLabel(QStringLiteral("Lingua"), this);
    m_lbLanguage->setObjectName(QStringLiteral("lbLanguage"));
    m_cmbLingua = new QComboBox(this);
    m_cmbLingua->setObjectName(QStringLiteral("cmbLingua"));
    m_cmdInfoLanguage = new QPushButton(QStringLiteral("Info"), this);
    m_cmdInfoLanguage->setObjectName(QStringLiteral("cmdInfoLanguage"));
    m_cmdInfoLanguage->setToolTip(QStringLiteral("Info Languages"));
    m_cmdLangUpdate = new QPushButton(QStringLiteral("Scarica"), this);
    m_cmdLangUpdate->setObjectName(QStringLiteral("cmdLangUpdate"));
    m_cmdLangUpdate->setToolTip(QStringLiteral("Download Language Files"));
    grid->addWidget(m_lbLanguage, 2, 0);
    grid->addWidget(m_cmbLingua, 2, 1);
    grid->addWidget(m_cmdInfoLanguage, 2, 2);
    grid->addWidget(m_cmdLangUpdate, 2, 3);

    m_frameRicalcolo = new QGroupBox(QString::fromUtf8("Modalità Ricalcolo"), this);
    m_frameRicalcolo->setObjectName(QStringLiteral("frameRicalcolo"));
    auto* row = new QHBoxLayout(m_frameRicalcolo);
    m_chkStatoRicalcolo = new QCheckBox(QStringLiteral("ATTIVA"), m_frameRicalcolo);
    m_chkStatoRicalcolo->setObjectName(QStringLiteral("chkStatoRicalcolo"));
    row->addWidget(m_chkStatoRicalcolo);
    const char* modi[2] = {"FILE", "MEMORIA"};
    for (int i = 0; i < 2; ++i) {
        m_optModoRicalcolo[i] = new QRadioButton(QString::fromLatin1(modi[i]), m_frameRicalcolo);
        m_optModoRicalcolo[i]->setObjectName(QStringLiteral("optModoRicalcolo"));
        m_optModoRicalcolo[i]->setProperty("index", i);
        row->addWidget(m_optModoRicalcolo[i]);
    }
    grid->addWidget(m_frameRicalcolo, 3, 0, 1, 4);

    m_cmdSalva = new QPushButton(QStringLiteral("Salva"), this);
    m_cmdSalva->setObjectName(QStringLiteral("cmdSalva"));
    m_cmdSalva->setDefault(true);
    grid->addWidget(m_cmdSalva, 4, 3);

    connect(m_chkStatoRicalcolo, &QCheckBox::toggled, this, [this] { mostraOpzioni(); });
    connect(m_cmbLingua, &QComboBox::activated, this, [this] { protetto("cmbLingua_Click", [this] { cmbLingua_Click(); }); });
    connect(m_cmdLangUpdate, &QPushButton::clicked, this,
            [this] { protetto("cmdLangUpdate_Click", [this] { cmdLangUpdate_Click(); }); });
    connect(m_cmdInfoLanguage, &QPushButton::clicked, this, [this] { cmdInfoLanguage_Click(); });
    connect(m_cmdSalva, &QPushButton::clicked, this, [this] { protetto("cmdSalva_Click", [this] { cmdSalva_Click(); }); });
}

void frmImpostazioni::protetto(const char* procedura, const std::function<void()>& f) {
    try {
        f();
    } catch (const std::exception& e) {
        m_ui.messageBox(std::string("Error 0 (") + e.what() + ") in procedure " + procedura + " of Form frmImpostazioni",
                        "", BoxIcon::None);
    }
}

void frmImpostazioni::mostraOpzioni() {
    const bool visible = m_chkStatoRicalcolo->isChecked();
    for (QRadioButton* opt : m_optModoRicalcolo) opt->setVisible(visible);
}

void frmImpostazioni::Form_Load() {
    // 1-3. The settings into the controls.
    ReadConfiguration(m_lingua.AppDir, m_imp, m_lingua);
    m_chkStatoRicalcolo->setChecked(m_imp.ModalitaRicalcolo);
    m_optModoRicalcolo[m_imp.SorgenteRicalcolo == 1 ? 1 : 0]->setChecked(true);
    mostraOpzioni();
    m_mskIntestazione->clear();
    m_mskIntestazione->setText(QString::fromStdString(m_imp.Intestazione));

    if (m_lingua.CurrentLanguage.empty()) {
        // 4. No language yet: fetch the language files before the window appears. The list
        // that follows says when none came.
        size_t installate = 0;
        RapportoDownload rapporto;
        scaricaLingue(installate, rapporto);
        elencaStampanti(false);
        m_cmbStampante->setFocus();
        return;
    }
    // 5. A language is in use.
    ApplyLanguage(*this, m_lingua.languageFile());
    ElencaLingue();
    elencaStampanti(true);
}

void frmImpostazioni::elencaStampanti(bool seleziona) {
    m_cmbStampante->clear();
    for (const std::string& name : m_servizi.stampanti()) m_cmbStampante->addItem(QString::fromStdString(name));
    m_cmbStampante->setCurrentIndex(-1);
    if (!seleziona) return;
    m_cmbStampante->setCurrentIndex(m_cmbStampante->findText(QString::fromStdString(m_imp.StampanteTabulato),
                                                             Qt::MatchFixedString | Qt::MatchCaseSensitive));
    if (m_cmbStampante->count() > 0 && m_cmbStampante->currentIndex() < 0) {
        m_ui.messageBox("Select Printer", "", BoxIcon::Critical);
        m_cmbStampante->setFocus();
    } else if (m_cmbStampante->count() == 0) {
        m_ui.messageBox("Printer not found", "", BoxIcon::Critical);
    }
}

void frmImpostazioni::ElencaLingue() {
    m_cmbLingua->clear();
    const std::string wanted = MaiuscoleAscii(m_imp.Lingua);
    int selected = -1;
    for (const std::string& name : ElencoLingue(m_lingua.AppDir)) {
        m_cmbLingua->addItem(QString::fromStdString(name));
        if (name == wanted) selected = m_cmbLingua->count() - 1;
    }
    m_cmbLingua->setCurrentIndex(selected);
    if (m_cmbLingua->count() > 0 && selected < 0) {
        m_ui.messageBox("Select Language", "", BoxIcon::Critical);
        m_cmbLingua->setFocus();
    } else if (m_cmbLingua->count() == 0) {
        m_ui.messageBox("Warning files language not found", "", BoxIcon::Critical);
    }
}

void frmImpostazioni::cmbLingua_Click() {
    if (m_cmbLingua->currentIndex() < 0) return;
    m_ui.setBusy(true);
    setEnabled(false);
    m_lingua.CurrentLanguage = m_cmbLingua->currentText().toStdString();
    const std::string file = m_lingua.languageFile();
    ApplicaTraduzioniQt(file);
    for (QWidget* w : QApplication::topLevelWidgets())
        if (!w->objectName().isEmpty()) ApplyLanguage(*w, file);
    setEnabled(true);
    m_ui.setBusy(false);
}

namespace {

// "0233", or its English text before any language is installed.
std::string ServerNonRaggiunto(Ui& ui) {
    const std::string t = ui.Lang("0233");
    return t.empty() ? "The server could not be reached." : t;
}

} // namespace

bool frmImpostazioni::scaricaLingue(size_t& installate, RapportoDownload& rapporto) {
    m_ui.setBusy(true);
    setEnabled(false);
    // Off the window thread, with a stop that reaches the file being fetched.
    std::optional<std::vector<std::string>> nomi;
    EseguiConAttesa(this, m_ui, [&](std::shared_ptr<const std::atomic<bool>> stop) {
        nomi = AggiornaLingue(m_imp, m_lingua.AppDir, m_servizi.download.conStop(std::move(stop)), &rapporto);
    });
    setEnabled(true);
    m_ui.setBusy(false);
    installate = nomi ? nomi->size() : 0;
    ElencaLingue();
    return nomi.has_value();
}

void frmImpostazioni::cmdLangUpdate_Click() {
    size_t installate = 0;
    RapportoDownload rapporto;
    const bool lista = scaricaLingue(installate, rapporto);
    const std::string n = std::to_string(installate);
    // The outcome, then what went wrong and why.
    std::string testo = TestoCon(m_ui.Lang("0234"), n);
    if (testo.empty()) testo = "Download finished: " + n + " language files installed.";
    // Without the list, the report says why (or that the user stopped it).
    if (!lista) testo = rapporto.interrotto || rapporto.lista ? std::string() : ServerNonRaggiunto(m_ui);
    const std::string perche = MessaggioRapporto(rapporto, m_ui);
    if (!perche.empty()) testo += (testo.empty() ? "" : "\n") + perche;
    m_ui.messageBox(testo, "", lista && perche.empty() ? BoxIcon::Information : BoxIcon::Exclamation);
}

void frmImpostazioni::cmdInfoLanguage_Click() {
    m_ui.setBusy(true);
    setEnabled(false);
    std::optional<std::string> crediti;
    EsitoDownload esito;
    EseguiConAttesa(this, m_ui, [&](std::shared_ptr<const std::atomic<bool>> stop) {
        crediti = CreditiLingue(m_imp, m_lingua.AppDir, m_servizi.download.conStop(std::move(stop)), &esito);
    });
    setEnabled(true);
    m_ui.setBusy(false);
    if (crediti)
        m_ui.messageBox(*crediti, "", BoxIcon::Information);
    else if (esito.errore != ErroreDownload::Interrotto)
        m_ui.messageBox(ServerNonRaggiunto(m_ui) + "\n" + MessaggioDownload(esito, m_ui), "", BoxIcon::Exclamation);
}

void frmImpostazioni::cmdSalva_Click() {
    ImpostazioniDaSalvare s;
    s.Intestazione = m_mskIntestazione->text().toStdString();
    s.StampanteTabulato = m_cmbStampante->currentText().toStdString();
    s.ModalitaRicalcolo = m_chkStatoRicalcolo->isChecked();
    s.IndiceSorgente = m_optModoRicalcolo[0]->isChecked() ? 0 : 1;
    s.Lingua = m_cmbLingua->currentText().toStdString();
    if (!ScriviImpostazioni(m_lingua.AppDir, s)) {
        const std::string path = FileImpostazioni(m_lingua.AppDir);
        const Causa causa = CausaSalvataggio(path);
        m_ui.messageBox("Error 75 (Path/File access error: " + path +
                            (causa.chiave ? ": " + TestoCausa(m_ui, causa) : std::string()) +
                            ") in procedure cmdSalva_Click of Form frmImpostazioni",
                        "", BoxIcon::None);
        return;
    }
    accept();
}

} // namespace dv
