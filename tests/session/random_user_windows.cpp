// What the random user does to the windows themselves.
#include "tests/session/random_user.h"

#include <QTest>

namespace orvanta::session {

using namespace Qt::StringLiterals;

void RandomUser::useVideoWindow(ProgramRun& run)
{
    Form13& window = run.program.videoWindow();
    if (!window.isVisible()) {
        return note(u"no video window"_s);
    }
    if (m_dice.chance(30)) {
        note(u"close the video window"_s);
        window.close();
    } else if (m_dice.chance(50)) {
        note(u"double click the picture"_s);
        QTest::mouseDClick(&window, Qt::LeftButton, {}, window.rect().center());
    } else {
        note(u"resize the video window"_s);
        window.resize(100 + m_dice.below(800), 100 + m_dice.below(600));
    }
}

void RandomUser::useMainWindow(ProgramRun& run)
{
    Form2& window = run.program.mainWindow();
    if (m_dice.chance(30)) {
        note(u"restore the main window"_s);
        window.showNormal();
    } else if (m_dice.chance(50)) {
        note(u"activate the main window"_s);
        window.activateWindow();
    } else {
        note(u"resize the main window"_s);
        window.resize(300 + m_dice.below(600), 300 + m_dice.below(600));
    }
}

} // namespace orvanta::session
