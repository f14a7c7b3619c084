#include "tests/companions/cdcreate/random_lesson.h"

#include "core/document_saving.h"
#include "core/ini_encoding.h"
#include "tests/e2e/support/media.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class LessonMaker
{
public:
    LessonMaker(QRandomGenerator& random, QString folder)
        : m_random(random),
          m_folder(std::move(folder))
    {}

    RandomLesson make()
    {
        RandomLesson lesson;
        const int packets = 1 + m_random.bounded(4);
        QByteArray group =
            "; made by hand\r\n[main]\r\nauthor=Anna\r\nfiles=" + QByteArray::number(packets) +
            "\r\n";
        for (int i = 1; i <= packets; ++i) {
            const QString packet = writePacket(i);
            group += "[file" + QByteArray::number(i) +
                     "]\r\npath=" + pathText(m_folder, packet).toUtf8() + "\r\ntext=Пакет " +
                     QByteArray::number(i) + "\r\npicture=" + picture() + "\r\n";
            lesson.document = packet;
        }
        if (packets > 1) {
            lesson.document = m_folder + u'/' + anyName(u".vxg"_s);
            write(lesson.document, group);
        }
        lesson.lines = m_lines;
        return lesson;
    }

private:
    template <typename List> [[nodiscard]] auto one(const List& list)
    {
        return list[m_random.bounded(static_cast<int>(list.size()))];
    }

    QString anyName(const QString& ending)
    {
        static const QStringList stems = {u"clip"_s,
                                          u"Clip"_s,
                                          u"CLIP"_s,
                                          u"CON"_s,
                                          u"aux.old"_s,
                                          u"Урок ёжика"_s,
                                          u"smile \U0001F600"_s,
                                          u"a;b=c,d"_s,
                                          u"50% #1 & more?"_s,
                                          u"-rf"_s,
                                          u".hidden"_s,
                                          u"dots.."_s,
                                          u"a \"quoted\" *"_s,
                                          u"two  blanks"_s,
                                          QString(110, u'щ'),
                                          u"e\u0301tude"_s,
                                          u"'single'"_s,
                                          u"[section]"_s,
                                          u"{}"_s};
        return one(stems) + ending;
    }

    QString anyFolder()
    {
        static const QStringList folders = {u"."_s, u"clips"_s, u"Clips of May"_s, u"клипы/1"_s,
                                            u"../outside"_s};
        QString folder = QDir::cleanPath(m_folder + u'/' + one(folders));
        QDir().mkpath(folder);
        return folder;
    }

    static void write(const QString& file, const QByteArray& content)
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly)) << qPrintable(file);
        out.write(content);
    }

    /// A real clip; the same bytes may lie under several names.
    QString clip()
    {
        static const QStringList kinds = {u"short.mp4"_s, u"short.avi"_s, u"short.mp3"_s,
                                          u"short.wav"_s};
        const QString kind = one(kinds);
        QString file;
        do {
            file = anyFolder() + u'/' + anyName(u'.' + QFileInfo(kind).suffix());
        } while (asDocumentHolds(file) != file);
        if (!QFileInfo::exists(file)) {
            EXPECT_TRUE(QFile::copy(e2e::media(kind), file)) << qPrintable(file);
        }
        return file;
    }

    QByteArray picture()
    {
        if (m_random.bounded(2) == 0) {
            return "{No picture}";
        }
        const QString file = anyFolder() + u'/' + anyName(u".jpg"_s);
        QImage drawn(32, 32, QImage::Format_RGB32);
        drawn.fill(Qt::darkCyan);
        EXPECT_TRUE(drawn.save(file, "JPG")) << qPrintable(file);
        return pathText(m_folder, file).toUtf8();
    }

    /// How a document in the folder may name the file.
    QString pathText(const QString& folder, const QString& file)
    {
        const QString relative = QDir(folder).relativeFilePath(file);
        const QString windows = QString(relative).replace(u'/', u'\\');
        const bool isBelow = !relative.startsWith(u"../"_s);
        const QString drive = u"E:\\"_s + QFileInfo(folder).fileName() + u'\\' + windows;
        QStringList texts = {file, relative, windows};
        if (isBelow && !file.contains(u'\\')) {
            texts.append(drive);
        }
        texts.removeIf([](const QString& text) { return asDocumentHolds(text) != text; });
        return one(texts);
    }

    /// Most write Unicode; old programs wrote what the reader's code page cannot say either. What
    /// leads out of the packet's folder is then not looked for.
    QByteArray encoded(const QString& text)
    {
        const auto page = CodePage::named(u"windows-1251"_s);
        const bool isLegacy = m_random.bounded(3) == 0 && !text.contains(u".."_s);
        const auto legacy = isLegacy ? page->encode(text) : std::nullopt;
        return legacy ? *legacy : text.toUtf8();
    }

    QString writePacket(int number)
    {
        const QString file = anyFolder() + u'/' + QString::number(number) + anyName(u".vxl"_s);
        const QString folder = QFileInfo(file).path();
        const int count = 1 + m_random.bounded(4);
        m_lines += count;
        QString text = u"[main]\r\n"_s;
        if (m_random.bounded(3) == 0) {
            const QString path = pathText(folder, clip());
            text +=
                u"files=1\r\nfile=%1\r\nbrakes=%2\r\n[file1]\r\npath=%1\r\ntext=%1\r\n"_s.arg(path)
                    .arg(count);
            for (int i = 1; i <= count; ++i) {
                text += u"[brake%1]\r\ntime=0,0%1\r\ntext=Отметка %1\r\n"_s.arg(i);
            }
        } else {
            text += u"files=%1\r\n"_s.arg(count);
            for (int i = 1; i <= count; ++i) {
                text += u"[file%1]\r\npath=%2\r\ntext=Строка %1\r\nnote=kept\r\n"_s.arg(i).arg(
                    pathText(folder, clip()));
            }
        }
        write(file, encoded(text));
        return file;
    }

    QRandomGenerator& m_random;
    QString m_folder;
    int m_lines = 0;
};

} // namespace

RandomLesson makeRandomLesson(QRandomGenerator& random, const QString& folder)
{
    QDir().mkpath(folder);
    return LessonMaker(random, folder).make();
}

} // namespace orvanta::test
