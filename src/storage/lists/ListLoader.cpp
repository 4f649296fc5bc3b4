#include "storage/lists/ListLoader.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "storage/lists/ListFile.h"
#include "storage/stations/ListColumns.h"
#include "storage/text/Numbers.h"
#include "storage/text/mTextUTF.h"

namespace {

constexpr unsigned bitOf(ListKind kind) { return 1U << static_cast<unsigned>(kind); }
constexpr unsigned kListFileKinds = bitOf(ListKind::Drm) | bitOf(ListKind::Am) | bitOf(ListKind::Fm);

// The band of a loaded record. The edit box and the Add List dialog have slightly different bounds; all are meant.
std::u16string_view bandOf(double kHz) {
    if (kHz <= 288) {
        return u"LW";
    }
    if (kHz >= 522 && kHz < 1710) {
        return u"MW";
    }
    return kHz >= 1710 ? u"SW" : u"";
}

int countOf(IniReader& profile, ListKind kind) {
    return roundToInt16(leadingNumber(profile.get(ListFile::kTotal, ListFile::countKey(kind)))).value_or(0);
}

// The keys of a list's records that are read, in the order of Record's values.
std::span<const std::u16string_view> keysOf(ListKind kind) {
    static constexpr std::array kDrm = {ListFile::kProgramme, ListFile::kFrequency, ListFile::kTime, ListFile::kTarget};
    static constexpr std::array kFavourite = {ListFile::kProgramme, ListFile::kFrequency, ListFile::kType};
    switch (kind) {
        case ListKind::Drm:
            return kDrm;
        case ListKind::Favourite:
            return kFavourite;
        default:
            return std::span(kDrm).first(2);
    }
}

struct Record {
    std::array<std::u16string_view, 4> values;

    double kilohertz() const { return leadingNumber(values[1]); }
    double megahertz() const { return kilohertz() / 1000; }
};

void appendRecord(Grid& grid, ListKind kind, const Record& record) {
    const auto& [programme, frequency, third, fourth] = record.values;
    switch (kind) {
        case ListKind::Drm:
            grid.appendRow({programme, frequency, third, fourth});
            break;
        case ListKind::Am:
            grid.appendRow({programme, frequency, bandOf(record.kilohertz())});
            break;
        case ListKind::Fm:
            grid.appendRow({programme, shortestDecimal(record.megahertz()), u"VHF"});
            break;
        case ListKind::Favourite: {
            std::u16string number = shortestDecimal(ListFile::isFm(third) ? record.megahertz() : record.kilohertz());
            number += ListFile::unitOf(third);
            grid.appendRow({programme, number, third});
            break;
        }
    }
}

void keepUnlessEmpty(std::u16string& remembered, std::u16string_view read) {
    if (!read.empty()) {
        remembered = PtrToStrW(read);
    }
}

}  // namespace

void ListLoader::loadFromListFile(ListKind kind, bool setUpColumns) {
    if (setUpColumns) {
        addListColumns(lists_[kind]);
    }
    if (!given_.list && !files_.exists(copies_.ListFilePath)) {
        return;
    }
    if (!listFile_ || (served_ & bitOf(kind)) != 0) {
        listFile_ = read(given_.list, copies_.ListFilePath);
        served_ = 0;
    }
    appendRecords(kind, *listFile_);
    served_ |= bitOf(kind);
    if (served_ == kListFileKinds) {
        listFile_.reset();
        served_ = 0;
        given_.list.reset();
    }
}

void ListLoader::LoadFavList(bool setUpColumns) {
    if (setUpColumns) {
        addListColumns(lists_[ListKind::Favourite]);
    }
    if (!given_.user && !files_.exists(copies_.UserFilePath)) {
        return;
    }
    IniReader profile = read(given_.user, copies_.UserFilePath);
    given_.user.reset();
    readSettings(profile);
    appendRecords(ListKind::Favourite, profile);
}

void ListLoader::readSettings(IniReader& profile) {
    keepUnlessEmpty(settings_.VersionMajor, profile.get(ListFile::kVersion, ListFile::kMajor));
    keepUnlessEmpty(settings_.LastType, profile.get(ListFile::kLast, ListFile::kType));
    keepUnlessEmpty(settings_.LastStation, profile.get(ListFile::kLast, ListFile::kStation));
    keepUnlessEmpty(settings_.LastName, profile.get(ListFile::kLast, ListFile::kName));
    // The index is written but never read: every save writes the value of the program's start.
}

void ListLoader::appendRecords(ListKind kind, IniReader& profile) {
    const int count = countOf(profile, kind);
    if (count < 1) {
        return;
    }
    Grid& grid = lists_.grid(kind);
    const GridUpdate update(grid);
    grid.expectRows(count, profile.text());
    RecordSection section(kind);
    Record record;
    for (int index = 0; index < count; ++index) {
        profile.get(section.of(index), keysOf(kind), record.values);
        for (std::u16string_view& value : record.values) {
            value = PtrToStrW(value);
        }
        appendRecord(grid, kind, record);
    }
}

IniReader ListLoader::read(const std::optional<std::string>& given, std::u16string_view path) {
    return given ? IniReader(decodeIni(*given, codePages_).text) : readIni(path, files_, codePages_);
}

void ListLoader::loadFrom(WorkingCopyBytes bytes) {
    forgetFiles();
    given_ = std::move(bytes);
}

void ListLoader::forgetFiles() {
    listFile_.reset();
    served_ = 0;
    given_ = {};
}
