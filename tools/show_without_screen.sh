#!/usr/bin/env bash
# show_without_screen.sh PROGRAM PICTURE: runs the program on a virtual screen until its main window stands, saves
# screenshots/main.png, and ends it again.
set -euo pipefail
program=$1 picture=$2
here=$(cd "$(dirname "$0")/.." && pwd)
mkdir -p "$here/screenshots"

cleanup() {
  for process in "${app:-}" "${manager:-}" "${server:-}"; do
    [ -n "$process" ] && kill "$process" 2>/dev/null || true
  done
  rm -f "${number:-}"
}
trap cleanup EXIT

number=$(mktemp)
Xvfb -displayfd 3 -screen 0 1280x960x24 -nolisten tcp 3>"$number" 2>/dev/null &
server=$!
for _ in $(seq 100); do
  [ -s "$number" ] && break
  sleep 0.1
done
export DISPLAY=:$(cat "$number") QT_QPA_PLATFORM=xcb
openbox 2>/dev/null &
manager=$!
"$program" "$picture" &
app=$!

# Windows come and go while they are being looked at, which the tools take for an error: they are asked again.
window_named() {
  xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1 || true
}
window=
for _ in $(seq 300); do
  kill -0 "$app" 2>/dev/null || { echo "The program has ended before its window stood." >&2; exit 1; }
  window=$(window_named '^Korvane Lumidex$')
  [ -n "$window" ] && break
  sleep 0.1
done
# The splash leaves after five seconds and the tip of the day follows; the tip is closed as a person would.
sleep 6.5
tip=$(window_named 'Tip of the Day')
if [ -n "$tip" ]; then
  xdotool windowactivate --sync "$tip" key Return 2>/dev/null || true
  sleep 0.5
fi
for attempt in 1 2 3; do
  import -window "$window" "$here/screenshots/main.png" 2>/dev/null && break
  [ "$attempt" -lt 3 ] || { echo "No picture could be taken of the window." >&2; exit 1; }
  sleep 0.5
done
echo "There is no screen: the program ran on a virtual one. Its window is in screenshots/main.png."
