#include "ctl/CheckCounts.h"

#include <string>

#include "storage/ini/IniReader.h"
#include "storage/lists/ListFile.h"
#include "storage/text/Numbers.h"

namespace {

constexpr int kLargestCount = 32'767;

void checkCount(IniReader& file, ListKind kind, Faults& faults) {
    const std::u16string_view text = file.get(ListFile::kTotal, ListFile::countKey(kind));
    const std::u16string key(ListFile::countKey(kind));
    const auto count = roundToInt16(leadingNumber(text));
    if (!count || (!text.empty() && (*count < 0 || decimal(*count) != text))) {
        faults.add(
            {kind, 0, key, u"\"" + std::u16string(text) + u"\" is no count from 0 to " + decimal(kLargestCount)});
    }
    RecordSection section(kind);
    const int read = count.value_or(0);
    for (int index = 0; index < read; ++index) {
        if (!file.hasSection(section.of(index))) {
            faults.add({kind, index + 1, key,
                        u"says " + decimal(read) + u", but there is no section " + std::u16string(section.of(index))});
        }
    }
    // A wrong count hides records; one message says how many.
    int beyond = read < 0 ? 0 : read;
    const int first = beyond;
    while (beyond < kLargestCount && file.hasSection(section.of(beyond))) {
        ++beyond;
    }
    if (beyond > first) {
        faults.add({kind, 0, key,
                    (text.empty() ? std::u16string(u"is missing") : u"says " + std::u16string(text)) +
                        u", but sections follow up to " + std::u16string(section.of(beyond - 1))});
    }
}

}  // namespace

void checkCounts(ParsedFiles& files, Faults& faults) {
    for (const ListKind kind : kListKinds) {
        if (auto& file = files[ListFile::fileOf(kind)]) {
            checkCount(file->text, kind, faults);
        }
    }
}
