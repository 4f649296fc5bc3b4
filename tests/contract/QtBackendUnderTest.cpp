// Runs the contract cases on the Qt backend, on Qt's offscreen platform.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "contract/Backend.h"
#include "contract/SmallDesign.h"
#include "platform/MainWindow.h"
#include "platform/posix/PosixCodePages.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixSingleInstance.h"
#include "platform/qt/GridTable.h"
#include "platform/qt/QtEditBox.h"
#include "platform/qt/QtHttpClient.h"
#include "platform/qt/QtMainWindow.h"
#include "platform/qt/QtTabControl.h"
#include "platform/qt/QtTextCompare.h"
#include "platform/qt/Units.h"

namespace {

class QtTestFolder : public TestFolder {
public:
    std::u16string path() const override { return fromQt(folder_.path() + '/'); }
    void makeFolder(std::u16string_view path) override { QDir().mkpath(toQt(path)); }
    void makeReadOnly(std::u16string_view path) override { QFile::setPermissions(toQt(path), QFileDevice::ReadOwner); }
    bool isReadOnly(std::u16string_view path) const override {
        return !QFile::permissions(toQt(path)).testFlag(QFileDevice::WriteOwner);
    }
    std::vector<std::u16string> names() const override {
        std::vector<std::u16string> found;
        for (const QString& name :
             QDir(folder_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) {
            found.push_back(fromQt(name));
        }
        return found;
    }

private:
    QTemporaryDir folder_;
};

class QtGridViewProbe : public GridViewProbe {
public:
    QtGridViewProbe() { window_.show(); }

    GridView& view() override { return window_.tabs().grid(0); }
    int shownRows() override { return model()->rowCount(); }
    std::u16string shownText(int row, int column) override {
        return fromQt(model()->index(row - 1, column - 1).data().toString());
    }
    bool shownSelected(int row) override { return table()->selectionModel()->isRowSelected(row - 1, {}); }
    void userSelects(int row) override { click(row, Qt::NoModifier); }
    void userExtendsTo(int row) override { click(row, Qt::ShiftModifier); }
    int userScrollsToTheRight() override {
        QApplication::processEvents();  // the scroll bar learns the new widths
        const int before = table()->columnViewportPosition(0);
        table()->horizontalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
        return before - table()->columnViewportPosition(0);
    }
    void userPointsAt(int x) override {
        const QPointF at(x, table()->rowViewportPosition(0) + 1);
        QMouseEvent event(QEvent::MouseMove, at, table()->viewport()->mapToGlobal(at), Qt::NoButton, {}, {});
        QApplication::sendEvent(table()->viewport(), &event);
    }

private:
    GridTable* table() { return window_.tabs().grid(0).table(); }
    QAbstractItemModel* model() { return table()->model(); }
    void click(int row, Qt::KeyboardModifier modifier) {
        const QRect cell = table()->visualRect(model()->index(row - 1, 0));
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, modifier, cell.center());
    }

    QtMainWindow window_{smallDesign()};
};

class QtEditBoxProbe : public EditBoxProbe {
public:
    QtEditBoxProbe() {
        window_.show();
        window_.widget()->activateWindow();
    }

    EditBox& box() override { return window_.editBox(); }
    // Both halves of a surrogate pair arrive in one event.
    void type(std::u16string_view text) override {
        for (const char32_t character : toQt(text).toUcs4()) {
            QTest::sendKeyEvent(QTest::Click, edit(), Qt::Key_unknown, QString::fromUcs4(&character, 1), {});
        }
    }
    void paste(std::u16string_view text) override {
        QApplication::clipboard()->setText(toQt(text));
        QTest::keySequence(edit(), QKeySequence::Paste);
    }
    void pressEnd() override { QTest::keyClick(edit(), Qt::Key_End); }
    void pressBackspace() override { QTest::keyClick(edit(), Qt::Key_Backspace); }

private:
    QLineEdit* edit() { return window_.editBox().widget(); }

    QtMainWindow window_{smallDesign()};
};

// A forked child that reports through a pipe and then waits to be killed.
class QtOtherProcess final : public OtherProcess {
public:
    explicit QtOtherProcess(std::u16string_view folder) {
        int ends[2] = {-1, -1};
        EXPECT_EQ(::pipe(ends), 0);
        child_ = ::fork();
        if (child_ == 0) {
            PosixSingleInstance instance{std::u16string(folder)};
            const char answer = instance.previousInstance() ? 'n' : 'y';
            if (::write(ends[1], &answer, 1) == 1) {
                ::pause();  // until killed
            }
            ::_exit(1);
        }
        ::close(ends[1]);
        pipe_ = ends[0];
    }
    ~QtOtherProcess() override {
        kill();
        ::close(pipe_);
    }

    bool gotThePlace() override {
        char answer = 0;
        EXPECT_EQ(::read(pipe_, &answer, 1), 1);
        return answer == 'y';
    }
    void kill() override {
        if (child_ > 0) {
            ::kill(child_, SIGKILL);
            ::waitpid(child_, nullptr, 0);
            child_ = -1;
        }
    }

private:
    pid_t child_ = -1;
    int pipe_ = -1;
};

class QtBackendUnderTest : public Backend {
public:
    std::unique_ptr<TestFolder> folder() override { return std::make_unique<QtTestFolder>(); }
    Files& files() override { return files_; }
    std::unique_ptr<CodePages> codePages() override { return std::make_unique<PosixCodePages>(); }
    std::vector<std::unique_ptr<TextCompare>> textCompares() override {
        std::vector<std::unique_ptr<TextCompare>> all;
        for (const char* name : {"C", "en_US", "de_DE", "zh_CN"}) {
            all.push_back(std::make_unique<QtTextCompare>(QLocale(name)));
        }
        return all;
    }
    std::unique_ptr<GridViewProbe> gridView() override { return std::make_unique<QtGridViewProbe>(); }
    std::unique_ptr<EditBoxProbe> editBox() override { return std::make_unique<QtEditBoxProbe>(); }
    std::unique_ptr<SingleInstance> singleInstance(std::u16string_view folder) override {
        return std::make_unique<PosixSingleInstance>(std::u16string(folder));
    }
    std::unique_ptr<OtherProcess> otherProcess(std::u16string_view folder) override {
        return std::make_unique<QtOtherProcess>(folder);
    }
    std::unique_ptr<HttpClient> httpClient() override { return std::make_unique<QtHttpClient>(); }

private:
    PosixFiles files_;
};

}  // namespace

std::unique_ptr<Backend> makeBackend() { return std::make_unique<QtBackendUnderTest>(); }

int main(int argc, char** argv) {
    const QApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    readArguments(argc, argv);
    return RUN_ALL_TESTS();
}
