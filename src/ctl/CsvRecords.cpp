#include "ctl/CsvRecords.h"

#include <algorithm>
#include <array>
#include <utility>

#include "adding/FieldRules.h"
#include "ctl/CsvWriter.h"
#include "ctl/Lists.h"
#include "storage/ini/IniSyntax.h"
#include "storage/stations/ReceptionSystem.h"
#include "storage/text/Numbers.h"

namespace {

enum Column : std::size_t { kList, kProgramme, kFrequency, kStart, kStop, kTarget, kSystem };

// A list file cannot store every text: compares the text with what a loader would read back.
bool canBeStored(std::u16string_view text) {
    return text.find_first_of(std::u16string_view(u"\r\n\0", 3)) == text.npos && iniValue(text) == text;
}

class Reader {
public:
    Reader(std::optional<ListKind> only, CsvRecords& result) : only_(only), result_(result) {}

    bool readHeader(const CsvRow& row) {
        if (!row.fault.empty()) {
            fault(row.line, {}, row.fault);
            return false;
        }
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            const auto known = std::find_if(kCsvColumns.begin(), kCsvColumns.end(),
                                            [&](std::u16string_view name) { return sameName(name, row.cells[i]); });
            if (known == kCsvColumns.end()) {
                result_.unknownColumns.push_back(row.cells[i]);
                continue;
            }
            auto& place = places_[static_cast<std::size_t>(known - kCsvColumns.begin())];
            if (place) {
                fault(row.line, *known, u"is in the first line twice");
            }
            place = i;
        }
        columnCount_ = row.cells.size();
        require(row.line, kProgramme);
        require(row.line, kFrequency);
        if (!only_) {
            require(row.line, kList);
        }
        return result_.faults.empty();
    }

    void readRow(const CsvRow& row) {
        row_ = &row;
        if (!row.fault.empty()) {
            fault(row.line, {}, row.fault);
            return;
        }
        if (row.cells.size() != columnCount_) {
            fault(row.line, {},
                  u"has " + decimal(static_cast<int>(row.cells.size())) + u" cells, the first line has " +
                      decimal(static_cast<int>(columnCount_)));
            return;
        }
        const auto list = listOf();
        if (list && *list == only_.value_or(*list)) {
            readRecord(*list);
        }
    }

private:
    void fault(int line, std::u16string_view column, std::u16string_view reason) {
        result_.faults.push_back({line, std::u16string(column), std::u16string(reason)});
    }
    void fault(Column column, std::u16string_view reason) { fault(row_->line, kCsvColumns[column], reason); }

    void require(int line, Column column) {
        if (!places_[column]) {
            fault(line, kCsvColumns[column], u"is missing from the first line");
        }
    }

    std::u16string_view cell(Column column) const {
        return places_[column] ? std::u16string_view(row_->cells[*places_[column]]) : std::u16string_view();
    }

    std::optional<ListKind> listOf() {
        if (!places_[kList]) {
            return only_;
        }
        for (const ListKind kind : kListKinds) {
            if (sameName(shortNameOf(kind), cell(kList))) {
                return kind;
            }
        }
        fault(kList, u"is none of drm, am, fm and fav");
        return std::nullopt;
    }

    void readRecord(ListKind list) {
        Record record;
        record.programme = checked(kProgramme, kProgrammeRule);
        if (list == ListKind::Favourite) {
            record.system = cell(kSystem);
            readFavouriteFrequency(record);
        } else {
            readFrequency(list, record);
        }
        if (list == ListKind::Drm) {
            readTime(record);
            record.target = checked(kTarget, kTargetRule);
        }
        result_.records.push_back({list, std::move(record)});
    }

    std::u16string_view checked(Column column, const FieldRule& rule) {
        const std::u16string_view text = cell(column);
        if (const std::u16string_view error = fieldError(rule, text); !error.empty()) {
            fault(column, error);
        } else if (!canBeStored(text)) {
            fault(column, u"cannot be stored: it has a line break, blanks or quotes around it, or too many characters");
        }
        return text;
    }

    // The CSV file has kHz in every list; the FM rules use MHz.
    void readFrequency(ListKind rules, Record& record) {
        record.frequency = cell(kFrequency);
        std::u16string checkedText = record.frequency;
        const bool isNumber = checkedText.find_first_not_of(u"0123456789.") == checkedText.npos &&
                              std::count(checkedText.begin(), checkedText.end(), u'.') <= 1;
        if (rules == ListKind::Fm && isNumber && !checkedText.empty()) {
            checkedText = shortestDecimal(leadingNumber(checkedText) / 1000);
        }
        if (const std::u16string_view error = fieldError({u"", rules}, checkedText); !error.empty()) {
            fault(kFrequency, error);
        }
    }

    void readFavouriteFrequency(Record& record) {
        for (const ListKind kind : {ListKind::Drm, ListKind::Am, ListKind::Fm}) {
            if (record.system == ReceptionSystem::typeOf(kind)) {
                readFrequency(kind, record);
                return;
            }
        }
        fault(kSystem, u"is none of DRM, AM and FM");
    }

    void readTime(Record& record) {
        record.start = cell(kStart);
        record.stop = cell(kStop);
        if (!areTimes(record.start, record.stop)) {
            fault(kStart, u"and stop_utc are no times hh:mm of which the first is the earlier one");
        }
    }

    std::optional<ListKind> only_;
    CsvRecords& result_;
    std::array<std::optional<std::size_t>, kCsvColumns.size()> places_{};
    std::size_t columnCount_ = 0;
    const CsvRow* row_ = nullptr;
};

}  // namespace

CsvRecords readCsv(std::u16string_view text, std::optional<ListKind> only) {
    CsvRecords result;
    CsvReader csv(text);
    Reader reader(only, result);
    CsvRow row;
    if (!csv.next(row)) {
        result.faults.push_back({1, {}, u"holds no first line with the names of the columns"});
        return result;
    }
    if (!reader.readHeader(row)) {
        return result;
    }
    while (csv.next(row)) {
        reader.readRow(result.rows.emplace_back(std::move(row)));
    }
    return result;
}
