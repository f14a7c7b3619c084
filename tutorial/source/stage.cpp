#include "stage.h"

#include <QPainterPath>

#include <cmath>

namespace tutorial {

using namespace Qt::StringLiterals;

namespace {

/// Draws with named parts, so that one of them can be shown.
class Stage
{
public:
    Stage(QPainter& painter, const Words& words)
        : m_painter(painter),
          m_words(words)
    {}

    void box(const QRectF& place, const QColor& fill, double radius = 5,
             const QColor& border = Qt::transparent)
    {
        m_painter.setPen(border.alpha() == 0 ? QPen(Qt::NoPen) : QPen(border, 1.2));
        m_painter.setBrush(fill);
        m_painter.drawRoundedRect(place, radius, radius);
    }

    void part(const QString& name, const QRectF& place) { m_parts.insert(name, place); }

    void label(double x, double baseline, const QString& text, const QColor& colour, int size = 12,
               bool bold = false)
    {
        QFont font(u"DejaVu Sans"_s);
        font.setPixelSize(size);
        font.setBold(bold);
        m_painter.setFont(font);
        m_painter.setPen(colour);
        m_painter.drawText(QPointF(x, baseline), text);
    }

    void centred(const QRectF& place, const QString& text, const QColor& colour, int size = 12)
    {
        QFont font(u"DejaVu Sans"_s);
        font.setPixelSize(size);
        m_painter.setFont(font);
        m_painter.setPen(colour);
        m_painter.drawText(place, Qt::AlignCenter, text);
    }

    void triangle(double x, double y, double size, const QColor& colour)
    {
        QPainterPath path(QPointF(x, y));
        path.lineTo(x, y + size);
        path.lineTo(x + size * 0.85, y + size / 2);
        path.closeSubpath();
        m_painter.fillPath(path, colour);
    }

    void line(double x1, double y1, double x2, double y2, const QColor& colour, double width = 1.5,
              Qt::PenStyle style = Qt::SolidLine)
    {
        m_painter.setPen(QPen(colour, width, style, Qt::RoundCap));
        m_painter.drawLine(QPointF(x1, y1), QPointF(x2, y2));
    }

    void disc(double x, double y, double radius, const QColor& colour)
    {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(colour);
        m_painter.drawEllipse(QPointF(x, y), radius, radius);
    }

