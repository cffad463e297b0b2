#!/usr/bin/env bash
# Builds the benchmarks, makes their data and prints each figure beside its floor, measured in the same run. Ends with an
# error when a figure is over its limit. Figures mean something on a machine that does nothing else.
#   bench/run.sh [RUNS]   RUNS: how often the program is started, 21 if not said
cd "$(dirname "$0")/.." && . tools/setup.sh

runs=${1-21}
install_missing "${buildPackages[@]}" libbenchmark-dev xvfb
build bench

work=$(mktemp -d "$root/build/bench/data.XXXXXX") # on the disk of the project, which is seldom one in memory
display=
clean_up() {
    [ -z "$display" ] || kill "$display" 2>/dev/null || true
    rm -rf "$work"
}
trap clean_up EXIT
trap 'exit 130' INT TERM

start_display() {
    mkfifo "$work/display"
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
    display=$!
    local number=
    read -r -t 20 number <>"$work/display" || true
    [ -n "$number" ] || fail "The virtual display did not start: $(cat "$work/xvfb.log")"
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY
}

# The offscreen platform says at each window that it can't do what windows want.
export QT_LOGGING_RULES='default.warning=false' XDG_RUNTIME_DIR=$work

over=
measure() { # measure PLATFORM LIMIT: the limit is that of the start
    say ""
    say "== on $1"
    export QT_QPA_PLATFORM=$1
    build/bench/bench/bench_start "$work/start" "$runs" "$2" || over=yes
    build/bench/bench/bench_work --benchmark_enable_random_interleaving=true "$work/$1" || over=yes
}

say ""
build/bench/bench/bench_hours "$work/hours" 5 || over=yes
build/bench/bench/bench_poll "$work/poll" || over=yes
start_display
measure xcb 2.5
measure offscreen 4 # where no screen is waited for, an empty window costs next to nothing
[ -z "$over" ]
