// Names of subtitle files: which belong to a clip, whatever lies beside it.

#include "model/languages.h"
#include "playback/track_choice.h"
#include "tests/fuzz/fuzzing.h"

#include <QFileInfo>

using namespace orvanta;
using namespace orvanta::fuzz;

/// A name that a file can have.
static QString nameOf(Input& input)
{
    constexpr qsizetype kLongest = 60;
    QString name = input.text().left(kLongest);
    return name.replace(u'/', u'_').remove(QChar()).replace(u'\uFFFD', u'_');
}

static void put(const QString& path)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) { // "." and ".." cannot be
        file.write("1\n00:00:01,000 --> 00:00:02,000\nOne\n\n");
    }
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QTemporaryDir folder(room() + QStringLiteral("/XXXXXX"));
    const QString name = nameOf(input);
    const QString clip = folder.filePath(name + QStringLiteral(".mp4"));
    put(clip);
    for (int i = 0; i < 3 && !input.isEmpty(); ++i) {
        const QString between = nameOf(input);
        put(folder.filePath(name + between + QStringLiteral(".srt")));
        put(folder.filePath(between + QStringLiteral(".vtt")));
    }
    for (const SubtitleFile& file : subtitleFilesBeside(clip)) {
        require(QFileInfo(file.path).fileName().startsWith(name), "a file is called as its clip");
        require(QFileInfo(file.path).path() == folder.path(), "only files beside the clip belong");
        require(file.language == kNoLanguage || languageCode(file.language) == file.language,
                "a language is a code");
    }
    return 0;
}
