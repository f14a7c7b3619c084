#include "benches/preview_drag.h"

#include "editors/editor_services.h"
#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form5_packet_editor.h"
#include "editors/time_slider.h"
#include "platform/media/media_library.h"
#include "platform/media/picture_source.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMouseEvent>
#include <QProcess>
#include <QRadioButton>
#include <QThread>

#include <algorithm>
#include <cstdio>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kDragMilliseconds = 5000;
constexpr int kMoveMilliseconds = 16; // between two movements of a hand's mouse
constexpr int kLimitMilliseconds = 30000;

static bool runFfmpeg(const QString& arguments, const QString& target)
{
    const QStringList quiet = {u"-nostdin"_s, u"-v"_s, u"error"_s, u"-y"_s};
    return QProcess::execute(u"ffmpeg"_s, quiet + arguments.split(u' ') + QStringList(target)) == 0;
}

bool makeDragClip(const QString& clip)
{
    if (QFileInfo::exists(clip)) {
        return true;
    }
    const QString part = clip + u".part.mp4"_s;
    const bool made =
        runFfmpeg(u"-f lavfi -i testsrc2=size=1280x720:rate=25 -f lavfi -i sine=440 -t 40 "
                  "-c:v libx264 -preset veryfast -pix_fmt yuv420p -crf 32 -g 250 "
                  "-keyint_min 250 -sc_threshold 0 -c:a aac"_s,
                  part) &&
        runFfmpeg(u"-stream_loop 29 -i %1 -c copy"_s.arg(part), clip);
    QFile::remove(part);
    return made;
}

template <typename Condition> static bool waitUntil(Condition condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < kLimitMilliseconds) {
        QApplication::processEvents();
        QThread::msleep(1);
    }
    return condition();
}

namespace {

/// Looks at each picture that the preview's control delivers.
class PictureCounter
{
public:
    explicit PictureCounter(PictureSource& source)
        : m_source(source)
    {
        m_connection = QObject::connect(&source, &PictureSource::frameChanged, [this] { count(); });
    }
    ~PictureCounter() { QObject::disconnect(m_connection); }
    PictureCounter(const PictureCounter&) = delete;
    PictureCounter& operator=(const PictureCounter&) = delete;

    int shown = 0;
    int different = 0;

private:
    void count()
    {
        ++shown;
        const QImage picture = m_source.frame();
        different += picture != m_last ? 1 : 0;
        m_last = picture.copy();
    }

    PictureSource& m_source;
    QMetaObject::Connection m_connection;
    QImage m_last;
};

/// The user's hand on the slider's handle.
class Hand
{
public:
    explicit Hand(TimeSlider& slider)
        : m_slider(slider)
    {}
    void press() { send(QEvent::MouseButtonPress, 0); }
    void moveTo(double part) { send(QEvent::MouseMove, part); }
    void release() { send(QEvent::MouseButtonRelease, 1); }

private:
    void send(QEvent::Type type, double part)
    {
        const QPointF at(part * m_slider.width(), m_slider.height() / 2.0);
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(
            type, at, m_slider.mapToGlobal(at), isMove ? Qt::NoButton : Qt::LeftButton,
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_slider, &event);
    }

    TimeSlider& m_slider;
};

} // namespace

static DragFigures drag(TimeSlider& slider, PictureSource& source)
{
    Hand hand(slider);
    hand.press();
    QElapsedTimer timer;
    PictureCounter counter(source);
    timer.start();
    for (qint64 spent = 0; spent < kDragMilliseconds; spent = timer.elapsed()) {
        hand.moveTo(static_cast<double>(spent) / kDragMilliseconds);
        const qint64 next = std::min<qint64>(spent + kMoveMilliseconds, kDragMilliseconds);
        while (timer.elapsed() < next) {
            QApplication::processEvents();
            QThread::msleep(1);
        }
    }
    const double seconds = static_cast<double>(timer.elapsed()) / 1000;
    DragFigures figures = {.shownPerSecond = counter.shown / seconds,
                           .differentPerSecond = counter.different / seconds};
    hand.moveTo(0.515); // between two key frames
    const int before = counter.different;
    timer.start();
    // First the key frame, then the exact picture.
    waitUntil([&] { return counter.different >= before + 2; });
    figures.restMilliseconds = static_cast<double>(timer.elapsed());
    hand.release();
    return figures;
}

DragFigures dragPreview(EditorServices& services, const QString& clip)
{
    MediaControl* control = nullptr;
    services.makePreview = [&control] {
        auto made = makeMediaControl(MpvOptionList{{"ao", "null"}});
        control = made.get();
        return made;
    };
    Form5 editor(services);
    editor.show();
    editor.Option2->click();
    editor.FolderTreeview2->setFolder(QFileInfo(clip).absolutePath());
    editor.File2->selectName(QFileInfo(clip).fileName());
    Q_EMIT editor.File2->Click();
    if (!waitUntil([&] { return control != nullptr && control->isReady(); })) {
        std::fprintf(stderr, "the clip does not open\n");
        return {};
    }
    return drag(*editor.Slider1, *control->picture());
}

} // namespace orvanta
