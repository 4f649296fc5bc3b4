#include "ctl/Timeline.h"

#include <algorithm>
#include <vector>

#include "ctl/DisplayWidth.h"
#include "ctl/Html.h"
#include "ctl/Record.h"
#include "storage/text/Numbers.h"

namespace {

// In units of the drawing.
constexpr int kLeft = 80;
constexpr int kHour = 40;
constexpr int kTop = 24;
constexpr int kLane = 22;
constexpr int kBar = 16;
constexpr int kLetter = 7;  // approximate width of a character
constexpr int kHours = 24;
constexpr int kRight = kLeft + kHours * kHour;
constexpr int kWidth = kRight + 10;
constexpr int kBaseline = 12;  // baseline of a text, from the top of its bar

struct Bar {
    double kHz = 0;
    int start = 0;  // minutes
    int stop = 0;
    Record record;
    int lane = 0;
};

int minutesOf(std::u16string_view time) {
    return static_cast<int>(leadingNumber(time.substr(0, 2))) * 60 + static_cast<int>(leadingNumber(time.substr(3)));
}

int xOf(int minutes) { return kLeft + minutes * kHour / 60; }
int labelWidth(const Bar& bar) { return static_cast<int>(displayWidth(bar.record.programme)) * kLetter + 8; }
bool labelFits(const Bar& bar) { return labelWidth(bar) <= xOf(bar.stop) - xOf(bar.start); }
// A label that does not fit is placed after its bar, or before it at the end of the day.
bool labelStandsBefore(const Bar& bar) { return !labelFits(bar) && xOf(bar.stop) + labelWidth(bar) > kRight; }
int leftOf(const Bar& bar) { return xOf(bar.start) - (labelStandsBefore(bar) ? labelWidth(bar) : 0); }
int rightOf(const Bar& bar) { return xOf(bar.stop) + (labelFits(bar) || labelStandsBefore(bar) ? 0 : labelWidth(bar)); }

std::vector<Bar> barsOf(const Grid& drm) {
    std::vector<Bar> bars;
    for (int row = 1; row <= drm.rowCount(); ++row) {
        Record record = recordOf(drm, ListKind::Drm, row);
        if (areTimes(record.start, record.stop)) {
            const double kHz = leadingNumber(record.frequency);
            bars.push_back({kHz, minutesOf(record.start), minutesOf(record.stop), std::move(record)});
        }
    }
    std::stable_sort(bars.begin(), bars.end(),
                     [](const Bar& a, const Bar& b) { return a.kHz < b.kHz || (a.kHz == b.kHz && a.start < b.start); });
    return bars;
}

// Bars of one frequency share a lane unless they overlap. Returns the number of lanes.
int placeInLanes(std::vector<Bar>& bars) {
    int first = 0;
    std::vector<int> ends;  // stop of the last bar in each lane of this frequency
    for (std::size_t i = 0; i < bars.size(); ++i) {
        if (i > 0 && bars[i].kHz != bars[i - 1].kHz) {
            first += static_cast<int>(ends.size());
            ends.clear();
        }
        const auto free = std::find_if(ends.begin(), ends.end(), [&](int end) { return end <= leftOf(bars[i]); });
        bars[i].lane = first + static_cast<int>(free - ends.begin());
        if (free == ends.end()) {
            ends.push_back(rightOf(bars[i]));
        } else {
            *free = rightOf(bars[i]);
        }
    }
    return first + static_cast<int>(ends.size());
}

std::u16string attribute(std::u16string_view name, int value) {
    return u" " + std::u16string(name) + u"=\"" + decimal(value) + u"\"";
}

std::u16string textAt(std::u16string_view kind, int x, int y, std::u16string_view text) {
    return u"<text class=\"" + std::u16string(kind) + u"\"" + attribute(u"x", x) + attribute(u"y", y) + u">" +
           htmlText(text) + u"</text>";
}

std::u16string hourLines(int bottom) {
    constexpr int kHoursBetweenNumbers = 2;
    std::u16string svg;
    for (int hour = 0; hour <= kHours; ++hour) {
        const int x = xOf(hour * 60);
        svg += u"<line" + attribute(u"x1", x) + attribute(u"x2", x) + attribute(u"y1", kTop - 4) +
               attribute(u"y2", bottom) + u"/>";
        if (hour % kHoursBetweenNumbers == 0) {
            svg += textAt(u"hour", x, kTop - 9, decimal(hour));
        }
    }
    return svg + u"\n";
}

std::u16string drawn(const Bar& bar) {
    const Record& record = bar.record;
    const int y = kTop + bar.lane * kLane + (kLane - kBar) / 2;
    std::u16string title(record.programme);
    ((title += u", ") += record.frequency) += u" kHz, ";
    (((title += record.start) += u"-") += record.stop) += u" UTC, ";
    title += record.target;
    std::u16string svg = u"<g><title>" + htmlText(title) + u"</title><rect class=\"bar\"" +
                         attribute(u"x", xOf(bar.start)) + attribute(u"y", y) +
                         attribute(u"width", std::max(xOf(bar.stop) - xOf(bar.start), 2)) + attribute(u"height", kBar) +
                         u" rx=\"3\"/>";
    if (labelFits(bar)) {
        svg += textAt(u"in", xOf(bar.start) + 4, y + kBaseline, record.programme);
    } else if (labelStandsBefore(bar)) {
        svg += textAt(u"before", xOf(bar.start) - 4, y + kBaseline, record.programme);
    } else {
        svg += textAt(u"behind", xOf(bar.stop) + 4, y + kBaseline, record.programme);
    }
    return svg + u"</g>\n";
}

}  // namespace

std::u16string timelineOf(const Grid& drm, const UtcTime& now) {
    std::vector<Bar> bars = barsOf(drm);
    if (bars.empty()) {
        return {};
    }
    const int bottom = kTop + placeInLanes(bars) * kLane;
    std::u16string svg = u"<svg viewBox=\"0 0 " + decimal(kWidth) + u" " + decimal(bottom + 6) +
                         u"\" role=\"img\" aria-label=\"DRM broadcasts by frequency over 24 hours UTC\">\n";
    svg += u"<rect id=\"now\"" + attribute(u"x", xOf(now.hour * 60)) + attribute(u"y", kTop - 4) +
           attribute(u"width", kHour) + attribute(u"height", bottom - kTop + 4) + attribute(u"data-hour", now.hour) +
           u"/>\n";
    svg += hourLines(bottom);
    for (std::size_t i = 0; i < bars.size(); ++i) {
        if (i == 0 || bars[i].kHz != bars[i - 1].kHz) {
            svg += textAt(u"kHz", kLeft - 8, kTop + bars[i].lane * kLane + (kLane - kBar) / 2 + kBaseline,
                          bars[i].record.frequency);
        }
        svg += drawn(bars[i]);
    }
    return svg + u"</svg>\n";
}
