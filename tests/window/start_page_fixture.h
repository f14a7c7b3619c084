// A main window with lessons that were on last, and who keeps them.
#pragma once

#include "playback/lesson_keeper.h"
#include "tests/window/window_fixture.h"
#include "window/start_page.h"

#include <QDateTime>
#include <QFileInfo>

#include <memory>
#include <utility>

namespace orvanta::test {

class StartPageTest : public Form2Test
{
protected:
    ~StartPageTest() override { keeper.reset(); }

    /// Kept as left at this line of eight.
    void keep(const QString& path, int line = 1, double seconds = 0, const QString& text = {})
    {
        RecentLessons(module).keep({.path = path,
                                    .title = QFileInfo(path).completeBaseName(),
                                    .packet = 1,
                                    .clip = line,
                                    .text = text,
                                    .seconds = seconds,
                                    .line = line,
                                    .lines = 8,
                                    .over = false,
                                    .used = QDateTime::currentDateTime().addDays(-1)});
    }

    QString keepLesson(int line, double seconds, const QStringList& texts)
    {
        const QString path = writePacket(u"lesson.vxl"_s, texts);
        keep(path, line, seconds, texts.value(line - 1));
        return path;
    }

    void showWithKeeper()
    {
        show();
        keeper = std::make_unique<LessonKeeper>(module, *engine, control);
    }

    [[nodiscard]] QStringList rows() const
    {
        QStringList all;
        const QAbstractItemModel& model = *window->StartPage->model();
        for (int i = 0; i < model.rowCount(); ++i) {
            all.append(model.index(i, 0).data(Qt::AccessibleTextRole).toString());
        }
        return all;
    }
    [[nodiscard]] bool isPageShown() const
    {
        return window->StartPage->isVisible() && !window->List1->isVisible();
    }
    [[nodiscard]] std::vector<RecentLesson> kept() const { return RecentLessons(module).lessons(); }
    void press(Qt::Key key) const { QTest::keyClick(window->StartPage, key); }
    void clickPageRow(int row) const
    {
        const QModelIndex index = window->StartPage->model()->index(row, 0);
        window->StartPage->scrollTo(index);
        QTest::mouseClick(window->StartPage->viewport(), Qt::LeftButton, {},
                          window->StartPage->visualRect(index).center());
    }
    [[nodiscard]] bool runs() const
    {
        return QTest::qWaitFor([this] {
            engine->tick();
            return control.CurrentState() == MediaControl::Running;
        });
    }
    [[nodiscard]] std::pair<int, int> place() const
    {
        return {module.playlist.CurrentPacket.value(), module.playlist.CurrentClip.value()};
    }
    static std::pair<int, int> at(int packet, int clip) { return {packet, clip}; }

    std::unique_ptr<LessonKeeper> keeper;
};

} // namespace orvanta::test
