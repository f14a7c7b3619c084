// A program with something to drag, as a file manager has. Its window covers the given place of the
// screen:
//
//   drag_source X Y WIDTH HEIGHT
//
// Each line of standard input is a list of file addresses with blanks between them, which the next
// drag offers as text/uri-list, byte for byte; answered by "offers". While something is dragged it
// prints "over copy" or "over nothing" whenever what would happen here changes, and "dropped copy"
// or "dropped nothing" at the end.

#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QSocketNotifier>

#include <cstdio>
#include <iostream>
#include <string>
#include <unistd.h>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

static void say(const char* what, Qt::DropAction action)
{
    std::printf("%s %s\n", what, action == Qt::IgnoreAction ? "nothing" : "copy");
    std::fflush(stdout);
}

class DragSource : public QLabel
{
public:
    explicit DragSource(const QRect& place)
        // Without the window manager it is where it was put, above everything else.
        : QLabel(u"drag me"_s, nullptr, Qt::X11BypassWindowManagerHint)
    {
        setGeometry(place);
        setAlignment(Qt::AlignCenter);
    }

    void offer(QByteArray addresses)
    {
        m_list = addresses.simplified().replace(' ', "\r\n") + "\r\n";
        m_offering = true;
        answer();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QLabel::paintEvent(event);
        m_seen = true;
        answer();
    }

    void mousePressEvent(QMouseEvent* event) override { m_pressed = event->pos(); }

    void mouseMoveEvent(QMouseEvent* event) override
    {
        const QPoint way = event->pos() - m_pressed;
        if (way.manhattanLength() >= QApplication::startDragDistance()) {
            dragList();
        }
    }

private:
    /// Only a window that is on the screen can be pressed.
    void answer()
    {
        if (m_offering && m_seen) {
            m_offering = false;
            std::puts("offers");
            std::fflush(stdout);
        }
    }

    void dragList()
    {
        auto* files = new QMimeData;
        files->setData(u"text/uri-list"_s, m_list);
        auto* drag = new QDrag(this);
        drag->setMimeData(files);
        connect(drag, &QDrag::actionChanged, this,
                [](Qt::DropAction action) { say("over", action); });
        say("dropped", drag->exec(Qt::CopyAction));
    }

    QByteArray m_list;
    QPoint m_pressed;
    bool m_offering = false;
    bool m_seen = false;
};

} // namespace orvanta::e2e

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    orvanta::e2e::DragSource source(QRect(words.value(1).toInt(), words.value(2).toInt(),
                                          words.value(3).toInt(), words.value(4).toInt()));
    source.show();
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        std::string line;
        if (!std::getline(std::cin, line)) {
            QApplication::quit();
            return;
        }
        source.offer(QByteArray::fromStdString(line));
    });
    return QApplication::exec();
}
