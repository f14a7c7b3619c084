// A real browser without a window, driven as a person would: by keys, clicks and touches.
#pragma once

#include "tests/e2e/support/wait.h"

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

namespace orvanta::test {

/// A key by its name in a browser ("PageDown", "F7", " ", "k") with those that are held.
struct BrowserKeyPress
{
    QString key;
    bool ctrl = false;
    bool shift = false;
};

class Browser
{
public:
    Browser() = default;
    virtual ~Browser() = default;
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;

    /// False when the browser could not be started.
    [[nodiscard]] virtual bool isReady() const = 0;
    [[nodiscard]] virtual QString name() const = 0;

    /// Returns when the page is loaded.
    virtual void open(const QString& address) = 0;
    /// The value of an expression, or of the promise that it is.
    [[nodiscard]] virtual QJsonValue evaluate(const QString& expression) = 0;
    virtual void press(const BrowserKeyPress& key) = 0;
    void press(const QString& key) { press(BrowserKeyPress{.key = key}); }
    /// Pixels of the page.
    virtual void click(QPoint place) = 0;
    virtual void tap(QPoint place) = 0;
    /// The inner size of the window. isPhone: it has a touch screen and no pointer.
    virtual void resize(QSize size, bool isPhone) = 0;
    /// PNG of what is to be seen.
    [[nodiscard]] virtual QByteArray screenshot() = 0;
    /// Errors of the script and whatever the page's own rules have refused, since it was opened.
    [[nodiscard]] virtual QStringList complaints() = 0;
    /// What only the browser itself can tell, by its own protocol; nothing where it has none.
    virtual QJsonObject ask(const QString& /*method*/, const QJsonObject& /*parameters*/ = {})
    {
        return {};
    }

    [[nodiscard]] bool waitUntil(const QString& expression)
    {
        return e2e::waitFor([&] { return evaluate(expression).toBool(); });
    }
    /// The middle of the first element that matches.
    [[nodiscard]] QPoint placeOf(const QString& selector);
};

/// The address of the page of a file.
[[nodiscard]] QString addressOfFile(const QString& path);

[[nodiscard]] std::unique_ptr<Browser> startChromium();
/// By a user who may read what everybody may.
[[nodiscard]] std::unique_ptr<Browser> startChromiumAsPlainUser();
/// The same by a user without the administrator's rights, who reads what everybody may read.
[[nodiscard]] std::unique_ptr<Browser> startChromiumAsPlainUser();
[[nodiscard]] std::unique_ptr<Browser> startFirefox();

} // namespace orvanta::test
