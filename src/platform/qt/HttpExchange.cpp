#include "platform/qt/HttpExchange.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>
#include <memory>
#include <utility>

#include "platform/qt/Units.h"

namespace {

QNetworkRequest requestFor(const QUrl& url) {
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    return request;
}

class Exchange {
public:
    Exchange(QNetworkAccessManager& network, const QUrl& url, const HttpLimits& limits)
        : reply_(network.get(requestFor(url))), mostBytes_(limits.bytes) {
        // A server that sends faster than is read here must not fill the memory.
        constexpr qint64 kMostUnread = 262'144;  // bytes
        reply_->setReadBufferSize(kMostUnread);
        idle_.setSingleShot(true);
        idle_.setInterval(limits.idle);
        QObject::connect(reply_.get(), &QNetworkReply::metaDataChanged, &idle_, [this] { takeHeaders(); });
        QObject::connect(reply_.get(), &QNetworkReply::readyRead, &idle_, [this] { takeBytes(); });
        QObject::connect(reply_.get(), &QNetworkReply::finished, &loop_, &QEventLoop::quit);
        QObject::connect(&idle_, &QTimer::timeout, reply_.get(), &QNetworkReply::abort);
    }

    HttpAnswer run() {
        idle_.start();
        if (!reply_->isFinished()) {
            loop_.exec();
        }
        // Unfinished: the program is ending.
        if (!reply_->isFinished() || reply_->error() != QNetworkReply::NoError) {
            idle_.stop();
            return {};
        }
        takeBytes();
        idle_.stop();
        return isTooLong() ? HttpAnswer{} : answer();
    }

private:
    bool isTooLong() const { return body_.size() > mostBytes_; }

    void takeHeaders() {
        idle_.start();
        if (reply_->hasRawHeader("Content-Encoding")) {
            reply_->setReadBufferSize(0);  // unpacking stops for good at a bound; it has one of its own
        }
    }

    void takeBytes() {
        idle_.start();
        body_ += reply_->readAll().toStdString();
        if (isTooLong()) {
            reply_->abort();
        }
    }

    HttpAnswer answer() {
        HttpAnswer answer;
        answer.status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (reply_->hasRawHeader("Location")) {
            const QUrl target = reply_->url().resolved(QUrl::fromEncoded(reply_->rawHeader("Location")));
            answer.location = fromQt(target.toString(QUrl::FullyEncoded));
        }
        if (reply_->hasRawHeader("Content-Length")) {
            answer.announcedLength = reply_->rawHeader("Content-Length").toStdString();
        }
        answer.isEncoded = reply_->hasRawHeader("Content-Encoding");
        answer.body = std::move(body_);
        return answer;
    }

    std::unique_ptr<QNetworkReply> reply_;
    std::size_t mostBytes_;
    QTimer idle_;
    QEventLoop loop_;
    std::string body_;
};

}  // namespace

void exchangeOverHttp(std::u16string_view url, const HttpLimits& limits, HttpAnswer& answer) noexcept {
    QNetworkAccessManager network;
    answer = Exchange(network, QUrl(toQt(url)), limits).run();
}
