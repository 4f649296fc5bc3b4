#include "storage/lists/ListSaver.h"

#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

#include "storage/files/SafeFile.h"
#include "storage/ini/IniFile.h"
#include "storage/ini/IniReader.h"
#include "storage/lists/ComposedFile.h"
#include "storage/lists/ListFile.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/ReceptionSystem.h"
#include "storage/text/Numbers.h"
#include "storage/text/mTextUTF.h"

namespace {

constexpr std::size_t kUsualRecordBytes = 128;

std::u16string kilohertzText(std::u16string_view megahertz) {
    return shortestDecimal(kilohertzOf(leadingNumber(megahertz)));
}

// One row of a grid; its texts end at their first NUL.
class Row {
public:
    Row(const Grid& grid, int row) : grid_(grid), row_(row) {}
    std::u16string_view whole(int column) const { return grid_.text(row_, column); }
    std::u16string_view cell(int column) const { return PtrToStrW(whole(column)); }

private:
    const Grid& grid_;
    int row_;
};

std::u16string favouriteFrequency(const Row& row) {
    const std::u16string_view cell = row.whole(kFrequencyColumn);
    const std::u16string_view number = PtrToStrW(cell.substr(0, cell.size() - ReceptionSystem::kUnitLength));
    return ReceptionSystem::isFm(row.whole(kSystemColumn)) ? kilohertzText(number) : std::u16string(number);
}

void appendCell(std::u16string& text, const ListColumn& column, int number, const Row& row) {
    switch (column.content) {
        case CellContent::StoredText:
            return appendIniKey(text, column.storedKey, row.cell(number));
        case CellContent::Megahertz:
            return appendIniKey(text, column.storedKey, kilohertzText(row.cell(number)));
        case CellContent::FrequencyWithUnit:
            return appendIniKey(text, column.storedKey, favouriteFrequency(row));
        case CellContent::AmBand:
        case CellContent::FmBand:
            break;
    }
}

bool hasUnits(const Grid& favourites) {
    for (int row = 1; row <= favourites.rowCount(); ++row) {
        if (favourites.text(row, kFrequencyColumn).size() < ReceptionSystem::kUnitLength) {
            return false;
        }
    }
    return true;
}

}  // namespace

void ListSaver::SaveLists(WorkingCopyBytes bytes) {
    std::vector<NewFile> newFiles;
    for (const ListFileId file : kListFiles) {
        if (!bytes[file]) {
            continue;
        }
        if (files_.exists(copies_[file])) {
            files_.clearAttributes(copies_[file]);
        }
        newFiles.push_back({copies_[file], std::move(*bytes[file])});
    }
    listsSaved_ = replaceFiles(files_, newFiles) && newFiles.size() == std::size(kListFiles);
}

WorkingCopyBytes ListSaver::compose(ComposedLists* last) {
    return {compose(ListFileId::List, last), compose(ListFileId::User, last)};
}

std::optional<std::string> ListSaver::compose(ListFileId file, ComposedLists* last) {
    if (leaves_[file]) {
        return std::nullopt;
    }
    return file == ListFileId::List ? composeListFile(last) : composeUserFile(last);
}

std::string ListSaver::composeListFile(ComposedLists* last) {
    ComposedFile file(startOf(copies_.ListFilePath), usualBytes({ListKind::Drm, ListKind::Am, ListKind::Fm}));
    std::u16string& text = file.text();
    appendIniSection(text, ListFile::kTotal);
    for (const ListKind kind : {ListKind::Drm, ListKind::Am, ListKind::Fm}) {
        appendIniKey(text, ListFile::countKey(kind), decimal(lists_.grid(kind).rowCount()));
    }
    for (const ListKind kind : {ListKind::Drm, ListKind::Am, ListKind::Fm}) {
        appendRecords(file, kind, last);
    }
    return finish(file);
}

