#!/bin/bash
# Installs the packages of packages.txt that are missing. Run by run.sh and test.sh.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

missing=()
while read -r package _; do
    [[ -z "$package" || "$package" == \#* ]] && continue
    status="$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)"
    [[ "$status" == "install ok installed" ]] || missing+=("$package")
done <"$root/packages.txt"
[[ ${#missing[@]} -eq 0 ]] && exit 0

as_root=()
if [[ $EUID -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing; please install them as root: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "Installing ${missing[*]}" >&2
"${as_root[@]}" apt-get update -q >&2
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends "${missing[@]}" >&2
