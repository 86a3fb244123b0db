#!/usr/bin/env bash
# Runs clang-tidy as .clang-tidy says; any finding fails.
#   tools/check/tidy.sh             over all sources of src/ and tools/ (takes long)
#   tools/check/tidy.sh REVISION    over those changed since this branch left that revision, and those
#                                   whose own header has
set -euo pipefail
cd "$(dirname "$0")/../.."
source tools/setup/packages.sh
install_packages "${build_packages[@]}" "${tidy_packages[@]}"

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
cmake --preset tidy >/dev/null
echo "clang-tidy over $(wc -l <<<"$sources") files"
xargs -d '\n' -P "$(nproc)" -n 1 clang-tidy -p build/tidy --quiet <<<"$sources" 2>&1 |
    { grep -v ' warnings\? generated\.$' || true; }
