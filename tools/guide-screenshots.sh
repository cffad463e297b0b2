#!/usr/bin/env bash
# guide-screenshots.sh [BUILD-FOLDER]: makes the pictures of docs/guide.md and the README anew, in docs/images: uses the program
# in the build folder (else the release build, built first) with mouse and keys under a virtual display, with demo data.
# The program believes that it is always the same moment, and that Anna is logged in: a picture changes only when its window does.
. "$(dirname "$0")/screen.sh"

images=$root/docs/images
patience=60 # seconds, on a machine that has other things to do
seconds=$(TZ=UTC date -d '2026-11-20 14:05:00' +%s) # a Friday, in Anna's working time
install_missing "${buildPackages[@]}" "${screenPackages[@]}" poppler-utils python3
if [ $# -gt 0 ]; then
    build=$(cd "$1" && pwd)
else
    build release
    build=$root/build/release
fi
work=$(mktemp -d)

# A clock that stands still, the login in $GUEST_LOGIN, a caret that does not blink, and a printer.
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

// QStyleHints::cursorFlashTime() const
int _ZNK11QStyleHints15cursorFlashTimeEv(const void *hints)
{
    (void)hints;
    return 0;
}

// One of the printing system's, as far as the preview asks for it.
typedef struct
{
    const char *name, *instance;
    int is_default, num_options;
    void *options;
} Printer;
static Printer printer = {.name = "Office", .is_default = 1};

int cupsGetDests(Printer **printers)
{
    *printers = &printer;
    return 1;
}

Printer *cupsGetNamedDest(void *server, const char *name, const char *instance)
{
    (void)server, (void)name, (void)instance;
    return &printer;
}

void cupsFreeDests(int count, Printer *printers)
{
    (void)count, (void)printers;
}
C
}
on_stage() { exec env LD_PRELOAD="$work/stage.so" GUEST_MOMENT="$seconds" GUEST_LOGIN="$login" TZ=UTC "$@"; }

# new_folder LOGIN: a program folder for a person.
new_folder() {
    login=$1
    folder=$work/$login
    mkdir "$folder"
    cp "$build/stemp" "$build/templates/"*.mdb "$folder"
}
start() {
    (cd "$folder" && on_stage ./stemp) &
    program=$!
}
end() {
    kill -TERM "$program" # as a logoff does
    until_true $patience has_ended
    wait "$program" || true
    program=
}

