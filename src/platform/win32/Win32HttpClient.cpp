#include "platform/win32/Win32HttpClient.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include "platform/win32/Handle.h"
#include "platform/win32/HttpGet.h"
#include "platform/win32/WideText.h"

namespace {

// Shared by both threads; whoever leaves last drops it.
struct Fetch {
    std::wstring url;
    HttpLimits limits;
    std::atomic<unsigned> signs = 0;
    HttpAnswer answer;  // of the fetching thread until it has ended
};

DWORD WINAPI runFetch(void* parameter) {
    const std::unique_ptr<std::shared_ptr<Fetch>> held(static_cast<std::shared_ptr<Fetch>*>(parameter));
    Fetch& fetch = **held;
    fetch.answer = httpGet(fetch.url, fetch.limits, fetch.signs);
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

// Every other message stays in the queue until the exchange has ended.
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

// False: the server has been silent for too long. The fetching thread is then left alone with its share, since
// nothing ends a wait inside the system's client on every version of the system.
bool waitFor(HANDLE thread, const Fetch& fetch) {
    using Clock = std::chrono::steady_clock;
    unsigned seen = fetch.signs;
    Clock::time_point deadline = Clock::now() + fetch.limits.idle;
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        const DWORD patience = static_cast<DWORD>(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
        if (MsgWaitForMultipleObjects(1, &thread, FALSE, patience, QS_ALLINPUT) == WAIT_OBJECT_0) {
            return true;
        }
        keepPainted();
        if (const unsigned now = fetch.signs; now != seen) {
            seen = now;
            deadline = Clock::now() + fetch.limits.idle;
        } else if (Clock::now() >= deadline) {
            return false;
        }
    }
}

}  // namespace

HttpAnswer Win32HttpClient::get(std::u16string_view url, const HttpLimits& limits) {
    const auto fetch = std::make_shared<Fetch>();
    fetch->url = toWide(url);
    fetch->limits = limits;
    auto share = std::make_unique<std::shared_ptr<Fetch>>(fetch);
    const Handle thread(CreateThread(nullptr, 0, runFetch, share.get(), 0, nullptr));
    if (!thread) {
        return {};
    }
    static_cast<void>(share.release());  // the thread's now
    const bool ended = waitFor(thread.get(), *fetch);
    keepPainted();  // what was typed until now is thrown away too
    return ended ? std::move(fetch->answer) : HttpAnswer{};
}
