// The window of the Add List dialog: controls only, no rules.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Text boxes first, then combo boxes.
enum class AddField { txtLabel, txtFreq, txtTarget, sHourComb, sMinComb, eHourComb, eMinComb };
inline constexpr int kAddFieldCount = 7;
inline constexpr std::array<const char*, kAddFieldCount> kAddFieldNames = {
    "txtLabel", "txtFreq", "txtTarget", "sHourComb", "sMinComb", "eHourComb", "eMinComb"};
constexpr bool isCombo(AddField field) { return field >= AddField::sHourComb; }

enum class AddControl { Label1, Label2, LaFreq, Label3, Label4, Label5, Label6, Label7, saveCmd, cancelCmd };
inline constexpr int kAddControlCount = 10;
inline constexpr std::array<const char*, kAddControlCount> kAddControlNames = {
    "Label1", "Label2", "LaFreq", "Label3", "Label4", "Label5", "Label6", "Label7", "saveCmd", "cancelCmd"};

// One row of the dialog, from left to right.
struct AddRow {
    AddControl label;  // names both fields for screen readers; its mnemonic, if any, moves the focus to the first
    AddField field;
    std::optional<AddControl> after = std::nullopt;  // the unit of the field, or the separator before the second field
    std::optional<AddField> second = std::nullopt;
};
// From top to bottom, which is also the tab order.
inline constexpr std::array<AddRow, 5> kAddRows = {{
    {AddControl::Label1, AddField::txtLabel},
    {AddControl::Label2, AddField::txtFreq, AddControl::LaFreq},
    {AddControl::Label3, AddField::sHourComb, AddControl::Label4, AddField::sMinComb},
    {AddControl::Label5, AddField::eHourComb, AddControl::Label6, AddField::eMinComb},
    {AddControl::Label7, AddField::txtTarget},
}};
// Side by side below the rows, and last in the tab order.
inline constexpr std::array kAddButtons = {AddControl::saveCmd, AddControl::cancelCmd};
inline constexpr AddControl kAddDefaultButton = AddControl::saveCmd;

// Captions by AddControl; "&" precedes the mnemonic.
using AddCaptions = std::array<std::u16string, kAddControlCount>;
inline std::u16string withoutMnemonic(std::u16string caption) {
    std::erase(caption, u'&');
    return caption;
}

class AddFormListener {
public:
    virtual ~AddFormListener() = default;
    // A key that produces a character code was pressed in a field, before the field handles it. Includes Enter (13),
    // Escape (27), Backspace (8) and Space (32), but not Tab, arrows, function and modifier keys, nor Ctrl+M and
    // Ctrl+[, which produce the codes of Enter and Escape. Also called while a combo's list is open. True: neither the
    // field nor the list gets the key.
    virtual bool keyPressed(AddField field, int characterCode) = 0;
    virtual void saveClicked() = 0;
    virtual void cancelClicked() = 0;  // the button, or Escape if no field handled it
    virtual void closeBoxClicked() = 0;
};

class AddFormView {
public:
    virtual ~AddFormView() = default;
    // Creates a new dialog, hidden, with empty fields and combos and the given captions. The dialog stays closed if the
    // system cannot create another window.
    virtual void create(const AddCaptions& captions, AddFormListener& listener) = 0;
    virtual void setTitle(std::u16string_view title) = 0;
    virtual void setCaption(AddControl control, std::u16string_view caption) = 0;
    virtual void setEnabled(AddField field, bool enabled) = 0;
    virtual void setItems(AddField combo, const std::vector<std::u16string>& items) = 0;  // no item is preselected
    // Texts have no maximum length; pasted text is cut as insertable() defines.
    virtual std::u16string text(AddField field) const = 0;
    virtual bool isListOpen(AddField combo) const = 0;
    // takeHighlighted: the highlighted entry, if any, becomes the text.
    virtual void closeList(AddField combo, bool takeHighlighted) = 0;
    virtual void takeFocus(AddField field) = 0;
    // Shows the dialog centred over the main window, modeless.
    virtual void show() = 0;
    // Closes and destroys the dialog without calling the listener. Allowed without an open dialog and within a listener
    // call.
    virtual void destroy() = 0;
    virtual bool isOpen() const = 0;
};
