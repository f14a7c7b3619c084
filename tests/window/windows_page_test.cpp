// docs/windows.md against the classes: every form, every control, no more and no less.

#include "playback/form4_bookmark_sign.h"
#include "system/form3_picture_window.h"
#include "system/form9_about.h"
#include "tests/support/windows_page.h"
#include "tests/window/window_fixture.h"
#include "window/form11_language_dialog.h"
#include "window/form1_splash.h"

namespace orvanta::test {

class WindowsPage : public Form2Test
{};

TEST_F(WindowsPage, AgreesWithTheMainWindowAndThoseAroundIt)
{
    const Form1 splash(1);
    const Form11 dialog(home.ini());
    const Form4 sign;
    const Form9 about(module);
    const Form3 picture(about.windowTitle());
    expectOnWindowsPage(splash);
    expectOnWindowsPage(load());
    expectOnWindowsPage(sign, {&sign.Timer1});
    expectOnWindowsPage(dialog);
    expectOnWindowsPage(about);
    expectOnWindowsPage(picture);
}

TEST_F(WindowsPage, NamesTheHeaderThatDeclaresEachForm)
{
    for (const auto& [form, documented] : documentedForms()) {
        QFile header(QStringLiteral(ORVANTA_SOURCE_DIR "/") + documented.file);
        ASSERT_TRUE(header.open(QIODevice::ReadOnly)) << qPrintable(form);
        EXPECT_TRUE(header.readAll().contains("class " + form.toLatin1() + " : "))
            << qPrintable(form);
    }
}

} // namespace orvanta::test
