#include "storage/ListFile.h"

#include "storage/Numbers.h"

std::u16string_view ListFile::countKey(ListKind kind) {
    switch (kind) {
        case ListKind::Drm:
            return u"drmnumber";
        case ListKind::Am:
            return u"amnumber";
        case ListKind::Fm:
            return u"fmnumber";
        case ListKind::Favourite:
            return u"favnumber";
    }
    return {};
}

std::u16string_view ListFile::sectionPrefix(ListKind kind) {
    switch (kind) {
        case ListKind::Drm:
            return u"DRMSchedule";
        case ListKind::Am:
            return u"AMSchedule";
        case ListKind::Fm:
            return u"FMSchedule";
        case ListKind::Favourite:
            return u"FAVSchedule";
    }
    return {};
}

std::u16string_view ListFile::typeOf(ListKind kind) {
    switch (kind) {
        case ListKind::Drm:
            return u"DRM";
        case ListKind::Am:
            return u"AM";
        case ListKind::Fm:
            return u"FM";
        case ListKind::Favourite:
            break;
    }
    return {};
}

bool ListFile::isFm(std::u16string_view type) { return type.find(u"FM") != type.npos; }

RecordSection::RecordSection(ListKind kind)
    : name_(ListFile::sectionPrefix(kind)), prefixLength_(ListFile::sectionPrefix(kind).size()) {}

std::u16string_view RecordSection::of(int index) {
    name_.resize(prefixLength_);
    name_ += decimal(index);
    return name_;
}
