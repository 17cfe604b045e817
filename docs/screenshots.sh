#!/usr/bin/env bash
# Makes the pictures of the README, docs/pictures/*.png, from the program itself: the demo's
# window on a screen of its own, in light and dark, in English and German.
# Usage: docs/screenshots.sh [PROGRAM]      (build/release/src/tagwright unless named)
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=tools/packages.sh
source "$top/tools/packages.sh"
pictures=$top/docs/pictures

# The palette, which qt6ct gives in place of a desktop: a colour for each role, in Qt's order.
colours() {
    if [ "$1" = dark ]; then
        local text="#e6e6e6" dim="#808080" base="#1e1f22"
        echo "$text, #3a3c40, #55585d, #484b50, #18191b, #2f3135, $text, #ffffff, $text, $base," \
            "#2b2d30, #000000, #2f65ca, #ffffff, #6ea4f0, #b08ae0, #25272a, $text, #3a3c40," \
            "$text, $dim"
    else
        local text="#1c1c1e" dim="#8a8a8e" base="#ffffff"
        echo "$text, #f3f3f4, #ffffff, #e6e6e8, #9c9ca0, #c4c4c8, $text, #ffffff, $text, $base," \
            "#f1f1f2, #808080, #2f65ca, #ffffff, #1f5fbf, #6b3fa0, #f7f7f8, $text, #ffffe6," \
            "$text, $dim"
    fi
}

# The same palette for what is disabled: every text in the placeholder's colour.
dim() {
    awk -F', ' -v OFS=', ' '{ $1 = $7 = $9 = $14 = $NF; print }' <<<"$1"
}

desktop_settings() {
    local scheme=$1 config=$HOME/.config/qt6ct
    mkdir -p "$config"
    local active
    active=$(colours "$scheme")
    printf '[ColorScheme]\nactive_colors=%s\ninactive_colors=%s\ndisabled_colors=%s\n' \
        "$active" "$active" "$(dim "$active")" >"$config/colours.conf"
    cat >"$config/qt6ct.conf" <<END
[Appearance]
custom_palette=true
color_scheme_path=$config/colours.conf
style=Fusion
[Fonts]
general="DejaVu Sans,9,-1,5,50,0,0,0,0,0"
fixed="DejaVu Sans Mono,9,-1,5,50,0,0,0,0,0"
[Interface]
cursor_flash_time=0
END
}


# Prints the id of the window whose title matches, once it stands on the screen.
window_called() {
    timeout 60 xdotool search --sync --onlyvisible --name "$1" | tail -1
}

# Until the screen has been still for two seconds.
settle() {
    local before='' now still=0
    while [ $still -lt 4 ]; do
        sleep 0.5
        now=$(import -window root -depth 8 rgb:- | md5sum)
        if [ "$now" = "$before" ]; then still=$((still + 1)); else still=0; fi
        before=$now
    done
}

keys() { xdotool key --clearmodifiers "$@"; }

snap() { # window picture
    settle
    import -window "$1" -strip +dither -colors 255 -define png:compression-level=9 \
        "png8:$pictures/$2.png"
}

# Prints the id of the demo's window, which shows its songs.
demo_window() {
    local window
    window=$(window_called "– Tagwright$")
    settle # the window manager has placed it
    xdotool windowsize --sync "$window" 1380 820 windowfocus --sync "$window"
    settle
    # A click into the list, with the pointer out of the way afterwards.
    xdotool mousemove --window "$window" 300 130 click 1 mousemove 1435 895
    echo "$window"
}

# The word on songs of compilations, which gets no keys before it is clicked.
dismiss_warning() {
    local warning
    warning=$(xdotool search --onlyvisible --name "ompilation" | tail -1) || return 0
    [ -n "$warning" ] || return 0
    xdotool mousemove --window "$warning" 8 8 click 1 mousemove 1435 895
    settle
    keys Escape
}

# The demo's songs after a run, one of them selected.
gathered() {
    local window
    window=$(demo_window)
    keys ctrl+a ctrl+Return
    settle
    dismiss_warning
    xdotool windowfocus --sync "$window"
    keys Home Down Down
    snap "$window" "$1"
}

# The review of what the run found.
review() {
    gathered "$1"
    keys ctrl+shift+Return
    snap "$(window_called "^Review")" "$1"
}

# One picture from a home, a screen and a program of its own. Runs inside the screen.
session() { # picture scheme language steps
    HOME=$(mktemp -d)
    export HOME XDG_RUNTIME_DIR=$HOME QT_QPA_PLATFORMTHEME=qt6ct
    export LC_ALL="" LANG=C.UTF-8 LANGUAGE=$3
    unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_STATE_HOME XDG_CACHE_HOME
    desktop_settings "$2"
    openbox & local manager=$!
    "$program" demo & local running=$!
    # shellcheck disable=SC2064
    trap "kill $running $manager; wait; rm -rf '$HOME'" EXIT
    "$4" "$1"
}

if [ "${1:-}" = --session ]; then
    program=$2
    session "${@:3}"
    exit
fi
install_missing xvfb openbox xdotool imagemagick qt6ct qt6-translations-l10n fonts-dejavu-core
program=$(realpath "${1:-$top/build/release/src/tagwright}")
mkdir -p "$pictures"
for picture in \
    "window light en gathered" \
    "window-dark dark en gathered" \
    "window-german light de gathered" \
    "review light en review"; do
    # shellcheck disable=SC2086
    xvfb-run -a -s "-screen 0 1440x900x24" "$0" --session "$program" $picture
done
