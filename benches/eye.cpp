// Looks at the screen for the bar code of the measurements' clips and prints a line at each change:
//
//   SECONDS NUMBER X Y WIDTH    another picture, on the monotonic clock
//   SECONDS -                   no code any more
//
//   bench_eye [MILLISECONDS]    between two looks, 2 unless given; ends with its input
#include "benches/bar_code.h"

#include <X11/Xlib.h>
#include <X11/extensions/XShm.h>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <poll.h>
#include <span>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <unistd.h>

namespace orvanta::bench {

struct Seen
{
    CodePlace place;
    int y = 0;
    int number = -1; // none
};

class Screen
{
public:
    Screen()
        : m_display(XOpenDisplay(nullptr))
    {
        if (m_display == nullptr) {
            return;
        }
        m_whole = create(height());
        m_row = create(1);
    }

    [[nodiscard]] bool isReady() const { return m_row != nullptr; }
    [[nodiscard]] int width() const { return DisplayWidth(m_display, 0); }
    [[nodiscard]] int height() const { return DisplayHeight(m_display, 0); }

    std::span<const uint32_t> row(int y) { return read(m_row, y); }
    std::span<const uint32_t> all() { return read(m_whole, 0); }

private:
    // They live as long as the program.
    XImage* create(int rows)
    {
        auto* memory = new XShmSegmentInfo{};
        XImage* image =
            XShmCreateImage(m_display, DefaultVisual(m_display, 0), 24, ZPixmap, nullptr, memory,
                            static_cast<unsigned>(width()), static_cast<unsigned>(rows));
        if (image == nullptr || image->bits_per_pixel != 32) {
            return nullptr;
        }
        const auto bytes = static_cast<size_t>(image->bytes_per_line) * static_cast<size_t>(rows);
        memory->shmid = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
        memory->shmaddr = image->data = static_cast<char*>(shmat(memory->shmid, nullptr, 0));
        XShmAttach(m_display, memory);
        XSync(m_display, False);
        shmctl(memory->shmid, IPC_RMID, nullptr); // goes with the last that uses it
        return image;
    }

    std::span<const uint32_t> read(XImage* image, int y)
    {
        XShmGetImage(m_display, DefaultRootWindow(m_display), image, 0, y, AllPlanes);
        return {reinterpret_cast<const uint32_t*>(image->data),
                static_cast<size_t>(image->width) * static_cast<size_t>(image->height)};
    }

    Display* m_display;
    XImage* m_whole = nullptr;
    XImage* m_row = nullptr;
};

/// Anywhere on the screen; y is in the middle of the cells' height.
static Seen search(Screen& screen)
{
    constexpr int kStep = 4; // rows; the cells are higher
    const auto pixels = screen.all();
    const auto wide = static_cast<size_t>(screen.width());
    Seen seen;
    int first = -1;
    for (int y = 0; y < screen.height(); y += kStep) {
        const auto row = pixels.subspan(static_cast<size_t>(y) * wide, wide);
        const auto place = findCode(row);
        if (!place && first >= 0) {
            break;
        }
        if (place) {
            first = first < 0 ? y : first;
            seen = {*place, (first + y) / 2, -1};
        }
    }
    if (first >= 0) { // not in the last row, which may be half of what is below
        const auto row = pixels.subspan(static_cast<size_t>(seen.y) * wide, wide);
        const auto number = readCode(row, seen.place);
        seen.number = number ? static_cast<int>(*number) : -1;
    }
    return seen;
}

static Seen look(Screen& screen, const Seen& last)
{
    if (last.number >= 0) {
        const auto number = readCode(screen.row(last.y), last.place);
        if (number) {
            return {last.place, last.y, static_cast<int>(*number)};
        }
    }
    return search(screen);
}

static void print(const Seen& seen)
{
    const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
    if (seen.number < 0) {
        std::printf("%.4f -\n", now.count());
    } else {
        std::printf("%.4f %d %d %d %d\n", now.count(), seen.number, seen.place.x, seen.y,
                    seen.place.width);
    }
}

/// Whether the input is still open, after so many milliseconds.
static bool goesOnAfter(int milliseconds)
{
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    return poll(&input, 1, milliseconds) == 0;
}

static int watch(int interval)
{
    Screen screen;
    if (!screen.isReady()) {
        std::fprintf(stderr, "no display that shares pictures by memory\n");
        return 1;
    }
    Seen last;
    print(last); // it looks from now on
    do {
        const Seen seen = look(screen, last);
        if (seen.number != last.number ||
            (seen.number >= 0 && seen.place.width != last.place.width)) {
            print(seen);
        }
        last = seen;
    } while (goesOnAfter(interval));
    return 0;
}

} // namespace orvanta::bench

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    return orvanta::bench::watch(argc > 1 ? std::max(1, std::atoi(argv[1])) : 2);
}
