// The Add List dialog of the whole program, used by keyboard and read as by a screen reader.
#include "platform/win32/WindowFixture.h"

namespace {

using AddDialogTest = WindowFixture;

TEST_F(AddDialogTest, AddsARecordThroughTheDialog) {
    start();
    HWND drm = program().list(kDrm);
    HWND dialog = program().dialogBy('N', L"Add List--[DRM List]");
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(IsWindowEnabled(program().window()));

    // Enter in a field saves; an empty programme is rejected.
    ASSERT_TRUE(eventually([&] { return program().focus() == childOf(dialog, L"Edit", 1); }));
    pressKey(VK_RETURN);
    HWND refusal = program().dialog(L"Add List");
    ASSERT_NE(refusal, nullptr);
    EXPECT_EQ(messageOf(refusal), L"Programme: Input can't be empty");
    pressButton(refusal, IDOK);
    ASSERT_TRUE(eventually([&] { return IsWindow(refusal) == 0; }));

    SendMessageW(childOf(dialog, L"Edit", 1), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"\u7535\u53F0"));
    SendMessageW(childOf(dialog, L"Edit", 2), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"7100"));
    SendMessageW(childOf(dialog, L"Edit", 3), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Asia"));
    SendMessageW(childOf(dialog, L"ComboBox", 1), CB_SETCURSEL, 7, 0);
    SendMessageW(childOf(dialog, L"ComboBox", 2), CB_SETCURSEL, 5, 0);
    SendMessageW(childOf(dialog, L"ComboBox", 3), CB_SETCURSEL, 8, 0);
    SendMessageW(childOf(dialog, L"ComboBox", 4), CB_SETCURSEL, 0, 0);
    ASSERT_TRUE(eventually([&] { return program().focus() == childOf(dialog, L"Edit", 1); }));
    pressKey(VK_RETURN);
    ASSERT_TRUE(eventually([&] { return program().rowCount(drm) == 4; }));
    EXPECT_EQ(program().cell(drm, 4, 1), L"\u7535\u53F0");
    EXPECT_EQ(program().cell(drm, 4, 3), L"07:05-08:00");
    EXPECT_TRUE(statusBecomes(L"Total Number Of DRM List: 4"));
    EXPECT_TRUE(eventually([&] { return IsWindow(dialog) == 0 && IsWindowEnabled(program().window()) != 0; }));
    EXPECT_TRUE(eventually([&] { return GetForegroundWindow() == program().window(); }));
}

// The system derives the accessible name of a field from the label before it.
std::wstring labelBefore(HWND field) {
    HWND label = GetWindow(field, GW_HWNDPREV);
    wchar_t className[16]{};
    GetClassNameW(label, className, 16);
    if (_wcsicmp(className, L"Static") != 0) {
        return L"(none)";
    }
    std::wstring text = textOf(label);
    std::erase(text, L'&');
    return text;
}

TEST_F(AddDialogTest, EveryFieldHasAName) {
    start();
    ASSERT_TRUE(opensBoxAt(program().list(kDrm), 1, 1));
    EXPECT_EQ(labelBefore(program().box()), kDrm);
    pressKey(VK_RETURN);
    ASSERT_TRUE(eventually([&] { return !program().boxIsOpen(); }));
    HWND dialog = program().dialogBy('N', L"Add List--[DRM List]");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(labelBefore(childOf(dialog, L"Edit", 1)), L"Programme:");
    EXPECT_EQ(labelBefore(childOf(dialog, L"Edit", 2)), L"Frequency:");
    EXPECT_EQ(labelBefore(childOf(dialog, L"Edit", 3)), L"Target:");
    EXPECT_EQ(labelBefore(childOf(dialog, L"ComboBox", 1)), L"Start Time(UTC):");
    EXPECT_EQ(labelBefore(childOf(dialog, L"ComboBox", 2)), L"Start Time(UTC):");
    EXPECT_EQ(labelBefore(childOf(dialog, L"ComboBox", 3)), L"StopTime(UTC):");
    EXPECT_EQ(labelBefore(childOf(dialog, L"ComboBox", 4)), L"StopTime(UTC):");
}

TEST_F(AddDialogTest, TheTabOrderFollowsTheRowsThenTheButtons) {
    start();
    HWND dialog = program().dialogBy('N', L"Add List--[DRM List]");
    ASSERT_NE(dialog, nullptr);
    const HWND order[] = {childOf(dialog, L"Edit", 1),     childOf(dialog, L"Edit", 2),
                          childOf(dialog, L"ComboBox", 1), childOf(dialog, L"ComboBox", 2),
                          childOf(dialog, L"ComboBox", 3), childOf(dialog, L"ComboBox", 4),
                          childOf(dialog, L"Edit", 3),     GetDlgItem(dialog, IDOK),
                          GetDlgItem(dialog, IDCANCEL),    childOf(dialog, L"Edit", 1)};
    for (std::size_t i = 0; i + 1 < std::size(order); ++i) {
        EXPECT_EQ(GetNextDlgTabItem(dialog, order[i], FALSE), order[i + 1]) << i;
    }
    EXPECT_EQ(LOWORD(SendMessageW(dialog, DM_GETDEFID, 0, 0)), IDOK);
}

