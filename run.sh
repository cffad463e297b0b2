#!/usr/bin/env bash
# Builds the program, puts it together in a folder of its own and starts it there.
#   ./run.sh          in ./program
#   ./run.sh --demo   in ./program-demo, with half a year of made-up data
# On a machine without a display it starts under a virtual one, leaves a screenshot in that folder and ends.
cd "$(dirname "$0")" && . tools/setup.sh

folder=$root/program
demo=
case "${1-}" in
'') ;;
--demo)
    demo=yes
    folder=$root/program-demo
    ;;
*) fail "Usage: ./run.sh [--demo]" ;;
esac

packages=("${buildPackages[@]}")
[ -z "$demo" ] || packages+=(python3)
headless=
if [ -z "${DISPLAY-}" ] && [ -z "${WAYLAND_DISPLAY-}" ]; then
    headless=yes
    packages+=("${screenPackages[@]}")
elif [ -z "${DISPLAY-}" ]; then
    packages+=(qt6-wayland)
fi
install_missing "${packages[@]}"
build release

# Replaces a file by rename, so that a running copy of the program keeps the file that it started from.
put() {
    local source=$1 target=$folder/${1##*/}
    cmp -s "$source" "$target" && return
    cp "$source" "$target.new"
    mv -f "$target.new" "$target"
}

mkdir -p "$folder"
put build/release/stemp
for template in "Blank.mdb" "blank Stemp.mdb" "Blank Jobs.mdb"; do
    put "build/release/templates/$template"
done
[ -z "$demo" ] || python3 tools/make-demo-data.py "$folder"

if [ -n "$headless" ]; then
    exec tools/screenshot.sh "$folder"
fi
say "Starting Stemp in $folder"
cd "$folder"
exec ./stemp
