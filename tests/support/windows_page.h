// docs/windows.md, read for tests that compare it with the classes.
#pragma once

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QString>
#include <QWidget>

#include <gtest/gtest.h>
#include <map>

namespace orvanta::test {

struct DocumentedForm
{
    QString file; // as the page names it
    QSet<QString> controls;
};

/// A heading "## `Form2`: the main window", a line "File: `window/form2_main_window.h`" and
/// a table whose first column holds the controls.
inline std::map<QString, DocumentedForm> documentedForms()
{
    QFile page(QStringLiteral(ORVANTA_SOURCE_DIR "/docs/windows.md"));
    EXPECT_TRUE(page.open(QIODevice::ReadOnly));
    static const QRegularExpression heading(QStringLiteral("^## `(Form\\d+)`"));
    static const QRegularExpression file(QStringLiteral("^File: `([^`]+)`"));
    static const QRegularExpression control(QStringLiteral("^\\| `(\\w+)` \\|"));
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
inline QSet<QString> namedControls(const QObject& form)
{
    static const QRegularExpression given(QStringLiteral(
        "^(Image|Text|List|[Ll]abel|Slider|File|Timer|Option|Command|Frame|Check|FolderTreeview|"
        "ActiveMovie)\\d+$|^(PathBox|create|cp|cg|tools|op|cdc|ai|add|help|doc|tu|ab)$"));
    QSet<QString> names;
    for (const QObject* control : form.findChildren<QObject*>()) {
        if (given.match(control->objectName()).hasMatch()) {
            names.insert(control->objectName());
        }
    }
    return names;
}

/// The page has this form with these controls, no more and no less, and names the header that
/// declares it. apart: controls that are plain members, which no search among children finds.
inline void expectOnWindowsPage(const QWidget& form, const QList<const QObject*>& apart = {})
{
    const std::map<QString, DocumentedForm> forms = documentedForms();
    const auto page = forms.find(form.objectName());
    ASSERT_NE(page, forms.end()) << qPrintable(form.objectName());
    QSet<QString> controls = namedControls(form);
    for (const QObject* member : apart) {
        controls.insert(member->objectName());
    }
    EXPECT_EQ(page->second.controls, controls) << qPrintable(form.objectName());
}

} // namespace orvanta::test
