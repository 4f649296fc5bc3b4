#include "storage/lists/ListLoader.h"

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

int countOf(const IniReader& profile, ListKind kind) {
    return roundToInt16(leadingNumber(profile.get(ListFile::kTotal, ListFile::countKey(kind)))).value_or(0);
}

// One record's section.
class Record {
public:
    Record(const IniReader& profile, std::u16string_view section) : keys_(profile.section(section)) {}
    std::u16string_view text(std::u16string_view key) const { return PtrToStrW(keys_.get(key)); }
    double frequency() const { return leadingNumber(text(ListFile::kFrequency)); }

private:
    IniReader::SectionKeys keys_;
};

void appendFavourite(Grid& grid, const Record& record) {
    const std::u16string_view type = record.text(ListFile::kType);
    std::u16string frequency = shortestDecimal(ListFile::isFm(type) ? record.frequency() / 1000 : record.frequency());
    frequency += ListFile::unitOf(type);
    grid.appendRow({record.text(ListFile::kProgramme), frequency, type});
}

void appendRecord(Grid& grid, ListKind kind, const Record& record) {
    const std::u16string_view programme = record.text(ListFile::kProgramme);
    const std::u16string_view frequency = record.text(ListFile::kFrequency);
    switch (kind) {
        case ListKind::Drm:
            grid.appendRow({programme, frequency, record.text(ListFile::kTime), record.text(ListFile::kTarget)});
            break;
        case ListKind::Am:
            grid.appendRow({programme, frequency, bandOf(record.frequency())});
            break;
        case ListKind::Fm:
            grid.appendRow({programme, shortestDecimal(record.frequency() / 1000), u"VHF"});
            break;
        case ListKind::Favourite:
            appendFavourite(grid, record);
            break;
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
    const IniReader profile = read(given_.user, copies_.UserFilePath);
    given_.user.reset();
    readSettings(profile);
    appendRecords(ListKind::Favourite, profile);
}

void ListLoader::readSettings(const IniReader& profile) {
    keepUnlessEmpty(settings_.VersionMajor, profile.get(ListFile::kVersion, ListFile::kMajor));
    keepUnlessEmpty(settings_.LastType, profile.get(ListFile::kLast, ListFile::kType));
    keepUnlessEmpty(settings_.LastStation, profile.get(ListFile::kLast, ListFile::kStation));
    keepUnlessEmpty(settings_.LastName, profile.get(ListFile::kLast, ListFile::kName));
    // The index is written but never read: every save writes the value of the program's start.
}

void ListLoader::appendRecords(ListKind kind, const IniReader& profile) {
    const int count = countOf(profile, kind);
    if (count < 1) {
        return;
    }
    Grid& grid = lists_.grid(kind);
    const GridUpdate update(grid);
    RecordSection section(kind);
    for (int index = 0; index < count; ++index) {
        appendRecord(grid, kind, Record(profile, section.of(index)));
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
