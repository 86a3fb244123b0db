# Installs what building, running, testing and checking need, where it is missing. Sourced by other scripts.
# Of names separated by "|" the first that this system's package lists know is taken: Debian 13 and
# Ubuntu 24.04 carry version 4 of the database engine and other names for some libraries.

build_packages=(
    g++ cmake ninja-build lld pkg-config
    qt6-base-dev "qt6-svg-dev|libqt6svg6-dev" "qt6-charts-dev|libqt6charts6-dev" libqt6opengl6-dev
    qt6-tools-dev qt6-tools-dev-tools libgl-dev
    firebird-dev "firebird3.0-server-core|firebird4.0-server-core"
    libsodium-dev libxlsxwriter-dev libzint-dev libzip-dev
    libcurl4-openssl-dev unixodbc-dev
    "fonts-liberation2|fonts-liberation"
)
run_packages=(qt6-qpa-plugins)
test_packages=(
    libgtest-dev libgmock-dev poppler-utils unzip "firebird3.0-utils|firebird4.0-utils"
    openssl libsqliteodbc odbcinst
)
bench_packages=(libbenchmark-dev)
mutant_packages=(python3)
tidy_packages=("clang-14|clang" "clang-tidy-14|clang-tidy" python3)
format_packages=("clang-format-14|clang-format")

is_installed() { dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null | grep -qx installed; }
is_known() { apt-cache show "$1" >/dev/null 2>&1; }

# as_root COMMAND...: runs it as it is for root, through sudo for others.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "Please install these packages as root and start again: ${missing[*]}" >&2
        exit 1
    fi
}

# find_missing NAME...: fills the list of what is not installed.
find_missing() {
    missing=()
    local wanted name
    for wanted in "$@"; do
        local found=
        for name in ${wanted//|/ }; do
            if is_installed "$name"; then found=1; fi
        done
        [ -n "$found" ] || missing+=("$wanted")
    done
}

# first_known NAME|NAME...: the first of these names that the package lists know.
first_known() {
    local name
    for name in ${1//|/ }; do
        if is_known "$name"; then
            echo "$name"
            return
        fi
    done
}

# install_packages NAME...: returns at once when nothing is missing.
install_packages() {
    find_missing "$@"
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing: ${missing[*]}"
    as_root apt-get update -qq
    local wanted chosen=()
    for wanted in "${missing[@]}"; do
        chosen+=("$(first_known "$wanted")")
    done
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${chosen[@]}" >/dev/null
}

# unpack_database_server FOLDER: puts the server program of the database engine there for tests that
# start one of their own. It is not installed, since that would leave a server running on this
# computer. Prints the program's path; where it can't be had, the tests that need it are skipped.
unpack_database_server() {
    local folder=$1 names="firebird3.0-server|firebird4.0-server"
    if [ ! -x "$folder/usr/sbin/firebird" ]; then
        [ -n "$(first_known "$names")" ] || as_root apt-get update -qq || true
        mkdir -p "$folder"
        (cd "$folder" && apt-get download -qq "$(first_known "$names")" && dpkg-deb -x ./*.deb . &&
            rm -f ./*.deb) >/dev/null 2>&1 || true
    fi
    echo "$PWD/$folder/usr/sbin/firebird"
}
