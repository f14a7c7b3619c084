// The submenus of sound and subtitles.
#pragma once

#include "model/texts.h"

#include <QObject>

class QMenu;

namespace orvanta {

class TrackControls;
struct TrackEntry;

/// Two submenus at the end of a menu, grey where there is nothing to choose.
class TrackMenus : public QObject
{
    Q_OBJECT

public:
    /// tracks: null in a program without a choice.
    TrackMenus(QMenu& parent, TrackControls* tracks);

    void setLanguage(TextLanguage language);
    /// As the clip has them now.
    void refresh();
    /// Whether there is anything to choose in the clip that is open.
    [[nodiscard]] static bool isChoice(const TrackControls& tracks);
    [[nodiscard]] QMenu& sound() const { return *m_sound; }
    [[nodiscard]] QMenu& subtitles() const { return *m_subtitles; }

private:
    using Choose = void (TrackControls::*)(std::size_t entry);
    void fill(QMenu& menu, const std::vector<TrackEntry>& entries, Choose choose);

    TrackControls* m_tracks;
    QMenu* m_sound;
    QMenu* m_subtitles;
};

} // namespace orvanta
