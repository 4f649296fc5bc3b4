#include "storage/stations/ReceptionSystem.h"

std::u16string_view ReceptionSystem::typeOf(ListKind kind) {
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

bool ReceptionSystem::isFm(std::u16string_view type) { return type.find(u"FM") != type.npos; }
