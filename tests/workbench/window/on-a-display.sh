#!/bin/sh
# usage: on-a-display.sh PROGRAM ...
# Runs the program on a display of its own; ends with 77 where that cannot be.
for tool in Xvfb xvfb-run xauth xdotool; do
  command -v $tool >/dev/null || exit 77
done
export LSAN_OPTIONS="suppressions=$(dirname "$0")/leaks-of-others.txt:print_suppressions=0"
QT_QPA_PLATFORM=xcb exec xvfb-run -a -s "-screen 0 1400x900x24 -nolisten tcp" "$@"
