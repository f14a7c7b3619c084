// A small canvas for the sample clips: soft shapes in light, written out as raw RGB frames.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numbers>
#include <vector>

namespace samples {

inline constexpr int kWidth = 640;
inline constexpr int kHeight = 360;
inline constexpr double kTurn = 2 * std::numbers::pi;

struct Colour
{
    double red = 0; // 0 to 1
    double green = 0;
    double blue = 0;
};

struct Point
{
    double x = 0; // pixels from the left
    double y = 0; // pixels from the top
};

[[nodiscard]] constexpr Colour hex(std::uint32_t rgb)
{
    return {((rgb >> 16) & 255) / 255.0, ((rgb >> 8) & 255) / 255.0, (rgb & 255) / 255.0};
}

[[nodiscard]] inline double mix(double from, double to, double share)
{
    return from + (to - from) * share;
}

[[nodiscard]] inline Colour mix(Colour from, Colour to, double share)
{
    return {mix(from.red, to.red, share), mix(from.green, to.green, share),
            mix(from.blue, to.blue, share)};
}

/// 0 before from, 1 after to, smooth between.
[[nodiscard]] inline double ease(double from, double to, double value)
{
    const double share = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return share * share * (3 - 2 * share);
}

/// A repeatable number from 0 to 1 for each seed.
[[nodiscard]] inline double chance(std::uint32_t seed)
{
    std::uint32_t bits = seed * 747796405U + 2891336453U;
    bits = ((bits >> ((bits >> 28) + 4)) ^ bits) * 277803737U;
    return ((bits >> 22) ^ bits) / 4294967295.0;
}

class Canvas
{
public:
    Canvas()
        : m_pixels(kWidth * kHeight)
    {}

    [[nodiscard]] Colour& at(int x, int y)
    {
        return m_pixels[static_cast<std::size_t>(y * kWidth + x)];
    }

    void over(int x, int y, Colour colour, double alpha)
    {
        at(x, y) = mix(at(x, y), colour, alpha);
    }

    /// Adds light without ever burning out.
    void light(int x, int y, Colour colour, double strength)
    {
        Colour& pixel = at(x, y);
        pixel.red = 1 - (1 - pixel.red) * (1 - colour.red * strength);
        pixel.green = 1 - (1 - pixel.green) * (1 - colour.green * strength);
        pixel.blue = 1 - (1 - pixel.blue) * (1 - colour.blue * strength);
    }

    void verticalGradient(Colour top, Colour bottom)
    {
        for (int y = 0; y < kHeight; ++y) {
            std::fill_n(&at(0, y), kWidth, mix(top, bottom, y / (kHeight - 1.0)));
        }
    }

    void glow(Point centre, double radius, Colour colour, double strength)
    {
        around(centre, radius * 2.6, [&](int x, int y, double distance) {
            light(x, y, colour, strength * std::exp(-distance * distance / (radius * radius)));
        });
    }

    void disc(Point centre, double radius, Colour colour, double alpha)
    {
        around(centre, radius + 1, [&](int x, int y, double distance) {
            over(x, y, colour, alpha * std::clamp(radius - distance + 0.5, 0.0, 1.0));
        });
    }

    void ring(Point centre, double radius, double width, Colour colour, double strength)
    {
        around(centre, radius + width + 1, [&](int x, int y, double distance) {
            light(x, y, colour, strength * edge(std::abs(distance - radius), width));
        });
    }

    void line(Point from, Point to, double width, Colour colour, double strength)
    {
        const double dx = to.x - from.x;
        const double dy = to.y - from.y;
        const double squared = std::max(dx * dx + dy * dy, 1e-9);
        const Point middle{(from.x + to.x) / 2, (from.y + to.y) / 2};
        around(middle, std::sqrt(squared) / 2 + width + 1, [&](int x, int y, double) {
            const double along =
                std::clamp(((x - from.x) * dx + (y - from.y) * dy) / squared, 0.0, 1.0);
            const double distance = std::hypot(x - from.x - along * dx, y - from.y - along * dy);
            light(x, y, colour, strength * edge(distance, width));
        });
    }

