// Paints a lesson: painter WORDS LESSON writes raw RGB frames (640 x 360, 15 a second) to standard
// output; painter WORDS LESSON SECONDS only the one at that time, without the subtitle.
//
// WORDS: lines "name=text". LESSON: lines "from<tab>to<tab>stage<tab>focus<tab>text", seconds.
#include "stage.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <vector>

namespace tutorial {

using namespace Qt::StringLiterals;

namespace {

constexpr double kFramesPerSecond = 15;
constexpr double kFade = 0.4; // seconds

struct Sentence
{
    double from = 0;
    double to = 0;
    QString stage;
    QString focus;
    QString text;
};

QStringList linesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s cannot be read", qPrintable(path));
    }
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

Words readWords(const QString& path)
{
    Words words;
    for (const QString& line : linesOf(path)) {
        words.insert(line.section(u'=', 0, 0), line.section(u'=', 1));
    }
    return words;
}

std::vector<Sentence> readLesson(const QString& path)
{
    std::vector<Sentence> sentences;
    for (const QString& line : linesOf(path)) {
        const QStringList cells = line.split(u'\t');
        sentences.push_back(
            {cells[0].toDouble(), cells[1].toDouble(), cells[2], cells[3], cells[4]});
    }
    return sentences;
}

/// 0 at 0, 1 at 1, smooth between.
double ease(double share)
{
    const double s = std::clamp(share, 0.0, 1.0);
    return s * s * (3 - 2 * s);
}

class Painter
{
public:
    Painter(Words words, std::vector<Sentence> sentences)
        : m_words(std::move(words)),
          m_sentences(std::move(sentences))
    {}

    [[nodiscard]] double length() const { return m_sentences.back().to; }

    [[nodiscard]] QImage frame(double seconds, bool withText) const
    {
        const std::size_t at = sentenceAt(seconds);
        QImage image = scene(at, seconds);
        if (at > 0 && m_sentences[at].stage != m_sentences[at - 1].stage) {
            const double share = ease((seconds - m_sentences[at].from) / kFade);
            QPainter painter(&image);
            painter.setOpacity(1 - share);
            painter.drawImage(0, 0, scene(at - 1, m_sentences[at].from));
        }
        if (withText) {
            paintText(image, m_sentences[at], seconds);
        }
        return image;
    }

private:
    [[nodiscard]] std::size_t sentenceAt(double seconds) const
    {
        std::size_t at = 0;
        while (at + 1 < m_sentences.size() && seconds >= m_sentences[at + 1].from) {
            ++at;
        }
        return at;
    }

    [[nodiscard]] QImage scene(std::size_t at, double seconds) const
    {
        const Sentence& sentence = m_sentences[at];
        QImage image(kWidth, kHeight, QImage::Format_RGB32);
        image.fill(kNight);
        QPainter painter(&image);
        const double share =
            std::clamp((seconds - sentence.from) / (sentence.to - sentence.from), 0.0, 1.0);
        const QRectF focus =
            paintStage(painter, {sentence.stage, sentence.focus, ease(share)}, m_words);
        if (!focus.isNull()) {
            paintFocus(painter, focus, seconds - sentence.from);
        }
        return image;
    }

    /// A frame of light that closes in on its part.
    static void paintFocus(QPainter& painter, const QRectF& part, double seconds)
    {
        const double share = ease(seconds / 0.7);
        const double away = 4 + 26 * (1 - share);
        const QRectF frame = part.adjusted(-away, -away, away, away);
        for (int glow = 3; glow >= 1; --glow) {
            QColor light = kWarm;
            light.setAlphaF(static_cast<float>(share * (glow == 1 ? 1.0 : 0.16)));
            painter.setPen(QPen(light, glow == 1 ? 2.4 : 3.0 * glow));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(frame, 9, 9);
        }
    }

    static void paintText(QImage& image, const Sentence& sentence, double seconds)
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF strip(24, 314, kWidth - 48, 42);
        QFont font(u"DejaVu Sans"_s);
        font.setPixelSize(16);
        painter.setFont(font);
        painter.setOpacity(ease((seconds - sentence.from) / 0.25));
        painter.setPen(kText);
        painter.drawText(strip, Qt::AlignCenter | Qt::TextWordWrap, sentence.text);
    }

    Words m_words;
    std::vector<Sentence> m_sentences;
};

void write(const QImage& image)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
    for (int row = 0; row < rgb.height(); ++row) {
        std::fwrite(rgb.constScanLine(row), 3, static_cast<std::size_t>(rgb.width()), stdout);
    }
}

} // namespace

} // namespace tutorial

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 3) {
        qFatal("usage: painter WORDS LESSON [SECONDS]");
    }
    const tutorial::Painter painter(tutorial::readWords(arguments[1]),
                                    tutorial::readLesson(arguments[2]));
    if (arguments.size() > 3) {
        tutorial::write(painter.frame(arguments[3].toDouble(), false));
        return EXIT_SUCCESS;
    }
    const auto frames = static_cast<int>(painter.length() * tutorial::kFramesPerSecond);
    for (int frame = 0; frame < frames; ++frame) {
        tutorial::write(painter.frame(frame / tutorial::kFramesPerSecond, true));
    }
    return EXIT_SUCCESS;
}
