// The tutorial: hands the lessons in the interface language to the player and ends.

#include "companions/player_program.h"

#include <QCoreApplication>
#include <QFile>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

/// Beside the installed programs, or beside the build folder of a checkout.
static QString lessons()
{
    const bool isEnglish = companionLanguage() == TextLanguage::English;
    const QString name = isEnglish ? u"tutorial_eng.vxg"_s : u"tutorial_rus.vxg"_s;
    return fileNearCompanions({QStringLiteral(ORVANTA_SHARED_FROM_COMPANIONS "/tutorial/") + name,
                               u"../../tutorial/"_s + name});
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
    QByteArray program = QFile::encodeName(playerProgram());
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
