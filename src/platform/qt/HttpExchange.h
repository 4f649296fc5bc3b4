// The part of this backend that needs Qt Network. Most runs never sync, and loading that library with the program would
// slow each start; so this part is a library of its own, whose bytes the program carries as a resource.
#pragma once

#include <QtGlobal>
#include <string_view>

#include "platform/HttpClient.h"

class QByteArray;

// As HttpClient::get, without keeping the window from input. answer: as made by its constructor.
extern "C" Q_DECL_EXPORT void exchangeOverHttp(std::u16string_view url, const HttpLimits& limits,
                                               HttpAnswer& answer) noexcept;

using HttpExchange = decltype(&exchangeOverHttp);
// bytes: of the library. It stays loaded to the end of the process. nullptr: it, or what it needs, cannot be loaded.
HttpExchange loadHttpExchange(const QByteArray& bytes);
