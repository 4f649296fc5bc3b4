#include "storage/lists/ListLoader.h"

#include <string>
#include <string_view>
#include <utility>

#include "storage/lists/ListFile.h"
#include "storage/lists/ListRecords.h"
#include "storage/stations/ListColumns.h"
#include "storage/text/mTextUTF.h"

namespace {

constexpr unsigned bitOf(ListKind kind) { return 1U << static_cast<unsigned>(kind); }
constexpr unsigned kListFileKinds = bitOf(ListKind::Drm) | bitOf(ListKind::Am) | bitOf(ListKind::Fm);

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
    const StationList& list = lists_[kind];
    ListRecords records(profile, kind, list.columns);
    const std::optional<int> count = records.count();
    if (!count) {
        leftOut_[kind == ListKind::Favourite ? ListFileId::User : ListFileId::List] = true;
    }
    if (count.value_or(0) < 1) {
        return;
    }
    const GridUpdate update(list.grid);
    list.grid.expectRows(*count, profile.text());
    for (int index = 0; index < *count; ++index) {
        list.grid.appendRow(records.cells(index));
    }
}

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
