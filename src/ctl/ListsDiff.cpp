#include "ctl/ListsDiff.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "ctl/CellsHash.h"
#include "storage/text/Numbers.h"

namespace {

// The band of a record is derived from its frequency, so it is not compared.
int storedColumnsOf(ListKind kind) {
    switch (kind) {
        case ListKind::Drm:
            return 4;
        case ListKind::Am:
        case ListKind::Fm:
            return 2;
        case ListKind::Favourite:
            return 3;
    }
    return 0;
}

class ListDiff {
public:
    ListDiff(const Lists& before, const Lists& after, ListKind kind)
        : before_(before.grid(kind)),
          after_(after.grid(kind)),
          kind_(kind),
          newRowOf_(static_cast<std::size_t>(before_.rowCount()) + 1),
          isTaken_(static_cast<std::size_t>(after_.rowCount()) + 1) {}

    void run(bool ordered, std::vector<RecordChange>& changes) {
        match({1, storedColumnsOf(kind_)});
        match({kProgrammeColumn, kProgrammeColumn});
        match({kFrequencyColumn, kFrequencyColumn});
        if (ordered) {
            findMoved();
        }
        for (int row = 1; row <= before_.rowCount(); ++row) {
            addOld(row, changes);
        }
        for (int row = 1; row <= after_.rowCount(); ++row) {
            if (!isTaken_[static_cast<std::size_t>(row)]) {
                changes.push_back({kind_, 0, row, cellsOf(after_, row), {}});
            }
        }
    }

private:
    struct Columns {
        int first;
        int last;
    };
    using Rows = std::vector<HashedRow>;
    using RowsEnd = Rows::const_iterator;

    // The rows without a partner, by the hash of these columns.
    template <class HasPartner>
    static Rows hashed(const Grid& grid, Columns columns, HasPartner hasPartner) {
        Rows rows;
        std::array<std::u16string_view, kMaxColumns> cells;
        for (int row = 1; row <= grid.rowCount(); ++row) {
            if (!hasPartner(static_cast<std::size_t>(row))) {
                std::size_t count = 0;
                for (int column = columns.first; column <= columns.last; ++column) {
                    cells[count++] = grid.text(row, column);
                }
                rows.push_back({hashOf(std::span(cells).first(count)), row});
            }
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    static RowsEnd endOfGroup(RowsEnd begin, RowsEnd end) {
        return std::find_if(begin, end, [hash = begin->hash](const HashedRow& row) { return row.hash != hash; });
    }

    // Pairs records that have no partner and are equal in these columns, in the order of the rows.
    void match(Columns columns) {
        const Rows oldRows = hashed(before_, columns, [this](std::size_t row) { return newRowOf_[row] != 0; });
        const Rows newRows = hashed(after_, columns, [this](std::size_t row) { return isTaken_[row]; });
        auto old = oldRows.begin();
        auto added = newRows.begin();
        while (old != oldRows.end() && added != newRows.end()) {
            if (old->hash != added->hash) {
                ++(old->hash < added->hash ? old : added);
                continue;
            }
            const auto oldEnd = endOfGroup(old, oldRows.end());
            const auto addedEnd = endOfGroup(added, newRows.end());
            matchGroup({old, oldEnd}, {added, addedEnd}, columns);
            old = oldEnd;
            added = addedEnd;
        }
    }

    // Rows with one hash.
    void matchGroup(std::span<const HashedRow> oldRows, std::span<const HashedRow> newRows, Columns columns) {
        for (const HashedRow& old : oldRows) {
            while (!newRows.empty() && isTaken_[static_cast<std::size_t>(newRows.front().row)]) {
                newRows = newRows.subspan(1);
            }
            for (const HashedRow& added : newRows) {
                const auto partner = static_cast<std::size_t>(added.row);
                if (!isTaken_[partner] && areSame(old.row, added.row, columns)) {
                    newRowOf_[static_cast<std::size_t>(old.row)] = added.row;
                    isTaken_[partner] = true;
                    break;
                }
            }
        }
    }

    bool areSame(int oldRow, int newRow, Columns columns) const {
        int column = columns.first;
        while (column <= columns.last && before_.text(oldRow, column) == after_.text(newRow, column)) {
            ++column;
        }
        return column > columns.last;
    }

    // Partners outside a longest increasing run have moved.
    void findMoved() {
        std::vector<int> tails;  // old rows; the i-th ends the best run of i + 1 records found so far
        std::vector<int> previous(newRowOf_.size());
        const auto newRow = [this](int oldRow) { return newRowOf_[static_cast<std::size_t>(oldRow)]; };
        for (int row = 1; row <= before_.rowCount(); ++row) {
            if (newRow(row) == 0) {
                continue;
            }
            const auto place = std::lower_bound(tails.begin(), tails.end(), row,
                                                [&](int tail, int wanted) { return newRow(tail) < newRow(wanted); });
            previous[static_cast<std::size_t>(row)] = place == tails.begin() ? 0 : *std::prev(place);
            if (place == tails.end()) {
                tails.push_back(row);
            } else {
                *place = row;
            }
        }
        hasMoved_.assign(newRowOf_.size(), true);
        for (int row = tails.empty() ? 0 : tails.back(); row != 0; row = previous[static_cast<std::size_t>(row)]) {
            hasMoved_[static_cast<std::size_t>(row)] = false;
        }
    }

    void addOld(int row, std::vector<RecordChange>& changes) {
        const int partner = newRowOf_[static_cast<std::size_t>(row)];
        RecordChange change{kind_, row, partner, cellsOf(before_, row), {}};
        if (partner != 0) {
            for (int column = 1; column <= storedColumnsOf(kind_); ++column) {
                if (before_.text(row, column) != after_.text(partner, column)) {
                    change.fields.push_back({before_.columns()[static_cast<std::size_t>(column - 1)].caption,
                                             std::u16string(before_.text(row, column)),
                                             std::u16string(after_.text(partner, column))});
                }
            }
            if (!hasMoved_.empty() && hasMoved_[static_cast<std::size_t>(row)]) {
                change.fields.push_back({u"row", decimal(row), decimal(partner)});
            }
        }
        if (partner == 0 || !change.fields.empty()) {
            changes.push_back(std::move(change));
        }
    }

    std::vector<std::u16string> cellsOf(const Grid& grid, int row) const {
        std::vector<std::u16string> cells;
        for (int column = 1; column <= storedColumnsOf(kind_); ++column) {
            cells.emplace_back(grid.text(row, column));
        }
        return cells;
    }

    const Grid& before_;
    const Grid& after_;
    ListKind kind_;
    std::vector<int> newRowOf_;  // by old row; 0: no partner
    std::vector<bool> isTaken_;  // by new row
    std::vector<bool> hasMoved_;
};

}  // namespace

std::vector<RecordChange> diffLists(const Lists& before, const Lists& after, bool ordered) {
    std::vector<RecordChange> changes;
    for (const ListKind kind : kListKinds) {
        ListDiff(before, after, kind).run(ordered, changes);
    }
    return changes;
}
