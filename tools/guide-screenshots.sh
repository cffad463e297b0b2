#!/usr/bin/env bash
# guide-screenshots.sh [BUILD-FOLDER]: makes the pictures of docs/guide.md and the README anew, in docs/images: uses the program
# in the build folder (else the release build, built first) with mouse and keys under a virtual display, with demo data.
# The program believes that it is always the same moment, and that Anna is logged in: a picture changes only when its window does.
. "$(dirname "$0")/setup.sh"

images=$root/docs/images
seconds=$(TZ=UTC date -d '2026-11-20 14:05:00' +%s) # a Friday, in Anna's working time
install_missing "${buildPackages[@]}" "${screenPackages[@]}" poppler-utils python3
if [ $# -gt 0 ]; then
    build=$(cd "$1" && pwd)
else
    build release
    build=$root/build/release
fi

work=$(mktemp -d)
program=
started=()
clean_up() {
    kill "${started[@]}" ${program:+"$program"} 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap clean_up EXIT
trap 'exit 130' INT TERM

wrong() {
    mkdir -p "$root/build"
    import -window root "$root/build/guide-failed.png" 2>/dev/null || true
    fail "$* What the screen showed: $root/build/guide-failed.png"
}

# until_true COMMAND…: polls for 20 seconds.
until_true() {
    local end=$((SECONDS + 20))
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || wrong "Waited in vain for: $*."
        sleep 0.05
    done
}

# A clock that stands still, and the login in $GUEST_LOGIN.
make_stage() {
    gcc -shared -fPIC -O1 -o "$work/stage.so" -x c - <<'C'
#define _GNU_SOURCE
#include <pwd.h>
#include <stdlib.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

static time_t Moment(void)
{
    return strtol(getenv("GUEST_MOMENT"), NULL, 10);
}

int clock_gettime(clockid_t clock, struct timespec *time)
{
    if (clock != CLOCK_REALTIME)
        return (int)syscall(SYS_clock_gettime, clock, time);
    *time = (struct timespec){Moment(), 0};
    return 0;
}

int gettimeofday(struct timeval *restrict time, void *restrict zone)
{
    *time = (struct timeval){Moment(), 0};
    return 0;
}

time_t time(time_t *result)
{
    return result ? (*result = Moment()) : Moment();
}

int getpwuid_r(uid_t user, struct passwd *entry, char *buffer, size_t size, struct passwd **result)
{
    *entry = (struct passwd){.pw_name = getenv("GUEST_LOGIN"), .pw_passwd = "", .pw_uid = user, .pw_gecos = "",
                             .pw_dir = "/", .pw_shell = ""};
    *result = entry;
    return 0;
}
C
}
on_stage() { exec env LD_PRELOAD="$work/stage.so" GUEST_MOMENT="$seconds" GUEST_LOGIN="$login" TZ=UTC "$@"; }

start_display() {
    mkdir -p -m 1777 /tmp/.X11-unix 2>/dev/null || true
    mkfifo "$work/display"
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
    started=($!)
    local number=
    read -r -t 20 number <>"$work/display" || fail "The virtual display did not start."
    export DISPLAY=:$number QT_QPA_PLATFORM=xcb LANG=C.UTF-8 HOME=$work
    unset WAYLAND_DISPLAY QT_SCALE_FACTOR
    mkdir -m 700 "$work/runtime"
    export XDG_RUNTIME_DIR=$work/runtime
    openbox >/dev/null 2>&1 &
    started+=($!)
    until_true xdotool get_desktop
}

of= # the process of the program that is meant, where two have windows of the same name
window() { xdotool search --onlyvisible --all ${of:+--pid "$of"} --name "^$1" 2>/dev/null | tail -n 1; }
is_shown() { [ -n "$(window "$1")" ]; }
is_gone() { ! is_shown "$1"; }
has_ended() { ! kill -0 "$program" 2>/dev/null; }

# new_folder LOGIN: a program folder for a person.
new_folder() {
    login=$1
    folder=$work/$login
    mkdir "$folder"
    cp "$build/stemp" "$build/templates/"*.mdb "$folder"
}
start() {
    (cd "$folder" && on_stage ./stemp) 2>>"$work/program.log" &
    program=$!
}
end() {
    kill -TERM "$program" # as a logoff does
    until_true has_ended
    wait "$program" || true
    program=
}

keys() {
    xdotool key --delay 40 "$@"
    settle
}
text() {
    xdotool type --delay 15 "$1"
    settle
}
# click WINDOW X Y: at a place of its inside, in pixels.
click() {
    xdotool mousemove --sync --window "$(window "$1")" "$2" "$3" click 1
    settle
}
# focus WINDOW: waits for it and gives it the keys.
focus() {
    until_true is_shown "$1"
    xdotool windowfocus --sync "$(window "$1")"
    settle
}

# settle [TIMES]: the screen has come to rest when pictures of it in a row are the same but for a blinking caret.
settle() {
    local same=0 tries=0 differing
    rm -f "$work/before.ppm"
    while [ $same -lt "${1:-2}" ] && [ $((tries += 1)) -lt 100 ]; do
        import -window root "$work/now.ppm"
        differing=$(compare -metric AE "$work/before.ppm" "$work/now.ppm" null: 2>&1) || true
        [[ $differing =~ ^[0-9]+$ ]] && [ "$differing" -le 60 ] && same=$((same + 1)) || same=0
        mv "$work/now.ppm" "$work/before.ppm"
        sleep 0.05
    done
}

# save NAME < picture: without dates and other baggage; 256 colours are enough for windows.
save() {
    convert - -strip +dither -colors 256 -define png:compression-level=9 -define png:exclude-chunks=date,time \
        "PNG8:$images/$1.png"
    say "$1.png"
}
# shot NAME WINDOW: the window with its frame, the pointer not on it.
shot() {
    local id left right top bottom x y width height
    id=$(window "$2")
    xdotool mousemove --sync 1279 799 windowraise "$id"
    settle 4
    IFS=', ' read -r left right top bottom < <(xprop -id "$id" _NET_FRAME_EXTENTS | sed 's/.*= //')
    read -r x y width height < <(xwininfo -id "$id" | awk -F: '/Absolute|Width|Height/ { printf "%d ", $2 } END { print "" }')
    convert "$work/before.ppm" -crop \
        "$((width + left + right))x$((height + top + bottom))+$((x - left))+$((y - top))" +repage png:- | save "$1"
}

set_option() {
    sqlite3 "$folder/${login^^} Stemp.mdb" "UPDATE AdminForm SET Value = '$2' WHERE Name = '$1'"
}

# The person of the folder works with the company file from the next start on.
share_company() {
    start # makes the tables that hold the settings
    until_true is_shown "${login^^} Out"
    end
    set_option EnterpriseMDBText "$work/network/Jobs.mdb"
    set_option PollDelay 1
}
# Whose login can't be the name of a file is asked for initials.
picture_initials() {
    new_folder blank
    start
    until_true is_shown stemp # why the login won't do
    keys Return
    focus "Stemp Your Initials"
    keys ctrl+a
    text AN
    keys Tab ctrl+a
    text "Anna Nielsen"
    shot initials "Stemp Your Initials"
    end
}

picture_main() {
    focus "ANNA Out"
    shot main-out "ANNA Out"
    keys alt+f
    text pump
    shot main-list "ANNA Out"
    keys Down Return
    until_true is_gone "ANNA Out"
    main=$(xdotool getactivewindow getwindowname)
    shot main-in "$main"
}

picture_notes() {
    keys alt+n
    focus Notes
    text "The spare pump stands in the east cellar, behind the boiler."
    keys ctrl+Return
    text "Ask Søren for the key"
    shot notes Notes
    keys F1
    until_true is_shown "Stemp Help"
    shot help "Stemp Help"
    focus "Stemp Help"
    keys Escape
    focus Notes
    keys ctrl+a BackSpace Escape
    until_true is_gone Notes
}

picture_create_job() {
    focus "$main"
    keys alt+c
    focus "Create Job"
    text SKI-401
    keys Tab
    text "Skive Furniture, new warehouse"
    keys alt+a
    text SKI-402
    keys Tab
    text "Skive Furniture, paint shop"
    shot create-job "Create Job"
    keys ctrl+e
    click "Create Job" 200 22
    keys ctrl+a
    text "What it is about"
    shot editing "Create Job"
    keys Tab ctrl+shift+BackSpace
    local question
    question=$(xdotool getactivewindow getwindowname)
    shot putting-back "$question"
    keys Escape
    focus "Create Job"
    keys Escape
    until_true is_gone "Create Job"
}

picture_settings() {
    focus "$main"
    keys alt+a
    focus "Stemp Administration"
    keys Tab Tab Tab ctrl+a
    text 'N:\Stemp\Jobs.mdb' # as it may be called; the real one is temporary
    keys Tab
    shot settings "Stemp Administration"
    keys Escape
    until_true is_gone "Stemp Administration"
}

picture_summary() {
    focus "$main"
    keys alt+s
    focus "Hours Summaries"
    keys alt+m alt+p
    shot summary-per-job "Hours Summaries"
    keys alt+l alt+d
    shot summary-per-day "Hours Summaries"
    keys alt+s h
    until_true is_shown "Save the timesheet as PDF"
    keys ctrl+a
    text "$work/timesheet.pdf"
    keys Return
    until_true pdftoppm -r 75 -png -singlefile "$work/timesheet.pdf" "$work/timesheet"
    convert "$work/timesheet.png" -trim -bordercolor white -border 24 -bordercolor '#808080' -border 1 png:- |
        save timesheet
    focus "Hours Summaries"
    keys Escape
    until_true is_gone "Hours Summaries"
}

# write_to ROW TEXT: from the board, to the person in that row, the first of which is 0.
write_to() {
    local row downs=()
    for ((row = 0; row < $1; ++row)); do downs+=(Down); done
    focus Fairosne
    keys ctrl+Home ${downs[@]+"${downs[@]}"} Return
    until_true is_shown Message
    text "$2"
}
# The board shows a message.
is_yellow() {
    local pixels
    pixels=$(import -window "$(window Fairosne)" ppm:- |
        convert - -fill black +opaque '#ffff00' -fill white -opaque '#ffff00' -format '%[fx:round(mean*w*h)]' info:)
    [ "${pixels:-0}" -gt 1000 ]
}

# Bo writes to Anna, whose copy runs, and she answers.
picture_board() {
    local anna=$program annasFolder=$folder bo
    new_folder bo
    share_company
    start
    bo=$program
    of=$bo
    focus "BO Out"
    text "SKI-101 : Skive Furniture, annual inspection"
    keys Escape Tab space # stemps in
    focus Fairosne
    keys ctrl+Home Down Right Return # his own status
    until_true is_shown "BO Status"
    keys ctrl+a
    text "At Skive Furniture until 4"
    shot status "BO Status"
    keys Return
    until_true is_gone "BO Status"
    write_to 0 "Is the spare pump in the east cellar? The one here is broken."
    shot message Message
    keys Return

    of=$anna
    until_true is_yellow
    shot board-anna Fairosne
    write_to 1 "Yes, behind the boiler. I can bring it by three."
    keys Return
    of=$bo
    until_true is_yellow
    shot board-bo Fairosne
    end
    of=
    login=anna folder=$annasFolder program=$anna
}

picture_out_query() {
    focus "$main"
    keys alt+F4
    focus "You are stemped IN!"
    shot out-query "You are stemped IN!"
}

login=
make_stage
start_display
mkdir -p "$images"
picture_initials

new_folder anna
(on_stage python3 "$root/tools/make-demo-data.py" "$folder") >/dev/null
mkdir "$work/network"
cp "$folder/Jobs.mdb" "$work/network"
sqlite3 "$work/network/Jobs.mdb" "
    INSERT INTO Users (User, State, Comment, LastSign) SELECT name, state, comment, ${seconds}/86400.0 + 25569 FROM
    (SELECT 'EVA' AS name, 1 AS state, 'On holiday until Monday' AS comment
     UNION SELECT 'SØREN', -1, 'At a customer' UNION SELECT 'KIRSTEN', 0, 'Lunch, back at 2:30')"
share_company
set_option AutoCheck 1
set_option AdminCheck 1
start
picture_main
picture_notes
picture_create_job
picture_settings
picture_summary
picture_board
picture_out_query
end
