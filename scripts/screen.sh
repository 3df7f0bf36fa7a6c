# SPDX-License-Identifier: GPL-3.0-or-later
# A screen of one's own for scripts that run without a display: source it, call start_screen, and stop_started at the end.
# Only processes that were started here are ever ended, each by its number.

startedPids=()

# Remembers a process for stop_started.
remember() { startedPids+=("$1"); }

stop_started() {
  local index
  for ((index = ${#startedPids[@]} - 1; index >= 0; index--)); do
    kill "${startedPids[index]}" 2>/dev/null && wait "${startedPids[index]}" 2>/dev/null
  done
  startedPids=()
}

# start_screen SIZE FOLDER [XVFB ARGUMENT...]: an Xvfb on a number that is free, with a window manager; sets DISPLAY.
# FOLDER takes its logs.
start_screen() {
  local size=$1 folder=$2 number
  shift 2
  rm -f "$folder/display"
  mkfifo "$folder/display"
  Xvfb -displayfd 9 -screen 0 "${size}x24" -nolisten tcp "$@" 9>"$folder/display" 2>"$folder/xvfb.log" &
  remember $!
  read -r -t 20 number <"$folder/display" || { echo "Xvfb did not start; see $folder/xvfb.log" >&2; return 1; }
  rm -f "$folder/display"
  export DISPLAY=:$number QT_QPA_PLATFORM=xcb
  unset WAYLAND_DISPLAY
  openbox --sm-disable >"$folder/openbox.log" 2>&1 &
  remember $!
  # The window manager is there once it has announced itself on the root window.
  local tries
  for tries in $(seq 100); do
    wmctrl -m >/dev/null 2>&1 && return 0
    sleep 0.1
  done
  echo "No window manager came up; see $folder/openbox.log" >&2
  return 1
}
