// The tray form: its texts, and the one request that each command raises.
#include "core/ini.h"
#include "system/form12_tray.h"
#include "tests/support/settings_folder.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class Tray : public testing::Test
{
protected:
    void storeLanguage(const QString& language)
    {
        WriteIni(u"main"_s, u"language"_s, language, home.ini());
    }

    Form12& form()
    {
        module.IniPath = home.ini();
        loaded = std::make_unique<Form12>(module);
        return *loaded;
    }

    SettingsFolder home;
    Module1 module;
    std::unique_ptr<Form12> loaded;
};

TEST_F(Tray, TheRussianLanguageGivesRussianCaptions)
{
    storeLanguage(u"2"_s);
    EXPECT_EQ(form().st->text(), u"&Стоп"_s);
    EXPECT_EQ(loaded->closeapp->text(), u"&Закрыть"_s);
}

TEST_F(Tray, AnyOtherLanguageValueLeavesTheEnglishCaptions)
{
    for (const QString& language : {u"1"_s, u"3"_s, u"abc"_s}) {
        storeLanguage(language);
        EXPECT_EQ(form().pa->text(), u"Paus&e"_s) << qPrintable(language);
    }
}

TEST_F(Tray, AMissingLanguageLeavesTheEnglishCaptions)
{
    EXPECT_EQ(form().nex->text(), u"&Next clip"_s);
}

TEST_F(Tray, TheToolTipIsTheBannerInLowerCase)
{
    EXPECT_EQ(form().IconTray1.toolTip(), u"!orvanta! 3.3"_s);
}

TEST_F(Tray, TheIconIsTheProgramsPicture)
{
    const QImage icon = form().IconTray1.icon().pixmap(64, 64).toImage();
    ASSERT_FALSE(icon.isNull());
    EXPECT_EQ(icon.pixelColor(icon.rect().center()).alpha(), 255);
    EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0);
}

TEST_F(Tray, TheMenusEntriesStandInTheirOrder)
{
    QStringList names;
    for (const QAction* action : form().tray.actions()) {
        names.append(action->objectName());
    }
    EXPECT_EQ(names, (QStringList{u"st"_s, u"pa"_s, u"pl"_s, u"l1"_s, u"nex"_s, u"pr"_s, u"l2"_s,
                                  u"closeapp"_s}));
}

TEST_F(Tray, EachEntryRaisesItsRequestAndNothingElse)
{
    form();
    const std::pair<QAction*, Flag16 TrayRequests::*> rows[] = {
        {loaded->pl, &TrayRequests::TrayPlayRequest},
        {loaded->pa, &TrayRequests::TrayPauseRequest},
        {loaded->st, &TrayRequests::TrayStopRequest},
        {loaded->nex, &TrayRequests::TrayNextRequest},
        {loaded->pr, &TrayRequests::TrayPreviousRequest},
        {loaded->closeapp, &TrayRequests::TrayCloseRequest},
        {nullptr, &TrayRequests::TrayRestoreRequest},
    };
    for (const auto& [action, flag] : rows) {
        if (action == nullptr) {
            continue; // no entry's request
        }
        module.tray = {};
        action->trigger();
        EXPECT_TRUE((module.tray.*flag).take()) << qPrintable(action->objectName());
        for (const auto& [other, otherFlag] : rows) {
            EXPECT_FALSE(module.tray.*otherFlag) << qPrintable(other->objectName());
        }
    }
}

TEST_F(Tray, ALeftClickOnTheIconRaisesTheRestoreRequestAndOnlyThat)
{
    form();
    Q_EMIT loaded->IconTray1.activated(QSystemTrayIcon::Trigger);
    EXPECT_TRUE(module.tray.TrayRestoreRequest.take());
    for (const auto other : {QSystemTrayIcon::Context, QSystemTrayIcon::MiddleClick,
                             QSystemTrayIcon::DoubleClick, QSystemTrayIcon::Unknown}) {
        Q_EMIT loaded->IconTray1.activated(other);
        EXPECT_FALSE(module.tray.TrayRestoreRequest) << other;
    }
    EXPECT_FALSE(module.tray.TrayPlayRequest || module.tray.TrayCloseRequest);
}

TEST_F(Tray, RaisingARequestTwiceIsRaisingItOnce)
{
    form();
    loaded->pl->trigger();
    loaded->pl->trigger();
    EXPECT_TRUE(module.tray.TrayPlayRequest.take());
    EXPECT_FALSE(module.tray.TrayPlayRequest.take());
}

} // namespace
} // namespace orvanta::test
