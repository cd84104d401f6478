# shellcheck shell=bash
# Shared by every set-up script: where things are, how progress is told, how stamps work.
# Source it; it defines names only and changes nothing.

# shellcheck disable=SC2034
KELVANE_ROOT=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd -P)
# Services start without it, and Wine needs it too.
export HOME=${HOME:-$(getent passwd "$(id -u)" | cut -d: -f6)}
KELVANE_CACHE=${KELVANE_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kelvane}
KELVANE_LOGS=$KELVANE_ROOT/build/logs

# Return code of every step that needs Wine when none can be had that runs 32-bit programs too.
# shellcheck disable=SC2034
NO_WINE=3

# Progress goes to stderr, so that the output of a script that prints paths can be captured.
note() {
  printf '%s\n' "$*" >&2
}

fail() {
  note "error: $*"
  return 1
}

# step NAME "what it does (about N s)" command args...
# Runs the command in a shell of its own with its output in a log, and says how long it took or what
# went wrong: the last lines of the log, STEP_TAIL (40) of them.
step() {
  local name=$1 what=$2 log started status=0
  shift 2
  mkdir -p -- "$KELVANE_LOGS"
  log=$KELVANE_LOGS/$name.log
  started=$SECONDS
  printf '%s ... ' "$what" >&2
  ("$@") >"$log" 2>&1 </dev/null || status=$?
  if [ "$status" -eq 0 ]; then
    note "$((SECONDS - started)) s"
  else
    note "failed after $((SECONDS - started)) s; see $log"
    tail -n "${STEP_TAIL:-40}" -- "$log" >&2
  fi
  return "$status"
}

# recipe_hash prints a short hash of its standard input. What a recipe makes lies in a folder named
# by the hash of the recipe, so that it is made again when the recipe changes.
recipe_hash() {
  sha256sum | cut -c 1-12
}

# with_lock NAME command args... keeps two set-ups of one user from making the same thing twice.
with_lock() {
  local name=$1
  shift
  mkdir -p -- "$KELVANE_CACHE"
  (
    exec 9>"$KELVANE_CACHE/$name.lock"
    flock 9
    # The programs started here must not keep the lock after this shell has gone.
    "$@" 9>&-
  )
}

debian_codename() {
  (
    VERSION_CODENAME=unknown
    # shellcheck disable=SC1091
    . /etc/os-release
    printf '%s\n' "$VERSION_CODENAME"
  )
}
