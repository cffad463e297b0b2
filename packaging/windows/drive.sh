#!/usr/bin/env bash
# drive.sh INSTALLER: installs the program under Wine as a person does, uses it with mouse and keys, installs it once more,
# removes it, and looks at its files with the sqlite3 command. Prints what it checks; exits non-zero at the first thing
# that is wrong.
. "$(dirname "$0")/../../tools/screen.sh"
. "$root/packaging/windows/wine.sh"

installer=$(realpath "$1")
pictures=$root/build/windows/pictures
failurePicture=$pictures/failure.png
work=$(mktemp -d)
folder=
# The processes of Wine's own outlive the program.
trap 'wineserver -k 2>/dev/null || true; clean_up' EXIT

picture() { import -window root "$pictures/$1.png"; }
run() { timeout 120 wine64 "$@"; }
# exits_with CODE PROGRAM ARGUMENT…
exits_with() {
    local code=0
    run "${@:2}" || code=$?
    [ "$code" = "$1" ] || wrong "exit code $code instead of $1: ${*:2}"
}
can_be_installed() { run "$installer" /S; }
rows() { sqlite3 -readonly "$folder/$login.mdb" "SELECT JobID, JobName, StempOutTime IS NULL FROM Stemp" | tr '\n' ' '; }
rows_are() { [ "$(rows)" = "$1" ]; }
has_no_program() { [ ! -e "$folder/stemp.exe" ] && [ ! -e "$folder/Uninstall.exe" ] && [ ! -d "$folder/platforms" ]; }

mkdir -p "$pictures"
start_display
start_window_manager

# A Wine as on the first day.
rm -rf "$root/build/windows-wine/installed"
use_wine "$root/build/windows-wine/installed"
login=$(run cmd /c 'echo %USERNAME%' | tr -d '\r\n' | tr '[:lower:]' '[:upper:]')
home=$WINEPREFIX/drive_c/users/${login,,}
folder=$home/Stemp

say "a folder that cannot be written is refused, and one that is not there, and one for administrators"
exits_with 3 "$installer" /S '/D=Z:\proc\Stemp'
exits_with 3 "$installer" /S '/D=Q:\Stemp'
exits_with 3 "$installer" /S '/D=C:\Program' 'Files\Stemp'
[ ! -e "$WINEPREFIX/drive_c/Program Files/Stemp" ] || wrong "something was left in Program Files"

say "it installs for this person, with shortcuts"
exits_with 0 "$installer" /S
[ -f "$folder/stemp.exe" ] || wrong "no program in $folder"
shortcut=$(find "$home/AppData" -name Stemp.lnk)
[ -n "$shortcut" ] || wrong "no shortcut in the start menu"

say "the shortcut starts it in its folder; a job that is typed is stemped in, and out"
run start /unix "$shortcut" &
until_true 60 is_shown "$login Out"
picture main
click "$login Out" 300 45
xdotool key Escape # closes the list that has dropped down
xdotool type --delay 40 'T1 : First job'
click "$login Out" 60 45
until_true 20 is_shown "T1 : First job"
until_true 10 rows_are "T1|First job|1 "
picture in

say "neither a new version nor the removal touches a program that runs"
exits_with 4 "$installer" /S
exits_with 4 "$folder/Uninstall.exe" /S "_?=C:\\users\\${login,,}\\Stemp"
[ -f "$folder/stemp.exe" ] || wrong "the program is gone"

press "T1 : First job" alt+o
until_true 20 is_shown "$login Out"
until_true 10 rows_are "T1|First job|0 "
close "$login Out"
until_true 20 is_gone "$login Out"
say "a new version is installed over the old one and keeps the data"
cp "$folder/Blank Jobs.mdb" "$folder/Jobs.mdb"
sqlite3 "$folder/Jobs.mdb" "INSERT INTO Projects (JobID) VALUES ('OURS')"
data=("$login.mdb" "$login Stemp.mdb" "Jobs.mdb")
sums() { (cd "$folder" && sha256sum "${data[@]}"); }
before=$(sums)
until_true 30 can_be_installed
[ "$(sums)" = "$before" ] || wrong "the data were changed by the new version"

say "the removal takes the program and leaves the data"
exits_with 0 "$folder/Uninstall.exe" /S
until_true 30 has_no_program
[ "$(sums)" = "$before" ] || wrong "the data were changed by the removal"
left=$(cd "$folder" && printf '%s\n' * | sort | tr '\n' '|')
[ "$left" = "$(printf '%s\n' "${data[@]}" | sort | tr '\n' '|')" ] || wrong "this was left: $left"
for file in "${data[@]}"; do
    [ "$(sqlite3 -readonly "$folder/$file" 'PRAGMA integrity_check')" = ok ] || wrong "$file is damaged"
done
rows_are "T1|First job|0 " || wrong "the row is gone"
[ -z "$(find "$home/AppData" "$HOME" -name Stemp.lnk)" ] || wrong "a shortcut was left"

say "1 passed, 0 failed"
