// The add-ins as processes, with real clips that ffmpeg makes.
#pragma once

#include "tests/support/probe.h"
#include "tests/support/settings_folder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace orvanta::test {

struct ProgramAnswer
{
    int status = -1;
    QString output;
    QString errors;
};

inline ProgramAnswer runProgram(const QString& program, const QStringList& arguments,
                                const QString& folder, const QProcessEnvironment& variables)
{
    constexpr int kLimitMs = 60000;
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setProcessEnvironment(variables);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(kLimitMs);
    return {.status =
                ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            .output = QString::fromUtf8(process.readAllStandardOutput()),
            .errors = QString::fromUtf8(process.readAllStandardError())};
}

class ProgramRoom : public testing::Test
{
protected:
    ProgramRoom()
    {
        QDir().mkpath(folder.file(QStringLiteral("home")));
        QFile settings(folder.file(QStringLiteral("home/orvanta.ini")));
        EXPECT_TRUE(settings.open(QIODevice::WriteOnly));
        settings.write("[main]\r\nlanguage=1\r\n");
        variables = QProcessEnvironment::systemEnvironment();
        variables.insert(QStringLiteral("ORVANTA_HOME"), folder.file(QStringLiteral("home")));
        variables.insert(QStringLiteral("XDG_STATE_HOME"), folder.file(QStringLiteral("state")));
        variables.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        variables.remove(QStringLiteral("DISPLAY"));
        variables.remove(QStringLiteral("WAYLAND_DISPLAY"));
        variables.remove(QStringLiteral("QT_QPA_PLATFORM"));
    }

    ProgramAnswer import(const QStringList& arguments) const
    {
        return runProgram(builtProgram("companions/orvanta-import"), arguments, folder.path(),
                          variables);
    }
    ProgramAnswer exported(const QStringList& arguments) const
    {
        return runProgram(builtProgram("companions/orvanta-export"), arguments, folder.path(),
                          variables);
    }
    ProgramAnswer tool(const QString& program, const QStringList& arguments) const
    {
        return runProgram(program, arguments, folder.path(), variables);
    }
    /// A clip of so many seconds with further options ("-i chapters -map_chapters 1").
    QString makeClip(const QString& name, int seconds, const QString& options = {}) const
    {
        const QString picture =
            QStringLiteral(
                "-nostdin -v error -y -f lavfi -i testsrc2=size=64x64:rate=10:duration=%1 "
                "-f lavfi -i sine=frequency=440:sample_rate=44100:duration=%1")
                .arg(seconds);
        const QStringList words =
            (picture + QLatin1Char(' ') + options).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const ProgramAnswer made = tool(QStringLiteral("ffmpeg"), words + QStringList(name));
        EXPECT_EQ(made.status, 0) << qPrintable(made.errors);
        return folder.file(name);
    }
    [[nodiscard]] QString value(const QString& document, const QString& section,
                                const QString& key) const
    {
        return ReadIni(section, key, folder.file(document));
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    [[nodiscard]] QStringList marksOf(const QString& document) const
    {
        QStringList marks;
        const int count = value(document, QStringLiteral("main"), QStringLiteral("brakes")).toInt();
        for (int i = 1; i <= count; ++i) {
            const QString section = QStringLiteral("brake%1").arg(i);
            marks.append(value(document, section, QStringLiteral("time")) + QLatin1Char(' ') +
                         value(document, section, QStringLiteral("text")));
        }
        return marks;
    }

    SettingsFolder folder;
    QProcessEnvironment variables;
};

} // namespace orvanta::test
