// docs/windows.md, the headers, the table of texts and the windows themselves: the same controls.

#include "playback/form13_video_window.h"
#include "playback/form4_bookmark_sign.h"
#include "system/form12_tray.h"
#include "tests/captions/every_window.h"
#include "window/editing_row.h"
#include "window/form1_splash.h"
#include "window/form2_main_window.h"
#include "window/practice_panel.h"
#include "window/silence_row.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>
#include <map>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

QString source(const QString& file)
{
    QFile opened(QStringLiteral(ORVANTA_SOURCE_DIR "/") + file);
    EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << qPrintable(file);
    return QString::fromUtf8(opened.readAll());
}

struct DocumentedForm
{
    QString file; // as the page names it
    QSet<QString> controls;
    QString text; // the whole section
};

/// A heading "## `Form2`: the main window", a line "File: `window/form2_main_window.h`" and a table
/// whose first column holds the controls; "Check…" stands for the boxes of all options.
std::map<QString, DocumentedForm> documentedForms()
{
    static const QRegularExpression heading(
        u"^`(Form\\d+|PracticePanel|Editing|Silence|Earlier|BoxWindow|Import|Export)`"_s);
    static const QRegularExpression file(u"\nFile: `([^`]+)`"_s);
    static const QRegularExpression control(u"\n\\| `(\\w+)` \\|"_s);
    std::map<QString, DocumentedForm> forms;
    for (const QString& section : source(u"docs/windows.md"_s).split(u"\n## "_s).mid(1)) {
        DocumentedForm& form = forms[heading.match(section).captured(1)];
        form = {file.match(section).captured(1), {}, section};
        for (const QRegularExpressionMatch& row : control.globalMatch(section)) {
            form.controls.insert(row.captured(1));
        }
        if (section.contains(u"\n| `Check…` |")) {
            for (const OptionRow& option : kOptionRows) {
                form.controls.insert(option.name.toString());
            }
        }
    }
    return forms;
}

/// The class of a window or of a part of one, by its name.
QString classOf(const QString& form)
{
    static const QMap<QString, QString> others = {{u"Editing"_s, u"EditingRow"_s},
                                                  {u"Silence"_s, u"SilenceRow"_s},
                                                  {u"Earlier"_s, u"EarlierDialog"_s},
                                                  {u"Import"_s, u"ImportWindow"_s},
                                                  {u"Export"_s, u"ExportWindow"_s}};
    return others.value(form, form);
}

