// Collects the lines of one log category while it lives.
#pragma once

#include <QLoggingCategory>
#include <QString>
#include <QStringList>

#include <mutex>

namespace orvanta::test {

class LogCapture
{
public:
    explicit LogCapture(const char* category)
    {
        {
            const std::lock_guard lock(s_mutex);
            s_category = QLatin1String(category);
            s_lines.clear();
        }
        QLoggingCategory::setFilterRules(QLatin1String(category) + QLatin1String("=true"));
        m_previous = qInstallMessageHandler(collect);
    }
    ~LogCapture()
    {
        qInstallMessageHandler(m_previous);
        QLoggingCategory::setFilterRules({});
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    [[nodiscard]] static QStringList lines()
    {
        const std::lock_guard lock(s_mutex);
        return s_lines;
    }

private:
    // From any thread.
    static void collect(QtMsgType, const QMessageLogContext& context, const QString& text)
    {
        const std::lock_guard lock(s_mutex);
        if (context.category != nullptr && s_category == QLatin1String(context.category)) {
            s_lines.append(text);
        }
    }

    inline static std::mutex s_mutex; // guards both
    inline static QString s_category;
    inline static QStringList s_lines;
    QtMessageHandler m_previous = nullptr;
};

} // namespace orvanta::test
