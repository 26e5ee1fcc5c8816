#!/bin/sh
# run-without-display.sh PROGRAM PICTURE
# Starts PROGRAM on a virtual display, keeps a picture of its frame and ends it again: nobody could use it there.
set -eu
if [ -z "${DISPLAY:-}" ]; then
    echo "No display: starting on a virtual one."
    exec xvfb-run -a -s "-screen 0 1280x900x24" "$0" "$@"
fi
"$1" &
suite=$!
trap 'kill $suite 2>/dev/null || true' EXIT
timeout 30 xdotool search --sync --onlyvisible --name "Quill-Office Tools" >/dev/null
sleep 1 # the first picture of the frame is painted behind its mapping
import -window root "$2"
echo "Screenshot: $2"
