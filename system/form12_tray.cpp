#include "system/form12_tray.h"

#include "core/version.h"
#include "model/texts.h"
#include "system/drawn_picture.h"

namespace orvanta {

using namespace Qt::StringLiterals;

Form12::Form12(Module1& module)
    : m_module(module)
{
    setObjectName(u"Form12"_s);
    buildMenu();
    applyTexts();
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
    const auto add = [this](const QString& name) {
        QAction* action = tray.addAction(QString());
        action->setObjectName(name);
        return action;
    };
    tray.setObjectName(u"tray"_s);
    IconTray1.setObjectName(u"IconTray1"_s);
    st = add(u"st"_s);
    pa = add(u"pa"_s);
    pl = add(u"pl"_s);
    tray.addSeparator()->setObjectName(u"l1"_s);
    nex = add(u"nex"_s);
    pr = add(u"pr"_s);
    tray.addSeparator()->setObjectName(u"l2"_s);
    closeapp = add(u"closeapp"_s);
}

void Form12::applyTexts()
{
    const TextLanguage language = m_module.settings().textLanguage(TextLanguage::English);
    for (QAction* action : {st, pa, pl, nex, pr, closeapp}) {
        action->setText(interfaceText(u"Form12", action->objectName(), language));
    }
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