    [[nodiscard]] QString word(const QString& name) const { return m_words.value(name, name); }
    [[nodiscard]] QRectF partNamed(const QString& name) const { return m_parts.value(name); }

private:
    QPainter& m_painter;
    const Words& m_words;
    QMap<QString, QRectF> m_parts;
};

void checkBox(Stage& s, double x, double y, bool checked)
{
    s.box({x, y, 10, 10}, Qt::transparent, 2, kAccent);
    if (checked) {
        s.line(x + 2.5, y + 5, x + 4.5, y + 7.5, kAccent);
        s.line(x + 4.5, y + 7.5, x + 8, y + 2.5, kAccent);
    }
}

void titleRow(Stage& s)
{
    s.label(142, 34, u"!Orvanta!"_s, kText, 13, true);
    s.line(480, 30, 489, 30, kMuted);
    s.line(502, 26, 510, 34, kMuted);
    s.line(510, 26, 502, 34, kMuted);
}

void commandRow(Stage& s)
{
    const QStringList names = {u"open_clip"_s, u"open_file"_s, u"new"_s, u"tools"_s, u"help"_s};
    double x = 126;
    for (const QString& name : names) {
        s.box({x, 44, 28, 26}, kRaised);
        s.part(name, {x, 44, 28, 26});
        x += name == u"open_file"_s ? 44 : 34;
    }
    s.triangle(136, 52, 10, kText);
    s.box({167, 53, 14, 9}, Qt::transparent, 1.5, kText);
    s.line(212, 57, 224, 57, kText);
    s.line(218, 51, 218, 63, kText);
    for (int row = 0; row < 3; ++row) {
        s.line(246, 52 + row * 5, 258, 52 + row * 5, kText);
    }
    s.centred({272, 44, 28, 26}, u"?"_s, kText, 15);
    s.box({372, 44, 142, 26}, kRaised);
    s.label(382, 61, s.word(u"find"_s), kMuted, 11);
    s.part(u"find"_s, {372, 44, 142, 26});
}

void listRows(Stage& s, bool cleared)
{
    const QStringList rows = {u"!Orvanta!"_s,
                              u"|--  "_s + s.word(u"p1"_s),
                              u"|   |-  "_s + s.word(u"c1"_s),
                              u"|   |-  "_s + s.word(u"c2"_s),
                              u"|--  "_s + s.word(u"p2"_s),
                              u"     |-  "_s + s.word(u"c3"_s)};
    for (int row = 0; row < rows.size(); ++row) {
        const double y = 132 + row * 17;
        if (row == 3) {
            s.box({130, y - 2, 380, 16}, kDeep, 3);
        }
        if (row > 0) {
            checkBox(s, 138, y + 1, row != 5 || !cleared);
        }
        const bool isOff = row == 0 || (row == 5 && cleared);
        s.label(158, y + 10, rows[row], isOff ? kMuted : kText, 11);
    }
    s.part(u"list"_s, {126, 124, 388, 112});
    s.part(u"line"_s, {134, 184, 372, 10});
    s.part(u"box"_s, {136, 216, 14, 14});
}

void transport(Stage& s, double share)
{
    s.label(126, 257, u"4.20"_s, kText, 11);
    s.line(166, 253, 470, 253, kLine, 4);
    s.line(166, 253, 220 + share * 40, 253, kAccent, 4);
    s.disc(220 + share * 40, 253, 6, kText);
    s.label(484, 257, u"12.80"_s, kMuted, 11);
    s.part(u"slider"_s, {160, 244, 316, 18});
    s.box({126, 268, 32, 30}, kRaised);
    s.box({138, 279, 8, 8}, kText, 1);
    s.box({164, 268, 32, 30}, kRaised);
    s.line(177, 278, 177, 288, kText, 2.6);
    s.line(183, 278, 183, 288, kText, 2.6);
    s.disc(220, 283, 18, kAccent);
    s.triangle(215, 275, 16, kNight);
    s.part(u"transport"_s, {122, 267, 120, 34});
    s.line(400, 283, 500, 283, kLine, 4);
    s.line(400, 283, 480, 283, kAccent, 4);
    s.disc(480, 283, 6, kText);
    s.part(u"volume"_s, {392, 272, 116, 22});
}

void window(Stage& s, const Moment& moment)
{
    s.box({112, 14, 416, 294}, kSurface, 10, kLine);
    titleRow(s);
    commandRow(s);
    s.box({126, 78, 388, 38}, kRaised, 7);
    s.label(140, 103, s.word(u"c2"_s), kText, 16);
    s.part(u"text"_s, {126, 78, 388, 38});
    s.box({126, 124, 388, 112}, kSunken, 7);
    listRows(s, moment.focus == u"box"_s && moment.share > 0.4);
    transport(s, moment.share);
}

void key(Stage& s, const QString& name, const QRectF& place, const QString& sign,
         const QString& meaning)
{
    s.box(place.translated(0, 4), kSunken, 8);
    s.box(place, kRaised, 8, kLine);
    s.centred(place, sign, kText, 17);
    s.centred({place.left() - 40, place.bottom() + 8, place.width() + 80, 18}, meaning, kMuted, 12);
    s.part(name, place);
}

void keys(Stage& s)
{
    key(s, u"space"_s, {86, 70, 220, 48}, s.word(u"space"_s), s.word(u"play_pause"_s));
    key(s, u"left"_s, {366, 70, 60, 48}, u"←"_s, u"−5 "_s + s.word(u"s"_s));
    key(s, u"right"_s, {496, 70, 60, 48}, u"→"_s, u"+5 "_s + s.word(u"s"_s));
    key(s, u"f11"_s, {86, 190, 70, 48}, u"F11"_s, s.word(u"full"_s));
    key(s, u"esc"_s, {236, 190, 70, 48}, u"Esc"_s, s.word(u"leave"_s));
    key(s, u"k"_s, {366, 190, 60, 48}, u"K"_s, s.word(u"set"_s));
    key(s, u"l"_s, {496, 190, 60, 48}, u"L"_s, s.word(u"go"_s));
    s.part(u"arrows"_s, {350, 62, 218, 92});
    s.part(u"screen"_s, {78, 182, 236, 92});
    s.part(u"bookmark"_s, {328, 182, 246, 92});
}

/// The keys that go from line to line.
void steps(Stage& s)
{
    key(s, u"page_up"_s, {78, 100, 136, 54}, u"Page Up"_s, s.word(u"back"_s));
    key(s, u"page_down"_s, {252, 100, 136, 54}, u"Page Down"_s, s.word(u"next"_s));
    key(s, u"again"_s, {426, 100, 136, 54}, u"Backspace"_s, s.word(u"again"_s));
    s.part(u"pages"_s, {66, 90, 334, 100});
}

/// The keys that change how the lines are played.
void functions(Stage& s)
{
    key(s, u"text"_s, {44, 100, 80, 54}, u"F5"_s, s.word(u"picture"_s));
    key(s, u"repeat"_s, {162, 100, 80, 54}, u"F6"_s, s.word(u"repeat"_s));
    key(s, u"slower"_s, {280, 100, 80, 54}, u"F7"_s, s.word(u"slower"_s));
    key(s, u"faster"_s, {398, 100, 80, 54}, u"F8"_s, s.word(u"faster"_s));
    key(s, u"wait"_s, {516, 100, 80, 54}, u"F9"_s, s.word(u"wait"_s));
    s.part(u"speed"_s, {268, 90, 222, 100});
}

constexpr double kMarks[] = {60, 230, 400, 560};

void markLines(Stage& s, int marks)
{
    for (int i = 0; i < marks; ++i) {
        const bool isEnd = i == 3;
        const double x = kMarks[i];
        s.line(x, 110, x, 190, isEnd ? kWarm : kAccent, 2.4, isEnd ? Qt::DashLine : Qt::SolidLine);
        s.label(isEnd ? x - 22 : x + 4, 216, s.word(u"b%1"_s.arg(i + 1)), isEnd ? kWarm : kText,
                14);
        s.part(u"mark%1"_s.arg(i + 1), {x - 16, 104, 96, 120});
    }
    s.part(u"mark4"_s, {526, 104, 70, 120});
}

/// The main window with what is practised beside the text, and the button for the rest.
void practice(Stage& s, const Moment& moment)
{
    window(s, moment);
    double x = 344;
    for (const QString& chip : {u"0.8 ×"_s, s.word(u"three_times"_s)}) {
        const double width = chip.size() < 7 ? 60 : 88;
        s.box({x, 86, width, 22}, kSurface, 11, kAccent);
        s.centred({x, 86, width, 22}, chip, kText, 11);
        x += width + 8;
    }
    s.part(u"chips"_s, {338, 82, 168, 30});
    s.box({250, 268, 32, 30}, kRaised);
    s.box({260, 278, 12, 12}, Qt::transparent, 6, kText); // a stop-watch
    s.line(263, 275, 269, 275, kText);
    s.line(266, 281, 266, 284, kText);
    s.line(266, 284, 268, 285.5, kText);
    s.part(u"button"_s, {250, 268, 32, 30});
}

/// The row of buttons that editing has instead of those for opening.
void editingRow(Stage& s)
{
    double x = 126;
    for (const QString& name : {u"mark"_s, u"undo"_s, u"keep"_s}) {
        const double width = name == u"undo"_s ? 34 : 112;
        const bool isMark = name == u"mark"_s;
        s.box({x, 44, width, 28}, isMark ? kAccent : kRaised, 6);
        if (name == u"undo"_s) {
            s.centred({x, 44, width, 28}, u"↶"_s, kText, 17);
        } else {
            s.centred({x, 44, width, 28}, s.word(name), isMark ? kNight : kText, 12);
        }
        s.part(name, {x, 44, width, 28});
        x += width + 10;
    }
}

/// The lines with their times; the text of the third is being typed.
void editedLines(Stage& s, const Moment& moment)
{
    s.box({126, 80, 388, 78}, kSunken, 7);
    const QStringList times = {u"0:00.00"_s, u"0:04.00"_s, u"0:08.00"_s};
    for (int row = 0; row < times.size(); ++row) {
        const double y = 88 + row * 23.0;
        const bool isTyped = row == 2 && moment.focus == u"typed"_s;
        if (row == 2) {
            s.box({132, y - 3, 376, 21}, kDeep, 3);
        }
        const QString text = s.word(u"b%1"_s.arg(row + 1));
        if (isTyped) {
            const QString typed = text.left(qRound(double(text.size()) * moment.share));
            s.box({138, y - 2, 290, 19}, kSunken, 3, kAccent);
            s.label(144, y + 12, typed + u'|', kText, 12);
        } else {
            s.label(144, y + 12, text, kText, 12);
        }
        s.label(452, y + 12, times[row], row == 2 ? kText : kMuted, 11);
    }
    s.part(u"typed"_s, {132, 131, 300, 21});
    s.part(u"time"_s, {440, 131, 70, 21});
}

/// The strip: the clip's sound with the marks in it; the third is drawn along when it is spoken of.
void soundStrip(Stage& s, const Moment& moment)
{
    s.box({126, 168, 388, 74}, kSunken, 7);
    constexpr int kBars = 120;
    for (int bar = 0; bar < kBars; ++bar) {
        const double x = 134 + bar * 372.0 / kBars;
        const double loud = 4 + 20 * std::abs(std::sin(bar * 0.31) * std::sin(bar * 0.047 + 0.6));
        s.line(x, 205 - loud, x, 205 + loud, bar < 40 ? kAccent : kLine, 1.4);
    }
    const double drawn = moment.focus == u"strip"_s ? 18 * std::sin(moment.share * 3.14159) : 0;
    const double places[] = {140, 250, 362 + drawn, 494};
    for (int mark = 0; mark < 4; ++mark) {
        const bool isEnd = mark == 3;
        s.line(places[mark], 170, places[mark], 240, isEnd ? kWarm : kText, 2);
        s.box({places[mark] - 1, 170, 16, 14}, isEnd ? kWarm : kText, 2);
        s.centred({places[mark] - 1, 170, 16, 14}, isEnd ? u"■"_s : QString::number(mark + 1),
                  kNight, 10);
    }
    s.part(u"strip"_s, {126, 168, 388, 74});
}

/// The main window while a lesson is edited.
void editing(Stage& s, const Moment& moment)
{
    s.box({112, 14, 416, 294}, kSurface, 10, kLine);
    titleRow(s);
    editingRow(s);
    editedLines(s, moment);
    soundStrip(s, moment);
    transport(s, moment.share);
    s.box({250, 268, 32, 30}, kDeep);
    s.line(261, 289, 263, 285, kText, 2);
    s.line(263, 285, 271, 277, kText, 3);
    s.part(u"pencil"_s, {250, 268, 32, 30});
}

/// One clip with its brakes; the position runs through the focused one.
void brakes(Stage& s, const Moment& moment)
{
    s.label(60, 84, s.word(u"clip"_s), kMuted, 14);
    s.box({60, 132, 520, 36}, kRaised, 18);
    markLines(s, 4);
    const int at = moment.focus == u"mark2"_s ? 1 : moment.focus == u"mark4"_s ? 3 : 0;
    const double from = at == 3 ? kMarks[2] : kMarks[at];
    const double to = at == 3 ? kMarks[3] : kMarks[at + 1];
    s.disc(from + (to - from) * moment.share, 150, 9, kText);
}

void fileList(Stage& s, const QString& head, const QStringList& files)
{
    s.box({30, 20, 580, 284}, kSurface, 10, kLine);
    s.label(46, 44, head, kText, 14, true);
    s.box({46, 58, 230, 232}, kSunken, 6);
    for (int row = 0; row < files.size(); ++row) {
        s.box({58, 74 + row * 32.0, 18, 18}, kRaised, 3);
        s.triangle(64, 78 + row * 32, 10, kAccent);
        s.label(86, 88 + row * 32, files[row], kText, 13);
    }
    s.part(u"files"_s, {46, 58, 230, 232});
}

/// The packet editor with a list of clips.
void editor(Stage& s)
{
    fileList(s, s.word(u"editor"_s),
             {u"welcome.mp4"_s, u"in.mp4"_s, u"hold.mp3"_s, u"out.mp4"_s, u"bell.ogg"_s});
    s.box({290, 58, 304, 130}, kSunken, 6);
    for (int row = 0; row < 3; ++row) {
        if (row == 1) {
            s.box({296, 66 + row * 30.0, 292, 24}, kDeep, 3);
        }
        s.label(306, 83 + row * 30, s.word(u"c%1"_s.arg(row + 1)), kText, 13);
    }
    s.part(u"clips"_s, {290, 58, 304, 130});
    s.label(290, 214, s.word(u"text"_s), kMuted, 12);
    s.box({340, 198, 254, 26}, kRaised, 4, kLine);
    s.label(350, 216, s.word(u"c2"_s), kText, 13);
    s.part(u"text"_s, {290, 196, 306, 30});
    s.box({290, 248, 180, 34}, kRaised, 6);
    s.centred({290, 248, 180, 34}, s.word(u"save"_s), kText, 13);
    s.part(u"save"_s, {290, 248, 180, 34});
    s.box({500, 248, 94, 34}, kAccent, 6);
    s.line(536, 265, 544, 273, kNight, 3);
    s.line(544, 273, 558, 257, kNight, 3);
    s.part(u"create"_s, {500, 248, 94, 34});
}

/// The packet editor with a preview and brakes.
void marks(Stage& s, const Moment& moment)
{
    fileList(s, s.word(u"editor"_s), {u"rhythm.mp4"_s});
    s.box({290, 58, 304, 110}, kNight, 4);
    s.triangle(428, 98, 30, kAccent);
    const double knob = 330 + 180 * moment.share * (moment.focus == u"slider"_s ? 1 : 0.6);
    s.line(300, 184, 584, 184, kLine, 4);
    s.line(300, 184, knob, 184, kAccent, 4);
    s.disc(knob, 184, 7, kText);
    s.part(u"slider"_s, {290, 172, 304, 24});
    s.box({290, 204, 180, 26}, kRaised, 4, kLine);
    s.label(300, 222, s.word(u"b2"_s), kText, 13);
    s.box({480, 204, 114, 26}, kRaised, 4);
    s.centred({480, 204, 114, 26}, s.word(u"add"_s), kText, 12);
    s.part(u"add"_s, {286, 200, 312, 34});
    s.box({290, 240, 304, 50}, kSunken, 4);
    s.label(300, 257, u"000000.00   "_s + s.word(u"b1"_s), kText, 12);
    s.label(300, 276, u"000006.00   "_s + s.word(u"b4"_s), kWarm, 12);
    s.part(u"brakes"_s, {290, 240, 304, 50});
}

void picture(Stage& s, double x, double y)
{
    s.box({x, y, 96, 60}, kDeep, 6, kAccent);
    s.disc(x + 28, y + 20, 8, kWarm);
    s.line(x + 10, y + 50, x + 36, y + 28, kText, 2.5);
    s.line(x + 36, y + 28, x + 56, y + 44, kText, 2.5);
    s.line(x + 56, y + 44, x + 86, y + 22, kText, 2.5);
}

void group(Stage& s)
{
    s.box({60, 40, 520, 240}, kSurface, 10, kLine);
    for (int row = 0; row < 2; ++row) {
        const double y = 60 + row * 104;
        s.box({80, y, 480, 88}, kRaised, 8);
        picture(s, 94, y + 14);
        s.label(214, y + 36, s.word(u"p%1"_s.arg(row + 1)), kText, 18);
        s.label(214, y + 62, s.word(u"packet"_s), kMuted, 13);
    }
    s.part(u"packets"_s, {72, 52, 496, 212});
}

} // namespace

QRectF paintStage(QPainter& painter, const Moment& moment, const Words& words)
{
    painter.setRenderHint(QPainter::Antialiasing);
    Stage s(painter, words);
    if (moment.stage == u"window"_s) {
        window(s, moment);
    } else if (moment.stage == u"keys"_s) {
        keys(s);
    } else if (moment.stage == u"steps"_s) {
        steps(s);
    } else if (moment.stage == u"functions"_s) {
        functions(s);
    } else if (moment.stage == u"practice"_s) {
        practice(s, moment);
    } else if (moment.stage == u"editing"_s) {
        editing(s, moment);
    } else if (moment.stage == u"brakes"_s) {
        brakes(s, moment);
    } else if (moment.stage == u"editor"_s) {
        editor(s);
    } else if (moment.stage == u"marks"_s) {
        marks(s, moment);
    } else if (moment.stage == u"group"_s) {
        group(s);
    }
    return s.partNamed(moment.focus);
}

} // namespace tutorial
