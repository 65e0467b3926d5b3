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
      if [[ $EUID -ne 0 ]]; then
        sudo=(sudo)
        if ! command -v sudo >/dev/null; then
          echo "Packages are missing; as root: apt-get install ${missing[*]}" >&2
          return 1
        fi
      fi
      echo "Installing: ${missing[*]}" >&2
      "${sudo[@]}" apt-get update -qq >&2
      "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
    fi
  fi
  mkdir -p "$root/build"
  touch "$stamp"
}

# show_progress: passes on ninja's output, with its "[12/80] step" lines drawn
# over one another on a terminal and left out elsewhere.
show_progress() {
  local line terminal=false
  [[ -t 2 ]] && terminal=true
  while IFS= read -r line; do
    case "$line" in
      "["*/*"] "*) $terminal && printf '\r\033[K%.79s' "$line" >&2 ;;
      "ninja: Entering"* | "ninja: no work"*) ;;
      *) printf '%s\n' "$line" >&2 ;;
    esac
  done
  $terminal && printf '\r\033[K' >&2
  return 0
}

# build PRESET TARGET...: configures on first use and builds.  Quiet when there
# is nothing to do.
build() {
  local root=$1 preset=$2 log
  shift 2
  local folder="$root/build/$preset"
  if [[ ! -f "$folder/build.ninja" ]]; then
    echo "Configuring the $preset build (first use)" >&2
    log=$(cd "$root" && cmake --preset "$preset" 2>&1) || { echo "$log" >&2; return 1; }
  fi
  ninja -C "$folder" "$@" 2>&1 | show_progress
}
