#!/usr/bin/env bash
# check_help.sh HELP_FILE PAGES: takes the compiled help apart again and fails unless every page of the folder PAGES is in it as
# it stands, every picture and every place that a page, the contents or the index leads to is there, and every page can be
# reached from the contents.
set -euo pipefail
help_file=$1 pages=$2
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
7z x -y -o"$folder" "$help_file" >/dev/null
failures=0
fail() { echo "$*"; failures=$((failures + 1)); }

for page in "$pages"/*.html "$pages"/*.css "$pages"/*.hhc "$pages"/*.hhk; do
  cmp -s "$page" "$folder/${page##*/}" || fail "${page##*/} is not in the help as it stands"
done
count=0
for page in "$folder"/*.html "$folder"/*.hhc "$folder"/*.hhk; do
  while read -r place; do
    case $place in *:*) continue ;; esac
    count=$((count + 1))
    [ -s "$folder/${place%%#*}" ] || fail "${page##*/} leads to $place, which is not there"
  done < <(grep -oE '(href|src)="[^"]+"|"Local" value="[^"]+"' "$page" | sed -E 's/.*"([^"]+)"$/\1/')
done
for page in "$pages"/*.html; do
  grep -q "value=\"${page##*/}\"" "$pages/contents.hhc" || fail "${page##*/} does not stand in the contents"
done
[ "$count" -gt 100 ] || fail "only $count links were found"
[ "$failures" -eq 0 ] && echo "$count links lead somewhere"
