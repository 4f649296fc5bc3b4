// Four grids, files in memory, loader and saver.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "fakes/FourLists.h"
#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"
#include "storage/text/Utf16Bytes.h"

// A file as the profile functions write it: UTF-16LE with a byte-order mark.
inline std::string utf16File(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    appendBytes(bytes, text, ByteOrder::Little);
    return bytes;
}

class StorageTest : public testing::Test, protected FourLists {
protected:
    using Rows = std::vector<std::vector<std::u16string>>;

    void loadAll(bool setUpColumns = true) {
        loader.LoadDrmList(setUpColumns);
        loader.LoadAmList(setUpColumns);
        loader.LoadFmList(setUpColumns);
        loader.LoadFavList(setUpColumns);
    }
    void clearAll() {
        for (RowStore& rows : grids) {
            rows.clear();
        }
    }
    static Rows rowsOf(const RowStore& grid, int columns) {
        Rows rows;
        for (int row = 1; row <= grid.rowCount(); ++row) {
            auto& cells = rows.emplace_back();
            for (int column = 1; column <= columns; ++column) {
                cells.emplace_back(grid.text(row, column));
            }
        }
        return rows;
    }
    auto countOf(const std::string& access) const {
        return std::count(files.accesses.begin(), files.accesses.end(), access);
    }
    bool onlyWorkingCopiesExist() const {
        return std::all_of(files.files.begin(), files.files.end(), [this](const auto& file) {
            return file.first == copies.ListFilePath || file.first == copies.UserFilePath;
        });
    }
    std::string& listFile() { return files.files[copies.ListFilePath]; }
    std::string& userFile() { return files.files[copies.UserFilePath]; }

    FakeFiles files;
    FakeCodePages codePages;
    RowStore& drm = grid(ListKind::Drm);
    RowStore& am = grid(ListKind::Am);
    RowStore& fm = grid(ListKind::Fm);
    RowStore& favourites = grid(ListKind::Favourite);
    FakeGridView& drmView = view(ListKind::Drm);
    WorkingCopies copies{u"/k7/List.ini", u"/k7/User.ini"};
    ReceiverSettings settings;
    ListLoader loader{lists, copies, settings, files, codePages};
    ListSaver saver{lists, copies, settings, files, codePages};
};
