// docs/windows.md against the classes: every form, every control, no more and no less.

#include "playback/form13_video_window.h"
#include "playback/form4_bookmark_sign.h"
#include "player/window/form11_language_dialog.h"
#include "player/window/form1_splash.h"
#include "tests/window/window_fixture.h"

#include <QFile>
#include <QRegularExpression>

#include <map>

namespace orvanta::test {

namespace {

struct DocumentedForm
{
    QString file; // as the page names it
    QSet<QString> controls;
};

/// A heading "## `Form2`: the main window", a line "File: `player/window/form2_main_window.h`" and
/// a table whose first column holds the controls.
std::map<QString, DocumentedForm> documentedForms()
{
    QFile page(QStringLiteral(ORVANTA_SOURCE_DIR "/docs/windows.md"));
    EXPECT_TRUE(page.open(QIODevice::ReadOnly));
    static const QRegularExpression heading(u"^## `(Form\\d+)`"_s);
    static const QRegularExpression file(u"^File: `([^`]+)`"_s);
    static const QRegularExpression control(u"^\\| `(\\w+)` \\|"_s);
    std::map<QString, DocumentedForm> forms;
    QString form;
    for (const QString& line : QString::fromUtf8(page.readAll()).split(u'\n')) {
        if (const auto match = heading.match(line); match.hasMatch()) {
            form = match.captured(1);
        } else if (const auto named = file.match(line); named.hasMatch()) {
            forms[form].file = named.captured(1);
        } else if (const auto row = control.match(line); row.hasMatch()) {
            forms[form].controls.insert(row.captured(1));
        }
    }
    return forms;
}

/// Objects whose names are of the given kind; the toolkit's own helpers have names like
/// "qt_scrollarea_viewport" or none.
QSet<QString> namedControls(const QObject& form)
{
    static const QRegularExpression given(
        u"^(Image|Text|List|Label|Slider|File|Timer|Option|Command|ActiveMovie)\\d+$|"
        u"^(create|cp|cg|tools|op|cdc|ai|add|help|doc|tu|ab)$"_s);
    QSet<QString> names;
    for (const QObject* control : form.findChildren<QObject*>()) {
        if (given.match(control->objectName()).hasMatch()) {
            names.insert(control->objectName());
        }
    }
    return names;
}

} // namespace

class WindowsPage : public Form2Test
{
protected:
    /// apart: controls that are plain members, which no search among children finds.
    void expectPage(const QWidget& form, const QList<const QObject*>& apart = {}) const
    {
        const auto page = m_forms.find(form.objectName());
        ASSERT_NE(page, m_forms.end()) << qPrintable(form.objectName());
        QSet<QString> controls = namedControls(form);
        for (const QObject* member : apart) {
            controls.insert(member->objectName());
        }
        EXPECT_EQ(page->second.controls, controls) << qPrintable(form.objectName());
        const QString header = QStringLiteral(ORVANTA_SOURCE_DIR "/") + page->second.file;
        EXPECT_TRUE(QFile::exists(header)) << qPrintable(header);
    }

    const std::map<QString, DocumentedForm> m_forms = documentedForms();
};

TEST_F(WindowsPage, AgreesWithEveryForm)
{
    const Form13 videoWindow(control, HandlerBoundary());
    const Form1 splash(1);
    const Form11 dialog(home.ini());
    const Form4 sign;
    expectPage(splash);
    expectPage(load());
    expectPage(sign, {&sign.Timer1});
    expectPage(dialog);
    expectPage(videoWindow, {&videoWindow.Timer1});
    EXPECT_EQ(m_forms.size(), 5U);
}

} // namespace orvanta::test
