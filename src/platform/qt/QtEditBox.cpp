#include "platform/qt/QtEditBox.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <utility>

#include "platform/qt/InsertionLimit.h"
#include "platform/qt/Keys.h"
#include "platform/qt/Units.h"

QtEditBox::QtEditBox(QWidget* client, std::function<void()> focusBehind)
    : edit_(new QLineEdit(client)), limit_(new InsertionLimit(edit_)), focusBehind_(std::move(focusBehind)) {
    edit_->setObjectName("txtEdit");
    edit_->hide();
    edit_->installEventFilter(this);
}

void QtEditBox::setLimit(int units) { limit_->setLimit(units); }

void QtEditBox::setText(std::u16string_view text) {
    const QString shown = toQt(text);
    limit_->exempt(shown);
    edit_->setText(shown);
    edit_->selectAll();
}

std::u16string QtEditBox::text() const { return fromQt(edit_->text()); }

void QtEditBox::setBounds(double left, double top, double width, double height) {
    edit_->setGeometry(toPixels(left), toPixels(top), toPixels(width), toPixels(height));
}

void QtEditBox::setVisible(bool visible) {
    visible_ = visible;
    if (visible) {
        edit_->raise();
    } else if (edit_->hasFocus()) {
        focusBehind_();
    }
    edit_->setVisible(visible);
}

void QtEditBox::takeFocus() { edit_->setFocus(Qt::OtherFocusReason); }

bool QtEditBox::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            return keyPressed(*static_cast<QKeyEvent*>(event));
        case QEvent::FocusOut:
            focusLost(*static_cast<QFocusEvent*>(event));
            return false;
        default:
            return QObject::eventFilter(watched, event);
    }
}

bool QtEditBox::keyPressed(const QKeyEvent& event) {
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool command = event.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier);
    if (enter && !command && listener_ != nullptr) {
        listener_->enterPressed();
    }
    // The box ignores these keys, and the window must not get them.
    return enter || event.key() == Qt::Key_Escape || isMnemonic(event);
}

void QtEditBox::focusLost(const QFocusEvent& event) {
    // The box's own context menu returns the focus when it closes.
    if (visible_ && event.reason() != Qt::PopupFocusReason && listener_ != nullptr) {
        listener_->lostFocus();
    }
}
