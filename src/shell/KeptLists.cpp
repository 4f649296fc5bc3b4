#include "shell/KeptLists.h"

void KeptLists::keep() {
    const std::uint64_t now = changes();
    if (now != keptChanges_ && recovery_.keep(saver_.compose(composed_))) {
        keptChanges_ = now;
    }
}

void KeptLists::end() {
    if (saver_.ListsSaved()) {
        recovery_.keepNewestOnly();
    } else {
        recovery_.keep(saver_.compose(composed_));
    }
}

std::uint64_t KeptLists::changes() const {
    std::uint64_t sum = 0;
    for (const RowStore* rows : rows_) {
        sum += rows->changes();
    }
    return sum;
}
