#include "editors/file_list_box.h"
#include "editors/form10_save_picker.h"
#include "editors/form7_open_picker.h"
#include "editors/program_pickers.h"
#include "tests/editors/editor_room.h"

#include <QTimer>

#include <functional>

namespace orvanta::test {

namespace {

class ProgramPickersRoom : public EditorRoom
{
protected:
    template <typename Form> void inThePicker(const std::function<void(Form&)>& work)
    {
        m_next.act(work);
    }

    ProgramPickers shown{module, HandlerBoundary()};

private:
    NextModalWindow m_next;
};

} // namespace

TEST_F(ProgramPickersRoom, ShowTheOpenPickerModally)
{
    put(u"a.vxl"_s);
    inThePicker<Form7>([](Form7& form) { QTest::keyClick(form.File1, Qt::Key_Return); });
    EXPECT_TRUE(shown.ShowOpenPicker(u"*.vxl"_s, false));
    EXPECT_EQ(module.picker.PickedFiles, QStringList({QString(), room(u"a.vxl"_s)}));
}

TEST_F(ProgramPickersRoom, ClosedByItsFrameTheOpenPickerPicksNothing)
{
    put(u"a.vxl"_s);
    module.picker.PickedFiles = {QString(), u"/before"_s};
    inThePicker<Form7>([](Form7&) {});
    EXPECT_FALSE(shown.ShowOpenPicker(u"*.vxl"_s, false));
    EXPECT_EQ(module.picker.PickedFiles, QStringList({QString(), u"/before"_s}));
}

TEST_F(ProgramPickersRoom, ShowTheSavePickerModally)
{
    inThePicker<Form10>([](Form10& form) { QTest::keyClick(form.Text1, Qt::Key_Return); });
    shown.ShowSavePicker(u"*.vxl"_s);
    EXPECT_EQ(module.picker.SaveFileName, room(u"no name.vxl"_s));
}

TEST_F(ProgramPickersRoom, TheFolderOfOnePickerIsTheStartOfTheNext)
{
    QDir(room()).mkdir(u"sub"_s);
    inThePicker<Form10>([this](Form10& form) {
        typeOver(form.PathBox, room(u"sub"_s));
        QTest::keyClick(form.PathBox, Qt::Key_Return);
        QTest::keyClick(form.Text1, Qt::Key_Return);
    });
    shown.ShowSavePicker(u"*.vxl"_s);
    inThePicker<Form7>([this](Form7& form) { EXPECT_EQ(form.File1->folder(), room(u"sub"_s)); });
    shown.ShowOpenPicker(u"*.vxl"_s, false);
}

TEST_F(ProgramPickersRoom, SizesAreRememberedForTheRun)
{
    inThePicker<Form7>([](Form7& form) { form.resize(801, 502); });
    shown.ShowOpenPicker(u"*.vxl"_s, false);
    inThePicker<Form7>([](Form7& form) { EXPECT_EQ(form.size(), QSize(801, 502)); });
    shown.ShowOpenPicker(u"*.vxl"_s, false);
}

} // namespace orvanta::test
