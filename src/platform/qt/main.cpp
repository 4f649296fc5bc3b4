#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QScopeGuard>
#include <QTranslator>

#include "platform/qt/ProgramFolder.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/QtSignals.h"
#include "platform/qt/Units.h"
#include "shell/Design.h"
#include "shell/MainForm.h"

int main(int argc, char** argv) {
    const QApplication app(argc, argv);
    const WindowDesign design = mainWindowDesign();
    QApplication::setApplicationName(toQt(design.caption));
    QApplication::setWindowIcon(QIcon(":/halcyon_k7.ico"));
    QApplication::setDesktopFileName("org.halcyon_k7.halcyon_k7");  // how a desktop finds the name and the icon
    QTranslator standardTexts;  // the toolkit's own: captions of standard buttons, menus of edit boxes
    if (standardTexts.load(QLocale::system(), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&standardTexts);
    }

    QtBackend backend(design, programFolder(QApplication::applicationDirPath(), QApplication::applicationName()));
    const QtSignals endRequests(backend.window());
    MainForm form(backend.platform());
    const auto widgetsFirst = qScopeGuard([&backend] { backend.window().destroyWidgets(); });
    if (!form.Form_Load() || backend.window().isClosed()) {
        return 0;
    }
    backend.window().show();
    return QApplication::exec();
}
