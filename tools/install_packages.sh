#!/usr/bin/env bash
# Installs what packages.txt lists and the machine lacks. Needs root or sudo, and only when something is missing.
set -euo pipefail
cd "$(dirname "$0")/.."

missing=()
while read -r package; do
  case $package in "" | \#*) continue ;; esac
  status=$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null || true)
  [ "$status" = "install ok installed" ] || missing+=("$package")
done <packages.txt

[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing: ${missing[*]}"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
"${as_root[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
