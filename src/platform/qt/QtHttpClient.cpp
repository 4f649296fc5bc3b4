#include "platform/qt/QtHttpClient.h"

#include <QEventLoop>
#include <QMetaObject>
#include <atomic>
#include <thread>

#include "platform/posix/HttpGet.h"
#include "platform/qt/InputBlock.h"

HttpAnswer QtHttpClient::get(std::u16string_view url, const HttpLimits& limits) {
    const InputBlock block;
    HttpAnswer answer;
    std::atomic<bool> isWanted = true;
    QEventLoop loop;
    std::thread exchange([&] {
        answer = httpGet(url, limits, [&isWanted](const HttpProgress&) { return isWanted.load(); });
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();  // the program's end also ends it
    isWanted = false;
    exchange.join();
    return answer;
}
