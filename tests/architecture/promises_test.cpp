// docs/trust.md says by which test each promise is held: the tests are there.

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

/// Names of all test programs, as the files that declare them have them.
static QSet<QString> testPrograms()
{
    QSet<QString> names;
    const QDir tests(QStringLiteral(ORVANTA_SOURCE_DIR "/tests"));
    QStringList folders = {u"."_s};
    while (!folders.isEmpty()) {
        const QDir folder(tests.filePath(folders.takeFirst()));
        for (const QString& name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            folders.append(tests.relativeFilePath(folder.filePath(name)));
        }
        QFile list(folder.filePath(u"CMakeLists.txt"_s));
        if (list.open(QIODevice::ReadOnly)) {
            // "e2e_tests(kill 300)" declares e2e_kill.
            static const QRegularExpression kProgram(u"(orvanta_tests|e2e_tests)\\(([a-z]\\w+)"_s);
            auto found = kProgram.globalMatch(QString::fromUtf8(list.readAll()));
            while (found.hasNext()) {
                const QRegularExpressionMatch program = found.next();
                const bool isShort = program.captured(1) == u"e2e_tests";
                names.insert((isShort ? u"e2e_"_s : QString()) + program.captured(2));
            }
        }
    }
    return names;
}

TEST(Promises, NameTestsThatAreThere)
{
    QFile page(QStringLiteral(ORVANTA_SOURCE_DIR "/docs/trust.md"));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QSet<QString> programs = testPrograms();
    ASSERT_TRUE(programs.contains(u"test_architecture"_s));
    static const QRegularExpression kName(u"`((?:test|e2e)_\\w+)`"_s);
    auto named = kName.globalMatch(QString::fromUtf8(page.readAll()));
    int count = 0;
    while (named.hasNext()) {
        ++count;
        const QString name = named.next().captured(1);
        EXPECT_TRUE(programs.contains(name)) << name.toStdString();
    }
    EXPECT_GT(count, 20);
}

} // namespace orvanta::test
