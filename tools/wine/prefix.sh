#!/usr/bin/env bash
# Makes the golden Wine prefix once: registry settings and fonts in place. Test programs run in cheap copies of it.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/env.sh"

recipe="$(cat "${BASH_SOURCE[0]}" "$(dirname "${BASH_SOURCE[0]}")/settings.reg" | sha256sum | cut -d' ' -f1)"
stamp="$TAVKIT_GOLDEN/.recipe"
is_made() { [ -f "$stamp" ] && [ "$(cat "$stamp")" = "$recipe" ]; }
is_made && exit 0
mkdir -p "$TAVKIT_WINE_DIR"
exec 9>"$TAVKIT_WINE_DIR/prefix.lock" # one at a time
flock 9
is_made && exit 0

echo "Preparing the Wine prefix..."
rm -rf "$TAVKIT_GOLDEN"
export WINEPREFIX="$TAVKIT_GOLDEN"
start_screen 9>&-
trap 'wineserver -k >/dev/null 2>&1 || true; kill "$SCREEN_PID" 2>/dev/null || true' EXIT
log="$TAVKIT_WINE_DIR/prefix.log"
timeout 180 wineboot -i >"$log" 2>&1 </dev/null 9>&-
map_checkout "$TAVKIT_GOLDEN"
cp /usr/share/wine/fonts/* "$TAVKIT_GOLDEN/drive_c/windows/Fonts/"
timeout 60 wine regedit /S "$(win_path "$(dirname "${BASH_SOURCE[0]}")/settings.reg")" >>"$log" 2>&1 </dev/null 9>&-
timeout 60 wineserver -k >>"$log" 2>&1 || true
# The registry editor ends well also when it found no file.
grep -q '"Managed"="N"' "$TAVKIT_GOLDEN/user.reg"
echo "$recipe" >"$stamp"
