// Real message boxes with captions in the system's language, which the hook replaces. With --chinese the system's
// language must be Chinese, otherwise English.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "messages/mMsgBox.h"
#include "platform/win32/Poll.h"
#include "platform/win32/Win32MessageBox.h"
#include "platform/win32/Win32WindowHook.h"

namespace {

using Captions = std::vector<std::wstring>;

bool& isChinese() {
    static bool value = false;
    return value;
}

BOOL CALLBACK collectButton(HWND child, LPARAM captions) {
    wchar_t text[64]{};
    GetClassNameW(child, text, 64);
    if (std::wstring_view(text) == L"Button") {
        GetWindowTextW(child, text, 64);
        reinterpret_cast<Captions*>(captions)->emplace_back(text);
    }
    return TRUE;
}

BOOL CALLBACK findBox(HWND window, LPARAM found) {
    wchar_t text[64]{};
    GetWindowTextW(window, text, 64);
    if (std::wstring_view(text) == L"Halcyon_K7" && GetForegroundWindow() == window) {
        *reinterpret_cast<HWND*>(found) = window;
    }
    return TRUE;
}

class MessageBoxTest : public testing::Test {
protected:
    // Reads the captions of the open box, then answers it.
    Captions shown(bool hooked, int style, int answer) {
        Captions captions;
        const DWORD thread = GetCurrentThreadId();
        std::thread user([this, &captions, thread, answer] {
            HWND window = nullptr;
            eventually([&] {
                EnumThreadWindows(thread, findBox, reinterpret_cast<LPARAM>(&window));
                return window != nullptr;
            });
            frame = GetWindowLongW(window, GWL_STYLE);
            EnumChildWindows(window, collectButton, reinterpret_cast<LPARAM>(&captions));
            PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(answer), 0);
        });
        const int given = hooked ? boxes.show(u"text", style) : boxes.showPlain(u"text", style);
        user.join();
        EXPECT_EQ(given, answer);
        return captions;
    }
    void expectButtons(int style, int answer, const Captions& chinese, const Captions& renamed,
                       const Captions& english) {
        EXPECT_EQ(shown(false, style, answer), isChinese() ? chinese : english);
        EXPECT_EQ(shown(true, style, answer), isChinese() ? renamed : english);
        // The hook has been removed.
        EXPECT_EQ(shown(false, style, answer), isChinese() ? chinese : english);
    }

    Win32MessageBox box{nullptr};
    Win32WindowHook hook;
    mMsgBox boxes{box, hook};
    LONG frame = 0;  // the style of the box last shown
};

TEST_F(MessageBoxTest, Ok) { expectButtons(BoxStyle::Ok, BoxAnswer::Ok, {L"确定"}, {L"Ok"}, {L"OK"}); }

TEST_F(MessageBoxTest, OkCancel) {
    expectButtons(BoxStyle::OkCancel, BoxAnswer::Cancel, {L"确定", L"取消"}, {L"Ok", L"Cancel"}, {L"OK", L"Cancel"});
}

TEST_F(MessageBoxTest, AbortRetryIgnore) {
    expectButtons(BoxStyle::AbortRetryIgnore, BoxAnswer::Retry, {L"中止(&A)", L"重试(&R)", L"忽略(&I)"},
                  {L"Abort(&A)", L"Retry(&R)", L"Ignore(&I)"}, {L"&Abort", L"&Retry", L"&Ignore"});
}

TEST_F(MessageBoxTest, YesNo) {
    expectButtons(BoxStyle::YesNo, BoxAnswer::No, {L"是(&Y)", L"否(&N)"}, {L"是(&Y)", L"否(&N)"}, {L"&Yes", L"&No"});
}

TEST_F(MessageBoxTest, HasNoButtonsToMinimiseAndMaximise) {
    shown(true, BoxStyle::Ok, BoxAnswer::Ok);
    EXPECT_NE(frame & WS_CAPTION, 0);
    EXPECT_EQ(frame & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX), 0);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    isChinese() =
        std::any_of(argv, argv + argc, [](const char* argument) { return std::string_view(argument) == "--chinese"; });
    return RUN_ALL_TESTS();
}
