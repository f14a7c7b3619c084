// The packet editor in its brake mode, with a clip of two minutes.
#pragma once

#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/form5_packet_editor.h"
#include "editors/time_slider.h"
#include "tests/editors/editor_room.h"

#include <QRadioButton>

#include <vector>

namespace orvanta::test {

class BrakeMode : public EditorOnScreen<Form5>
{
protected:
    void open()
    {
        EditorOnScreen::open();
        editor->Option2->click();
    }
    /// Opens clip.avi (120 s long) by a click on it.
    void openClip()
    {
        put(u"clip.avi"_s);
        open();
        clickRow(editor->File2, 0);
        ASSERT_TRUE(QTest::qWaitFor([&] { return preview && preview->isReady(); }));
        preview->calls.clear();
    }
    void setBrakes(const QStringList& brakes, int selected = -1)
    {
        editor->List2->change(
            [&](EntryList& list) { list = {.entries = brakes, .selected = selected}; });
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers keys = {})
    {
        QTest::keyClick(editor->Slider1, pressed, keys);
    }
    /// Drags the handle to these parts of the slider and lets it go.
    void drag(const std::vector<double>& parts)
    {
        dragAndHold(parts);
        QTest::mouseRelease(editor->Slider1, Qt::LeftButton, {}, placeOf(parts.back()));
    }
    void dragAndHold(const std::vector<double>& parts)
    {
        TimeSlider* slider = editor->Slider1;
        QTest::mousePress(slider, Qt::LeftButton, {}, placeOf(parts.front()));
        for (const double part : parts) {
            const QPoint at = placeOf(part);
            QMouseEvent move(QEvent::MouseMove, at, slider->mapToGlobal(at), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(slider, &move);
        }
    }
    [[nodiscard]] QPoint placeOf(double part) const
    {
        const QSize slider = editor->Slider1->size();
        return {static_cast<int>(part * slider.width()), slider.height() / 2};
    }
    [[nodiscard]] QStringList brakes() const { return editor->List2->list().entries; }
    [[nodiscard]] QString temporaryPacket() const { return temporary(u"temp.vxl"_s); }

private:
    UserLocale m_locale{QLocale(QLocale::English, QLocale::UnitedStates)};
};

} // namespace orvanta::test
