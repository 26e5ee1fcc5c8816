#!/bin/sh
# Fetches the FTP servers that tests and benchmarks run against and unpacks them in build/servers. They are not
# installed: their packages exclude each other, and an installed one would start its daemon. What they need and is not
# installed is unpacked with them. Fails where a package cannot be fetched, and goes on with the next call. Silent when
# there is nothing to do.
set -eu
cd "$(dirname "$0")/.."
folder=$PWD/build/servers

# download PACKAGE   the package and what it needs that is not installed, in the folder.
download() {
    apt-get -qq -y --no-install-recommends --reinstall --download-only -o Debug::NoLocking=1 -o Acquire::http::Timeout=20 \
        -o Dir::Cache="$folder/cache" -o Dir::Cache::archives="$folder/archives" install "$1" >/dev/null
}

mkdir -p "$folder/archives/partial" "$folder/cache"
for server in $(cat scripts/packages.servers); do
    [ ! -f "$folder/$server.done" ] || continue
    echo "Unpacking: $server"
    download "$server"
    for package in "$folder"/archives/*.deb; do
        dpkg-deb -x "$package" "$folder"
        rm "$package"
    done
    touch "$folder/$server.done"
done
