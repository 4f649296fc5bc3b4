#include "platform/win32/OneAnswerServer.h"

#include <array>
#include <stdexcept>
#include <utility>

OneAnswerServer::OneAnswerServer(const std::string& body)
    : OneAnswerServer([answer = "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\nConnection: close\r\nContent-Length: " +
                                std::to_string(body.size()) + "\r\n\r\n" +
                                body](SOCKET client) { sendAll(client, answer); }) {}

OneAnswerServer::OneAnswerServer(std::function<void(SOCKET)> answer) : answer_(std::move(answer)) {
    WSADATA data{};
    WSAStartup(MAKEWORD(2, 2), &data);
    listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in any{};
    any.sin_family = AF_INET;
    any.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&any), sizeof any) != 0 ||
        listen(listener_, SOMAXCONN) != 0) {
        throw std::runtime_error("no port to listen on");
    }
    thread_ = std::thread([this] { serve(); });
}

OneAnswerServer::~OneAnswerServer() {
    closesocket(listener_);  // ends accept
    thread_.join();
    WSACleanup();
}

std::string OneAnswerServer::address() const {
    sockaddr_in bound{};
    int size = sizeof bound;
    getsockname(listener_, reinterpret_cast<sockaddr*>(&bound), &size);
    return "http://127.0.0.1:" + std::to_string(ntohs(bound.sin_port));
}

void OneAnswerServer::serve() {
    for (;;) {
        const SOCKET client = accept(listener_, nullptr, nullptr);
        if (client == INVALID_SOCKET) {
            return;
        }
        std::string request;
        std::array<char, 1024> part{};
        while (request.find("\r\n\r\n") == std::string::npos) {
            const int got = recv(client, part.data(), static_cast<int>(part.size()), 0);
            if (got <= 0) {
                break;
            }
            request.append(part.data(), static_cast<std::size_t>(got));
        }
        answer_(client);
        closesocket(client);
    }
}

bool sendAll(SOCKET connection, const std::string& bytes) {
    for (std::size_t sent = 0; sent < bytes.size();) {
        const int part = send(connection, bytes.data() + sent, static_cast<int>(bytes.size() - sent), 0);
        if (part <= 0) {
            return false;
        }
        sent += static_cast<std::size_t>(part);
    }
    return true;
}
