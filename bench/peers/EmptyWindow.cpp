// What the toolkit costs before a program does anything with it: a main window with four empty tables.
#include <QApplication>
#include <QMainWindow>
#include <QTabWidget>
#include <QTableView>

int main(int argc, char** argv) {
    const QApplication app(argc, argv);
    QMainWindow window;
    auto* tabs = new QTabWidget(&window);
    for (const char* caption : {"DRM List", "AM List", "FM List", "Favourite"}) {
        tabs->addTab(new QTableView(tabs), caption);
    }
    window.setCentralWidget(tabs);
    window.resize(760, 540);  // as the program
    window.show();
    return QApplication::exec();
}
