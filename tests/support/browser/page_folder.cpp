#include "tests/support/browser/page_folder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

PageFolder::PageFolder()
{
    QDir(path()).mkdir(u"media"_s);
}

PageMedia PageFolder::clip(const QString& source, const QString& name) const
{
    const QString file = u"media/"_s + (name.isEmpty() ? source : name);
    const QString from = QStringLiteral(ORVANTA_BUILD_DIR "/test-media/") + source;
    const QString to = path() + u'/' + file;
    EXPECT_TRUE(QFile::exists(to) || QFile::copy(from, to)) << qPrintable(from);
    return {.sources = {{.file = file, .type = {}}}};
}

QString PageFolder::write(const PageLesson& lesson) const
{
    QFile file(path() + u"/index.html"_s);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(lessonPage(lesson));
    return file.fileName();
}

PageLine clipLine(const QString& text, const PageMedia& media)
{
    return {.text = text, .media = media};
}

PageLine brakeLine(const QString& text, double seconds)
{
    return {.text = text, .seconds = seconds};
}

PagePacket clipPacket(const QString& title, std::vector<PageLine> lines)
{
    return {.title = title, .picture = {}, .lines = std::move(lines)};
}

PagePacket brakePacket(const QString& title, const PageMedia& media, std::vector<PageLine> lines)
{
    return {.title = title,
            .picture = {},
            .hasBrakes = true,
            .media = media,
            .lines = std::move(lines)};
}

} // namespace orvanta::test
