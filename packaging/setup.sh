# Read by ./run and ./test: installs what is missing and builds. Not to be run by itself.

# The last two are for scans that are no JPEG.
build_packages=(g++ cmake ninja-build qt6-base-dev fonts-dejavu-core poppler-utils qt6-image-formats-plugins)

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "Missing: ${missing[*]}. Install them as root, or install sudo." >&2
        exit 1
    fi
}

# Installs those of the named Debian packages that are not there yet.
install_missing() {
    missing=()
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    if ! command -v apt-get >/dev/null; then
        echo "This is no Debian system; install these yourself: ${missing[*]}" >&2
        return
    fi
    echo "Installing ${missing[*]} ..."
    as_root apt-get -qq update
    as_root env DEBIAN_FRONTEND=noninteractive DEBCONF_NOWARNINGS=yes \
        apt-get -qq install --yes --no-install-recommends "${missing[@]}" >/dev/null
}

# Builds a preset, or only those of its targets that are named: build PRESET [--target TARGET ...]
# Says more only where it fails, and then stops.
build() {
    local log=build/$1.log
    { mkdir -p build && : >"$log"; } 2>/dev/null || {
        echo "The folder $PWD/build cannot be written, so nothing was built. Does it belong to another user," \
            "as after a start with sudo? Then take it away, or give it to $(id -un)." >&2
        exit 1
    }
    echo "Building Tessaline ..."
    if ! build_loudly "$@" >"$log" 2>&1; then
        tail -n 60 "$log" >&2
        echo "The build failed; $log tells the rest." >&2
        exit 1
    fi
}

build_loudly() {
    cmake --preset "$1" && cmake --build --preset "$@"
}
