// Closes the main window, as its close box does, when the system asks the program to end (SIGTERM, SIGINT, SIGHUP, end
// of the session).
#pragma once

#include <QObject>
#include <array>

class MainWindow;

class QtSignals : public QObject {
public:
    explicit QtSignals(MainWindow& window);  // the window outlives this object
    ~QtSignals() override;

private:
    std::array<int, 2> pipe_{-1, -1};
};
