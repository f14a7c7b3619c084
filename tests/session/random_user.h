// Somebody who does something at random, over and over, to every side of the program.
#pragma once

#include "tests/session/dice.h"
#include "tests/session/program_run.h"

#include <QDBusConnection>
#include <QStringList>

#include <deque>
#include <functional>

namespace orvanta::session {

/// What there is to open, drop and hand over. Paths.
struct LaidOutFiles
{
    QStringList clips;
    QStringList packets; // good ones, of clips and of brakes
    QStringList groups;
    QStringList badPackets; // a drop of one ends the program
    QStringList strange;    // neither media nor documents, folders among them
    QStringList toSave;     // what a save picker may answer
};

class RandomUser
{
public:
    RandomUser(Dice& dice, LaidOutFiles files, QDBusConnection bus);

    /// Does one thing. passTime: lets the clip go on a little, as the control can.
    void act(ProgramRun& run, const std::function<QString(ProgramRun&, Dice&)>& passTime);

    /// Waits until everything that was sent over the bus has been served.
    void awaitMediaControls();

    /// The last things done, oldest first.
    [[nodiscard]] QString journal() const;
    /// Whether a packet that ends the program has been dropped on this run of it.
    [[nodiscard]] bool hasDroppedBadPacket() const { return m_droppedBadPacket; }
    /// How many menu entries were chosen, and things done in the dialogs that some of them open.
    [[nodiscard]] int chosenEntries() const { return m_chosenEntries; }
    [[nodiscard]] int dialogDeeds() const { return m_dialogDeeds; }
    void startsAnew() { m_droppedBadPacket = false; }

private:
    struct Deed;
    static const std::vector<Deed>& deeds();
    /// What can be done while a dialog keeps the windows to itself.
    static const std::vector<Deed>& deedsBesideDialog();
    void doOneOf(const std::vector<Deed>& deeds, ProgramRun& run,
                 const std::function<QString(ProgramRun&, Dice&)>& passTime);

    void pressKey(QWidget& window, const QString& name);
    void pressKeyInMainWindow(ProgramRun& run);
    void pressKeyInVideoWindow(ProgramRun& run);
    void usePopup(ProgramRun& run);
    void pressKeyInPopup();
    [[nodiscard]] bool chooseInMenu(ProgramRun& run);
    void useDialog(ProgramRun& run);
    void clickInDialog(QWidget& dialog);
    void clickLineInDialog(QWidget& dialog);
    void pressKeyInDialog(QWidget& dialog);
    void useAbout(ProgramRun& run);
    void typeIntoFindBox(ProgramRun& run);
    void clickButton(ProgramRun& run);
    void clickList(ProgramRun& run);
    void chooseLine(ProgramRun& run);
    void moveSlider(ProgramRun& run);
    void turnWheel(ProgramRun& run);
    void drop(ProgramRun& run);
    void useTray(ProgramRun& run);
    void callMediaControls(ProgramRun& run);
    void handOver(ProgramRun& run);
    void changeOption(ProgramRun& run);
    void practise(ProgramRun& run);
    void useVideoWindow(ProgramRun& run);
    void useMainWindow(ProgramRun& run);
    void tick(ProgramRun& run);

    void note(const QString& what);
    [[nodiscard]] QStringList someFiles(int most);
    [[nodiscard]] QString anyFile();

    Dice& m_dice;
    LaidOutFiles m_files;
    QDBusConnection m_bus;
    std::deque<QString> m_journal;
    int m_number = 0;
    int m_chosenEntries = 0;
    int m_dialogDeeds = 0;
    bool m_droppedBadPacket = false;
};

} // namespace orvanta::session
