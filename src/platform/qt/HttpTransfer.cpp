#include "platform/qt/HttpTransfer.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>

namespace {

constexpr qsizetype kMostBytes = 16 * 1024 * 1024;
constexpr int kMostRedirects = 20;

bool isHttp(const QUrl& url) { return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"); }

QNetworkRequest requestFor(const QUrl& url) {
    QNetworkRequest request(url);
    // The transfer itself says which redirects it follows.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setMaximumRedirectsAllowed(kMostRedirects + 1);
    return request;
}

}  // namespace

HttpTransfer::HttpTransfer(QNetworkAccessManager& network, const QUrl& url, std::chrono::milliseconds idleLimit)
    : reply_(network.get(requestFor(url))), refused_(!isHttp(url)) {
    idle_.setSingleShot(true);
    idle_.setInterval(idleLimit);
    QNetworkReply* reply = reply_.get();
    const auto alive = [this] { idle_.start(); };
    QObject::connect(reply, &QNetworkReply::metaDataChanged, &idle_, alive);
    QObject::connect(reply, &QNetworkReply::readyRead, &idle_, [this] { takeBytes(); });
    QObject::connect(reply, &QNetworkReply::redirected, &idle_, [this](const QUrl& target) { redirected(target); });
    QObject::connect(reply, &QNetworkReply::finished, &loop_, &QEventLoop::quit);
    QObject::connect(&idle_, &QTimer::timeout, reply, &QNetworkReply::abort);
}

std::optional<QByteArray> HttpTransfer::run() {
    if (refused_) {
        return std::nullopt;
    }
    idle_.start();
    if (!reply_->isFinished()) {
        loop_.exec();
    }
    if (!reply_->isFinished()) {  // the program is ending
        reply_->disconnect();
        reply_->abort();
        return std::nullopt;
    }
    takeBytes();
    idle_.stop();
    return succeeded() ? std::optional(body_) : std::nullopt;
}

void HttpTransfer::takeBytes() {
    idle_.start();
    if (reply_->isOpen()) {
        body_ += reply_->readAll();
    }
    if (body_.size() > kMostBytes && !refused_) {
        refused_ = true;
        reply_->abort();
    }
}

void HttpTransfer::redirected(const QUrl& target) {
    // Qt ends a chain that is too long as if the last redirect were the document.
    if (isHttp(target) && ++redirects_ <= kMostRedirects) {
        Q_EMIT reply_->redirectAllowed();
    } else {
        refused_ = true;
        reply_->abort();
    }
}

bool HttpTransfer::succeeded() const {
    constexpr int kFirstError = 400;
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (refused_ || reply_->error() != QNetworkReply::NoError || status >= kFirstError) {
        return false;
    }
    // An announced length counts the bytes as sent, so it can be held only against a body sent plain.
    const QVariant announced = reply_->header(QNetworkRequest::ContentLengthHeader);
    const bool plain = !reply_->hasRawHeader("Content-Encoding");
    return !announced.isValid() || !plain || announced.toLongLong() == body_.size();
}
