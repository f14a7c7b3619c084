// Paints the moving pictures of the sample clips: painter SCENE SECONDS writes raw RGB frames
// (640 x 360, 25 a second) to standard output, painter SCENE SECONDS AT only the one at that time.
#include "canvas.h"

#include <cstdlib>
#include <cstring>
#include <string>

namespace samples {

namespace {

constexpr Colour kAccent = hex(0x4fb3a5);
constexpr Colour kMint = hex(0x9fe5d8);
constexpr Colour kDeep = hex(0x1f5a54);
constexpr Colour kWarm = hex(0xf2cf95);
constexpr Colour kRose = hex(0xe59aa6);
constexpr Colour kMist = hex(0xe6eaf2);
constexpr Point kCentre{320, 162};

struct Moment
{
    double seconds = 0; // since the clip's beginning
    double length = 0;  // the clip's length, seconds
};

void quietRoom(Canvas& canvas, double seconds)
{
    canvas.verticalGradient(hex(0x262d3a), hex(0x13161c));
    canvas.glow({150 + 40 * std::sin(seconds * 0.31), 110}, 210, kDeep, 0.30);
    canvas.glow({510 + 40 * std::cos(seconds * 0.23), 270}, 190, hex(0x3a3f63), 0.32);
}

// ---- breathing ---------------------------------------------------------------------------------

void orb(Canvas& canvas, Point centre, double radius)
{
    canvas.glow(centre, radius * 1.55, kAccent, 0.34);
    canvas.disc(centre, radius, hex(0x2c7d73), 0.92);
    const Point shine{centre.x - radius * 0.28, centre.y - radius * 0.34};
    canvas.glow(shine, radius * 0.62, kMint, 0.50);
    canvas.glow({centre.x + radius * 0.2, centre.y + radius * 0.35}, radius * 0.5, kAccent, 0.25);
    canvas.ring(centre, radius - 0.8, 1.6, kMint, 0.55);
}

/// Dust that drifts with the breath: inwards for direction -1, outwards for +1.
void dust(Canvas& canvas, const Moment& now, double radius, double direction)
{
    for (std::uint32_t grain = 0; grain < 64; ++grain) {
        const double angle = chance(grain) * kTurn + 0.05 * now.seconds;
        const double pace = 0.05 + 0.07 * chance(grain + 100);
        const double start = chance(grain + 200);
        const double along = start + direction * pace * now.seconds + 4;
        const double share = along - std::floor(along);
        const double reach = radius + 14 + 250 * share;
        const double strength = 0.65 * ease(0, 0.18, share) * (1 - ease(0.45, 1, share));
        const Point place{kCentre.x + reach * std::cos(angle), kCentre.y + reach * std::sin(angle)};
        canvas.glow(place, 1.5 + 1.3 * chance(grain + 300), grain % 5 == 0 ? kWarm : kMint,
                    strength);
    }
}

void breath(Canvas& canvas, const Moment& now, double from, double to)
{
    const auto radiusAt = [&](double seconds) {
        return mix(from, to, ease(0.3, now.length - 0.3, seconds));
    };
    quietRoom(canvas, now.seconds);
    dust(canvas, now, radiusAt(now.seconds), to > from ? -1 : 1);
    for (int ring = 3; ring >= 1; --ring) {
        const double lagging = radiusAt(now.seconds - 0.35 * ring);
        canvas.ring(kCentre, lagging + 10 + 13 * ring, 1.4, kAccent, 0.34 - 0.08 * ring);
    }
    orb(canvas, kCentre, radiusAt(now.seconds));
}

constexpr double kEmptyLungs = 46;
constexpr double kFullLungs = 104;

void welcome(Canvas& canvas, const Moment& now)
{
    breath(canvas, now, 20, kEmptyLungs);
    canvas.darken(1 - ease(0, 1.2, now.seconds));
}

void breatheIn(Canvas& canvas, const Moment& now)
{
    breath(canvas, now, kEmptyLungs, kFullLungs);
}

void breatheOut(Canvas& canvas, const Moment& now)
{
    breath(canvas, now, kFullLungs, kEmptyLungs);
}

void wave(Canvas& canvas, int layer, double seconds)
{
    const double base = 226 + 24.0 * layer;
    const double swell = 6 + 2.5 * layer;
    const double pace = 0.5 + 0.16 * layer;
    const auto height = [&](double x) {
        return base +
               swell * std::sin(x * (0.011 - 0.0012 * layer) + pace * seconds + 1.7 * layer) +
               swell * 0.4 * std::sin(x * 0.027 - 1.3 * pace * seconds + layer);
    };
    const Colour crest = mix(hex(0x56a79c), hex(0x17363f), layer / 4.0);
    canvas.ground(height, crest, mix(crest, hex(0x0f141a), 0.75));
    for (int x = 0; x < kWidth - 1; ++x) {
        canvas.line({double(x), height(x)}, {x + 1.0, height(x + 1)}, 1.0, kMint,
                    0.10 - 0.015 * layer);
    }
}

void rest(Canvas& canvas, const Moment& now)
{
    canvas.verticalGradient(hex(0x1c2433), hex(0x3b5560));
    canvas.glow({320, 236}, 240, hex(0xd98f78), 0.46);
    const Point sun{320, 150 + 9 * now.seconds};
    canvas.glow(sun, 96, kWarm, 0.40);
    canvas.disc(sun, 38, hex(0xf6d9a6), 0.96);
    canvas.glow({sun.x, sun.y - 10}, 30, kMist, 0.35);
    for (int layer = 0; layer < 5; ++layer) {
        wave(canvas, layer, now.seconds);
    }
    canvas.darken(1 - ease(0, 0.8, now.seconds) + ease(now.length - 0.9, now.length, now.seconds));
}

// ---- rhythm ------------------------------------------------------------------------------------

constexpr double kSectionSeconds = 6.0; // from one brake to the next
constexpr double kFirstBeat = 1.6;      // seconds into a section: the words come first
constexpr double kRound = 2.0;          // seconds in which the comet goes once round
constexpr double kRingRadius = 112;

struct Pattern
{
    std::array<int, 4> corners; // beats in a round for each voice; 0: no voice
};

constexpr std::array<Pattern, 7> kPatterns{{{{1, 0, 0, 0}},
                                            {{2, 0, 0, 0}},
                                            {{3, 0, 0, 0}},
                                            {{4, 0, 0, 0}},
                                            {{3, 4, 0, 0}},
                                            {{4, 0, 0, 0}},
                                            {{2, 3, 4, 0}}}};

constexpr std::array<Colour, 4> kVoiceColours{kWarm, kAccent, kRose, kMint};

[[nodiscard]] Colour voiceColour(int corners)
{
    return kVoiceColours[static_cast<std::size_t>(corners - 1)];
}

[[nodiscard]] Point onRing(double turns, double radius = kRingRadius)
{
    return {kCentre.x + radius * std::sin(turns * kTurn),
            kCentre.y - radius * std::cos(turns * kTurn)};
}

/// Seconds since the beat at this place of the ring last sounded; large when it has not yet.
[[nodiscard]] double sinceBeat(double inSection, double place)
{
    const double since = inSection - kFirstBeat - place * kRound;
    if (since < 0) {
        return 99;
    }
    const double rounds = std::floor(since / kRound);
    const double lastRound = place == 0 ? 2 : 1;
    return since - std::min(rounds, lastRound) * kRound;
}

void beat(Canvas& canvas, double place, double inSection, Colour colour)
{
    const double since = sinceBeat(inSection, place);
    const double flash = std::exp(-3.2 * since);
    const double shown = ease(0.3, 1.3, inSection);
    canvas.glow(onRing(place), 9 + 20 * flash, colour, (0.30 + 0.65 * flash) * shown);
    canvas.disc(onRing(place), (5 + 3.5 * flash) * shown, mix(colour, kMist, flash), 1);
    if (since < 1.4) {
        canvas.ring(onRing(place), 8 + 46 * since, 1.4, colour, 0.6 * std::exp(-2.6 * since));
    }
}

void voice(Canvas& canvas, int corners, double inSection)
{
    const double drawn = ease(0.3, 1.4, inSection) * (1 - ease(5.7, 6.0, inSection));
    for (int corner = 0; corner < corners && corners > 1; ++corner) {
        const Point from = onRing(corner / double(corners));
        const Point to = onRing((corner + 1) / double(corners));
        canvas.line(from, {mix(from.x, to.x, drawn), mix(from.y, to.y, drawn)}, 1.3,
                    voiceColour(corners), 0.42 * drawn);
    }
    for (int corner = 0; corner < corners; ++corner) {
        beat(canvas, corner / double(corners), inSection, voiceColour(corners));
    }
}

void comet(Canvas& canvas, double inSection)
{
    const double shown = ease(1.2, 1.6, inSection) * (1 - ease(5.6, 5.95, inSection));
    const double turns = std::clamp(inSection - kFirstBeat, 0.0, 2 * kRound) / kRound;
    for (int trail = 44; trail >= 0; --trail) {
        const double behind = turns - trail * 0.006;
        if (behind >= 0) {
            const double fade = 1 - trail / 45.0;
            canvas.glow(onRing(behind), 2.0 + 3.0 * fade, kMint, 0.34 * fade * fade * shown);
        }
    }
    canvas.glow(onRing(turns), 13, kMist, 0.5 * shown);
    canvas.disc(onRing(turns), 4.2 * shown, kMist, shown);
}

void rhythm(Canvas& canvas, const Moment& now)
{
    quietRoom(canvas, now.seconds);
    const double sections = std::floor(now.seconds / kSectionSeconds);
    const double inSection = now.seconds - sections * kSectionSeconds;
    canvas.ring(kCentre, kRingRadius, 1.4, kMist, 0.20);
    canvas.glow(kCentre, 86, kDeep, 0.30 + 0.06 * std::sin(now.seconds * kTurn / 4));
    if (sections < kPatterns.size()) {
        for (const int corners : kPatterns[static_cast<std::size_t>(sections)].corners) {
            if (corners > 0) {
                voice(canvas, corners, inSection);
            }
        }
        comet(canvas, inSection);
    }
    canvas.darken(1 - ease(0, 0.5, now.seconds) + ease(42.2, now.length - 0.1, now.seconds));
}

// ---- the night sky -----------------------------------------------------------------------------

constexpr int kHorizon = 262;
constexpr std::array<Point, 7> kBear{
    {{150, 92}, {224, 66}, {286, 92}, {340, 118}, {360, 172}, {464, 176}, {478, 108}}};

[[nodiscard]] double ridge(double x, double seed)
{
    return std::sin(x * 0.0105 + seed) * 17 + std::sin(x * 0.027 + seed * 2.1) * 8 +
           std::sin(x * 0.061 + seed * 0.7) * 3;
}

void fixedStars(Canvas& canvas, double seconds)
{
    for (std::uint32_t star = 0; star < 130; ++star) {
        const Point place{kWidth * chance(star + 1000), 235 * chance(star + 2000)};
        const double size = 0.7 + 0.9 * chance(star + 3000) * chance(star + 3500);
        const double twinkle =
            0.55 + 0.45 * std::sin(seconds * (0.8 + 2 * chance(star + 4000)) + star);
        canvas.glow(place, size, kMist, (0.22 + 0.5 * chance(star + 5000)) * twinkle);
    }
}

void nightSky(Canvas& canvas, double seconds)
{
    canvas.verticalGradient(hex(0x0e1424), hex(0x2f6a72));
    canvas.glow({320, 268}, 230, kAccent, 0.22);
    fixedStars(canvas, seconds);
}

void moon(Canvas& canvas, Point place)
{
    canvas.glow(place, 74, hex(0xbcd7d8), 0.30);
    canvas.disc(place, 22, hex(0xf3ead2), 1);
    canvas.disc({place.x - 6, place.y - 5}, 5, hex(0xe2d8bd), 0.7);
    canvas.disc({place.x + 7, place.y + 4}, 3.4, hex(0xe2d8bd), 0.6);
    canvas.disc({place.x - 1, place.y + 10}, 2.6, hex(0xe2d8bd), 0.6);
}

/// The moon's path on the water: short glints, wider towards the shore.
void glitter(Canvas& canvas, double x, double strength, double seconds)
{
    for (std::uint32_t glint = 0; glint < 46; ++glint) {
        const double near = chance(glint + 600);
        const double y = kHorizon + 3 + 92 * near * near;
        const double sway = (chance(glint + 700) - 0.5) * (10 + 46 * near);
        const double width = (2 + 11 * chance(glint + 800)) * (0.3 + near);
        const double flicker =
            std::max(0.0, std::sin(seconds * (1.0 + 1.6 * chance(glint + 900)) + glint * 2.4));
        const double left = x + sway + 3 * std::sin(seconds + glint) - width;
        canvas.line({left, y}, {left + 2 * width, y}, 1.2, hex(0xf3ead2),
                    0.55 * strength * flicker * (1 - 0.5 * near));
    }
}

/// Hills and their reflection; goes over everything in the sky.
void shore(Canvas& canvas, double seconds)
{
    canvas.ground([](double x) { return 232 + ridge(x, 0.4); }, hex(0x27505b), hex(0x24454f));
    canvas.ground([](double x) { return 248 + 0.8 * ridge(x, 3.1); }, hex(0x18343d), hex(0x142b33));
    canvas.water(kHorizon, seconds, hex(0x0d1a22));
}

void bearStar(Canvas& canvas, std::size_t number, double since)
{
    if (since < 0) {
        return;
    }
    const double shown = ease(0, 0.35, since);
    const double flash = std::exp(-2.4 * since);
    const double twinkle = 0.9 + 0.1 * std::sin(since * 3 + double(number));
    const Point place = kBear[number];
    canvas.glow(place, 11 + 20 * flash, kWarm, (0.34 + 0.5 * flash) * shown * twinkle);
    canvas.glow(place, 3.4, kMist, shown);
    canvas.line({place.x - 9 - 10 * flash, place.y}, {place.x + 9 + 10 * flash, place.y}, 1.0,
                kMist, 0.45 * shown * twinkle);
    canvas.line({place.x, place.y - 9 - 10 * flash}, {place.x, place.y + 9 + 10 * flash}, 1.0,
                kMist, 0.45 * shown * twinkle);
}

void goodEvening(Canvas& canvas, const Moment& now)
{
    nightSky(canvas, now.seconds);
    moon(canvas, {556, mix(250, 66, ease(-1.0, now.length, now.seconds))});
    shore(canvas, now.seconds);
    glitter(canvas, 556, ease(0.5, now.length, now.seconds), now.seconds);
    canvas.darken(1 - ease(0, 1.0, now.seconds));
}

constexpr double kFirstStar = 1.6; // seconds; one more every second

void countStars(Canvas& canvas, const Moment& now)
{
    nightSky(canvas, now.seconds + 5);
    moon(canvas, {556, 66});
    for (std::size_t star = 0; star < kBear.size(); ++star) {
        bearStar(canvas, star, now.seconds - kFirstStar - double(star));
    }
    shore(canvas, now.seconds + 5);
    glitter(canvas, 556, 1, now.seconds + 5);
}

/// The lines of the dipper, drawn one after the other.
void constellation(Canvas& canvas, double seconds)
{
    constexpr std::array<std::array<std::size_t, 2>, 7> lines{
        {{0, 1}, {1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 6}, {6, 3}}};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double drawn = ease(0, 0.7, seconds - 1.0 - 0.5 * double(i));
        const Point from = kBear[lines[i][0]];
        const Point to = kBear[lines[i][1]];
        canvas.line(from, {mix(from.x, to.x, drawn), mix(from.y, to.y, drawn)}, 1.5, kMint,
                    0.55 * ease(0, 0.1, drawn));
    }
}

void bear(Canvas& canvas, const Moment& now)
{
    nightSky(canvas, now.seconds + 13);
    moon(canvas, {556, 66});
    constellation(canvas, now.seconds);
    for (std::size_t star = 0; star < kBear.size(); ++star) {
        bearStar(canvas, star, 4 + now.seconds);
    }
    shore(canvas, now.seconds + 13);
    glitter(canvas, 556, 1, now.seconds + 13);
}

void shootingStar(Canvas& canvas, double since)
{
    if (since < 0 || since > 1.2) {
        return;
    }
    const double strength = std::sin(since / 1.2 * std::numbers::pi);
    for (int trail = 0; trail < 40; ++trail) {
        const double when = since - trail * 0.008;
        const Point place{130 + 300 * when, 34 + 92 * when};
        canvas.glow(place, 2.4 - trail * 0.04, kMist, 0.6 * strength * (1 - trail / 40.0));
    }
}

void goodNight(Canvas& canvas, const Moment& now)
{
    nightSky(canvas, now.seconds + 19);
    moon(canvas, {556, mix(66, 285, ease(0, now.length + 0.8, now.seconds))});
    shootingStar(canvas, now.seconds - 2.4);
    shore(canvas, now.seconds + 19);
    glitter(canvas, 556, 1 - ease(0.6 * now.length, now.length, now.seconds), now.seconds + 19);
    canvas.darken(ease(now.length - 1.6, now.length - 0.2, now.seconds));
}

// ---- the program -------------------------------------------------------------------------------

struct Scene
{
    const char* name;
    void (*paint)(Canvas&, const Moment&);
};

constexpr std::array kScenes{
    Scene{"welcome", welcome},  Scene{"in", breatheIn},  Scene{"out", breatheOut},
    Scene{"rest", rest},        Scene{"rhythm", rhythm}, Scene{"evening", goodEvening},
    Scene{"stars", countStars}, Scene{"bear", bear},     Scene{"night", goodNight}};

void paintFrame(const Scene& scene, const Moment& now)
{
    Canvas canvas;
    scene.paint(canvas, now);
    canvas.write(stdout);
}

void paintClip(const Scene& scene, double length)
{
    const int frames = static_cast<int>(std::lround(length * 25));
    for (int frame = 0; frame < frames; ++frame) {
        paintFrame(scene, {frame / 25.0, length});
    }
}

} // namespace

} // namespace samples

int main(int argc, char** argv)
{
    using namespace samples;
    if (argc < 3) {
        std::fputs("usage: painter SCENE SECONDS [AT]\n", stderr);
        return 2;
    }
    const auto* scene = std::find_if(kScenes.begin(), kScenes.end(), [&](const Scene& candidate) {
        return std::strcmp(candidate.name, argv[1]) == 0;
    });
    if (scene == kScenes.end()) {
        std::fprintf(stderr, "painter: no scene called %s\n", argv[1]);
        return 2;
    }
    const double length = std::strtod(argv[2], nullptr);
    if (argc > 3) {
        paintFrame(*scene, {std::strtod(argv[3], nullptr), length});
    } else {
        paintClip(*scene, length);
    }
    return 0;
}
