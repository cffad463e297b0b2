#!/usr/bin/env bash
# Builds the program twice, plain and with the sanitizers, and runs all tests on both. No display is needed.
cd "$(dirname "$0")" && . tools/setup.sh

install_missing "${buildPackages[@]}" "${testPackages[@]}"
export QT_QPA_PLATFORM=offscreen

failed=
closing=()

# Builds and tests one preset; keeps the closing line for the end.
run_tests() {
    local preset=$1 log=build/$1-tests.log
    rm -f "build/$preset/junit.xml" "$log"
    if ! build "$preset"; then
        failed=yes
        closing+=("$preset: the build failed")
        return
    fi
    ctest --preset "$preset" -j2 --no-tests=error --output-junit junit.xml 2>&1 | tee "$log" || failed=yes
    closing+=("$preset: $(grep -E 'tests passed|No tests' "$log" | tail -n 1)")
}
run_tests dev
run_tests asan

say ""
printf '%s\n' "${closing[@]}"
[ -z "$failed" ]
