#include "app/run_time_report.h"

#include "core/spoilt_count.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QWidget>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace orvanta {

using namespace Qt::StringLiterals;

QString reportAdvice(const RuntimeError& error, TextLanguage language)
{
    const auto* count = dynamic_cast<const SpoiltCount*>(&error);
    if (count == nullptr) {
        return {};
    }
    const SpoiltCount::Place& place = count->place();
    return interfaceText(u"RunTimeReport", u"spoiltCount", language)
        .arg(place.file, place.section, place.key, count->value());
}

QString reportLine(const RuntimeError& error)
{
    return error.report().replace(u":\n\n"_s, u": "_s);
}

std::unique_ptr<QMessageBox> reportDialog(const RuntimeError& error, TextLanguage language)
{
    const QString advice = reportAdvice(error, language);
    const QString text = advice.isEmpty() ? error.report() : error.report() + u"\n\n"_s + advice;
    auto dialog =
        std::make_unique<QMessageBox>(QMessageBox::Critical, u"Orvanta"_s, text, QMessageBox::Ok);
    dialog->setTextFormat(Qt::PlainText);
    dialog->setEscapeButton(QMessageBox::Ok);
    return dialog;
}

Standstill::Standstill()
{
    qApp->installEventFilter(this);
}

/// The desktop's own objects go on: the dialog needs them.
static bool belongsToProgram(const QObject* object)
{
    return std::strncmp(object->metaObject()->className(), "orvanta::", 9) == 0;
}

static bool isTimer(const QObject* object)
{
    return object->inherits("QTimer") || object->inherits("QSingleShotTimer");
}

bool Standstill::eventFilter(QObject* receiver, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Timer:
        return belongsToProgram(receiver) || isTimer(receiver);
    case QEvent::MetaCall:
        return belongsToProgram(receiver);
    default:
        return false;
    }
}

static void letSignalsEndTheProcess()
{
    for (const int signal : std::array{SIGTERM, SIGINT, SIGHUP}) {
        std::signal(signal, SIG_DFL);
    }
}

static void sayOnStandardError(const RuntimeError& error)
{
    std::fprintf(stderr, "%s\n", reportLine(error).toLocal8Bit().constData());
    const QString advice = reportAdvice(error, TextLanguage::English);
    if (!advice.isEmpty()) {
        std::fprintf(stderr, "%s\n", advice.toLocal8Bit().constData());
    }
    std::fflush(stderr);
}

/// These platforms draw into memory.
static bool hasVisibleScreen()
{
    const QString platform = QGuiApplication::platformName();
    return !platform.isEmpty() && platform != u"offscreen" && platform != u"minimal";
}

static void hideWindows()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        window->hide();
    }
}

void RunTimeReport::showDialog(const RuntimeError& error) const
{
    hideWindows(); // a modal one among them would keep the input to itself
    reportDialog(error, m_language ? m_language() : TextLanguage::English)->exec();
}

void RunTimeReport::operator()(const RuntimeError& error) const
{
    static bool reporting = false;
    sayOnStandardError(error);
    if (!reporting) {
        reporting = true;
        letSignalsEndTheProcess();
        const Standstill standstill;
        m_release();
        if (hasVisibleScreen()) {
            showDialog(error);
        }
    }
    // Not exit(): handlers further up the stack still use what its destructors would take away.
    std::fflush(nullptr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace orvanta
