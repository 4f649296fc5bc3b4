// Scope guard: the program's windows repaint but take no input from the user.
#pragma once

#include <QObject>

class InputBlock : public QObject {
public:
    InputBlock();
    ~InputBlock() override;

    bool eventFilter(QObject* watched, QEvent* event) override;
};
