# Sourced by the other scripts: where the private Wine installation of this checkout lives, and its environment.
TAVKIT_ROOT="$(CDPATH='' cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd -P)"
TAVKIT_WINE_DIR="${TAVKIT_WINE_DIR:-$TAVKIT_ROOT/build/wine}"
TAVKIT_GOLDEN="$TAVKIT_WINE_DIR/golden"

# "all" channels off also silences Debian's remark on the missing 32-bit half.
export WINEDEBUG="${WINEDEBUG:--all}"
# One list with one "=": no .NET, no HTML engine, no crash dialog, no old help viewer (it would block on a missing file).
export WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe,winhlp32.exe="
# The ANSI code page follows the locale: pinned to 1252.
export LANG=C.UTF-8 LC_ALL=C.UTF-8

# Makes this checkout the drive T: of a prefix. Programs that know only the ANSI code page find it there whatever
# letters its path has.
map_checkout() { ln -sfn "$TAVKIT_ROOT" "$1/dosdevices/t:"; }

# The path as Windows programs see it.
win_path() {
    local path
    path="$(realpath -m -- "$1")"
    case "$path/" in
    "$TAVKIT_ROOT/") path="T:/" ;;
    "$TAVKIT_ROOT"/*) path="T:${path#"$TAVKIT_ROOT"}" ;;
    *) path="Z:$path" ;;
    esac
    printf '%s' "${path//\//\\}"
}

# start_screen: a private X server on a free display; sets DISPLAY and SCREEN_PID.
start_screen() {
    local fifo
    fifo="$(mktemp -u)"
    mkfifo "$fifo"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$fifo" >/dev/null 2>&1 </dev/null &
    SCREEN_PID=$!
    local number=""
    read -r -t 30 number <"$fifo" || true
    rm -f "$fifo"
    if [ -z "$number" ]; then
        echo "The virtual X server did not start." >&2
        return 1
    fi
    export DISPLAY=":$number"
}
