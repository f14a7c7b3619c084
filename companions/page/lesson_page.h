// A lesson as one page for any browser: no script on the server, nothing from elsewhere.
#pragma once

#include "model/practice.h"
#include "model/texts.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace orvanta {

/// A file that the page plays or shows.
struct PageSource
{
    QString file; // relative to the page, with "/"; not encoded
    QString type; // as a browser is asked ("video/webm; codecs=\"vp9, opus\""); empty: not known
};

struct PageMedia
{
    std::vector<PageSource> sources; // the best first; empty: the clip is missing
    bool hasPicture = true;          // false: sound only
};

/// A clip, or a brake of a packet with brakes.
struct PageLine
{
    QString text;
    bool isChecked = true;
    std::optional<double> seconds = {}; // of brakes; none where the time cannot be read
    PageMedia media = {};               // of clips
};

struct PagePacket
{
    QString title;
    QString picture; // relative to the page, with "/"; empty: none
    bool isChecked = true;
    bool hasBrakes = false;
    PageMedia media = {}; // of a packet with brakes
    std::vector<PageLine> lines;
};

/// What the page begins with; its user may change all of it.
struct PageOptions
{
    bool nextClip = true;
    bool nextPacket = true;
    bool replay = false;
    Practice practice;
    std::optional<TextLanguage> language; // none: the browser's
};

struct PageLesson
{
    QString title;
    std::vector<PagePacket> packets;
    PageOptions options;
};

/// The whole page, in UTF-8. Texts are never markup in it, whatever stands in them; its style and
/// its script are allowed by their sums, others are not.
[[nodiscard]] QByteArray lessonPage(const PageLesson& lesson);

} // namespace orvanta