std::optional<std::string> ListSaver::composeUserFile(ComposedLists* last) {
    const Grid& favourites = lists_.grid(ListKind::Favourite);
    // A frequency too short to end in its unit would be stored damaged. The loader and the favourites command never
    // produce one; if one occurs nevertheless, the file is left unchanged.
    if (!hasUnits(favourites)) {
        return std::nullopt;
    }
    ComposedFile file(startOf(copies_.UserFilePath), usualBytes({ListKind::Favourite}));
    std::u16string& text = file.text();
    appendIniSection(text, ListFile::kVersion);
    appendIniKey(text, ListFile::kMajor, PtrToStrW(std::u16string_view(settings_.VersionMajor)));
    appendIniSection(text, ListFile::kLast);
    appendIniKey(text, ListFile::kType, PtrToStrW(std::u16string_view(settings_.LastType)));
    appendIniKey(text, ListFile::kStation, PtrToStrW(std::u16string_view(settings_.LastStation)));
    appendIniKey(text, ListFile::kName, PtrToStrW(std::u16string_view(settings_.LastName)));
    appendIniKey(text, ListFile::kIndex, PtrToStrW(std::u16string_view(settings_.LastIndex)));
    appendIniSection(text, ListFile::kTotal);
    appendIniKey(text, ListFile::countKey(ListKind::Favourite), decimal(favourites.rowCount()));
    appendRecords(file, ListKind::Favourite, last);
    return finish(file);
}

std::size_t ListSaver::usualBytes(std::initializer_list<ListKind> kinds) {
    std::size_t rows = 0;
    for (const ListKind kind : kinds) {
        rows += static_cast<std::size_t>(lists_.grid(kind).rowCount());
    }
    return rows * kUsualRecordBytes;
}

void ListSaver::appendRecords(ComposedFile& file, ListKind kind, ComposedLists* last) {
    if (last == nullptr) {
        return composeRecords(file, kind);
    }
    std::optional<ComposedRecords>& records = (*last)[kind];
    const std::uint64_t changes = lists_.grid(kind).changes();
    if (!records || records->changes != changes) {
        ComposedFile part(u"", usualBytes({kind}), records ? std::move(records->bytes) : std::string());
        composeRecords(part, kind);
        const std::size_t units = part.units();
        records = {changes, part.takeBytes(), units};
    }
    file.append(records->bytes, records->units);
}

void ListSaver::composeRecords(ComposedFile& file, ListKind kind) {
    const StationList& list = lists_[kind];
    const std::vector<int> stored = storedColumns(list.columns);
    const int count = list.grid.rowCount();
    std::u16string& text = file.text();
    RecordSection section(kind);
    for (int row = 1; row <= count; ++row) {
        appendIniSection(text, section.of(row - 1));
        for (const int column : stored) {
            appendCell(text, *columnAt(list.columns, column), column, Row(list.grid, row));
        }
        appendIniKey(text, ListFile::kUserDef, u"0");
        file.endRecord();
    }
}

// The file begins with a line of one blank: a working copy has one before the profile functions write into it. A
// missing file gets none.
std::u16string ListSaver::startOf(std::u16string_view path) { return files_.exists(path) ? u" \r\n" : u""; }

// The three-pass save reads n UTF-16 units back as 2n+1 and writes half of them, rounded to even; so an odd n keeps one
// NUL at the end, which the receiver has always been given.
std::string ListSaver::finish(ComposedFile& file) {
    file.text().append(file.units() % 2, u'\0');
    file.text() += u"\r\n";
    appendIniSection(file.text(), ListFile::kEnd);
    return file.takeBytes();
}

void ListSaver::ResetContentOfINI() { resetContent(copies_.ListFilePath, {ListKind::Drm, ListKind::Am, ListKind::Fm}); }

void ListSaver::ResetContentOfUserINI() { resetContent(copies_.UserFilePath, {ListKind::Favourite}); }

void ListSaver::resetContent(std::u16string_view path, std::initializer_list<ListKind> kinds) {
    IniReader profile = readIni(path, files_, codePages_);
    editIniFile(path, files_, codePages_, [&](IniEditor& edit) {
        for (const ListKind kind : kinds) {
            const int count = saturateToInt16(leadingNumber(profile.get(ListFile::kTotal, ListFile::countKey(kind))));
            RecordSection section(kind);
            for (int index = 0; index < count; ++index) {
                edit.removeSection(section.of(index));
            }
        }
        // Set first, so that the file ends in the same way whether or not it had the marker.
        edit.set(ListFile::kEnd, u"Delete", u"True");
        edit.removeSection(ListFile::kEnd);
    });
}
