#include "system/form8_options_dialog.h"

#include "core/paths.h"
#include "platform/file_types/desktop_files.h"
#include "platform/file_types/type_icons.h"
#include "system/icon_preview.h"
#include "system/option_box.h"
#include "system/type_list.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>
#include <QWindow>

#include <algorithm>
#include <optional>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kFixedRows = 2; // packets and groups

Form8::Form8(OptionsServices& services)
    : m_services(services),
      m_registration(services.registry, services.module.ApplicationFolder)
{
    buildControls();
    nameControls(controls());
    layOut();
    if (!services.reachesDesktop) {
        hideRegistration();
    }
    orderTabs(controls());
    connectHandlers();
    Form8_Form_Load();
}

Form8::~Form8() = default;

void Form8::Form8_Form_Load()
{
    showTexts(m_services.module.settings().exactTextLanguage(TextLanguage::Russian));
    loadOptions();
    trapped("list of types", [this] { fillTypes(); });
    markRegisteredTypes();
    List1->setCurrentRow(0);
    Form8_List1_Click();
    showPage(0);
}

void Form8::loadOptions()
{
    for (const OptionRow& option : kOptionRows) {
        (this->*option.box)->setChecked(m_services.module.settings().isOne(option.key));
    }
    Form8_Check7_Click();
}

void Form8::fillTypes()
{
    List1->clear();
    List1->addRow(u"vxl"_s);
    List1->addRow(u"vxg"_s);
    for (const QString& type : m_services.module.settings().types()) {
        List1->addRow(type);
    }
}

/// A mark on what is ours; the owners of the others are kept for the day on which they get their
/// types back.
void Form8::markRegisteredTypes()
{
    const Registry::Turn turn(m_services.registry);
    QMap<int, QString> owners;
    for (int row = 0; row < List1->rowCount(); ++row) {
        const QString extension = List1->extension(row);
        const QString owner = m_registration.owner(extension);
        const bool isOurs = owner == FileTypeRegistration::typeName(extension);
        List1->selectRow(row, isOurs);
        if (!isOurs && !owner.isEmpty()) {
            owners.insert(row, owner);
        }
    }
    m_services.module.settings().saveOwners(owners);
}

void Form8::showPage(int page)
{
    m_page = page;
    m_pages->setCurrentIndex(page);
    const std::array buttons = {Image3, Image4, Image5};
    buttons[static_cast<std::size_t>(page)]->setChecked(true);
}

void Form8::Form8_Image3_Click()
{
    showPage(0);
}

void Form8::Form8_Image4_Click()
{
    showPage(1);
}

void Form8::Form8_Image5_Click()
{
    showPage(2);
}

// A start with the session is of use only to a program that stays.
void Form8::Form8_Check7_Click()
{
    Check9->setEnabled(Check7->isChecked());
    if (!Check7->isChecked()) {
        Check9->setChecked(false);
    }
}

QString Form8::currentType() const
{
    return List1->extension(List1->currentRow());
}

void Form8::Form8_List1_Click()
{
    const int row = List1->currentRow();
    const bool isCurrent = row >= 0;
    Command2->setEnabled(row >= kFixedRows);
    Command3->setEnabled(isCurrent);
    Command4->setEnabled(isCurrent);
    Image6->showFile(isCurrent ? currentIcon(m_services.module.ApplicationFolder, currentType())
                               : QString());
}

// Neither doubles nor dots nor the two fixed types are refused: a list is what the user makes it.
void Form8::Form8_Command1_Click()
{
    const QString type = Text1->text();
    if (type.isEmpty()) {
        return;
    }
    List1->addRow(type);
    List1->scrollToBottom();
    Text1->selectAll();
    trapped("adding a type", [&] { m_services.module.settings().appendType(type); });
}

void Form8::Form8_Command2_Click()
{
    if (List1->currentRow() < kFixedRows) {
        return;
    }
    List1->removeRow(List1->currentRow());
    List1->setCurrentRow(-1);
    Form8_List1_Click();
    trapped("removing a type", [this] {
        m_services.module.settings().storeRemainingTypes(List1->extensions().mid(kFixedRows));
    });
}

void Form8::Form8_Command3_Click()
{
    const bool picked = m_services.pickers.ShowOpenPicker(u"*.ico"_s, false);
    const QString file = m_services.module.picker.PickedFiles.value(1);
    if (picked && !file.isEmpty()) {
        useIcon(file);
    }
}

void Form8::Form8_Command4_Click()
{
    useIcon(standardIcon(m_services.module.ApplicationFolder, currentType()));
}

/// Raises 53 without the source and 75 when the copy cannot be made.
static void copyIcon(const QString& source, const QString& target)
{
    if (!FileExists(source)) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    const std::optional<QByteArray> icon = readWhole(source);
    if (!icon || !replaceFile(target, *icon)) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

void Form8::useIcon(const QString& icoFile)
{
    const QString type = currentType();
    if (type.isEmpty()) {
        return;
    }
    const QString target =
        programFile(m_services.module.ApplicationFolder, u'\\' + type + u".ico"_s);
    resumeNext("copying an icon", [&] { copyIcon(icoFile, target); });
    m_registration.writeTypeIcon(type);
    List1->forgetIcon(type);
    Form8_List1_Click();
}

void Form8::storeOptions() const
{
    std::vector<std::pair<Option, bool>> states;
    states.reserve(kOptionRows.size());
    for (const OptionRow& option : kOptionRows) {
        states.emplace_back(option.key, (this->*option.box)->isChecked());
    }
    std::sort(states.begin(), states.end()); // as the settings file has them, not the pages
    m_services.module.settings().storeOptions(states);
}

void Form8::registerTypes()
{
    const Registry::Turn turn(m_services.registry);
    for (int row = 0; row < List1->rowCount(); ++row) {
        const QString extension = List1->extension(row);
        if (List1->isRowSelected(row)) {
            m_registration.registerType(extension);
        } else {
            m_registration.unregisterType(extension, m_services.module.settings().savedOwner(row));
        }
    }
}

void Form8::registerWithDesktop()
{
    registerTypes();
    m_registration.setAutorun(m_services.module.optionIsOn(Option::StartWithSession));
}

void Form8::Form8_Image2_Click()
{
    storeOptions();
    if (m_services.reachesDesktop) {
        registerWithDesktop();
    }
    accept();
}

void Form8::Form8_Image1_Click()
{
    reject();
}

/// Return in the box adds what stands there and does not close the dialog.
bool Form8::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Text1 && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Command1->click();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

// No child of the main window: the skin's style sheet would reach the dialog, which follows the
// desktop.
bool showOptions(OptionsServices& services, QWidget* window)
{
    Form8 dialog(services);
    if (window != nullptr && window->windowHandle() != nullptr) {
        dialog.winId();
        dialog.windowHandle()->setTransientParent(window->windowHandle());
    }
    return dialog.exec() == QDialog::Accepted;
}

} // namespace orvanta
