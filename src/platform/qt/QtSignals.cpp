#include "platform/qt/QtSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>

#include "platform/MainWindow.h"

namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

// A signal handler can only use globals, and little more than writing to a pipe is safe in it.
volatile std::sig_atomic_t wakeUpPipe = -1;

void wakeUp(int) {
    const int savedError = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(wakeUpPipe, &byte, 1);
    errno = savedError;
}

void handleAll(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : kSignals) {
        ::sigaction(number, &action, nullptr);
    }
}

}  // namespace

QtSignals::QtSignals(MainWindow& window) {
    if (::pipe(pipe_.data()) == 0) {
        for (const int end : pipe_) {
            ::fcntl(end, F_SETFD, FD_CLOEXEC);
            ::fcntl(end, F_SETFL, O_NONBLOCK);
        }
        auto* notifier = new QSocketNotifier(pipe_[0], QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this, &window] {
            char byte = 0;
            while (::read(pipe_[0], &byte, 1) > 0) {
            }
            window.close();
        });
        wakeUpPipe = pipe_[1];
        handleAll(wakeUp);
    }
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this, [&window](QSessionManager&) { window.close(); },
        Qt::DirectConnection);
}

QtSignals::~QtSignals() {
    if (pipe_[0] >= 0) {
        handleAll(SIG_DFL);
        ::close(pipe_[0]);
        ::close(pipe_[1]);
    }
}
