#!/usr/bin/env bash
# Builds the benchmarks, makes their data and prints each figure beside its floor, measured in the same run. Ends with an
# error when a figure is over its limit. Figures mean something on a machine that does nothing else.
#   bench/run.sh [RUNS]   RUNS: how often the program is started, 21 if not said
cd "$(dirname "$0")/.." && . tools/screen.sh

runs=${1-21}
install_missing "${buildPackages[@]}" libbenchmark-dev xvfb
build bench

work=$(mktemp -d "$root/build/bench/data.XXXXXX") # on the disk of the project, which is seldom one in memory

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
