// Every window of the program in each shipped language: every key of a window's section in the
// language file names the window or one of its controls, every section belongs to a window, the
// main window's access keys differ, and the dialogs and boxes are at least as wide as their titles
// need (run also with QT_SCALE_FACTOR=1.5).
#include "core/Sistema.h"
#include "tests/windows/FinestraPrincipaleProva.h"
#include "windows/frmAbout.h"
#include "windows/frmCalcolo.h"
#include "windows/frmConsecutivi.h"
#include "windows/frmDistanzaMinima.h"
#include "windows/frmFiltri.h"
#include "windows/frmFiltriDistanzaNumeri.h"
#include "windows/frmFisse.h"
#include "windows/frmImportFiltri.h"
#include "windows/frmImpostazioni.h"
#include "windows/frmMatr.h"
#include "windows/frmNewVersion.h"
#include "windows/frmOrdinaPronostico.h"
#include "windows/frmPari.h"
#include "windows/frmPrnInCorso.h"
#include "windows/frmRidotto.h"
#include "windows/frmSomma.h"
#include "windows/frmSplash.h"
#include "windows/frmSpoglio.h"
#include "windows/frmStampa.h"
#include "windows/frmTabulato.h"
#include "windows/frmTaratura10eLotto.h"
#include "windows/frmVisualizza.h"
#include "windows/QtUi.h"

#include <QFile>
#include <QFontMetrics>
#include <QMenuBar>
#include <QMessageBox>

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace dv;

