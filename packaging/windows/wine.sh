# A Wine of the project's own, in a folder of its own, on which Windows programs run here. To be sourced; use_wine FOLDER makes it
# where it is missing and sets the environment.

# What is made once: the registry, the fonts that programs ask for by name, no dialog when a program crashes.
make_wine() {
    local replacement
    rm -rf "$WINEPREFIX"
    mkdir -p "$HOME"
    xvfb-run -a wine64 wineboot --init >"$WINEPREFIX.log" 2>&1 || fail "Wine could not be set up: see $WINEPREFIX.log"
    wineserver -w
    wine64 winecfg -v win10 >>"$WINEPREFIX.log" 2>&1
    cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    {
        for replacement in "Segoe UI=Tahoma" "Arial=Liberation Sans" "Courier New=Liberation Mono"; do
            wine64 reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "${replacement%%=*}" /d "${replacement#*=}" /f
        done
        # Smooth letters, as on a workstation: without them this font loses its hyphens.
        wine64 reg add 'HKCU\Control Panel\Desktop' /v FontSmoothingType /t REG_DWORD /d 2 /f
        wine64 reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
    } >>"$WINEPREFIX.log" 2>&1
    wineserver -w
    touch "$WINEPREFIX/ready"
}

use_wine() {
    export WINEPREFIX=$1 WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
    # Desktop and documents of Wine's person lie in the home folder.
    export PATH=/usr/lib/wine:$PATH LC_ALL=C.UTF-8 HOME=$1/home
    mkdir -p "${1%/*}"
    if [ ! -f "$1/ready" ]; then
        # Several tests may begin at once.
        (
            flock 9
            [ -f "$1/ready" ] || make_wine
        ) 9>"$1.lock"
    fi
}

# Wine hides variables that begin with QT_ from its programs; what is spelled WINEQT_ arrives as QT_.
hand_on_qt_variables() {
    local name
    while read -r name; do
        export "WINE$name=${!name}"
    done < <(compgen -e QT_)
}
