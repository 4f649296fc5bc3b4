#include "platform/win32/Win32Downloader.h"

#include <windows.h>

#include <optional>
#include <string>

#include "platform/win32/Handle.h"
#include "platform/win32/HttpGet.h"
#include "platform/win32/WideText.h"

namespace {

struct Fetch {
    std::wstring url;
    std::optional<std::string> body;
};

DWORD WINAPI runFetch(void* parameter) {
    auto* fetch = static_cast<Fetch*>(parameter);
    fetch->body = httpGet(fetch->url);
    return 0;
}

void dispatchAll(UINT message) {
    MSG found{};
    while (PeekMessageW(&found, nullptr, message, message, PM_REMOVE) != 0) {
        DispatchMessageW(&found);
    }
}

void discardAll(UINT first, UINT last) {
    MSG found{};
    while (PeekMessageW(&found, nullptr, first, last, PM_REMOVE) != 0) {
    }
}

// Every other message stays in the queue until the download has ended.
void keepPainted() {
    discardAll(WM_KEYFIRST, WM_KEYLAST);
    discardAll(WM_MOUSEFIRST, WM_MOUSELAST);
    discardAll(WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK);
    dispatchAll(WM_TIMER);
    // Bounded: a window that cannot be painted leaves its paint message in the queue.
    constexpr int kMostPaints = 32;
    MSG paint{};
    for (int i = 0; i < kMostPaints && PeekMessageW(&paint, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != 0; ++i) {
        DispatchMessageW(&paint);
    }
}

}  // namespace

bool Win32Downloader::download(std::u16string_view url, std::u16string_view path) {
    Fetch fetch{toWide(url), std::nullopt};
    {
        const Handle thread(CreateThread(nullptr, 0, runFetch, &fetch, 0, nullptr));
        if (!thread) {
            return false;
        }
        HANDLE ended = thread.get();
        while (MsgWaitForMultipleObjects(1, &ended, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
            keepPainted();
        }
        keepPainted();  // what was typed until the end is thrown away too
        WaitForSingleObject(ended, INFINITE);
    }
    if (!fetch.body) {
        files_.remove(path);
        return false;
    }
    if (!files_.write(path, *fetch.body)) {
        files_.remove(path);
        return false;
    }
    return true;
}

void Win32Downloader::forgetCached(std::u16string_view url) {
    HMODULE library = LoadLibraryExW(L"wininet.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr) {
        return;
    }
    using DeleteEntry = BOOL(WINAPI*)(const wchar_t*);
    const auto deleteEntry =
        reinterpret_cast<DeleteEntry>(reinterpret_cast<void*>(GetProcAddress(library, "DeleteUrlCacheEntryW")));
    if (deleteEntry != nullptr) {
        deleteEntry(toWide(url).c_str());
    }
    FreeLibrary(library);
}
