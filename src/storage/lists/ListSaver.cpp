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
#include "storage/text/Numbers.h"
#include "storage/text/mTextUTF.h"

namespace {

constexpr std::size_t kUsualRecordBytes = 128;

std::u16string kilohertzText(std::u16string_view megahertz) {
    return shortestDecimal(kilohertzOf(leadingNumber(megahertz)));
}

// One row of a grid, its texts cut at their first NUL.
class Row {
public:
    Row(const Grid& grid, int row) : grid_(grid), row_(row) {}
    std::u16string_view whole(int column) const { return grid_.text(row_, column); }
    std::u16string_view cell(int column) const { return PtrToStrW(whole(column)); }

private:
    const Grid& grid_;
    int row_;
};

void appendDrm(std::u16string& text, const Row& row) {
    appendIniKey(text, ListFile::kFrequency, row.cell(2));
    appendIniKey(text, ListFile::kProgramme, row.cell(1));
    appendIniKey(text, ListFile::kTime, row.cell(3));
    appendIniKey(text, ListFile::kTarget, row.cell(4));
}

void appendAm(std::u16string& text, const Row& row) {
    appendIniKey(text, ListFile::kFrequency, row.cell(2));
    appendIniKey(text, ListFile::kProgramme, row.cell(1));
}

void appendFm(std::u16string& text, const Row& row) {
    appendIniKey(text, ListFile::kFrequency, kilohertzText(row.cell(2)));
    appendIniKey(text, ListFile::kProgramme, row.cell(1));
}

void appendFavourite(std::u16string& text, const Row& row) {
    const std::u16string_view frequency =
        PtrToStrW(row.whole(2).substr(0, row.whole(2).size() - ListFile::kUnitLength));
    appendIniKey(text, ListFile::kProgramme, row.cell(1));
    if (ListFile::isFm(row.whole(3))) {
        appendIniKey(text, ListFile::kFrequency, kilohertzText(frequency));
    } else {
        appendIniKey(text, ListFile::kFrequency, frequency);
    }
    appendIniKey(text, ListFile::kType, row.cell(3));
}

void appendRecord(std::u16string& text, ListKind kind, const Row& row) {
    switch (kind) {
        case ListKind::Drm:
            return appendDrm(text, row);
        case ListKind::Am:
            return appendAm(text, row);
        case ListKind::Fm:
            return appendFm(text, row);
        case ListKind::Favourite:
            return appendFavourite(text, row);
    }
}

bool hasUnits(const Grid& favourites) {
    for (int row = 1; row <= favourites.rowCount(); ++row) {
        if (favourites.text(row, 2).size() < ListFile::kUnitLength) {
            return false;
        }
    }
    return true;
}

}  // namespace

void ListSaver::SaveLists() {
    std::vector<NewFile> newFiles;
    for (const ListFileId file : kListFiles) {
        auto bytes = compose(file);
        if (!bytes) {
            continue;
        }
        if (files_.exists(copies_[file])) {
            files_.clearAttributes(copies_[file]);
        }
        newFiles.push_back({copies_[file], std::move(*bytes)});
    }
    listsSaved_ = replaceFiles(files_, newFiles) && newFiles.size() == std::size(kListFiles);
}

WorkingCopyBytes ListSaver::compose() { return {compose(ListFileId::List), compose(ListFileId::User)}; }

std::optional<std::string> ListSaver::compose(ListFileId file) {
    if (leaves_[file]) {
        return std::nullopt;
    }
    return file == ListFileId::List ? composeListFile() : composeUserFile();
}

std::string ListSaver::composeListFile() {
    ComposedFile file(startOf(copies_.ListFilePath), usualBytes({ListKind::Drm, ListKind::Am, ListKind::Fm}));
    std::u16string& text = file.text();
    appendIniSection(text, ListFile::kTotal);
    for (const ListKind kind : {ListKind::Drm, ListKind::Am, ListKind::Fm}) {
        appendIniKey(text, ListFile::countKey(kind), decimal(lists_.grid(kind).rowCount()));
    }
    for (const ListKind kind : {ListKind::Drm, ListKind::Am, ListKind::Fm}) {
        appendRecords(file, kind);
    }
    return finish(file);
}

std::optional<std::string> ListSaver::composeUserFile() {
    const Grid& favourites = lists_.grid(ListKind::Favourite);
    // A frequency too short to end in its unit cannot be told from a damaged one. Writing the others
    // would lose it, so the file stays as it is; the loaders and the favourites command never make such a cell.
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
    appendRecords(file, ListKind::Favourite);
    return finish(file);
}

std::size_t ListSaver::usualBytes(std::initializer_list<ListKind> kinds) {
    std::size_t rows = 0;
    for (const ListKind kind : kinds) {
        rows += static_cast<std::size_t>(lists_.grid(kind).rowCount());
    }
    return rows * kUsualRecordBytes;
}

void ListSaver::appendRecords(ComposedFile& file, ListKind kind) {
    const Grid& grid = lists_.grid(kind);
    const int count = grid.rowCount();
    std::u16string& text = file.text();
    RecordSection section(kind);
    for (int row = 1; row <= count; ++row) {
        appendIniSection(text, section.of(row - 1));
        appendRecord(text, kind, Row(grid, row));
        appendIniKey(text, ListFile::kUserDef, u"0");
        file.endRecord();
    }
}

// A working copy is seeded with one blank before the profile functions write into it, which makes its
// first line; one that is missing is not.
std::u16string ListSaver::startOf(std::u16string_view path) { return files_.exists(path) ? u" \r\n" : u""; }

// What is left of a UTF-16 file of `text` after it has been re-encoded and the marker appended: reading such a file
// yields its text, as many NULs and one more; of these units half are kept, which are one too many when the
// length is odd. The receiver has always been given that byte.
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
        // Written first so that a file without the marker ends in the same way as one that had it.
        edit.set(ListFile::kEnd, u"Delete", u"True");
        edit.removeSection(ListFile::kEnd);
    });
}
