// Runs the contract cases on the Win32 backend with real windows.
#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <shellapi.h>

#include <algorithm>
#include <array>

#include "contract/Backend.h"
#include "contract/SmallDesign.h"
#include "platform/MainWindow.h"
#include "platform/win32/Handle.h"
#include "platform/win32/Program.h"
#include "platform/win32/TemporaryFolder.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32CodePages.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32HttpClient.h"
#include "platform/win32/Win32MainWindow.h"
#include "platform/win32/Win32SingleInstance.h"
#include "platform/win32/Win32TextCompare.h"

namespace {

constexpr wchar_t kOtherProcess[] = L"--take-the-place-in";

void dispatchPending() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

class Win32TestFolder final : public TestFolder {
public:
    ~Win32TestFolder() override {
        for (const std::u16string& name : names()) {
            SetFileAttributesW(toWide(path() + name).c_str(), FILE_ATTRIBUTE_NORMAL);
        }
    }
    std::u16string path() const override { return fromWide(folder_.path().wstring()) + u'\\'; }
    void makeFolder(std::u16string_view path) override { CreateDirectoryW(toWide(path).c_str(), nullptr); }
    void makeReadOnly(std::u16string_view path) override {
        SetFileAttributesW(toWide(path).c_str(), FILE_ATTRIBUTE_READONLY);
    }
    bool isReadOnly(std::u16string_view path) const override {
        return (GetFileAttributesW(toWide(path).c_str()) & FILE_ATTRIBUTE_READONLY) != 0;
    }
    std::vector<std::u16string> names() const override {
        std::vector<std::u16string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
            found.push_back(fromWide(entry.path().filename().wstring()));
        }
        std::sort(found.begin(), found.end());
        return found;
    }

private:
    TemporaryFolder folder_;
};

class Win32GridViewProbe : public GridViewProbe {
public:
    Win32GridViewProbe() { window_.show(SW_SHOW); }

    GridView& view() override { return window_.grid(0); }
    int shownRows() override { return static_cast<int>(SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0)); }
    std::u16string shownText(int row, int column) override {
        std::array<wchar_t, 256> text{};
        LVITEMW item{};
        item.iSubItem = column - 1;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageW(list(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row - 1), reinterpret_cast<LPARAM>(&item));
        return fromWide(text.data());
    }
    bool shownSelected(int row) override {
        return SendMessageW(list(), LVM_GETITEMSTATE, static_cast<WPARAM>(row - 1), LVIS_SELECTED) != 0;
    }
    void userSelects(int row) override { click(row, 0); }
    void userExtendsTo(int row) override {
        std::array<BYTE, 256> keys{};
        GetKeyboardState(keys.data());
        keys[VK_SHIFT] = 0x80;
        SetKeyboardState(keys.data());
        click(row, MK_SHIFT);
        keys[VK_SHIFT] = 0;
        SetKeyboardState(keys.data());
    }

    int userScrollsToTheRight() override {
        const int before = firstRow().left;
        SendMessageW(list(), LVM_SCROLL, 10000, 0);
        return before - firstRow().left;
    }
    void userPointsAt(int x) override { SendMessageW(list(), WM_MOUSEMOVE, 0, MAKELPARAM(x, firstRow().top + 1)); }

private:
    HWND list() { return window_.grid(0).window(); }
    RECT firstRow() {
        RECT bounds{};
        bounds.left = LVIR_BOUNDS;
        SendMessageW(list(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&bounds));
        return bounds;
    }
    void click(int row, WPARAM modifier) {
        RECT cell{};
        cell.left = LVIR_BOUNDS;
        SendMessageW(list(), LVM_GETITEMRECT, static_cast<WPARAM>(row - 1), reinterpret_cast<LPARAM>(&cell));
        const LPARAM at = MAKELPARAM(cell.left + 10, (cell.top + cell.bottom) / 2);
        // Queue the release first: the control waits for it while handling the press.
        PostMessageW(list(), WM_LBUTTONUP, modifier, at);
        SendMessageW(list(), WM_LBUTTONDOWN, MK_LBUTTON | modifier, at);
        dispatchPending();
    }

    Win32MainWindow window_{smallDesign()};
};

class Win32EditBoxProbe : public EditBoxProbe {
public:
    Win32EditBoxProbe() { window_.show(SW_SHOW); }

