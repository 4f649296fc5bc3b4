// An HTTP server on a free port of this machine that gives every request the same body.
#pragma once

#include <winsock2.h>

#include <string>
#include <thread>

class OneAnswerServer {
public:
    explicit OneAnswerServer(const std::string& body);
    ~OneAnswerServer();
    OneAnswerServer(const OneAnswerServer&) = delete;
    OneAnswerServer& operator=(const OneAnswerServer&) = delete;

    std::string address() const;  // without a trailing slash

private:
    void serve();

    std::string answer_;
    SOCKET listener_ = INVALID_SOCKET;
    std::thread thread_;
};
