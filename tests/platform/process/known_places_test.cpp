#include "platform/process/known_places.h"
#include "tests/support/settings_folder.h"

#include <gtest/gtest.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct Places : testing::Test
{
    ~Places() override { setPlacesFile({}); }

    SettingsFolder home{QByteArray()};
    QString ini = home.file(u"platform.ini"_s);
};

} // namespace

TEST_F(Places, DrivesAreReadByTheirLetterInAnyCase)
{
    home.write(u"platform.ini"_s, "[drives]\nE=/media/user/STICK\nd=relative\n");
    setPlacesFile(ini);
    const KnownPlaces places = knownPlaces();
    EXPECT_EQ(places.drives.value(u'e'), u"/media/user/STICK");
    EXPECT_FALSE(places.drives.contains(u'd')); // no folder of this system
}

TEST_F(Places, AMovedFolderIsKnownAtTheNextStartToo)
{
    home.write(u"platform.ini"_s, "[text]\ncodepage=windows-1251\n");
    setPlacesFile(ini);
    EXPECT_TRUE(rememberMoved({u"C:\\Уроки"_s, u"/home/x/Уроки"_s}));
    EXPECT_TRUE(rememberMoved({u"/old"_s, u"/new"_s}));
    EXPECT_TRUE(rememberMoved({u"C:\\Уроки"_s, u"/home/y"_s}));
    setPlacesFile(ini); // as at a start
    const KnownPlaces places = knownPlaces();
    ASSERT_EQ(places.moved.size(), 2u);
    EXPECT_EQ(places.moved[0].from, u"/old");
    EXPECT_EQ(places.moved[1].from, u"C:\\Уроки");
    EXPECT_EQ(places.moved[1].to, u"/home/y");
    EXPECT_EQ(ReadIni(u"text"_s, u"codepage"_s, ini), u"windows-1251");
}

TEST_F(Places, OldPairsGoWhenThereAreTooMany)
{
    setPlacesFile(ini);
    for (int i = 0; i < 203; ++i) {
        EXPECT_TRUE(rememberMoved({u"/old"_s + QString::number(i), u"/new"_s}));
    }
    setPlacesFile(ini);
    const KnownPlaces places = knownPlaces();
    ASSERT_EQ(places.moved.size(), 200u);
    EXPECT_EQ(places.moved.front().from, u"/old3");
    EXPECT_EQ(places.moved.back().from, u"/old202");
}

TEST_F(Places, ASpoiltFileSaysNothing)
{
    home.write(u"platform.ini"_s, "[moved]\nnum=99999999999\nfrom1=\nto1=/x\n[drives]\nc=\n\xff\0");
    setPlacesFile(ini);
    EXPECT_TRUE(knownPlaces().moved.empty());
    EXPECT_TRUE(knownPlaces().drives.isEmpty());
}

TEST_F(Places, WithoutAFileAMovedFolderHoldsUntilTheEnd)
{
    setPlacesFile({});
    EXPECT_FALSE(rememberMoved({u"/old"_s, u"/new"_s}));
    EXPECT_EQ(knownPlaces().moved.size(), 1u);
}

} // namespace orvanta
