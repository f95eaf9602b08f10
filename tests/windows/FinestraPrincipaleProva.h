// A main window on a data folder of its own for the window tests: the language files the test
// gives, boxes and choosers answered from a queue, and the gestures of a user on it.
#pragma once

#include "archive/Archivio.h"
#include "core/Cartelle.h"
#include "tests/windows/Controlli.h"
#include "tests/windows/QueueDialogs.h"
#include "windows/Aree.h"
#include "windows/frmCalcoloWorker.h"
#include "windows/frmMAIN.h"
#include "windows/frmMAINOperazioni.h"
#include "windows/QtUi.h"

#include <QAction>
#include <QCheckBox>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

namespace dv::test {

// The draws written as an archive file of records.
inline void ScriviArchivio(const std::string& path, const std::vector<Estrazione>& draws) {
    std::ofstream out(path, std::ios::binary);
    for (const Estrazione& e : draws)
        out.write(RecordEstrazione(e).data(), DimensioneRecordEstrazione);
}

// The text of a language file shipped with the program ("italiano", "english").
inline std::string LinguaSpedita(const std::string& nome) {
    std::ifstream in(DV_SOURCE_DIR "/languages/" + nome + ".lng", std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class FinestraPrincipaleProva {
protected:
    // A new main window, loaded and shown. Each pair is a language file's name and text; the
    // settings choose the first.
    void apri(std::initializer_list<std::pair<const char*, std::string>> lingue, bool mostra = true) {
        namespace fs = std::filesystem;
        m_dir = std::make_unique<QTemporaryDir>();
        m_corpo = std::make_unique<Corpo>();
        ImpostaAppDir(*m_corpo, m_dir->path().toStdString());
        for (const auto& [nome, testo] : lingue)
            std::ofstream(fs::path(m_corpo->AppDir) / (std::string(nome) + ".lng"), std::ios::binary)
                << testo;
        std::ofstream(fs::path(m_corpo->AppDir) / "dorvantaqvn.ini")
            << "[IMPOSTAZIONI]\nLINGUA=" << lingue.begin()->first << "\n";
        m_dialogs = std::make_unique<QueueDialogs>();
        m_main = std::make_unique<frmMAIN>(*m_corpo, *m_dialogs);
        m_main->carica();
        if (mostra) m_main->show();
    }
    // The main window in the shipped Italian, unseen, as the areas' windows are tested from it.
    void apriItaliano() { apri({{"italiano", LinguaSpedita("italiano")}}, false); }
    void chiudi() {
        if (m_corpo) m_corpo->ChiusuraInCorso = Vero;
        m_main.reset();
        m_corpo.reset();
        m_dir.reset();
    }

    QLabel* cella(int i) { return elementoArray<QLabel>(*m_main, QStringLiteral("grnum"), i); }
    QLabel* etichetta(const QString& name) { return m_main->findChild<QLabel*>(name); }
    QString pannello(int i) { return etichetta(QStringLiteral("StBar_%1").arg(i))->text(); }
    QWidget* controllo(const char* name) { return m_main->findChild<QWidget*>(QString::fromLatin1(name)); }
    bool abilitato(const char* name) {
        if (QAction* a = m_main->azione(QString::fromLatin1(name))) return a->isEnabled();
        return controllo(name)->isEnabled();
    }
    // Those of the named menu entries and controls that are enabled (with spuntati: the entries that
    // are checked), in the order given.
    QString abilitati(std::initializer_list<const char*> names, bool spuntati = false) {
        QStringList on;
        for (const char* name : names)
            if (spuntati ? m_main->azione(QString::fromLatin1(name))->isChecked() : abilitato(name))
                on << QString::fromLatin1(name);
        return on.join(QLatin1Char(' '));
    }
    void clicca(int i) { QTest::mouseClick(cella(i), Qt::LeftButton); }
    void scegliDa1A(int n) {
        for (int i = 0; i < n; ++i)
            clicca(i);
    }
    // "Elabora Sistema", waiting for the run to end.
    void sviluppa() {
        QSignalSpy spy(&m_main->operazioni().worker(), &frmCalcoloWorker::conclusa);
        QTest::mouseClick(m_main->pulsante(QStringLiteral("cmdCalcolo")), Qt::LeftButton);
        QVERIFY(spy.wait(120000));
    }
    // The first n cells of the grid, "1" for a chosen number.
    QString griglia(int n) {
        QString stato;
        for (int i = 0; i < n; ++i)
            stato += m_corpo->Griglia[static_cast<size_t>(i)] ? QLatin1Char('1') : QLatin1Char('0');
        return stato;
    }
    // The menu entry name, triggered.
    void menu(const char* name) { m_main->azione(QString::fromLatin1(name))->trigger(); }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Corpo> m_corpo;
    std::unique_ptr<QueueDialogs> m_dialogs;
    std::unique_ptr<frmMAIN> m_main;
};

} // namespace dv::test
