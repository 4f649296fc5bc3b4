// The window of the Add List dialog.
#pragma once

#include <QObject>
#include <array>
#include <optional>

#include "platform/AddFormView.h"

class QComboBox;
class QDialog;
class QKeyEvent;
class QLabel;
class QWidget;

class QtAddForm : public QObject, public AddFormView {
public:
    explicit QtAddForm(QWidget* mainWindow) : mainWindow_(mainWindow) {}
    ~QtAddForm() override;

    void create(const AddCaptions& captions, AddFormListener& listener) override;
    void setTitle(std::u16string_view title) override;
    void setCaption(AddControl control, std::u16string_view caption) override;
    void setEnabled(AddField field, bool enabled) override;
    void setItems(AddField combo, const std::vector<std::u16string>& items) override;
    std::u16string text(AddField field) const override;
    bool isListOpen(AddField combo) const override;
    void closeList(AddField combo, bool takeHighlighted) override;
    void takeFocus(AddField field) override;
    void show() override;
    void destroy() override;
    bool isOpen() const override { return dialog_ != nullptr; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeControls(const AddCaptions& captions);
    QLabel* makeLabel(AddControl which, const AddCaptions& captions);
    QWidget* makeField(AddField which, const QString& accessibleName);
    void makeButton(AddControl which, const AddCaptions& captions);
    void layOut();
    bool filterDialog(QEvent* event);
    bool keyPressed(QObject* watched, QKeyEvent& event);
    bool characterTyped(AddField field, int characterCode);
    // The field that `watched` or its list belongs to; nullopt for the dialog.
    std::optional<AddField> fieldOf(const QObject* watched) const;
    QComboBox* combo(AddField which) const;
    QWidget* field(AddField which) const { return fields_[static_cast<std::size_t>(which)]; }
    QWidget* control(AddControl which) const { return controls_[static_cast<std::size_t>(which)]; }

    QWidget* mainWindow_;
    QDialog* dialog_ = nullptr;  // owned by the main window; null if no dialog is open
    AddFormListener* listener_ = nullptr;
    // The fields of the open dialog, which owns them.
    std::array<QWidget*, kAddFieldCount> fields_{};
    std::array<QWidget*, kAddControlCount> controls_{};
};
