// A folder with a lesson's page and its clips, as a stick would hold it.
#pragma once

#include "companions/page/lesson_page.h"

#include <QTemporaryDir>

namespace orvanta::test {

class PageFolder
{
public:
    PageFolder();

    /// Copies one of the clips of the media tests here, under this name; relative to the page.
    PageMedia clip(const QString& source, const QString& name = {}) const;
    /// Writes the page; its path.
    QString write(const PageLesson& lesson) const;
    [[nodiscard]] QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

/// A line of a packet of clips.
[[nodiscard]] PageLine clipLine(const QString& text, const PageMedia& media);
/// A line of a packet with brakes; seconds of its clip.
[[nodiscard]] PageLine brakeLine(const QString& text, double seconds);
[[nodiscard]] PagePacket clipPacket(const QString& title, std::vector<PageLine> lines);
[[nodiscard]] PagePacket brakePacket(const QString& title, const PageMedia& media,
                                     std::vector<PageLine> lines);

} // namespace orvanta::test
