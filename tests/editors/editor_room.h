// A room of its own for each test: folders, settings, pickers that answer as told, a preview.
#pragma once

#include "core/ini.h"
#include "editors/editor_services.h"
#include "editors/entry_list_view.h"
#include "tests/support/scripted_media_control.h"
#include "tests/support/scripted_pickers.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace orvanta::test {

using namespace Qt::StringLiterals;

/// The rooms' folder is "<temp>/room", with the application folder "<temp>/home".
class EditorRoom : public ::testing::Test
{
protected:
    EditorRoom()
    {
        QDir(m_temp.path()).mkpath(u"room"_s);
        QDir(m_temp.path()).mkpath(u"home"_s);
        module.ApplicationFolder = m_temp.filePath(u"home"_s);
        module.IniPath = module.ApplicationFolder + u"/orvanta.ini"_s;
        module.Language = 1;
        set(u"main"_s, u"language"_s, u"1"_s);
        set(u"types"_s, u"num"_s, u"2"_s);
        set(u"types"_s, u"file0"_s, u"avi"_s);
        set(u"types"_s, u"file1"_s, u"mp3"_s);
        set(u"save"_s, u"open"_s, room());
    }

    void set(const QString& section, const QString& key, const QString& value)
    {
        WriteIni(section, key, value, module.IniPath);
    }
    [[nodiscard]] QString stored(const QString& section, const QString& key) const
    {
        return ReadIni(section, key, module.IniPath);
    }

    [[nodiscard]] QString room(const QString& name = {}) const
    {
        return m_temp.filePath(name.isEmpty() ? u"room"_s : u"room/"_s + name);
    }
    QString put(const QString& name, const QByteArray& bytes = "x") const
    {
        QFile file(room(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    void putAll(const QStringList& names) const
    {
        for (const QString& name : names) {
            put(name);
        }
    }
    static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    EditorServices services()
    {
        return {.module = module,
                .pickers = pickers,
                .boundary = HandlerBoundary(
                    [this](const RuntimeError& error) { untrapped.append(error.text()); }),
                .makePreview =
                    [this] {
                        auto control = std::make_unique<ScriptedMediaControl>();
                        preview = control.get();
                        control->autoOpen = true;
                        control->duration = previewSeconds;
                        return control;
                    },
                .playerVolume = [] { return -1000; },
                .pausePlayer =
                    [this] {
                        const bool wasRunning = playerRuns;
                        playerRuns = false;
                        return wasRunning;
                    },
                .resumePlayer = [this] { playerRuns = true; }};
    }

    Module1 module;
    ScriptedPickers pickers{module};
    QStringList untrapped; // errors that would have ended the program
    bool playerRuns = false;
    double previewSeconds = 120;            // length of every clip that is opened in a preview
    QPointer<ScriptedMediaControl> preview; // of the editor that was made last

private:
    QTemporaryDir m_temp;
};

/// One editor on the screen: Form5 or Form6.
template <typename Form> class EditorOnScreen : public EditorRoom
{
protected:
    void open()
    {
        m_services.emplace(services());
        editor = std::make_unique<Form>(*m_services);
        editor->show();
    }
    void openWith(const QStringList& list, int selectedEntry = -1)
    {
        open();
        editor->List1->change([&](EntryList& entryList) {
            entryList = {.entries = list, .selected = selectedEntry};
        });
    }
    static void press(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    /// Presses a button that loads, and picks a document of these bytes.
    void load(QPushButton* button, const QByteArray& bytes)
    {
        pickers.answer = {put(u"in"_s, bytes)};
        press(button);
    }
    /// Presses a button that saves, and gives what is in the file "out" then.
    [[nodiscard]] QByteArray savedBy(QPushButton* button)
    {
        pickers.saveAnswer = room(u"out"_s);
        press(button);
        return bytesOf(pickers.saveAnswer);
    }
    [[nodiscard]] QStringList entries() const { return editor->List1->list().entries; }
    [[nodiscard]] int selected() const { return editor->List1->list().selected; }
    /// Where Create writes.
    [[nodiscard]] QString temporary(const QString& name) const
    {
        return module.ApplicationFolder + u'/' + name;
    }

    std::unique_ptr<Form> editor;

private:
    std::optional<EditorServices> m_services;
};

/// Acts in the modal window that is shown next, and closes it.
class NextModalWindow
{
public:
    template <typename Form> void act(const std::function<void(Form&)>& work)
    {
        QTimer::singleShot(0, &m_context, [work] {
            auto* window = qobject_cast<Form*>(QApplication::activeModalWidget());
            ASSERT_NE(window, nullptr);
            work(*window);
            window->close();
        });
    }

private:
    QObject m_context;
};

/// The row as a user reaches it.
inline void clickRow(QAbstractItemView* view, int row, Qt::KeyboardModifiers keys = Qt::NoModifier)
{
    const QModelIndex index = view->model()->index(row, 0);
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, keys, view->visualRect(index).center());
}

/// Types over what a box shows.
inline void typeOver(QWidget* box, const QString& text)
{
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, text);
}

/// The user's decimal mark for one test.
class UserLocale
{
public:
    explicit UserLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~UserLocale() { QLocale::setDefault(m_before); }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

private:
    QLocale m_before;
};

} // namespace orvanta::test
