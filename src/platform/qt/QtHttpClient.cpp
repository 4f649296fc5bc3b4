#include "platform/qt/QtHttpClient.h"

#include <QResource>

#include "platform/qt/InputBlock.h"

HttpAnswer QtHttpClient::get(std::u16string_view url, const HttpLimits& limits) {
    const InputBlock block;
    if (exchange_ == nullptr) {
        exchange_ = loadHttpExchange(QResource(":/http_exchange.so").uncompressedData());
    }
    HttpAnswer answer;
    if (exchange_ != nullptr) {
        exchange_(url, limits, answer);
    }
    return answer;
}
