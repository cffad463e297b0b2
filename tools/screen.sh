# A screen where there is none, and hands on it: what the scripts share that use the program as a person does, with mouse and
# keys under a window manager. To be sourced; it brings setup.sh along. Kills what was started and removes the script's scratch
# folder when the script ends.
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

work=    # the scratch folder; the script makes it
program= # the process of the program that the script has started
of=      # the process whose windows are meant, where two have windows of the same name
displayOptions=() # more for the virtual display
failurePicture=$root/build/screen-failed.png

clean_up() {
    jobs -p | xargs -r kill 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf ${work:+"$work"}
}
trap clean_up EXIT
trap 'exit 130' INT TERM

# Ends the script with a picture of the screen. The message is seen also when a condition says it that poll keeps quiet.
exec {messages}>&2
wrong() {
    local message="WRONG: $*."
    [ -z "$program" ] || ! has_ended || message+=" The program has ended."
    mkdir -p "${failurePicture%/*}"
    ! import -window root "$failurePicture" 2>/dev/null || message+=" What the screen showed: $failurePicture"
    fail "$message" 2>&"$messages"
}

# poll SECONDS COMMAND…: runs the command until it succeeds; fails when the time is over.
poll() {
    local end=$((SECONDS + $1))
    until "${@:2}" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.05
    done
}
# until_true SECONDS COMMAND…: polls; it is wrong when the time is over.
until_true() { poll "$@" || wrong "waited in vain for: ${*:2}"; }

# A display without a window manager
start_display() {
    [ -d /tmp/.X11-unix ] || mkdir -m 1777 /tmp/.X11-unix 2>/dev/null || true
    mkfifo "$work/display"
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp "${displayOptions[@]}" 3>"$work/display" 2>"$work/display.log" &
    local number=
    # Opened for reading and writing, so that a display that never starts can't block this.
    read -r -t 20 number <>"$work/display" || true
    [ -n "$number" ] || fail "The virtual display did not start: $(cat "$work/display.log")"
    mkdir -m 700 "$work/runtime"
    export DISPLAY=:$number QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$work/runtime
    unset WAYLAND_DISPLAY QT_SCALE_FACTOR
}
start_window_manager() {
    openbox >"$work/window-manager.log" 2>&1 &
    poll 20 xdotool get_desktop || fail "The window manager did not start: $(cat "$work/window-manager.log")"
}

has_ended() { ! kill -0 "$program" 2>/dev/null; }

# window TITLE: the id of the visible window with this title
window() { xdotool search --onlyvisible --all ${of:+--pid "$of"} --name "^$1\$" 2>/dev/null | tail -n 1; }
is_shown() { [ -n "$(window "$1")" ]; }
is_gone() { ! is_shown "$1"; }

# click TITLE X Y: at a place of the window's inside, in pixels. ("mousemove --sync" would wait a quarter of a minute for a
# pointer that is there already.)
click() { xdotool mousemove --window "$(window "$1")" "$2" "$3" click 1; }
# press TITLE KEY…: gives the window the keyboard and presses keys
press() { xdotool windowfocus --sync "$(window "$1")" key "${@:2}"; }
# As its frame's button does
close() { press "$1" alt+F4; }
