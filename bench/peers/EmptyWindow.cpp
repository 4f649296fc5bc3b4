// The cost of the toolkit alone: an empty main window or, with ALL_CONTROLS, the program's controls without content:
// four tables with their columns, tabs and a status bar.
#include <QApplication>
#include <QMainWindow>
#ifdef ALL_CONTROLS
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#endif

int main(int argc, char** argv) {
    const QApplication app(argc, argv);
    QMainWindow window;
#ifdef ALL_CONTROLS
    auto* tabs = new QTabWidget(&window);
    for (const char* caption : {"DRM List", "AM List", "FM List", "Favourite"}) {
        auto* table = new QTableView(tabs);
        auto* columns = new QStandardItemModel(table);
        columns->setHorizontalHeaderLabels({"Programme", "Frequency", "Time", "Target"});
        table->setModel(columns);
        tabs->addTab(table, caption);
    }
    window.setCentralWidget(tabs);
    window.statusBar()->showMessage(window.windowTitle());
#endif
    window.resize(760, 540);  // size of the program's window
    window.show();
    return QApplication::exec();
}
