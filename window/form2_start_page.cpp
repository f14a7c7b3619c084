// The main window while nothing is open: the lessons that were on last, and going on with one.
#include "core/log.h"
#include "core/paths.h"
#include "model/loaders.h"
#include "playback/lesson_controls.h"
#include "window/clip_line.h"
#include "window/form2_main_window.h"
#include "window/playlist_list.h"
#include "window/start_page.h"

namespace orvanta {

void Form2::connectStartPage()
{
    const auto on = [this](auto* sender, auto signal, auto handler) {
        // From the queue: the row that was chosen goes while its view still serves the click.
        connect(sender, signal, this, m_services.boundary(handler), Qt::QueuedConnection);
    };
    on(StartPage, &StartPageList::lessonChosen,
       [this](const RecentLesson& lesson) { Form2_StartPage_Chosen(lesson); });
    on(StartPage, &StartPageList::takeOffAsked,
       [this](const QString& path) { Form2_StartPage_TakeOff(path); });
    on(StartPage, &StartPageList::filesDropped,
       [this](const QStringList& files) { Form2_List1_OLEDragDrop(files); });
    on(StartPage, &StartPageList::forgetAsked, [this] { Form2_StartPage_Forget(); });
    on(&m_services.engine.lesson(), &LessonControls::continueAsked, [this] { continueLast(); });
}

void Form2::showStartPage()
{
    const bool isEmpty = m_services.module.playlist.PlaylistCount == 0;
    auto lessons =
        isEmpty ? RecentLessons(m_services.module).lessons() : std::vector<RecentLesson>();
    const bool shown = !lessons.empty();
    StartPage->setLessons(std::move(lessons));
    Text2->setPlaceholderText(shown ? StartPage->rows().text(u"invite") : QString());
    QWidget* const appears = shown ? static_cast<QWidget*>(StartPage) : List1;
    QWidget* const goes = shown ? static_cast<QWidget*>(List1) : StartPage;
    const bool hadFocus = focusWidget() == goes;
    appears->setVisible(true);
    if (hadFocus) {
        appears->setFocus();
    }
    goes->setVisible(false);
}

void Form2::Form2_StartPage_Chosen(const RecentLesson& lesson)
{
    trapped("recent lesson", [&] { continueLesson(lesson); });
}

void Form2::Form2_StartPage_TakeOff(const QString& path)
{
    RecentLessons(m_services.module).takeOff(path);
    showStartPage();
}

void Form2::Form2_StartPage_Forget()
{
    RecentLessons(m_services.module).forget();
    showStartPage();
}

/// The lesson that is on already goes on.
void Form2::continueLast()
{
    PlaybackOperations& operations = m_services.engine.operations();
    operations.look();
    if (!m_services.module.playlist.Document.isEmpty() && operations.player().isLoaded()) {
        return operations.player().isRunning() ? void() : m_services.engine.play();
    }
    const std::vector<RecentLesson> lessons = RecentLessons(m_services.module).lessons();
    if (lessons.empty()) {
        qCInfo(logStartup, "no lesson has been kept that could be gone on with");
        return;
    }
    Form2_StartPage_Chosen(lessons.front());
}

void Form2::continueLesson(const RecentLesson& lesson)
{
    if (!lesson.isThere()) {
        qCInfo(logErrors, "the lesson is not there: %ls", qUtf16Printable(lesson.path));
        return showStartPage();
    }
    const bool isPacket = kindOfPath(lesson.path) == u"VXL";
    openDocument(lesson.path, isPacket ? OpenPacket : OpenGroup, &lesson);
}

} // namespace orvanta
