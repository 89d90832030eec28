#!/usr/bin/env bash
# The main job: build a release with the inspector and the sample camera,
# install it into ./install, print what ddk-inspect finds in the sample
# plug-in, then run the conformance checks on it.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

prefix="$PWD/install"
cmake --preset release -DVANTREL_DDK_BUILD_TESTS=OFF >/dev/null
cmake --build --preset release -j "$(nproc 2>/dev/null || echo 2)"
cmake --install build/release --prefix "$prefix" >/dev/null
echo "installed into $prefix"
plugin="$prefix/lib/vantrel-ddk/plugins/simcam.so"
"$prefix/bin/ddk-inspect" "$plugin"
"$prefix/bin/ddk-inspect" "$plugin" --check
