// Form12, the tray form: an icon in the notification area with the play commands.
//
//   IconTray1   the icon; its left button asks for the main window
//   tray        the menu of its right button: st pa pl | nex pr | closeapp
//
// It never acts on the player: each command raises a one-shot request that the tick serves.
#pragma once

#include "model/module1.h"
#include "playback/control_rows.h"

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

namespace orvanta {

class Form12 : public QObject
{
    Q_OBJECT

public:
    /// Loading it shows the icon; where the desktop has no tray there is none, and no error.
    explicit Form12(Module1& module);
    ~Form12() override;

    QSystemTrayIcon IconTray1; // the icon in the notification area
    QMenu tray;                // the menu of its right button
    QAction* st;               // Stop
    QAction* pa;               // Pause
    QAction* pl;               // Play
    QAction* nex;              // Next clip
    QAction* pr;               // Previous clip
    QAction* closeapp;         // Exit

private:
    [[nodiscard]] ControlRows controls();
    void buildMenu();
    void connectHandlers();
    void Form12_IconTray1_event9(QSystemTrayIcon::ActivationReason reason);
    void Form12_st_Click();
    void Form12_pa_Click();
    void Form12_pl_Click();
    void Form12_nex_Click();
    void Form12_pr_Click();
    void Form12_closeapp_Click();

    Module1& m_module;
};

} // namespace orvanta
