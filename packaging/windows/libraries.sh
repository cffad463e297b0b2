# Builds the libraries that the program needs on Windows, SQLite and Qt's base, from the sources of the Debian packages whose
# Linux builds are installed here, so that program and tests stand on the same versions on both systems. To be sourced after
# tools/setup.sh; build_libraries leaves them in $libraries/installed.
# A library is built again when its package's version, its recipe (the text of its function below), the toolchain (but for
# its comments) or a library below it has changed.

libraries=${STEMP_WINDOWS_LIBRARIES:-$root/build/windows-libraries}
installed=$libraries/installed
toolchain=$root/packaging/windows/toolchain.cmake
triplet=x86_64-w64-mingw32
libraryJobs=${STEMP_JOBS:-$(nproc)}

# shellcheck disable=SC2034 # for those that source it
libraryPackages=(g++-mingw-w64-x86-64-posix dpkg-dev gcc make patch perl tcl xz-utils)

# The version of the source package that an installed package was built from.
source_version() { dpkg-query -W -f='${source:Version}' "$1"; }

# fetch_source SOURCE VERSION: downloads a source package to $libraries/sources. The list of sources is made of the machine's
# own list of packages and kept apart from it.
fetch_source() {
    local source=$1 version=$2 apt=$libraries/apt
    mkdir -p "$libraries/sources" "$apt/parts" "$apt/lists/partial"
    apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
        sort -u >"$apt/sources.list"
    [ -s "$apt/sources.list" ] || fail "apt knows no Debian sources here. Please run 'apt-get update' as root and start again."
    local options=(-q -o "Dir::Etc::sourcelist=$apt/sources.list" -o "Dir::Etc::sourceparts=$apt/parts"
        -o "Dir::State::lists=$apt/lists" -o APT::Sandbox::User=root)
    apt-get "${options[@]}" update &&
        (cd "$libraries/sources" && apt-get "${options[@]}" source --download-only "$source=$version") ||
        fail "The source package $source $version can't be had. It has to be the version that is installed here;" \
            "'apt-get upgrade' brings both to the newest."
}

