#!/usr/bin/env bash
# All that is asked of Stemp on Windows, shown under Wine: builds everything (build.sh), runs the tests, installs the program
# with its installer, uses it with mouse and keys, installs it over itself, removes it, and looks whether the data are still
# there. Ends with one line that says so.
cd "$(dirname "$0")/../.." && . tools/setup.sh
. packaging/windows/wine.sh

winePackages=(wine64 wine fonts-wine fonts-liberation fonts-dejavu-core util-linux)
results=()
failed=

count_tests() {
    local report=build/windows-dev/junit.xml total bad
    rm -f "$report"
    # The whole output, as what a test leaves out stands in it.
    ctest --preset windows-dev -j2 --no-tests=error --test-output-size-passed 1000000 --output-junit junit.xml || failed=yes
    if [ ! -s "$report" ]; then
        results+=("no test ran")
        return
    fi
    total=$(grep -c '<testcase ' "$report" || true)
    bad=$(grep '<testcase ' "$report" | grep -vc 'status="run"' || true)
    results+=("$((total - bad)) tests passed, $bad failed")
    say "What was left out, and why:"
    grep -oE 'SKIP +: .*' "$report" | sed 's/^/  /' || true
    sed -n 's/^# Not on Windows: /  tests\/program: /p' tests/*/CMakeLists.txt
}

install_missing "${screenPackages[@]}" "${winePackages[@]}"
packaging/windows/build.sh

say ""
say "Running the tests under Wine"
(
    # Wine's own processes begin here and not in a test, which would wait for them.
    use_wine "$root/build/windows-wine/tests"
    wineserver -k 2>/dev/null || true
    wineserver -p
    wine64 wineboot >/dev/null 2>&1
)
count_tests
(
    use_wine "$root/build/windows-wine/tests"
    wineserver -k 2>/dev/null || true
)

say ""
say "Installing, using and removing the program"
installer=$(echo "$root"/build/windows/stemp-*-setup.exe)
if timeout 600 packaging/windows/drive.sh "$installer"; then
    results+=("installed, used, uninstalled: data kept")
else
    failed=yes
    results+=("installed, used, uninstalled: FAILED")
fi

say ""
printf 'Windows: %s; %s\n' "${results[@]}"
[ -z "$failed" ]
