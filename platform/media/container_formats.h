// The containers that the program opens, as FFmpeg's libraries call them.
#pragma once

namespace orvanta {

/// Containers that hold their own media. Lists of other files (playlists, segments, image
/// sequences) and whatever speaks to a network are not among them. The three of subtitles are for
/// files beside a clip; as a clip of their own they have nothing to play.
inline constexpr char kContainerFormats[] =
    "aac,ac3,aiff,amr,ape,asf,ass,au,avi,caf,dts,dtshd,dv,eac3,flac,flv,gif,h264,hevc,ivf,loas,m4v,"
    "matroska,mjpeg,mov,mp3,mpc,mpc8,mpeg,mpegts,mpegvideo,mxf,nsv,nut,obu,ogg,rm,srt,tak,tta,vc1,"
    "voc,w64,wav,webvtt,wv";

/// Those of files of subtitles.
inline constexpr char kSubtitleFormats[] = "ass,srt,webvtt";

} // namespace orvanta
