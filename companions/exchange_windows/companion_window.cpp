#include "companions/exchange_windows/companion_window.h"

#include "companions/exchange/exchange_texts.h"
#include "playback/spoken_focus.h"
#include "playback/window_roles.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QWindowStateChangeEvent>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr qint64 kMinimisedWithinMs = 15000; // the player looks for the window for ten seconds
constexpr int kRemarkLines = 5;

CompanionWindow::CompanionWindow(const QString& name, TextLanguage language)
    : Remarks(new QPlainTextEdit(this)),
      CloseButton(new QPushButton(this)),
      m_language(language),
      m_mayBeMinimised(!qEnvironmentVariableIsEmpty("ORVANTA_PROGRAM"))
{
    tellWindowRoles();
    setObjectName(name);
    setWindowTitle(text(name));
    setAcceptDrops(true);
    Remarks->setReadOnly(true);
    Remarks->setTabChangesFocus(true);
    Remarks->setMaximumHeight(Remarks->fontMetrics().lineSpacing() * (kRemarkLines + 1));
    Remarks->hide();
    connect(CloseButton, &QPushButton::clicked, this, &QWidget::close);
}

QString CompanionWindow::text(QStringView control) const
{
    return interfaceText(objectName(), control, m_language);
}

void CompanionWindow::nameControl(QWidget& control, QStringView name) const
{
    control.setObjectName(name.toString());
    if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
        button->setText(text(name));
    } else {
        control.setAccessibleName(text(name).remove(u'&').remove(u':'));
    }
    if (auto* box = qobject_cast<QComboBox*>(&control)) {
        speakChoice(*box);
    }
}

QLabel* CompanionWindow::labelFor(QWidget& control, QStringView name)
{
    nameControl(control, name);
    auto* label = new QLabel(text(name), this);
    label->setBuddy(&control);
    return label;
}

void CompanionWindow::showRemarks(const QStringList& lines)
{
    Remarks->setPlainText(lines.join(u'\n'));
    Remarks->setVisible(!lines.isEmpty());
}

void CompanionWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_sinceShown.isValid()) {
        m_sinceShown.start();
    }
}

void CompanionWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool isEarly =
        m_mayBeMinimised && m_sinceShown.isValid() && !m_sinceShown.hasExpired(kMinimisedWithinMs);
    if (event->type() == QEvent::WindowStateChange && isMinimized() && isEarly) {
        m_mayBeMinimised = false;
        // Not within the change that is still being told.
        QMetaObject::invokeMethod(
            this, [this] { comeUp(); }, Qt::QueuedConnection);
    }
}

void CompanionWindow::comeUp()
{
    setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    show();
    raise();
    activateWindow();
}

static QStringList localFiles(const QMimeData& data)
{
    QStringList files;
    for (const QUrl& address : data.urls()) {
        if (address.isLocalFile()) {
            files.append(address.toLocalFile());
        }
    }
    return files;
}

void CompanionWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!localFiles(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void CompanionWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    Q_EMIT dropped(localFiles(*event->mimeData()));
}

void CompanionWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

QStringList remarkLines(const std::vector<FileRemark>& leftOut,
                        const std::vector<FileRemark>& failures, TextLanguage language)
{
    constexpr std::size_t kMost = 1000; // nobody reads more
    QStringList lines;
    for (const FileRemark& remark : failures) {
        lines.append(remarkText(remark, language));
    }
    for (std::size_t i = 0; i < std::min(leftOut.size(), kMost); ++i) {
        lines.append(exchangeText(u"leftOut", language).arg(remarkText(leftOut[i], language)));
    }
    return lines;
}

} // namespace orvanta
