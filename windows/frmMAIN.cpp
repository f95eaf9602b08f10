#include "windows/frmMAIN.h"

#include "core/Finestra.h"
#include "core/Helpers.h"
#include "core/Sistema.h"
#include "windows/frmCalcolo.h"
#include "windows/frmMAINCondizioni.h"
#include "windows/frmMAINFile.h"
#include "windows/frmMAINGriglia.h"
#include "windows/frmMAINOperazioni.h"
#include "windows/frmMAINPronostico.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

#ifndef DORVANTA_VERSION
#define DORVANTA_VERSION "1.0.0"
#endif

namespace dv {

frmMAIN::frmMAIN(Corpo& corpo, DialogService& dialogs, QWidget* parent)
    : QMainWindow(parent), m_corpo(corpo), m_dialogs(dialogs), m_ui(std::make_unique<QtUi>(*this, dialogs)) {
    setObjectName(QStringLiteral("frmMAIN"));
    m_lingua.AppDir = corpo.AppDir;
    m_ui->setLanguage([this](std::string_view key) { return m_lingua.Lang(key); },
                      [this] { return m_lingua.languageFile(); });
    costruisciControlli();
    costruisciMenu();
    m_file = std::make_unique<frmMAINFile>(*this);
    m_operazioni = std::make_unique<frmMAINOperazioni>(*this);
    m_condizioni = std::make_unique<frmMAINCondizioni>(*this);
    m_pronostico = std::make_unique<frmMAINPronostico>(*this);
    aggiornaVisibilitaMenu();
    resize(1000, 600);
}

frmMAIN::~frmMAIN() = default;

void frmMAIN::carica() {
    // 1. The title: program, version and build label.
    setWindowTitle(QStringLiteral("%1 - Ver. %2 - Qt")
                       .arg(QString::fromLatin1(TitoloApplicazione), QStringLiteral(DORVANTA_VERSION)));
    // 2.-3. Settings and language.
    m_file->leggiConfigurazione();
    // 4. The column length.
    m_hsLenCol->setRange(1, 25);
    m_hsLenCol->setValue(m_corpo.LenColonna);
    // 5. The first stake and the first kind of play.
    importoCliccato(0);
    tipoGiocataCliccato(0);
    // 6.-8. An empty system named "nuovo.dvs".
    NuovoSistema(m_corpo, *m_ui);
}

void frmMAIN::LockGUI() {
    abilita({"cmdAdatta", "cmdCalcolo", "cmdCancella", "frameNumeri", "frameLenCol", "menuAdattaMatrice",
             "menuCalcolo"},
            false);
    abilita({"cmdModifiche", "cmdSchedine", "cmdSpoglio", "cmdTabulato", "cmdVisualizza", "menuMescola",
             "menuModifiche", "menuSpoglio", "menuVisualizza", "menustampa"},
            true);
}

void frmMAIN::UnlockGUI() {
    abilita({"cmdAdatta", "cmdCalcolo", "cmdCancella", "frameNumeri", "frameLenCol", "menuAdattaMatrice",
             "menuCalcolo", "menuCondizioni"},
            true);
    abilita({"cmdModifiche", "cmdSchedine", "cmdSpoglio", "cmdTabulato", "cmdVisualizza", "menuMescola",
             "menuModifiche", "menuSpoglio", "menuVisualizza", "menustampa"},
            false);
}

void frmMAIN::UnlockMenuConditions() {
    // Called by every reset of the system: the conditions' marks go, and the system in memory is
    // a new one, with no file of its own yet and nothing to warn about.
    m_condizioni->togliSegni();
    mostraAvviso(QString());
    if (m_file) m_file->sistemaAzzerato();
}

void frmMAIN::mostraAvviso(const QString& text) {
    m_lblAvviso->setText(text);
    m_lblAvviso->setToolTip(text);
    m_lblAvviso->setVisible(!text.isEmpty());
}

void frmMAIN::refreshConditionMarks() {
    m_condizioni->aggiornaSegni();
}

void frmMAIN::ViewStatusBar() {
    const char migliaia = SeparatoreMigliaia(*m_ui);
    m_pannelli[0]->setText(QString::fromStdString(m_corpo.TitoloFile));
    m_pannelli[1]->setText(QString::fromStdString(FormatIntero(m_corpo.pronostico.NumColonne, migliaia)));
    m_pannelli[2]->setText(QStringLiteral("\u20AC ") +
                           QString::fromStdString(FormatDecimale(CostoSistema(m_corpo), migliaia, SeparatoreDecimali(*m_ui))));
    m_pannelli[3]->setText(QString::fromStdString(m_corpo.pronostico.Descrizione));
    m_pannelli[3]->setToolTip(m_pannelli[3]->text());
    if (m_finestre.aggiornaSpoglio) m_finestre.aggiornaSpoglio();
}

void frmMAIN::Sblocca_x_Ricalcolo() {
    abilita({"menuCalcolo", "cmdCalcolo"}, true);
}

void frmMAIN::AggiornaIntegrale() {
    m_lblIntegrale->setText(
        QString::fromStdString(FormatIntero(IntegraleMostrato(m_corpo), SeparatoreMigliaia(*m_ui))));
    m_lblIntegrale->setToolTip(QString::fromStdString(m_ui->Lang("0001")));
}

void frmMAIN::refreshGrid() {
    m_griglia->mostra(m_corpo.Griglia);
    m_labnumeri->setText(QString::fromStdString(TestoNumeriInGioco(m_corpo, *m_ui)));
    abilitaOperazioni();
    AggiornaIntegrale();
}

void frmMAIN::aggiornaTesti() {
    m_labnumeri->setText(QString::fromStdString(TestoNumeriInGioco(m_corpo, *m_ui)));
    m_lbLenCol->setText(QString::number(m_corpo.LenColonna));
    AggiornaIntegrale();
    ViewStatusBar();
}

void frmMAIN::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange && m_labnumeri) aggiornaTesti();
    QMainWindow::changeEvent(event);
}

