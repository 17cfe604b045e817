# Debian packages that a job needs; sourced by ./run and ./test.

build_packages=(
    g++ cmake ninja-build pkg-config
    qt6-base-dev qt6-base-dev-tools qt6-httpserver-dev qt6-websockets-dev
    qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools libgl1-mesa-dev libqt6svg6
    libplist-dev zlib1g-dev libxxhash-dev libssl-dev libcli11-dev
    libchromaprint-dev libavformat-dev libavcodec-dev libswresample-dev libavutil-dev
)

# Other programs' readers and writers of tags, to compare ours with, a player that plays while songs
# are written, and what checks the code.
test_packages=(
    python3 python3-mutagen ffmpeg libimage-exiftool-perl kid3-cli libchromaprint-tools clang-format
    desktop-file-utils appstream groff-base
    dbus-daemon dbus-bin mpv mpv-mpris playerctl python3-dbus python3-gi
)

# install_missing PACKAGES...: asks for rights only when something is missing, and says what.
install_missing() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system; the build needs what these packages hold: $*" >&2
        return
    fi
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q ' installed$' \
            || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing: ${missing[*]}" >&2
    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Please install these packages as root first: ${missing[*]}" >&2
            exit 1
        fi
        sudo=(sudo)
    fi
    "${sudo[@]}" apt-get update -qq >&2
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}
