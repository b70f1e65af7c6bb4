# Functions for play, check and other scripts, which source this file. They install missing Debian packages and
# build presets, and end the script with a clear message if that fails.

to_build="cmake ninja-build g++ qt6-base-dev qt6-svg-dev libgl-dev libsdl2-dev fonts-lato fonts-vollkorn fonts-dejavu-core"
to_watch="xvfb xauth xdotool openbox x11-utils x11-xserver-utils python3"
to_test="$to_watch libgtest-dev libbenchmark-dev dbus-daemon orca clang libclang-rt-14-dev"
to_serve="tigervnc-standalone-server tigervnc-tools novnc websockify openbox xauth x11-utils x11-xserver-utils tk python3"
to_package="dpkg-dev gzip lintian desktop-file-utils appstream mandoc"

fail() {
    echo "$0: $*" >&2
    exit 1
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Runs a command as root.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "root rights are needed for: $*
Install sudo, or run that command as root and start again."
    fi
}

install_missing() {
    missing=""
    command -v dpkg-query >/dev/null ||
        fail "this is no Debian system. Install what corresponds to: $*"
    for package in "$@"; do
        is_installed "$package" || missing="$missing $package"
    done
    [ -z "$missing" ] && return
    echo "Installing:$missing"
    # shellcheck disable=SC2086  # a list of words
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing >/dev/null 2>&1 ||
        {
            as_root apt-get update || fail "the package lists cannot be fetched; is there a network?"
            # shellcheck disable=SC2086
            as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing ||
                fail "these packages cannot be installed:$missing"
        }
}

# Configures a preset and builds it. Quick if nothing has changed. The caller must have set $log.
build() {
    preset=$1
    [ -f "build/$preset/build.ninja" ] || echo "Configuring ($preset)"
    cmake --preset "$preset" >"$log" 2>&1 || { cat "$log" >&2; fail "the build cannot be configured"; }
    echo "Building ($preset)"
    cmake --build --preset "$preset" || fail "the build failed"
}
