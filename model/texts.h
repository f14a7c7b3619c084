// Every interface text, English and Russian, by window and control.
#pragma once

#include <QString>
#include <QStringView>

#include <span>

namespace orvanta {

enum class TextLanguage
{
    English,
    Russian,
};

struct InterfaceText
{
    QStringView window;
    QStringView control;
    QStringView english;
    QStringView russian;

    [[nodiscard]] QString in(TextLanguage language) const
    {
        return (language == TextLanguage::English ? english : russian).toString();
    }
};

/// The whole table, for tests.
[[nodiscard]] std::span<const InterfaceText> interfaceTexts();

/// The text of a window's control. An unknown pair is a programming error (asserts; empty text).
[[nodiscard]] QString interfaceText(QStringView window, QStringView control, TextLanguage language);

} // namespace orvanta
