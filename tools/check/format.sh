#!/usr/bin/env bash
# Fails with the list of sources that are not formatted as .clang-format says.
#   tools/check/format.sh          checks
#   tools/check/format.sh --mend   formats them
set -euo pipefail
cd "$(dirname "$0")/../.."
source tools/setup/packages.sh
install_packages "${format_packages[@]}"

formatter=$(command -v clang-format-14 || command -v clang-format)
# Versions break some lines differently, and only one of them can be right.
if ! "$formatter" --version | grep -q 'version 14\.'; then
    echo "Formatting is not checked: it takes clang-format 14, this is $("$formatter" --version)." >&2
    exit 0
fi

sources() { git ls-files -z '*.cpp' '*.h'; }

if [ "${1:-}" = --mend ]; then
    sources | xargs -0 -P "$(nproc)" -n 50 "$formatter" -i
    exit 0
fi

failed=$(sources | xargs -0 -P "$(nproc)" -n 50 "$formatter" --dry-run 2>&1 |
    sed -n 's/^\([^:]*\):[0-9]*:[0-9]*: warning: .*/\1/p' | sort | uniq -c)
if [ -n "$failed" ]; then
    echo "Not formatted as .clang-format says (places, file); tools/check/format.sh --mend formats them:" >&2
    echo "$failed" >&2
    exit 1
fi
