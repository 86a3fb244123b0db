#!/usr/bin/env bash
# Runs clang-tidy as .clang-tidy says; any finding fails.
#   tools/check/tidy.sh             over all sources of src/ and tools/
#   tools/check/tidy.sh REVISION    over those changed since this branch left that revision, and those
#                                   whose own header has
set -euo pipefail
cd "$(dirname "$0")/../.."
source tools/setup/packages.sh
install_packages "${build_packages[@]}" "${tidy_packages[@]}"

tidy=$(command -v clang-tidy-14 || command -v clang-tidy)
compiler=$(command -v clang++-14 || command -v clang++)
# Each version has checks of its own, and code that is clean for one of them has to be enough.
if ! "$tidy" --version | grep -q 'version 14\.'; then
    echo "clang-tidy is not run: it takes version 14, this is $("$tidy" --version | grep version)." >&2
    exit 0
fi

if [ $# -gt 0 ]; then
    base=$(git merge-base "$1" HEAD)
    changed=$(git diff --name-only --diff-filter=d "$base" -- 'src/*.cpp' 'src/*.h' 'tools/*.cpp' 'tools/*.h')
    sources=$(sed 's/\.h$/.cpp/' <<<"$changed" | sort -u | while read -r name; do
        if [ -f "$name" ]; then echo "$name"; fi
    done)
else
    sources=$(git ls-files 'src/*.cpp' 'tools/*.cpp')
fi
[ -n "$sources" ] || exit 0

# Precompiled headers are another compiler's, so this build goes without; it is only configured.
cmake --fresh --preset tidy -DCMAKE_CXX_COMPILER="$compiler" >/dev/null
echo "clang-tidy over $(wc -l <<<"$sources") files"
xargs -d '\n' tools/check/tidy.py "$tidy" "$compiler" <<<"$sources"
