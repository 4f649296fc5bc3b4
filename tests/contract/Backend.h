// What the contract cases require of a backend. Each test program links one implementation of makeBackend().
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/CodePages.h"
#include "platform/EditBox.h"
#include "platform/Files.h"
#include "platform/GridView.h"
#include "platform/HttpClient.h"
#include "platform/SingleInstance.h"
#include "platform/TextCompare.h"

// A folder for one test, removed with its content by the destructor.
class TestFolder {
public:
    virtual ~TestFolder() = default;
    virtual std::u16string path() const = 0;  // with trailing separator
    virtual void makeFolder(std::u16string_view path) = 0;
    virtual void makeReadOnly(std::u16string_view path) = 0;
    virtual bool isReadOnly(std::u16string_view path) const = 0;
    virtual std::vector<std::u16string> names() const = 0;  // of the entries, sorted
};

// A grid view and the texts that it shows. Rows and columns are 1-based.
class GridViewProbe {
public:
    virtual ~GridViewProbe() = default;
    virtual GridView& view() = 0;
    virtual int shownRows() = 0;
    virtual std::u16string shownText(int row, int column) = 0;
    virtual bool shownSelected(int row) = 0;
    virtual void userSelects(int row) = 0;  // as the only row
    virtual void userExtendsTo(int row) = 0;
    virtual int userScrollsToTheRight() = 0;  // pixels by which the cells have moved
    virtual void userPointsAt(int x) = 0;     // pixels from the left edge of the visible cells, over the first row
};

// An edit box on screen and a simulated user.
class EditBoxProbe {
public:
    virtual ~EditBoxProbe() = default;
    virtual EditBox& box() = 0;
    virtual void type(std::u16string_view text) = 0;
    virtual void paste(std::u16string_view text) = 0;
    virtual void pressEnd() = 0;  // caret at the end, nothing selected
    virtual void pressBackspace() = 0;
};

// Another process that claims a folder.
class OtherProcess {
public:
    virtual ~OtherProcess() = default;
    virtual bool gotThePlace() = 0;  // blocks until the process has reported it
    virtual void kill() = 0;         // without cleanup; returns when the process has ended
};

class Backend {
public:
    virtual ~Backend() = default;
    virtual std::unique_ptr<TestFolder> folder() = 0;
    virtual Files& files() = 0;
    virtual std::unique_ptr<CodePages> codePages() = 0;
    // One for each language setting under test.
    virtual std::vector<std::unique_ptr<TextCompare>> textCompares() = 0;
    virtual std::unique_ptr<GridViewProbe> gridView() = 0;

    // Null if the backend is a fake.
    virtual std::unique_ptr<EditBoxProbe> editBox() = 0;
    virtual std::unique_ptr<SingleInstance> singleInstance(std::u16string_view folder) = 0;
    virtual std::unique_ptr<OtherProcess> otherProcess(std::u16string_view folder) = 0;
    virtual std::unique_ptr<HttpClient> httpClient() = 0;
};

std::unique_ptr<Backend> makeBackend();

// Address of the test's HTTP server, without a trailing slash; from the argument --http=ADDRESS.
const std::u16string& httpServer();
void readArguments(int argc, char** argv);
