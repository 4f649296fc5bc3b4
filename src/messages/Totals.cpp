#include "messages/Totals.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "storage/text/Numbers.h"

namespace {

constexpr std::array<std::u16string_view, kListCount> kLabels = {
    u"Total Number Of DRM List: ", u"Total Number Of AM List: ", u"Total Number Of FM List: ",
    u"Total Number Of Favourite List: "};

}  // namespace

void Totals::ShowTotals() { showTotalOf(tabs_.currentTab()); }

void Totals::showTotalOf(int tab) {
    if (tab < 0 || tab >= static_cast<int>(kLabels.size())) {
        return;
    }
    const auto index = static_cast<std::size_t>(tab);
    statusBar_.setMessage(std::u16string(kLabels[index]) + decimal(grids_[index]->rowCount()));
}
