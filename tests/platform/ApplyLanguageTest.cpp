#include "platform/ApplyLanguage.h"
#include "platform/cCommonDialog.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>

#include <fstream>

#include <gtest/gtest.h>

namespace {

template <typename T> T* crea(QWidget& parent, const char* name, const QString& text, int index = -1) {
    auto* w = new T(text, &parent);
    w->setObjectName(QString::fromLatin1(name));
    if (index >= 0) w->setProperty("index", index);
    return w;
}

struct Finestra {
    QWidget form;
    QPushButton* cmdSalva;
    QRadioButton* opt0;
    QRadioButton* opt1;
    QTabWidget* tabs;
    QMenu* menufile;
    QAction* menuNuovo;

    Finestra() {
        form.setObjectName(QStringLiteral("frmProva"));
        form.setWindowTitle(QStringLiteral("Prova"));
        cmdSalva = crea<QPushButton>(form, "cmdSalva", QStringLiteral("Salva"));
        opt0 = crea<QRadioButton>(form, "optModo", QStringLiteral("FILE"), 0);
        opt1 = crea<QRadioButton>(form, "optModo", QStringLiteral("MEMORIA"), 1);
        tabs = new QTabWidget(&form);
        tabs->setObjectName(QStringLiteral("tabs"));
        tabs->addTab(new QWidget, QStringLiteral("Uno"));
        tabs->addTab(new QWidget, QStringLiteral("Due"));
        auto* bar = new QMenuBar(&form);
        menufile = bar->addMenu(QStringLiteral("&File"));
        menufile->setObjectName(QStringLiteral("menufile"));
        menuNuovo = menufile->addAction(QStringLiteral("&Nuovo"));
        menuNuovo->setObjectName(QStringLiteral("menuNuovo"));
    }
};

} // namespace

TEST(ApplyLanguage, ReplacesCaptionsToolTipsAndTagsByNameAndAMissingFileOnlyEmptiesTabs) {
    QTemporaryDir dir;
    Finestra w;
    const std::string file = dir.filePath(QStringLiteral("x.lng")).toStdString();
    std::ofstream(file, std::ios::binary) << "[frmProva]\r\n"
                                             "frmProva.Caption=\"Test\"\r\n"
                                             "cmdSalva.Caption=\"Save \xE0\"\r\n"
                                             "cmdSalva.ToolTipText=\"Saves\"\r\n"
                                             "cmdSalva.Tag=\"7\"\r\n"
                                             "optModo(1).Caption=\"MEMORY\"\r\n"
                                             "optModo.Caption=\"not for elements\"\r\n"
                                             "tabs.TabCaption(0)=\"One\"\r\n"
                                             "menufile.Caption=\"&Filez\"\r\n"
                                             "menuNuovo.Caption=\"&New\"\r\n"
                                             "menuNuovo.ToolTipText=\"A new system\"\r\n"
                                             "[Other]\r\n"
                                             "cmdSalva.Caption=\"wrong section\"\r\n";
    dv::ApplyLanguage(w.form, file);
    EXPECT_EQ(w.form.windowTitle(), "Test");
    EXPECT_EQ(w.cmdSalva->text(), QString::fromUtf8("Save à"));
    EXPECT_EQ(w.cmdSalva->toolTip(), "Saves");
    EXPECT_EQ(w.cmdSalva->property("tag").toString(), "7");
    EXPECT_EQ(w.opt0->text(), "FILE"); // no key for element 0: it stays
    EXPECT_EQ(w.opt1->text(), "MEMORY");
    EXPECT_EQ(w.menufile->title(), "&Filez");
    EXPECT_EQ(w.menuNuovo->text(), "&New");
    EXPECT_EQ(w.menuNuovo->toolTip(), "A new system");
    // Tabs take what the file says, even nothing.
    EXPECT_EQ(w.tabs->tabText(0), "One");
    EXPECT_EQ(w.tabs->tabText(1), "");

    // No language changes nothing; a missing file only empties the tabs.
    dv::ApplyLanguage(w.form, "");
    EXPECT_EQ(w.tabs->tabText(0), "One");
    dv::ApplyLanguage(w.form, "/nonexistent/x.lng");
    EXPECT_EQ(w.form.windowTitle(), "Test");
    EXPECT_EQ(w.tabs->tabText(0), "");
}

TEST(cCommonDialog, SaveAsksBeforeReplacingTheFileANameWithoutExtensionComesToName) {
    QTemporaryDir dir;
    std::ofstream(dir.filePath(QStringLiteral("prova.dvs")).toStdString()) << "old";
    bool asked = false;
    QTimer::singleShot(0, [&asked] {
        auto* chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(chooser, nullptr);
        chooser->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("prova"));
        QTimer::singleShot(0, [&asked, chooser = QPointer<QFileDialog>(chooser)] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            asked = box != nullptr;
            if (box) box->button(QMessageBox::No)->click();
            if (chooser) chooser->reject();
        });
        QMetaObject::invokeMethod(chooser, "accept"); // the button "Save"
    });
    EXPECT_EQ(dv::cCommonDialog::ShowSave(nullptr, dir.path().toStdString(), "File Dorvanta (*.dvs)|*.dvs",
                                          ".dvs", "nuovo.dvs"),
              "");
    EXPECT_TRUE(asked);
}

TEST(cCommonDialog, FiltersAndDefaultExtension) {
    EXPECT_EQ(dv::cCommonDialog::FiltroQt("txt(*.txt)|*.txt|Tutti|*.*"), "txt (*.txt);;Tutti (*)");
    EXPECT_EQ(dv::cCommonDialog::FiltroQt("Immagini|*.bmp;*.png"), "Immagini (*.bmp *.png)");
    EXPECT_EQ(dv::cCommonDialog::ConEstensione("/a/nuovo.txt", ".dvs"), "/a/nuovo.txt");
    EXPECT_EQ(dv::cCommonDialog::ConEstensione("/a.b/nuovo", "dvs"), "/a.b/nuovo.dvs");
}
