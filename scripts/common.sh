# shellcheck shell=bash
# What every script here begins with; to be sourced.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck disable=SC2034  # for those that source this file
windows_build=$root/build/windows
logs=$root/build/logs
cores=$(nproc)

say() { printf '%s\n' "$*"; }

fail() {
  printf '%s: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# The comment at the head of a script is its help.
help_if_asked() {
  case ${1:-} in
    -h | --help)
      sed -n '2,/^[^#]/{/^#/!q;s/^# \{0,1\}//;p}' "$0"
      exit 0
      ;;
  esac
}

# Whether a process runs; one that ended but was never waited for does not.
alive() {
  [[ -r /proc/$1/status ]] && ! grep -qs '^State:[[:space:]]*Z' "/proc/$1/status"
}

# quietly LOG COMMAND...: output goes to build/logs/LOG.log; its end is shown when the command fails.
quietly() {
  local log=$logs/$1.log
  shift
  mkdir -p "$logs"
  if ! "$@" </dev/null >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    fail "'$*' failed; all of its output is in ${log#"$root"/}"
  fi
}

# configure_preset PRESET: when that was never done; ninja sees to it afterwards.
configure_preset() {
  local ninja=$root/build/$1/build.ninja
  if [[ ! -f $ninja || $root/CMakePresets.json -nt $ninja ]]; then
    quietly "configure-$1" cmake -S "$root" --preset "$1"
  fi
}

# build_preset PRESET [TARGET...]: configures and builds; without a target, everything.
build_preset() {
  local preset=$1 target targets=()
  shift
  for target in "$@"; do targets+=(--target "$target"); done
  configure_preset "$preset"
  quietly "build-$preset" cmake --build "$root/build/$preset" --parallel "$cores" "${targets[@]}"
}
