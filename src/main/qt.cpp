#include <QApplication>
#include <QIcon>
#include <QImageReader>
#include <QLibraryInfo>
#include <QLocale>
#include <QPixmap>
#include <QScopeGuard>
#include <QTranslator>

#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixProgramFolders.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/QtSignals.h"
#include "platform/qt/Units.h"
#include "shell/Design.h"
#include "shell/MainForm.h"
#include "shell/ProgramFolder.h"

namespace {

// Small sizes only: decoding the large picture, meant for file managers, would take a tenth of the start.
QIcon windowIcon() {
    constexpr int kLargest = 48;  // pixels
    QIcon icon;
    QImageReader reader(":/halcyon_k7.ico");
    for (int picture = 0; reader.jumpToImage(picture); ++picture) {
        if (reader.size().width() <= kLargest) {
            icon.addPixmap(QPixmap::fromImageReader(&reader));
        }
    }
    return icon;
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication app(argc, argv);
    const WindowDesign design = mainWindowDesign();
    QApplication::setApplicationName(toQt(design.caption));
    QApplication::setWindowIcon(windowIcon());
    QApplication::setDesktopFileName(
        "org.halcyon_k7.halcyon_k7");  // identifies the desktop entry with the program's name and icon
    QTranslator standardTexts;         // Qt's own texts: captions of standard buttons, menus of edit boxes
    if (standardTexts.load(QLocale::system(), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&standardTexts);
    }

    PosixProgramFolders folders;
    PosixFiles files;
    QtBackend backend(design, findProgramFolder(folders, files));
    const QtSignals endRequests(backend.window());
    MainForm form(backend.platform());
    const auto widgetsFirst = qScopeGuard([&backend] { backend.window().destroyWidgets(); });
    if (!form.Form_Load() || backend.window().isClosed()) {
        return 0;
    }
    backend.window().show();
    return QApplication::exec();
}
