#include "platform/win32/Win32HttpClient.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/win32/Handle.h"
#include "platform/win32/HttpGet.h"
#include "platform/win32/WideText.h"

namespace {

// Shared by both threads; the last one frees it.
struct Fetch {
    std::wstring url;
    HttpLimits limits;
    HttpSigns signs;
    HttpAnswer answer;  // written by the fetching thread until it ends
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

// All other messages stay queued until the exchange has ended.
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

void report(const Fetch& fetch, const HttpObserver& observer) {
    if (observer) {
        const std::uint64_t announced = fetch.signs.announced;
        observer({fetch.signs.received, announced == HttpSigns::kUnknown ? std::nullopt : std::optional(announced)});
    }
}

// False on a timeout. The fetching thread then keeps its share and is abandoned, since not every version of the system
// can interrupt a wait in its client.
bool waitFor(HANDLE thread, const Fetch& fetch, const HttpObserver& observer) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds kBetweenReports(100);
    unsigned seen = fetch.signs.events;
    Clock::time_point deadline = Clock::now() + fetch.limits.idle;
    for (;;) {
        auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        left = observer ? std::min(left, kBetweenReports) : left;
        const DWORD patience = static_cast<DWORD>(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
        if (MsgWaitForMultipleObjects(1, &thread, FALSE, patience, QS_ALLINPUT) == WAIT_OBJECT_0) {
            report(fetch, observer);
            return true;
        }
        keepPainted();
        report(fetch, observer);
        if (const unsigned now = fetch.signs.events; now != seen) {
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
    static_cast<void>(share.release());  // the thread owns it now
    const bool ended = waitFor(thread.get(), *fetch, observer_);
    keepPainted();  // also discards the input during the last wait
    return ended ? std::move(fetch->answer) : failedAnswer(HttpFault::TimedOut);
}
