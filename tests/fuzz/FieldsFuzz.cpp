// Every typed text is either rejected with one message and no cell changed, or stored as typed and within its range.
#include <algorithm>
#include <vector>

#include "adding/FieldRules.h"
#include "editing/FieldValidation.h"
#include "fakes/FakeControls.h"
#include "fakes/FakeServices.h"
#include "fakes/FourLists.h"
#include "fuzz/Fuzz.h"
#include "storage/text/Utf8.h"

namespace {

class CountingBox : public StandardMessageBox {
public:
    int show(std::u16string_view, int, std::u16string_view) override {
        ++shown;
        return BoxAnswer::Ok;
    }
    int shown = 0;
};

std::vector<std::u16string> cellsOf(const Grid& grid) {
    std::vector<std::u16string> cells;
    for (int row = 1; row <= grid.rowCount(); ++row) {
        for (int column = 1; column <= 4; ++column) {
            cells.emplace_back(grid.text(row, column));
        }
    }
    return cells;
}

bool isBlankText(std::u16string_view text) { return text.find_first_not_of(u' ') == text.npos; }

// Digits with at most one point, if a point is allowed; returns the value in thousandths, truncated.
long thousandths(std::u16string_view text, bool& isNumber) {
    long value = 0;
    int behind = -1;
    isNumber = !text.empty();
    for (const char16_t c : text) {
        if (c == u'.' && behind < 0) {
            behind = 0;
        } else if (c < u'0' || c > u'9') {
            isNumber = false;
            return 0;
        } else if (behind < 3) {
            value = std::min(value * 10 + (c - u'0'), 1'000'000'000L);
            behind += behind >= 0 ? 1 : 0;
        }
    }
    for (int i = std::max(behind, 0); i < 3; ++i) {
        value *= 10;
    }
    return value;
}

void checkEdit(int tab, int column, const std::u16string& system, const std::u16string& text) {
    FourLists all;
    RowStore& grid = all.grid(static_cast<ListKind>(tab));
    grid.appendRow({u"Name", u"6095  kHz", tab == 3 ? system : u"x", u"Target"});
    grid.setSelected(1, true);
    FakeTabControl tabs;
    tabs.tab = tab;
    EditState edit;
    edit.editRow = 1;
    edit.editColumn = column;
    CountingBox box;
    FakeWindowHook hook;
    mMsgBox messages(box, hook);
    const auto before = cellsOf(grid);
    FieldValidation(all.lists, tabs, edit, messages).commitEdit(text);
    const auto after = cellsOf(grid);
    if (box.shown > 0) {
        promise(box.shown == 1 && before == after, "a refused text shows one message and changes no cell");
        return;
    }
    if (before == after) {
        return;  // stored unchanged, or a favourite of no system
    }
    promise(!text.empty() && !isBlankText(text), "an empty text is never stored");
    const std::u16string& stored = after[static_cast<std::size_t>(column - 1)];
    promise(tab == 3 && column == 2 ? stored.size() == text.size() + 5 && stored.starts_with(text) : stored == text,
            "a text is stored as typed");
    if (column == 2) {
        bool isNumber = false;
        const long value = thousandths(text, isNumber);
        const bool isFm = tab == 2 || (tab == 3 && stored.ends_with(u"MHz"));
        promise(isNumber && (isFm || text.find(u'.') == text.npos), "a stored frequency is a number");
        promise(isFm ? value >= 87'000 && value <= 108'000 : value >= 150'000 && value <= 30'000'000,
                "a stored frequency is within its bounds");
    }
}

void checkRule(const FieldRule& rule, std::u16string_view text, bool isFm) {
    if (!fieldError(rule, text).empty()) {
        return;
    }
    promise(!isBlankText(text), "an empty text is never accepted");
    if (rule.frequencyOf) {
        bool isNumber = false;
        const long value = thousandths(text, isNumber);
        promise(isNumber && (isFm ? value >= 87'000 && value <= 108'000 : value >= 150'000 && value <= 30'000'000),
                "an accepted frequency is within its bounds");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    static const std::u16string kSystems[] = {u"DRM", u"AM", u"FM", u"?"};
    const std::u16string text = fromUtf8(bytesOf(data + 1, size - 1));
    const int choice = data[0];
    checkEdit(choice % 4, 1 + choice / 4 % 4, kSystems[choice / 16 % 4], text);
    checkRule(kProgrammeRule, text, false);
    checkRule(kTargetRule, text, false);
    checkRule(kDrmFrequencyRule, text, false);
    checkRule(kAmFrequencyRule, text, false);
    checkRule(kFmFrequencyRule, text, true);
    return 0;
}
