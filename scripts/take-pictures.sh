#!/bin/sh
# take-pictures.sh [PICTURE...]
# Takes the pictures of the help, all or those named, from the built suite on a display of its own, into data/help/pictures.
# What they show is made here too, so that they are the same each time, wherever they are taken.
set -eu
cd "$(dirname "$0")/.."
. scripts/build.sh

install_missing build run display test
build release quill-office-tools contacts
exec tests/support/with_display.sh python3 -B scripts/take_pictures.py build/release/app build/release/tools/contacts \
    data/help/pictures "$@"
