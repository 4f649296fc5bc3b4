#include "storage/lists/ListRecords.h"

#include "storage/stations/Bands.h"
#include "storage/stations/ReceptionSystem.h"
#include "storage/text/Numbers.h"

ListRecords::ListRecords(IniReader& file, ListKind kind, std::span<const ListColumn> columns)
    : file_(file), kind_(kind), section_(kind), columns_(columns), stored_(storedColumns(columns_)) {
    for (const int number : stored_) {
        keys_.push_back(columnAt(columns_, number)->storedKey);
    }
    values_.resize(keys_.size());
}

std::optional<int> ListRecords::count() {
    return roundToInt16(leadingNumber(file_.get(ListFile::kTotal, ListFile::countKey(kind_))));
}

std::span<const std::u16string_view> ListRecords::cells(int index) {
    file_.get(section_.of(index), keys_, values_);
    for (std::size_t i = 0; i < stored_.size(); ++i) {
        cell(stored_[i]) = values_[i];
    }
    const std::u16string_view stored = cell(kFrequencyColumn);
    for (int number = 1; number <= static_cast<int>(columns_.size()); ++number) {
        if (const CellContent content = columns_[at(number)].content; content != CellContent::StoredText) {
            compute(content, number, stored);
        }
    }
    return std::span(cells_).first(columns_.size());
}

void ListRecords::compute(CellContent content, int number, std::u16string_view frequency) {
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

const std::u16string& ListRecords::decimalOf(int number, double value) {
    std::u16string& text = computed_[at(number)];
    text.clear();
    appendShortestDecimal(text, value);
    return text;
}
