// The main window in its editing mode, with a document that plays.
#pragma once

#include "core/earlier_versions.h"
#include "playback/lesson_controls.h"
#include "tests/window/window_fixture.h"
#include "window/edit_notice.h"
#include "window/editing_mode.h"
#include "window/editing_row.h"
#include "window/silence_row.h"
#include "window/waveform_strip.h"

#include <QDir>
#include <QPushButton>

namespace orvanta::test {

class EditingInTheWindow : public Form2Test
{
protected:
    ~EditingInTheWindow() override { setVersionsFolder({}); }

    /// A packet file of brakes, open and playing from its first brake, in the mode.
    void openBrakes(const QStringList& times, Int16 language = 1)
    {
        QString content =
            u"[main]\nfiles=1\nfile=%1\nbrakes=%2\n"_s.arg(home.write(u"film.avi"_s, "media"))
                .arg(times.size());
        for (qsizetype i = 1; i <= times.size(); ++i) {
            content +=
                u"[brake%1]\ntime=%2\ntext=line %1\n"_s.arg(QString::number(i), times[i - 1]);
        }
        openPacket(home.write(u"lesson.vxl"_s, content.toUtf8()), language);
    }
    void openClips(const QStringList& texts, Int16 language = 1)
    {
        openPacket(writePacket(u"clips.vxl"_s, texts), language);
    }
    void openPacket(const QString& path, Int16 language)
    {
        control.duration = 60;
        show(language);
        pickers.answer = {path};
        click(window->Image14);
        ASSERT_TRUE(start(1, 1));
        control.calls.clear();
        press(Qt::Key_F4);
        ASSERT_TRUE(mode().isOn());
    }
    EditingMode& mode() const { return *window->findChild<EditingMode*>(); }
    LineEditor& box() const { return mode().box(); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(window->List1, key, modifiers);
    }
    void type(const QString& text) const
    {
        ASSERT_TRUE(box().isOpen());
        QTest::keyClicks(&box(), text);
    }
    void playTo(double seconds)
    {
        control.playTo(seconds);
        engine->tick();
    }
    [[nodiscard]] QStringList texts(Int16 packet = 1) const
    {
        QStringList texts;
        for (const ClipEntry& line : module.playlist.packet(packet).Clips) {
            texts.append(line.Text);
        }
        return texts;
    }
    [[nodiscard]] QStringList times() const
    {
        QStringList times;
        for (const ClipEntry& line : module.playlist.packet(1).Clips) {
            times.append(line.Time);
        }
        return times;
    }
    [[nodiscard]] int line() const { return window->List1->cursorLine(); }
    [[nodiscard]] QStringList answers() const
    {
        QStringList captions;
        for (const QPushButton* button : window->Notice->buttons()) {
            captions.append(button->text());
        }
        return captions;
    }
    void answer(int index) const
    {
        const auto place = static_cast<std::size_t>(index);
        ASSERT_LT(place, window->Notice->buttons().size());
        click(window->Notice->buttons()[place]);
    }
    [[nodiscard]] QString kept(const char16_t* section, const char16_t* key,
                               const QString& name = u"lesson.vxl"_s) const
    {
        return ReadIni(QString::fromUtf16(section), QString::fromUtf16(key), home.file(name));
    }
    [[nodiscard]] QStringList drafts() const
    {
        return QDir(home.file(u"drafts"_s)).entryList(QDir::Files);
    }
};

} // namespace orvanta::test
