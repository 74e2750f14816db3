# Which Debian packages the game, its tests and the gate need, and how they get here.
# Read by play, test, .ci/run and .ci/lint.
# shellcheck shell=sh disable=SC2034 # the lists are used there

play_packages='g++ cmake ninja-build llvm libsdl2-dev libpng-dev libfreetype-dev fonts-liberation'
web_packages="$play_packages emscripten esbuild python3"
test_packages="$play_packages libgtest-dev python3 python3-numpy xvfb xdotool imagemagick"
lint_packages='git clang clang-tidy cppcheck'
gate_packages="$test_packages $web_packages $lint_packages chromium nodejs clang-format \
    libclang-rt-14-dev lintian appstream"

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
        echo "This is no Debian: what these packages hold must be there: $*" >&2
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
