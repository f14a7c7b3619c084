// The sign of the line that plays.
#include "tests/window/window_fixture.h"

#include <QAccessible>
#include <QSignalSpy>

namespace orvanta::test {
namespace {

class PlayingLine : public Form2Test
{
protected:
    /// Rows: 0 root, 1 header, 2 one, 3 two.
    void SetUp() override
    {
        addClips(u"packet"_s, {u"one"_s, u"two"_s});
        control.duration = 600.0;
        load();
    }

    void showIt()
    {
        window->showMainWindow();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        window->RebuildTree();
    }

    /// The lines that have a sign, and which.
    [[nodiscard]] std::vector<std::pair<int, PlayingSign>> signs()
    {
        engine->tick();
        std::vector<std::pair<int, PlayingSign>> found;
        for (int line = 0; line < window->lineCount(); ++line) {
            if (window->List1->signOf(line) != PlayingSign::None) {
                found.emplace_back(line, window->List1->signOf(line));
            }
        }
        return found;
    }

    [[nodiscard]] QString descriptionOf(int line) const
    {
        return window->List1->model()
            ->index(line, 0)
            .data(Qt::AccessibleDescriptionRole)
            .toString();
    }

    using Signs = std::vector<std::pair<int, PlayingSign>>;
};

TEST_F(PlayingLine, FollowsTheClipThePauseAndTheEnd)
{
    showIt();
    EXPECT_EQ(signs(), Signs());
    ASSERT_TRUE(start(1, 1));
    EXPECT_EQ(signs(), (Signs{{2, PlayingSign::Playing}}));
    engine->pressPause();
    EXPECT_EQ(signs(), (Signs{{2, PlayingSign::Paused}}));
    ASSERT_TRUE(start(1, 2));
    EXPECT_EQ(signs(), (Signs{{3, PlayingSign::Playing}}));
    engine->pressStop();
    EXPECT_EQ(signs(), Signs());
    engine->pressPlay();
    EXPECT_EQ(signs(), (Signs{{3, PlayingSign::Playing}}));
    control.setFileName({});
    EXPECT_EQ(signs(), Signs());
}

TEST_F(PlayingLine, FollowsTheBrakes)
{
    addBrakes(u"lesson"_s, {u"0"_s, u"10"_s, u"20"_s});
    showIt();
    ASSERT_TRUE(start(2, 1)); // rows: 4 header, 5 the first brake
    EXPECT_EQ(signs(), (Signs{{5, PlayingSign::Playing}}));
    engine->seekTo(12.0);
    EXPECT_EQ(signs(), (Signs{{6, PlayingSign::Playing}}));
}

TEST_F(PlayingLine, IsSaidByTheLinesDescriptionInTheInterfacesLanguage)
{
    for (const auto& [language, playing, paused] :
         {std::tuple(1, u"playing"_s, u"paused"_s),
          std::tuple(2, u"играет"_s, u"приостановлено"_s)}) {
        window.reset();
        load(language);
        showIt();
        ASSERT_TRUE(start(1, 1));
        (void)signs();
        EXPECT_EQ(descriptionOf(2), playing);
        EXPECT_EQ(descriptionOf(3), QString());
        engine->pressPause();
        (void)signs();
        EXPECT_EQ(descriptionOf(2), paused);
        control.setFileName({});
    }
}

TEST_F(PlayingLine, CostsNothingWhileNothingChanges)
{
    showIt();
    ASSERT_TRUE(start(1, 1));
    engine->tick();
    const QSignalSpy changes(window->List1->model(), &QAbstractItemModel::dataChanged);
    for (int i = 0; i < 5; ++i) {
        control.playTo(10.0 + i);
        engine->tick();
    }
    EXPECT_EQ(changes.count(), 0);
    engine->pressPause();
    engine->tick();
    EXPECT_EQ(changes.count(), 2); // was there, is there
}

TEST_F(PlayingLine, IsShownAnewInATreeThatIsRebuilt)
{
    showIt();
    ASSERT_TRUE(start(1, 1));
    EXPECT_EQ(signs().size(), 1U);
    window->RebuildTree();
    EXPECT_EQ(signs(), (Signs{{2, PlayingSign::Playing}}));
}

TEST_F(PlayingLine, IsDrawnBetweenTheBoxAndTheTree)
{
    showIt();
    const auto picture = [this] {
        engine->tick();
        window->setListIndex(-1);
        const QRect line = window->List1->visualRect(window->List1->model()->index(3, 0));
        const QRect margin(line.left() + 16, line.top(), 8, line.height());
        return window->List1->viewport()->grab(margin).toImage();
    };
    const QImage without = picture();
    ASSERT_TRUE(start(1, 2));
    const QImage playing = picture();
    EXPECT_NE(playing, without);
    engine->pressPause();
    const QImage paused = picture();
    EXPECT_NE(paused, playing);
    EXPECT_NE(paused, without);
    engine->pressPlay();
    engine->pressStop();
    EXPECT_EQ(picture(), without);
}

} // namespace
} // namespace orvanta::test
