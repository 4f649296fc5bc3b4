// For any pair of list files, a second load and save changes nothing beyond the rules of the files.
#include <algorithm>
#include <vector>

#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "fakes/FourLists.h"
#include "fuzz/Fuzz.h"
#include "storage/ini/IniSyntax.h"
#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"
#include "storage/text/Numbers.h"

namespace {

using Rows = std::vector<std::vector<std::u16string>>;

struct Program : FourLists {
    void load() {
        for (RowStore& rows : grids) {
            rows.clear();
        }
        loader.forgetFiles();
        convertWorkingCopy(copies.ListFilePath, files);
        convertWorkingCopy(copies.UserFilePath, files);
        loader.LoadDrmList(false);
        loader.LoadAmList(false);
        loader.LoadFmList(false);
        loader.LoadFavList(false);
    }
    static Rows rowsOf(const RowStore& grid) {
        Rows rows;
        for (int row = 1; row <= grid.rowCount(); ++row) {
            auto& cells = rows.emplace_back();
            for (int column = 1; column <= 4; ++column) {
                cells.emplace_back(grid.text(row, column));
            }
        }
        return rows;
    }
    std::vector<Rows> all() const { return {rowsOf(grids[0]), rowsOf(grids[1]), rowsOf(grids[2]), rowsOf(grids[3])}; }

    FakeFiles files;
    FakeCodePages codePages;
    WorkingCopies copies{u"/List.ini", u"/User.ini"};
    ReceiverSettings settings;
    ListLoader loader{lists, copies, settings, files, codePages};
    ListSaver saver{lists, copies, settings, files, codePages};
};

// Each reading removes one pair of nested quotes, so only texts that equal their own value are stable.
bool isStable(const std::vector<Rows>& lists) {
    return std::all_of(lists.begin(), lists.end(), [](const Rows& rows) {
        return std::all_of(rows.begin(), rows.end(), [](const auto& cells) {
            return std::all_of(cells.begin(), cells.end(),
                               [](const std::u16string& cell) { return iniValue(cell) == cell; });
        });
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = bytesOf(data, size);
    const std::size_t cut = std::min(bytes.find('\x01'), bytes.size());
    Program program;
    program.files.files[u"/List.ini"] = bytes.substr(0, cut);
    program.files.files[u"/User.ini"] = cut < bytes.size() ? bytes.substr(cut + 1) : "";
    program.load();
    const std::vector<Rows> first = program.all();
    std::size_t rows = 0;
    for (const Rows& list : first) {
        rows += list.size();
    }
    if (rows > 2000) {
        return 0;  // huge counts only cost time
    }
    program.saver.SaveLists();
    promise(program.saver.ListsSaved(), "what was loaded can be saved");
    promise(program.files.files.size() == 2, "no temporary file is left");
    const auto saved = program.files.files;
    program.load();
    const std::vector<Rows> second = program.all();
    for (std::size_t list = 0; list < first.size(); ++list) {
        promise(first[list].size() == second[list].size(), "no record is lost or made up");
    }
    if (isStable(first)) {
        promise(first == second, "loading what was saved shows the same");
        program.saver.SaveLists();
        promise(program.files.files == saved, "saving again writes the same bytes");
    }
    return 0;
}
