#!/bin/bash
# Makes the pictures of this folder and their sidecars anew from their recipes
# (tools/SampleRecipes.cpp).
set -eu
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/.."

cmake --preset release
cmake --build --preset release --target make_interferogram
build/release/make_interferogram --samples "$here"
