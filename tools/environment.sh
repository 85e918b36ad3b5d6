# Sourced by ./run and ./test: what both need of the machine. Works as root or with sudo.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build
programs=$build/windows/bin

packages_build="cmake ninja-build g++ g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev binutils-mingw-w64-x86-64 googletest"
packages_wine="wine wine64 xvfb xauth fonts-wine fonts-liberation imagemagick"
packages_check="clang-format clang-tidy"

# Installs those of the named Debian packages that are missing.
install_missing() {
    local missing=()
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Makes a Wine prefix of its own below build/, once. With "desktop" every program gets a desktop with captions and a
# task bar; without it windows stand on the display as they are.
use_wine() {
    export WINEPREFIX=$build/$1 WINEDEBUG=-all WINEDLLOVERRIDES=mscoree=,mshtml=
    [ -f "$WINEPREFIX/ready" ] && return
    echo "Making a Wine prefix"
    wine wineboot --init >/dev/null 2>&1
    if [ "${2:-}" = desktop ]; then
        wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >/dev/null 2>&1
        wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1280x1000 /f >/dev/null 2>&1
    fi
    timeout 30 wineserver --wait || true
    touch "$WINEPREFIX/ready"
}

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

build_windows() {
    cmake --preset windows -S "$root" >/dev/null
    cmake --build "$build/windows" --parallel "$(nproc)" "$@"
}
