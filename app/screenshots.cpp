// dorvanta-screenshots: renders every window of the program into PNG files, in each shipped
// language, so that the look can be reviewed without a desktop. Run it on the offscreen platform:
//   QT_QPA_PLATFORM=offscreen dorvanta-screenshots build/screenshots
// Each language gets a folder of its own; the main window is drawn at the size of a 1280x800
// screen and at the room that screen leaves at 150% scaling.
#include "core/Avvio.h"
#include "core/Cartelle.h"
#include "core/Engine.h"
#include "core/Helpers.h"
#include "core/Sistema.h"
#include "matrix/Copertura.h"
#include "platform/ApplyLanguage.h"
#include "windows/frmAbout.h"
#include "windows/frmCalcolo.h"
#include "windows/frmConsecutivi.h"
#include "windows/frmDistanzaMinima.h"
#include "windows/frmFiltri.h"
#include "windows/frmFiltriDistanzaNumeri.h"
#include "windows/frmFisse.h"
#include "windows/frmImportFiltri.h"
#include "windows/frmImpostazioni.h"
#include "windows/frmMAIN.h"
#include "windows/frmMatr.h"
#include "windows/frmNewVersion.h"
#include "windows/frmOrdinaPronostico.h"
#include "windows/frmPari.h"
#include "windows/frmPrnInCorso.h"
#include "windows/frmRidotto.h"
#include "windows/frmSomma.h"
#include "windows/frmSplash.h"
#include "windows/frmSpoglio.h"
#include "windows/frmSpoglioEstrazioni.h"
#include "windows/frmSpoglioGriglia.h"
#include "windows/frmStampa.h"
#include "windows/frmStatistiche.h"
#include "windows/frmTabulato.h"
#include "windows/frmTaratura10eLotto.h"
#include "windows/frmUltimate.h"
#include "windows/frmUpdate.h"
#include "windows/frmVerificaSistemi.h"
#include "windows/frmVisualizza.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QRadioButton>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <tuple>

namespace {

// Boxes answered yes without being shown; file choosers cancelled.
class Silenziosi : public dv::DialogService {
public:
    void messageBox(QWidget*, const std::string&, const std::string&, dv::BoxIcon) override {}
    bool questionBox(QWidget*, const std::string&, const std::string&, dv::BoxIcon) override { return true; }
    std::string chooseOpenFile(QWidget*, const std::string&, const std::string&) override { return {}; }
    std::string chooseSaveFile(QWidget*, const std::string&, const std::string&, const std::string&,
                               const std::string&) override {
        return {};
    }
    void beep() override {}
    bool openFolder(const std::string&) override { return true; }
    bool openDocument(const std::string&) override { return true; }
};

class Fotografo {
public:
    explicit Fotografo(const QString& folder) : m_folder(folder) { QDir().mkpath(folder); }

    void scatta(QWidget& w, const QString& name) {
        QApplication::processEvents();
        const QString path = m_folder + "/" + name + ".png";
        if (conTitolo(w).save(path))
            std::printf("%s\n", qPrintable(path));
        else
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    }
    // A menu of the menu bar, opened under its title.
    void scattaMenu(QMenu& menu, const QString& name) {
        menu.popup(QPoint(0, 0));
        scatta(menu, name);
        menu.hide();
    }

private:
    // A window drawn under a plain title bar of its width, so that a title cut short shows.
    static QImage conTitolo(QWidget& w) {
        const QPixmap grab = w.grab();
        if (!w.isWindow() || qobject_cast<QMenu*>(&w)) return grab.toImage();
        QFont font = QFontDatabase::systemFont(QFontDatabase::TitleFont);
        font.setBold(true);
        const qreal dpr = grab.devicePixelRatio();
        const int barra = QFontMetrics(font).height() + 10;
        QImage out(grab.width(), grab.height() + static_cast<int>(barra * dpr), QImage::Format_ARGB32);
        out.setDevicePixelRatio(dpr);
        out.fill(QColor(60, 60, 70));
        QPainter p(&out);
        p.setFont(font);
        p.setPen(Qt::white);
        const QRectF testo(28, 0, grab.width() / dpr - 28 - 84, barra);
        p.drawText(testo, Qt::AlignVCenter | Qt::AlignLeft,
                   QFontMetrics(font).elidedText(w.windowTitle(), Qt::ElideMiddle, static_cast<int>(testo.width())));
        for (int i = 0; i < 3; ++i)
            p.drawRect(QRectF(grab.width() / dpr - 26.0 * (i + 1), 5, 18, barra - 10));
        p.drawPixmap(QPointF(0, barra), grab);
        return out;
    }

