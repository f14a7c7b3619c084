#include "system/form12_tray.h"

#include "core/version.h"
#include "model/texts.h"
#include "system/drawn_picture.h"

namespace orvanta {

using namespace Qt::StringLiterals;

Form12::Form12(Module1& module)
    : m_module(module)
{
    buildMenu();
    nameControls(controls());
    applyTexts(controls(), m_module.settings().textLanguage(TextLanguage::English));
    connectHandlers();
    IconTray1.setIcon(drawnIcon(u":/orvanta/tray.svg"_s));
    IconTray1.setToolTip(
        interfaceText(u"Form12", u"IconTray1.tip", TextLanguage::English).arg(kVersion));
    IconTray1.setContextMenu(&tray);
    IconTray1.show();
}

Form12::~Form12()
{
    IconTray1.hide();
}

void Form12::buildMenu()
{
    st = tray.addAction(QString());
    pa = tray.addAction(QString());
    pl = tray.addAction(QString());
    tray.addSeparator()->setObjectName(u"l1"_s);
    nex = tray.addAction(QString());
    pr = tray.addAction(QString());
    tray.addSeparator()->setObjectName(u"l2"_s);
    closeapp = tray.addAction(QString());
}

ControlRows Form12::controls()
{
    return {
        {this, u"Form12"},
        {&IconTray1, u"IconTray1"},
        {&tray, u"tray"},
        {st, u"st"},
        {pa, u"pa"},
        {pl, u"pl"},
        {nex, u"nex"},
        {pr, u"pr"},
        {closeapp, u"closeapp"},
    };
}

void Form12::connectHandlers()
{
    connect(&IconTray1, &QSystemTrayIcon::activated, this, &Form12::Form12_IconTray1_event9);
    connect(st, &QAction::triggered, this, &Form12::Form12_st_Click);
    connect(pa, &QAction::triggered, this, &Form12::Form12_pa_Click);
    connect(pl, &QAction::triggered, this, &Form12::Form12_pl_Click);
    connect(nex, &QAction::triggered, this, &Form12::Form12_nex_Click);
    connect(pr, &QAction::triggered, this, &Form12::Form12_pr_Click);
    connect(closeapp, &QAction::triggered, this, &Form12::Form12_closeapp_Click);
}

void Form12::Form12_IconTray1_event9(QSystemTrayIcon::ActivationReason reason)
{
    if (reason == QSystemTrayIcon::Trigger) {
        m_module.tray.TrayRestoreRequest = true;
    }
}

void Form12::Form12_st_Click()
{
    m_module.tray.TrayStopRequest = true;
}

void Form12::Form12_pa_Click()
{
    m_module.tray.TrayPauseRequest = true;
}

void Form12::Form12_pl_Click()
{
    m_module.tray.TrayPlayRequest = true;
}

void Form12::Form12_nex_Click()
{
    m_module.tray.TrayNextRequest = true;
}

void Form12::Form12_pr_Click()
{
    m_module.tray.TrayPreviousRequest = true;
}

void Form12::Form12_closeapp_Click()
{
    m_module.tray.TrayCloseRequest = true;
}

} // namespace orvanta
