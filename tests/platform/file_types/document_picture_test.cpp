// Pictures that documents name: which are read, and what none of them can do.
#include "platform/file_types/document_picture.h"
#include "platform/file_types/metafile.h"
#include "platform/file_types/type_icons.h"
#include "tests/support/metafile_bytes.h"

#include <QColor>
#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

class DocumentPicture : public testing::Test
{
protected:
    [[nodiscard]] QString put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path(name);
    }
    [[nodiscard]] QString save(const QString& name, QSize size, const char* format) const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(path(name), format)) << name.toStdString();
        return path(name);
    }
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

/// A drawing that shows another file.
QByteArray drawingOf(const QString& other)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' "
           "xmlns:xlink='http://www.w3.org/1999/xlink' width='40' height='40'>"
           "<image width='40' height='40' xlink:href='" +
           other.toUtf8() + "'/></svg>";
}

/// The head of a bitmap that says how large it is and holds nothing.
QByteArray emptyBitmap(qint32 width, qint32 height)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("BM", 2);
    out << quint32(54) << quint32(0) << quint32(54) << quint32(40) << width << height << quint16(1)
        << quint16(32) << quint32(0) << quint32(0) << quint32(2835) << quint32(2835) << quint32(0)
        << quint32(0);
    return bytes;
}

} // namespace

TEST_F(DocumentPicture, IsReadByItsContentWhateverItsEnding)
{
    for (const char* format : {"bmp", "jpg", "ico", "png"}) {
        const QImage picture = readDocumentPicture(save(u"a.gif"_s, {32, 16}, format));
        EXPECT_EQ(picture.size(), QSize(32, 16)) << format;
    }
    const QImage metafile = readDocumentPicture(put(u"b.png"_s, test::redMetafile()));
    EXPECT_EQ(metafile.pixelColor(metafile.rect().center()), QColor(Qt::red));
}

TEST_F(DocumentPicture, IsScaledDownWithinASizeAndNeverUp)
{
    const QString file = save(u"a.png"_s, {400, 200}, "png");
    EXPECT_EQ(readDocumentPicture(file, {100, 100}).size(), QSize(100, 50));
    EXPECT_EQ(readDocumentPicture(file, {1000, 1000}).size(), QSize(400, 200));
    const QString metafile = put(u"b.wmf"_s, test::redMetafile());
    EXPECT_EQ(readDocumentPicture(metafile, {48, 48}).width(), 48);
}

TEST_F(DocumentPicture, IsNoDrawingThatCouldShowOtherFiles)
{
    const QByteArray drawing = drawingOf(save(u"secret.png"_s, {40, 40}, "png"));
    for (const QString& name : {u"a.svg"_s, u"a.png"_s, u"a.ico"_s, u"a.jpg"_s, u"a.svgz"_s}) {
        const QString file = put(name, drawing);
        EXPECT_TRUE(readDocumentPicture(file).isNull()) << name.toStdString();
        EXPECT_TRUE(readIcon(file, 32).isNull()) << name.toStdString();
    }
}

TEST_F(DocumentPicture, HasAtMost64Megapixels)
{
    const QString file = put(u"a.bmp"_s, emptyBitmap(8192, 8193));
    EXPECT_TRUE(readDocumentPicture(file).isNull());
    EXPECT_TRUE(readDocumentPicture(file, {100, 100}).isNull());
    EXPECT_FALSE(readDocumentPicture(save(u"b.png"_s, {8192, 8192}, "png")).isNull());
}

TEST_F(DocumentPicture, IsNoMetafileOfMoreThanTwoMegabytes)
{
    QByteArray bytes = test::redMetafile();
    bytes.append(2 << 20, '\0');
    EXPECT_TRUE(readMetafile(bytes).isNull());
    EXPECT_TRUE(readDocumentPicture(put(u"a.wmf"_s, bytes)).isNull());
}

TEST_F(DocumentPicture, IsARegularFile)
{
    EXPECT_TRUE(readDocumentPicture({}).isNull());
    EXPECT_TRUE(readDocumentPicture(path(u"missing.png"_s)).isNull());
    const QString pipe = path(u"pipe.png"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_TRUE(readDocumentPicture(pipe).isNull()); // and waits for nobody who would write
}

TEST_F(DocumentPicture, IsGivenUpWhenNobodyWantsIt)
{
    const QString file = save(u"a.png"_s, {3000, 3000}, "png");
    int asked = 0;
    EXPECT_TRUE(readDocumentPicture(file, {}, [&] { return ++asked > 3; }).isNull());
    EXPECT_GT(asked, 3);
}
