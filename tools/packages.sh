# The Debian 12 packages that building, testing and running from this checkout need; sourced by ./run and ./test.
# shellcheck shell=bash

# Building and running the programs.
VEMO_PACKAGES=(
    build-essential cmake ninja-build ccache pkg-config python3 ca-certificates
    qtbase5-dev libqt5sql5-sqlite libsqlite3-dev libqt5svg5-dev qttools5-dev qttools5-dev-tools qttranslations5-l10n
    libavformat-dev libavcodec-dev libavutil-dev libswresample-dev libswscale-dev
    libmpv-dev libexif-dev libkdsoap-dev qtkeychain-qt5-dev libssl-dev libsodium-dev zlib1g-dev libpng-dev nlohmann-json3-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    ffmpeg fonts-dejavu-core
)

# What the tests need beside them.
VEMO_TEST_PACKAGES=(
    git sqlite3 clang-format clang libclang-rt-dev libimage-exiftool-perl exiv2 g++-mingw-w64-x86-64-posix openssl mediainfo time dpkg-dev lintian appstream man-db file strace gcovr
    mpv xvfb xauth xdotool x11-utils openbox dbus at-spi2-core gir1.2-atspi-2.0 python3-gi
    gstreamer1.0-tools gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-plugins-bad gstreamer1.0-libav
    libgstreamer1.0-dev libgstreamer-plugins-base1.0-dev libgstrtspserver-1.0-dev
)

# vemo_install_packages NAME...: installs those that are missing, asking sudo when not root. Returns non-zero, with a sentence
# on stderr, when that did not work.
vemo_install_packages()
{
    local missing=() package state
    for package in "$@"; do
        state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)
        [ "$state" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local asRoot=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing and only root can install them: ${missing[*]}" >&2
            return 1
        fi
        asRoot=(sudo)
    fi
    echo "Installing ${#missing[@]} packages: ${missing[*]}"
    "${asRoot[@]}" apt-get update -qq || echo "The package lists could not be brought up to date; trying with those that are there." >&2
    if ! "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null; then
        echo "apt-get could not install: ${missing[*]}" >&2
        return 1
    fi
}
