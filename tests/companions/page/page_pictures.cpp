// Photographs of the page for who wants to look at it: page_pictures FOLDER makes them of every
// look of a lesson of its own, page_pictures FOLDER PAGE a few of that page for the documents.
#include "tests/companions/page/page_fixture.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

struct Look
{
    QStringView name;
    QSize size;
    bool isPhone;
    bool isLight;
};

constexpr std::array kLooks{
    Look{u"desktop_dark", QSize(1280, 760), false, false},
    Look{u"desktop_light", QSize(1280, 760), false, true},
    Look{u"phone_dark", QSize(360, 740), true, false},
    Look{u"phone_light", QSize(360, 740), true, true},
    Look{u"phone_across", QSize(740, 360), true, false},
};

class Photographer : public PageTest
{
public:
    explicit Photographer(QString to)
        : PageTest(BrowserKind::Chromium),
          m_folder(std::move(to))
    {}

    void take(const Look& look, TextLanguage language)
    {
        PageLesson lesson = lessonOf(language);
        lesson.options.language = language;
        put(look);
        open(lesson);
        forget();
        open(lesson);
        const QString tail = language == TextLanguage::English ? u"_en"_s : u"_ru"_s;
        save(look.name.toString() + u"_begin"_s + tail);
        browser->press(u"PageDown"_s);
        browser->press(u"PageDown"_s);
        browser->press(u"F7"_s);
        (void)browser->waitUntil(u"document.getElementById('media').currentTime > 0.6"_s);
        browser->press(u"p"_s);
        save(look.name.toString() + u"_plays"_s + tail);
        browser->press(u"r"_s);
        (void)browser->evaluate(u"document.getElementById('practice').click()"_s);
        save(look.name.toString() + u"_practice"_s + tail);
        (void)browser->evaluate(u"document.getElementById('practiceSheet').close()"_s);
        browser->press(u"F1"_s);
        save(look.name.toString() + u"_keys"_s + tail);
        browser->press(u"Escape"_s);
        takeRest(look.name.toString(), tail);
    }

    /// While its second line plays.
    void takePage(const QString& page, const Look& look, TextLanguage language)
    {
        put(look);
        openPage(page);
        forget();
        openPage(page);
        if (language == TextLanguage::Russian) {
            click(u"#language"_s);
            (void)browser->evaluate(u"document.activeElement.blur()"_s);
        }
        browser->press(u"PageDown"_s);
        browser->press(u"PageDown"_s);
        (void)browser->waitUntil(u"document.getElementById('media').currentTime > 1.5"_s);
        save(look.name.toString() + (language == TextLanguage::English ? u"_en"_s : u"_ru"_s));
    }

private:
    /// The page writes what it keeps once more when it is left.
    void forget()
    {
        (void)browser->evaluate(
            u"(() => { Storage.prototype.setItem = () => {}; localStorage.clear(); })()"_s);
    }

    void put(const Look& look)
    {
        browser->resize(look.size, look.isPhone);
        const QString scheme = look.isLight ? u"light"_s : u"dark"_s;
        browser->ask(u"Emulation.setEmulatedMedia"_s,
                     {{u"features"_s, QJsonArray{QJsonObject{{u"name"_s, u"prefers-color-scheme"_s},
                                                             {u"value"_s, scheme}}}}});
    }

    /// A wait, the whole screen, coming back.
    void takeRest(const QString& name, const QString& tail)
    {
        (void)browser->waitUntil(u"document.querySelector('dialog[open]') === null"_s);
        browser->press(u"F9"_s);
        (void)browser->waitUntil(u"!document.getElementById('wait').hidden"_s);
        save(name + u"_waits"_s + tail);
        browser->press(u"F11"_s);
        (void)browser->waitUntil(u"document.fullscreenElement !== null"_s);
        save(name + u"_screen"_s + tail);
        browser->press(u"n"_s);
        (void)browser->waitUntil(u"document.fullscreenElement === null"_s);
        reload();
        save(name + u"_resumes"_s + tail);
    }

    [[nodiscard]] PageLesson lessonOf(TextLanguage language) const
    {
        const bool isRussian = language == TextLanguage::Russian;
        PageLesson lesson = smallLesson(folder);
        lesson.title = isRussian ? u"Русский урок: знакомство"_s : u"English for travellers"_s;
        PagePacket& talk = lesson.packets[0];
        talk.title = isRussian ? u"На вокзале"_s : u"At the station"_s;
        talk.lines.clear();
        for (int i = 1; i <= 14; ++i) {
            talk.lines.push_back(
                clipLine((isRussian ? u"Когда отправляется поезд в Новгород? Фраза %1"_s
                                    : u"When does the next train to Norwich leave? Phrase %1"_s)
                             .arg(i),
                         i == 5 ? PageMedia() : folder.clip(u"two.mp4"_s)));
        }
        talk.lines[2].isChecked = false;
        return lesson;
    }

    void save(const QString& name)
    {
        QFile file(m_folder + u'/' + name + u".png"_s);
        if (file.open(QIODevice::WriteOnly)) {
            file.write(browser->screenshot());
        }
    }

    QString m_folder;
};

} // namespace

static void photographPage(Photographer& photographer, const QString& page)
{
    constexpr Look kDesk{u"lesson_page", QSize(1100, 660), false, false};
    constexpr Look kPhone{u"lesson_page_phone", QSize(360, 740), true, true};
    for (const TextLanguage language : {TextLanguage::English, TextLanguage::Russian}) {
        photographer.takePage(page, kDesk, language);
        photographer.takePage(page, kPhone, language);
    }
}

static int photograph(const QString& to, const QString& page)
{
    if (!QDir().mkpath(to)) {
        return EXIT_FAILURE;
    }
    Photographer photographer(to);
    if (!page.isEmpty()) {
        photographPage(photographer, page);
        return EXIT_SUCCESS;
    }
    for (const Look& look : kLooks) {
        for (const TextLanguage language : {TextLanguage::English, TextLanguage::Russian}) {
            photographer.take(look, language);
        }
    }
    return EXIT_SUCCESS;
}

} // namespace orvanta::test

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    return orvanta::test::photograph(arguments.value(1, QStringLiteral(".")), arguments.value(2));
}
