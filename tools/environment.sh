# Sourced by ./run and ./test: what both need of the machine. Works as root or with sudo.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build
programs=$build/windows/bin

packages_build="cmake ninja-build g++ g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev binutils-mingw-w64-x86-64 googletest"
packages_help="fp-utils"
packages_package="nsis"
packages_wine="wine wine64 xvfb xauth fonts-wine fonts-liberation imagemagick"
packages_check="clang-format clang-tidy-22 libchm-bin python3"

# Ends the script with one line that says what is wrong.
fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# Installs those of the named Debian packages that are missing.
install_missing() {
    command -v dpkg-query >/dev/null || fail "This needs a Debian machine, for its packages."
    local missing=()
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    mkdir -p "$build"
    { "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"; } \
        >"$build/install.log" 2>&1 ||
        fail "These packages could not be installed (no network, or no right to?): ${missing[*]}. See build/install.log."
}

# wait_for_line FILE TEXT SECONDS: waits until a file holds a text, as long as what was started last lives.
wait_for_line() {
    for _ in $(seq $(($3 * 10))); do
        grep -q "$2" "$1" 2>/dev/null && return
        kill -0 "${started[-1]}" 2>/dev/null || return 1
        sleep 0.1
    done
    return 1
}

# Ends the script when something listens on the port already.
check_port() {
    if (: <"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
        fail "Port $port is taken; choose another with --port."
    fi
}

# Makes a Wine prefix of its own below build/, once. With "desktop" every program gets a desktop with captions and a
# task bar; without it windows stand on the display as they are.
use_wine() {
    export WINEPREFIX=$build/$1 WINEDEBUG=-all
    # No menu entries on this machine for what is installed in the prefix.
    export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
    [ -f "$WINEPREFIX/ready" ] && return
    echo "Making a Wine prefix"
    wine wineboot --init >/dev/null 2>&1 || fail "Wine could not make its prefix $WINEPREFIX."
    # The font of the caption buttons' glyphs.
    cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    if [ "${2:-}" = desktop ]; then
        wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >/dev/null 2>&1
        wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1280x1000 /f >/dev/null 2>&1
    fi
    timeout 30 wineserver --wait || true
    touch "$WINEPREFIX/ready"
}

# on_one_core COMMAND...: Wine's programs and their server answer each other all the time, which is slow where one core
# has to wake the other.
on_one_core() { taskset --cpu-list "$(taskset --cpu-list --pid $$ | sed 's/.*: //; s/[^0-9].*//')" "$@"; }

started=()
# Ends, by id, whatever this script started.
end_started() {
    for id in "${started[@]}"; do kill "$id" 2>/dev/null || true; done
    wait 2>/dev/null || true
}
trap end_started EXIT

# A virtual display on a free number, when there is no real one.
use_virtual_display() {
    local number=$build/display
    : >"$number"
    Xvfb -displayfd 3 -screen 0 1280x1000x24 -nolisten tcp 3>"$number" 2>/dev/null &
    started+=($!)
    for _ in $(seq 100); do [ -s "$number" ] && break; sleep 0.1; done
    DISPLAY=:$(cat "$number")
    export DISPLAY
}

# build_preset PRESET [OPTION]...: builds with a preset; build/build.log keeps what was said.
build_preset() {
    mkdir -p "$build"
    { cmake --preset "$1" -S "$root" >/dev/null && cmake --build "$build/$1" --parallel "$(nproc)" "${@:2}"; } 2>&1 |
        tee "$build/build.log" ||
        fail "The build failed: $(grep -m 1 -iE ': (fatal )?error|^(cmake )?error|: undefined|no space' "$build/build.log" || tail -n 1 "$build/build.log") (build/build.log)"
}
build_windows() { build_preset windows "$@"; }
build_native() { build_preset native "$@"; }
