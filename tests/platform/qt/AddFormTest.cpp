#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QPushButton>

#include "platform/qt/RecordingWindow.h"

namespace {

class FormRecorder : public AddFormListener {
public:
    bool keyPressed(AddField field, int characterCode) override {
        events.push_back("key " + std::to_string(static_cast<int>(field)) + ":" + std::to_string(characterCode));
        if (destroyOnKey != nullptr) {
            destroyOnKey->destroy();
        }
        return keepKeys;
    }
    void saveClicked() override { events.emplace_back("save"); }
    void cancelClicked() override { events.emplace_back("cancel"); }
    void closeBoxClicked() override { events.emplace_back("close box"); }
    Events take() { return std::exchange(events, {}); }

    Events events;
    bool keepKeys = false;
    AddFormView* destroyOnKey = nullptr;
};

class AddFormTest : public RecordingWindow {
protected:
    AddFormTest() {
        form.create({u"&Programme:", u"&Frequency:", u"kHz", u"S&tart:", u"--", u"St&op:", u"--", u"T&arget:", u"&Save",
                     u"&Cancel"},
                    listener);
        form.setTitle(u"Add");
        form.setItems(AddField::sHourComb, {u"0", u"1", u"2"});
        form.show();
        form.takeFocus(AddField::txtLabel);
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog(), kPatience));
    }
    QDialog* dialog() { return backend.window().widget()->findChild<QDialog*>("addForm"); }
    template <class Widget>
    Widget* child(const char* name) {
        return dialog()->findChild<Widget*>(name);
    }

    FormRecorder listener;
    AddFormView& form = platform.addFormView;
};

TEST_F(AddFormTest, OpensOverTheMainWindowWithEmptyFields) {
    EXPECT_FALSE(dialog()->isModal());
    EXPECT_TRUE(QTest::qWaitFor([&] { return child<QLineEdit>("txtLabel")->hasFocus(); }, kPatience));
    EXPECT_EQ(form.text(AddField::txtLabel), u"");
    EXPECT_EQ(form.text(AddField::sHourComb), u"");
    EXPECT_EQ(child<QComboBox>("sHourComb")->count(), 3);
    EXPECT_EQ(child<QLineEdit>("txtFreq")->accessibleName(), "Frequency:");
    EXPECT_EQ(child<QComboBox>("eMinComb")->accessibleName(), "Stop:");
    EXPECT_EQ(child<QComboBox>("eMinComb")->lineEdit()->accessibleName(), "Stop:");
    const QPoint offset = dialog()->frameGeometry().center() - backend.window().widget()->frameGeometry().center();
    EXPECT_LE(offset.manhattanLength(), 4);
}

TEST_F(AddFormTest, TheTabOrderFollowsTheRowsThenTheButtons) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return child<QLineEdit>("txtLabel")->hasFocus(); }, kPatience));
    Events order;
    for (int i = 0; i < 10; ++i) {
        order.push_back(QApplication::focusWidget()->objectName().toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, (Events{"txtLabel", "txtFreq", "sHourComb", "sMinComb", "eHourComb", "eMinComb", "txtTarget",
                             "saveCmd", "cancelCmd", "txtLabel"}));
}

TEST_F(AddFormTest, OnlyKeysWithACharacterCodeAreReported) {
    auto* label = child<QLineEdit>("txtLabel");
    QTest::keyClick(label, 'a');
    QTest::keyClick(label, Qt::Key_Space);
    QTest::keyClick(label, Qt::Key_Backspace);
    EXPECT_EQ(listener.take(), (Events{"key 0:97", "key 0:32", "key 0:8"}));
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Left, Qt::Key_F5, Qt::Key_Shift, Qt::Key_Home, Qt::Key_Tab}) {
        QTest::keyClick(label, key);
    }
    EXPECT_EQ(listener.take(), Events{});
    EXPECT_EQ(form.text(AddField::txtLabel), u"a");
}

TEST_F(AddFormTest, AHandledEnterPressesNoButton) {
    listener.keepKeys = true;
    QTest::keyClick(child<QLineEdit>("txtFreq"), Qt::Key_Return);
    EXPECT_EQ(listener.take(), (Events{"key 1:13"}));
    listener.keepKeys = false;
    QTest::keyClick(child<QLineEdit>("txtFreq"), Qt::Key_Return);
    EXPECT_EQ(listener.take(), (Events{"key 1:13", "save"}));
}

TEST_F(AddFormTest, AComboReportsKeysAndAcceptsTypedText) {
    auto* combo = child<QComboBox>("sHourComb");
    QTest::keyClick(combo, '1');
    QTest::keyClick(combo, '7');
    EXPECT_EQ(form.text(AddField::sHourComb), u"17");
    EXPECT_EQ(listener.take(), (Events{"key 3:49", "key 3:55"}));
    combo->setCurrentIndex(2);
    EXPECT_EQ(form.text(AddField::sHourComb), u"2");
}

