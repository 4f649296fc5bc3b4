#include "ctl/JsonLists.h"

#include <nlohmann/json.hpp>
#include <numeric>

#include "ctl/Record.h"
#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

namespace {

using Json = nlohmann::ordered_json;  // keeps the order of keys

constexpr int kIndent = 2;

// A number if the text is one, else the text.
Json frequencyOf(std::u16string_view text) {
    const double value = leadingNumber(text);
    if (shortestDecimal(value) != text) {
        return toUtf8(text);
    }
    constexpr double kLargestWhole = 1e15;
    const bool isWhole = value < kLargestWhole && text.find(u'.') == text.npos;
    return isWhole ? Json(static_cast<std::int64_t>(value)) : Json(value);
}

Json objectOf(const Grid& grid, ListKind kind, int row) {
    const Record record = recordOf(grid, kind, row);
    Json object;
    object["row"] = row;
    object["programme"] = toUtf8(record.programme);
    object["frequency_khz"] = frequencyOf(record.frequency);
    switch (kind) {
        case ListKind::Drm:
            object["start_utc"] = toUtf8(record.start);
            object["stop_utc"] = toUtf8(record.stop);
            object["target"] = toUtf8(record.target);
            break;
        case ListKind::Am:
        case ListKind::Fm:
            object["band"] = toUtf8(grid.text(row, 3));
            break;
        case ListKind::Favourite:
            object["system"] = toUtf8(record.system);
            break;
    }
    return object;
}

Json arrayOf(const Grid& grid, ListKind kind, const std::vector<int>& rows) {
    Json array = Json::array();
    for (const int row : rows) {
        array.push_back(objectOf(grid, kind, row));
    }
    return array;
}

}  // namespace

std::string jsonOf(const Lists& lists, const std::vector<ListKind>& kinds) {
    Json root = Json::object();
    for (const ListKind kind : kinds) {
        std::vector<int> rows(static_cast<std::size_t>(lists.grid(kind).rowCount()));
        std::iota(rows.begin(), rows.end(), 1);
        root[toUtf8(shortNameOf(kind))] = arrayOf(lists.grid(kind), kind, rows);
    }
    return root.dump(kIndent) + "\n";
}

std::string jsonOf(const Lists& lists, ListKind kind, const std::vector<int>& rows) {
    return arrayOf(lists.grid(kind), kind, rows).dump(kIndent) + "\n";
}
