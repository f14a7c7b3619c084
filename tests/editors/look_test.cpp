// The windows as they are met: captions, the way of the Tab key, sizes.

#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form10_save_picker.h"
#include "editors/form5_packet_editor.h"
#include "editors/form6_group_editor.h"
#include "editors/form7_open_picker.h"
#include "tests/editors/editor_room.h"

#include <QLabel>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>

namespace orvanta::test {

namespace {

class Look : public EditorRoom
{
protected:
    void speak(int language)
    {
        module.Language = language;
        set(u"main"_s, u"language"_s, QString::number(language));
    }
    /// Every window in every mode, one after the other.
    void inEachWindow(const std::function<void(QWidget&)>& look)
    {
        EditorServices given = services();
        Form5 packets(given);
        lookAt(packets, look);
        packets.Option2->click();
        lookAt(packets, look);
        Form6 group(given);
        lookAt(group, look);
        Form7 open(module, {}, u"*.vxl"_s, false);
        lookAt(open, look);
        Form10 save(module, {}, u"*.vxl"_s);
        lookAt(save, look);
    }
    /// Names of the controls that Tab reaches from this one on, each once.
    static QStringList wayOfTab(QWidget& window, QWidget* first)
    {
        QStringList way;
        first->setFocus();
        for (const QWidget* at = window.focusWidget(); !way.contains(at->objectName());
             at = window.focusWidget()) {
            way.append(at->objectName());
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        }
        return way;
    }

private:
    static void lookAt(QWidget& window, const std::function<void(QWidget&)>& look)
    {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        look(window);
    }
};

} // namespace

TEST_F(Look, NoCaptionIsClippedInEitherLanguage)
{
    for (const int language : {1, 2}) {
        speak(language);
        int captions = 0;
        inEachWindow([&](QWidget& window) {
            for (const auto* button : window.findChildren<QAbstractButton*>()) {
                if (button->isVisible() && !button->text().isEmpty()) {
                    const int text = button->fontMetrics().horizontalAdvance(button->text());
                    EXPECT_GE(button->width(), text + 4) << qPrintable(button->text());
                    ++captions;
                }
            }
            for (const auto* label : window.findChildren<QLabel*>()) {
                if (label->isVisible() && !label->text().isEmpty()) {
                    EXPECT_GE(label->width(), label->sizeHint().width())
                        << qPrintable(label->text());
                    ++captions;
                }
            }
        });
        EXPECT_GT(captions, 40);
    }
}

TEST_F(Look, NoCaptionIsClippedWhenAWindowIsAsSmallAsItGets)
{
    speak(2);
    inEachWindow([](QWidget& window) {
        window.resize(window.minimumSizeHint());
        QCoreApplication::processEvents();
        for (const auto* button : window.findChildren<QAbstractButton*>()) {
            if (button->isVisible() && !button->text().isEmpty()) {
                const int text = button->fontMetrics().horizontalAdvance(button->text());
                EXPECT_GE(button->width(), text + 4) << qPrintable(button->text());
            }
        }
    });
}

TEST_F(Look, TheWindowsFitOnASmallScreen)
{
    const QSize small(1280, 720);
    speak(2);
    inEachWindow([&](QWidget& window) {
        EXPECT_LE(window.width(), small.width()) << qPrintable(window.objectName());
        EXPECT_LE(window.height(), small.height()) << qPrintable(window.objectName());
    });
}

TEST_F(Look, NoWindowIsLargerThanTheScreen)
{
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    ASSERT_LT(screen.width(), 900) << "so that the editors would be";
    inEachWindow([&](QWidget& window) {
        EXPECT_LT(window.width(), screen.width()) << qPrintable(window.objectName());
        EXPECT_LT(window.height(), screen.height()) << qPrintable(window.objectName());
    });
}

TEST_F(Look, TheListsTakeTheRoomOfALargerWindow)
{
    EditorServices given = services();
    Form5 form(given);
    form.show();
    const QSize before = form.List1->size();
    form.resize(form.size() + QSize(300, 200));
    QCoreApplication::processEvents();
    EXPECT_GE(form.List1->width(), before.width() + 200);
    EXPECT_GE(form.List1->height(), before.height() + 190);
}

TEST_F(Look, TabGoesThroughTheWindowsAsOneReads)
{
    EditorServices given = services();
    Form5 packets(given);
    packets.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&packets));
    EXPECT_EQ(wayOfTab(packets, packets.FolderTreeview1).join(u' ').toStdString(),
              "FolderTreeview1 File1 List1 Command8 Command5 Command6 Command9 Command10 Text1 "
              "Text2 Command3 Command4 Command2 Command1 Option1");
    QTest::mouseClick(packets.Option2, Qt::LeftButton, {},
                      QPoint(8, packets.Option2->height() / 2));
    EXPECT_EQ(wayOfTab(packets, packets.FolderTreeview2).join(u' ').toStdString(),
              "FolderTreeview2 File2 Text3 Slider1 List2 Text4 Command15 Command11 Command7 "
              "Command16 Command2 Command12 Option2");
    Form6 group(given);
    group.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&group));
    EXPECT_EQ(wayOfTab(group, group.FolderTreeview1).join(u' ').toStdString(),
              "FolderTreeview1 File1 List1 Command8 Command5 Command6 Command9 Command10 Text1 "
              "Text2 Text3 Command7 Command3 Command4 Command2 Command1");
    Form10 save(module, {}, u"*.vxl"_s);
    save.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&save));
    EXPECT_EQ(wayOfTab(save, save.PathBox).join(u' ').toStdString(),
              "PathBox FolderTreeview1 File1 Text1 Command2 Command1");
}

/// Whether the control looks different while it has the focus.
static bool showsItsFocus(QWidget& window, QWidget& control)
{
    const auto look = [&] {
        return window.grab(QRect(control.mapTo(&window, QPoint()), control.size())).toImage();
    };
    control.setFocus(Qt::OtherFocusReason);
    const QImage focused = look();
    control.clearFocus();
    return look() != focused;
}

TEST_F(Look, EveryListTreeAndBoxShowsItsFocusAlsoWithNothingInIt)
{
    inEachWindow([](QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QList<QWidget*> controls;
        for (auto* view : window.findChildren<QAbstractItemView*>()) {
            controls.append(view);
        }
        for (auto* box : window.findChildren<QLineEdit*>()) {
            controls.append(box);
        }
        for (QWidget* control : controls) {
            if (control->isVisible()) {
                EXPECT_TRUE(showsItsFocus(window, *control))
                    << qPrintable(window.objectName() + u' ' + control->objectName());
            }
        }
    });
}

TEST_F(Look, EveryWindowFitsASmallScreenAtTheDoubleScale)
{
    constexpr QSize kRoom(683 - 16, 384 - 48); // 1366 by 768, less a window manager's frame
    for (const int language : {1, 2}) {
        speak(language);
        inEachWindow([&](QWidget& window) {
            const QSize least = window.minimumSizeHint();
            EXPECT_LE(least.width(), kRoom.width()) << qPrintable(window.objectName());
            EXPECT_LE(least.height(), kRoom.height()) << qPrintable(window.objectName());
        });
    }
}

} // namespace orvanta::test
