#!/usr/bin/env bash
# drive.sh EXECUTABLE TEMPLATES: uses the built program as a person does, with mouse and keys under a window manager, and
# looks at its files with the sqlite3 command. Prints what it checks; exits non-zero at the first thing that is wrong.
. "$(dirname "$0")/../../tools/screen.sh"

executable=$(realpath "$1")
templates=$2
failurePicture=${executable%/*}/program-failed.png
work=$(mktemp -d)
folder=$work/program
login=$(id -un | tr '[:lower:]' '[:upper:]')

rows() { sqlite3 -readonly "$folder/$login.mdb" "SELECT JobID, StempOutTime IS NULL FROM Stemp ORDER BY Id" | tr '\n' ' '; }
rows_are() { [ "$(rows)" = "$1" ]; }

start() {
    (cd "$folder" && exec ./stemp) &
    program=$!
}

export LANG=C.UTF-8
start_display
start_window_manager
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
press "You are stemped IN!" Down Down
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
