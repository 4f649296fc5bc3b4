// The toolkit's message box with its standard buttons.
#pragma once

#include "platform/MessageBox.h"

class QWidget;

class QtMessageBox : public StandardMessageBox {
public:
    explicit QtMessageBox(QWidget* mainWindow) : mainWindow_(mainWindow) {}

    int show(std::u16string_view text, int style, std::u16string_view title) override;

private:
    QWidget* mainWindow_;
};
