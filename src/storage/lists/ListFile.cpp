#include "storage/lists/ListFile.h"

#include <array>

#include "storage/text/Numbers.h"

namespace {

struct ListNames {
    std::u16string_view countKey;
    std::u16string_view sectionPrefix;
};

const ListNames& namesOf(ListKind kind) {
    static constexpr std::array<ListNames, kListCount> kNames = {{{u"drmnumber", u"DRMSchedule"},
                                                                  {u"amnumber", u"AMSchedule"},
                                                                  {u"fmnumber", u"FMSchedule"},
                                                                  {u"favnumber", u"FAVSchedule"}}};
    return kNames[static_cast<std::size_t>(kind)];
}

}  // namespace

std::u16string_view ListFile::countKey(ListKind kind) { return namesOf(kind).countKey; }

std::u16string_view ListFile::sectionPrefix(ListKind kind) { return namesOf(kind).sectionPrefix; }

RecordSection::RecordSection(ListKind kind)
    : name_(ListFile::sectionPrefix(kind)), prefixLength_(ListFile::sectionPrefix(kind).size()) {}

std::u16string_view RecordSection::of(int index) {
    if (index > 0 && index == last_ + 1 && name_.back() != u'9') {
        ++name_.back();
    } else {
        name_.resize(prefixLength_);
        appendDecimal(name_, index);
    }
    last_ = index;
    return name_;
}
