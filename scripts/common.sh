# shellcheck shell=bash
# Sourced by the commands beside it; leaves the caller in the repository's root.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# shellcheck disable=SC2034  # used by the commands
build_packages=(g++ cmake ninja-build pkg-config libopencv-dev libtbb-dev libceres-dev
  libgoogle-glog-dev libeigen3-dev libspdlog-dev libgtest-dev libgmock-dev)
# For the benchmarks only: their library and what we are measured against.
# shellcheck disable=SC2034
bench_packages=(libbenchmark-dev libboost-dev libgeos-dev libgeos++-dev libcgal-dev
  libpolyclipping-dev libgsl-dev libnanoflann-dev)

fail() {
  printf '%s\n' "$*" >&2
  exit 1
}

# step "What is done" command...: one line; the command's output only when it fails.
step() {
  local title=$1 started=$SECONDS log
  shift
  log=build/logs/$(printf '%s' "${title,,}" | tr -cs '[:alnum:]' '-').log
  mkdir -p build/logs
  printf '%s ... ' "$title"
  if "$@" >"$log" 2>&1 </dev/null; then
    printf 'done (%d s)\n' $((SECONDS - started))
  else
    printf 'failed\n'
    cat "$log" >&2
    fail "\"$title\" failed; the output above (kept in $log) says why. The command was: $*"
  fi
}

# install_packages name...: nothing to do is found out without apt.
install_packages() {
  local package missing=() as_root=()
  command -v dpkg-query apt-get >/dev/null ||
    fail "This needs Debian 12; elsewhere, install the counterparts of these packages and use" \
      "the presets of CMakePresets.json: $*"
  for package in "$@"; do
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
      missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  if ((EUID != 0)); then
    command -v sudo >/dev/null ||
      fail "Packages are missing; run this as root, or install sudo, or: apt-get install ${missing[*]}"
    as_root=(sudo)
  fi
  step 'Updating the package lists' "${as_root[@]}" apt-get update
  step "Installing ${missing[*]}" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${missing[@]}"
}

# build_preset name target...: configures and builds build/<name>.
build_preset() {
  local preset=$1
  shift
  step "Configuring $preset" cmake --preset "$preset"
  step "Building $preset" cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}
