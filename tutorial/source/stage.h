// What the lessons show: drawn windows and things, with one part in the light.
#pragma once

#include <QColor>
#include <QMap>
#include <QPainter>
#include <QString>

namespace tutorial {

inline constexpr int kWidth = 640;
inline constexpr int kHeight = 360;

inline const QColor kNight(0x14, 0x18, 0x1f);
inline const QColor kSurface(0x1b, 0x1f, 0x27);
inline const QColor kRaised(0x2a, 0x31, 0x3e);
inline const QColor kSunken(0x15, 0x19, 0x20);
inline const QColor kLine(0x3a, 0x44, 0x54);
inline const QColor kText(0xe6, 0xea, 0xf2);
inline const QColor kMuted(0x8e, 0x99, 0xab);
inline const QColor kAccent(0x4f, 0xb3, 0xa5);
inline const QColor kDeep(0x2d, 0x6f, 0x67);
inline const QColor kWarm(0xf2, 0xcf, 0x95);

/// Words in the lesson's language, by name.
using Words = QMap<QString, QString>;

/// A moment of a lesson.
struct Moment
{
    QString stage; // "window", "keys", "steps", "functions", "practice", "editing", "brakes",
                   // "editor", "marks", "group"
    QString focus; // a part of the stage; empty for none
    double share;  // of the sentence under way that is spoken, 0 to 1
};

/// Paints the stage and returns where the focus is; a null rectangle for none.
QRectF paintStage(QPainter& painter, const Moment& moment, const Words& words);

} // namespace tutorial
