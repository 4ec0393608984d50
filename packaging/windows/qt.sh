# Read by the scripts of this folder: Qt for Windows, made once of the source that Debian keeps. Not to be run by itself.

windows=$PWD/build/windows
windows_packages=(g++-mingw-w64-x86-64-posix qt6-base-dev-tools dpkg-dev nsis)

# The same package lists as the machine's own, but for sources.
write_source_lists() {
    local list
    rm -rf "$1" && mkdir -p "$1/lists/partial" "$1/parts"
    for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ ! -f "$list" ] || sed -n 's/^deb /deb-src /p' "$list" >>"$1/parts/sources.list"
    done
    for list in /etc/apt/sources.list.d/*.sources; do
        [ ! -f "$list" ] || sed 's/^Types:.*/Types: deb-src/' "$list" >"$1/parts/${list##*/}"
    done
}

# The source that belongs to the Qt of this machine, whose tools build it.
fetch_qt_source() {
    local sources=$windows/apt
    write_source_lists "$sources"
    local apt=(apt-get -qq -o Dir::Etc::sourcelist=- -o Dir::Etc::sourceparts="$sources/parts"
        -o Dir::State::lists="$sources/lists" -o APT::Sandbox::User=)
    local version
    version=$(dpkg-query -W -f='${source:Version}' qt6-base-dev)
    (cd "$sources" && "${apt[@]}" update && "${apt[@]}" source --download-only "qt6-base=$version") &&
        rm -rf "$windows/qt-source" &&
        dpkg-source --extract "$sources"/qt6-base_*.dsc "$windows/qt-source"
}

# Core, Gui, Widgets and Test, with the libraries that come with Qt's source. What is off is not needed, or does not
# build for Windows from this source; direct2d is not needed either, but the platform plugin does not link without it.
build_qt() {
    local feature off=()
    for feature in sql network dbus printsupport opengl concurrent xml vulkan tabletevent \
        system_zlib system_jpeg system_png system_pcre2 system_doubleconversion system_freetype system_harfbuzz; do
        off+=("-DFEATURE_$feature=OFF")
    done
    rm -rf "$windows/qt-build" "$windows/qt.new"
    cmake -G Ninja -S "$windows/qt-source" -B "$windows/qt-build" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/windows/toolchain.cmake" -DCMAKE_INSTALL_PREFIX="$windows/qt.new" \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake" \
        -DBUILD_SHARED_LIBS=ON -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no "${off[@]}" &&
        cmake --build "$windows/qt-build" &&
        cmake --install "$windows/qt-build" --strip
}

# What is said of Qt where it is packed.
describe_qt() {
    local licences=$1/licences
    mkdir -p "$licences" &&
        cp "$windows/qt-source/debian/copyright" "$licences/Qt.txt" &&
        cp "$windows/qt-source/LICENSES/LGPL-3.0-only.txt" "$licences/Qt LGPL.txt" &&
        cp "$windows/qt-source/LICENSES/GPL-3.0-only.txt" "$licences/Qt GPL.txt" &&
        dpkg-parsechangelog -l "$windows/qt-source/debian/changelog" -S Version >"$1/version"
}

# Leaves Qt in build/windows/qt; where it is there already, this takes no time.
make_qt() {
    [ ! -d "$windows/qt" ] || return 0
    local log=$windows/qt.log
    mkdir -p "$windows" && : >"$log" || exit 1
    echo "Building Qt for Windows, once; on two cores this takes about forty minutes ..."
    if ! { fetch_qt_source && build_qt && describe_qt "$windows/qt.new"; } >"$log" 2>&1; then
        tail -n 40 "$log" >&2
        echo "Qt was not built; $log tells the rest." >&2
        exit 1
    fi
    mv "$windows/qt.new" "$windows/qt"
    rm -rf "$windows/qt-build" "$windows/qt-source" "$windows/apt"
}
