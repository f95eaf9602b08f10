#include "windows/frmStampa.h"

#include "core/Ui.h"
#include "platform/ApplyLanguage.h"
#include "platform/StampanteQt.h"
#include "print/Tabulato.h"
#include "windows/frmPrnInCorso.h"
#include "windows/frmStampaSupporto.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include <filesystem>

namespace dv {

namespace {

class AvanzamentoFinestra : public AvanzamentoSchedine {
public:
    AvanzamentoFinestra(frmPrnInCorso* w, std::atomic<bool>& fermata) : m_w(w), m_fermata(fermata) {}
    bool fermata() override { return m_fermata.load(); }
    void scheda(int32_t, const std::string& testo) override {
        frmPrnInCorso* w = m_w;
        const QString t = QString::fromStdString(testo);
        QMetaObject::invokeMethod(
            w, [w, t] { w->mostraScheda(t); }, Qt::QueuedConnection);
    }

private:
    frmPrnInCorso* m_w;
    std::atomic<bool>& m_fermata;
};

std::string NomePdf(const std::string& titolo) {
    return std::filesystem::path(titolo).replace_extension(".pdf").string();
}

} // namespace

frmStampa::frmStampa(Corpo& corpo, Ui& ui, DialogService& dialogs, Impostazioni& impostazioni,
                     SlipCalibration& cal, QWidget* parent)
    : QWidget(parent, Qt::Window), m_corpo(corpo), m_ui(ui), m_dialogs(dialogs), m_imp(impostazioni),
      m_cal(cal), m_lavoro(std::make_unique<LavoroInSottofondo>()),
      m_frmPrnInCorso(std::make_unique<frmPrnInCorso>(ui, dialogs, m_fermata)) {
    creaControlli();
    ApplyLanguage(*this, ui.languageFile());
    if (const QScreen* screen = this->screen()) move(screen->availableGeometry().center() - rect().center());
}

frmStampa::~frmStampa() {
    m_fermata = true;
    m_lavoro.reset();
}

void frmStampa::creaControlli() {
    setObjectName(QStringLiteral("frmStampa"));
    setWindowTitle(QStringLiteral("Stampa Schedine"));
    auto* columns = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    columns->addLayout(left);

    m_frameStampante = new QGroupBox(QStringLiteral("&Stampante"), this);
    m_frameStampante->setObjectName(QStringLiteral("frameStampante"));
    m_cmbStampante = new QComboBox(m_frameStampante);
    m_cmbStampante->setObjectName(QStringLiteral("cmbStampante"));
    m_cmbStampante->setMinimumWidth(220);
    (new QVBoxLayout(m_frameStampante))->addWidget(m_cmbStampante);
    left->addWidget(m_frameStampante);

    m_frameTipoEstrazione = new QGroupBox(QStringLiteral("Quale Estrazione Vuoi Giocare ?"), this);
    m_frameTipoEstrazione->setObjectName(QStringLiteral("frameTipoEstrazione"));
    auto* tipi = new QHBoxLayout(m_frameTipoEstrazione);
    const char* caption[3] = {"5 Min", "Lotto", "Immediata"};
    for (int i = 0; i < 3; ++i) {
        auto* c = new QCheckBox(QString::fromLatin1(caption[i]), m_frameTipoEstrazione);
        c->setObjectName(QStringLiteral("chkTipoEstrazione"));
        c->setProperty("index", i);
        tipi->addWidget(c);
        m_chkTipoEstrazione[i] = c;
        connect(c, &QCheckBox::clicked, this, [this, i] { chkTipoEstrazione_Click(i); });
    }
    left->addWidget(m_frameTipoEstrazione);

    auto* range = new QHBoxLayout;
    const auto campo = [this](const char* name) {
        auto* e = new QLineEdit(this);
        e->setObjectName(QString::fromLatin1(name));
        e->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d{0,7}")), e));
        e->setMaximumWidth(100);
        e->installEventFilter(this);
        return e;
    };
    m_lblDa = new QLabel(QStringLiteral("Da"), this);
    m_lblDa->setObjectName(QStringLiteral("lblDa"));
    m_lblA = new QLabel(QStringLiteral("A"), this);
    m_lblA->setObjectName(QStringLiteral("lblA"));
    m_meDa = campo("meDa");
    m_meA = campo("meA");
    for (QWidget* w : {static_cast<QWidget*>(m_lblDa), static_cast<QWidget*>(m_meDa),
                       static_cast<QWidget*>(m_lblA), static_cast<QWidget*>(m_meA)})
        range->addWidget(w);
    range->addStretch();
    left->addLayout(range);

    const auto button = [this](const char* name, const char* caption) {
        auto* b = new QPushButton(QString::fromUtf8(caption), this);
        b->setObjectName(QString::fromLatin1(name));
        return b;
    };
    m_cmdStampa = button("cmdStampa", "&Stampa");
    m_cmdAnteprima = button("cmdAnteprima", "&Anteprima");
    m_cmdPdf = button("cmdPdf", "Salva P&DF");
    m_cmdTaratura = button("cmdTaratura", "&Taratura");
    auto* buttons = new QGridLayout;
    buttons->addWidget(m_cmdStampa, 0, 0);
    buttons->addWidget(m_cmdAnteprima, 0, 1);
    buttons->addWidget(m_cmdPdf, 1, 0);
    buttons->addWidget(m_cmdTaratura, 1, 1);
    left->addLayout(buttons);
    left->addStretch();

    m_imgScheda = new QLabel(this);
    m_imgScheda->setObjectName(QStringLiteral("imgScheda"));
    m_imgScheda->setPixmap(DisegnoScheda(SlipCalibration{}, 2.2));
    columns->addWidget(m_imgScheda);

    connect(m_cmdStampa, &QPushButton::clicked, this, &frmStampa::cmdStampa_Click);
    connect(m_cmdAnteprima, &QPushButton::clicked, this, &frmStampa::cmdAnteprima_Click);
    connect(m_cmdPdf, &QPushButton::clicked, this, &frmStampa::cmdPdf_Click);
    connect(m_cmdTaratura, &QPushButton::clicked, this, &frmStampa::cmdTaratura_Click);
}

void frmStampa::carica() {
    m_cmbStampante->clear();
    for (const std::string& s : ElencoStampantiConPdf())
        m_cmbStampante->addItem(QString::fromStdString(s));
    const int i = m_cmbStampante->findText(QString::fromStdString(m_cal.STAMPANTE));
    m_cmbStampante->setCurrentIndex(i >= 0 ? i : 0);
    m_chkTipoEstrazione[0]->setChecked(true);
    m_chkTipoEstrazione[1]->setChecked(false);
    m_chkTipoEstrazione[2]->setChecked(false);
    chkTipoEstrazione_Click(0);
    m_meDa->setText(QStringLiteral("1"));
    m_meA->setText(QString::number(m_corpo.pronostico.NumColonne));
    ApplyLanguage(*this, m_ui.languageFile());
}

void frmStampa::chkTipoEstrazione_Click(int) {
    // A ticked box turns yellow with black text; the others take the window's colours.
    for (QCheckBox* c : m_chkTipoEstrazione)
        c->setStyleSheet(c->isChecked()
                             ? QStringLiteral("QCheckBox { background-color: yellow; color: black; }")
                             : QString());
}

OpzioniSchedine frmStampa::opzioni() const {
    OpzioniSchedine o;
    for (size_t i = 0; i < 3; ++i)
        o.tipoEstrazione[i] = m_chkTipoEstrazione[i]->isChecked();
    o.intestazione = m_imp.Intestazione;
    o.sitoWeb = HostWeb(IndirizzoPaginaWeb());
    return o;
}

bool frmStampa::prepara(IntervalloSchedine& r) {
    m_cal = LoadCalibration(PercorsoTaratura(m_corpo.AppDir, m_cmbStampante->currentText().toStdString()));
    const auto v =
        ControllaIntervallo(m_corpo, m_meDa->text().toStdString(), m_meA->text().toStdString(), m_ui);
    if (!v) return false;
    r = *v;
    return true;
}

void frmStampa::cmdStampa_Click() {
    IntervalloSchedine r;
    if (!prepara(r)) return;
    stampa(ApriDestinazione(m_cmbStampante->currentText().toStdString(), m_cal.qualitaNormale(), m_ui,
                            m_corpo.AppDir, NomePdf(m_corpo.TitoloFile)),
           r);
}

void frmStampa::cmdPdf_Click() {
    IntervalloSchedine r;
    if (!prepara(r)) return;
    stampa(ApriPdf(m_ui, m_corpo.AppDir, NomePdf(m_corpo.TitoloFile)), r);
}

void frmStampa::cmdAnteprima_Click() {
    IntervalloSchedine r;
    if (!prepara(r)) return;
    const OpzioniSchedine o = opzioni();
    Anteprima(this, m_cmbStampante->currentText().toStdString(), [&](OperazioniStampa& out) {
        struct : AvanzamentoSchedine {
            bool fermata() override { return false; }
            void scheda(int32_t, const std::string&) override {}
        } nessuna;
        StampaScheda10eLottoNew(m_corpo, m_cal, o, r, out, nessuna, m_ui);
    });
}

void frmStampa::stampa(std::unique_ptr<LavoroStampa> job, IntervalloSchedine r) {
    if (!job) return;
    setEnabled(false);
    m_fermata = false;
    m_frmPrnInCorso->show();
    auto errore = std::make_shared<std::string>();
    auto lavoro = std::shared_ptr<LavoroStampa>(std::move(job));
    auto avanzamento = std::make_shared<AvanzamentoFinestra>(m_frmPrnInCorso.get(), m_fermata);
    const OpzioniSchedine o = opzioni();
    const SlipCalibration cal = m_cal;
    m_lavoro->avvia(
        [this, o, cal, r, lavoro, errore, avanzamento] {
            const EsitoSchedine esito =
                StampaScheda10eLottoNew(m_corpo, cal, o, r, lavoro->operazioni(), *avanzamento, m_ui);
            // A stop before the first slip leaves nothing to print, and that is no failure.
            if (!lavoro->concludi(*errore) && esito == EsitoSchedine::Interrotta && lavoro->pagine() == 0)
                errore->clear();
        },
        [this, errore] {
            m_frmPrnInCorso->hide();
            setEnabled(true);
            if (!errore->empty())
                m_ui.messageBox(TestoErroreStampa(*errore, "StampaScheda10eLottoNew of Form frmStampa"), "",
                                BoxIcon::None);
        });
}

void frmStampa::cmdTaratura_Click() {
    if (apriTaratura) apriTaratura(m_cmbStampante->currentText().toStdString());
}

bool frmStampa::inStampa() const {
    return m_lavoro->inCorso();
}

void frmStampa::attendi() {
    m_lavoro->attendi();
}

bool frmStampa::eventFilter(QObject* watched, QEvent* event) {
    auto* edit = qobject_cast<QLineEdit*>(watched);
    if (edit && event->type() == QEvent::FocusIn) QTimer::singleShot(0, edit, [edit] { edit->selectAll(); });
    if (edit == m_meA && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            m_cmdStampa->setFocus();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void frmStampa::closeEvent(QCloseEvent* event) {
    if (inStampa()) {
        event->ignore();
        return;
    }
    QWidget::closeEvent(event);
    if (chiusa) chiusa();
}

} // namespace dv