/// The public members of a class, those of the window that it builds upon among them.
QSet<QString> membersOf(const QString& form, const QString& header)
{
    static const QMap<QString, QString> bases = {
        {u"EditorWindow"_s, u"editors/editor_window.h"_s},
        {u"PickerWindow"_s, u"editors/picker_window.h"_s},
        {u"CompanionWindow"_s, u"companions/exchange_windows/companion_window.h"_s}};
    static const QRegularExpression member(u"\n    [\\w:<>*]+ (\\w+)(?: = nullptr)?;"_s);
    const QRegularExpression declaration(
        u"\nclass %1 : public (\\w+).*?\npublic:(.*?)\n(?:protected|private|Q_SIGNALS):"_s.arg(
            classOf(form)),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch found = declaration.match(source(header));
    EXPECT_TRUE(found.hasMatch()) << qPrintable(header);
    QSet<QString> members;
    for (const QRegularExpressionMatch& each : member.globalMatch(found.captured(2))) {
        members.insert(each.captured(1));
    }
    const QString base = found.captured(1);
    return bases.contains(base) ? members + membersOf(base, bases.value(base)) : members;
}

bool hasSectionOfItsOwn(const QObject& part)
{
    return qobject_cast<const PracticePanel*>(&part) != nullptr ||
           qobject_cast<const EditingRow*>(&part) != nullptr ||
           qobject_cast<const SilenceRow*>(&part) != nullptr;
}

void collect(const QObject& object, QMap<QString, const QObject*>& named)
{
    if (!object.objectName().isEmpty()) {
        named.insert(object.objectName(), &object);
    }
    for (const QObject* child : object.children()) {
        if (hasSectionOfItsOwn(*child)) {
            named.insert(child->objectName(), child);
        } else {
            collect(*child, named);
        }
    }
}

using Named = QMap<QString, const QObject*>;

/// What bears a name in a window. apart: what is a plain member and no child of it.
Named namedIn(const QObject& form, const QList<const QObject*>& apart = {})
{
    Named named;
    collect(form, named);
    for (const QObject* member : apart) {
        collect(*member, named);
    }
    return named;
}

/// Looks at each window of the program.
void inEveryForm(const std::function<void(const QString& form, const Named& named)>& look)
{
    Surroundings surroundings(1);
    const auto add = [&](const QObject& form, const QList<const QObject*>& apart = {}) {
        look(form.objectName(), namedIn(form, apart));
    };
    for (const WindowOfProgram& row : everyWindow()) {
        add(*row.make(surroundings));
    }
    add(Form1(1));
    const PracticePanel panel(TextLanguage::English, nullptr);
    add(panel);
    const EditingRow editing(TextLanguage::English, nullptr);
    add(editing);
    const SilenceRow silence(TextLanguage::English, nullptr);
    add(silence);
    const Form4 sign;
    add(sign, {&sign.Timer1});
    const Form12 tray(surroundings.module);
    add(tray, {&tray.tray, &tray.IconTray1});
    const Form13 video(Form13Services{
        .control = surroundings.control,
        .boundary = surroundings.boundary,
        .keepAwake = [](bool) {},
        .carryOut = [](Command) { return false; },
        .seek = [](double) {},
        .mainWindow = [] { return nullptr; },
    });
    add(video, {&video.Timer1});
}

/// Controls to which the table of texts gives none, and why.
const QMap<QString, QString>& withoutTexts()
{
    static const QString picture = u"a picture to look at"_s;
    static const QString holder = u"never shown"_s;
    static const QString label = u"has the name of its label"_s;
    static const QString menu = u"opened by what has a name"_s;
    static const QMap<QString, QString> reasons = {
        {u"Form1/Image1"_s, picture},
        {u"Form2/Image15"_s, holder},
        {u"Form2/Image17"_s, holder},
        {u"Form2/Image20"_s, holder},
        {u"Form2/create"_s, menu},
        {u"Form2/tools"_s, menu},
        {u"Form2/help"_s, menu},
        {u"Form2/Panel"_s, menu},
        {u"Form2/Chips"_s, u"holds what has names"_s},
        {u"PracticePanel/SpeedBox"_s, label},
        {u"PracticePanel/TimesBox"_s, label},
        {u"PracticePanel/WaitBox"_s, label},
        {u"PracticePanel/FromBox"_s, label},
        {u"PracticePanel/StepBox"_s, label},
        {u"Form2/ListMenu"_s, menu},
        {u"Form2/Editing"_s, u"holds what has names"_s},
        {u"Form2/Notice"_s, u"has the name of what it says"_s},
        {u"Form2/Silence"_s, u"holds what has names"_s},
        {u"Form2/Strip"_s, u"has its name and value from the waveform's texts"_s},
        {u"Editing/More"_s, menu},
        {u"Form13/PictureMenu"_s, menu},
        {u"Form13/TracksMenu"_s, menu},
        {u"Form11/Image1"_s, picture},
        {u"Form11/Image2"_s, picture},
        {u"Form12/tray"_s, menu},
        {u"Form13/Image1"_s, picture},
        {u"Form13/ActiveMovie1"_s, picture},
        {u"Form13/LessonText"_s, picture},
        {u"Form3/Image1"_s, u"has the name of its window"_s},
        {u"Form6/Image1"_s, u"has the name of the box beside it"_s},
        {u"Form9/Image8"_s, u"has the name of the note beside it"_s},
        {u"BoxWindow/TargetEdit"_s, label},
        {u"BoxWindow/SummaryLabel"_s, u"has the name of what it says"_s},
        {u"BoxWindow/ProgressLabel"_s, u"has the name of what it says"_s},
        {u"BoxWindow/ResultLabel"_s, u"has the name of what it says"_s},
    };
    return reasons;
}

/// The part of a text's key before the point: "List1" of "List1.label".
QString controlOf(const InterfaceText& text)
{
    return text.control.toString().section(u'.', 0, 0);
}

bool hasText(const QString& form, const QString& control)
{
    return std::ranges::any_of(interfaceTexts(), [&](const InterfaceText& text) {
        return text.window == form && controlOf(text) == control;
    });
}

} // namespace

