# Debian packages that the project stands on, and a function that installs what is missing. Sourced by ./run and ./test.

# What building and running the program takes.
PACKAGES_RUN="g++ cmake ninja-build pkgconf libxml2-dev libfmt-dev libicu-dev libcli11-dev nlohmann-json3-dev libedit-dev \
libgl-dev libopengl-dev libegl-dev libegl-mesa0 libgl1-mesa-dri \
qt6-base-dev fonts-noto-cjk"

# What the tests, benchmarks and checks take besides.
PACKAGES_TEST="ccache libgtest-dev libgmp-dev libembree-dev libbenchmark-dev libxml2-utils ffmpeg valgrind clang \
clang-format clang-tidy libclang-rt-14-dev \
abigail-tools locales man-db groff-base python3 python3-ezdxf xvfb xauth xdotool binutils zsh \
binutils-mingw-w64-x86-64 mingw-w64-x86-64-dev g++-mingw-w64-x86-64-posix chromium chromium-driver python3-selenium tidy doxygen"

# What making packages takes besides, and trying them in a fresh system.
PACKAGES_PACKAGING="dpkg-dev file gzip lintian desktop-file-utils mmdebstrap"

# install_missing PACKAGE...: installs those that are not there, or says which command would, and stops.
install_missing() {
    local missing=() package
    local installed
    installed=" $(dpkg-query -W -f='${db:Status-Abbrev}${Package} ' 2>/dev/null | sed 's/\bii *//g') "
    for package in "$@"; do
        case "$installed" in
        *" $package "*) ;;
        *) missing+=("$package") ;;
        esac
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! sudo -n true 2>/dev/null; then
            printf 'These Debian packages are missing, and installing them takes rights that you do not have:\n'
            printf 'ask for\n\n    sudo apt-get install -y --no-install-recommends %s\n\n' "${missing[*]}"
            exit 1
        fi
        as_root=(sudo -n)
    fi
    printf 'Installing from Debian: %s\n' "${missing[*]}"
    local log
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update -q &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -q --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        tail -n 20 "$log"
        rm -f "$log"
        printf 'The packages could not be installed; what apt-get said stands above.\n'
        exit 1
    fi
    rm -f "$log"
}
