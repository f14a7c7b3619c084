// Small media files of every kind that the tests play, made once by ffmpeg.
#pragma once

#include <QString>

namespace orvanta::e2e {

/// The path of a clip, made when it is not there yet; empty when it cannot be made. Known names:
///   video2.avi video2.mp4 video2.mkv video2.webm   2 s of picture and sound
///   video3.mp4                                     2.9 s of picture and sound
///   video15.mp4                                    15 s of picture and sound
///   brakes6.mp4                                    6 s of picture and sound
///   video200.mp4                                   200 s of picture and sound
///   film180.mp4                                    three minutes of picture and sound
///   red1.mp4 green1.mp4 blue1.mp4                  1 s of one colour and sound, of three sizes
///   silent2.mp4                                    2 s of picture
///   large20.mp4                                    20 s of a picture of 1280 by 720
///   sound2.mp3 sound2.ogg sound2.wav               2 s of sound
///   tone20.wav                                     20 s of a steady, loud tone
///   tone.wav tone.flac tone.mp3                    1.5 s of it, whole waves
///   tone.mp4                                       the same with a picture
///   short.avi short.mp4 short.mp3 short.wav        0.3 s
///   says_more.wav says_less.wav                    a header that names another length than the
///   file has variable.mp3                                   variable bit rate, no length in it
///   cut.mp4 cut.mkv cut.mp3 cut.avi                the first six tenths of a file
///   noise.avi                                      bytes that are no media
[[nodiscard]] QString media(const QString& name);

} // namespace orvanta::e2e
