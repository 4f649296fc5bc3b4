// The status bar StatusBar1.
#pragma once

#include <QObject>
#include <QTimer>

#include "platform/StatusBar.h"

class QLabel;
class QStatusBar;
class QWidget;

class QtStatusBar : public QObject, public StatusBar {
public:
    explicit QtStatusBar(QWidget* client);  // the client area owns the widget

    QStatusBar* widget() const { return bar_; }

    void setMessage(std::u16string_view text) override;

private:
    QLabel* addPanel(const char* objectName, int stretch);
    void addSeparator();
    void addSizeGrip();
    void showClock();

    QStatusBar* bar_;
    QLabel* message_;
    QLabel* date_;
    QLabel* time_;
    QTimer minute_{this};
};
