#include "storage/lists/ListLoader.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

// The cells of one record at a time; valid until the next.
class RecordCells {
public:
    explicit RecordCells(std::span<const ListColumn> columns) : columns_(columns), stored_(storedColumns(columns)) {
        for (const int number : stored_) {
            keys_.push_back(columnAt(columns, number)->storedKey);
        }
        values_.resize(keys_.size());
    }

    std::span<const std::u16string_view> read(IniReader& profile, std::u16string_view section) {
        profile.get(section, keys_, values_);
        for (std::size_t i = 0; i < stored_.size(); ++i) {
            cell(stored_[i]) = values_[i];
        }
        const std::u16string_view stored = cell(kFrequencyColumn);
        for (int number = 1; number <= static_cast<int>(columns_.size()); ++number) {
            compute(columns_[at(number)].content, number, stored);
        }
        return std::span(cells_).first(columns_.size());
    }

private:
    static std::size_t at(int number) { return static_cast<std::size_t>(number - 1); }
    std::u16string_view& cell(int number) { return cells_[at(number)]; }

    // `frequency`: as stored, in kHz.
    void compute(CellContent content, int number, std::u16string_view frequency) {
        switch (content) {
            case CellContent::StoredText:
                return;
            case CellContent::Megahertz:
                cell(number) = decimalOf(number, leadingNumber(frequency) / 1000);
                return;
            case CellContent::FrequencyWithUnit: {
                const std::u16string_view type = cell(kSystemColumn);
                const double kilohertz = leadingNumber(frequency);
                decimalOf(number, ReceptionSystem::isFm(type) ? kilohertz / 1000 : kilohertz);
                cell(number) = computed_[at(number)].append(ReceptionSystem::unitOf(type));
                return;
            }
            case CellContent::AmBand:
                cell(number) = Bands::ofLoadedRecord(leadingNumber(frequency));
                return;
            case CellContent::FmBand:
                cell(number) = Bands::kVhf;
                return;
        }
    }

    const std::u16string& decimalOf(int number, double value) {
        std::u16string& text = computed_[at(number)];
        text.clear();
        appendShortestDecimal(text, value);
        return text;
    }

    std::span<const ListColumn> columns_;
    std::vector<int> stored_;                  // column numbers, in the order of the file
    std::vector<std::u16string_view> keys_;    // of stored_
    std::vector<std::u16string_view> values_;  // of stored_
    std::array<std::u16string_view, kMaxColumns> cells_;
    std::array<std::u16string, kMaxColumns> computed_;  // the texts of cells that are not in the file
};

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
    RecordCells cells(list.columns);
    for (int index = 0; index < *count; ++index) {
        list.grid.appendRow(cells.read(profile, section.of(index)));
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
