#include "adding/addForm.h"

#include <cstddef>
#include <vector>

#include "storage/stations/Bands.h"
#include "storage/stations/FieldLimits.h"
#include "storage/text/Numbers.h"

namespace {

constexpr std::u16string_view kDialogTitle = u"Add List";
constexpr int kEnterCode = 13;
constexpr int kEscapeCode = 27;

AddCaptions captions() {
    return {u"&Programme:", u"&Frequency:", u"kHz",    u"S&tart Time(UTC):", u"--", u"St&opTime(UTC):", u"--",
            u"T&arget:",    u"&Save",       u"&Cancel"};
}

bool isStopTime(AddField field) { return field == AddField::eHourComb || field == AddField::eMinComb; }

std::vector<std::u16string> numbersBelow(int end) {
    std::vector<std::u16string> items;
    items.reserve(static_cast<std::size_t>(end));
    for (int number = 0; number < end; ++number) {
        items.push_back(decimal(number));
    }
    return items;
}

std::u16string timeText(const std::u16string& hour, const std::u16string& minute) {
    const auto padded = [](const std::u16string& text) { return text.size() == 1 ? u'0' + text : text; };
    return padded(hour) + u':' + padded(minute);
}

}  // namespace

void addForm::open() {
    if (view_.isOpen()) {
        return;
    }
    totals_.ShowTotals();
    if (!hasRoom()) {
        messages_.showPlain(kListFull);
        return;
    }
    // Disable first: a toolkit may also disable the dialogs that a window already owns.
    mainWindow_.setEnabled(false);
    view_.create(captions(), *this);
    if (!view_.isOpen()) {
        mainWindow_.setEnabled(true);
        return;
    }
    load();
    view_.show();
    view_.takeFocus(kAddRows.front().field);
}

bool addForm::hasRoom() {
    const int tab = currentTab_.GetCurrentTab();
    return isListTab(tab) && kind() != ListKind::Favourite && lists_.grid(kind()).rowCount() < kMaxRecords;
}

void addForm::load() {
    const ListKind kind = this->kind();
    view_.setTitle(kDialogTitle);
    const bool isDrm = kind == ListKind::Drm;
    for (const AddField field :
         {AddField::sHourComb, AddField::sMinComb, AddField::eHourComb, AddField::eMinComb, AddField::txtTarget}) {
        view_.setEnabled(field, isDrm);
    }
    const std::u16string title(kDialogTitle);
    if (isDrm) {
        view_.setTitle(title + u"--[DRM List]");
        view_.setCaption(AddControl::LaFreq, u"kHz");
        fillTimeCombos();
    } else if (kind == ListKind::Am) {
        view_.setTitle(title + u"--[AM List]");
        view_.setCaption(AddControl::LaFreq, u"kHz");
    } else if (kind == ListKind::Fm) {
        view_.setTitle(title + u"--[FM List]");
        view_.setCaption(AddControl::LaFreq, u"MHz");
    }
}

void addForm::fillTimeCombos() {
    const std::vector<std::u16string> hours = numbersBelow(24);
    const std::vector<std::u16string> minutes = numbersBelow(60);
    view_.setItems(AddField::sHourComb, hours);
    view_.setItems(AddField::sMinComb, minutes);
    view_.setItems(AddField::eHourComb, hours);
    view_.setItems(AddField::eMinComb, minutes);
}

void addForm::close() {
    if (!view_.isOpen()) {
        return;
    }
    // Enable first: when a window closes, the system activates only a window that accepts input.
    mainWindow_.setEnabled(true);
    view_.destroy();
    totals_.showTotalOf(currentTab_.GetCurrentTab());
}

bool addForm::keyPressed(AddField field, int characterCode) {
    const bool isEnter = characterCode == kEnterCode;
    const bool isEscape = characterCode == kEscapeCode;
    const bool listWasOpen = isCombo(field) && view_.isListOpen(field);
    if (listWasOpen) {
        view_.closeList(field, isEnter);
    }
    // Any key in the two stop times saves; users type the last digit and expect the checks to run.
    if (!isEnter && !isStopTime(field)) {
        return listWasOpen && isEscape;
    }
    save();
    // Escape must not discard the record that the user has just tried to save.
    return isEnter || isEscape || !view_.isOpen();
}

void addForm::save() {
    const std::u16string programme = view_.text(AddField::txtLabel);
    const std::u16string frequency = view_.text(AddField::txtFreq);
    if (!isValid(kProgrammeRule, programme)) {
        view_.takeFocus(AddField::txtLabel);
        return;
    }
    bool added = false;
    switch (kind()) {
        case ListKind::Drm:
            added = saveDrm(programme, frequency);
            break;
        case ListKind::Am:
            added = saveAm(programme, frequency);
            break;
        case ListKind::Fm:
            added = saveFm(programme, frequency);
            break;
        case ListKind::Favourite:
            break;
    }
    if (added) {
        added_();
        close();
    }
}

bool addForm::saveDrm(const std::u16string& programme, const std::u16string& frequency) {
    if (!isValid(kDrmFrequencyRule, frequency)) {
        return false;
    }
    const std::u16string target = view_.text(AddField::txtTarget);
    if (!isValid(kTargetRule, target)) {
        return false;
    }
    const std::u16string startHour = view_.text(AddField::sHourComb);
    const std::u16string startMinute = view_.text(AddField::sMinComb);
    if (startHour.empty() || startMinute.empty()) {
        say(u"Start Time(UTC): ", kInputEmpty);
        return false;
    }
    const std::u16string stopHour = view_.text(AddField::eHourComb);
    const std::u16string stopMinute = view_.text(AddField::eMinComb);
    if (stopHour.empty() || stopMinute.empty()) {
        say(u"Stop Time(UTC): ", kInputEmpty);
        return false;
    }
    const std::u16string start = timeText(startHour, startMinute);
    const std::u16string stop = timeText(stopHour, stopMinute);
    if (start >= stop) {
        say({}, u"Start Time Must Smaller Than Stop Time");
        return false;
    }
    lists_.grid(ListKind::Drm).appendRow({programme, frequency, start + u'-' + stop, target});
    return true;
}

bool addForm::saveAm(const std::u16string& programme, const std::u16string& frequency) {
    if (!isValid(kAmFrequencyRule, frequency)) {
        return false;
    }
    const std::u16string band(Bands::ofNewRecord(leadingNumber(frequency)));
    lists_.grid(ListKind::Am).appendRow({programme, frequency, band});
    return true;
}

bool addForm::saveFm(const std::u16string& programme, const std::u16string& frequency) {
    if (!isValid(kFmFrequencyRule, frequency)) {
        return false;
    }
    lists_.grid(ListKind::Fm).appendRow({programme, frequency, Bands::kVhf});
    return true;
}

bool addForm::isValid(const FieldRule& rule, std::u16string_view text) {
    const std::u16string_view error = fieldError(rule, text);
    if (!error.empty()) {
        say(rule.prefix, error);
    }
    return error.empty();
}

void addForm::say(std::u16string_view prefix, std::u16string_view message) {
    messages_.show(std::u16string(prefix) += message, BoxStyle::Ok, kDialogTitle);
}
