#include "platform/qt/QtAddForm.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

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
        if (auto* combo = qobject_cast<QComboBox*>(widget)) {
            combo->view()->installEventFilter(this);  // gets the keys while the list is open
        }
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

bool QtAddForm::isListOpen(AddField which) const { return isOpen() && combo(which)->view()->isVisible(); }

void QtAddForm::closeList(AddField which, bool takeHighlighted) {
    QComboBox* combo = this->combo(which);
    const QModelIndex highlighted = combo->view()->currentIndex();
    if (takeHighlighted && highlighted.isValid()) {
        combo->setCurrentIndex(highlighted.row());
    }
    combo->hidePopup();
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

// Deletes the dialog later, since one of its own events may be on the call stack.
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
    const std::optional<AddField> field = fieldOf(watched);
    if (field && event->type() == QEvent::KeyPress) {
        return keyPressed(watched, *static_cast<QKeyEvent*>(event));
    }
    if (field && event->type() == QEvent::ShortcutOverride && watched != this->field(*field)) {
        // Otherwise Qt's list handles Enter and Escape as shortcuts, before their key events.
        event->setAccepted(characterCode(*static_cast<QKeyEvent*>(event)) != 0);
        return event->isAccepted();
    }
    if (field && event->type() == QEvent::InputMethod) {
        const QString typed = static_cast<QInputMethodEvent*>(event)->commitString();
        return !typed.isEmpty() && characterTyped(*field, typed.at(0).unicode());
    }
    return false;
}

bool QtAddForm::keyPressed(QObject* watched, QKeyEvent& event) {
    const int code = characterCode(event);
    if (code == 0) {
        return isMnemonic(event);
    }
    const AddField typedInto = *fieldOf(watched);
    const bool isInList = watched != field(typedInto);
    const bool used = characterTyped(typedInto, code);
    if (!used && isInList) {
        QApplication::sendEvent(combo(typedInto)->lineEdit(),
                                &event);  // not to the list, which would search for an entry
    }
    return used || isInList;
}

bool QtAddForm::characterTyped(AddField field, int characterCode) {
    return listener_->keyPressed(field, characterCode) || !isOpen();
}

std::optional<AddField> QtAddForm::fieldOf(const QObject* watched) const {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const auto which = static_cast<AddField>(i);
        if (watched == fields_[i] || (isCombo(which) && watched == combo(which)->view())) {
            return which;
        }
    }
    return std::nullopt;
}

QComboBox* QtAddForm::combo(AddField which) const { return qobject_cast<QComboBox*>(field(which)); }

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