TEST_F(AddFormTest, AMnemonicFocusesItsFieldAndIsNotTyped) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return child<QLineEdit>("txtLabel")->hasFocus(); }, kPatience));
    QTest::keyClick(child<QLineEdit>("txtLabel"), Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return child<QComboBox>("eHourComb")->hasFocus(); }, kPatience));
    QTest::keyClick(child<QComboBox>("eHourComb"), Qt::Key_S, Qt::AltModifier);
    QTest::keyClick(child<QComboBox>("eHourComb"), Qt::Key_X, Qt::AltModifier);
    QTest::keyClick(child<QLineEdit>("txtFreq"), Qt::Key_X, Qt::AltModifier);
    EXPECT_EQ(form.text(AddField::eHourComb), u"");
    EXPECT_EQ(form.text(AddField::txtFreq), u"");
    EXPECT_TRUE(QTest::qWaitFor([&] { return listener.events == Events{"save"}; }, kPatience));
}

TEST_F(AddFormTest, KeysOfAnOpenListAreReported) {
    auto* combo = child<QComboBox>("sHourComb");
    for (const auto& [key, code] :
         {std::pair(Qt::Key_Return, 13), {Qt::Key_Escape, 27}, {Qt::Key_Space, 32}, {Qt::Key_1, 49}}) {
        combo->showPopup();
        ASSERT_TRUE(form.isListOpen(AddField::sHourComb));
        listener.keepKeys = true;
        QTest::keyClick(combo->view(), key);
        EXPECT_EQ(listener.take(), (Events{"key 3:" + std::to_string(code)}));
        EXPECT_TRUE(form.isListOpen(AddField::sHourComb)) << "closing it is not the backend's decision";
        form.closeList(AddField::sHourComb, false);
        EXPECT_FALSE(form.isListOpen(AddField::sHourComb));
        EXPECT_EQ(form.text(AddField::sHourComb), u"");
    }
}

TEST_F(AddFormTest, AnArrowKeyInAnOpenListMovesTheHighlight) {
    auto* combo = child<QComboBox>("sHourComb");
    combo->showPopup();
    QTest::keyClick(combo->view(), Qt::Key_Home);
    QTest::keyClick(combo->view(), Qt::Key_Down);
    EXPECT_EQ(listener.take(), Events{});
    form.closeList(AddField::sHourComb, true);
    EXPECT_EQ(form.text(AddField::sHourComb), u"1");
}

TEST_F(AddFormTest, AnUnhandledKeyInAnOpenListIsTypedIntoTheField) {
    auto* combo = child<QComboBox>("sHourComb");
    combo->showPopup();
    QTest::keyClick(combo->view(), '2');
    EXPECT_EQ(listener.take(), (Events{"key 3:50"}));
    EXPECT_EQ(form.text(AddField::sHourComb), u"2");
}

TEST_F(AddFormTest, APasteOfAnyLengthEndsAtItsFirstLineBreak) {
    const QString longText(70'000, u'x');
    QApplication::clipboard()->setText(longText + "\nmore");
    for (QLineEdit* edit : dialog()->findChildren<QLineEdit*>()) {
        edit->clear();
        edit->paste();
        EXPECT_EQ(edit->text().size(), longText.size()) << edit->parent()->objectName().toStdString();
    }
}

TEST_F(AddFormTest, AnUnhandledEscapeCancels) {
    QTest::keyClick(child<QLineEdit>("txtTarget"), Qt::Key_Escape);
    EXPECT_EQ(listener.take(), (Events{"key 2:27", "cancel"}));
    listener.keepKeys = true;
    QTest::keyClick(child<QLineEdit>("txtTarget"), Qt::Key_Escape);
    EXPECT_EQ(listener.take(), (Events{"key 2:27"}));
    EXPECT_TRUE(form.isOpen());
}

TEST_F(AddFormTest, ButtonsAndTheCloseBoxAreReported) {
    QTest::mouseClick(child<QPushButton>("saveCmd"), Qt::LeftButton);
    QTest::mouseClick(child<QPushButton>("cancelCmd"), Qt::LeftButton);
    dialog()->close();
    EXPECT_EQ(listener.take(), (Events{"save", "cancel", "close box"}));
    EXPECT_TRUE(form.isOpen());
}

TEST_F(AddFormTest, CanBeDestroyedByItsOwnKey) {
    listener.destroyOnKey = &form;
    QTest::keyClick(child<QLineEdit>("txtLabel"), 'a');
    EXPECT_FALSE(form.isOpen());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(dialog(), nullptr);
    form.destroy();
    EXPECT_EQ(listener.take(), (Events{"key 0:97"}));
}

TEST_F(AddFormTest, TheDisabledMainWindowGetsItsFocusBack) {
    form.destroy();
    table()->setFocus();
    backend.window().setEnabled(false);
    EXPECT_FALSE(table()->isEnabled());
    backend.window().setEnabled(true);
    EXPECT_EQ(backend.window().widget()->focusWidget(), table());
}

}  // namespace
