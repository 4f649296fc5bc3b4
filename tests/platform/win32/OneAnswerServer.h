// An HTTP server on a free port of 127.0.0.1 with one answer for every request.
#pragma once

#include <winsock2.h>

#include <functional>
#include <string>
#include <thread>

class OneAnswerServer {
public:
    explicit OneAnswerServer(const std::string& body);
    // Writes the answer to the connection, which is closed afterwards.
    explicit OneAnswerServer(std::function<void(SOCKET)> answer);
    ~OneAnswerServer();
    OneAnswerServer(const OneAnswerServer&) = delete;
    OneAnswerServer& operator=(const OneAnswerServer&) = delete;

    std::string address() const;  // without a trailing slash

private:
    void serve();

    std::function<void(SOCKET)> answer_;
    SOCKET listener_ = INVALID_SOCKET;
    std::thread thread_;
};

// False once the client has disconnected.
bool sendAll(SOCKET connection, const std::string& bytes);
