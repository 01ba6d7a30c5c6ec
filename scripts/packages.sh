# shellcheck shell=bash disable=SC2034 # the lists are used by those who read this file
# The Debian packages that Velmora and its tests need, and installing those that are missing.
# Read with `source`.

# To build the program.
packages_build=(
    g++ cmake ninja-build pkg-config
    qt6-base-dev qt6-base-private-dev qt6-l10n-tools libtomlplusplus-dev libcanberra-dev libxcb1-dev libxcb-dpms0-dev libxcb-screensaver0-dev libxcb-shape0-dev libxcb-shm0-dev libxcb-xfixes0-dev
)
# To run it: the toolkit's plugins, a font to write with, the way to the sound server.
packages_run=(libqt6gui6 libqt6dbus6 libcanberra-pulse fonts-dejavu-core)
# To bring up a private desktop and look at it.
packages_desktop=(
    xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils x11-xkb-utils xkb-data xinput
    xfwm4 xfce4-panel xfce4-session xfconf adwaita-icon-theme trayer openbox
    dbus at-spi2-core pulseaudio pulseaudio-utils
    python3 python3-gi gir1.2-gtk-3.0 python3-xlib python3-numpy python3-pil
    python3-dbusmock python3-pyatspi
)
# To run the tests.
packages_test=(
    libgtest-dev libbenchmark-dev python3 python3-pytest python3-pytest-xdist
    libgnustep-base-dev libobjc-12-dev
    valgrind xvfb locales tzdata appstream desktop-file-utils wmctrl
)
# To run the long matrix of desktop tests.
packages_matrix=(
    pipewire pipewire-pulse wireplumber
    kwin-x11 kwin-wayland xwayland libegl1 libgl1-mesa-dri mutter picom
)
# To check the sources.
packages_lint=(clang clang-format clang-tidy clazy cppcheck shellcheck)

# install_packages NAME… installs what is missing of the named packages and says so. Where it cannot,
# it names the packages in a sentence and ends the script.
install_packages() {
    local missing=() root=() name
    if ! command -v apt-get >/dev/null; then
        fail "This system has no apt. Please install what Debian calls $*," \
            "then build with: cmake --workflow --preset release."
    fi
    for name in "$@"; do
        is_installed "$name" || missing+=("$name")
    done
    [ "${#missing[@]}" -gt 0 ] || return 0

    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null \
            || fail "These packages are missing, and only root can install them: ${missing[*]}."
        root=(sudo)
    fi
    root+=(env DEBIAN_FRONTEND=noninteractive)
    stage "Reading the lists of packages" packages-update "${root[@]}" apt-get update
    stage "Installing ${#missing[@]} packages: ${missing[*]}" packages-install \
        "${root[@]}" apt-get install --yes --no-install-recommends "${missing[@]}"
}

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}