namespace {

// The sections of a language file by name, each with its lines "key=value".
std::map<QString, QStringList> Sezioni(const std::string& file) {
    QFile f(QString::fromStdString(file));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << file;
    std::map<QString, QStringList> sezioni;
    QStringList* chiavi = nullptr;
    for (const QByteArray& raw : f.readAll().split('\n')) {
        const QString line = QString::fromLatin1(raw).trimmed();
        if (line.startsWith(QLatin1Char('[')))
            chiavi = &sezioni[line.mid(1, line.indexOf(QLatin1Char(']')) - 1)];
        else if (chiavi && !line.isEmpty() && !line.startsWith(QLatin1Char(';')))
            chiavi->append(line);
    }
    return sezioni;
}

// Every key names the window or one of its controls ("NAME(i)": the element i of an array), and
// the window's title begins with its caption: the window applied its section.
void ControllaSezione(QWidget& form, const QStringList& righe, const std::string& file) {
    EXPECT_FALSE(righe.isEmpty()) << file << " has no section " << form.objectName().toStdString();
    for (const QString& riga : righe) {
        const QString nome = riga.left(riga.indexOf(QLatin1Char('.')));
        if (nome != form.objectName()) {
            EXPECT_TRUE(test::Controllo<QObject>(form, nome.toLatin1().constData()))
                << file << ": " << riga.toStdString();
        } else if (riga.startsWith(nome + QStringLiteral(".Caption="))) {
            EXPECT_TRUE(
                form.windowTitle().startsWith(riga.section(QLatin1Char('"'), 1, 1), Qt::CaseInsensitive))
                << file << ": " << riga.toStdString() << " but the title is "
                << form.windowTitle().toStdString();
        }
    }
}

// At least as wide as the title bar needs: the title in a bold face and room for three buttons.
void ControllaLarghezza(QWidget& w, const std::string& lingua) {
    w.show();
    QCoreApplication::processEvents();
    QFont bold = QApplication::font();
    bold.setBold(true);
    const QString titolo = w.windowTitle();
    EXPECT_FALSE(titolo.isEmpty()) << w.objectName().toStdString();
    EXPECT_GE(w.width(), QFontMetrics(bold).horizontalAdvance(titolo) + 90)
        << w.objectName().toStdString() << " (" << lingua << "): \"" << titolo.toStdString() << "\"";
    w.hide();
}

class OgniFinestra : public ::testing::TestWithParam<std::string>, protected test::FinestraPrincipaleProva {
protected:
    void TearDown() override { chiudi(); }
};

TEST_P(OgniFinestra, SectionsNameRealControlsAndDialogsAreAsWideAsTheirTitles) {
    const std::string lingua = GetParam();
    apri({{lingua.c_str(), test::LinguaSpedita(lingua)}}, false);
    // The main window's menus and buttons each answer to a letter of their own.
    QList<QChar> lettere;
    for (QAction* m : m_main->menuBar()->actions())
        if (const int at = m->text().indexOf(QLatin1Char('&')); at >= 0 && at + 1 < m->text().size())
            lettere << m->text().at(at + 1).toLower();
    for (QPushButton* b : m_main->centralWidget()->findChildren<QPushButton*>()) {
        const int at = b->text().indexOf(QLatin1Char('&'));
        const QChar c = at >= 0 ? b->text().at(at + 1).toLower() : QChar();
        EXPECT_TRUE(at >= 0 && !lettere.contains(c)) << lingua << ": " << b->text().toStdString();
        lettere << c;
    }
    CollegaAree(*m_main);
    m_main->findChild<frmSpoglio*>()->apri(); // it takes its language when it opens
    Corpo& c = *m_corpo;
    QtUi& ui = m_main->ui();
    for (int i = 0; i < 12; ++i)
        GrigliaNumeriClick(c, ui, i);

    // The main window's dialogs, whose widths are checked too.
    RunControl control;
    std::vector<std::unique_ptr<QWidget>> dialoghi;
    dialoghi.push_back(std::make_unique<frmSomma>(c, ui, m_main.get()));
    dialoghi.push_back(std::make_unique<frmPari>(c, ui, m_main.get()));
    dialoghi.push_back(std::make_unique<frmFisse>(c, ui, m_main.get()));
    dialoghi.push_back(std::make_unique<frmConsecutivi>(c, ui, m_main.get()));
    dialoghi.push_back(std::make_unique<frmRidotto>(c, ui, m_main.get()));
    dialoghi.push_back(std::make_unique<frmDistanzaMinima>(c, ui, m_main.get()));
    dialoghi.push_back(std::make_unique<frmVisualizza>(c, ui, m_main.get()));
    dialoghi.push_back(std::make_unique<frmOrdinaPronostico>(c, ui, m_main.get()));
    dialoghi.push_back(std::make_unique<frmFiltri>(c, ui, TipoFiltro::AND, m_main.get()));
    dialoghi.push_back(std::make_unique<frmFiltriDistanzaNumeri>(c, ui, m_main.get()));
    dialoghi.push_back(std::make_unique<frmCalcolo>(ui, control));
    dialoghi.push_back(
        std::make_unique<frmImpostazioni>(m_main->impostazioni(), m_main->lingua(), ui, m_main.get()));
    dialoghi.push_back(std::make_unique<frmAbout>(ui, m_main.get()));

    // The other windows made on demand; the areas made theirs at start-up.
    std::atomic<bool> fermata{false};
    SlipCalibration cal;
    Impostazioni& imp = m_main->impostazioni();
    std::vector<std::unique_ptr<QWidget>> altre;
    altre.push_back(std::make_unique<frmSplash>());
    altre.push_back(std::make_unique<frmNewVersion>(ui));
    altre.push_back(std::make_unique<frmImportFiltri>(c, ui, TipoFiltro::AND, m_main.get()));
    altre.push_back(std::make_unique<frmMatr>(c, ui, imp, frmMatr::Modo::Adatta));
    altre.push_back(std::make_unique<frmTabulato>(c, ui, imp));
    altre.push_back(std::make_unique<frmStampa>(c, ui, *m_dialogs, imp, cal));
    altre.push_back(std::make_unique<frmPrnInCorso>(ui, *m_dialogs, fermata));
    altre.push_back(std::make_unique<frmTaratura10eLotto>(c, ui, imp, cal, "PDF"));
    std::vector<QWidget*> tutte{m_main.get()};
    for (QWidget* w : m_main->findChildren<QWidget*>())
        if (w->isWindow() && w->objectName().startsWith(QStringLiteral("frm"))) tutte.push_back(w);
    for (const auto* elenco : {&dialoghi, &altre})
        for (const auto& w : *elenco)
            tutte.push_back(w.get());

    const std::string file = DV_SOURCE_DIR "/languages/" + lingua + ".lng";
    std::map<QString, QStringList> sezioni = Sezioni(file);
    std::set<QString> viste{QStringLiteral("Strings")};
    for (QWidget* w : tutte) {
        ControllaSezione(*w, sezioni[w->objectName()], file);
        viste.insert(w->objectName());
    }
    for (const auto& [nome, chiavi] : sezioni)
        EXPECT_TRUE(viste.count(nome)) << file << ": no window is named " << nome.toStdString();

    for (const auto& w : dialoghi)
        ControllaLarghezza(*w, lingua);
    // The elapsed-time box, a short text under the program's title, and a question.
    ControllaLarghezza(*QtDialogService::box(m_main.get(), "0 Days 00:00:05", "", BoxIcon::None, false),
                       lingua);
    ControllaLarghezza(*QtDialogService::box(m_main.get(), "?", " !!! ERROR !!! ", BoxIcon::Question, true),
                       lingua);
}

INSTANTIATE_TEST_SUITE_P(Lingue, OgniFinestra, ::testing::Values("italiano", "english"));

} // namespace