void frmMAIN::refreshLenColonna() {
    m_hsLenCol->setValue(m_corpo.LenColonna);
}

void frmMAIN::abilitaOperazioni() {
    abilita({"menuOperazioni", "menuCondizioni", "cmdAdatta", "cmdCalcolo"}, OperazioniAbilitate(m_corpo));
}

QAction* frmMAIN::azione(const QString& name) const {
    if (QMenu* m = menu(name)) return m->menuAction();
    return findChild<QAction*>(name);
}

QMenu* frmMAIN::menu(const QString& name) const {
    return menuBar()->findChild<QMenu*>(name);
}

QPushButton* frmMAIN::pulsante(const QString& name) const {
    return findChild<QPushButton*>(name);
}

void frmMAIN::abilita(std::initializer_list<const char*> names, bool enabled) {
    for (const char* n : names) {
        const QString name = QString::fromLatin1(n);
        if (QAction* a = azione(name))
            a->setEnabled(enabled);
        else if (QWidget* w = findChild<QWidget*>(name))
            w->setEnabled(enabled);
    }
}

void frmMAIN::mostraVoce(const QString& name) {
    if (QPushButton* b = pulsante(name))
        b->setVisible(true);
    else if (QAction* a = azione(name))
        a->setVisible(true);
    aggiornaVisibilitaMenu();
}

void frmMAIN::closeEvent(QCloseEvent* event) {
    // A run in progress refuses the close; otherwise the user confirms it.
    if (m_operazioni->inCorso() || !m_ui->questionBox(m_ui->Lang("0053"), "", BoxIcon::Question)) {
        event->ignore();
        return;
    }
    m_corpo.ChiusuraInCorso = Vero;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != this && w->isVisible()) w->close();
    event->accept();
}

bool frmMAIN::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_labnumeri && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        m_pronostico->apri(QCursor::pos());
        return true;
    }
    if (watched == m_lbMnu && event->type() == QEvent::Enter) {
        m_pronostico->apri(m_lbMnu->mapToGlobal(m_lbMnu->rect().bottomLeft()));
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace dv
