#include "companions/page/box_page.h"

#include "companions/page/browser_conversion.h"
#include "core/log.h"
#include "model/lesson_lines.h"
#include "platform/file_types/metafile.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QTemporaryDir>

namespace orvanta {

using namespace Qt::StringLiterals;

static PageMedia mediaNamed(const QString& name)
{
    PageMedia media;
    if (!name.isEmpty()) {
        media.sources.push_back({.file = name, .type = {}});
    }
    return media;
}

static PagePacket pagePacket(const BoxPacket& packet)
{
    PagePacket page = {.title = packet.title, .picture = packet.picture, .lines = {}};
    page.hasBrakes = packet.entry.HasBrakes;
    if (page.hasBrakes) {
        page.media = mediaNamed(packet.media.value(0));
    }
    for (qsizetype i = 0; i < qsizetype(packet.entry.Clips.size()); ++i) {
        PageLine line = {.text = packet.entry.Clips[std::size_t(i)].Text};
        if (page.hasBrakes) {
            line.seconds = brakeTime(packet.entry, int(i) + 1);
        } else {
            line.media = mediaNamed(packet.media.value(i));
        }
        page.lines.push_back(std::move(line));
    }
    return page;
}

PageLesson pageLesson(const BoxPlan& plan, const PageOptions& options)
{
    PageLesson lesson = {.title = plan.title, .packets = {}, .options = options};
    for (const BoxPacket& packet : plan.packets) {
        lesson.packets.push_back(pagePacket(packet));
    }
    return lesson;
}

namespace {

/// One page at work: looks at each clip once, converts what has to be, and remembers.
class PageMaker
{
public:
    PageMaker(BoxPlan& plan, BoxWork& work, PageOptions options)
        : m_plan(plan),
          m_work(work),
          m_options(std::move(options))
    {}

    std::vector<BoxExtra> make();

private:
    void lookAtClips();
    void convertClips();
    void convert(const BoxFile& file, const BrowserClip& clip);
    void checkFailure(const BoxFile& file, const QString& failure) const;
    [[nodiscard]] QString roomFor(const QString& name);
    void improve(PageMedia& media) const;
    void improve(PagePacket& packet);
    [[nodiscard]] QString shownPicture(const QString& name);

    struct Clip
    {
        BoxFile file;
        BrowserClip seen;
    };

