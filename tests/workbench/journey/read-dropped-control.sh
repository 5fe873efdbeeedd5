#!/usr/bin/env bash
# usage: read-dropped-control.sh PROGRAM X Y
# Starts the program on a display of its own, copies what the edit at X,Y of its main window shows, and prints it.
set -u
number=$(mktemp)
Xvfb -displayfd 3 -screen 0 1200x900x24 -nolisten tcp 3>"$number" 2>/dev/null &
server=$!
program=
trap 'kill $program $server 2>/dev/null; rm -f "$number"' EXIT
wait_a_bit() { read -r -t 0.1 <> <(:) || true; }
until [ -s "$number" ]; do kill -0 $server || exit 1; wait_a_bit; done
export DISPLAY=:$(cat "$number")

"$1" --disableaccurateframe &
program=$!
window=
until [ -n "$window" ]; do
  kill -0 $program 2>/dev/null || exit 1
  window=$(xdotool search --onlyvisible --pid $program 2>/dev/null | tail -n 1)
  wait_a_bit
done
text=
for _ in $(seq 100); do
  xdotool mousemove --window "$window" "$2" "$3" click 1 key --window "$window" ctrl+a key --window "$window" ctrl+c 2>/dev/null
  text=$(timeout 2 xclip -o -selection clipboard 2>/dev/null)
  [ -z "$text" ] || break
  wait_a_bit
done
echo "$text"
