// The Add List dialog on fakes, with a simulated user.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "adding/AddingFixture.h"
#include "adding/addForm.h"
#include "fakes/FakeAddFormView.h"

inline constexpr char16_t kEnter = 13;
inline constexpr std::array<AddField, 7> kAllFields = {AddField::txtLabel,  AddField::txtFreq,  AddField::txtTarget,
                                                       AddField::sHourComb, AddField::sMinComb, AddField::eHourComb,
                                                       AddField::eMinComb};
inline constexpr std::array<AddField, 4> kCombos = {AddField::sHourComb, AddField::sMinComb, AddField::eHourComb,
                                                    AddField::eMinComb};

class AddListFixture : public AddingFixture {
protected:
    void openFor(ListKind kind) {
        showTab(kind);
        form.open();
        ASSERT_TRUE(dialog.shown);
    }
    void type(AddField field, std::u16string text) { dialog.at(field).text = std::move(text); }
    void typeDrm(std::u16string frequency = u"9620", std::u16string target = u"Europe") {
        type(AddField::txtLabel, u"Radio");
        type(AddField::txtFreq, std::move(frequency));
        type(AddField::txtTarget, std::move(target));
    }
    void typeTimes(const std::array<std::u16string, 4>& times) {
        for (std::size_t i = 0; i < times.size(); ++i) {
            type(kCombos[i], times[i]);
        }
    }
    void typeValidDrm() {
        typeDrm();
        typeTimes({u"7", u"5", u"8", u"0"});
    }
    void typePlain(std::u16string frequency) {
        type(AddField::txtLabel, u"Radio");
        type(AddField::txtFreq, std::move(frequency));
    }
    void save() { dialog.listener->saveClicked(); }
    // Saves, expects one message and an unchanged dialog.
    void saveRefused(std::u16string message) {
        const int before = rowsOfAllLists();
        const auto typed = texts();
        box.expect({std::move(message), u"Add List"});
        save();
        EXPECT_TRUE(box.allShown());
        EXPECT_TRUE(dialog.isOpen());
        EXPECT_FALSE(mainWindow.enabled);
        EXPECT_EQ(texts(), typed);
        EXPECT_EQ(rowsOfAllLists(), before);
    }
    int rowsOfAllLists() const {
        int rows = 0;
        for (const RowStore& list : grids) {
            rows += list.rowCount();
        }
        return rows;
    }
    std::vector<std::u16string> texts() const {
        std::vector<std::u16string> result;
        result.reserve(kAllFields.size());
        for (const AddField field : kAllFields) {
            result.push_back(dialog.text(field));
        }
        return result;
    }
    void expectClosed() {
        EXPECT_FALSE(dialog.isOpen());
        EXPECT_TRUE(mainWindow.enabled);
    }

    FakeMainWindow mainWindow;
    FakeAddFormView dialog;
    addForm form{dialog, mainWindow, currentTab, lists, {messages, totals}};
};
