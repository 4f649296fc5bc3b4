// One HTTP GET, from its request to the last byte of its body.
#pragma once

#include <QByteArray>
#include <QEventLoop>
#include <QNetworkReply>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>

class QNetworkAccessManager;
class QUrl;

class HttpTransfer {
public:
    HttpTransfer(QNetworkAccessManager& network, const QUrl& url, std::chrono::milliseconds idleLimit);

    // Runs the event loop until the end; nullopt when the transfer failed.
    std::optional<QByteArray> run();

private:
    void takeBytes();
    void redirected(const QUrl& target);
    bool succeeded() const;

    std::unique_ptr<QNetworkReply> reply_;
    QTimer idle_;
    QEventLoop loop_;
    QByteArray body_;
    int redirects_ = 0;
    bool refused_ = false;
};
