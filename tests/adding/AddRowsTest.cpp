#include <gtest/gtest.h>

#include <array>

#include "platform/AddFormView.h"

namespace {

using ControlCounts = std::array<int, kAddControlCount>;
using FieldCounts = std::array<int, kAddFieldCount>;

}  // namespace

TEST(AddRowsTest, EveryControlAndFieldHasOnePlace) {
    ControlCounts controls{};
    FieldCounts fields{};
    const auto count = [](auto& counts, auto which) { ++counts.at(static_cast<std::size_t>(which)); };
    for (const AddRow& row : kAddRows) {
        count(controls, row.label);
        count(fields, row.field);
        if (row.after) {
            count(controls, *row.after);
        }
        if (row.second) {
            count(fields, *row.second);
        }
    }
    for (const AddControl button : kAddButtons) {
        count(controls, button);
    }
    ControlCounts oneControl{};
    oneControl.fill(1);
    FieldCounts oneField{};
    oneField.fill(1);
    EXPECT_EQ(controls, oneControl);
    EXPECT_EQ(fields, oneField);
}
