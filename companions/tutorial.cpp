// The tutorial: hands the lessons in the interface language to the player and ends.

#include "companions/interface_language.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

/// The first of the files that is there, seen from this program's folder; empty for none.
static QString firstFile(const QStringList& names)
{
    const QDir here(QCoreApplication::applicationDirPath());
    for (const QString& name : names) {
        QString file = QDir::cleanPath(here.absoluteFilePath(name));
        if (QFileInfo(file).isFile()) {
            return file;
        }
    }
    return {};
}

/// Beside the installed programs, or beside the build folder of a checkout.
static QString lessons()
{
    const QString name = companionLanguage() == TextLanguage::English ? u"tutorial_eng.vxg"_s
                                                                      : u"tutorial_rus.vxg"_s;
    return firstFile({QStringLiteral(ORVANTA_SHARED_FROM_COMPANIONS "/tutorial/") + name,
                      u"../../tutorial/"_s + name});
}

/// The player says where it is when it starts this program.
static QString player()
{
    QString told = qEnvironmentVariable("ORVANTA_PROGRAM");
    if (QFileInfo(told).isExecutable()) {
        return told;
    }
    const QString near =
        firstFile({QStringLiteral(ORVANTA_BIN_FROM_COMPANIONS "/orvanta"), u"../orvanta"_s});
    return near.isEmpty() ? QStandardPaths::findExecutable(u"orvanta"_s) : near;
}

static int complain(const char* what)
{
    std::fprintf(stderr, "tutorial: %s\n", what);
    return EXIT_FAILURE;
}

/// Becomes the player with the lessons; a player that is already running opens them.
static int playLessons()
{
    const QByteArray group = QFile::encodeName(lessons());
    QByteArray program = QFile::encodeName(player());
    if (group.isEmpty()) {
        return complain("the lessons are not there");
    }
    if (program.isEmpty()) {
        return complain("the player is not there");
    }
    QByteArray argument = group;
    const std::array<char*, 3> words = {program.data(), argument.data(), nullptr};
    ::execv(program.constData(), words.data());
    return complain(std::strerror(errno));
}

} // namespace orvanta

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return orvanta::playLessons();
}
