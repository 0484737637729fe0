# Debian packages the project needs; sourced by scripts/run, scripts/test and .ci/run.
LUMIVEX_PACKAGES=(
    cmake ninja-build g++ pkg-config
    libturbojpeg0-dev zlib1g-dev
    libgtest-dev libgmock-dev libbenchmark-dev bc
    clang-format
    qt6-base-dev qt6-base-dev-tools qt6-svg-dev libqt6svg6 qt6-image-formats-plugins
    fonts-noto-cjk
    # the icon sizes (rsvg-convert), the Debian package, the desktop-file validators
    librsvg2-bin dpkg-dev desktop-file-utils appstream
    # the process test that types Ctrl+Q on a virtual X display
    xvfb xauth xdotool
)
# What scripts/run needs to show the program on a machine without a display.
LUMIVEX_HEADLESS_PACKAGES=(xvfb xauth x11-utils xdotool imagemagick)

# Installs whatever of the given packages is missing (apt-get; sudo when not root).
lumivex_install() {
    local missing=()
    local p
    for p in "$@"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    echo "Installing: ${missing[*]}"
    $sudo apt-get update -qq || true
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
}
