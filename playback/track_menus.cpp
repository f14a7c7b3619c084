#include "playback/track_menus.h"

#include "core/error_boundary.h"
#include "playback/track_controls.h"

#include <QActionGroup>
#include <QMenu>

#include <functional>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr std::size_t kChoice = 2; // of one thing there is none

TrackMenus::TrackMenus(QMenu& parent, TrackControls* tracks)
    : QObject(&parent),
      m_tracks(tracks),
      m_sound(parent.addMenu(QString())),
      m_subtitles(parent.addMenu(QString()))
{
    refresh();
}

void TrackMenus::setLanguage(TextLanguage language)
{
    m_sound->setTitle(interfaceText(u"Tracks", u"sound", language));
    m_subtitles->setTitle(interfaceText(u"Tracks", u"subtitles", language));
}

bool TrackMenus::isChoice(const TrackControls& tracks)
{
    return tracks.sounds().size() >= kChoice || tracks.subtitles().size() >= kChoice;
}

void TrackMenus::refresh()
{
    fill(*m_sound, m_tracks != nullptr ? m_tracks->sounds() : std::vector<TrackEntry>(),
         &TrackControls::chooseSound);
    fill(*m_subtitles, m_tracks != nullptr ? m_tracks->subtitles() : std::vector<TrackEntry>(),
         &TrackControls::chooseSubtitles);
}

/// What a file says stands there as it is: none of it is an access key.
void TrackMenus::fill(QMenu& menu, const std::vector<TrackEntry>& entries, Choose choose)
{
    menu.clear();
    qDeleteAll(menu.findChildren<QActionGroup*>());
    auto* group = new QActionGroup(&menu);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        QAction* entry = menu.addAction(QString(entries[i].text).replace(u"&"_s, u"&&"_s));
        entry->setCheckable(true);
        entry->setChecked(entries[i].chosen);
        group->addAction(entry);
        connect(entry, &QAction::triggered, this, [this, i, choose] {
            resumeNext("choosing a track", [&] { std::invoke(choose, *m_tracks, i); });
        });
    }
    menu.menuAction()->setEnabled(entries.size() >= kChoice);
}

} // namespace orvanta
