#!/usr/bin/env bash
# run.sh PROGRAM.exe [ARGUMENT...]: runs one Windows program under Wine, in a prefix and on a screen of its own, pinned
# to one processor, and ends everything it started. The exit code is the program's own, taken from its closing mark
# "[finished N]": the code that Wine hands on is not safe after a crash.
#
#   TAVKIT_RUN_SECONDS   time limit (600)
#   TAVKIT_RUN_CPU       processor to pin to (any free one; when none is free, one that is shared)
#   TAVKIT_RUN_ALONE     1: wait for a free processor rather than share one; for measurements
#   TAVKIT_RUN_MARK      0: the program prints no closing mark; trust Wine's exit code
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/env.sh"

program="$1"
shift
"$TAVKIT_ROOT/tools/wine/prefix.sh" || exit 1
mkdir -p "$TAVKIT_WINE_DIR/runs"
run="$(mktemp -d "$TAVKIT_WINE_DIR/runs/XXXXXX")"
SCREEN_PID=""
PROGRAM_PID=""

# shellcheck disable=SC2317 # reached through the trap
finish() {
    [ -n "$PROGRAM_PID" ] && kill "$PROGRAM_PID" 2>/dev/null
    WINEPREFIX="$run/prefix" wineserver -k >/dev/null 2>&1
    [ -n "$SCREEN_PID" ] && kill "$SCREEN_PID" 2>/dev/null
    rm -rf "$run"
}
trap finish EXIT
trap 'exit 130' INT TERM HUP

# The numbers of the processors that this process may use: "0-2,5" gives 0, 1, 2 and 5.
processors() {
    local range
    for range in $(sed -n 's/^Cpus_allowed_list:[[:space:]]*//p' /proc/self/status | tr ',' ' '); do
        seq "${range%-*}" "${range#*-}"
    done
}

# Locks the first free processor until this script ends, and sets cpu to its number.
take_processor() {
    local all
    mapfile -t all < <(processors)
    for cpu in "${all[@]}"; do
        exec {slot}>"$TAVKIT_WINE_DIR/cpu$cpu.lock"
        flock -n "$slot" && return
        exec {slot}>&-
    done
    cpu="${all[RANDOM % ${#all[@]}]}"
    if [ "${TAVKIT_RUN_ALONE:-0}" = 1 ]; then
        echo "Every processor has another run: waiting for the end of the one on processor $cpu." >&2
        exec {slot}>"$TAVKIT_WINE_DIR/cpu$cpu.lock"
        flock "$slot"
    else
        echo "Every processor has another run: sharing processor $cpu." >&2
    fi
}

# One processor for the program, its Wine server and its X server: everything that talks to the window server is two
# to six times slower, and uneven, when they are spread out.
cpu="${TAVKIT_RUN_CPU:-}"
[ -n "$cpu" ] || take_processor
taskset -p -c "$cpu" $$ >/dev/null || echo "This run isn't pinned to a processor." >&2

cp -al "$TAVKIT_GOLDEN" "$run/prefix"
cp --remove-destination "$TAVKIT_GOLDEN"/*.reg "$run/prefix/"
map_checkout "$run/prefix"
# A person's folders (documents, pictures, ...) lead into the home otherwise: what lies there is no matter of a run.
find "$run/prefix/drive_c/users" -mindepth 2 -maxdepth 2 -type l -print0 | while IFS= read -r -d '' link; do
    rm "$link" && mkdir "$link"
done
export WINEPREFIX="$run/prefix"
start_screen || exit 1
wineserver -p >/dev/null 2>&1 </dev/null

export TAVKIT_SAMPLES TAVKIT_OUT
TAVKIT_SAMPLES="$(win_path "$TAVKIT_ROOT/samples")"
TAVKIT_OUT="$(win_path "${TAVKIT_OUT_DIR:-$TAVKIT_ROOT/out}")"
mkdir -p "${TAVKIT_OUT_DIR:-$TAVKIT_ROOT/out}"

# Files and folders that the caller names as this system does.
arguments=()
for argument in "$@"; do
    [[ "$argument" == /* && -e "$argument" ]] && argument="$(win_path "$argument")"
    arguments+=("$argument")
done

# Output goes to a file, never into a pipe: Wine's services inherit a pipe and keep its reader waiting for ever. The
# program runs in the background, so that an interrupt is taken at once.
: >"$run/output"
: >"$run/errors"
timeout -k 10 "${TAVKIT_RUN_SECONDS:-600}" /usr/lib/wine/wine64 "$program" "${arguments[@]}" >"$run/output" 2>"$run/errors" </dev/null &
PROGRAM_PID=$!
tail -q -n +1 -f --pid="$PROGRAM_PID" -s 0.1 "$run/output" "$run/errors" &
SHOW_PID=$!
wait "$PROGRAM_PID"
code=$?
wait "$SHOW_PID"
if [ "${TAVKIT_RUN_MARK:-1}" = 0 ]; then
    exit $code
fi
# Only as the last line: a program that this one has started may have left a mark of its own further up. What components
# of the system say on the error output may come later still.
mark="$(tr -d '\r' <"$run/output" | sed '/^$/d' | sed -n '$s/^\[finished \([0-9]*\)\]$/\1/p')"
if [ -z "$mark" ]; then
    echo "The program did not reach its end (Wine's exit code: $code)."
    exit 1
fi
exit "$mark"
