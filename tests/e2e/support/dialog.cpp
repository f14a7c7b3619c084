#include "tests/e2e/support/dialog.h"

#include "tests/e2e/support/wait.h"

#include <cmath>
#include <utility>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

constexpr int kTypingAttempts = 5;
constexpr int kTypingMs = 5000;

Dialog::Dialog(Desktop& desktop, const Application& application, QString title)
    : m_desktop(desktop),
      m_bus(desktop),
      m_pid(application.pid()),
      m_title(std::move(title))
{}

std::optional<Accessible> Dialog::windowNow()
{
    const std::optional<Accessible> top = m_bus.program(m_pid);
    if (!top) {
        return std::nullopt;
    }
    // The main window bears the same title as the pickers.
    for (const Accessible& window : top->children()) {
        if (window.role() == u"dialog" && window.name() == m_title && window.isShowing()) {
            return window;
        }
    }
    return std::nullopt;
}

bool Dialog::isOpen()
{
    // A window that is not active yet may still be on its way to its place.
    return waitFor(
        [this] { return windowNow().has_value() && m_desktop.activeWindowTitle() == m_title; });
}

bool Dialog::isClosed()
{
    return waitFor([this] { return !windowNow().has_value(); });
}

std::optional<Accessible> Dialog::control(const QString& role, const QString& name)
{
    std::optional<Accessible> found;
    const bool there = waitFor([&] {
        const std::optional<Accessible> window = windowNow();
        found = window ? window->find([&](const Accessible& each) {
            return each.role() == role && each.name() == name && each.isShowing();
        })
                       : std::nullopt;
        return found.has_value();
    });
    if (!there) {
        qWarning("no %s \"%s\" in \"%s\"", qPrintable(role), qPrintable(name), qPrintable(m_title));
    }
    return there ? found : std::nullopt;
}

bool Dialog::click(const QString& role, const QString& name)
{
    const auto found = control(role, name);
    if (found) {
        m_desktop.click(found->place().center());
    }
    return found.has_value();
}

bool Dialog::press(const QString& button)
{
    return click(u"push button"_s, button);
}

bool Dialog::choose(const QString& radioButton)
{
    const auto found = control(u"radio button"_s, radioButton);
    if (!found) {
        return false;
    }
    const QRect place = found->place();
    m_desktop.click({place.left() + place.height() / 2, place.center().y()});
    return waitFor([&] { return found->isChecked(); });
}

/// Clicks it at its beginning, where its mark is.
static bool changesByClick(Desktop& desktop, const Accessible& control)
{
    const bool before = control.isChecked();
    const QRect place = control.place();
    desktop.click({place.left() + place.height() / 2, place.center().y()});
    return waitFor([&] { return control.isChecked() != before; });
}

bool Dialog::toggle(const QString& checkBox)
{
    const auto found = control(u"check box"_s, checkBox);
    return found && changesByClick(m_desktop, *found);
}

bool Dialog::toggleItem(const QString& list, const QString& name)
{
    const auto found = control(u"list"_s, list);
    const auto row = found ? item(*found, name, kPatienceMs) : std::nullopt;
    return row && changesByClick(m_desktop, *row);
}

bool Dialog::type(const QString& box, const QString& text)
{
    const auto found = control(u"text"_s, box);
    if (!found) {
        return false;
    }
    m_desktop.click(found->place().center());
    // The tool that types switches the keyboard's layout at each letter, and at times a letter
    // comes before the switch: then it is typed again, as a user would.
    for (int attempt = 0; attempt < kTypingAttempts; ++attempt) {
        m_desktop.press(u"ctrl+a"_s);
        m_desktop.type(text);
        if (waitFor([&] { return found->text() == text; }, kTypingMs)) {
            return true;
        }
        qWarning("\"%s\" shows \"%s\"", qPrintable(box), qPrintable(found->text()));
    }
    return false;
}

QString Dialog::textOf(const QString& box)
{
    const auto found = control(u"text"_s, box);
    return found ? found->text() : QString();
}

QString Dialog::label(const QString& name)
{
    const auto found = control(u"label"_s, name);
    return found ? found->name() : QString();
}

QStringList Dialog::items(const QString& list)
{
    QStringList names;
    if (const auto found = control(u"list"_s, list)) {
        for (const Accessible& each : found->children()) {
            names.append(each.name());
        }
    }
    return names;
}

std::optional<Accessible> Dialog::item(const Accessible& list, const QString& name, int limitMs)
{
    std::optional<Accessible> found;
    const bool there = waitFor(
        [&] {
            for (const Accessible& each : list.children()) {
                if (each.name() == name && !each.place().isEmpty()) {
                    found = each;
                    return true;
                }
            }
            return false;
        },
        limitMs);
    if (!there) {
        qWarning("\"%s\" is not listed", qPrintable(name));
    }
    return there ? found : std::nullopt;
}

bool Dialog::clickItem(const QString& list, const QString& name)
{
    const auto box = control(u"list"_s, list);
    const auto entry = box ? item(*box, name, kPatienceMs) : std::nullopt;
    if (entry) {
        m_desktop.click(entry->place().center());
    }
    return entry.has_value();
}

bool Dialog::openFolder(const QString& tree, const QStringList& names)
{
    const auto folders = control(u"tree"_s, tree);
    for (qsizetype i = 0; folders && i < names.size(); ++i) {
        const auto folder = item(*folders, names[i], kPatienceMs);
        if (!folder) {
            return false;
        }
        m_desktop.click(folder->place().center());
        const bool isLast = i + 1 == names.size();
        if (!waitFor([&] { return folder->isSelected(); }) ||
            !(isLast || expand(*folders, names[i + 1]))) {
            return false;
        }
    }
    return folders.has_value();
}

/// Opens the selected folder, in which there is one of this name.
bool Dialog::expand(const Accessible& folders, const QString& child)
{
    return waitFor([&] {
        m_desktop.press(u"Right"_s);
        return item(folders, child, kTypingMs).has_value();
    });
}

double Dialog::slider(const QString& name)
{
    const auto found = control(u"slider"_s, name);
    return found ? found->value() : -1;
}

bool Dialog::drag(const QString& name, int percent)
{
    const auto found = control(u"slider"_s, name);
    if (!found) {
        return false;
    }
    const QRect place = found->place();
    const auto at = [&](int part) {
        return QPoint(place.left() + place.width() * part / 100, place.center().y());
    };
    const int from = percent > 50 ? percent - 20 : percent + 20;
    m_desktop.drag({at(from), at((from + percent) / 2), at(percent)});
    return true;
}

std::string Dialog::outline()
{
    const auto window = windowNow();
    return window ? window->outline().toStdString() : "(not open)";
}

} // namespace orvanta::e2e
