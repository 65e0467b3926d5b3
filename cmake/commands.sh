# Sourced by the commands at the root.
# ensure_packages GROUP...: installs what packages.txt names for these groups
# and this machine lacks.  Quiet when nothing is missing.
ensure_packages() {
  local root=$1 group wanted missing=() package sudo=()
  shift
  local stamp="$root/build/.packages-$*"
  [[ "$stamp" -nt "$root/packages.txt" ]] && return
  if command -v dpkg-query >/dev/null; then
    for group in "$@"; do
      wanted=$(awk -v g="$group" '!/^#/ && $2 == g { print $1 }' "$root/packages.txt")
      for package in $wanted; do
        dpkg-query -W -f='${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^ii' || missing+=("$package")
      done
    done
    if (( ${#missing[@]} )); then
      [[ $EUID -eq 0 ]] || sudo=(sudo)
      echo "Installing: ${missing[*]}" >&2
      "${sudo[@]}" apt-get update -qq >&2
      "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
    fi
  fi
  mkdir -p "$root/build"
  touch "$stamp"
}

# build PRESET TARGET...: configures on first use and builds; on a terminal
# the progress shows, otherwise only what goes wrong.
build() {
  local root=$1 preset=$2 log
  shift 2
  local folder="$root/build/$preset"
  if [[ ! -f "$folder/build.ninja" ]]; then
    echo "Configuring the $preset build (first use)" >&2
    log=$(cd "$root" && cmake --preset "$preset" 2>&1) || { echo "$log" >&2; return 1; }
  fi
  if [[ -t 2 ]]; then
    # ninja's status line goes to the terminal only when there is work.
    ninja -C "$folder" -n "$@" 2>/dev/null | grep -q 'no work to do' && return
    ninja -C "$folder" "$@" >&2
  else
    log=$(ninja -C "$folder" "$@" 2>&1) || { echo "$log" >&2; return 1; }
  fi
}