# unpack SOURCE VERSION FOLDER: the sources with Debian's patches
unpack() {
    local file=$libraries/sources/$1_${2#*:}.dsc
    [ -f "$file" ] || fetch_source "$1" "$2"
    rm -rf "$3"
    dpkg-source --no-check -x "$file" "$3" >/dev/null
    mkdir -p "$installed/licences/$1"
    cp "$3/debian/copyright" "$installed/licences/$1/"
    printf '%s %s\n' "$1" "$2" >"$installed/licences/$1/version"
}

# Compiled like Debian's own, as far as it decides how SQLite behaves, so that a file acts alike on both systems.
build_sqlite() {
    local work=$1 version=$2 list
    unpack sqlite3 "$version" "$work/packaged"
    # The other patches are about Debian's build; those of the code are all that is wanted on the original sources.
    mkdir "$work/source"
    # shellcheck disable=SC2140 # the quotes end where the shell is to fill in
    tar -xf "$libraries/sources"/sqlite3_"${version%-*}".orig.tar.* -C "$work/source" --strip-components=1
    while read -r list; do
        list=$work/packaged/debian/patches/$list
        grep '^+++ ' "$list" | grep -qvE '^\+\+\+ [^/]*/(src|ext)/' || patch -d "$work/source" -p1 -s <"$list"
    done < <(sed 's/[ \t#].*//; /^$/d' "$work/packaged/debian/patches/series")
    (
        cd "$work/source"
        ./configure --disable-tcl --disable-readline
        make sqlite3.c sqlite3.h
        $triplet-gcc-posix -O2 -DNDEBUG -DSQLITE_THREADSAFE=1 -DSQLITE_SECURE_DELETE -DSQLITE_ENABLE_COLUMN_METADATA \
            -DSQLITE_ENABLE_FTS3 -DSQLITE_ENABLE_FTS3_PARENTHESIS -DSQLITE_ENABLE_FTS4 -DSQLITE_ENABLE_FTS5 \
            -DSQLITE_ENABLE_RTREE=1 -DSQLITE_SOUNDEX=1 -DSQLITE_ENABLE_DBSTAT_VTAB -DSQLITE_ALLOW_ROWID_IN_VIEW \
            -DSQLITE_LIKE_DOESNT_MATCH_BLOBS -DSQLITE_USE_URI=1 -DSQLITE_MAX_VARIABLE_NUMBER=250000 \
            -DSQLITE_ENABLE_UNLOCK_NOTIFY -DSQLITE_ENABLE_MATH_FUNCTIONS \
            -shared -static-libgcc sqlite3.c -o sqlite3.dll -Wl,--out-implib,libsqlite3.dll.a
        mkdir -p "$installed"/{bin,lib,include}
        cp sqlite3.dll "$installed/bin/"
        cp libsqlite3.dll.a "$installed/lib/"
        cp sqlite3.h "$installed/include/"
    )
}

# Qt's base without what the program has no use for. The wintab headers that tablets need and the other libraries' own
# sources are as Debian's package has them.
build_qtbase() {
    local work=$1 version=$2 dll
    unpack qt6-base "$version" "$work/source"
    cmake -S "$work/source" -B "$work/build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$installed" -DBUILD_SHARED_LIBS=ON \
        -DQT_QMAKE_TARGET_MKSPEC=win32-g++ \
        -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_TOOLS_BY_DEFAULT=OFF \
        -DFEATURE_sql_sqlite=ON -DFEATURE_system_sqlite=ON \
        -DFEATURE_sql_odbc=OFF -DFEATURE_sql_psql=OFF -DFEATURE_sql_mysql=OFF \
        -DFEATURE_network=OFF -DFEATURE_concurrent=OFF -DFEATURE_xml=OFF -DFEATURE_dbus=OFF -DFEATURE_tabletevent=OFF \
        -DFEATURE_opengl=OFF -DINPUT_opengl=no -DFEATURE_vulkan=OFF -DFEATURE_direct2d=ON -DFEATURE_direct2d1_1=OFF \
        -DFEATURE_icu=OFF -DFEATURE_glib=OFF -DFEATURE_zstd=OFF -DFEATURE_pkg_config=OFF \
        -DFEATURE_system_zlib=OFF -DFEATURE_system_pcre2=OFF -DFEATURE_system_png=OFF -DFEATURE_system_jpeg=OFF \
        -DFEATURE_system_freetype=OFF -DFEATURE_system_harfbuzz=OFF -DFEATURE_system_doubleconversion=OFF \
        -DFEATURE_system_libb2=OFF
    cmake --build "$work/build" -j "$libraryJobs"
    cmake --install "$work/build"
    for dll in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
        cp "$(runtime_dll "$dll")" "$installed/bin/"
    done
    mkdir -p "$installed/licences/gcc-mingw-w64" "$installed/licences/mingw-w64"
    cp /usr/share/doc/gcc-mingw-w64-base/copyright "$installed/licences/gcc-mingw-w64/"
    cp /usr/share/doc/mingw-w64-common/copyright "$installed/licences/mingw-w64/"
}

# The compiler's own libraries lie beside the compiler or among those of its system.
runtime_dll() {
    local path
    path=$($triplet-g++-posix -print-file-name="$1")
    [ -f "$path" ] || path=/usr/$triplet/lib/$1
    printf '%s' "$path"
}

# build_library NAME PACKAGE KEY: runs build_NAME if it has not run with this key before. Prints nothing but what goes on;
# the compilers' output goes to a file. Leaves in `key` what stands for the library as it is now.
build_library() {
    local name=$1 version work=$libraries/work/$1 stamp=$libraries/$1.built log=$libraries/$1.log begin=$SECONDS
    version=$(source_version "$2")
    key=$({
        printf '%s %s\n' "$3" "$version"
        declare -f "build_$name"
        grep -v '^#' "$toolchain"
    } | sha256sum | cut -d' ' -f1)
    [ "$(cat "$stamp" 2>/dev/null)" != "$key" ] || return 0
    say "Building $name $version for Windows; $log tells how far it is"
    rm -rf "$stamp" "$work"
    mkdir -p "$work"
    # A subshell of its own, for "set -e" does not act in what is part of a condition.
    (
        set -e
        renice -n 19 -p "$BASHPID" >/dev/null
        "build_$name" "$work" "$version"
    ) >"$log" 2>&1 &
    wait $! || {
        tail -n 25 "$log" >&2
        fail "$name could not be built. The whole output is in $log; start again when that is mended."
    }
    rm -rf "$work"
    printf '%s\n' "$key" >"$stamp"
    say "$name took $((SECONDS - begin)) s"
}

build_libraries() {
    local key=
    build_library sqlite libsqlite3-dev ""
    build_library qtbase qt6-base-dev "$key"
}