    BoxPlan& m_plan;
    BoxWork& m_work;
    PageOptions m_options;
    std::vector<Clip> m_clips;
    QHash<QString, PageMedia> m_media;  // by the name in the box
    QHash<QString, QString> m_pictures; // those that browsers do not know, by the name in the box
    std::vector<BoxExtra> m_extras;
    std::shared_ptr<QTemporaryDir> m_room; // of converted clips
    qint64 m_done = 0;                     // bytes of clips that were converted
};

std::vector<BoxExtra> PageMaker::make()
{
    lookAtClips();
    convertClips();
    PageLesson lesson = pageLesson(m_plan, m_options);
    for (PagePacket& packet : lesson.packets) {
        improve(packet);
    }
    m_extras.push_back({.nameInBox = m_plan.names.take({}, u"index.html"_s),
                        .content = lessonPage(lesson),
                        .keep = {}});
    return std::move(m_extras);
}

/// Pictures lie among the files, too: only what a line plays is looked at.
void PageMaker::lookAtClips()
{
    QSet<QString> played;
    for (const BoxPacket& packet : m_plan.packets) {
        played.unite(QSet<QString>(packet.media.cbegin(), packet.media.cend()));
    }
    for (const BoxFile& file : m_plan.files) {
        m_work.goOn();
        if (played.contains(file.name)) {
            m_clips.push_back(
                {file, browserClip(file.source, [this] { return m_work.isStopped(); })});
            PageMedia media = mediaNamed(file.name);
            media.hasPicture = m_clips.back().seen.hasPicture();
            m_media.insert(file.name, media);
        }
    }
}

void PageMaker::convertClips()
{
    std::vector<const Clip*> clips;
    qint64 all = 0;
    for (const Clip& clip : m_clips) {
        if (clip.seen.isOpened && !clip.seen.isPlayable()) {
            clips.push_back(&clip);
            all += clip.file.size;
        }
    }
    if (clips.empty()) {
        return;
    }
    m_work.begin(BoxStep::Converting, all);
    for (const Clip* clip : clips) {
        convert(clip->file, clip->seen);
        m_done += clip->file.size;
        m_work.reach(m_done);
    }
}

/// Not where temporary files are kept in memory, if that can be: clips are large.
QString PageMaker::roomFor(const QString& name)
{
    if (!m_room) {
        m_room = std::make_shared<QTemporaryDir>(u"/var/tmp/orvanta-XXXXXX"_s);
        if (!m_room->isValid()) {
            m_room = std::make_shared<QTemporaryDir>();
        }
    }
    return m_room->filePath(QString::number(m_extras.size()) + u'-' + QFileInfo(name).fileName());
}

void PageMaker::checkFailure(const BoxFile& file, const QString& failure) const
{
    m_work.goOn();
    if (failure.contains(u"No space left")) {
        throw BoxFailure(BoxProblem::NoRoom, m_room->path());
    }
    if (!failure.isEmpty()) {
        qCWarning(logErrors) << "not converted for browsers:" << file.source << failure;
    }
}

void PageMaker::convert(const BoxFile& file, const BrowserClip& clip)
{
    static const BrowserEncoders encoders = browserEncoders();
    if (!encoders.canConvert()) {
        qCWarning(logErrors) << "no ffmpeg that converts for browsers:" << file.source;
        return;
    }
    const BrowserRecipe recipe = browserRecipe(clip, encoders);
    const QString wanted = QFileInfo(file.name).completeBaseName() + u'.' + recipe.suffix;
    const QString target = roomFor(wanted);
    const ConversionWatch watch = {
        .reached = [&](double part) { m_work.reach(m_done + qint64(part * double(file.size))); },
        .isStopped = [&] { return m_work.isStopped(); }};
    const QString failure = convertForBrowsers(file.source, clip, recipe, target, watch);
    checkFailure(file, failure);
    if (failure.isEmpty()) {
        const QString name = m_plan.names.take(u"media"_s, wanted);
        m_extras.push_back({.nameInBox = name, .file = target, .keep = m_room});
        PageMedia& media = m_media[file.name];
        media.sources.insert(media.sources.begin(), {.file = name, .type = recipe.type});
    }
}

void PageMaker::improve(PageMedia& media) const
{
    if (!media.sources.empty()) {
        media = m_media.value(media.sources.front().file, media);
    }
}

void PageMaker::improve(PagePacket& packet)
{
    packet.picture = shownPicture(packet.picture);
    improve(packet.media);
    for (PageLine& line : packet.lines) {
        improve(line.media);
    }
}

/// Null without the application that has the fonts: Qt would end the program.
static QImage metafileOf(const QString& file)
{
    const bool hasFonts = qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
    return hasFonts ? readMetafileOf(file) : QImage();
}

/// Old metafiles are drawn anew.
QString PageMaker::shownPicture(const QString& name)
{
    if (!name.endsWith(u".wmf", Qt::CaseInsensitive)) {
        return name;
    }
    if (const auto known = m_pictures.constFind(name); known != m_pictures.constEnd()) {
        return *known;
    }
    const auto file = std::ranges::find(m_plan.files, name, &BoxFile::name);
    const QImage image = file == m_plan.files.end() ? QImage() : metafileOf(file->source);
    QBuffer png;
    QString shown;
    if (png.open(QIODevice::WriteOnly) && image.save(&png, "PNG")) {
        shown = m_plan.names.take(u"pictures"_s, QFileInfo(name).completeBaseName() + u".png"_s);
        m_extras.push_back({.nameInBox = shown, .content = png.data(), .keep = {}});
    }
    m_pictures.insert(name, shown);
    return shown;
}

} // namespace

MakeExtras boxPage(const PageOptions& options)
{
    return
        [options](BoxPlan& plan, BoxWork& work) { return PageMaker(plan, work, options).make(); };
}

} // namespace orvanta
