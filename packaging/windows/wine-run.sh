#!/usr/bin/env bash
# wine-run.sh PROGRAM ARGUMENT…: runs a Windows program of the build under Wine, with the libraries it was built with. This is
# how CTest runs the tests of the preset windows-dev.
. "$(dirname "$0")/../../tools/setup.sh"
. "$root/packaging/windows/wine.sh"

libraries=${STEMP_WINDOWS_LIBRARIES:-$root/build/windows-libraries}
use_wine "$root/build/windows-wine/tests"
hand_on_qt_variables
export WINEPATH="Z:${libraries//\//\\}\\installed\\bin"
export WINEQT_PLUGIN_PATH="Z:$libraries/installed/plugins"
export WINEQT_QPA_FONTDIR="Z:${WINEQT_QPA_FONTDIR:-/usr/share/fonts/truetype/dejavu}"
export WINEQT_FORCE_STDERR_LOGGING=1 # else the test's own output goes where nobody reads it
exec wine64 "$@"
