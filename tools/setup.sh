# What all scripts share: the packages they need, and the build. To be sourced.
# shellcheck disable=SC2034 # the lists of packages are for those that source it
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Debian's names. The Qt development packages bring the libraries, the xcb and offscreen platforms and OpenGL's headers.
buildPackages=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev qt6-tools-dev libsqlite3-dev sqlite3
    libqt6sql6-sqlite libqt6svg6 fonts-dejavu-core)
screenPackages=(xvfb openbox xdotool x11-utils imagemagick) # a screen where there is none
testPackages=("${screenPackages[@]}" wmctrl poppler-utils)
checkPackages=(clang-format-14 clang-tidy-14 python3 shellcheck)

# File names hold Danish letters.
if [ "$(locale charmap 2>/dev/null)" != UTF-8 ]; then
    export LC_ALL=C.UTF-8
fi

say() { printf '%s\n' "$*"; }
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

is_installed() { [ "$(dpkg-query -W -f='${Status}' "$1" 2>/dev/null)" = 'install ok installed' ]; }

# Installs those of the packages that are missing; asks nothing of a machine that has them all.
install_missing() {
    local package missing=() as_root=()
    if ! command -v apt-get >/dev/null; then
        say "This is no Debian system; going on in the hope that it has what these packages hold: $*"
        return
    fi
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "Please install these packages as root: ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing ${missing[*]}"
    # env, because sudo does not hand on the caller's variables.
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300 update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 \
        install --no-install-recommends "${missing[@]}"
}

# build PRESET: configures and builds everything in the preset. The compiler's output shows when it fails.
build() {
    local preset=$1
    say "Building $preset"
    (cd "$root" && cmake --preset "$preset" --log-level=WARNING && cmake --build --preset "$preset")
}
