// One HTTP GET, from its request to the last byte of the document, over its redirects.
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
    // idleLimit: how long the server may stay silent.
    HttpTransfer(QNetworkAccessManager& network, std::chrono::milliseconds idleLimit);

    // Runs the event loop until the end; nullopt when the transfer failed.
    std::optional<QByteArray> run(const QUrl& url);

private:
    // The answer's status, 0 when there is none that can be used; the document is in body_ then.
    int exchange(const QUrl& url);
    void takeBytes();
    bool isWhole() const;

    QNetworkAccessManager& network_;
    QTimer idle_;
    QEventLoop loop_;
    std::unique_ptr<QNetworkReply> reply_;
    QByteArray body_;
};
