// The package's files, each looked over by the program that knows its kind.

#include "tests/packaging/installed_root.h"

#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class PackageFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_FALSE(packageFiles().isEmpty()) << "run the test package.IsMadeFromTheBuild first";
        const Outcome installed = root.install();
        ASSERT_EQ(installed.status, 0) << installed.output.constData();
    }

    /// The program says nothing at all and is content.
    static void expectSilent(const QString& program, const QStringList& arguments)
    {
        const Outcome outcome = run(program, arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.output.constData();
        EXPECT_EQ(outcome.output, QByteArray()) << outcome.output.constData();
    }

    /// Files of the package with this ending.
    [[nodiscard]] QStringList files(const QString& pattern) const
    {
        QStringList found;
        QDirIterator all(root.path(u"usr"_s), {pattern}, QDir::Files, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            found.append(all.next());
        }
        return found;
    }

    InstalledRoot root;
};

} // namespace

TEST_F(PackageFiles, LintianIsSilent)
{
    expectSilent(u"lintian"_s,
                 QStringList{u"--no-user-dirs"_s, u"--allow-root"_s, u"-EIq"_s, u"--pedantic"_s} +
                     packageFiles());
}

/// A file of the source tree.
static QString sourceText(const QString& name)
{
    QFile file(QStringLiteral(ORVANTA_SOURCE_DIR "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return QString::fromUtf8(file.readAll());
}

static QString firstGroup(const QString& pattern, const QString& text)
{
    const QRegularExpression expression(pattern,
                                        QRegularExpression::MultilineOption |
                                            QRegularExpression::DotMatchesEverythingOption);
    return expression.match(text).captured(1);
}

TEST(PackageSource, AsksForAllThatTheBuildInstalls)
{
    const QString asked =
        firstGroup(u"^Build-Depends: (.*?)\\n[A-Z]"_s, sourceText(u"debian/control"_s));
    const QString installed =
        firstGroup(u"^readonly build_packages=\\((.*?)\\)"_s, sourceText(u"scripts/common.sh"_s));
    // What every Debian build has, and what only running needs.
    const QStringList elsewhere = {u"g++"_s, u"qt6-wayland"_s, u"fonts-dejavu-core"_s};
    int compared = 0;
    for (const QString& package :
         installed.split(QRegularExpression(u"\\s+"_s), Qt::SkipEmptyParts)) {
        if (!elsewhere.contains(package)) {
            ++compared;
            EXPECT_TRUE(asked.contains(QRegularExpression(
                u"(^|[ \n])"_s + QRegularExpression::escape(package) + u"($|[ ,\n])"_s)))
                << qPrintable(package);
        }
    }
    EXPECT_GT(compared, 8);
}

TEST(PackageSource, HasTheProgramsVersion)
{
    const QString program =
        firstGroup(u"project\\(Orvanta VERSION ([0-9.]+)"_s, sourceText(u"CMakeLists.txt"_s));
    const QString package =
        firstGroup(u"\\Aorvanta \\(([0-9.]+)-"_s, sourceText(u"debian/changelog"_s));
    EXPECT_FALSE(program.isEmpty());
    EXPECT_EQ(package, program);
}

/// The metainfo as a build with this id writes it.
static QString metainfoUnder(const QString& id, const QTemporaryDir& folder)
{
    QFile script(folder.filePath(u"fill.cmake"_s));
    EXPECT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("configure_file(\"${IN}\" \"${OUT}\" @ONLY)\n");
    script.close();
    QString made = folder.filePath(id + u".metainfo.xml"_s);
    const Outcome filled =
        run(u"cmake"_s,
            {u"-DIN=" ORVANTA_SOURCE_DIR "/packaging/orvanta.metainfo.xml.in"_s, u"-DOUT="_s + made,
             u"-DPROJECT_VERSION=3.3"_s, u"-DORVANTA_APP_ID="_s + id, u"-P"_s, script.fileName()});
    EXPECT_EQ(filled.status, 0) << filled.output.constData();
    return made;
}

TEST(PackageSource, OneVariableGivesTheProgramAnotherIdInSoftwareCentres)
{
    const QTemporaryDir folder;
    const QString made = metainfoUnder(u"io.example.player"_s, folder);
    QFile file(made);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("<id>io.example.player</id>"));
    const Outcome checked =
        run(u"appstreamcli"_s, {u"validate"_s, u"--no-net"_s, u"--no-color"_s, made});
    EXPECT_EQ(checked.status, 0) << checked.output.constData();
    // Whoever builds without saying one gets one that is valid, too.
    EXPECT_TRUE(sourceText(u"packaging/CMakeLists.txt"_s)
                    .contains(u"set(ORVANTA_APP_ID \"org.example.orvanta\" CACHE"_s));
}

TEST(PackageSource, ASoftwareCentreHasRoomForTheSummaryInBothLanguages)
{
    const QString text = sourceText(u"packaging/orvanta.metainfo.xml.in"_s);
    for (const QString& language : {u""_s, u" xml:lang=\"ru\""_s}) {
        const QString summary = firstGroup(u"<summary"_s + language + u">(.*?)</summary>"_s, text);
        EXPECT_FALSE(summary.isEmpty());
        EXPECT_LE(summary.size(), 35) << qPrintable(summary);
    }
}

TEST(PackageSource, EveryScreenshotIsWideAndLargeAsSoftwareCentresWantIt)
{
    static const QRegularExpression image(u"width=\"(\\d+)\" height=\"(\\d+)\".*/(\\w+\\.png)<"_s);
    const QString text = sourceText(u"packaging/screenshots.xml.in"_s);
    EXPECT_TRUE(firstGroup(u"<screenshot type=\"default\">(.*?)</screenshot>"_s, text)
                    .contains(u"lesson_en.png"_s));
    int pictures = 0;
    for (const QRegularExpressionMatch& each : image.globalMatch(text)) {
        const QString name = each.captured(3);
        const QSize size =
            QImage(QStringLiteral(ORVANTA_SOURCE_DIR "/docs/screenshots/") + name).size();
        EXPECT_EQ(size, QSize(each.captured(1).toInt(), each.captured(2).toInt()))
            << qPrintable(name);
        EXPECT_GE(size.width(), 1248) << qPrintable(name);
        EXPECT_EQ(size.width() * 9, size.height() * 16) << qPrintable(name);
        ++pictures;
    }
    EXPECT_EQ(pictures, text.count(u"<image"_s));
}

TEST(PackageSource, TheFlatpakManifestBuildsTheProgramUnderItsOwnId)
{
    const QString manifest = sourceText(u"packaging/flatpak/org.example.orvanta.yml"_s);
    const QString id = firstGroup(u"^id: (\\S+)$"_s, manifest);
    EXPECT_EQ(id, u"org.example.orvanta"_s); // the file's name
    EXPECT_EQ(firstGroup(u"-DORVANTA_APP_ID=(\\S+)$"_s, manifest), id);
    EXPECT_FALSE(manifest.contains(u"--share=network"_s)); // nothing is ever fetched
    EXPECT_FALSE(manifest.contains(u"--filesystem=host"_s));
    EXPECT_FALSE(manifest.contains(u"--filesystem=home"_s));
}

TEST_F(PackageFiles, TheMaintainersNameIsTakenAsItIs)
{
    for (const QString& package : packageFiles()) {
        const Outcome field = run(u"dpkg-deb"_s, {u"-f"_s, package, u"Maintainer"_s});
        EXPECT_EQ(field.output.trimmed(), "Anna & Olga/Orvanta <contributors@example.org>");
    }
}

TEST_F(PackageFiles, TheDesktopEntryIsValid)
{
    const QString entry = root.path(u"usr/share/applications/orvanta.desktop"_s);
    expectSilent(u"desktop-file-validate"_s, {entry});
    QFile file(entry);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    for (const char* line :
         {"MimeType=application/x-orvanta-packet;application/x-orvanta-group;",
          "Exec=/usr/libexec/orvanta/tutorial\n", "Name[ru]=Орванта\n", "Comment[ru]=",
          "Exec=orvanta /usr/share/orvanta/samples/samples.vxg\n", "Actions=", "Keywords[ru]="}) {
        EXPECT_TRUE(text.contains(line)) << line;
    }
    EXPECT_FALSE(text.contains("inode/directory"));
}

TEST_F(PackageFiles, TheProgramIsOfferedForEveryTypeThatItPlays)
{
    QFile file(root.path(u"usr/share/applications/orvanta.desktop"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString line = QString::fromUtf8(file.readAll()).section(u"\nMimeType="_s, 1);
    const QStringList offered = line.section(u'\n', 0, 0).split(u';', Qt::SkipEmptyParts);
    const QSettings defaults(root.path(u"usr/share/orvanta/defaults/orvanta.ini"_s),
                             QSettings::IniFormat);
    const int count = defaults.value(u"types/num"_s).toInt();
    ASSERT_GT(count, 0);
    for (int i = 0; i < count; ++i) {
        const QString type = defaults.value(u"types/file%1"_s.arg(i)).toString();
        const QList<QMimeType> known = QMimeDatabase().mimeTypesForFileName(u"clip."_s + type);
        EXPECT_TRUE(std::ranges::any_of(known, [&](const QMimeType& each) {
            return offered.contains(each.name());
        })) << type.toStdString();
    }
}

TEST_F(PackageFiles, TheMenuOfKdesFileManagerIsThere)
{
    QFile menu(root.path(u"usr/share/kio/servicemenus/orvanta-play-clips.desktop"_s));
    ASSERT_TRUE(menu.open(QIODevice::ReadOnly));
    const QByteArray text = menu.readAll();
    EXPECT_TRUE(text.contains("\nExec=orvanta %F\n"));
    EXPECT_TRUE(text.contains("\nMimeType=inode/directory;\n"));
}

TEST_F(PackageFiles, TheMetainfoIsValidWithAndWithoutScreenshots)
{
    const QString plain = root.path(u"usr/share/metainfo/orvanta.metainfo.xml"_s);
    const Outcome without =
        run(u"appstreamcli"_s, {u"validate"_s, u"--no-net"_s, u"--no-color"_s, plain});
    EXPECT_EQ(without.status, 0) << without.output.constData();

    const QString build = root.path(u"with-screenshots"_s);
    const QString published = QStringLiteral(ORVANTA_SOURCE_DIR "/packaging/screenshots.xml.in");
    QFile source(plain);
    QFile screenshots(published);
    ASSERT_TRUE(source.open(QIODevice::ReadOnly) && screenshots.open(QIODevice::ReadOnly));
    const QByteArray block =
        screenshots.readAll().replace("@ORVANTA_SCREENSHOT_URL@", "https://example.org/shots");
    QFile made(build);
    ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    made.write(source.readAll().replace("  <provides>", block + "  <provides>"));
    made.rename(build + u".metainfo.xml"_s);
    made.close();
    const Outcome with = run(u"appstreamcli"_s, {u"validate"_s, u"--no-net"_s, u"--no-color"_s,
                                                 build + u".metainfo.xml"_s});
    EXPECT_EQ(with.status, 0) << with.output.constData();
}

TEST_F(PackageFiles, EveryScreenshotThatTheMetainfoCouldNameIsThere)
{
    QFile screenshots(QStringLiteral(ORVANTA_SOURCE_DIR "/packaging/screenshots.xml.in"));
    ASSERT_TRUE(screenshots.open(QIODevice::ReadOnly));
    int named = 0;
    for (const QByteArray& line : screenshots.readAll().split('\n')) {
        const qsizetype name = line.indexOf("@/");
        if (name < 0) {
            continue;
        }
        ++named;
        const QByteArray file = line.mid(name + 2, line.indexOf('<', name) - name - 2);
        EXPECT_TRUE(QFile::exists(QStringLiteral(ORVANTA_SOURCE_DIR "/docs/screenshots/") +
                                  QString::fromUtf8(file)))
            << file.constData();
    }
    EXPECT_GE(named, 2);
}

TEST_F(PackageFiles, EveryXmlFileIsWellFormed)
{
    const QStringList documents = files(u"*.xml"_s) + files(u"*.svg"_s) + files(u"*.htm"_s);
    EXPECT_GE(documents.size(), 7);
    expectSilent(u"xmllint"_s, QStringList{u"--noout"_s, u"--nonet"_s} + documents);
}

TEST_F(PackageFiles, TheManualPagesAreFreeOfWarnings)
{
    const QStringList pages = files(u"orvanta*.1.gz"_s) + files(u"cdcreate.1.gz"_s);
    ASSERT_EQ(pages.size(), 8);
    for (const QString& page : pages) {
        const Outcome outcome = run(u"env"_s, {u"LC_ALL=C.UTF-8"_s, u"MANROFFSEQ="_s,
                                               u"MANWIDTH=80"_s, u"man"_s, u"--warnings"_s, u"-E"_s,
                                               u"UTF-8"_s, u"-l"_s, u"-Tutf8"_s, u"-Z"_s, page});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_FALSE(outcome.output.contains("warning")) << outcome.output.constData();
    }
}

TEST_F(PackageFiles, WithoutTheSamplesTheyTakeLessThanTenMegabytes)
{
    const qint64 all = root.sizeOf(u"usr"_s);
    const qint64 samples = root.sizeOf(u"usr/share/orvanta/samples"_s);
    RecordProperty("bytes", std::to_string(all - samples));
    EXPECT_GT(samples, 1'000'000);
    EXPECT_GT(all - samples, 1'000'000);
    EXPECT_LT(all - samples, 10'000'000);
}

TEST_F(PackageFiles, EverythingThatTheProgramReadsIsThere)
{
    for (const QString& name :
         {u"bin/orvanta"_s,
          u"bin/cdcreate"_s,
          u"libexec/orvanta/cdcreate"_s,
          u"libexec/orvanta/tutorial"_s,
          u"libexec/orvanta/orvanta-import"_s,
          u"libexec/orvanta/orvanta-export"_s,
          u"bin/orvanta-import"_s,
          u"bin/orvanta-export"_s,
          u"share/man/man1/orvanta-import.1.gz"_s,
          u"share/man/ru/man1/orvanta-export.1.gz"_s,
          u"share/orvanta/defaults/orvanta.ini"_s,
          u"share/orvanta/help_eng.htm"_s,
          u"share/orvanta/help_rus.htm"_s,
          u"share/orvanta/tutorial/tutorial_eng.vxg"_s,
          u"share/orvanta/tutorial/eng/brakes.mp4"_s,
          u"share/orvanta/tutorial/tutorial_rus.vxg"_s,
          u"share/orvanta/samples/samples.vxg"_s,
          u"share/icons/hicolor/scalable/apps/orvanta.svg"_s,
          u"share/icons/hicolor/scalable/mimetypes/application-x-orvanta-packet.svg"_s,
          u"share/icons/hicolor/scalable/mimetypes/application-x-orvanta-group.svg"_s,
          u"share/mime/packages/orvanta.xml"_s,
          u"share/orvanta/icons/vxl.ico"_s,
          u"share/orvanta/icons/mp3.ico"_s,
          u"share/man/ru/man1/orvanta.1.gz"_s}) {
        EXPECT_TRUE(QFile::exists(root.path(u"usr/"_s + name))) << qPrintable(name);
    }
    // Nothing of the work behind it.
    for (const QString& name : root.contents()) {
        EXPECT_FALSE(name.contains(u"/source") || name.contains(u"make_")) << qPrintable(name);
    }
}

} // namespace orvanta::test
