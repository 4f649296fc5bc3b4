// The standard keys of the system in the whole program.
#include "platform/win32/WindowFixture.h"

namespace {

class KeyboardTest : public WindowFixture {
protected:
    void expectMenuAtRow(HWND list, int row) {
        ASSERT_TRUE(eventually([&] { return program().menu() != nullptr; }));
        RECT menu{};
        GetWindowRect(program().menu(), &menu);
        RECT cell = program().cellBounds(list, row, 1);
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&cell), 2);
        EXPECT_NEAR(menu.top, (cell.top + cell.bottom) / 2, 3);
        EXPECT_GE(menu.left, cell.left);
    }
    bool menuGoes() {
        return eventually([&] { return program().menu() == nullptr; });
    }
};

TEST_F(KeyboardTest, TheMenuOpensAtTheSelectedRow) {
    start();
    HWND drm = program().list(kDrm);
    program().click(drm, 2, 2);
    ASSERT_TRUE(statusBecomes(L"Press 'Delete' Key To Delete "));
    pressKey(VK_APPS);
    expectMenuAtRow(drm, 2);
    pressKey(VK_ESCAPE);
    ASSERT_TRUE(menuGoes());

    pressKey(VK_DOWN);
    ASSERT_TRUE(eventually([&] { return SendMessageW(drm, LVM_GETITEMSTATE, 2, LVIS_SELECTED) != 0; }));
    ASSERT_TRUE(pressUntil([] { pressWithShift(VK_F10); }, [&] { return program().menu() != nullptr; }));
    expectMenuAtRow(drm, 3);
    pressKey('D');
    ASSERT_TRUE(menuGoes());
    EXPECT_TRUE(eventually([&] { return program().rowCount(drm) == 2; }));
    EXPECT_EQ(program().columnTexts(drm, 1), (std::vector<std::wstring>{L"Charlie", L"alpha"}));
}

TEST_F(KeyboardTest, OnlyTheEnterKeyEndsAnEditNotItsCharacter) {
    start();
    HWND drm = program().list(kDrm);
    ASSERT_TRUE(opensBoxAt(drm, 2, 1));
    // Ctrl+M, Ctrl+J and Escape produce these characters.
    for (const WPARAM character : {L'a', L'\r', L'\n', L'\x1b', L'b'}) {
        PostMessageW(program().box(), WM_CHAR, character, 1);
    }
    ASSERT_TRUE(eventually([&] { return textOf(program().box()) == L"ab"; }));
    EXPECT_TRUE(program().boxIsOpen());
    pressKey(VK_RETURN);
    EXPECT_TRUE(cellBecomes(drm, 2, 1, L"ab"));
}

// The letter underlined in the label.
WORD mnemonicOf(HWND label) {
    const std::wstring text = textOf(label);
    const std::size_t mark = text.find(L'&');
    return mark + 1 < text.size() && mark != std::wstring::npos ? static_cast<WORD>(towupper(text[mark + 1])) : WORD{0};
}

TEST_F(KeyboardTest, AMnemonicFocusesItsField) {
    start();
    HWND dialog = program().dialogBy('N', L"Add List--[DRM List]");
    ASSERT_NE(dialog, nullptr);
    ASSERT_TRUE(eventually([&] { return program().focus() == childOf(dialog, L"Edit", 1); }));
    const auto mnemonicLeadsTo = [&](HWND field) {
        const WORD letter = mnemonicOf(GetWindow(field, GW_HWNDPREV));
        return letter != 0 &&
               pressUntil([letter] { pressWithAlt(letter); },
                          [&] { return program().focus() == field || IsChild(field, program().focus()); });
    };
    for (HWND field : {childOf(dialog, L"Edit", 2), childOf(dialog, L"ComboBox", 1), childOf(dialog, L"Edit", 3),
                       childOf(dialog, L"ComboBox", 3), childOf(dialog, L"Edit", 1)}) {
        EXPECT_TRUE(mnemonicLeadsTo(field));
    }
}

}  // namespace