# The screen has come to rest: none who draws on it has anything to do, and it stays the same. (Where icons blink, it does so
# for less than half a second.)
settle() {
    local same=0 now before='' end=$((SECONDS + patience))
    while [ $same -lt 4 ]; do
        [ $SECONDS -lt $end ] || wrong "the screen did not come to rest"
        sleep 0.05
        now=$(cksum <"$work/Xvfb_screen0")
        if [ "$now" = "$before" ] && nobody_works; then same=$((same + 1)); else same=0; fi
        before=$now
    done
}
# No thread of a process that was started here runs, wants to run or waits for the disk.
nobody_works() {
    local process thread state
    jobs -p >"$work/processes"
    while read -r process; do
        for thread in "/proc/$process/task"/*; do
            { read -r state <"$thread/stat"; } 2>/dev/null || continue # ended meanwhile
            [[ $state != *') '[RD]' '* ]] || return 1
        done
    done <"$work/processes"
}

keys() {
    xdotool key --delay 40 "$@"
    settle
}
text() {
    xdotool type --delay 15 "$1"
    settle
}
# focus WINDOW: waits for it and gives it the keys.
focus() {
    until_true $patience is_shown "$1"
    xdotool windowfocus --sync "$(window "$1")"
    settle
}
# The help hands the keys on as long as it comes up.
keeps_keys() {
    focus "$1"
    [ "$(xdotool getwindowfocus)" = "$(window "$1")" ]
}
# leave WINDOW: with Escape
leave() {
    keys Escape
    until_true $patience is_gone "$1"
}

# capture WINDOW: takes the window with its frame, the pointer not on it.
capture() {
    local id left right top bottom x y width height
    id=$(window "$1")
    xdotool mousemove 1279 799 windowraise "$id"
    settle
    cp "$work/Xvfb_screen0" "$work/rest.xwd"
    IFS=', ' read -r left right top bottom < <(xprop -id "$id" _NET_FRAME_EXTENTS | sed 's/.*= //')
    read -r x y width height < <(xwininfo -id "$id" | awk -F: '/Absolute|Width|Height/ { printf "%d ", $2 } END { print "" }')
    convert "$work/rest.xwd" -crop \
        "$((width + left + right))x$((height + top + bottom))+$((x - left))+$((y - top))" +repage "$work/captured.png"
}
# save NAME: what was captured, without dates and other baggage; 256 colours are enough for windows.
save() {
    convert "$work/captured.png" -strip +dither -colors 256 -define png:compression-level=9 \
        -define png:exclude-chunks=date,time "PNG8:$images/$1.png"
    say "$1.png"
}
# shot NAME WINDOW
shot() {
    capture "$2"
    save "$1"
}

set_option() {
    sqlite3 "$folder/${login^^} Stemp.mdb" "UPDATE AdminForm SET Value = '$2' WHERE Name = '$1'"
}

# The person of the folder works with the company file from the next start on.
share_company() {
    start # makes the tables that hold the settings
    until_true $patience is_shown "${login^^} Out"
    end
    set_option EnterpriseMDBText "$work/network/Jobs.mdb"
    set_option PollDelay 1
}
# Whose login can't be the name of a file is asked for initials.
picture_initials() {
    new_folder blank
    start
    until_true $patience is_shown stemp # why the login won't do
    keys Return
    focus "Stemp Your Initials, please"
    keys ctrl+a
    text AN
    keys Tab ctrl+a
    text "Anna Nielsen"
    shot initials "Stemp Your Initials, please"
    end
}

picture_main() {
    focus "ANNA Out"
    shot main-out "ANNA Out"
    keys alt+f
    text "pump s"
    shot main-list "ANNA Out"
    keys Down Return
    until_true $patience is_gone "ANNA Out"
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
    until_true $patience is_shown "Stemp Help"
    shot help "Stemp Help"
    until_true $patience keeps_keys "Stemp Help"
    keys Escape
    focus Notes
    keys ctrl+a BackSpace
    leave Notes
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
    leave "Create Job"
}

picture_settings() {
    focus "$main"
    keys alt+a
    focus "Stemp Administration"
    keys Tab Tab Tab ctrl+a
    cp "$work/network/Jobs.mdb" "$folder/N:\Stemp\Jobs.mdb" # as it may be called; here it is the name of one file
    text 'N:\Stemp\Jobs.mdb'
    keys Tab Tab Tab Tab Tab Tab Tab ctrl+a
    text 15 # that of these pictures is shorter
    keys Tab
    shot settings "Stemp Administration"
    leave "Stemp Administration"
}

picture_summary() {
    focus "$main"
    keys alt+s
    focus "Hours Summaries"
    keys alt+m alt+p
    shot summary-per-job "Hours Summaries"
    keys alt+l alt+d
    shot summary-per-day "Hours Summaries"
    click "Hours Summaries" 484 88
    local preview='Print Preview: ANNA .*'
    focus "$preview"
    shot preview "$preview"
    leave "$preview"
    focus "Hours Summaries"
    keys alt+s h
    until_true $patience is_shown "Save the timesheet as PDF"
    keys ctrl+a
    text "$work/timesheet.pdf"
    keys Return
    until_true $patience pdftoppm -r 75 -png -singlefile "$work/timesheet.pdf" "$work/timesheet"
    convert "$work/timesheet.png" -trim -bordercolor white -border 24 -bordercolor '#808080' -border 1 "$work/captured.png"
    save timesheet
    focus "Hours Summaries"
    leave "Hours Summaries"
}

# write_to ROW TEXT: from the board, to the person in that row, the first of which is 0.
write_to() {
    local row downs=()
    for ((row = 0; row < $1; ++row)); do downs+=(Down); done
    focus Fairosne
    keys ctrl+Home ${downs[@]+"${downs[@]}"} Return
    until_true $patience is_shown Message
    text "$2"
}
# has COLOUR PIXELS [PART]: whether there are more than so many in what was captured
has() {
    local pixels
    pixels=$(convert "$work/captured.png" ${3:+-crop "$3"} -fill black +opaque "$1" -fill white -opaque "$1" \
        -format '%[fx:round(mean*w*h)]' info:)
    [ "$pixels" -gt "$2" ]
}
# The board as it shows a message, and in its blinking icon, too.
captures_message() {
    capture Fairosne
    has '#ffff00' 1000 && has '#fee8a8' 10 20x20+0+0
}
captures_no_message() {
    capture Fairosne
    ! has '#ffff00' 0
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
    until_true $patience is_shown "BO Status"
    keys ctrl+a
    text "At Skive Furniture until 4"
    shot status "BO Status"
    keys Return
    until_true $patience is_gone "BO Status"
    write_to 0 "Is the spare pump in the east cellar? The one here is broken."
    keys Return

    of=$anna
    until_true $patience captures_message
    save board-anna
    focus Fairosne
    keys ctrl+Home Down Right Return # reads it
    until_true $patience captures_no_message
    write_to 1 "Yes, behind the boiler. I can bring it by three."
    keys alt+s # sends and stays open
    text "Do you need the big wrench, too?"
    shot message Message
    keys Return
    of=$bo
    until_true $patience captures_message
    save board-bo
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
export HOME=$work LANG=C.UTF-8
displayOptions=(-fbdir "$work") # the screen is in a file, too
start_display
start_window_manager
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
