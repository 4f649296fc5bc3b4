// Starts a program and waits until its window is visible and drawn, as its user does. There must be no window manager
// on the display, so that the program's windows are children of the root window.
// Usage: window_time PROGRAM [ARGUMENT...]. Prints: milliseconds, then resident kilobytes and milliseconds of processor
// time up to the end of the program.
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kSmallestWindow = 200;  // pixels, in both directions
constexpr double kEnoughDrawn = 0.5;  // of the window's area
constexpr int kQuiet = 250;           // milliseconds without drawing after which the program is idle
constexpr int kPatience = 20'000;     // milliseconds

template <class Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

struct Watched {
    double area = 0;
    double drawn = 0;
};

class Screen {
public:
    Screen() : connection_(xcb_connect(nullptr, nullptr)) {
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
        const xcb_query_extension_reply_t* damage = xcb_get_extension_data(connection_, &xcb_damage_id);
        firstDamageEvent_ = damage->first_event;
        const Owned<xcb_damage_query_version_reply_t> version(
            xcb_damage_query_version_reply(connection_, xcb_damage_query_version(connection_, 1, 1), nullptr),
            &std::free);
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &mask);
        // After this reply the server reports every window that is mapped.
        const Owned<xcb_get_input_focus_reply_t> answered(
            xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr), &std::free);
    }
    ~Screen() { xcb_disconnect(connection_); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    // True if most of a window has been drawn; waits at most `milliseconds` for one event.
    // `any`: set if anything was drawn.
    bool windowDrawn(int milliseconds, bool& any) {
        any = false;
        xcb_flush(connection_);
        Owned<xcb_generic_event_t> event(xcb_poll_for_event(connection_), &std::free);
        if (!event) {
            pollfd wait{xcb_get_file_descriptor(connection_), POLLIN, 0};
            ::poll(&wait, 1, milliseconds);
            event.reset(xcb_poll_for_event(connection_));
        }
        bool whole = false;
        for (; event; event.reset(xcb_poll_for_event(connection_))) {
            const int type = event->response_type & 0x7F;
            if (type == XCB_MAP_NOTIFY) {
                mapped(reinterpret_cast<xcb_map_notify_event_t*>(event.get())->window);
            } else if (type == XCB_CONFIGURE_NOTIFY) {
                resized(*reinterpret_cast<xcb_configure_notify_event_t*>(event.get()));
            } else if (type == firstDamageEvent_ + XCB_DAMAGE_NOTIFY) {
                const auto* notice = reinterpret_cast<xcb_damage_notify_event_t*>(event.get());
                any = true;
                whole = drawn(*notice) || whole;
            }
        }
        return whole;
    }

private:
    void mapped(xcb_window_t window) {
        const Owned<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr), &std::free);
        if (geometry && windows_.emplace(window, Watched{areaOf(geometry->width, geometry->height)}).second) {
            const xcb_damage_damage_t damage = xcb_generate_id(connection_);
            xcb_damage_create(connection_, damage, window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
            xcb_flush(connection_);
        }
    }
    void resized(const xcb_configure_notify_event_t& notice) {
        if (const auto found = windows_.find(notice.window); found != windows_.end()) {
            found->second.area = areaOf(notice.width, notice.height);
        }
    }
    // 0 for small windows: tooltips, splash screens and helpers of a toolkit.
    static double areaOf(int width, int height) {
        return width < kSmallestWindow || height < kSmallestWindow ? 0 : static_cast<double>(width) * height;
    }
    bool drawn(const xcb_damage_notify_event_t& notice) {
        Watched& watched = windows_[notice.drawable];
        watched.drawn += static_cast<double>(notice.area.width) * notice.area.height;
        return watched.area > 0 && watched.drawn >= watched.area * kEnoughDrawn;
    }

    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
    int firstDamageEvent_ = 0;
    std::map<xcb_window_t, Watched> windows_;
};

// Kilobytes.
long residentMemoryOf(pid_t process) {
    const std::string label = "Rss:";
    std::ifstream summary("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string line; std::getline(summary, line);) {
        if (line.rfind(label, 0) == 0) {
            return std::strtol(line.c_str() + label.size(), nullptr, 10);
        }
    }
    return 0;
}

long millisecondsSince(Clock::time_point start) {
    return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count());
}

// Milliseconds of processor time that the process has taken.
double end(pid_t process) {
    ::kill(process, SIGTERM);
    int status = 0;
    rusage used{};
    for (const auto start = Clock::now(); ::wait4(process, &status, WNOHANG, &used) == 0;) {
        if (millisecondsSince(start) > kPatience / 4) {
            ::kill(process, SIGKILL);
        }
        ::poll(nullptr, 0, 1);
    }
    return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) * 1e3 +
           static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec) / 1e3;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: window_time PROGRAM [ARGUMENT...]\n");
        return 2;
    }
    Screen screen;
    pid_t process = 0;
    const auto start = Clock::now();
    if (::posix_spawnp(&process, argv[1], nullptr, nullptr, argv + 1, environ) != 0) {
        std::perror(argv[1]);
        return 1;
    }
    bool any = false;
    while (!screen.windowDrawn(kPatience, any)) {
        if (millisecondsSince(start) > kPatience) {
            std::fprintf(stderr, "window_time: no window of %s\n", argv[1]);
            end(process);
            return 1;
        }
    }
    const double shown = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    auto quietSince = Clock::now();
    for (const auto begin = quietSince;
         millisecondsSince(quietSince) < kQuiet && millisecondsSince(begin) < kPatience;) {
        screen.windowDrawn(kQuiet, any);
        quietSince = any ? Clock::now() : quietSince;
    }
    const long resident = residentMemoryOf(process);
    std::printf("%.2f\t%ld\t%.2f\n", shown, resident, end(process));
    return 0;
}