class AddDialogTestOpenList : public WindowFixture {
protected:
    void openDialog() {
        start();
        dialog = program().dialogBy('N', L"Add List--[DRM List]");
        ASSERT_NE(dialog, nullptr);
    }
    HWND combo(int number) const { return childOf(dialog, L"ComboBox", number); }
    static bool isListOpen(HWND combo) { return SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0; }
    void pressInOpenList(HWND combo, const std::vector<WPARAM>& keys) {
        SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
        ASSERT_TRUE(isListOpen(combo));
        for (const WPARAM key : keys) {
            PostMessageW(childOf(combo, L"Edit", 1), WM_KEYDOWN, key, 1);
        }
    }
    void expectRefusedSave() {
        HWND refusal = program().dialog(L"Add List");
        ASSERT_NE(refusal, nullptr);
        EXPECT_EQ(messageOf(refusal), L"Programme: Input can't be empty");
        pressButton(refusal, IDOK);
        ASSERT_TRUE(eventually([&] { return IsWindow(refusal) == 0; }));
    }

    HWND dialog = nullptr;
};

TEST_F(AddDialogTestOpenList, EscapeOnlyClosesTheListOfAStartTime) {
    openDialog();
    for (int times = 0; times < 3; ++times) {
        pressInOpenList(combo(1), {VK_ESCAPE});
        EXPECT_TRUE(eventually([&] { return !isListOpen(combo(1)); }));
    }
    EXPECT_TRUE(IsWindow(dialog));
    PostMessageW(childOf(combo(1), L"Edit", 1), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_TRUE(eventually([&] { return IsWindow(dialog) == 0; })) << "cancels once no list is open";
}

TEST_F(AddDialogTestOpenList, EnterTakesTheHighlightedEntryAndSaves) {
    openDialog();
    pressInOpenList(combo(2), {VK_DOWN, VK_DOWN, VK_RETURN});
    expectRefusedSave();
    EXPECT_FALSE(isListOpen(combo(2)));
    EXPECT_EQ(textOf(combo(2)), L"1");
}

TEST_F(AddDialogTestOpenList, EveryKeyClosesTheListOfAStopTimeAndSaves) {
    openDialog();
    for (const WPARAM key : {WPARAM{VK_ESCAPE}, WPARAM{VK_RETURN}, WPARAM{'7'}}) {
        pressInOpenList(combo(3), {key});
        expectRefusedSave();
        EXPECT_FALSE(isListOpen(combo(3)));
    }
    EXPECT_TRUE(IsWindow(dialog));
}

TEST_F(AddDialogTest, APasteOfAnyLengthEndsAtItsFirstLineBreak) {
    start();
    HWND dialog = program().dialogBy('N', L"Add List--[DRM List]");
    ASSERT_NE(dialog, nullptr);
    const std::wstring longText(70'000, L'x');
    ASSERT_TRUE(putOnClipboard(longText + L"\r\nmore"));
    for (HWND field :
         {childOf(dialog, L"Edit", 1), childOf(dialog, L"Edit", 3),
          childOf(childOf(dialog, L"ComboBox", 1), L"Edit", 1), childOf(childOf(dialog, L"ComboBox", 4), L"Edit", 1)}) {
        SendMessageW(field, WM_PASTE, 0, 0);
        EXPECT_EQ(SendMessageW(field, WM_GETTEXTLENGTH, 0, 0), static_cast<LRESULT>(longText.size()));
    }
}

TEST_F(AddDialogTest, CtrlWithALetterIsNeitherEnterNorEscape) {
    start();
    HWND dialog = program().dialogBy('N', L"Add List--[DRM List]");
    ASSERT_NE(dialog, nullptr);
    for (const int number : {2, 4}) {
        HWND combo = childOf(dialog, L"ComboBox", number);
        HWND field = childOf(combo, L"Edit", 1);
        // Ctrl+M and Ctrl+[ produce these characters. The key that follows shows that they have been handled.
        PostMessageW(field, WM_CHAR, 13, 1);
        PostMessageW(field, WM_CHAR, 27, 1);
        PostMessageW(field, WM_KEYDOWN, VK_DOWN, 1);
        ASSERT_TRUE(eventually([&] { return textOf(combo) == L"0"; }));
        EXPECT_EQ(FindWindowW(L"#32770", L"Add List"), nullptr) << "a refused record";
    }
    EXPECT_TRUE(IsWindow(dialog));
}

TEST_F(AddDialogTest, EscapeLeavesTheDialogButSavesInAStopTime) {
    start();
    HWND dialog = program().dialogBy('N', L"Add List--[DRM List]");
    ASSERT_NE(dialog, nullptr);
    HWND stopHour = childOf(childOf(dialog, L"ComboBox", 3), L"Edit", 1);
    PostMessageW(stopHour, WM_KEYDOWN, VK_ESCAPE, 1);
    HWND refusal = program().dialog(L"Add List");
    ASSERT_NE(refusal, nullptr);
    pressButton(refusal, IDOK);
    ASSERT_TRUE(eventually([&] { return IsWindow(refusal) == 0; }));
    PostMessageW(childOf(dialog, L"Edit", 2), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_TRUE(eventually([&] { return IsWindow(dialog) == 0 && IsWindowEnabled(program().window()) != 0; }));
    EXPECT_EQ(program().rowCount(program().list(kDrm)), 3);
}

}  // namespace
