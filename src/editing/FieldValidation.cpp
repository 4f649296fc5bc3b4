#include "editing/FieldValidation.h"

#include <algorithm>
#include <array>
#include <string>

#include "storage/Numbers.h"

namespace {

constexpr int kFrequency = 2;
constexpr int kBandOrSystem = 3;

bool within(double value, double lowest, double highest) { return value >= lowest && value <= highest; }

// kHz; empty between and beyond the bands. The medium wave keeps 1,710 to itself.
std::u16string_view bandOf(double frequency) {
    if (within(frequency, 150, 288)) {
        return u"LW";
    }
    if (within(frequency, 522, 1710)) {
        return u"MW";
    }
    return within(frequency, 1710, 30000) ? u"SW" : u"";
}

bool isDrmFrequency(double frequency) { return within(frequency, 150, 30000); }
bool isAmFrequency(double frequency) { return !bandOf(frequency).empty(); }
bool isFmFrequency(double frequency) { return within(frequency, 87.0, 108.0); }

struct SystemRules {
    std::u16string_view system;  // as the System cell of a favourite names it
    bool allowsPoint;
    bool (*accepts)(double frequency);
    std::u16string_view refusal;
    std::u16string_view favouriteUnit;  // follows a favourite's frequency
};

// In the order of the tabs, which is also the order in which a favourite's System cell is searched.
constexpr std::array<SystemRules, 3> kSystems = {{
    {u"DRM", false, isDrmFrequency, u"Out of range: (150--30000) kHz", u"  kHz"},
    {u"AM", false, isAmFrequency, u"Out of range: LW(150-288) kHz,MW(522-1710)kHz,SW(1710-30000)kHz!", u"  kHz"},
    {u"FM", true, isFmFrequency, u"Out of range: (87.0-108.0) MHz!", u"  MHz"},
}};

// Null when the favourite's system is none of the three.
const SystemRules* rulesFor(ListKind kind, const Grid& grid) {
    if (kind != ListKind::Favourite) {
        return &kSystems[static_cast<std::size_t>(kind)];
    }
    const std::u16string_view cell = grid.text(grid.firstSelected(), kBandOrSystem);
    const auto* const found = std::find_if(kSystems.begin(), kSystems.end(), [cell](const SystemRules& rules) {
        return cell.find(rules.system) != std::u16string_view::npos;
    });
    return found == kSystems.end() ? nullptr : found;
}

// The message of the first rule that the text breaks, empty when it keeps them all.
std::u16string_view firstFault(std::u16string_view text, int column, const SystemRules& rules) {
    constexpr std::u16string_view kNotANumber = u"Please input (0-9)";
    if (text.empty()) {
        return u"Input can't be empty";
    }
    if (text.find_first_not_of(u' ') == std::u16string_view::npos) {
        return u"Input can't be all space";
    }
    // Before the column is looked at: programmes of the FM lists cannot hold two points either.
    if (rules.allowsPoint && std::count(text.begin(), text.end(), u'.') > 1) {
        return kNotANumber;
    }
    if (column != kFrequency) {
        return {};
    }
    if (text.find_first_not_of(rules.allowsPoint ? u"0123456789." : u"0123456789") != std::u16string_view::npos) {
        return kNotANumber;
    }
    return rules.accepts(leadingNumber(text)) ? std::u16string_view{} : rules.refusal;
}

}  // namespace

void FieldValidation::commitEdit(std::u16string_view text) {
    const int tab = tabs_.currentTab();
    if (!isListTab(tab)) {
        return;
    }
    const auto kind = static_cast<ListKind>(tab);
    validate(text, kind);
    lists_.view(kind).takeFocus();
}

void FieldValidation::validate(std::u16string_view text, ListKind kind) {
    Grid& grid = lists_.grid(kind);
    const SystemRules* const rules = rulesFor(kind, grid);
    if (rules == nullptr) {
        return;
    }
    const int column = edit_.editColumn;
    if (const std::u16string_view fault = firstFault(text, column, *rules); !fault.empty()) {
        messages_.show(fault);
        return;
    }
    std::u16string stored(text);
    if (column == kFrequency && kind == ListKind::Favourite) {
        stored += rules->favouriteUnit;
    }
    grid.setText(edit_.editRow, column, std::move(stored));
    if (column == kFrequency && kind == ListKind::Am) {
        grid.setText(edit_.editRow, kBandOrSystem, std::u16string(bandOf(leadingNumber(text))));
    }
}
