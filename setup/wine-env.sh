# shellcheck shell=bash
# Running programs under the Wine of wine.sh, without display, keyboard or questions. KELVANE_BITS
# (32, the default, or 64) says what kind of Windows it is; a 64-bit one runs both kinds of programs.

# shellcheck source=setup/wine.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/wine.sh"

# wine_env DIR makes every later Wine program of this shell use the prefix DIR.
wine_env() {
  export WINEPREFIX=$1 WINEARCH=win${KELVANE_BITS:-32} WINEDEBUG=${WINEDEBUG:--all}
  WINESERVER=$(wine_server)
  export WINESERVER
  # No offers to fetch Mono or Gecko, no menu entries on the user's desktop.
  export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
  export LC_ALL=C.UTF-8 TZ=UTC
  unset DISPLAY WAYLAND_DISPLAY LANGUAGE
  # Only the prefix's own fonts, so that a font installed on the machine changes no picture.
  export FONTCONFIG_FILE=$WINEPREFIX/fonts.conf
  mkdir -p -- "$WINEPREFIX"
  [ -e "$FONTCONFIG_FILE" ] || cat >"$FONTCONFIG_FILE" <<'EOF'
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig><cachedir prefix="xdg">fontconfig</cachedir></fontconfig>
EOF
}

# windows_path FILE prints an absolute path as Windows programs know it. A path that begins with a
# slash is not enough: netCDF takes it for another system's and does not find the file.
windows_path() {
  printf 'Z:%s\n' "${1//\//\\}"
}

# kwine SECONDS program args... runs a program, ends it after SECONDS, and copies what it wrote to
# our output and error streams when it has ended. Never directly: Wine's background programs inherit
# the streams, and whoever reads a pipe would wait for those too. With KELVANE_LIVE set its output is
# copied while it runs.
kwine() {
  local seconds=$1 streams status=0
  shift
  streams=$(mktemp -d)
  set -- timeout -k 5 "$seconds" "$(wine_program "${KELVANE_BITS:-32}")" "$@"
  if [ -n "${KELVANE_LIVE:-}" ]; then
    : >"$streams/out"
    "$@" >>"$streams/out" 2>"$streams/err" </dev/null 9>&- &
    tail -n +1 -s 0.1 -f --pid=$! -- "$streams/out"
    wait $! || status=$?
  else
    "$@" >"$streams/out" 2>"$streams/err" </dev/null 9>&- || status=$?
    cat -- "$streams/out"
  fi
  cat -- "$streams/err" >&2
  rm -rf -- "$streams"
  [ "$status" -ne 124 ] || note "ended after $seconds s: ${*:6}"
  return "$status"
}

# Without a waiting server every program starts and ends the whole Windows desktop (0.4 s each).
start_wineserver() {
  "$WINESERVER" -f -p >/dev/null 2>&1 </dev/null &
  KELVANE_WINESERVER_PID=$!
}

# Ends the server of this prefix and with it every program in the prefix, and waits for it.
stop_wineserver() {
  timeout 30 "$WINESERVER" -k >/dev/null 2>&1 </dev/null || true
  timeout 30 "$WINESERVER" -w >/dev/null 2>&1 </dev/null || true
  if [ -n "${KELVANE_WINESERVER_PID:-}" ]; then
    kill "$KELVANE_WINESERVER_PID" 2>/dev/null || true
    wait "$KELVANE_WINESERVER_PID" 2>/dev/null || true
    KELVANE_WINESERVER_PID=
  fi
}
