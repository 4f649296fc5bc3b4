#include "platform/win32/Program.h"

#include <commctrl.h>

#include <array>
#include <cstring>
#include <stdexcept>

#include "platform/win32/Poll.h"

namespace {

constexpr int kTextUnits = 512;

// Memory in the other process, for messages with pointers.
class RemoteBlock {
public:
    RemoteBlock(HANDLE process, std::size_t size)
        : process_(process), memory_(VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE)) {}
    ~RemoteBlock() { VirtualFreeEx(process_, memory_, 0, MEM_RELEASE); }
    RemoteBlock(const RemoteBlock&) = delete;
    RemoteBlock& operator=(const RemoteBlock&) = delete;

    char* address() const { return static_cast<char*>(memory_); }
    LPARAM parameter() const { return reinterpret_cast<LPARAM>(memory_); }
    template <typename Value>
    void put(const Value& value) const {
        WriteProcessMemory(process_, memory_, &value, sizeof value, nullptr);
    }
    template <typename Value>
    Value get(std::size_t offset = 0) const {
        Value value{};
        ReadProcessMemory(process_, address() + offset, &value, sizeof value, nullptr);
        return value;
    }

private:
    HANDLE process_;
    void* memory_;
};

using Text = std::array<wchar_t, kTextUnits>;

struct Search {
    DWORD process;
    const wchar_t* className;
    const wchar_t* title;
    HWND found;
};

BOOL CALLBACK compareWindow(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    std::array<wchar_t, 64> className{};
    GetClassNameW(window, className.data(), static_cast<int>(className.size()));
    const bool same = process == search->process && IsWindowVisible(window) != 0 &&
                      std::wstring_view(className.data()) == search->className &&
                      (search->title == nullptr || textOf(window) == search->title);
    if (same) {
        search->found = window;
    }
    return same ? FALSE : TRUE;
}

void sendKey(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

void pressWith(WORD held, WORD key) {
    sendKey(held, 0);
    pressKey(key);
    sendKey(held, KEYEVENTF_KEYUP);
}

}  // namespace

std::filesystem::path builtProgram(const wchar_t* relative) {
    std::array<wchar_t, MAX_PATH> own{};
    GetModuleFileNameW(nullptr, own.data(), MAX_PATH);
    return std::filesystem::path(own.data()).parent_path() / relative;
}

Program::Program(const TemporaryFolder& folder, const std::filesystem::path& built) {
    const std::filesystem::path program = folder.file("Halcyon_K7.exe");
    std::filesystem::copy_file(built, program, std::filesystem::copy_options::skip_existing);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, folder.path().c_str(), &startup,
                       &process_) == 0) {
        throw std::runtime_error("the program cannot be started");
    }
    eventually([this] {
        window_ = findOwnWindow(L"Halcyon_K7.MainForm", nullptr);
        return window_ != nullptr || hasEnded();
    });
    if (window_ != nullptr) {
        SetForegroundWindow(window_);
        eventually([this] { return GetForegroundWindow() == window_ && IsChild(window_, focus()); });
    }
}

Program::~Program() {
    if (!hasEnded()) {
        TerminateProcess(process_.hProcess, 1);
        WaitForSingleObject(process_.hProcess, INFINITE);
    }
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

HWND Program::focus() const {
    GUITHREADINFO information{};
    information.cbSize = sizeof information;
    return GetGUIThreadInfo(process_.dwThreadId, &information) != 0 ? information.hwndFocus : nullptr;
}

HWND Program::findOwnWindow(const wchar_t* className, const wchar_t* title) const {
    Search search{process_.dwProcessId, className, title, nullptr};
    EnumWindows(compareWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND Program::dialog(const wchar_t* title) const {
    HWND found = nullptr;
    eventually([&] { return (found = findOwnWindow(L"#32770", title)) != nullptr; });
    return found;
}

HWND Program::dialogBy(WORD key, const wchar_t* title) const {
    HWND found = nullptr;
    pressUntil([key] { pressWithCtrl(key); }, [&] { return (found = findOwnWindow(L"#32770", title)) != nullptr; });
    // Posted messages would overtake the release of Ctrl and count as typed with it. Painting comes after all input.
    InvalidateRect(found, nullptr, FALSE);
    eventually([found] { return GetUpdateRect(found, nullptr, FALSE) == 0; });
    return found;
}

HWND Program::menu() const { return findOwnWindow(L"#32768", nullptr); }

HWND Program::showTab(int tab, const wchar_t* caption) const {
    HWND tabs = FindWindowExW(window_, nullptr, WC_TABCONTROLW, nullptr);
    SendMessageW(tabs, TCM_SETCURFOCUS, static_cast<WPARAM>(tab - 1), 0);
    return list(caption);
}

bool Program::close() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    return eventually([this] { return hasEnded(); });
}

std::wstring Program::cell(HWND list, int row, int column) const {
    const RemoteBlock block(process_.hProcess, sizeof(LVITEMW) + sizeof(Text));
    LVITEMW item{};
    item.iSubItem = column - 1;
    item.pszText = reinterpret_cast<wchar_t*>(block.address() + sizeof item);
    item.cchTextMax = kTextUnits;
    block.put(item);
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row - 1), block.parameter());
    return block.get<Text>(sizeof item).data();
}

