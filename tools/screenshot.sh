#!/usr/bin/env bash
# screenshot.sh FOLDER: starts the program in FOLDER under a virtual display with a window manager, waits for its main
# window, saves FOLDER/screenshot.png and ends the program. Exits non-zero when no main window came.
. "$(dirname "$0")/screen.sh"

folder=$1
picture=$folder/screenshot.png
work=$(mktemp -d)

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
start_window_manager
say "No display here: starting Stemp in $folder under a virtual one"
(cd "$folder" && exec ./stemp) &
program=$!

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