    QString m_folder;
};

// A dialog of the program drawn as it shows at load, then put away without its closing rule.
template <typename D, typename... Args>
void scattaDialogo(Fotografo& foto, dv::frmMAIN& main, const QString& name, Args... args) {
    D dialog(main.corpo(), main.ui(), args..., &main);
    dialog.show();
    foto.scatta(dialog, name);
    dialog.hide();
}

void selezionaPronostico(dv::frmMAIN& main, std::initializer_list<int> numbers) {
    for (int n : numbers)
        dv::GrigliaNumeriClick(main.corpo(), main.ui(), n - 1);
}

// A year of made-up evening draws, the same at every run.
dv::ArrayEstrazioni ArchivioDimostrativo() {
    dv::ArrayEstrazioni a(1);
    std::mt19937 rng(2025);
    for (int g = 0; g < 336; ++g) {
        dv::Estrazione e;
        char data[32];
        std::snprintf(data, sizeof data, "%02d/%02d/2025", 1 + g % 28, 1 + g / 28);
        std::memcpy(e.Data.data(), data, e.Data.size());
        e.Concorso = 1;
        std::array<uint8_t, 90> tutti{};
        for (int i = 0; i < 90; ++i) tutti[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
        std::shuffle(tutti.begin(), tutti.end(), rng);
        std::sort(tutti.begin(), tutti.begin() + 20);
        std::copy(tutti.begin(), tutti.begin() + 20, e.Numeri.begin() + 1);
        a.push_back(e);
    }
    return a;
}

// Two covering matrices of 20 numbers in columns of 10 in AppDir's "matrici", for the matrix window.
void MatriciDimostrative(const std::string& appDir) {
    for (auto [t, m] : {std::pair{3, 3}, std::pair{4, 5}}) {
        const auto colonne = dv::CoperturaGreedy(20, 10, t, m, 1);
        dv::MATRIX_STRUCTURE x;
        x.NUMBERS_OF_MATRIX_V = 20;
        x.GARANTY_T = static_cast<uint8_t>(t);
        x.PICK_UP_NUMBERS_M = static_cast<uint8_t>(m);
        x.dimensiona(10, static_cast<int32_t>(colonne.size()));
        for (size_t c = 0; c < colonne.size(); ++c)
            for (int p = 1; p <= 10; ++p) x.colum(p, static_cast<int32_t>(c + 1)) = colonne[c][static_cast<size_t>(p - 1)];
        x.PERCENTAGE_COVER = "100%";
        x.AUTHOR = "Dorvanta";
        x.DESCRIPTION = "20 numeri, colonne da 10, garanzia " + std::to_string(t) + " se escono " + std::to_string(m);
        x.VALID_FROM = dv::OggiSeriale() - 30;
        x.VALID_TO = dv::OggiSeriale() + 3650;
        x.MATRIX_READY = -1;
        x.MATRIX_SIGNATURE = dv::FirmaMatrice;
        dv::ScriviMatrice(dv::PercorsoIn(appDir, {"matrici", m == 3 ? "V20K10T3M3.mqvn" : "V20K10T4M5.mqvn"}), x);
    }
}

void fotografaLingua(const std::string& lingua, const QString& folder) {
    namespace fs = std::filesystem;
    QTemporaryDir dir;
    auto corpo = std::make_unique<dv::Corpo>();
    dv::ImpostaAppDir(*corpo, dir.path().toStdString());
    for (const char* f : {"italiano.lng", "english.lng"})
        fs::copy_file(fs::path(DORVANTA_LANGUAGES_DIR) / f, fs::path(corpo->AppDir) / f);
    std::ofstream(fs::path(corpo->AppDir) / "dorvantaqvn.ini") << "[IMPOSTAZIONI]\nLINGUA=" << lingua << "\n";
    Fotografo foto(folder);
    Silenziosi dialogs;

    dv::frmMAIN main(*corpo, dialogs);
    main.carica();
    const std::string file = main.lingua().languageFile();

    dv::frmSplash splash;
    dv::ApplyLanguage(splash, file);
    splash.show();
    foto.scatta(splash, "frmSplash");
    splash.hide();

    main.resize(1280, 760);
    main.show();

    // The windows of the settings, the about window and the new-version window.
    {
        dv::frmImpostazioni settings(main.impostazioni(), main.lingua(), main.ui(), &main);
        settings.show();
        foto.scatta(settings, "frmImpostazioni");
    }
    {
        dv::frmAbout about(main.ui(), &main);
        about.show();
        foto.scatta(about, "frmAbout");
    }
    {
        dv::frmNewVersion nuova(main.ui(), &main);
        nuova.localVersion = "1.0.0";
        nuova.remoteVersion = "1.1.0";
        nuova.show();
        foto.scatta(nuova, "frmNewVersion");
    }

    foto.scatta(main, "frmMAIN_vuoto");

    selezionaPronostico(main, {3, 7, 11, 18, 22, 25, 29, 34, 38, 41, 47, 52, 56, 60, 63, 69, 74, 78, 85, 90});
    dv::elementoArray<QRadioButton>(main, QStringLiteral("optImporto"), 3)->click();
    dv::elementoArray<QRadioButton>(main, QStringLiteral("optTipoGiocata"), 1)->click();
    // The grid holds the keyboard's focus: its current cell is framed.
    main.activateWindow();
    main.findChild<QWidget*>(QStringLiteral("frameNumeri"))->setFocus();
    foto.scatta(main, "frmMAIN_pronostico");

    dv::RunControl control;
    dv::frmCalcolo calcolo(main.ui(), control);
    calcolo.mostraAvanzamento(dv::ProgressInfo{100, 40, 184756, 73902, 73902});
    calcolo.show();
    foto.scatta(calcolo, "frmCalcolo");
    calcolo.hide();

    // The condition dialogs while the system is still open to changes.
    scattaDialogo<dv::frmSomma>(foto, main, "frmSomma");
    scattaDialogo<dv::frmPari>(foto, main, "frmPari");
    scattaDialogo<dv::frmFisse>(foto, main, "frmFisse");
    scattaDialogo<dv::frmConsecutivi>(foto, main, "frmConsecutivi");
    scattaDialogo<dv::frmRidotto>(foto, main, "frmRidotto");
    scattaDialogo<dv::frmDistanzaMinima>(foto, main, "frmDistanzaMinima");
    scattaDialogo<dv::frmOrdinaPronostico>(foto, main, "frmOrdinaPronostico");
    // The matrix window, opened to adapt (a matrix shown) and as the list of everything.
    MatriciDimostrative(corpo->AppDir);
    for (auto modo : {dv::frmMatr::Modo::Adatta, dv::frmMatr::Modo::Elenco}) {
        dv::frmMatr matrici(*corpo, main.ui(), main.impostazioni(), modo, &main);
        matrici.findChild<QListWidget*>(QStringLiteral("flQVN"))->setCurrentRow(1);
        matrici.show();
        foto.scatta(matrici, modo == dv::frmMatr::Modo::Adatta ? "frmMatr" : "frmMatr_elenco");
    }
    scattaDialogo<dv::frmFiltri>(foto, main, "frmFiltri_AND", dv::TipoFiltro::AND);
    scattaDialogo<dv::frmFiltri>(foto, main, "frmFiltri_XOR", dv::TipoFiltro::XOR);
    scattaDialogo<dv::frmFiltriDistanzaNumeri>(foto, main, "frmFiltriDistanzaNumeri");

    // The statistics window over a made-up archive: the first chart, the frequencies, and the
    // room of a 150% scaling.
    {
        corpo->mArrEstrazioni = ArchivioDimostrativo();
        dv::frmStatistiche stat(*corpo, main.ui(), dialogs, &main);
        stat.carica();
        stat.show();
        foto.scatta(stat, "frmStatistiche");
        stat.optStat(5);
        foto.scatta(stat, "frmStatistiche_frequenza");
        stat.resize(853, 500);
        stat.optStat(4);
        foto.scatta(stat, "frmStatistiche_150");
    }

    // The filter import over the made-up archive with the latest 157 draws chosen, and the
    // Ultimate window as it opens.
    {
        corpo->mArrEstrazioni = ArchivioDimostrativo();
        dv::frmImportFiltri importa(*corpo, main.ui(), dv::TipoFiltro::AND, &main);
        importa.mostraIntervallo(dv::UltimeEstrazioni(corpo->mArrEstrazioni, 157));
        importa.show();
        foto.scatta(importa, "frmImportFiltri");
        dv::frmUltimate ultimate(*corpo, main.ui(), {}, &main);
        ultimate.show();
        foto.scatta(ultimate, "frmUltimate");
    }

    // The archive window over the same made-up archive.
    {
        dv::frmUpdate archivio(*corpo, main.ui(), main.finestre(), {}, &main);
        archivio.carica();
        corpo->mArrEstrazioni = ArchivioDimostrativo();
        archivio.PopolaListView();
        archivio.show();
        foto.scatta(archivio, "frmUpdate");
    }

    dv::EngineObserver silenzioso;
    dv::Elabora(*corpo, main.ui(), control, silenzioso);
    foto.scatta(main, "frmMAIN_sistema");
    // The check windows over the developed system: a draw, the made-up archive, the comparison.
    {
        dv::frmSpoglio spoglio(*corpo, main.ui(), &main);
        for (int i = 1; i <= 20; ++i)
            corpo->NumeriSpoglio[static_cast<size_t>(i)] = static_cast<uint8_t>(i * 4);
        spoglio.apri();
        spoglio.cmdSpoglio_Click();
        foto.scatta(spoglio, "frmSpoglio");
        corpo->mArrEstrazioni = ArchivioDimostrativo();
        dv::frmSpoglioEstrazioni estrazioni(*corpo, main.ui(), &main);
        estrazioni.populateCmbEstrazioni();
        estrazioni.show();
        estrazioni.cmdSpoglioEstrazioni_Click();
        estrazioni.lavoro().attendi();
        foto.scatta(estrazioni, "frmSpoglioEstrazioni");
        dv::frmVerificaSistemi verifica(*corpo, main.ui(), &main);
        verifica.show();
        foto.scatta(verifica, "frmVerificaSistemi");
    }
    // The elapsed-time box and a question, as wide as their titles; the warning of a file whose
    // conditions are cut short.
    for (const auto& [testo, titolo, nome] :
         {std::tuple<std::string, std::string, const char*>{dv::TestoTempoTrascorso(5), "", "box_tempo"},
          {dv::TestoCon(main.ui().Lang("0223"), "prova1.dvs"), "", "box_sostituire"}}) {
        auto box = dv::QtDialogService::box(&main, testo, titolo, dv::BoxIcon::Question, true);
        box->show();
        foto.scatta(*box, nome);
    }
    main.mostraAvviso(QString::fromStdString(main.ui().Lang("0224")));
    foto.scatta(main, "frmMAIN_avviso");
    main.mostraAvviso(QString());
    scattaDialogo<dv::frmVisualizza>(foto, main, "frmVisualizza");

    // The printing windows over the system: listing, slips with their progress, calibration.
    {
        dv::SlipCalibration cal;
        dv::frmTabulato tabulato(*corpo, main.ui(), main.impostazioni(), &main);
        tabulato.show();
        foto.scatta(tabulato, "frmTabulato");
        dv::frmStampa schede(*corpo, main.ui(), dialogs, main.impostazioni(), cal);
        schede.carica();
        schede.show();
        foto.scatta(schede, "frmStampa");
        schede.progresso().mostraScheda(QString::fromStdString(main.ui().Lang("0030")) + " n.00012");
        schede.progresso().show();
        foto.scatta(schede.progresso(), "frmPrnInCorso");
        schede.progresso().hide();
        dv::frmTaratura10eLotto taratura(*corpo, main.ui(), main.impostazioni(), cal, "PDF", &schede);
        taratura.carica();
        taratura.show();
        foto.scatta(taratura, "frmTaratura10eLotto");
    }

    // The room a 1280x800 screen leaves at 150% scaling, less the desktop's panels.
    main.resize(853, 500);
    foto.scatta(main, "frmMAIN_150");
    std::printf("frmMAIN minimum %dx%d\n", main.minimumSizeHint().width(), main.minimumSizeHint().height());
    main.resize(1280, 760);

    for (QMenu* menu : main.menuBar()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly))
        if (menu->menuAction()->isVisible() && !menu->objectName().isEmpty())
            foto.scattaMenu(*menu, menu->objectName());
    dv::ModificaSistema(*corpo, main.ui());
    dv::CancellaPronostico(*corpo, main.ui());
    if (auto* popup = main.findChild<QMenu*>(QStringLiteral("menuPopup")))
        foto.scattaMenu(*popup, "menuPopup");
    main.hide();
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    const QString out = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("build/screenshots");
    for (const char* lingua : {"italiano", "english"})
        fotografaLingua(lingua, out + "/" + lingua);
    return 0;
}
