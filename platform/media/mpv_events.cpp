#include "core/log.h"
#include "platform/media/mpv_player.h"

#include <QPointer>

#include <cmath>
#include <cstring>

namespace orvanta {

constexpr unsigned kRequestBits = 8;
constexpr quint64 kRequestMask = (quint64{1} << kRequestBits) - 1;

template <typename Value>
static Value valueOf(const mpv_event_property& property, mpv_format format, Value otherwise)
{
    return property.format == format && property.data != nullptr
               ? *static_cast<const Value*>(property.data)
               : otherwise;
}

static const mpv_event_property& propertyOf(const mpv_event& event)
{
    return *static_cast<const mpv_event_property*>(event.data);
}

/// The number that the library gave to a file which it was told to load; -1 without one.
static qint64 entryOf(const mpv_event& event)
{
    const mpv_node& result = static_cast<const mpv_event_command*>(event.data)->result;
    if (event.error < 0 || result.format != MPV_FORMAT_NODE_MAP) {
        return -1;
    }
    for (int i = 0; i < result.u.list->num; ++i) {
        if (std::strcmp(result.u.list->keys[i], "playlist_entry_id") == 0) {
            return result.u.list->values[i].u.int64;
        }
    }
    return -1;
}

static void logMessage(const mpv_event& event)
{
    const auto* message = static_cast<const mpv_event_log_message*>(event.data);
    qCDebug(logPlayback).noquote() << message->prefix << QString::fromUtf8(message->text).trimmed();
}

quint64 MpvPlayer::idOf(Request request, quint64 serial)
{
    return serial << kRequestBits | request;
}

void MpvPlayer::observeProperties()
{
    m_mpv->observe("time-pos", MPV_FORMAT_DOUBLE, TimePosition);
    m_mpv->observe("duration", MPV_FORMAT_DOUBLE, ClipLength);
    m_mpv->observe("pause", MPV_FORMAT_FLAG, PauseState);
    m_mpv->observe("eof-reached", MPV_FORMAT_FLAG, EndOfFile);
    m_mpv->observe("current-ao", MPV_FORMAT_STRING, OutputName);
    m_mpv->observe("hwdec-current", MPV_FORMAT_STRING, DecoderName);
}

// A receiver of a signal may spin the event loop and so serve events from within, or end it all.
void MpvPlayer::serveEvents()
{
    const QPointer<MpvPlayer> alive(this);
    while (alive) {
        const mpv_event* event = m_mpv->nextEvent();
        if (event == nullptr) {
            return;
        }
        serve(*event);
    }
}

void MpvPlayer::serve(const mpv_event& event)
{
    switch (event.event_id) {
    case MPV_EVENT_LOG_MESSAGE:
        logMessage(event);
        break;
    case MPV_EVENT_COMMAND_REPLY:
        serveCommand(event);
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
        serveAnswer(event);
        break;
    case MPV_EVENT_PROPERTY_CHANGE:
        serveProperty(event);
        break;
    case MPV_EVENT_START_FILE:
        m_startedEntry = static_cast<const mpv_event_start_file*>(event.data)->playlist_entry_id;
        entryBegan();
        break;
    case MPV_EVENT_END_FILE:
        endOfEntry(*static_cast<const mpv_event_end_file*>(event.data));
        break;
    case MPV_EVENT_SEEK:
        m_seek.started();
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        playbackRestarted();
        break;
    default:
        break;
    }
}

void MpvPlayer::serveCommand(const mpv_event& event)
{
    const quint64 serial = event.reply_userdata >> kRequestBits;
    const quint64 request = event.reply_userdata & kRequestMask;
    if (request == LoadFile && serial == m_load) {
        m_entry = entryOf(event);
        if (m_entry < 0) {
            failOpening(QString::fromUtf8(mpv_error_string(event.error)));
        } else {
            entryBegan();
        }
    } else if (request == Seek && m_seek.isNewest(serial)) {
        if (event.error < 0) {
            seekSettled();
        } else {
            m_seek.accepted(serial);
        }
    } else if (request == AddSubtitles && serial == m_load) {
        subtitlesAdded(event.error);
    } else if (request == PictureOff) {
        pictureIsOff();
    } else if (serial == m_nextSerial) {
        serveNext(static_cast<Request>(request), event);
    }
}

/// What was asked about the next clip may have been given up since.
void MpvPlayer::serveNext(Request request, const mpv_event& event)
{
    if (request == NextFile && m_next.stage == NextClip::Appended) {
        m_next.entry = entryOf(event);
        m_next.stage = m_next.entry < 0 ? NextClip::None : NextClip::Appended;
    } else if (request == NextWithdrawn) {
        m_withdrawing = false;
    }
}

void MpvPlayer::serveAnswer(const mpv_event& event)
{
    const quint64 serial = event.reply_userdata >> kRequestBits;
    const auto request = static_cast<Request>(event.reply_userdata & kRequestMask);
    if (request == SubtitlesMoved) {
        m_picture.drawAgain();
    } else if (request == PauseLook) {
        takeLook(valueOf(propertyOf(event), MPV_FORMAT_FLAG, 0) != 0, serial);
    } else if (request == NextPosition && serial == m_nextSerial) {
        const double place = valueOf(propertyOf(event), MPV_FORMAT_DOUBLE, std::nan(""));
        takeNextPosition(std::isnan(place) ? std::nullopt : std::optional(place));
    } else if (serial == m_load) {
        serveFact(request, event);
    }
}

void MpvPlayer::serveFact(Request fact, const mpv_event& event)
{
    const mpv_event_property& property = propertyOf(event);
    switch (fact) {
    case FileFormat: {
        const QByteArray format(valueOf<const char*>(property, MPV_FORMAT_STRING, ""));
        m_unseekable = isUnseekable(format);
        m_rewindsByReload = m_unseekable;
        m_mpv->set("hr-seek-demuxer-offset", seekHeadStart(format));
        break;
    }
    case Length:
        takeDuration(valueOf(property, MPV_FORMAT_DOUBLE, 0.0));
        break;
    case Tracks:
    case NewTracks:
        takeTracks(valueOf(property, MPV_FORMAT_NODE, mpv_node{}));
        break;
    case PictureWidth:
        m_pictureSize.setWidth(static_cast<int>(valueOf(property, MPV_FORMAT_INT64, qint64{0})));
        break;
    case PictureHeight:
        m_pictureSize.setHeight(static_cast<int>(valueOf(property, MPV_FORMAT_INT64, qint64{0})));
        finishOpening();
        break;
    case PositionNow:
        moveTo(valueOf(property, MPV_FORMAT_DOUBLE, m_position));
        break;
    default:
        break;
    }
}

void MpvPlayer::serveProperty(const mpv_event& event)
{
    if (event.reply_userdata == OutputName) {
        const auto* name = valueOf<const char*>(propertyOf(event), MPV_FORMAT_STRING, "");
        return m_sound.outputIs(name);
    }
    if (event.reply_userdata == DecoderName) {
        m_decoder = QString::fromUtf8(valueOf(propertyOf(event), MPV_FORMAT_STRING, ""));
        return;
    }
    // Before the file is open the values may still be those of the file before.
    if (m_phase != Ready || m_reloading || isAhead()) {
        return;
    }
    const mpv_event_property& property = propertyOf(event);
    switch (event.reply_userdata) {
    case TimePosition:
        moveTo(valueOf(property, MPV_FORMAT_DOUBLE, m_position));
        break;
    case ClipLength:
        takeDuration(valueOf(property, MPV_FORMAT_DOUBLE, 0.0));
        break;
    default:
        lookForEnd();
        break;
    }
}

void MpvPlayer::playbackRestarted()
{
    const bool opening = m_phase == Opening || m_reloading;
    if (opening && !m_factsAsked && hasBegun()) {
        askFacts();
    } else if (m_next.stage == NextClip::Playing && m_startedEntry == m_next.entry) {
        m_next.begun = true;
        lookAhead();
    } else if (m_seek.playing()) {
        seekSettled();
    }
}

} // namespace orvanta
