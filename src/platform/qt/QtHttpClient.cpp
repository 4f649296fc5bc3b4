#include "platform/qt/QtHttpClient.h"

#include <QEventLoop>
#include <QTimer>

#include "platform/posix/HttpGet.h"
#include "platform/qt/InputBlock.h"

namespace {

// Handles the pending events. False: the program is ending.
bool handleEvents() {
    constexpr int kHandled = 1;
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&loop] { loop.exit(kHandled); });
    return loop.exec() == kHandled;
}

}  // namespace

HttpAnswer QtHttpClient::get(std::u16string_view url, const HttpLimits& limits) {
    const InputBlock block;
    return httpGet(url, limits, handleEvents);
}
