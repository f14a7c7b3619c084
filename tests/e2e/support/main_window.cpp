#include "tests/e2e/support/main_window.h"

#include "tests/e2e/support/wait.h"

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

MainWindow::MainWindow(Desktop& desktop, const Application& application)
    : m_desktop(desktop),
      m_bus(desktop),
      m_pid(application.pid())
{}

std::optional<Accessible> MainWindow::control(const QString& role, const QString& name)
{
    const QString key = role + u'/' + name;
    const auto known = m_known.constFind(key);
    if (known != m_known.constEnd()) {
        return *known;
    }
    std::optional<Accessible> found = m_bus.control(m_pid, role, name);
    if (found) {
        m_known.insert(key, *found);
    }
    return found;
}

void MainWindow::press(const QString& button)
{
    if (const auto found = control(u"push button"_s, button)) {
        m_desktop.click(found->place().center());
    }
}

bool MainWindow::isEnabled(const QString& button)
{
    const auto found = control(u"push button"_s, button);
    return found && found->isEnabled();
}

bool MainWindow::clickInOpening(const QStringList& before, MenuEntry entry)
{
    constexpr int kPadding = 4; // above the first entry and below the last
    QRect menu;
    const bool isOpen = waitFor([&] {
        QStringList opened = m_desktop.windowsOfPrograms();
        opened.removeIf([&](const QString& window) { return before.contains(window); });
        menu = opened.isEmpty() ? QRect() : m_desktop.placeOfWindow(opened.first());
        return menu.height() > 2 * kPadding;
    });
    const int all = menu.height() - 2 * kPadding;
    const int middle = all * (2 * entry.number - 1) / (2 * entry.of);
    if (isOpen) {
        m_desktop.click({menu.center().x(), menu.top() + kPadding + middle});
    }
    return isOpen;
}

bool MainWindow::clickInMenu(const QString& button, MenuEntry entry)
{
    const QStringList before = m_desktop.windowsOfPrograms();
    press(button);
    return clickInOpening(before, entry);
}

bool MainWindow::clickInSubmenu(const QString& button, MenuEntry submenu, MenuEntry entry)
{
    const QStringList before = m_desktop.windowsOfPrograms();
    press(button);
    if (!clickInOpening(before, submenu)) {
        return false;
    }
    // The menu itself stays: the submenu is the other new window.
    QStringList withMenu;
    const bool isOpen = waitFor([&] {
        withMenu = m_desktop.windowsOfPrograms();
        return withMenu.size() > before.size();
    });
    withMenu.removeIf([&](const QString& window) { return before.contains(window); });
    return isOpen && clickInOpening(before + withMenu.mid(0, 1), entry);
}

bool MainWindow::chooseFromMenu(const QString& button, int entry)
{
    // A menu is no part of what assistive technology is shown; its window can be seen all the same.
    press(button);
    if (!waitFor([this] { return m_desktop.openMenus() > 0; })) {
        return false;
    }
    for (int i = 0; i < entry; ++i) {
        m_desktop.press(u"Down"_s);
    }
    m_desktop.press(u"Return"_s);
    return true;
}

QString MainWindow::currentTime()
{
    const auto label = control(u"label"_s, u"Current time"_s);
    return label ? label->name() : QString();
}

QString MainWindow::clipLength()
{
    const auto label = control(u"label"_s, u"Length of clip"_s);
    return label ? label->name() : QString();
}

QString MainWindow::clipText()
{
    const auto line = control(u"text"_s, u"Current clip"_s);
    return line ? line->text() : QString();
}

QString MainWindow::findText()
{
    const auto line = control(u"text"_s, u"Find text"_s);
    return line ? line->text() : QString();
}

double MainWindow::slider(const QString& name)
{
    const auto found = control(u"slider"_s, name);
    return found ? found->value() : -1;
}

QPoint MainWindow::sliderCentre(const QString& name)
{
    const auto found = control(u"slider"_s, name);
    return found ? found->place().center() : QPoint();
}

void MainWindow::clickSlider(const QString& name, int percent)
{
    // The groove ends this many pixels before the control does, on both sides.
    constexpr int kKnobRadius = 7;
    if (const auto found = control(u"slider"_s, name)) {
        const QRect place = found->place();
        const int groove = place.width() - 2 * kKnobRadius;
        m_desktop.click({place.left() + kKnobRadius + groove * percent / 100, place.center().y()});
    }
}

std::vector<ListedLine> MainWindow::lines()
{
    std::vector<ListedLine> all;
    if (const auto list = control(u"list"_s, u"Playlist"_s)) {
        for (const Accessible& row : list->children()) {
            all.push_back({row.name().trimmed(), row.description() == u"Packet"_s});
        }
    }
    return all;
}

QStringList MainWindow::rows()
{
    QStringList texts;
    for (const ListedLine& line : lines()) {
        texts.append(line.text);
    }
    return texts;
}

int MainWindow::currentRow()
{
    const auto list = control(u"list"_s, u"Playlist"_s);
    const std::vector<Accessible> rows = list ? list->children() : std::vector<Accessible>();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].isSelected()) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void MainWindow::doubleClickRow(int row)
{
    const auto list = control(u"list"_s, u"Playlist"_s);
    const auto line = list ? list->child(row) : std::nullopt;
    if (line) {
        // Beside the check mark, on the text.
        m_desktop.doubleClick(line->place().center());
    }
}

QPoint MainWindow::listCentre()
{
    const auto list = control(u"list"_s, u"Playlist"_s);
    return list ? list->place().center() : QPoint();
}

void MainWindow::typeFindText(const QString& text)
{
    const auto line = control(u"text"_s, u"Find text"_s);
    if (!line) {
        return;
    }
    m_desktop.click(line->place().center());
    m_desktop.press(u"ctrl+a"_s);
    m_desktop.type(text);
    const bool typed = waitFor([&] { return line->text() == text; });
    if (!typed) {
        qWarning("the find box shows \"%s\"", qPrintable(line->text()));
    }
}

QString MainWindow::outline()
{
    const auto top = m_bus.program(m_pid);
    return top ? top->outline() : u"(nothing)"_s;
}

} // namespace orvanta::e2e
