#!/usr/bin/env bash
# Counts the wake-ups (context switches, voluntary and not) of every thread of the game, first at
# rest (started, no game running, past the start-up sound) and then with a game's clock going,
# once with sound off and once with sound on, against a private PulseAudio server with a null
# sink, so no sound card is needed. Also shows whether the sink could suspend. Needs pulseaudio,
# pulseaudio-utils, xvfb and xdotool.
#   bench/idle_wakeups.sh <velkaro binary> [seconds]
set -euo pipefail
seconds=${2:-10}

# Every thread of process $1 as "tid name switches".
switches() {
    for task in /proc/"$1"/task/*; do
        echo "${task##*/} $(tr ' ' _ <"$task/comm") $(awk '/ctxt_switches/ {n += $2} END {print n}' "$task/status")"
    done
}

# The wake-ups per second of every thread of $game over $seconds, and the sink's state.
measure() {
    local before after
    before=$(switches $game)
    sleep "$seconds"
    after=$(switches $game)
    echo "  sink: $(pactl list short sinks | cut -f5), streams: $(pactl list short sink-inputs | wc -l)"
    join <(sort <<<"$before") <(sort <<<"$after") |
        awk -v s="$seconds" '{printf "  %-16s %6.1f /s\n", $2, ($5 - $3) / s; total += $5 - $3}
                             END {printf "  %-16s %6.1f /s\n", "whole process", total / s}'
}

if [ "${1:-}" = --inside-display ]; then
    seconds=$3
    "$2" 2>/dev/null &
    game=$!
    until window=$(xdotool search --name '^Velkaro' 2>/dev/null | head -1) && [ -n "$window" ]; do
        sleep 0.2
    done
    sleep 6 # past the start-up sound and the few seconds the device is kept after a sound
    echo " at rest, no game running:"
    measure
    xdotool windowfocus --sync "$window" key F2 # a new game: the clock runs from here
    sleep 2
    echo " clock running:"
    measure
    kill $game
    wait $game 2>/dev/null || true
    exit 0
fi

binary=$(realpath "$1")
work=$(mktemp -d)
export XDG_RUNTIME_DIR=$work/run XDG_CONFIG_HOME=$work/config
mkdir -p -m 700 "$XDG_RUNTIME_DIR" "$XDG_CONFIG_HOME/Velkaro"
pulseaudio -n --daemonize=no --exit-idle-time=-1 --load=module-null-sink \
    --load=module-native-protocol-unix --load=module-suspend-on-idle 2>/dev/null &
server=$!
trap 'kill $server; rm -rf "$work"' EXIT
until pactl info >/dev/null 2>&1; do sleep 0.1; done

for sound in False True; do
    printf '[Game]\nSound=%s\n' $sound >"$XDG_CONFIG_HOME/Velkaro/Velkaro.ini"
    echo "sound $( [ $sound = True ] && echo on || echo off ), $seconds s each:"
    xvfb-run -a bash "$0" --inside-display "$binary" "$seconds"
done
