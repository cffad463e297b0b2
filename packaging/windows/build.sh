#!/usr/bin/env bash
# Builds Stemp for Windows on Debian 12: the libraries that it stands on, the program, its tests, a zip with a ready program
# folder and the installer. What is missing here is installed; the libraries are built the first time only. The results stand
# in build/windows.
cd "$(dirname "$0")/../.." && . tools/setup.sh
. packaging/windows/libraries.sh

packagingPackages=(librsvg2-bin icoutils nsis zip)
output=$root/build/windows
folder=$output/Stemp
version=$(sed -n 's/^project(Stemp VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

# Qt finds these in folders of the same names beside the executable.
plugins=(platforms/qwindows.dll sqldrivers/qsqlite.dll imageformats/qico.dll styles/qwindowsvistastyle.dll)

# add_libraries FILE…: copies the libraries that the files need to the program folder, and those that these need. The
# system's own are those that were not built or brought here.
add_libraries() {
    local file name
    for file in "$@"; do
        while read -r name; do
            if [ -f "$installed/bin/$name" ] && [ ! -f "$folder/$name" ]; then
                cp "$installed/bin/$name" "$folder/"
                add_libraries "$folder/$name"
            fi
        done < <($triplet-objdump -p "$file" | sed -n 's/.*DLL Name: //p')
    done
}

add_licences() {
    local source
    cp packaging/windows/licences.txt "$folder/licences/Read first.txt"
    for source in "$installed"/licences/*/; do
        cp "$source/copyright" "$folder/licences/$(basename "$source").txt"
        [ ! -f "$source/version" ] || printf -- '- Debian source package %s\r\n' "$(cat "$source/version")"
    done >>"$folder/licences/Read first.txt"
    # The terms that they only name
    mkdir "$folder/licences/common-licenses"
    grep -ohE '/usr/share/common-licenses/[A-Za-z]+(-[0-9]+(\.[0-9]+)?)?' "$folder"/licences/*.txt | sort -u |
        while read -r source; do
            cp "$source" "$folder/licences/common-licenses/${source##*/}.txt"
        done
}

make_folder() {
    local plugin
    rm -rf "$output"
    mkdir -p "$folder/licences"
    cp build/windows-release/stemp.exe build/windows-release/templates/*.mdb "$folder/"
    for plugin in "${plugins[@]}"; do
        mkdir -p "$folder/${plugin%/*}"
        cp "$installed/plugins/$plugin" "$folder/${plugin%/*}/"
    done
    add_libraries "$folder/stemp.exe" "$folder"/*/*.dll
    # The names of functions that only a debugger wants.
    find "$folder" -name '*.dll' -exec $triplet-strip --strip-unneeded {} +
    $triplet-strip --strip-all "$folder/stemp.exe"
    add_licences
}

# The installer puts the files of the folder where they belong and removes these, and no others, again.
make_installer() {
    (
        cd "$folder"
        find . -mindepth 1 -type d -printf '%P\n' | sort | sed 's#/#\\#g' >"$output/folders"
        find . -type f -printf '%P\n' | sort | sed 's#/#\\#g' >"$output/files"
    )
    sed 's#.*#RMDir "$INSTDIR\\&"#' "$output/folders" | sort -r >"$output/remove-folders.nsh"
    # A picture of one blue point, which the installer stretches to the strip beside its last page.
    {
        printf 'BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0'
        head -c 24 /dev/zero
        printf '\xa8\x5f\x1d\0'
    } >"$output/side.bmp"
    sed 's#.*#Delete "$INSTDIR\\&"#' "$output/files" >"$output/remove-files.nsh"
    makensis -V2 -NOCD -INPUTCHARSET UTF8 "-DVERSION=$version" "-DFOLDER=$folder" "-DLISTS=$output" \
        "-DICON=$root/build/windows-release/icons/stemp.ico" \
        "-DOUTPUT=$output/stemp-$version-setup.exe" packaging/windows/installer.nsi ||
        fail "The installer could not be made; makensis says above why."
    rm "$output"/{folders,files,side.bmp} "$output"/*.nsh
}

install_missing "${buildPackages[@]}" "${libraryPackages[@]}" "${packagingPackages[@]}"
build_libraries
build windows-release
build windows-dev
make_folder
(cd "$output" && zip -q -r -9 "stemp-$version.zip" Stemp)
make_installer

say ""
say "Built for Windows, in ${output#"$root/"}:"
(cd "$output" && du -sh Stemp "stemp-$version.zip" "stemp-$version-setup.exe")