std::vector<std::wstring> Program::columnTexts(HWND list, int column) const {
    std::vector<std::wstring> texts;
    for (int row = 1; row <= rowCount(list); ++row) {
        texts.push_back(cell(list, row, column));
    }
    return texts;
}

RECT Program::cellBounds(HWND list, int row, int column) const {
    const RemoteBlock block(process_.hProcess, sizeof(RECT));
    RECT bounds{};
    bounds.left = LVIR_BOUNDS;
    bounds.top = column - 1;
    block.put(bounds);
    SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row - 1), block.parameter());
    bounds = block.get<RECT>();
    if (column == 1) {  // the system returns the bounds of the whole row for it
        bounds.right = bounds.left + static_cast<LONG>(SendMessageW(list, LVM_GETCOLUMNWIDTH, 0, 0));
    }
    return bounds;
}

std::wstring Program::status(int panel) const {
    const RemoteBlock block(process_.hProcess, sizeof(Text));
    block.put(Text{});
    SendMessageW(statusBar(), SB_GETTEXTW, static_cast<WPARAM>(panel - 1), block.parameter());
    return block.get<Text>().data();
}

bool Program::overwriteStatus(int panel, std::wstring_view text) const {
    const RemoteBlock block(process_.hProcess, sizeof(Text));
    Text put{};
    text.copy(put.data(), put.size() - 1);
    block.put(put);
    return SendMessageW(statusBar(), SB_SETTEXTW, static_cast<WPARAM>(panel - 1), block.parameter()) != 0;
}

void Program::comeToResolution(int dpi, const RECT& suggested) const {
    const RemoteBlock block(process_.hProcess, sizeof suggested);
    block.put(suggested);
    SendMessageW(window_, WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)), block.parameter());
}

LPARAM Program::middleOf(HWND list, int row, int column) const {
    const RECT bounds = cellBounds(list, row, column);
    return MAKELPARAM((bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2);
}

void Program::click(HWND list, int row, int column) const {
    const LPARAM at = middleOf(list, row, column);
    PostMessageW(list, WM_MOUSEMOVE, 0, at);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(list, WM_LBUTTONUP, 0, at);
}

void Program::doubleClick(HWND list, int row, int column) const {
    const LPARAM at = middleOf(list, row, column);
    click(list, row, column);
    PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, at);
    PostMessageW(list, WM_LBUTTONUP, 0, at);
}

void Program::rightClick(HWND list, int row, int column) const {
    const LPARAM at = middleOf(list, row, column);
    PostMessageW(list, WM_MOUSEMOVE, 0, at);
    PostMessageW(list, WM_RBUTTONDOWN, MK_RBUTTON, at);
    PostMessageW(list, WM_RBUTTONUP, 0, at);
}

void Program::clickHeader(HWND list, int column) const {
    HWND header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const RECT bounds = cellBounds(list, 1, column);
    const LPARAM at = MAKELPARAM((bounds.left + bounds.right) / 2, 5);
    PostMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(header, WM_LBUTTONUP, 0, at);
}

void pressKey(WORD key) {
    sendKey(key, 0);
    sendKey(key, KEYEVENTF_KEYUP);
}

void pressWithCtrl(WORD key) { pressWith(VK_CONTROL, key); }

void pressWithAlt(WORD key) { pressWith(VK_MENU, key); }

void pressWithShift(WORD key) { pressWith(VK_SHIFT, key); }

void typeInto(HWND window, std::wstring_view text) {
    for (const wchar_t unit : text) {
        unit == L'\r' ? PostMessageW(window, WM_KEYDOWN, VK_RETURN, 1) : PostMessageW(window, WM_CHAR, unit, 1);
    }
}

bool putOnClipboard(const std::wstring& text) {
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(memory), text.c_str(), size);
    GlobalUnlock(memory);
    if (OpenClipboard(nullptr) == 0) {
        return false;
    }
    EmptyClipboard();
    const bool put = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    CloseClipboard();
    return put;
}

std::wstring textOf(HWND window) {
    std::array<wchar_t, kTextUnits> text{};
    SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

std::wstring messageOf(HWND messageBox) {
    std::wstring text;
    for (HWND label = nullptr; text.empty() && (label = FindWindowExW(messageBox, label, WC_STATICW, nullptr));) {
        text = textOf(label);
    }
    return text;
}

HWND childOf(HWND dialog, const wchar_t* className, int number) {
    HWND child = nullptr;
    for (int i = 0; i < number; ++i) {
        child = FindWindowExW(dialog, child, className, nullptr);
    }
    return child;
}
