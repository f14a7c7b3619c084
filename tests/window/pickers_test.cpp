// The pickers over the toolkit's file dialog.

#include "player/window/stand_in_pickers.h"
#include "tests/support/settings_folder.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class PickersOfFiles : public testing::Test
{
protected:
    PickersOfFiles()
    {
        module.IniPath = home.ini();
        QDir(home.path()).mkdir(u"media"_s);
        WriteIni(u"save"_s, u"open"_s, home.file(u"media"_s), module.IniPath);
    }

    /// Acts on the dialog once it is open, as the user would.
    void whenOpen(std::function<void(QFileDialog&)> act)
    {
        m_act = std::move(act);
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] {
            if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                m_poll.stop();
                m_act(*dialog);
            }
        });
        m_poll.start(10);
    }

    static void type(QFileDialog& dialog, const QString& name)
    {
        dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(name);
    }

    /// As its button does; only a file dialog's base class offers that to others.
    static void confirm(QDialog& dialog) { dialog.accept(); }

    [[nodiscard]] QStringList picked() const { return module.picker.PickedFiles; }

    SettingsFolder home;
    Module1 module;
    StandInPickers pickers{module};

private:
    QTimer m_poll;
    std::function<void(QFileDialog&)> m_act;
};

TEST_F(PickersOfFiles, AChosenFileIsEntryOne)
{
    const QString file = home.write(u"media/a.vxl"_s, "packet");
    whenOpen([](QFileDialog& dialog) {
        type(dialog, u"a.vxl"_s);
        confirm(dialog);
    });
    pickers.ShowOpenPicker(u"*.vxl;*.vxg"_s, false);
    EXPECT_EQ(picked(), (QStringList{QString(), file}));
}

TEST_F(PickersOfFiles, SeveralFilesComeInTheOrderOfTheList)
{
    home.write(u"media/b.avi"_s, "b");
    home.write(u"media/A.avi"_s, "a");
    whenOpen([](QFileDialog& dialog) {
        type(dialog, u"\"b.avi\" \"A.avi\""_s);
        confirm(dialog);
    });
    pickers.ShowOpenPicker(u"*.avi"_s, true);
    EXPECT_EQ(picked(),
              (QStringList{QString(), home.file(u"media/A.avi"_s), home.file(u"media/b.avi"_s)}));
}

TEST_F(PickersOfFiles, CancellingTheOpenPickerLeavesNoEntryOne)
{
    module.picker.PickedFiles = {QString(), u"/from/before.avi"_s};
    whenOpen([](QFileDialog& dialog) { dialog.reject(); });
    pickers.ShowOpenPicker(u"*.avi"_s, true);
    EXPECT_EQ(picked(), QStringList{QString()});
}

TEST_F(PickersOfFiles, StartInTheFolderUsedLastAndRememberTheNext)
{
    QDir(home.path()).mkdir(u"other"_s);
    home.write(u"other/a.avi"_s, "a");
    QString begunIn;
    whenOpen([&](QFileDialog& dialog) {
        begunIn = dialog.directory().absolutePath();
        dialog.setDirectory(home.file(u"other"_s));
        type(dialog, u"a.avi"_s);
        confirm(dialog);
    });
    pickers.ShowOpenPicker(u"*.avi"_s, false);
    EXPECT_EQ(begunIn, home.file(u"media"_s));
    EXPECT_EQ(home.value("save", "open"), home.file(u"other"_s));
}

TEST_F(PickersOfFiles, BearTheProgramsCaption)
{
    QString caption;
    whenOpen([&](QFileDialog& dialog) {
        caption = dialog.windowTitle();
        dialog.reject();
    });
    pickers.ShowOpenPicker(u"*.avi"_s, false);
    EXPECT_EQ(caption, u"!Orvanta!");
}

TEST_F(PickersOfFiles, TheExtensionIsAlwaysAppendedToANewName)
{
    for (const QString& name : {u"lesson"_s, u"a.vxl"_s}) {
        whenOpen([&](QFileDialog& dialog) {
            type(dialog, name);
            confirm(dialog);
        });
        pickers.ShowSavePicker(u"*.vxl"_s);
        EXPECT_EQ(module.picker.SaveFileName, home.file(u"media/"_s + name + u".vxl"_s));
    }
}

TEST_F(PickersOfFiles, CancellingTheSavePickerLeavesNoName)
{
    module.picker.SaveFileName = u"/from/before.vxl"_s;
    whenOpen([](QFileDialog& dialog) { dialog.reject(); });
    pickers.ShowSavePicker(u"*.vxl"_s);
    EXPECT_EQ(module.picker.SaveFileName, QString());
}

} // namespace orvanta::test
