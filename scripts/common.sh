# Shared by ./run, ./test, ./bench and ./package: where things are, installing what is missing, building.
# shellcheck shell=bash disable=SC2034

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root

readonly build_packages=(cmake ninja-build g++ pkg-config qt6-base-dev qt6-base-private-dev libqt6opengl6-dev qt6-svg-dev
    qt6-wayland libwayland-dev wayland-protocols libmpv-dev libavformat-dev libavcodec-dev libavutil-dev
    libwmf-dev libxcb1-dev libarchive-dev fonts-dejavu-core)
readonly demonstration_packages=(xvfb openbox dbus imagemagick procps)
readonly package_packages=(debhelper dpkg-dev fakeroot lintian)
readonly test_packages=("${package_packages[@]}" desktop-file-utils appstream libxml2-utils man-db
    shared-mime-info xdg-utils file libglib2.0-bin libgtest-dev libgmock-dev clang-format clang-tidy
    xdotool wmctrl x11-utils x11-apps x11-xkb-utils libxfixes-dev playerctl xfwm4 weston sway swaybg swayidle grim ffmpeg espeak-ng
    xorriso unzip strace mpv mkvtoolnix dbus-x11 at-spi2-core pulseaudio pulseaudio-utils git chromium firefox-esr
    fonts-noto-color-emoji python3)

# The players beside which ./bench measures, and what it looks and listens with.
readonly bench_packages=(python3 libx11-dev libxext-dev xvfb openbox dbus wmctrl xdotool ffmpeg pulseaudio
    pulseaudio-utils util-linux mpv vlc vlc-plugin-base vlc-plugin-video-output smplayer celluloid haruna)

readonly fuzz_packages=(clang libclang-rt-14-dev)

say() { printf '== %s\n' "$*"; }

complain() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; }

fail() {
    complain "$*"
    exit 1
}

# Those of the named packages that are not installed, one a line.
missing_packages() {
    local installed package
    # Fails when one of them is unknown; what it prints about the others still counts.
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
        grep -qxF "installed $package" <<<"$installed" || printf '%s\n' "$package"
    done
}

as_root() {
    if [[ $(id -u) == 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "this needs root, and there is no sudo. As root: $*"
    fi
}

install_missing() {
    local missing
    if ! command -v dpkg-query >/dev/null; then
        complain "not a Debian system: taking for granted that these are there: $*"
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    if ((${#missing[@]} == 0)); then
        return
    fi
    say "installing ${missing[*]}"
    # Another package manager, the automatic upgrade for instance, may be at work.
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300)
    as_root "${apt[@]}" update -qq
    as_root "${apt[@]}" \
        install -y -qq --no-install-recommends "${missing[@]}"
}

# cache_value FOLDER NAME: an entry of the build folder's cache; empty without one.
cache_value() {
    sed -n "s/^$2:[^=]*=//p" "$1/CMakeCache.txt" 2>/dev/null || true
}

# configure PRESET FOLDER [CMAKE-ARGUMENT…]: configures a new build folder, and one that belongs to
# a checkout elsewhere. Ninja configures again by itself when a CMake file has changed.
configure() {
    local preset=$1 folder=$2 fresh=()
    shift 2
    if [[ -f $folder/CMakeCache.txt && $(cache_value "$folder" CMAKE_HOME_DIRECTORY) != "$root" ]]; then
        fresh=(--fresh)
    fi
    (cd "$root" && cmake --preset "$preset" "${fresh[@]}" "$@")
}

is_configured() {
    [[ -f $1/build.ninja && $(cache_value "$1" CMAKE_HOME_DIRECTORY) == "$root" ]]
}