    /// Everything below height(x) in one colour, with a soft edge.
    template <typename Height> void ground(Height height, Colour top, Colour bottom)
    {
        for (int x = 0; x < kWidth; ++x) {
            const double crest = height(x);
            for (int y = std::max(0, static_cast<int>(crest) - 1); y < kHeight; ++y) {
                const double depth = std::clamp((y - crest) / 90.0, 0.0, 1.0);
                over(x, y, mix(top, bottom, depth), std::clamp(y - crest + 0.5, 0.0, 1.0));
            }
        }
    }

    /// Water from the horizon down: the picture above it, mirrored, rippling and darker.
    void water(int horizon, double seconds, Colour depth)
    {
        for (int y = horizon; y < kHeight; ++y) {
            const double near = (y - horizon) / double(kHeight - horizon);
            const double ripple = 1.0 + 7.0 * near;
            const double wave = std::sin(0.9 * y / (0.35 + near) - 2.2 * seconds) * ripple +
                                std::sin(0.37 * y / (0.35 + near) + 1.3 * seconds) * ripple * 0.6;
            const int mirrored =
                std::clamp(static_cast<int>(2 * horizon - y - 1 + wave * 0.7), 0, horizon - 1);
            for (int x = 0; x < kWidth; ++x) {
                const double shift =
                    wave * std::sin(x * 0.035 + 0.21 * y + 0.8 * seconds) * (0.4 + near);
                const int source = std::clamp(static_cast<int>(x + shift), 0, kWidth - 1);
                at(x, y) = mix(at(source, mirrored), depth, 0.35 + 0.35 * near);
            }
        }
    }

    void darken(double share)
    {
        for (Colour& pixel : m_pixels) {
            pixel = mix(pixel, {0.055, 0.065, 0.085}, share);
        }
    }

    /// Writes one frame, 8 bits a channel. A fixed pattern of less than one step hides the bands
    /// that long dark gradients would show.
    void write(std::FILE* file) const
    {
        static std::array<std::uint8_t, kWidth * kHeight * 3> bytes;
        for (std::size_t i = 0; i < m_pixels.size(); ++i) {
            const double x = static_cast<double>(i % kWidth);
            const double y = static_cast<double>(i / kWidth);
            const double noise =
                std::fmod(52.9829189 * std::fmod(0.06711056 * x + 0.00583715 * y, 1.0), 1.0);
            const Colour& pixel = m_pixels[i];
            bytes[i * 3] = quantised(pixel.red, noise);
            bytes[i * 3 + 1] = quantised(pixel.green, noise);
            bytes[i * 3 + 2] = quantised(pixel.blue, noise);
        }
        std::fwrite(bytes.data(), 1, bytes.size(), file);
    }

private:
    template <typename Paint> void around(Point centre, double reach, Paint paint)
    {
        const int left = std::max(0, static_cast<int>(centre.x - reach));
        const int right = std::min(kWidth - 1, static_cast<int>(centre.x + reach) + 1);
        const int top = std::max(0, static_cast<int>(centre.y - reach));
        const int bottom = std::min(kHeight - 1, static_cast<int>(centre.y + reach) + 1);
        for (int y = top; y <= bottom; ++y) {
            for (int x = left; x <= right; ++x) {
                paint(x, y, std::hypot(x - centre.x, y - centre.y));
            }
        }
    }

    [[nodiscard]] static double edge(double distance, double width)
    {
        return std::clamp(width / 2 - distance + 0.5, 0.0, 1.0);
    }

    [[nodiscard]] static std::uint8_t quantised(double value, double noise)
    {
        return static_cast<std::uint8_t>(std::clamp(value * 255.0 + noise, 0.0, 255.0));
    }

    std::vector<Colour> m_pixels;
};

} // namespace samples
