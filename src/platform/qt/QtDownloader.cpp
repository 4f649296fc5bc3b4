#include "platform/qt/QtDownloader.h"

#include <QUrl>

#include "platform/qt/HttpTransfer.h"
#include "platform/qt/InputBlock.h"
#include "platform/qt/Units.h"

bool QtDownloader::download(std::u16string_view url, std::u16string_view path) {
    const InputBlock block;
    const std::optional<QByteArray> body = HttpTransfer(network_, idleLimit_).run(QUrl(toQt(url)));
    if (body && files_.write(path, std::string_view(body->constData(), static_cast<std::size_t>(body->size())))) {
        return true;
    }
    files_.remove(path);
    return false;
}
