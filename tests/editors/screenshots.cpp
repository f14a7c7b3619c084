// Pictures of every editor and picker in every mode, for the documents: screenshots LANGUAGE FOLDER
// SAMPLES. Its window manager's frame is on them, so it needs a display.
#include "core/ini.h"
#include "editors/editor_services.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form10_save_picker.h"
#include "editors/form5_packet_editor.h"
#include "editors/form6_group_editor.h"
#include "editors/form7_open_picker.h"
#include "editors/preview_pane.h"
#include "editors/program_pickers.h"
#include "platform/media/media_library.h"
#include "tests/support/scripted_pickers.h"
#include "window/skin.h"

#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include <clocale>

using namespace Qt::StringLiterals;

namespace orvanta {

namespace {

constexpr int kPatienceMilliseconds = 20000;

class Photographer
{
public:
    Photographer(int language, QString target, QString samples)
        : m_target(std::move(target)),
          m_samples(std::move(samples)),
          m_suffix(language == 2 ? u"_ru"_s : u"_en"_s)
    {
        m_module.Language = language;
        m_module.ApplicationFolder = QDir::tempPath();
        m_module.IniPath = QDir::tempPath() + u"/orvanta.ini"_s;
        set(u"main"_s, u"language"_s, QString::number(language));
        set(u"types"_s, u"num"_s, u"4"_s);
        int type = 0;
        for (const QString& ending : {u"mp4"_s, u"mp3"_s, u"ogg"_s, u"m4a"_s}) {
            set(u"types"_s, u"file"_s + QString::number(type++), ending);
        }
    }

    void packetEditor()
    {
        startIn(m_samples + u"/breathing"_s);
        Form5 form(m_services);
        showWindow(form);
        m_pickers.answer = {m_samples + u"/breathing.vxl"_s};
        form.Command3->click();
        clickRow(*form.List1, 1);
        take(form, u"packet_editor_clips"_s);
        form.Option2->click();
        form.FolderTreeview2->setFolder(m_samples + u"/rhythm"_s);
        form.File2->selectFirst();
        m_pickers.answer = {m_samples + u"/rhythm.vxl"_s};
        form.Command7->click();
        waitFor([&] { return m_control != nullptr && m_control->isReady(); });
        clickRow(*form.List2, 1);
        waitFor([&] { return m_control->CurrentPosition() > kTellingSecond; });
        m_control->Pause();
        form.Text4->setFocus();
        take(form, u"packet_editor_brakes"_s);
    }

    void groupEditor()
    {
        startIn(m_samples);
        Form6 form(m_services);
        showWindow(form);
        for (int row = 0; row < form.File1->model()->rowCount(); ++row) {
            clickRow(*form.File1, row);
        }
        // Which of them is first depends on the language: the one whose picture it is.
        clickRow(*form.List1, m_suffix == u"_ru" ? 1 : 0);
        m_pickers.answer = {m_samples + u"/breathing/breathing.jpg"_s};
        form.Command7->click();
        take(form, u"group_editor"_s);
    }

    void pickers()
    {
        startIn(m_samples + u"/breathing"_s);
        Form7 open(m_module, {}, u"*.mp4;*.mp3;*.ogg"_s, true);
        showWindow(open);
        clickRow(*open.File1, 1);
        take(open, u"open_picker"_s);
        startIn(m_samples);
        Form10 save(m_module, {}, u"*.vxl"_s);
        showWindow(save);
        clickRow(*save.File1, 1);
        take(save, u"save_picker"_s);
    }

private:
    static constexpr double kTellingSecond = 8.6; // of the clip: its picture shows what it is about

    void set(const QString& section, const QString& key, const QString& value)
    {
        WriteIni(section, key, value, m_module.IniPath);
    }
    void startIn(const QString& folder) { set(u"save"_s, u"open"_s, folder); }

    template <typename Condition> static void waitFor(Condition condition)
    {
        if (!QTest::qWaitFor(condition, kPatienceMilliseconds)) {
            qFatal("waited in vain");
        }
    }
    /// The volumes that this machine happens to have are nobody's business.
    static void hideVolumes(const QWidget& window)
    {
        for (auto* tree : window.findChildren<FolderTree*>()) {
            for (int row = 2; row < tree->model()->rowCount(); ++row) {
                tree->setRowHidden(row, {}, true);
            }
        }
    }
    static void showWindow(QWidget& window)
    {
        hideVolumes(window);
        window.move(40, 40);
        window.show();
        if (!QTest::qWaitForWindowActive(&window)) {
            qFatal("the window is not active");
        }
    }
    static void clickRow(QAbstractItemView& view, int row)
    {
        const QRect place = view.visualRect(view.model()->index(row, 0));
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place.center());
    }
    /// A picture of the screen where the window and its frame are, once nothing on it changes.
    void take(QWidget& window, const QString& name) const
    {
        const QRect frame = window.frameGeometry();
        QImage last;
        QImage now;
        waitFor([&] {
            last = now;
            now = window.screen()
                      ->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height())
                      .toImage();
            return now == last;
        });
        const QString file = m_target + u'/' + name + m_suffix + u".png"_s;
        if (!now.save(file)) {
            qFatal("%s cannot be written", qPrintable(file));
        }
    }

    Module1 m_module;
    ScriptedPickers m_pickers{m_module};
    MediaControl* m_control = nullptr;
    EditorServices m_services{.module = m_module,
                              .pickers = m_pickers,
                              .boundary = {},
                              .makePreview =
                                  [this] {
                                      auto made = makeMediaControl();
                                      m_control = made.get();
                                      return made;
                                  },
                              .playerVolume = [] { return -10000; },
                              .pausePlayer = [] { return false; },
                              .resumePlayer = [] {}};
    QString m_target;
    QString m_samples;
    QString m_suffix;
};

} // namespace

} // namespace orvanta

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4) {
        qFatal("screenshots LANGUAGE FOLDER SAMPLES");
    }
    QApplication::setCursorFlashTime(0);
    QApplication::setWindowIcon(orvanta::skin::applicationIcon());
    orvanta::Photographer photographer(arguments[1].toInt(), arguments[2], arguments[3]);
    photographer.packetEditor();
    photographer.groupEditor();
    photographer.pickers();
    return 0;
}
