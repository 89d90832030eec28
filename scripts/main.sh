#!/usr/bin/env bash
# The main job: build a release, install it into ./install, and run the
# example host on the example camera plug-in from the installed tree.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

prefix="$PWD/install"
cmake --preset release -DVANTREL_DDK_BUILD_TESTS=OFF >/dev/null
cmake --build --preset release -j "$(nproc 2>/dev/null || echo 2)"
cmake --install build/release --prefix "$prefix" >/dev/null
echo "installed into $prefix"
"$prefix/bin/hello_host" "$prefix/lib/vantrel-ddk/plugins/hello_camera.so"
