// A film in two languages: chosen by the menu, kept for the next clip and the next run.

#include "tests/e2e/support/steered.h"

#include <QImage>

#include <csignal>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class FilmInTwoLanguages : public Steered
{
protected:
    const QString kFilm = u"firstfilm"_s;

    /// A film with a subtitle file beside it.
    QString film(const QString& name)
    {
        const QString clip = file(name + u".mkv"_s);
        EXPECT_TRUE(QFile::copy(media(u"languages300.mkv"_s), clip));
        QFile subtitles(file(name + u".en.srt"_s));
        EXPECT_TRUE(subtitles.open(QIODevice::WriteOnly));
        subtitles.write("1\n00:00:00,000 --> 00:05:00,000\nMMMMMMMM\n");
        return clip;
    }

    void start(const QStringList& arguments)
    {
        ASSERT_TRUE(program.startAndShow(arguments));
        ASSERT_TRUE(plays(u"start 1 1 One"_s));
        ASSERT_TRUE(becomes(u"Playing"_s));
        ASSERT_TRUE(waitFor([this] { return !desktop.placeOf(kFilm).isEmpty(); }));
    }

    QImage screen()
    {
        return QImage::fromData(desktop.run(u"import"_s, {u"-window"_s, u"root"_s, u"ppm:-"_s}));
    }

    /// Whether there is bright text in the lowest third; the film is black.
    [[nodiscard]] bool showsText(const QString& title)
    {
        return waitFor([&] {
            const QRect place = desktop.placeOf(title);
            const QImage part = screen().copy(place.adjusted(0, place.height() * 2 / 3, 0, 0));
            int count = 0;
            for (int i = 0; !place.isEmpty() && i < part.width() * part.height(); ++i) {
                count += qGray(part.pixel(i % part.width(), i / part.width())) > 200 ? 1 : 0;
            }
            return count > 20;
        });
    }

    /// Keeps the screen for a person's eyes where somebody asks for it.
    void keepScreen(const QString& name)
    {
        const QString folder = qEnvironmentVariable("ORVANTA_PICTURES");
        if (!folder.isEmpty()) {
            screen().save(folder + u'/' + name + u".png"_s);
        }
    }

    /// The last entry of a submenu. A menu hears the keyboard only some time after it can be seen:
    /// again until it has.
    [[nodiscard]] bool chooseLast(const QString& accessKey)
    {
        constexpr int kOpeningMs = 3000;
        desktop.moveMouse(desktop.placeOf(kFilm).topLeft() + QPoint(20, 20));
        desktop.run(u"xdotool"_s, {u"click"_s, u"3"_s});
        bool isOpen = waitFor([this] { return desktop.openMenus() == 1; });
        for (int i = 0; isOpen && i < 10 && desktop.openMenus() < 2; ++i) {
            desktop.press(accessKey);
            (void)waitFor([this] { return desktop.openMenus() == 2; }, kOpeningMs);
        }
        desktop.press(u"Up"_s);
        keepScreen(u"menu_"_s + accessKey);
        desktop.press(u"Return"_s);
        return waitFor([this] { return desktop.openMenus() == 0; }, kOpeningMs);
    }

    [[nodiscard]] bool isKept(const QString& key, const QString& language, int milliseconds)
    {
        return waitFor([&] { return home.get(u"practice"_s, key) == language; }, milliseconds);
    }

    /// Chooses by the menu until the choice is there: a key that comes before the menu hears the
    /// keyboard is lost.
    [[nodiscard]] bool chooses(const QString& accessKey, const QString& key,
                               const QString& language)
    {
        constexpr int kKeptMs = 3000;
        for (int i = 0; i < 6; ++i) {
            if (chooseLast(accessKey) && isKept(key, language, kKeptMs)) {
                return true;
            }
            desktop.press(u"Escape"_s);
            desktop.press(u"Escape"_s);
        }
        return false;
    }
};

TEST_F(FilmInTwoLanguages, IsChosenByTheMenuAndKept)
{
    const QString packet = writeClips(file(u"films.vxl"_s),
                                      {{film(kFilm), u"One"_s}, {film(u"otherfilm"_s), u"Two"_s}});
    start({packet});
    EXPECT_TRUE(home.get(u"practice"_s, u"subtitles"_s).isEmpty());
    ASSERT_TRUE(chooses(u"b"_s, u"subtitles"_s, u"en"_s));
    EXPECT_TRUE(showsText(kFilm));
    ASSERT_TRUE(chooses(u"d"_s, u"sound"_s, u"ru"_s));
    desktop.moveMouse(desktop.placeOf(kFilm).center());
    desktop.moveMouse(desktop.placeOf(kFilm).center() + QPoint(20, 20));
    keepScreen(u"bar"_s);

    ASSERT_TRUE(desktop.activate(kFilm));
    desktop.press(u"Next"_s);
    ASSERT_TRUE(plays(u"start 1 2 Two"_s));
    EXPECT_TRUE(showsText(u"otherfilm"_s));

    program.sendSignal(SIGTERM);
    ASSERT_EQ(program.statusAtEnd(), 0) << program.said();
    start({packet});
    EXPECT_TRUE(showsText(kFilm));
    EXPECT_EQ(home.get(u"practice"_s, u"sound"_s), u"ru");
}

} // namespace orvanta::e2e
