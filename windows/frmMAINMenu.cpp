// The menus of the main window. Entries whose windows are not part of the program yet are built
// hidden, so that their names exist and the language file finds them when they arrive.
#include "windows/frmMAIN.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace dv {

namespace {
struct Voce {
    const char* name; // null for a separator
    const char* caption;
    bool visible;
};

struct Menu {
    const char* name;
    const char* caption;
    std::initializer_list<Voce> voci;
};

// clang-format off
const Menu Menus[] = {
    {"menufile", "&File", {
        {"menuNuovo", "&Nuovo", true},
        {"menuApri", "&Apri", false},
        {nullptr, nullptr, true},
        {"menuImportaColonne", "I&mporta Colonne Txt", false},
        {nullptr, nullptr, true},
        {"menuSalva", "&Salva", false},
        {"menuSalvaConNome", "Salva &con nome", false},
        {"menuSalvaComeMatrice", "Salva come Matrice", false},
        {nullptr, nullptr, true},
        {"menuEsportaColonne", "Espor&ta Colonne Txt", false},
        {"mnuElencoSistemiImmediati", "&Elenco Matrici", false},
        {nullptr, nullptr, true},
        {"menuImpostazioni", "&Impostazioni", false},
        {nullptr, nullptr, true},
        {"menuUscita", "&Uscita", true}}},
    {"menuCondizioni", "&Condizioni", {
        {"menuColonnaFiltroAND", "&Colonne Filtro AND", false},
        {"menuColonnaFiltroOR", "Colonne Filtro &OR", false},
        {"menuColonnaFiltroXOR", "Colonne Filtro &XOR", false},
        {"menuDistanzaNumeri", "&Distanza Numeri", false},
        {"menuConsecutivi", "C&onsecutivi", false},
        {"menuFisse", "&Fisse", false},
        {"menuPariDispari", "&Pari e Dispari", false},
        {"menuSomma", "&Somma", false},
        {nullptr, nullptr, true},
        {"menuRidotto", "&Ridotto a Garanzia", false},
        {"menuDistanzaMinima", "Ridotto a &Distanza Minima", false}}},
    {"menuOperazioni", "&Operazioni", {
        {"menuAdattaMatrice", "&Adatta Matrice", false},
        {"menuMescola", "&Mescola Colonne", true},
        {"menuCalcolo", "&Elabora Sistema", true},
        {nullptr, nullptr, true},
        {"menuSpoglio", "&Spoglio Sistema", false},
        {"menuSpoglioEstrazioni", "Spoglio Est&razioni", false},
        {"menuVisualizza", "&Visualizza Sistema", false},
        {nullptr, nullptr, true},
        {"menuArchivioEstrazioni", "&Archivio Estrazioni", false},
        {"menuStatistiche", "S&tatistiche Estrazioni", false},
        {nullptr, nullptr, true},
        {"menuModifiche", "&Modifica Sistema", true}}},
    {"menustampa", "&Stampa", {
        {"menuTabulato", "Stampa &Tabulato", false},
        {"menuSchedine", "Stampa &Schedine", false}}},
    {"menuStrumenti", "Strume&nti", {
        {"menuVerificaSistema", "Verifica Sistema", false},
        {"menuUltimate", "Ultimate", false},
        {"menuApriDirectory", "Apri directory", true}}},
};
// clang-format on
} // namespace

void frmMAIN::costruisciMenu() {
    for (const Menu& m : Menus) {
        QMenu* menu = menuBar()->addMenu(QString::fromUtf8(m.caption));
        menu->setObjectName(QString::fromLatin1(m.name));
        menu->menuAction()->setObjectName(QString::fromLatin1(m.name));
        for (const Voce& v : m.voci) {
            QAction* action = v.name ? menu->addAction(QString::fromUtf8(v.caption)) : menu->addSeparator();
            if (v.name) action->setObjectName(QString::fromLatin1(v.name));
            action->setVisible(v.visible);
        }
    }
    // The condition entries of the conditions menu can carry a check mark.
    for (QAction* a : menu(QStringLiteral("menuCondizioni"))->actions())
        if (!a->isSeparator()) a->setCheckable(true);
    // The about window is not part of the program yet.
    QAction* info = menuBar()->addAction(QStringLiteral("&Info"));
    info->setObjectName(QStringLiteral("menuinfo"));
    info->setVisible(false);
    aggiornaVisibilitaMenu();
}

void frmMAIN::aggiornaVisibilitaMenu() {
    // A menu shows only while it has a visible entry; a separator needs a visible entry before it.
    for (QMenu* m : menuBar()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
        bool any = false;
        for (QAction* a : m->actions())
            if (!a->isSeparator() && a->isVisible()) any = true;
        m->menuAction()->setVisible(any);
    }
}

} // namespace dv
