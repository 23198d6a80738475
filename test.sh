#!/bin/bash
# Installs what is missing, then builds and tests Morvane twice: as released, and under sanitizers.
# The last line tells how many tests passed and failed in both together.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
warnings=OFF
[[ "${CI:-}" == true ]] && warnings=ON

"$root/tools/setup.sh"

passed=0
failed=0
for preset in release asan; do
    build="$root/build/$preset"
    cmake -S "$root" --preset "$preset" -DMORVANE_WERROR=$warnings
    cmake --build "$build"
    log="$build/test.log"
    ctest --test-dir "$build" --output-on-failure -j2 --no-tests=error 2>&1 | tee "$log" || true
    # "99% tests passed, 1 tests failed out of 120"
    counts="$(sed -nE 's/^[0-9]+% tests passed, ([0-9]+) tests? failed out of ([0-9]+)$/\1 \2/p' "$log")"
    if [[ -z "$counts" ]]; then
        echo "ctest gave no result for $preset" >&2
        exit 1
    fi
    read -r bad total <<<"$counts"
    failed=$((failed + bad))
    passed=$((passed + total - bad))
done

echo
echo "$passed passed, $failed failed"
[[ $failed -eq 0 ]]
