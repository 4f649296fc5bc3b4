// The edit box txtEdit.
#pragma once

#include <QObject>
#include <functional>

#include "platform/EditBox.h"

class InsertionLimit;
class QFocusEvent;
class QKeyEvent;
class QLineEdit;
class QWidget;

class QtEditBox : public QObject, public EditBox {
public:
    // The client area owns the widget. If the box has the focus when it is hidden, focusBehind gives the focus to the
    // control below it.
    QtEditBox(QWidget* client, std::function<void()> focusBehind);

    QLineEdit* widget() const { return edit_; }

    void setListener(EditBoxListener& listener) override { listener_ = &listener; }
    void setLimit(int units) override;
    void setText(std::u16string_view text) override;
    std::u16string text() const override;
    void setBounds(double left, double top, double width, double height) override;
    void setVisible(bool visible) override;
    void takeFocus() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool keyPressed(const QKeyEvent& event);
    void focusLost(const QFocusEvent& event);

    QLineEdit* edit_;
    InsertionLimit* limit_;
    std::function<void()> focusBehind_;
    EditBoxListener* listener_ = nullptr;
    bool visible_ = false;
};