    EditBox& box() override { return window_.editBox(); }
    void type(std::u16string_view text) override {
        for (const char16_t unit : text) {
            SendMessageW(edit(), WM_CHAR, unit, 1);
        }
    }
    void paste(std::u16string_view text) override {
        ASSERT_TRUE(putOnClipboard(toWide(text)));
        SendMessageW(edit(), WM_PASTE, 0, 0);
    }
    void pressEnd() override { SendMessageW(edit(), WM_KEYDOWN, VK_END, 1); }
    void pressBackspace() override { SendMessageW(edit(), WM_CHAR, VK_BACK, 1); }

private:
    HWND edit() { return window_.editBox().window(); }

    Win32MainWindow window_{smallDesign()};
};

// Starts this program again, which claims the folder of its command line and reports through standard output.
class Win32OtherProcess final : public OtherProcess {
public:
    explicit Win32OtherProcess(std::u16string_view folder) {
        std::array<wchar_t, MAX_PATH> program{};
        GetModuleFileNameW(nullptr, program.data(), MAX_PATH);
        // A trailing separator would escape the closing quote.
        std::wstring command =
            L'"' + std::wstring(program.data()) + L"\" " + kOtherProcess + L" \"" + toWide(folder) + L"\\\"";
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        HANDLE writeEnd = nullptr;
        CreatePipe(&readEnd_, &writeEnd, &inherited, 0);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = writeEnd;
        startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
        EXPECT_NE(CreateProcessW(program.data(), command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                                 &process_),
                  0);
        CloseHandle(writeEnd);
    }
    ~Win32OtherProcess() override {
        kill();
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
        CloseHandle(readEnd_);
    }

    bool gotThePlace() override {
        char answer = 0;
        DWORD got = 0;
        EXPECT_TRUE(ReadFile(readEnd_, &answer, 1, &got, nullptr) != 0 && got == 1);
        return answer == 'y';
    }
    void kill() override {
        TerminateProcess(process_.hProcess, 1);
        WaitForSingleObject(process_.hProcess, INFINITE);
    }

private:
    HANDLE readEnd_ = nullptr;
    PROCESS_INFORMATION process_{};
};

int runAsOtherProcess(const wchar_t* folder) {
    Win32SingleInstance instance(fromWide(folder));
    const char answer = instance.previousInstance() ? 'n' : 'y';
    DWORD put = 0;
    if (WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), &answer, 1, &put, nullptr) == 0) {
        return 1;
    }
    Sleep(INFINITE);  // until killed
    return 0;
}

class Win32BackendUnderTest : public Backend {
public:
    std::unique_ptr<TestFolder> folder() override { return std::make_unique<Win32TestFolder>(); }
    Files& files() override { return files_; }
    std::unique_ptr<CodePages> codePages() override { return std::make_unique<Win32CodePages>(); }
    std::vector<std::unique_ptr<TextCompare>> textCompares() override {
        std::vector<std::unique_ptr<TextCompare>> all;
        all.push_back(std::make_unique<Win32TextCompare>());
        for (const wchar_t* name : {L"en-US", L"de-DE", L"zh-CN"}) {
            all.push_back(std::make_unique<Win32TextCompare>(name));
        }
        return all;
    }
    std::unique_ptr<GridViewProbe> gridView() override { return std::make_unique<Win32GridViewProbe>(); }
    std::unique_ptr<EditBoxProbe> editBox() override { return std::make_unique<Win32EditBoxProbe>(); }
    std::unique_ptr<SingleInstance> singleInstance(std::u16string_view folder) override {
        return std::make_unique<Win32SingleInstance>(folder);
    }
    std::unique_ptr<OtherProcess> otherProcess(std::u16string_view folder) override {
        return std::make_unique<Win32OtherProcess>(folder);
    }
    std::unique_ptr<HttpClient> httpClient() override { return std::make_unique<Win32HttpClient>(); }

private:
    Win32Files files_;
};

bool runsOnWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

}  // namespace

std::unique_ptr<Backend> makeBackend() { return std::make_unique<Win32BackendUnderTest>(); }

int main(int argc, char** argv) {
    int wideCount = 0;
    wchar_t** wideArguments = CommandLineToArgvW(GetCommandLineW(), &wideCount);
    if (wideCount == 3 && std::wstring_view(wideArguments[1]) == kOtherProcess) {
        return runAsOtherProcess(wideArguments[2]);
    }
    LocalFree(wideArguments);
    testing::InitGoogleTest(&argc, argv);
    readArguments(argc, argv);
    if (runsOnWine()) {
        // Wine's WinHTTP takes a lost connection for the end of a body and does not count 1xx responses.
        testing::GTEST_FLAG(filter) +=
            ":-DownloaderContract.ATruncatedBodyIsAFailure:DownloaderContract.AnInterruptedBodyIsAFailure"
            ":DownloaderContract.InterimResponsesAreLimited";
    }
    return RUN_ALL_TESTS();
}
