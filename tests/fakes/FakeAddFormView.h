// The Add List dialog as plain values, with a simulated user.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/AddFormView.h"

class FakeAddFormView : public AddFormView {
public:
    struct FieldState {
        std::u16string text;
        bool enabled = true;
        std::vector<std::u16string> items;
        bool listOpen = false;
        std::u16string highlighted;  // in the list
    };

    void create(const AddCaptions& newCaptions, AddFormListener& newListener) override {
        ++createCount;
        if (failsToCreate) {
            return;
        }
        open = true;
        shown = false;
        captions = newCaptions;
        listener = &newListener;
        fields = {};
        focused.clear();
    }
    void setTitle(std::u16string_view newTitle) override { title = newTitle; }
    void setCaption(AddControl control, std::u16string_view caption) override {
        captions[static_cast<std::size_t>(control)] = caption;
    }
    void setEnabled(AddField field, bool enabled) override { at(field).enabled = enabled; }
    void setItems(AddField combo, const std::vector<std::u16string>& items) override { at(combo).items = items; }
    std::u16string text(AddField field) const override { return fields[static_cast<std::size_t>(field)].text; }
    bool isListOpen(AddField combo) const override { return fields[static_cast<std::size_t>(combo)].listOpen; }
    void closeList(AddField combo, bool takeHighlighted) override {
        at(combo).listOpen = false;
        if (takeHighlighted) {
            at(combo).text = at(combo).highlighted;
        }
    }
    void takeFocus(AddField field) override { focused.push_back(field); }
    void show() override { shown = true; }
    void destroy() override { open = shown = false; }
    bool isOpen() const override { return open; }

    FieldState& at(AddField field) { return fields[static_cast<std::size_t>(field)]; }
    const std::u16string& caption(AddControl control) const { return captions[static_cast<std::size_t>(control)]; }

    // As a backend does, passes the key to the listener first and then to the field. True if the listener handled it.
    bool press(AddField field, char16_t character) {
        if (listener->keyPressed(field, character)) {
            return true;
        }
        std::u16string& content = at(field).text;
        if (character == 27) {
            listener->cancelClicked();
        } else if (character == 8) {
            content.resize(content.empty() ? 0 : content.size() - 1);
        } else {
            content += character;
        }
        return false;
    }

    AddFormListener* listener = nullptr;
    int createCount = 0;
    bool failsToCreate = false;
    bool open = false;
    bool shown = false;
    std::u16string title;
    AddCaptions captions;
    std::array<FieldState, kAddFieldCount> fields;
    std::vector<AddField> focused;  // since create()
};
