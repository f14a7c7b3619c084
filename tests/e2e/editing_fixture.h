// The fixture of the tests that edit what is open in the main window.
#pragma once

#include "core/ini.h"
#include "tests/e2e/support/steered.h"

#include <QFile>

namespace orvanta::e2e {

class Edited : public Steered
{
protected:
    /// One key, counted; of a text only the letters are not.
    void key(const QString& name)
    {
        ++keys;
        desktop.press(name);
    }

    /// Opens a document in the program and begins to edit it.
    void edit(const QString& document)
    {
        ASSERT_TRUE(program.startAndShow({document}));
        ASSERT_TRUE(program.next(QStringLiteral("^orvanta.playlist: loaded")));
        beginEditing();
    }

    void beginEditing()
    {
        ASSERT_TRUE(desktop.activate(kMainWindow));
        key(QStringLiteral("F4"));
        ASSERT_TRUE(isShown(QStringLiteral("Leave editing")));
    }

    /// Whether a button comes in sight.
    [[nodiscard]] bool isShown(const QString& button)
    {
        return bus.control(program.pid(), QStringLiteral("push button"), button).has_value();
    }

    void click(const QString& button)
    {
        const auto found = bus.control(program.pid(), QStringLiteral("push button"), button);
        ASSERT_TRUE(found) << button.toStdString() << '\n' << window().outline().toStdString();
        desktop.click(found->place().center());
    }

    /// The texts of the lines below the list's own and the packet's.
    [[nodiscard]] QStringList texts() { return window().rows().mid(2); }
    [[nodiscard]] bool textsBecome(const QStringList& wanted)
    {
        const bool same = waitFor([&] { return texts() == wanted; });
        EXPECT_TRUE(same) << texts().join(QStringLiteral(" | ")).toStdString();
        return same;
    }

    /// Clicks a line's text; of the lines that texts() has.
    void chooseLine(int index)
    {
        desktop.click(placeOfLine(index).center());
        ASSERT_TRUE(waitFor([&] { return window().currentRow() == index + 2; }));
    }

    [[nodiscard]] QRect placeOfLine(int index)
    {
        const auto list =
            bus.control(program.pid(), QStringLiteral("list"), QStringLiteral("Playlist"));
        const auto line = list ? list->child(index + 2) : std::nullopt;
        return line ? line->place() : QRect();
    }

    static QByteArray bytesOf(const QString& path)
    {
        QFile opened(path);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }

    /// The brakes of a packet file.
    static QList<BrakeLine> brakesIn(const QString& packet)
    {
        const int count = ReadIni(QStringLiteral("main"), QStringLiteral("brakes"), packet).toInt();
        QList<BrakeLine> brakes;
        for (int i = 1; i <= count; ++i) {
            const QString section = QStringLiteral("brake%1").arg(i);
            brakes.append({ReadIni(section, QStringLiteral("time"), packet).toDouble(),
                           ReadIni(section, QStringLiteral("text"), packet)});
        }
        return brakes;
    }

    static QStringList textsIn(const QString& packet)
    {
        QStringList texts;
        for (const BrakeLine& brake : brakesIn(packet)) {
            texts.append(brake.text);
        }
        return texts;
    }

    int keys = 0;
    AccessibilityBus bus{desktop};
};

} // namespace orvanta::e2e
