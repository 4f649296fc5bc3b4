#include <gtest/gtest.h>

#include "contract/Backend.h"

namespace {

class SingleInstanceContract : public testing::Test {
protected:
    bool runsAlready(std::u16string_view folder) { return backend->singleInstance(folder)->previousInstance(); }

    std::unique_ptr<Backend> backend = makeBackend();
    std::unique_ptr<TestFolder> here = backend->folder();
    std::unique_ptr<TestFolder> elsewhere = backend->folder();
};

TEST_F(SingleInstanceContract, TheFirstProcessNeverFindsAnother) {
    const auto instance = backend->singleInstance(here->path());
    EXPECT_FALSE(instance->previousInstance());
    EXPECT_FALSE(instance->previousInstance());
}

TEST_F(SingleInstanceContract, ASecondProcessInTheSameFolderFindsTheFirst) {
    const auto first = backend->otherProcess(here->path());
    ASSERT_TRUE(first->gotThePlace());
    EXPECT_TRUE(runsAlready(here->path()));
    EXPECT_FALSE(runsAlready(elsewhere->path()));
    first->kill();
}

TEST_F(SingleInstanceContract, AKilledProcessReleasesTheFolderAndLeavesNoFile) {
    const auto first = backend->otherProcess(here->path());
    ASSERT_TRUE(first->gotThePlace());
    first->kill();
    EXPECT_FALSE(runsAlready(here->path()));
    EXPECT_TRUE(here->names().empty());
}

TEST_F(SingleInstanceContract, ThisProcessKeepsOthersOut) {
    const auto instance = backend->singleInstance(here->path());
    ASSERT_FALSE(instance->previousInstance());
    const auto second = backend->otherProcess(here->path());
    EXPECT_FALSE(second->gotThePlace());
    second->kill();
}

}  // namespace
