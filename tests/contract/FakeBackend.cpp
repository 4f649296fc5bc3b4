// Runs the contract cases on the fakes, to prove that they behave as real backends do.
#include <gtest/gtest.h>

#include <algorithm>

#include "contract/Backend.h"
#include "fakes/FakeCodePages.h"
#include "fakes/FakeFiles.h"
#include "fakes/FakeGridView.h"
#include "fakes/FakeServices.h"
#include "platform/Grid.h"

namespace {

class FakeFolder : public TestFolder {
public:
    explicit FakeFolder(FakeFiles& files) : files_(files) {}

    std::u16string path() const override { return u"/test/"; }
    void makeFolder(std::u16string_view path) override { files_.folders.emplace(path); }
    void makeReadOnly(std::u16string_view path) override { files_.readOnly.emplace(path); }
    bool isReadOnly(std::u16string_view path) const override { return files_.readOnly.contains(std::u16string(path)); }
    std::vector<std::u16string> names() const override {
        std::vector<std::u16string> found;
        for (const auto& [path, bytes] : files_.files) {
            found.push_back(path.substr(this->path().size()));
        }
        for (const std::u16string& path : files_.folders) {
            found.push_back(path.substr(this->path().size()));
        }
        std::sort(found.begin(), found.end());
        return found;
    }

private:
    FakeFiles& files_;
};

// Shows the number of rows of the notifications, and reads their cells from the grid, as a real view does.
class CountingView : public FakeGridView {
public:
    void afterAppend(int row) override {
        FakeGridView::afterAppend(row);
        ++rows;
    }
    void afterReset() override {
        FakeGridView::afterReset();
        rows = grid->rowCount();
    }
    int rows = 0;
};

class FakeGridViewProbe : public GridViewProbe {
public:
    GridView& view() override { return view_; }
    int shownRows() override { return view_.rows; }
    std::u16string shownText(int row, int column) override { return std::u16string(view_.grid->text(row, column)); }
    bool shownSelected(int row) override { return view_.grid->isSelected(row); }
    void userSelects(int row) override {
        for (int i = 1; i <= view_.rows; ++i) {
            view_.grid->setSelected(i, i == row);
        }
    }
    void userExtendsTo(int row) override {
        for (int i = view_.grid->firstSelected(); i <= row; ++i) {
            view_.grid->setSelected(i, true);
        }
    }
    int userScrollsToTheRight() override {
        double width = 0;
        for (const GridColumn& column : view_.grid->columns()) {
            width += column.width;
        }
        view_.shape.rowLeft = std::min(0.0, view_.shape.width - width);
        return static_cast<int>(-view_.shape.rowLeft / kTwipsPerPixel);
    }
    void userPointsAt(int x) override { view_.listener->pointerMoved(x * kTwipsPerPixel, view_.shape.rowTop); }

private:
    static constexpr double kTwipsPerPixel = 15;

    CountingView view_;
};

class FakeBackend : public Backend {
public:
    std::unique_ptr<TestFolder> folder() override { return std::make_unique<FakeFolder>(files_); }
    Files& files() override { return files_; }
    std::unique_ptr<CodePages> codePages() override { return std::make_unique<FakeCodePages>(); }
    std::vector<std::unique_ptr<TextCompare>> textCompares() override {
        std::vector<std::unique_ptr<TextCompare>> all;
        all.push_back(std::make_unique<FakeTextCompare>());
        return all;
    }
    std::unique_ptr<GridViewProbe> gridView() override { return std::make_unique<FakeGridViewProbe>(); }
    std::unique_ptr<EditBoxProbe> editBox() override { return nullptr; }
    std::unique_ptr<SingleInstance> singleInstance(std::u16string_view) override { return nullptr; }
    std::unique_ptr<OtherProcess> otherProcess(std::u16string_view) override { return nullptr; }
    std::unique_ptr<HttpClient> httpClient() override { return nullptr; }

private:
    FakeFiles files_;
};

}  // namespace

std::unique_ptr<Backend> makeBackend() { return std::make_unique<FakeBackend>(); }
