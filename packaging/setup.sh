# SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# What the scripts in the top folder share. They source this file, which puts them in the top
# folder and gives them a usable environment, however bare the one they were started in is.

OSTRAND_STARTED_IN=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

# Containers and services start programs with neither of these.
if [[ -z ${HOME:-} ]]; then
    HOME=$(getent passwd "$(id -u)" | cut -d: -f6)
    export HOME=${HOME:-/tmp}
fi
if [[ -z ${LC_ALL:-}${LC_CTYPE:-}${LANG:-} ]]; then
    export LANG=C.UTF-8
fi

say() { echo "$*" >&2; }

# Runs a command as root: directly, or through sudo. sudo may ask for the password of a user at a
# terminal, and asks nothing elsewhere.
as_root() {
    if ((EUID == 0)); then
        "$@"
    elif ! command -v sudo >/dev/null; then
        say "These packages must be installed by root: ${OSTRAND_MISSING[*]}"
        return 1
    elif [[ -t 0 ]]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qy -o DPkg::Lock::Timeout=300 "$@" </dev/null
}

# Sets OSTRAND_MISSING to the packages among the given ones that are not installed.
find_missing() {
    local installed package
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    OSTRAND_MISSING=()
    for package; do
        grep -qxF "installed $package" <<<"$installed" || OSTRAND_MISSING+=("$package")
    done
}

# install_packages LIST...: installs what is missing of the lists in packaging/apt.
install_packages() {
    local -a wanted
    mapfile -t wanted < <(for list; do grep -v '^#' "packaging/apt/$list.list"; done)
    find_missing "${wanted[@]}"
    ((${#OSTRAND_MISSING[@]})) || return 0
    say "Installing ${OSTRAND_MISSING[*]}"
    # The package lists of the machine may be missing or old: they are fetched when they do not
    # serve, and only then.
    apt_get install --no-install-recommends "${OSTRAND_MISSING[@]}" 2>/dev/null && return 0
    apt_get update
    apt_get install --no-install-recommends "${OSTRAND_MISSING[@]}"
}

# build [TARGET...]: configures and builds build/ (everything without a target).
build() {
    cmake --preset release
    cmake --build --preset release ${1+--target "$@"}
}

# with_display COMMAND...: runs a command on an X display of its own with a window manager, and
# gives its exit code.
with_display() (
    set -euo pipefail
    folder=$(mktemp -d)
    servers=()
    # shellcheck disable=SC2317 # called by the trap
    finish() {
        ((${#servers[@]} == 0)) || kill "${servers[@]}" 2>/dev/null || true
        wait || true
        rm -rf "$folder"
    }
    trap finish EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP

    # The server picks a free display, and tells which once it is ready.
    mkfifo "$folder/display"
    Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp 3<>"$folder/display" \
        </dev/null >"$folder/Xvfb.log" 2>&1 &
    servers+=($!)
    if ! read -r -t 30 number <>"$folder/display"; then
        say "No display could be started:"
        cat "$folder/Xvfb.log" >&2
        exit 1
    fi
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY
    openbox </dev/null >/dev/null 2>&1 &
    servers+=($!)
    "$@"
)
