#include "storage/lists/ListLoader.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "storage/lists/ListFile.h"
#include "storage/stations/Bands.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/ReceptionSystem.h"
#include "storage/text/Numbers.h"
#include "storage/text/mTextUTF.h"

namespace {

constexpr unsigned bitOf(ListKind kind) { return 1U << static_cast<unsigned>(kind); }
constexpr unsigned kListFileKinds = bitOf(ListKind::Drm) | bitOf(ListKind::Am) | bitOf(ListKind::Fm);

std::optional<int> countOf(IniReader& profile, ListKind kind) {
    return roundToInt16(leadingNumber(profile.get(ListFile::kTotal, ListFile::countKey(kind))));
}

// The stored values of one record at a time.
class Record {
public:
    explicit Record(std::span<const ListColumn> columns) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].storedPlace != 0) {
                columns_[stored_] = i;
                keys_[stored_++] = columns[i].storedKey;
            }
        }
    }
    void read(IniReader& profile, std::u16string_view section) {
        std::array<std::u16string_view, kMaxColumns> values;
        profile.get(section, std::span<const std::u16string_view>(keys_).first(stored_), values);
        for (std::size_t i = 0; i < stored_; ++i) {
            values_[columns_[i]] = PtrToStrW(values[i]);
        }
    }
    std::u16string_view value(int column) const { return values_[static_cast<std::size_t>(column - 1)]; }
    double kilohertz() const { return leadingNumber(value(kFrequencyColumn)); }
    double megahertz() const { return kilohertz() / 1000; }

private:
    std::size_t stored_ = 0;
    std::array<std::u16string_view, kMaxColumns> keys_;
    std::array<std::size_t, kMaxColumns> columns_{};       // 0-based column of each key
    std::array<std::u16string_view, kMaxColumns> values_;  // by column
};

// `made` holds the text of a cell whose text is not in the file.
std::u16string_view cellText(CellContent content, int column, const Record& record, std::u16string& made) {
    switch (content) {
        case CellContent::StoredText:
            break;
        case CellContent::Megahertz:
            return made = shortestDecimal(record.megahertz());
        case CellContent::FrequencyWithUnit: {
            const std::u16string_view type = record.value(kSystemColumn);
            made = shortestDecimal(ReceptionSystem::isFm(type) ? record.megahertz() : record.kilohertz());
            return made += ReceptionSystem::unitOf(type);
        }
        case CellContent::AmBand:
            return Bands::ofLoadedRecord(record.kilohertz());
        case CellContent::FmBand:
            return Bands::kVhf;
    }
    return record.value(column);
}

void appendRecord(const StationList& list, const Record& record) {
    std::array<std::u16string, kMaxColumns> made;
    std::array<std::u16string_view, kMaxColumns> cells;
    for (std::size_t i = 0; i < list.columns.size(); ++i) {
        cells[i] = cellText(list.columns[i].content, static_cast<int>(i) + 1, record, made[i]);
    }
    list.grid.appendRow(std::span<const std::u16string_view>(cells).first(list.columns.size()));
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
    if (!listFile_ && !has(ListFileId::List)) {
        return;
    }
    if (!listFile_ || (served_ & bitOf(kind)) != 0) {
        listFile_ = read(ListFileId::List);
        served_ = 0;
    }
    appendRecords(kind, *listFile_);
    served_ |= bitOf(kind);
    if (served_ == kListFileKinds) {
        listFile_.reset();
        served_ = 0;
        given_[ListFileId::List].reset();
    }
}

void ListLoader::LoadFavList(bool setUpColumns) {
    if (setUpColumns) {
        addListColumns(lists_[ListKind::Favourite]);
    }
    if (!has(ListFileId::User)) {
        return;
    }
    IniReader profile = read(ListFileId::User);
    given_[ListFileId::User].reset();
    readSettings(profile);
    appendRecords(ListKind::Favourite, profile);
}

void ListLoader::readSettings(IniReader& profile) {
    keepUnlessEmpty(settings_.VersionMajor, profile.get(ListFile::kVersion, ListFile::kMajor));
    keepUnlessEmpty(settings_.LastType, profile.get(ListFile::kLast, ListFile::kType));
    keepUnlessEmpty(settings_.LastStation, profile.get(ListFile::kLast, ListFile::kStation));
    keepUnlessEmpty(settings_.LastName, profile.get(ListFile::kLast, ListFile::kName));
    // The index is written but not read: every save writes the value that the program started with.
}

void ListLoader::appendRecords(ListKind kind, IniReader& profile) {
    const std::optional<int> count = countOf(profile, kind);
    if (!count) {
        leftOut_[kind == ListKind::Favourite ? ListFileId::User : ListFileId::List] = true;
    }
    if (count.value_or(0) < 1) {
        return;
    }
    const StationList& list = lists_[kind];
    const GridUpdate update(list.grid);
    list.grid.expectRows(*count, profile.text());
    RecordSection section(kind);
    Record record(list.columns);
    for (int index = 0; index < *count; ++index) {
        record.read(profile, section.of(index));
        appendRecord(list, record);
    }
}

bool ListLoader::has(ListFileId file) { return parsed_[file] || given_[file] || files_.exists(copies_[file]); }

IniReader ListLoader::read(ListFileId file) {
    if (parsed_[file]) {
        return *std::exchange(parsed_[file], std::nullopt);
    }
    return given_[file] ? IniReader(decodeIni(*given_[file], codePages_).text)
                        : readIni(copies_[file], files_, codePages_);
}

void ListLoader::loadFrom(WorkingCopyBytes bytes) {
    forgetFiles();
    leftOut_ = {};
    given_ = std::move(bytes);
}

void ListLoader::loadFrom(PerListFile<std::optional<IniReader>> files) {
    forgetFiles();
    leftOut_ = {};
    parsed_ = std::move(files);
}

void ListLoader::forgetFiles() {
    listFile_.reset();
    served_ = 0;
    given_ = {};
    parsed_ = {};
}
