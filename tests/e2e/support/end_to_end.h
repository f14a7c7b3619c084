// The fixture of the end-to-end tests: one program on a desktop of its own.
#pragma once

#include "tests/e2e/support/main_window.h"
#include "tests/e2e/support/media.h"
#include "tests/e2e/support/packets.h"
#include "tests/e2e/support/wait.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvanta::e2e {

class EndToEnd : public testing::Test
{
protected:
    explicit EndToEnd(DesktopOptions options = {}, Home::Kind kind = Home::Installed);
    void SetUp() override;
    void TearDown() override;

    /// Once the main window is shown.
    [[nodiscard]] MainWindow& window();
    /// A path in the test's own folder.
    [[nodiscard]] QString file(const QString& name) const { return desktop.folder() + u'/' + name; }

    /// Waits for the next line "orvanta.playback: " + this, for example "start 1 2", which may go
    /// on with a blank and more.
    [[nodiscard]] bool plays(const QString& what);
    [[nodiscard]] bool loads(int packets, int entries);
    /// Lets the program open one more file, without starting it, and returns what it said until
    /// then: several ticks have passed in between.
    QStringList saidUntilAnotherFileIsOpen();

    Desktop desktop;
    Home home;
    Application program;

private:
    std::unique_ptr<MainWindow> m_window;
};

[[nodiscard]] QString playbackPattern(const QString& what);

} // namespace orvanta::e2e
