# The Debian packages that the game, its tests and the gate need, and what the scripts share.
# Read by play, test, .ci/run, .ci/lint and others.
# shellcheck shell=sh disable=SC2034 # the lists are used there

play_packages='g++ cmake ninja-build llvm libsdl2-dev libpng-dev libfreetype-dev fonts-liberation'
web_packages="$play_packages emscripten esbuild brotli python3"
test_packages="$play_packages libgtest-dev python3 python3-numpy xvfb xdotool imagemagick strace sway"
lint_packages='git clang clang-tidy cppcheck'
gate_packages="$test_packages $web_packages $lint_packages chromium firefox-esr \
    webkit2gtk-driver nodejs clang-format \
    libclang-rt-14-dev lintian appstream devscripts blhc xauth"

# With --help as its first argument, a script prints the comment at its top and ends:
# help_wanted "$0" "$@" && exit
help_wanted() {
    [ "${2-}" = --help ] && sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$1"
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "Please install as root: $missing" >&2
        exit 1
    fi
}

# Installs those of the named packages that are missing, and says which.
need_packages() {
    if ! command -v apt-get >/dev/null; then
        echo "This is not Debian. Please see that these packages' contents are installed: $*" >&2
        return
    fi
    missing=''
    for package; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q ' ok installed' ||
            missing="$missing $package"
    done
    if [ -n "$missing" ]; then
        echo "Installing with apt-get:$missing"
        as_root apt-get update
        # shellcheck disable=SC2086 # a list of words
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends $missing
    fi
}
