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
# The splash leaves after five seconds and the tip of the day follows; the tip is closed as a person would.
window=$(xdotool search --sync --onlyvisible --name '^Korvane Lumidex$' | head -n 1)
sleep 6.5
if tip=$(xdotool search --onlyvisible --name 'Tip of the Day' 2>/dev/null | head -n 1) && [ -n "$tip" ]; then
  xdotool windowactivate --sync "$tip" key Return
  sleep 0.5
fi
import -window "$window" "$here/screenshots/main.png"
echo "There is no screen: the program ran on a virtual one. Its window is in screenshots/main.png."
