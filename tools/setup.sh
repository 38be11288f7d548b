# shellcheck shell=bash
# What ./run, ./test and .ci/run share: installing what a build needs, and building a preset.
# Sourced by them; root is the folder of the repository.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

has_command() { command -v "$1" >/dev/null 2>&1; }

has_header() { echo "#include <$1>" | c++ -std=c++17 -x c++ -fsyntax-only - >/dev/null 2>&1; }

# clang with the libraries of its sanitizers and of its fuzzer.
has_fuzzer()
{
  echo 'extern "C" int LLVMFuzzerTestOneInput(char const*, unsigned long) { return 0; }' |
    clang++ -fsanitize=fuzzer,address,undefined -x c++ - -o /dev/null >/dev/null 2>&1
}

# Packages that are not there, as far as the purpose (program, tests or all) needs them.
missing_packages()
{
  has_command cmake || echo cmake
  has_command ninja || echo ninja-build
  has_command c++ || echo g++
  has_header CLI/CLI.hpp || echo libcli11-dev
  has_header nlohmann/json.hpp || echo nlohmann-json3-dev
  if [ "$1" != program ]; then
    has_header gtest/gtest.h || echo libgtest-dev
    has_header gmock/gmock.h || echo libgmock-dev
    has_command python3 || echo python3
  fi
  if [ "$1" = all ]; then
    has_fuzzer || echo clang libclang-rt-14-dev
    has_command clang-format-14 || echo clang-format-14
  fi
}

# Installs packages with apt-get, through sudo for anybody but root.
install_packages()
{
  local sudo=() log="$root/build/install.log"
  if ! has_command apt-get; then
    echo "Missing: $*. There is no apt-get here; install what these Debian packages hold." >&2
    return 1
  fi
  if [ "$(id -u)" != 0 ]; then
    if ! has_command sudo; then
      echo "Missing: $*. Installing needs root or sudo: apt-get install $*" >&2
      return 1
    fi
    sudo=(sudo)
    [ -t 0 ] || sudo=(sudo -n)
  fi
  echo "Installing $*" >&2
  mkdir -p "$root/build"
  if ! { "${sudo[@]}" apt-get update &&
         "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
           apt-get install -y --no-install-recommends "$@"; } >"$log" 2>&1 </dev/null; then
    tail -n 20 "$log" >&2
    echo "Could not install: $*. Install by hand: apt-get install $*" >&2
    return 1
  fi
}

install_missing()
{
  local packages
  mapfile -t packages < <(missing_packages "$1" | tr ' ' '\n')
  [ ${#packages[@]} = 0 ] || install_packages "${packages[@]}"
}

# Runs a command in the repository and shows what it printed only when it fails.
quietly()
{
  local log="$root/build/$1.log"
  shift
  mkdir -p "$root/build"
  if ! (cd "$root" && "$@") >"$log" 2>&1 </dev/null; then
    cat "$log" >&2
    echo "Failed: $*" >&2
    return 1
  fi
}

# Of what ninja prints: on a terminal its counter, in one place; elsewhere a line for each tenth. What else it
# says (warnings, errors) is shown whole.
show_progress()
{
  local line tenth shown=0 clear=''
  [ ! -t 2 ] || clear=$'\r\033[K'
  while IFS= read -r line; do
    if [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]]; then
      tenth=$((10 * BASH_REMATCH[1] / BASH_REMATCH[2]))
      if [ -n "$clear" ]; then
        printf '%s%s' "$clear" "${line:0:78}"
      elif [ $tenth -gt $shown ]; then
        printf '  %d of %d\n' "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
      fi
      shown=$tenth
    elif [ "$line" != 'ninja: no work to do.' ]; then
      printf '%s%s\n' "$clear" "$line"
    fi
  done >&2
  printf '%s' "$clear" >&2
}

# build_preset PRESET [TARGET...]: configures and builds, and tells how far it is; warnings are errors
# where CI=true. The whole output is in build/PRESET-*.log.
build_preset()
{
  local preset=$1 strict=OFF targets=()
  shift
  [ "${CI:-}" != true ] || strict=ON
  [ $# = 0 ] || targets=(--target "$@")
  echo "Building ${*:-all} into build/$preset" >&2
  quietly "$preset-configure" cmake --preset "$preset" \
    -DINPDECK_WARNINGS_AS_ERRORS=$strict || return 1
  if ! (cd "$root" && cmake --build --preset "$preset" "${targets[@]}") 2>&1 </dev/null |
    tee "$root/build/$preset-build.log" | show_progress; then
    echo "Failed: cmake --build --preset $preset ${targets[*]}" >&2
    return 1
  fi
}

# run_tests PRESET [CTEST OPTION...]
run_tests()
{
  local preset=$1
  shift
  (cd "$root" && ctest --preset "$preset" --output-on-failure --no-tests=error --timeout 300 \
    --parallel "$(nproc)" "$@")
}
