#!/bin/bash
# Builds the release preset's benchmarks and prints each figure beside its reference. Arguments go
# to the program: ./bench.sh --benchmark_filter=AutoTrace
set -eu
cd "$(dirname "${BASH_SOURCE[0]}")"

{
    cmake --preset release
    cmake --build --preset release --target morvane_bench
} >&2
# The reference runs on the kernel that the library itself chooses for this processor.
exec env -u OPENBLAS_CORETYPE -u OPENBLAS_L2_SIZE OPENBLAS_NUM_THREADS=1 \
    build/release/morvane_bench "$@"
