#!/usr/bin/env bash
# drive.sh EXECUTABLE TEMPLATES: uses the built program as a person does, with mouse and keys under a window manager, and
# looks at its files with the sqlite3 command. Prints what it checks; exits non-zero at the first thing that is wrong.
set -euo pipefail

executable=$1 templates=$2
work=$(mktemp -d)
folder=$work/program
login=$(id -un | tr '[:lower:]' '[:upper:]')
program=
started=()

clean_up() {
    kill "${started[@]}" ${program:+"$program"} 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap clean_up EXIT

wrong() {
    echo "WRONG: $*" >&2
    import -window root "${STEMP_FAILURE_PICTURE:-/dev/null}" 2>/dev/null || true
    exit 1
}

# until_true SECONDS COMMAND…: polls; fails when the time is over.
until_true() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || wrong "waited in vain for: $*"
        sleep 0.05
    done
}

window() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1; }
is_shown() { [ -n "$(window "$1")" ]; }
is_gone() { ! is_shown "$1"; }
has_ended() { ! kill -0 "$program" 2>/dev/null; }
rows() { sqlite3 -readonly "$folder/$login.mdb" "SELECT JobID, StempOutTime IS NULL FROM Stemp ORDER BY Id" | tr '\n' ' '; }
rows_are() { [ "$(rows)" = "$1" ]; }

start() {
    (cd "$folder" && exec ./stemp) &
    program=$!
}
# Clicks at a place of a window's inside, in pixels.
click() { xdotool mousemove --sync --window "$(window "$1")" "$2" "$3" click 1; }
# Closes a window as its frame's button does.
close() { xdotool windowfocus --sync "$(window "$1")" key alt+F4; }

# A display with a window manager.
mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
started=($!)
read -r -t 20 number <>"$work/display" || wrong "no display"
export DISPLAY=:$number QT_QPA_PLATFORM=xcb LANG=C.UTF-8
unset WAYLAND_DISPLAY QT_SCALE_FACTOR
openbox 2>/dev/null &
started+=($!)
until_true 20 xdotool get_desktop

mkdir "$folder"
cp "$executable" "$folder/stemp"
cp "$templates"/*.mdb "$folder"
cp "$folder/Blank Jobs.mdb" "$folder/Jobs.mdb"
sqlite3 "$folder/Jobs.mdb" "INSERT INTO Projects (JobID, JobName) VALUES ('A1', 'Anna''s job'), ('B2', 'Book-keeping')"

echo "the first start shows the main window and makes the files"
start
until_true 20 is_shown "$login Out"
until_true 5 test -f "$folder/$login Stemp.mdb" -a -f "$folder/$login.mdb"

echo "Enter on an entry of the dropped list stemps in, and no arrow key does"
click "$login Out" 300 45
xdotool type b
xdotool key Down Down Up Down Return # each entry that an arrow key stemped in on would have left a row
until_true 10 is_shown "B2 : Book-keeping"
until_true 5 rows_are "B2|1 "

echo "a kill loses nothing, and the next start offers the open row"
kill -KILL "$program"
wait "$program" 2>/dev/null || true
rows_are "B2|1 " || wrong "the row did not survive the kill"
start
until_true 20 is_shown "You are stemped IN!"
xdotool windowfocus --sync "$(window "You are stemped IN!")" key Down Down
rows_are "B2|1 " || wrong "an arrow key stemped out"
xdotool key space
until_true 10 is_shown "$login Out"
until_true 5 rows_are "B2|0 "

echo "a second copy ends and touches nothing"
before=$(cd "$folder" && ls)
(cd "$folder" && exec ./stemp) &
second=$!
second_asks() { xdotool search --onlyvisible --pid "$second"; }
until_true 20 second_asks
xdotool windowfocus --sync "$(second_asks | tail -n 1)" key Return
wait "$second" 2>/dev/null || true
[ "$before" = "$(cd "$folder" && ls)" ] || wrong "the second copy left files behind"

echo "the window remembers its place, and the personal file is sound"
place() { sqlite3 -readonly "$folder/$login Stemp.mdb" "SELECT CAST($1 AS INTEGER) FROM StempWin WHERE Name = 'Me'"; }
# One run in which the window is moved: whether its new place was stored. It is not while the window has not settled yet,
# so each run gives it more time.
patience=5
keeps_a_move_to() {
    [ -n "$program" ] || start
    until_true 20 is_shown "$login Out"
    sleep "$((patience / 10)).$((patience++ % 10))"
    local before
    before=$(place Left)
    xdotool windowmove --sync "$(window "$login Out")" "$1" 120
    close "$login Out"
    until_true 10 has_ended
    wait "$program" || wrong "the program ended with an error"
    program=
    [ "$(place Left)" != "$before" ]
}
until_true 30 keeps_a_move_to 200
left=$(place Left) top=$(place Top)
until_true 30 keeps_a_move_to 210
[ "$(place Left)" = $((left + 150)) ] || wrong "the window drifted sideways: $left, $(place Left)"
[ "$(place Top)" = "$top" ] || wrong "the window drifted downwards: $top, $(place Top)"
[ "$(sqlite3 "$folder/$login Stemp.mdb" 'PRAGMA integrity_check')" = ok ] || wrong "the personal file is not sound"

echo "1 passed, 0 failed"
