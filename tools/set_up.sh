# Sourced by run.sh and test.sh: what a fresh Debian machine needs, and one build folder for each preset.

PACKAGES=(
    build-essential cmake ninja-build ccache pkg-config
    qt6-base-dev qt6-serialport-dev libqt6svg6 qt6-translations-l10n libzip-dev libwmf-dev zip unzip
    libgtest-dev libgmock-dev libbenchmark-dev
    fonts-liberation fonts-dejavu-core
    poppler-utils cups cups-client
    appstream desktop-file-utils shared-mime-info
)

# Installs what is missing from Debian's packages, with sudo when not root.
install_packages() {
    local missing=() package
    for package in "${PACKAGES[@]}"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local run=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing, and there is no sudo to install them with: ${missing[*]}" >&2
            echo "As root, run: apt-get update && apt-get install ${missing[*]}" >&2
            exit 1
        fi
        run=(sudo)
    fi
    echo "== Installing ${missing[*]}"
    if ! { "${run[@]}" apt-get update -qq &&
           "${run[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
               "${missing[@]}"; } >build-set-up.log 2>&1; then
        cat build-set-up.log >&2
        echo "The packages could not be installed: ${missing[*]}" >&2
        exit 1
    fi
    rm -f build-set-up.log
}

# build PRESET [TARGET…]: configures when needed and builds; seconds when nothing changed.
build() {
    local preset=$1
    shift
    echo "== Building, preset $preset"
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" ${1:+--target "$@"} -- --quiet
}