TEST(WindowsPage, HasEveryWindowAndEveryControlThatTheHeadersHave)
{
    for (const auto& [form, documented] : documentedForms()) {
        EXPECT_EQ(documented.controls, membersOf(form, documented.file)) << qPrintable(form);
    }
}

TEST(WindowsPage, HasEveryControlThatTheWindowsHaveAndNoOther)
{
    const std::map<QString, DocumentedForm> documented = documentedForms();
    QSet<QString> seen;
    inEveryForm([&](const QString& form, const Named& named) {
        ASSERT_TRUE(documented.contains(form)) << qPrintable(form);
        seen.insert(form);
        for (const QString& control : documented.at(form).controls) {
            EXPECT_TRUE(named.contains(control)) << qPrintable(form + u'/' + control);
        }
        // What the toolkit names begins with "qt_"; "List1.label" is the caption beside List1.
        static const QRegularExpression others(
            u"^(qt_|Ring$|LineBox$|ScrollLeft|ScrollRight)|\\.|^l[12]$"_s);
        for (const QString& name : named.keys()) {
            EXPECT_TRUE(name == form || documented.at(form).controls.contains(name) ||
                        others.match(name).hasMatch())
                << qPrintable(form + u'/' + name);
        }
    });
    EXPECT_EQ(seen.size(), static_cast<qsizetype>(documented.size()));
}

TEST(ControlTexts, AreThereForEachControlThatTheUserMeetsOrAReasonIs)
{
    const std::map<QString, DocumentedForm> documented = documentedForms();
    inEveryForm([&](const QString& form, const Named& named) {
        for (const QString& control : documented.at(form).controls) {
            const QObject* object = named.value(control);
            const bool isMet = object->isWidgetType() || object->inherits("QAction") ||
                               object->inherits("QSystemTrayIcon");
            const QString key = form + u'/' + control;
            EXPECT_EQ(hasText(form, control), isMet && !withoutTexts().contains(key))
                << qPrintable(key);
        }
    });
}

TEST(ControlTexts, BelongToControlsThatThereAre)
{
    // A part of several windows, what is said at a terminal, what can be asked for, and how
    // practice, lessons, tracks, languages, waveforms, editing, missing files, boxes, pages, the
    // lessons of other programs and the error that ends the program are spoken of.
    const QStringList others = {
        u"FolderTree"_s,  u"CommandLine"_s, u"Command"_s,  u"Practice"_s,
        u"Recent"_s,      u"Tracks"_s,      u"Language"_s, u"Waveform"_s,
        u"EditingMode"_s, u"Check"_s,       u"Files"_s,    u"Box"_s,
        u"ReadMe"_s,      u"LessonPage"_s,  u"Exchange"_s, u"RunTimeReport"_s};
    const std::map<QString, DocumentedForm> documented = documentedForms();
    for (const InterfaceText& text : interfaceTexts()) {
        const auto form = documented.find(text.window.toString());
        if (form == documented.end()) {
            EXPECT_TRUE(others.contains(text.window.toString()))
                << qPrintable(text.window.toString());
            continue;
        }
        EXPECT_TRUE(controlOf(text) == form->first ||
                    form->second.controls.contains(controlOf(text)))
            << qPrintable(form->first + u'/' + text.control.toString());
    }
}

} // namespace orvanta::test
