#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTranslator>
#include <functional>
#include <utility>

#include "messages/mMsgBox.h"
#include "platform/qt/RecordingWindow.h"

namespace {

// Shows message boxes and answers each with a button once it is visible.
class MessageBoxTest : public RecordingWindow {
protected:
    MessageBoxTest() {
        user.setSingleShot(true);
        QObject::connect(&user, &QTimer::timeout, &user, [this] { action(); });
    }
    int show(int style, QMessageBox::StandardButton press) {
        pressOnceShown(press);
        return boxes.show(u"Text <b>as it is</b>", style, u"Add List");
    }
    void pressOnceShown(QMessageBox::StandardButton press) {
        captions.clear();
        onceShown([this, press] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            title = box->windowTitle();
            format = box->textFormat();
            for (const QAbstractButton* button : box->buttons()) {
                captions.insert(button->text());
            }
            box->button(press)->click();
        });
    }
    // Called while the box processes events.
    void onceShown(std::function<void()> act) {
        action = std::move(act);
        user.start(0);
    }

    mMsgBox boxes{platform.messageBox, platform.windowHook};
    QSet<QString> captions;
    QString title;
    Qt::TextFormat format = Qt::AutoText;
    QTimer user;
    std::function<void()> action;
};

class MessageBoxTestChinese : public MessageBoxTest {
protected:
    MessageBoxTestChinese() {
        EXPECT_TRUE(chinese.load("qtbase_zh_CN", QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
        QApplication::installTranslator(&chinese);
        QCoreApplication::processEvents();  // every window gets a language change event
    }
    ~MessageBoxTestChinese() override { QApplication::removeTranslator(&chinese); }

    QTranslator chinese;
};

TEST_F(MessageBoxTest, ReturnsTheButton) {
    EXPECT_EQ(show(BoxStyle::Ok, QMessageBox::Ok), BoxAnswer::Ok);
    EXPECT_EQ(title, "Add List");
    EXPECT_EQ(format, Qt::PlainText);
    EXPECT_EQ(show(BoxStyle::OkCancel, QMessageBox::Ok), BoxAnswer::Ok);
    EXPECT_EQ(show(BoxStyle::OkCancel, QMessageBox::Cancel), BoxAnswer::Cancel);
    EXPECT_EQ(show(BoxStyle::AbortRetryIgnore, QMessageBox::Abort), BoxAnswer::Abort);
    EXPECT_EQ(show(BoxStyle::AbortRetryIgnore, QMessageBox::Ignore), BoxAnswer::Ignore);
    EXPECT_EQ(show(BoxStyle::YesNoCancel, QMessageBox::No), BoxAnswer::No);
    EXPECT_EQ(show(BoxStyle::YesNo, QMessageBox::Yes), BoxAnswer::Yes);
    EXPECT_EQ(show(BoxStyle::RetryCancel, QMessageBox::Retry), BoxAnswer::Retry);
}

TEST_F(MessageBoxTest, ClosingTheBoxReturnsCancelOrOk) {
    for (const auto& [style, answer] :
         {std::pair{BoxStyle::OkCancel, BoxAnswer::Cancel}, {BoxStyle::Ok, BoxAnswer::Ok}}) {
        onceShown([] { QApplication::activeModalWidget()->close(); });
        EXPECT_EQ(platform.messageBox.show(u"?", style, u""), answer);
    }
}

TEST_F(MessageBoxTest, IsWideEnoughForItsTitle) {
    const QString longTitle(40, u'W');
    int width = 0;
    onceShown([&] {
        width = QApplication::activeModalWidget()->width();
        QApplication::activeModalWidget()->close();
    });
    platform.messageBox.show(u"?", BoxStyle::Ok, longTitle.toStdU16String());
    EXPECT_GT(width, QFontMetrics(QApplication::font()).horizontalAdvance(longTitle));
}

TEST_F(MessageBoxTest, EnglishCaptionsAreKept) {
    show(BoxStyle::OkCancel, QMessageBox::Ok);
    EXPECT_FALSE(captions.contains("Ok"));
    EXPECT_TRUE(captions.contains("Cancel") || captions.contains("&Cancel"));
}

TEST_F(MessageBoxTestChinese, KnownCaptionsBecomeEnglish) {
    show(BoxStyle::OkCancel, QMessageBox::Ok);
    EXPECT_EQ(captions, (QSet<QString>{"Ok", "Cancel"}));
    show(BoxStyle::AbortRetryIgnore, QMessageBox::Abort);
    EXPECT_EQ(captions, (QSet<QString>{"Abort(&A)", "Retry(&R)", "Ignore(&I)"}));
}

TEST_F(MessageBoxTestChinese, YesAndNoKeepTheSystemsCaptions) {
    show(BoxStyle::YesNo, QMessageBox::Yes);
    EXPECT_EQ(captions.size(), 2);
    for (const QString& caption : captions) {
        EXPECT_GT(caption.at(0).unicode(), 0x2000) << caption.toStdString();
    }
}

TEST_F(MessageBoxTestChinese, WithoutTheHookNothingIsRenamed) {
    pressOnceShown(QMessageBox::Ok);
    boxes.showPlain(u"full");
    EXPECT_EQ(captions, (QSet<QString>{QString::fromUtf8("确定")}));
}

}  // namespace
