#include "ctl/HtmlPage.h"

#include "ctl/Html.h"
#include "ctl/Timeline.h"
#include "storage/lists/ComposedFile.h"
#include "storage/text/Numbers.h"

namespace {

constexpr std::u16string_view kHead =
    uR"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Station lists</title>
<style>
:root { color-scheme: light dark; --paper: #fff; --ink: #1d2430; --faint: #8a93a3; --line: #dfe3ea; --bar: #2f6fb3;
  --on-bar: #fff; --now: #ffe8a3; }
@media (prefers-color-scheme: dark) { :root { --paper: #14181f; --ink: #e4e8ee; --faint: #8b95a5; --line: #2b323d;
  --bar: #4d8fd6; --on-bar: #0b0f14; --now: #4a3d12; } }
@media print { :root { --paper: #fff; --ink: #000; --line: #ccc; } section { break-inside: auto; } tr { break-inside: avoid; } }
body { margin: 0 auto; max-width: 70rem; padding: 1.5rem; background: var(--paper); color: var(--ink);
  font: 15px/1.45 system-ui, sans-serif; }
h1 { font-size: 1.5rem; margin: 0; }
h2 { font-size: 1.15rem; margin: 2rem 0 .5rem; }
p { color: var(--faint); margin: .25rem 0; }
table { border-collapse: collapse; width: 100%; }
th, td { text-align: left; padding: .25rem .6rem; border-bottom: 1px solid var(--line); }
th { color: var(--faint); font-weight: 600; }
td.number, th.number { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
svg { width: 100%; height: auto; font-size: 11px; print-color-adjust: exact; -webkit-print-color-adjust: exact; }
svg line { stroke: var(--line); }
svg text { fill: var(--ink); }
svg .hour { text-anchor: middle; fill: var(--faint); }
svg .kHz, svg .before { text-anchor: end; }
svg .bar { fill: var(--bar); }
svg .in { fill: var(--on-bar); }
#now { fill: var(--now); }
</style>
</head>
<body>
<h1>Station lists</h1>
)";

// Without scripts the mark stays at the hour when the page was written.
constexpr std::u16string_view kEnd =
    uR"(<script>
const mark = document.getElementById("now");
if (mark) {
  const start = +mark.getAttribute("x") - mark.dataset.hour * mark.getAttribute("width");
  const move = () => mark.setAttribute("x", start + new Date().getUTCHours() * mark.getAttribute("width"));
  move();
  setInterval(move, 60000);
}
</script>
</body>
</html>
)";

std::u16string twoDigits(int number) { return number < 10 ? u"0" + decimal(number) : decimal(number); }

std::u16string timeOf(const UtcTime& time) {
    return decimal(time.year) + u"-" + twoDigits(time.month) + u"-" + twoDigits(time.day) + u" " +
           twoDigits(time.hour) + u":" + twoDigits(time.minute) + u" UTC";
}

void appendRow(std::u16string& html, std::u16string_view tag, const Grid& grid, ListKind kind, int row) {
    constexpr int kFrequency = 2;
    html += u"<tr>";
    for (int column = 1; column <= columnCountOf(kind); ++column) {
        (html += u"<") += tag;
        html += column == kFrequency ? u" class=\"number\">" : u" dir=\"auto\">";
        html += htmlText(row == 0 ? std::u16string_view(grid.columns()[static_cast<std::size_t>(column - 1)].caption)
                                  : grid.text(row, column));
        ((html += u"</") += tag) += u">";
    }
    html += u"</tr>\n";
}

void appendList(ComposedFile& file, const Lists& lists, ListKind kind, const UtcTime& now) {
    const Grid& grid = lists.grid(kind);
    std::u16string& html = file.text();
    html += u"<section>\n<h2>" + htmlText(titleOf(kind)) + u"</h2>\n<p>" + decimal(grid.rowCount()) + u" records</p>\n";
    if (kind == ListKind::Drm) {
        html += timelineOf(grid, now);
    }
    if (grid.rowCount() > 0) {
        html += u"<table>\n<thead>";
        appendRow(html, u"th", grid, kind, 0);
        html += u"</thead>\n<tbody>\n";
        for (int row = 1; row <= grid.rowCount(); ++row) {
            appendRow(html, u"td", grid, kind, row);
            file.endRecord();
        }
        html += u"</tbody>\n</table>\n";
    }
    html += u"</section>\n";
}

}  // namespace

std::string htmlOf(const Lists& lists, const UtcTime& now) {
    constexpr std::size_t kUsualPage = 65'536;
    ComposedFile file(kHead, kUsualPage);
    file.text() += u"<p>" + timeOf(now) + u"</p>\n";
    for (const ListKind kind : kListKinds) {
        appendList(file, lists, kind, now);
    }
    file.text() += kEnd;
    return file.takeBytes();
}
