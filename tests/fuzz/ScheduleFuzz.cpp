// Compares the schedule scanner with a simple one, and checks every accepted record against the rules.
#include <algorithm>

#include "fakes/FakeCodePages.h"
#include "fuzz/Fuzz.h"
#include "storage/stations/RowStore.h"
#include "sync/PlainScan.h"

namespace {

bool isTime(std::u16string_view text, char16_t lastHour) {
    const auto digit = [&](std::size_t at) { return text[at] >= u'0' && text[at] <= u'9'; };
    return text.size() == 5 && digit(0) && digit(1) && text[2] == u':' && digit(3) && digit(4) &&
           text.substr(0, 2) <= std::u16string{u'2', lastHour} && text[3] <= u'5';
}

bool isRecord(const Grid& grid, int row) {
    const std::u16string_view frequency = grid.text(row, 2);
    const std::u16string_view span = grid.text(row, 3);
    if (grid.text(row, 1).empty() || frequency.empty() || grid.text(row, 4).empty() || span.size() != 11) {
        return false;
    }
    std::u16string number(frequency);
    number.erase(0, std::min(number.find_first_not_of(u'0'), number.size()));
    const bool inRange = number.size() < 5 || (number.size() == 5 && number <= u"30000");
    return std::all_of(frequency.begin(), frequency.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; }) &&
           inRange && span[5] == u'-' && isTime(span.substr(0, 5), u'3') && isTime(span.substr(6), u'4') &&
           span.substr(0, 5) < span.substr(6);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = FakeCodePages().decode(bytesOf(data, size));
    RowStore real;
    RowStore plain;
    const int added = AddScheduleRecords(real, text, 0);
    promise(added == plainScan(plain, text), "as many records as the plain scan finds");
    promise(added == real.rowCount() && added == plain.rowCount() && added <= 257, "each is a row");
    for (int row = 1; row <= added; ++row) {
        for (int column = 1; column <= 4; ++column) {
            promise(real.text(row, column) == plain.text(row, column), "the same cells");
        }
        promise(isRecord(real, row), "an accepted record keeps the rules");
    }
    promise(AddScheduleRecords(real, text, added) == 0, "a schedule read again has nothing new");
    return 0;
}
