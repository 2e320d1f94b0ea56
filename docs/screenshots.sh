#!/bin/bash
# Takes the README's pictures: the main window with a small project open, and the zone
# editor, in each of the three languages. Runs the built program under a private X server;
# needs xvfb, openbox, xdotool, imagemagick and sqlite3 (none of them needed to build or test).
#   docs/screenshots.sh [BUILD_DIR]      (default: build)
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "${1:-build}")
out=$(realpath docs/screenshots)
mkdir -p "$out"
display=:$((90 + RANDOM % 9))
Xvfb "$display" -screen 0 1024x720x24 >/dev/null 2>&1 &
xvfb=$!
trap 'kill $xvfb 2>/dev/null' EXIT
export DISPLAY=$display
sleep 1
openbox >/dev/null 2>&1 &
wm=$!
trap 'kill $wm $xvfb 2>/dev/null' EXIT
sleep 3

# The demo project's rows in one language: group, contacts, and the first zones.
demo_rows() {
    case $1 in
    ChineseBig5) local g1=保全組 g2=管理處 u1=王大明 u2=林美玲 u3=陳志強 z1=大門 z2=倉庫 a1=大門遭入侵 r1=大門警報解除 ;;
    ChineseGB) local g1=保安组 g2=物业处 u1=王大明 u2=林美玲 u3=陈志强 z1=大门 z2=仓库 a1=大门遭入侵 r1=大门警报解除 ;;
    *) local g1=Security g2=Office u1="Tom Chen" u2="Mary Lin" u3="Jack Wang" z1="Front door" z2=Warehouse a1="Front door opened" r1="Front door closed" ;;
    esac
    cat <<SQL
UPDATE UserGroups SET GroupName='$g1', GroupDsc='';
INSERT INTO UserGroups VALUES ('$g2', '');
INSERT INTO Users VALUES ('$u1', '0912345678', '', '$g1', 0), ('$u2', '0923456789', '', '$g1', 0),
    ('$u3', '0934567890', '', '$g2', 0);
UPDATE Zones SET ZoneName='$z1', GroupName='$g1', AlarmSMS='$a1', ResetSMS='$r1' WHERE ZoneNo=0;
UPDATE Zones SET ZoneName='$z2', GroupName='ALL' WHERE ZoneNo=1;
SQL
}

# Waits up to ten seconds for a window other than $1 to be the active one, and prints it.
await_window() {
    local win
    for _ in $(seq 100); do
        win=$(xdotool getactivewindow 2>/dev/null || true)
        if [ -n "$win" ] && [ "$win" != "$1" ]; then
            echo "$win"
            return
        fi
        sleep 0.1
    done
    echo "no new window after $1" >&2
    exit 1
}

# A window's width; 0 once it is gone.
width_of() {
    local w
    w=$(xdotool getwindowgeometry "$1" 2>/dev/null | awk '/Geometry/{split($2, a, "x"); print a[1]}' || true)
    echo "${w:-0}"
}

# Waits for the main window, the program's first window at least 600 pixels wide (the
# splash comes before it), and prints it.
main_window() {
    for _ in $(seq 100); do
        for w in $(xdotool search --onlyvisible --class VORNA 2>/dev/null || true); do
            if [ "$(width_of "$w")" -ge 600 ]; then
                echo "$w"
                return
            fi
        done
        sleep 0.1
    done
    echo "no main window" >&2
    exit 1
}

# The active window with its frame, as docs/screenshots/NAME.png.
shoot() {
    import -frame -window "$(xdotool getactivewindow)" "$out/$1.png"
}

for lang in ChineseBig5 ChineseGB English; do
    dir=$(mktemp -d)
    cp -r "$build/VORNA" "$dir/VORNA"
    mkdir "$dir/Project" "$dir/System"
    sed -i "s/^AppliedLangName=[^\r]*/AppliedLangName=$lang/" "$dir/VORNA/VORNA.set"
    cp "$dir/VORNA/RM64.mdb" "$dir/Project/demo.cmb"
    # The recent-file list goes to a private settings folder, not the user's.
    export XDG_CONFIG_HOME=$dir/config
    demo_rows "$lang" | sqlite3 "$dir/Project/demo.cmb"
    (cd "$dir/VORNA" && exec ./VORNA) &
    vorna=$!
    win=$(main_window)
    xdotool windowactivate --sync "$win"
    xdotool windowsize --sync "$win" 900 560
    xdotool key ctrl+o
    await_window "$win" >/dev/null
    xdotool type --delay 20 demo.cmb
    xdotool key Return
    sleep 2
    # The first zone, shown in the list, then opened in its editor.
    xdotool key End Right Down
    sleep 1
    shoot "main-$lang"
    xdotool key Return
    await_window "$win" >/dev/null
    sleep 0.5
    shoot "zone-$lang"
    xdotool key Escape
    kill $vorna
    wait $vorna 2>/dev/null || true
    rm -rf "$dir"
done
