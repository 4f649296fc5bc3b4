#include "SampleLists.h"

#include "storage/lists/ListSaver.h"
#include "storage/text/Numbers.h"

namespace {

constexpr std::array<std::u16string_view, 8> kStations = {u"中国之声",   u"Радио России",  u"Voice of Example",
                                                          u"عربي إذاعة", u"Ελληνική Φωνή", u"Radio Україна",
                                                          u"ラジオ日本", u"한국 방송"};
constexpr std::array<std::u16string_view, 4> kTargets = {u"Western Europe", u"东南亚", u"Северная Америка", u"India"};
constexpr std::array<std::u16string_view, 3> kSystems = {u"DRM", u"AM", u"FM"};

// Numbers in no order, so that there is something to sort.
int scattered(int number, int range) {
    return static_cast<int>(static_cast<unsigned>(number) * 7919U % static_cast<unsigned>(range));
}

std::u16string twoDigits(int value) {
    std::u16string digits(value < 10 ? 1 : 0, u'0');
    return digits += decimal(value);
}

std::u16string sampleTime(int number) {
    const int hour = scattered(number, 23);
    return twoDigits(hour) + u":00-" + twoDigits(hour + 1) + u":30";
}

std::u16string sampleMegahertz(int number) { return shortestDecimal((64000 + 50 * scattered(number, 880)) / 1000.0); }

std::u16string_view bandOf(int kHz) { return kHz < 1710 ? u"MW" : u"SW"; }

}  // namespace

std::u16string sampleName(int number, Names names) {
    if (names == Names::Latin) {
        return u"Voice of Example " + decimal(number);
    }
    const auto index = static_cast<std::size_t>(scattered(number, static_cast<int>(kStations.size())));
    return std::u16string(kStations[index]) + u' ' + decimal(number);
}

std::u16string sampleSchedule(std::size_t units) {
    std::u16string schedule = u"[DRMSchedule]\r\n";
    for (int number = 0;; ++number) {
        const int hour = scattered(number, 23);
        const std::u16string record = std::u16string(u"StartStopTimeUTC=") + twoDigits(hour) + u"00-" +
                                      twoDigits(hour + 1) + u"30\r\nDays=1234567\r\nFrequency=" +
                                      decimal(5900 + scattered(number, 20000)) +
                                      u"\r\nTarget=Western Europe\r\nPower=100\r\nProgramme=Radio Example " +
                                      decimal(number) + u"\r\nLanguage=English\r\nSite=Somewhere\r\nCountry=XX\r\n";
        if (schedule.size() + record.size() > units) {
            return schedule;
        }
        schedule += record;
    }
}

SampleLists::SampleLists(std::u16string_view folder, Names names)
    : names_(names), copies_{std::u16string(folder) + u"List.ini", std::u16string(folder) + u"User.ini"} {}

StationLists SampleLists::lists() {
    return StationLists({StationList{ListKind::Drm, grids_[0], view_}, StationList{ListKind::Am, grids_[1], view_},
                         StationList{ListKind::Fm, grids_[2], view_},
                         StationList{ListKind::Favourite, grids_[3], view_}});
}

void SampleLists::clear() {
    for (RowStore& grid : grids_) {
        grid.clear();
    }
}

void SampleLists::fill(int records) {
    clear();
    for (int number = 0; number < records; ++number) {
        const std::u16string name = sampleName(number, names_);
        const int kHz = 531 + scattered(number, 25000);
        const auto target = kTargets[static_cast<std::size_t>(names_ == Names::Latin ? 0 : scattered(number, 4))];
        const auto system = kSystems[static_cast<std::size_t>(number % 3)];
        grid(ListKind::Drm).appendRow({name, decimal(kHz), sampleTime(number), std::u16string(target)});
        grid(ListKind::Am).appendRow({name, decimal(kHz), std::u16string(bandOf(kHz))});
        grid(ListKind::Fm).appendRow({name, sampleMegahertz(number), u"VHF"});
        const bool isFm = system == u"FM";
        grid(ListKind::Favourite)
            .appendRow(
                {name, isFm ? sampleMegahertz(number) + u"  MHz" : decimal(kHz) + u"  kHz", std::u16string(system)});
    }
}

void SampleLists::writeUtf8(Files& files, CodePages& codePages) {
    createWorkingCopy(copies_.ListFilePath, files, codePages);
    createWorkingCopy(copies_.UserFilePath, files, codePages);
    ListSaver(lists(), copies_, settings_, files, codePages).SaveLists();
}

void SampleLists::writeUtf16(Files& files, CodePages& codePages) {
    writeUtf8(files, codePages);
    convertWorkingCopy(copies_.ListFilePath, files);
    convertWorkingCopy(copies_.UserFilePath, files);
}
