#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs on Debian 12 what building, running and testing Taviro take, and nothing that is already
# there; asks no question. `tools/setup.sh program` is enough for ./run; without an argument the tools
# of the tests are installed as well.
set -euo pipefail
cd "$(dirname "$0")/.."

program_packages=(
    cmake ninja-build python3 googletest # every configuration asks for the tests' library
    g++-mingw-w64-x86-64-posix mingw-w64-tools # the program is cross-built for Windows
    g++                                        # for what makes the dictionary while building
    wine wine64 locales fonts-liberation       # the fonts stand for Arial
    xvfb openbox x11-xkb-utils x11-utils scrot xdotool # the virtual display
)
test_packages=(
    git g++-mingw-w64-i686-posix libbenchmark-dev
    clang clang-tidy clang-format libclang-rt-dev
    python3-pytest python3-pytest-xdist python3-pytest-timeout python3-pil shellcheck
    python3-clang # reads the sources for ./test mutants
    nsis      # the installer
    espeak-ng # the voice of the sounds
)
locale_name=cs_CZ.UTF-8 # gives Wine the Czech code pages
wine_modules=/usr/lib/x86_64-linux-gnu/wine
modules32_stamp=$wine_modules/i386-windows/.libwine-version

say() { printf 'set-up: %s\n' "$*"; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo -- "$@"
    else
        say "this needs root, and there is no sudo: $*" >&2
        return 1
    fi
}

package_version() {
    dpkg-query --show --showformat='${Version}' "$1" 2>/dev/null
}

missing_packages() {
    local present
    present=$(dpkg-query --show --showformat='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null |
        sed -n 's/ installed$//p') || true # fails when a package is unknown; the rest is listed
    comm -23 <(printf '%s\n' "$@" | sort) <(sort <<<"$present")
}

install_packages() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    say "installing ${missing[*]}"
    local quiet=(-qq -o Dpkg::Use-Pty=0)
    # An index of a foreign source may fail; what counts is whether the packages can be installed.
    as_root apt-get "${quiet[@]}" update || say "some package lists could not be fetched"
    local log
    log=$(mktemp)
    if ! as_root env DEBIAN_FRONTEND=noninteractive apt-get "${quiet[@]}" install -y \
        --no-install-recommends "${missing[@]}" >"$log" 2>&1; then
        cat "$log" >&2
        rm "$log"
        return 1
    fi
    rm "$log"
}

make_locale() {
    if locale -a | grep -qix 'cs_CZ\.utf-\?8'; then
        return 0
    fi
    say "generating the locale $locale_name"
    as_root localedef -i cs_CZ -f UTF-8 "$locale_name"
}

# 32-bit programs run in the 64-bit Wine once its 32-bit Windows modules are there. They are taken
# out of the i386 package of the same version; none of its Linux parts is needed.
install_modules32() {
    local version package
    version=$(package_version libwine)
    [ "$(cat "$modules32_stamp" 2>/dev/null)" != "$version" ] || return 0
    package=$(fetch_modules32 "$version") || package=
    if [ -z "$package" ]; then
        say "NO 32-BIT MODULES: the i386 package libwine $version cannot be had;" \
            "x86 programs cannot run" >&2
        return 0
    fi
    say "adding the 32-bit modules of Wine $version"
    local unpacked
    unpacked=$(mktemp -d)
    dpkg -x "$package" "$unpacked"
    as_root mkdir -p "$wine_modules/i386-windows"
    as_root cp -r "$unpacked"/usr/lib/*/wine/i386-windows/. "$wine_modules/i386-windows/"
    as_root sh -c "echo '$version' > '$modules32_stamp'"
    rm -rf "$unpacked"
}

# Prints the path of the package, downloaded at most once for a version.
fetch_modules32() {
    local version=$1 cache=${XDG_CACHE_HOME:-$HOME/.cache}/taviro
    local package=$cache/libwine_${version//:/%3a}_i386.deb
    if [ ! -s "$package" ]; then
        mkdir -p "$cache/lists/partial"
        local options=(-qq -oAPT::Architecture=i386 -oAPT::Architectures=i386
            -oAPT::Sandbox::User=root -oDir::State::status=/dev/null
            -oDir::State::Lists="$cache/lists")
        apt-get "${options[@]}" update >"$cache/update.log" 2>&1 || true # the download decides
        (cd "$cache" && apt-get "${options[@]}" download "libwine=$version" >>update.log 2>&1)
    fi
    [ -s "$package" ] && printf '%s' "$package"
}

packages=("${program_packages[@]}")
if [ "${1:-everything}" = everything ]; then
    packages+=("${test_packages[@]}")
fi
install_packages "${packages[@]}"
make_locale
if [ "${1:-everything}" = everything ]; then
    install_modules32
fi
