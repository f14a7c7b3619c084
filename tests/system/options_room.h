// A room for the Options dialog: settings, icons, pickers that answer as told, a desktop of its
// own.
#pragma once

#include "core/ini.h"
#include "system/form8_options_dialog.h"
#include "system/icon_preview.h"
#include "system/option_box.h"
#include "system/type_list.h"
#include "tests/support/desktop_room.h"
#include "tests/support/scripted_pickers.h"
#include "tests/support/settings_folder.h"

#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>
#include <memory>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class OptionsRoom : public testing::Test
{
protected:
    OptionsRoom()
    {
        module.ApplicationFolder = home.path();
        module.IniPath = home.ini();
        set(u"main"_s, u"language"_s, u"1"_s);
        storeTypes({u"avi"_s, u"mpg"_s, u"mp3"_s});
        desktop.install(u"player.desktop"_s);
    }

    void set(const QString& section, const QString& key, const QString& value) const
    {
        WriteIni(section, key, value, module.IniPath);
    }
    [[nodiscard]] QString stored(const QString& section, const QString& key) const
    {
        return ReadIni(section, key, module.IniPath);
    }
    [[nodiscard]] QString option(const QString& key) const { return stored(u"options"_s, key); }

    void storeTypes(const QStringList& types) const
    {
        set(u"types"_s, u"num"_s, QString::number(types.size()));
        for (int i = 0; i < types.size(); ++i) {
            set(u"types"_s, u"file"_s + QString::number(i), types[i]);
        }
    }
    [[nodiscard]] QStringList storedList() const
    {
        QStringList types;
        for (int i = 0; i < stored(u"types"_s, u"num"_s).toInt(); ++i) {
            types.append(stored(u"types"_s, u"file"_s + QString::number(i)));
        }
        return types;
    }

    [[nodiscard]] QString registered(const QString& key) const
    {
        return registry.RegReadString(RegistryHive::ClassesRoot, key, {});
    }
    [[nodiscard]] QString owner(const QString& type) const { return registered(u'.' + type); }
    void setOwner(const QString& type, const QString& value)
    {
        registry.RegWriteString(RegistryHive::ClassesRoot, u'.' + type, {}, value);
    }
    /// Makes another program the default of a type of content.
    void giveToPlayer(const QByteArray& mimeType) const
    {
        desktop.write(u"config/mimeapps.list",
                      "[Default Applications]\n" + mimeType + "=player.desktop\n");
    }

    void makeIcon(const QString& name, Qt::GlobalColor colour) const
    {
        QImage picture(32, 32, QImage::Format_ARGB32);
        picture.fill(colour);
        QDir().mkpath(QFileInfo(home.file(name)).path());
        ASSERT_TRUE(picture.save(home.file(name), "ico"));
    }

    /// The dialog, opened and shown.
    Form8& open()
    {
        dialog = std::make_unique<Form8>(services);
        dialog->show();
        return *dialog;
    }
    /// Opened again after the one before was closed.
    Form8& reopen()
    {
        dialog->close();
        return open();
    }

    void click(QAbstractButton* button) const { QTest::mouseClick(button, Qt::LeftButton); }
    void addType(const QString& type)
    {
        dialog->Text1->setText(type);
        click(dialog->Command1);
    }
    [[nodiscard]] QColor iconColour() const
    {
        const QImage picture = dialog->Image6->picture().toImage();
        return picture.isNull() ? QColor() : picture.pixelColor(5, 5);
    }

    DesktopRoom desktop;
    SettingsFolder home{"[main]\n"};
    Module1 module;
    ScriptedPickers pickers{module};
    Registry registry{home.path(), u"/opt/o/orvanta"_s};
    QStringList untrapped; // errors that would have ended the program
    OptionsServices services{.module = module,
                             .registry = registry,
                             .pickers = pickers,
                             .boundary = HandlerBoundary([this](const RuntimeError& error) {
                                 untrapped.append(error.text());
                             })};
    std::unique_ptr<Form8> dialog;
};

} // namespace orvanta::test
