// The file page of the Options dialog, and what OK and the icon buttons register.

#include "platform/file_types/desktop_folders.h"
#include "system/file_type_registration.h"
#include "tests/system/options_room.h"

#include <QImageReader>

namespace orvanta::test {

class OptionsTypes : public OptionsRoom
{
protected:
    static constexpr int kAvi = 2;
    static constexpr int kMpg = 3;
    static constexpr int kMp3 = 4;
};

TEST_F(OptionsTypes, TheListBeginsWithPacketsAndGroupsAndGoesOnAsStored)
{
    EXPECT_EQ(open().List1->extensions(),
              (QStringList{u"vxl"_s, u"vxg"_s, u"avi"_s, u"mpg"_s, u"mp3"_s}));
    EXPECT_EQ(dialog->List1->currentRow(), 0);
}

TEST_F(OptionsTypes, PacketsAndGroupsCannotBeRemoved)
{
    open();
    EXPECT_FALSE(dialog->Command2->isEnabled());
    dialog->List1->setCurrentRow(1);
    EXPECT_FALSE(dialog->Command2->isEnabled());
    dialog->List1->setCurrentRow(kAvi);
    EXPECT_TRUE(dialog->Command2->isEnabled());
    dialog->List1->setCurrentRow(0);
    EXPECT_FALSE(dialog->Command2->isEnabled());
}

TEST_F(OptionsTypes, AnAddedTypeIsStoredAtOnce)
{
    open();
    addType(u"xyz"_s);
    EXPECT_EQ(dialog->List1->extensions().last(), u"xyz");
    EXPECT_EQ(storedList(), (QStringList{u"avi"_s, u"mpg"_s, u"mp3"_s, u"xyz"_s}));
}

TEST_F(OptionsTypes, AnEmptyBoxAddsNothing)
{
    open();
    addType({});
    EXPECT_EQ(storedList().size(), 3);
    EXPECT_EQ(dialog->List1->rowCount(), 5);
}

TEST_F(OptionsTypes, TheSameTypeTwiceIsTwoRowsAndTwoStoredTypes)
{
    storeTypes({});
    open();
    addType(u"avi"_s);
    click(dialog->Command1);
    EXPECT_EQ(dialog->List1->extensions().mid(2), (QStringList{u"avi"_s, u"avi"_s}));
    EXPECT_EQ(storedList(), (QStringList{u"avi"_s, u"avi"_s}));
}

TEST_F(OptionsTypes, DotsAndTheFixedTypesAreTakenAsTheyAre)
{
    open();
    addType(u".avi"_s);
    addType(u"vxl"_s);
    EXPECT_EQ(storedList().mid(3), (QStringList{u".avi"_s, u"vxl"_s}));
    click(dialog->Image2);
    EXPECT_TRUE(untrapped.isEmpty());
}

TEST_F(OptionsTypes, ReturnInTheBoxAddsAndLeavesTheDialogOpen)
{
    open();
    click(dialog->Image5);
    dialog->Text1->setFocus();
    QTest::keyClicks(dialog->Text1, u"xyz"_s);
    QTest::keyClick(dialog->Text1, Qt::Key_Return);
    EXPECT_EQ(storedList().last(), u"xyz");
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(OptionsTypes, ARemovedTypeIsStoredAtOnceAndNoRowIsCurrentThen)
{
    open().List1->setCurrentRow(kMpg);
    click(dialog->Command2);
    EXPECT_EQ(dialog->List1->extensions(), (QStringList{u"vxl"_s, u"vxg"_s, u"avi"_s, u"mp3"_s}));
    EXPECT_EQ(storedList(), (QStringList{u"avi"_s, u"mp3"_s}));
    EXPECT_EQ(stored(u"types"_s, u"file2"_s), u"mp3"); // the last key stays
    EXPECT_EQ(dialog->List1->currentRow(), -1);
    EXPECT_TRUE(dialog->Image6->isEmpty());
    EXPECT_FALSE(dialog->Command2->isEnabled());
    EXPECT_FALSE(dialog->Command3->isEnabled());
}

TEST_F(OptionsTypes, SavedOwnersAreNotRenumberedByARemoval)
{
    set(u"types"_s, u"4reg"_s, u"player.desktop"_s);
    open().List1->setCurrentRow(kAvi);
    click(dialog->Command2);
    EXPECT_EQ(stored(u"types"_s, u"4reg"_s), u"player.desktop");
    EXPECT_EQ(stored(u"types"_s, u"3reg"_s), QString());
}

TEST_F(OptionsTypes, CancelKeepsTypesThatWereAddedOrRemoved)
{
    open();
    addType(u"xyz"_s);
    dialog->List1->setCurrentRow(kAvi);
    click(dialog->Command2);
    click(dialog->Image1);
    EXPECT_EQ(storedList(), (QStringList{u"mpg"_s, u"mp3"_s, u"xyz"_s}));
}

TEST_F(OptionsTypes, ACountThatIsNoNumberLeavesTheFixedRows)
{
    set(u"types"_s, u"num"_s, u"many"_s);
    open();
    EXPECT_EQ(dialog->List1->extensions(), (QStringList{u"vxl"_s, u"vxg"_s}));
    addType(u"xyz"_s);
    EXPECT_EQ(stored(u"types"_s, u"num"_s), u"many");
    EXPECT_TRUE(untrapped.isEmpty());
}

TEST_F(OptionsTypes, ATypeThatIsRegisteredOpensSelected)
{
    setOwner(u"avi"_s, u"vxavifile"_s);
    open();
    EXPECT_TRUE(dialog->List1->isRowSelected(kAvi));
    EXPECT_FALSE(dialog->List1->isRowSelected(kMpg));
    EXPECT_EQ(stored(u"types"_s, u"2reg"_s), QString());
}

TEST_F(OptionsTypes, ATypeOfAnotherProgramOpensUnselectedAndItsOwnerIsSavedUnderItsRow)
{
    storeTypes({u"avi"_s, u"mpg"_s, u"xyz"_s, u"mp3"_s});
    giveToPlayer("audio/mpeg");
    open();
    EXPECT_FALSE(dialog->List1->isRowSelected(5));
    EXPECT_EQ(stored(u"types"_s, u"5reg"_s), u"player.desktop");
    EXPECT_EQ(stored(u"types"_s, u"2reg"_s), QString());
}

TEST_F(OptionsTypes, ASelectedTypeIsRegisteredByOk)
{
    open().List1->selectRow(kAvi, true);
    click(dialog->Image2);
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    EXPECT_EQ(registered(u"vxavifile\\DefaultIcon"_s), home.path() + u"\\avi.ico"_s);
    EXPECT_EQ(registered(u"vxavifile\\shell\\open\\command"_s),
              home.path() + u"\\orvanta.exe %1"_s);
    EXPECT_EQ(owner(u"mpg"_s), QString());
}

TEST_F(OptionsTypes, AProgramInADrivesRootIsRegisteredWithBothItsSeparators)
{
    module.ApplicationFolder = u"C:\\"_s;
    set(u"options"_s, u"nc"_s, u"1"_s);
    set(u"options"_s, u"ws"_s, u"1"_s);
    open().List1->selectRow(kAvi, true);
    click(dialog->Image2);
    EXPECT_EQ(registered(u"vxavifile\\shell\\open\\command"_s), u"C:\\\\orvanta.exe %1");
    EXPECT_EQ(registered(u"vxavifile\\DefaultIcon"_s), u"C:\\\\avi.ico");
    EXPECT_EQ(registry.RegReadString(RegistryHive::LocalMachine,
                                     u"software\\microsoft\\windows\\currentversion\\run"_s,
                                     u"orvanta"_s),
              u"C:\\\\orvanta.exe /auto");
}

TEST_F(OptionsTypes, ARegistryFileThatCannotBeWrittenLeavesTheDesktopsOwnSettings)
{
    ASSERT_TRUE(QDir().mkpath(home.file(u"registry.ini/in the way"_s)));
    open().List1->selectRow(kAvi, true);
    click(dialog->Image2);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_TRUE(untrapped.isEmpty());
    EXPECT_TRUE(desktop.bytes(u"config/mimeapps.list").contains("video/x-msvideo=orvanta.desktop"));
    open();
    EXPECT_TRUE(dialog->List1->isRowSelected(kAvi));
    dialog->List1->selectRow(kAvi, false);
    click(dialog->Image2);
    EXPECT_FALSE(desktop.bytes(u"config/mimeapps.list").contains("orvanta"));
}

TEST_F(OptionsTypes, CancelRegistersNothing)
{
    open().List1->selectRow(kAvi, true);
    click(dialog->Image1);
    EXPECT_EQ(owner(u"avi"_s), QString());
}

TEST_F(OptionsTypes, AnUnselectedTypeGoesBackToTheOwnerThatWasSavedAtTheOpening)
{
    giveToPlayer("video/x-msvideo");
    const QByteArray before = desktop.bytes(u"config/mimeapps.list");
    open().List1->selectRow(kAvi, true);
    click(dialog->Image2);
    EXPECT_EQ(owner(u"avi"_s), u"vxavifile");
    open();
    EXPECT_TRUE(dialog->List1->isRowSelected(kAvi));
    dialog->List1->selectRow(kAvi, false);
    click(dialog->Image2);
    EXPECT_EQ(owner(u"avi"_s), u"player.desktop");
    EXPECT_EQ(desktop.bytes(u"config/mimeapps.list"), before);
}

TEST_F(OptionsTypes, AnUnselectedTypeWithoutASavedOwnerIsNobodys)
{
    setOwner(u"avi"_s, u"vxavifile"_s);
    open().List1->selectRow(kAvi, false);
    click(dialog->Image2);
    EXPECT_EQ(owner(u"avi"_s), QString());
}

TEST_F(OptionsTypes, ATypeInCapitalsIsRegisteredInCapitals)
{
    open();
    addType(u"AVI"_s);
    dialog->List1->selectRow(5, true);
    dialog->List1->removeRow(kAvi); // or the small one would be given back after it
    click(dialog->Image2);
    EXPECT_EQ(owner(u"AVI"_s), u"vxAVIfile");
}

TEST_F(OptionsTypes, SelectingWithMouseAndKeysIsNotTheSameAsBeingCurrent)
{
    open();
    click(dialog->Image5);
    TypeList& list = *dialog->List1;
    const QRect row = list.visualRect(list.model()->index(kAvi, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(list.currentRow(), kAvi);
    EXPECT_FALSE(list.isRowSelected(kAvi));
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_TRUE(list.isRowSelected(kAvi));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      row.topLeft() + QPoint(10, row.height() / 2));
    EXPECT_FALSE(list.isRowSelected(kAvi));
}

// Icons

TEST_F(OptionsTypes, TheCurrentRowsIconIsShown)
{
    makeIcon(u"vxl.ico"_s, Qt::blue);
    makeIcon(u"avi.ico"_s, Qt::red);
    open();
    EXPECT_EQ(iconColour(), QColor(Qt::blue));
    dialog->List1->setCurrentRow(kAvi);
    EXPECT_EQ(iconColour(), QColor(Qt::red));
}

TEST_F(OptionsTypes, AMissingIconLeavesThePlaceEmpty)
{
    storeTypes({u"nosuchtype"_s});
    makeIcon(u"vxl.ico"_s, Qt::blue);
    open().List1->setCurrentRow(2);
    EXPECT_TRUE(dialog->Image6->isEmpty());
}

TEST_F(OptionsTypes, AShippedTypeWithoutAnIconOfItsOwnShowsTheStandardOne)
{
    storeTypes({u"avi"_s});
    open().List1->setCurrentRow(kAvi);
    EXPECT_FALSE(dialog->Image6->isEmpty());
    EXPECT_FALSE(QFileInfo::exists(home.file(u"avi.ico"_s))) << "looking at it makes none";
}

TEST_F(OptionsTypes, AChosenIconIsCopiedRegisteredAndShown)
{
    makeIcon(u"avi.ico"_s, Qt::red);
    makeIcon(u"elsewhere/mine.ico"_s, Qt::green);
    pickers.answer = {home.file(u"elsewhere/mine.ico"_s)};
    open().List1->setCurrentRow(kAvi);
    click(dialog->Command3);
    EXPECT_EQ(pickers.calls, QStringList{u"open *.ico"_s});
    EXPECT_EQ(home.bytes(u"avi.ico"_s), home.bytes(u"elsewhere/mine.ico"_s));
    EXPECT_EQ(iconColour(), QColor(Qt::green));
    EXPECT_EQ(registered(u"vxavifile\\DefaultIcon"_s), home.path() + u"\\avi.ico"_s);
    EXPECT_EQ(owner(u"avi"_s), QString()); // the icon alone registers nothing
}

TEST_F(OptionsTypes, APickerClosedByItsFrameCopiesNothingThatWasPickedBefore)
{
    makeIcon(u"avi.ico"_s, Qt::red);
    makeIcon(u"mine.ico"_s, Qt::green);
    module.picker.PickedFiles = {QString(), home.file(u"mine.ico"_s)};
    pickers.closedByFrame = true;
    const QByteArray before = home.bytes(u"avi.ico"_s);
    open().List1->setCurrentRow(kAvi);
    click(dialog->Command3);
    EXPECT_EQ(home.bytes(u"avi.ico"_s), before);
    EXPECT_EQ(module.picker.PickedFiles.value(1), home.file(u"mine.ico"_s));
}

TEST_F(OptionsTypes, ACancelledPickerChangesNothing)
{
    makeIcon(u"avi.ico"_s, Qt::red);
    const QByteArray before = home.bytes(u"avi.ico"_s);
    open().List1->setCurrentRow(kAvi);
    click(dialog->Command3);
    EXPECT_EQ(home.bytes(u"avi.ico"_s), before);
    EXPECT_EQ(registered(u"vxavifile\\DefaultIcon"_s), QString());
}

TEST_F(OptionsTypes, TheStandardIconTakesThePlaceOfAChosenOne)
{
    makeIcon(u"icons/avi.ico"_s, Qt::yellow);
    makeIcon(u"avi.ico"_s, Qt::red);
    open().List1->setCurrentRow(kAvi);
    click(dialog->Command4);
    EXPECT_EQ(iconColour(), QColor(Qt::yellow));
    EXPECT_EQ(home.bytes(u"avi.ico"_s), home.bytes(u"icons/avi.ico"_s));
    EXPECT_EQ(registered(u"vxavifile\\DefaultIcon"_s), home.path() + u"\\avi.ico"_s);
}

TEST_F(OptionsTypes, AMissingStandardIconLeavesTheIconAsItIs)
{
    storeTypes({u"nosuchtype"_s});
    makeIcon(u"nosuchtype.ico"_s, Qt::red);
    open().List1->setCurrentRow(2);
    click(dialog->Command4);
    EXPECT_EQ(iconColour(), QColor(Qt::red));
    EXPECT_TRUE(untrapped.isEmpty());
}

TEST_F(OptionsTypes, AnIconThatCannotBeReplacedIsPassedOver)
{
    QDir().mkpath(home.file(u"avi.ico/in the way"_s));
    makeIcon(u"icons/avi.ico"_s, Qt::yellow);
    open().List1->setCurrentRow(kAvi);
    click(dialog->Command4);
    EXPECT_TRUE(untrapped.isEmpty());
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(OptionsTypes, CancelKeepsAChosenIcon)
{
    makeIcon(u"mine.ico"_s, Qt::green);
    pickers.answer = {home.file(u"mine.ico"_s)};
    open().List1->setCurrentRow(kAvi);
    click(dialog->Command3);
    click(dialog->Image1);
    EXPECT_EQ(home.bytes(u"avi.ico"_s), home.bytes(u"mine.ico"_s));
}

TEST_F(OptionsTypes, EveryDefaultTypeHasAnIconOfEverySize)
{
    const QString settings = QStringLiteral(ORVANTA_SOURCE_DIR "/resources/orvanta.ini");
    QStringList types = {u"vxl"_s, u"vxg"_s};
    const int count = ReadIni(u"types"_s, u"num"_s, settings).toInt();
    for (int i = 0; i < count; ++i) {
        types.append(ReadIni(u"types"_s, u"file"_s + QString::number(i), settings));
    }
    EXPECT_EQ(types.size(), 23);
    storeTypes(types.mid(2));
    open();
    for (int row = 0; row < types.size(); ++row) {
        dialog->List1->setCurrentRow(row);
        EXPECT_FALSE(dialog->Image6->isEmpty()) << qPrintable(types[row]);
        QImageReader reader(QStringLiteral(ORVANTA_SOURCE_DIR "/resources/icons/") + types[row] +
                            u".ico"_s);
        EXPECT_EQ(reader.imageCount(), 8) << qPrintable(types[row]);
    }
}

TEST_F(OptionsTypes, InASandboxTheListSaysWhatIsMediaAndNothingIsRegistered)
{
    services.reachesDesktop = false;
    open();
    const auto isOffered = [&](const QWidget* control) { return !control->isHidden(); };
    for (const QWidget* control : std::initializer_list<const QWidget*>{
             dialog->Check9, dialog->Image6, dialog->Command3, dialog->Command4}) {
        EXPECT_FALSE(isOffered(control)) << control->objectName().toStdString();
    }
    for (const QWidget* control : std::initializer_list<const QWidget*>{
             dialog->Check7, dialog->List1, dialog->Command1, dialog->Command2}) {
        EXPECT_TRUE(isOffered(control)) << control->objectName().toStdString();
    }
    const QModelIndex avi = dialog->List1->model()->index(kAvi, 0);
    EXPECT_FALSE(avi.data(Qt::CheckStateRole).isValid());
    EXPECT_FALSE(avi.flags().testFlag(Qt::ItemIsUserCheckable));
    dialog->List1->selectRow(kAvi, true);
    dialog->Check9->setChecked(true);
    click(dialog->Image2);
    EXPECT_EQ(FileTypeRegistration(registry, home.path()).owner(u"avi"_s), QString());
    EXPECT_FALSE(QFile::exists(DesktopFolders::configHome() + u"/autostart/orvanta.desktop"_s));
}

} // namespace orvanta::test
