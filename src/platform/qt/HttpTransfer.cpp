#include "platform/qt/HttpTransfer.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>

#include "platform/Downloader.h"

namespace {

bool isHttp(const QUrl& url) { return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"); }

QNetworkRequest requestFor(const QUrl& url) {
    QNetworkRequest request(url);
    // Qt's own following ends a long chain as if the last redirect were the document.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    return request;
}

}  // namespace

HttpTransfer::HttpTransfer(QNetworkAccessManager& network, std::chrono::milliseconds idleLimit) : network_(network) {
    idle_.setSingleShot(true);
    idle_.setInterval(idleLimit);
}

std::optional<QByteArray> HttpTransfer::run(const QUrl& url) {
    QUrl next = url;
    for (int redirects = 0; redirects <= DownloadLimit::Redirects && isHttp(next); ++redirects) {
        const int status = exchange(next);
        if (status == 0 || status >= DownloadLimit::FirstErrorStatus) {
            return std::nullopt;
        }
        const QVariant target = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute);
        if (status < DownloadLimit::FirstRedirectStatus || !target.isValid()) {
            return body_;
        }
        next = next.resolved(target.toUrl());
    }
    return std::nullopt;
}

int HttpTransfer::exchange(const QUrl& url) {
    body_.clear();
    reply_.reset(network_.get(requestFor(url)));
    QNetworkReply* reply = reply_.get();
    QObject::connect(reply, &QNetworkReply::metaDataChanged, &idle_, qOverload<>(&QTimer::start));
    QObject::connect(reply, &QNetworkReply::readyRead, &idle_, [this] { takeBytes(); });
    QObject::connect(reply, &QNetworkReply::finished, &loop_, &QEventLoop::quit);
    QObject::connect(&idle_, &QTimer::timeout, reply, &QNetworkReply::abort);
    idle_.start();
    if (!reply->isFinished()) {
        loop_.exec();
    }
    idle_.stop();
    // Unfinished: the program is ending.
    if (!reply->isFinished() || reply->error() != QNetworkReply::NoError) {
        return 0;
    }
    takeBytes();
    idle_.stop();
    return isWhole() ? reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() : 0;
}

void HttpTransfer::takeBytes() {
    idle_.start();
    body_ += reply_->readAll();
    if (static_cast<std::size_t>(body_.size()) > DownloadLimit::Bytes) {
        reply_->abort();
    }
}

bool HttpTransfer::isWhole() const {
    if (static_cast<std::size_t>(body_.size()) > DownloadLimit::Bytes) {
        return false;
    }
    // An announced length counts the bytes as sent, so it can be held only against a body sent plain.
    const bool plain = !reply_->hasRawHeader("Content-Encoding");
    if (!plain || !reply_->hasRawHeader("Content-Length")) {
        return true;
    }
    // One that is no number, or too large for one, cannot have been kept.
    bool isNumber = false;
    const qlonglong announced = reply_->rawHeader("Content-Length").trimmed().toLongLong(&isNumber);
    return isNumber && announced == body_.size();
}
