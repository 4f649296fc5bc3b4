#include "platform/qt/QtAddForm.h"

#include <QComboBox>
#include <QDialog>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "platform/qt/Keys.h"
#include "platform/qt/Units.h"

QtAddForm::~QtAddForm() { delete dialog_; }

void QtAddForm::create(const AddCaptions& captions, AddFormListener& listener) {
    destroy();
    listener_ = &listener;
    auto* dialog = new QDialog(mainWindow_);
    dialog_ = dialog;
    connect(dialog, &QObject::destroyed, this, [this, dialog] {
        if (dialog_ == dialog) {
            dialog_ = nullptr;
        }
    });
    dialog_->setObjectName("addForm");
    makeControls(captions);
    layOut();
    dialog_->installEventFilter(this);
    for (QWidget* widget : fields_) {
        widget->installEventFilter(this);
    }
    connect(qobject_cast<QPushButton*>(control(AddControl::saveCmd)), &QPushButton::clicked, this,
            [this] { listener_->saveClicked(); });
    connect(qobject_cast<QPushButton*>(control(AddControl::cancelCmd)), &QPushButton::clicked, this,
            [this] { listener_->cancelClicked(); });
}

void QtAddForm::setTitle(std::u16string_view title) { dialog_->setWindowTitle(toQt(title)); }

void QtAddForm::setCaption(AddControl which, std::u16string_view caption) {
    if (auto* label = qobject_cast<QLabel*>(control(which))) {
        label->setText(toQt(caption));
    } else if (auto* button = qobject_cast<QPushButton*>(control(which))) {
        button->setText(toQt(caption));
    }
}

void QtAddForm::setEnabled(AddField which, bool enabled) { field(which)->setEnabled(enabled); }

void QtAddForm::setItems(AddField which, const std::vector<std::u16string>& items) {
    if (auto* combo = qobject_cast<QComboBox*>(field(which))) {
        combo->clear();
        for (const std::u16string& item : items) {
            combo->addItem(toQt(item));
        }
        combo->setCurrentIndex(-1);
    }
}

std::u16string QtAddForm::text(AddField which) const {
    if (!isOpen()) {
        return {};
    }
    const auto* combo = qobject_cast<const QComboBox*>(field(which));
    return fromQt(combo != nullptr ? combo->currentText() : qobject_cast<const QLineEdit*>(field(which))->text());
}

void QtAddForm::takeFocus(AddField which) {
    if (isOpen()) {
        field(which)->setFocus(Qt::OtherFocusReason);
    }
}

void QtAddForm::show() {
    dialog_->adjustSize();
    const QPoint centre = mainWindow_->frameGeometry().center();
    dialog_->move(centre - dialog_->rect().center());
    dialog_->show();
}

// The dialog itself goes later: this may be called by one of its own events.
void QtAddForm::destroy() {
    if (QDialog* dialog = dialog_; dialog != nullptr) {
        dialog_ = nullptr;
        dialog->removeEventFilter(this);
        dialog->hide();
        dialog->deleteLater();
    }
}

bool QtAddForm::eventFilter(QObject* watched, QEvent* event) {
    if (!isOpen()) {
        return false;
    }
    if (watched == dialog_) {
        return filterDialog(event);
    }
    if (event->type() == QEvent::KeyPress) {
        return characterTyped(watched, characterCode(*static_cast<QKeyEvent*>(event)));
    }
    if (event->type() == QEvent::InputMethod) {
        const QString typed = static_cast<QInputMethodEvent*>(event)->commitString();
        return characterTyped(watched, typed.isEmpty() ? 0 : typed.at(0).unicode());
    }
    return false;
}

bool QtAddForm::characterTyped(const QObject* watched, int characterCode) {
    const auto found = std::find(fields_.begin(), fields_.end(), watched);
    if (characterCode == 0 || found == fields_.end()) {
        return false;
    }
    const bool used = listener_->keyPressed(static_cast<AddField>(found - fields_.begin()), characterCode);
    return used || !isOpen();
}

bool QtAddForm::filterDialog(QEvent* event) {
    if (event->type() == QEvent::Close) {
        listener_->closeBoxClicked();
        event->setAccepted(!isOpen());
        return true;
    }
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        listener_->cancelClicked();
        return true;
    }
    return false;
}
