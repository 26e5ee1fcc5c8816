# Shared by ./run and ./test: packages and builds. Silent when there is nothing to do.

# install_missing LIST...   installs the Debian packages of scripts/packages.LIST that are not there.
install_missing() {
    missing=
    for list in "$@"; do
        for package in $(cat "scripts/packages.$list"); do
            case $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) in
            installed) ;;
            *) missing="$missing $package" ;;
            esac
        done
    done
    [ -n "$missing" ] || return 0
    echo "Installing:$missing"
    if [ "$(id -u)" = 0 ]; then as_root=; else as_root=sudo; fi
    $as_root apt-get -qq update
    # shellcheck disable=SC2086 # the list is words
    DEBIAN_FRONTEND=noninteractive $as_root apt-get -qq -y --no-install-recommends install $missing >/dev/null
}

# build PRESET TARGET...   configures once and builds; the log is shown only when it fails.
build() {
    preset=$1
    shift
    mkdir -p "build/$preset"
    log=build/$preset/build.log
    if [ ! -f "build/$preset/build.ninja" ]; then
        echo "Building ($preset) ..."
        cmake --preset "$preset" >"$log" 2>&1 || { cat "$log"; exit 1; }
    fi
    cmake --build "build/$preset" --target "$@" >"$log" 2>&1 || { cat "$log"; exit 1; }
}
