#!/usr/bin/env bash
# screenshot.sh FOLDER: starts the program in FOLDER under a virtual display with a window manager, waits for its main
# window, saves FOLDER/screenshot.png and ends the program. Exits non-zero when no main window came.
. "$(dirname "$0")/setup.sh"

folder=$1
picture=$folder/screenshot.png
work=$(mktemp -d)
started=()

clean_up() {
    local pid
    for pid in "${started[@]}"; do
        kill "$pid" 2>/dev/null || true
    done
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap clean_up EXIT
trap 'exit 130' INT TERM

# poll SECONDS COMMAND…: runs the command until it succeeds; fails when the time is over.
poll() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.1
    done
}

is_running() { kill -0 "$program" 2>/dev/null; }
has_ended() { ! is_running; }

start_display() {
    mkdir -p -m 1777 /tmp/.X11-unix 2>/dev/null || true
    mkfifo "$work/display"
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
    started=($! "${started[@]}")
    local number=
    # Opened for reading and writing, so that a display that never starts can't block this.
    read -r -t 20 number <>"$work/display" || true
    [ -n "$number" ] || fail "The virtual display did not start: $(cat "$work/xvfb.log")"
    export DISPLAY=:$number QT_QPA_PLATFORM=xcb
    unset WAYLAND_DISPLAY
    if [ -z "${XDG_RUNTIME_DIR-}" ]; then
        export XDG_RUNTIME_DIR=$work/runtime
        mkdir -m 700 "$XDG_RUNTIME_DIR"
    fi
    openbox >"$work/openbox.log" 2>&1 &
    started=($! "${started[@]}")
    poll 20 has_window_manager || fail "The window manager did not start: $(cat "$work/openbox.log")"
}
has_window_manager() { xdotool get_desktop >/dev/null 2>&1; }

visible_windows() { xdotool search --onlyvisible --pid "$program" 2>/dev/null || true; }
is_modal() { xprop -id "$1" _NET_WM_STATE 2>/dev/null | grep -q MODAL; }

# A question or a message at start is a modal window; the main window is not.
find_main_window() {
    local window
    for window in $(visible_windows); do
        if ! is_modal "$window"; then
            main=$window
            return
        fi
    done
    return 1
}
has_main_window_or_ended() { find_main_window || has_ended; }

# The window is painted when two pictures of the screen in a row are equal.
is_painted() {
    import -window root "$work/now.png"
    if cmp -s "$work/now.png" "$work/before.png"; then
        return
    fi
    mv "$work/now.png" "$work/before.png"
    return 1
}

start_display
say "No display here: starting Stemp in $folder under a virtual one"
cd "$folder"
"$folder/stemp" &
program=$!
started=("$program" "${started[@]}")

main=
if ! poll 30 has_main_window_or_ended || [ -z "$main" ]; then
    if has_ended; then
        wait "$program" && code=0 || code=$?
        fail "The program ended, with exit code $code, before its main window came."
    fi
    import -window root "$picture"
    for window in $(visible_windows); do
        say "A window is waiting for an answer: $(xdotool getwindowname "$window")"
    done
    fail "The main window did not come within 30 seconds. What the screen showed: $picture"
fi
poll 10 is_painted || true
import -window root "$picture"
say "The main window \"$(xdotool getwindowname "$main")\" came. Screenshot: $picture"

# The program takes SIGTERM as the end of the desktop session: it saves and closes without asking.
kill -TERM "$program"
if poll 10 has_ended; then
    say "The program was ended as a logoff would end it."
else
    kill -KILL "$program"
    fail "The program did not end within 10 seconds of being asked to."
fi
