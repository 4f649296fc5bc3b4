#include "platform/posix/PosixConsole.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace {

bool writeTo(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written < 0) {
            return errno == EPIPE;
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace

PosixConsole::PosixConsole() { std::signal(SIGPIPE, SIG_IGN); }

bool PosixConsole::write(std::string_view text) { return writeTo(STDOUT_FILENO, text); }

void PosixConsole::writeError(std::string_view text) { writeTo(STDERR_FILENO, text); }

std::optional<std::string> PosixConsole::readAll() {
    constexpr std::size_t kBlock = 65'536;
    std::array<char, kBlock> block{};
    std::string bytes;
    for (;;) {
        const ssize_t got = ::read(STDIN_FILENO, block.data(), block.size());
        if (got == 0) {
            return bytes;
        }
        if (got < 0 && errno != EINTR) {
            return std::nullopt;
        }
        bytes.append(block.data(), got > 0 ? static_cast<std::size_t>(got) : 0);
    }
}

bool PosixConsole::showsColours() {
    const char* const plain = std::getenv("NO_COLOR");
    return (plain == nullptr || *plain == '\0') && ::isatty(STDOUT_FILENO) == 1;
}

bool PosixConsole::showsProgress() { return ::isatty(STDERR_FILENO) == 1; }
