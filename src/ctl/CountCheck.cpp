#include "ctl/CountCheck.h"

#include <algorithm>

#include "storage/text/Numbers.h"

namespace {

constexpr int kLargestCount = 32'767;

}  // namespace

CountCheck::CountCheck(IniReader& file, ListKind kind, Faults& faults)
    : file_(file),
      kind_(kind),
      faults_(faults),
      key_(ListFile::countKey(kind)),
      text_(file.get(ListFile::kTotal, key_)),
      section_(kind) {
    const auto count = roundToInt16(leadingNumber(text_));
    if (!count || (!text_.empty() && (*count < 0 || decimal(*count) != text_))) {
        faults.add(
            {kind, 0, key_, u"\"" + std::u16string(text_) + u"\" is no count from 0 to " + decimal(kLargestCount)});
    }
    count_ = std::max(count.value_or(0), 0);
}

void CountCheck::checkRecord(int index, std::u16string_view programme) {
    // A record with a text has a section.
    if (programme.empty() && !file_.hasSection(section_.of(index))) {
        faults_.add({kind_, index + 1, key_,
                     u"says " + decimal(count_) + u", but there is no section " + std::u16string(section_.of(index))});
    }
}

void CountCheck::checkRest() {
    // A wrong count hides records; one message says how many.
    int beyond = count_;
    while (beyond < kLargestCount && file_.hasSection(section_.of(beyond))) {
        ++beyond;
    }
    if (beyond > count_) {
        faults_.add({kind_, 0, key_,
                     (text_.empty() ? std::u16string(u"is missing") : u"says " + std::u16string(text_)) +
                         u", but sections follow up to " + std::u16string(section_.of(beyond - 1))});
    }
}
