#!/bin/bash
# Installs what is missing, builds Morvane and analyzes a picture with it: ./run.sh [FILE [OPTION ...]],
# options as of examples/analyze.py. With a display the window stays open.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"

"$root/tools/setup.sh"
{
    cmake -S "$root" --preset release
    cmake --build "$root/build/release" --target morvane
} >&2

[[ $# -gt 0 ]] || set -- "$root/examples/mirror.bmp"
[[ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]] || set -- "$@" --keep-open
exec "$root/examples/analyze.py" "$@"
