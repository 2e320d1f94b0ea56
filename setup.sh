#!/usr/bin/env bash
# Sets up a Debian 12 machine for VORNA, builds it, and then either starts the program with a
# virtual dialler on COM1 ("run") or runs every test ("test"). Safe to run again: it installs
# only what is missing and rebuilds only what changed.
set -euo pipefail

mode=${1:-run}
case "$mode" in
    run | test) ;;
    *)
        echo "usage: $0 run|test" >&2
        exit 2
        ;;
esac

here=$(cd "$(dirname "$0")" && pwd)
build="$here/build"

packages=(
    g++ cmake make ccache pkg-config
    qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite qt6-serialport-dev
    # The toolkit's own texts (file dialogs, box buttons) in Chinese.
    qt6-translations-l10n
    libgtest-dev
    # Tests kill saves at chosen system calls.
    strace
    # An independent Modbus stack that checks the serial frames in the tests.
    libmodbus-dev
    # A CJK font, so that the Chinese captions do not render as boxes.
    fonts-wqy-microhei
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    echo "Installing: ${missing[*]}"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

# The test build also turns every warning into an error.
testing=$([ "$mode" = test ] && echo ON || echo OFF)
cmake -S "$here" -B "$build" -DCMAKE_BUILD_TYPE=Release -DVORNA_BUILD_TESTS="$testing" \
    -DCMAKE_COMPILE_WARNING_AS_ERROR="$testing"
cmake --build "$build" -j"$(nproc)"

if [ "$mode" = test ]; then
    ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
else
    # The program finds its profile and language file through the current directory.
    cd "$build/VORNA"
    # A virtual dialler (the model of the new-project template) waits on COM1 for this run
    # only, so that connect and download work without hardware; it stops when VORNA ends.
    link=$(mktemp -u "${TMPDIR:-/tmp}/vorna-dialler.XXXXXX")
    ./vorna-devsim --model-id 4106 --link "$link" >/dev/null &
    devsim=$!
    trap 'kill "$devsim" 2>/dev/null || true; wait "$devsim" 2>/dev/null || true' EXIT
    for _ in $(seq 50); do
        [ -e "$link" ] && break
        sleep 0.1
    done
    ./VORNA --port-map "COM1=$link"
fi
