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

QStringList MainWindow::rows()
{
    QStringList texts;
    if (const auto list = control(u"list"_s, u"Playlist"_s)) {
        for (const Accessible& row : list->children()) {
            texts.append(row.name());
        }
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
