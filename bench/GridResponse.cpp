// Measures the time from a click or key to the repainted list or dialog, in the program's own window on the toolkit's
// screen in memory. Argument: rows in each list. Prints: name, milliseconds (the median of several).
#include <QApplication>
#include <QDialog>
#include <QHeaderView>
#include <QLocale>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest/QTest>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include "SampleLists.h"
#include "platform/posix/PosixCodePages.h"
#include "platform/posix/PosixFiles.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/Units.h"
#include "shell/Design.h"
#include "shell/MainForm.h"

namespace {

class PaintCount : public QObject {
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
    int count() const { return count_; }
    bool eventFilter(QObject*, QEvent* event) override {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int count_ = 0;
};

class Response {
public:
    explicit Response(QTableView& table) : table_(table), paints_(*table.viewport()) {}

    void measure(const char* name, int times, const std::function<void()>& act) {
        std::vector<double> all;
        for (int i = 0; i < times; ++i) {
            const int before = paints_.count();
            const auto start = std::chrono::steady_clock::now();
            act();
            while (paints_.count() == before || table_.testAttribute(Qt::WA_PendingUpdate)) {
                QApplication::processEvents();
            }
            all.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
        }
        std::sort(all.begin(), all.end());
        std::printf("%s\t%.3f\n", name, all[all.size() / 2]);
        std::fflush(stdout);
    }

private:
    QTableView& table_;
    PaintCount paints_;
};

void writeLists(const std::u16string& folder, int rows) {
    PosixFiles files;
    PosixCodePages codePages;
    SampleLists lists(folder);
    lists.fill(rows);
    lists.writeUtf8(files, codePages);
}

void clickHeader(const QTableView& table, int column) {
    QHeaderView* header = table.horizontalHeader();
    const QPoint middle(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                        header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, middle);
}

// From the key that opens the Add List dialog to the end of its first paint event.
void measureDialog(QTableView& table) {
    constexpr int kTimes = 21;
    std::vector<double> all;
    for (int i = 0; i < kTimes; ++i) {
        const auto start = std::chrono::steady_clock::now();
        QTest::keyClick(&table, Qt::Key_N, Qt::ControlModifier);
        auto* dialog = table.window()->findChild<QDialog*>("addForm");
        if (dialog == nullptr) {
            std::fprintf(stderr, "grid_response: the dialog was not opened\n");
            std::exit(1);
        }
        const PaintCount paints(*dialog);
        while (paints.count() == 0 || dialog->testAttribute(Qt::WA_PendingUpdate)) {
            QApplication::processEvents();
        }
        all.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
        dialog->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    std::sort(all.begin(), all.end());
    std::printf("Add List dialog opened\t%.3f\n", all[all.size() / 2]);
}

void measureAll(QTableView& table, int rows) {
    constexpr int kFew = 5;
    constexpr int kMany = 41;
    const int sorts = rows > kMaxRecords ? kFew : kMany;
    Response response(table);
    response.measure("header click, names", sorts, [&] { clickHeader(table, 0); });
    response.measure("header click, frequencies", sorts, [&] { clickHeader(table, 1); });
    QScrollBar* bar = table.verticalScrollBar();
    response.measure("scroll by a page", kMany,
                     [&] { bar->setValue(bar->value() >= bar->maximum() ? 0 : bar->value() + bar->pageStep()); });
    response.measure("scroll from end to end", kMany, [&] { bar->setValue(bar->value() > 0 ? 0 : bar->maximum()); });
    const auto click = [&](int row, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers,
                          table.visualRect(table.model()->index(row, 0)).center());
    };
    response.measure("select all", kFew, [&] {
        table.scrollToTop();
        click(0, Qt::NoModifier);
        table.scrollToBottom();
        click(rows - 1, Qt::ShiftModifier);
    });
    if (table.selectionModel()->selectedRows().size() != rows) {
        std::fprintf(stderr, "grid_response: not every row is selected\n");
        std::exit(1);
    }
    response.measure("delete all", 1, [&] { QTest::keyClick(&table, Qt::Key_Delete); });
    measureDialog(table);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    const int rows = argc > 1 ? std::atoi(argv[1]) : kMaxRecords;
    const QTemporaryDir folder;
    const std::u16string programFolder = fromQt(folder.path() + '/');
    writeLists(programFolder, rows);
    const WindowDesign design = mainWindowDesign();
    QtBackend backend(design, programFolder);
    MainForm form(backend.platform());
    const auto widgetsFirst = qScopeGuard([&backend] { backend.window().destroyWidgets(); });
    if (!form.Form_Load()) {
        return 1;
    }
    backend.window().show();
    auto* table = backend.window().widget()->findChild<QTableView*>("drmLV");
    if (table == nullptr || table->model()->rowCount() != rows) {
        std::fprintf(stderr, "grid_response: the list was not loaded\n");
        return 1;
    }
    measureAll(*table, rows);
    return table->model()->rowCount();
}
