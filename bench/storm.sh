#!/usr/bin/env bash
# Storms on one company file. 30 copies of the program look at it every half to whole second and send a message every two and a
# half to five seconds: a minute in which none dies, and at least a minute until 300 have died. Then 12 copies that do the same
# several times as often, so that a death is seldom an idle one. Ends with an error when a message was lost or came twice, a file
# was damaged, or a person would have been troubled. Takes about four minutes.
cd "$(dirname "$0")/.." && . tools/setup.sh

install_missing "${buildPackages[@]}" libbenchmark-dev
build bench

folder=build/bench/storm # on the disk of the project, which is seldom one in memory
storm=build/bench/bench/storm/storm
failed=

say ""
"$storm" "$folder" 30 60 0 1000 5000 || failed=yes
"$storm" "$folder" 30 60 300 1000 5000 || failed=yes
"$storm" "$folder" 12 60 300 200 300 || failed=yes
[ -z "$failed" ] # the files of the last one stay to be looked at
