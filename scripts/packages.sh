# shellcheck shell=sh
# The only list of what the work needs besides git: packages of Debian 12. To be sourced.

# packages_for WORK: those for one kind of work.
packages_for() {
    case $1 in
    build) echo g++ cmake make ;;
    tests) packages_for build &&
        echo binutils libgtest-dev libgmock-dev valgrind mandoc systemd libxml2-utils strace bash zsh \
            fish ;;
    lint) packages_for tests && echo clang libclang-rt-14-dev clang-format clang-tidy shellcheck ;;
    coverage) echo gcovr ;;
    armhf) echo cmake make g++-arm-linux-gnueabihf ;;
    armel) echo cmake make g++-arm-linux-gnueabi ;;
    arm64) echo cmake make g++-aarch64-linux-gnu ;;
    kernels) echo cpio qemu-system-arm ;;
    arm) packages_for tests && packages_for armhf && packages_for armel && packages_for arm64 &&
        packages_for kernels && echo googletest qemu-user ;;
    cost) packages_for armhf && packages_for arm64 && packages_for kernels && echo bsdextrautils ;;
    package) packages_for build && packages_for armhf && packages_for arm64 &&
        echo gzip dpkg-dev fakeroot file ;;
    package-tests) packages_for build && echo lintian debootstrap python3 file ;;
    mutants) packages_for tests && echo git ninja-build lld python3 ;;
    esac
}

# need_packages WORK...: installs what is missing for these kinds of work, or names it and stops.
need_packages() {
    missing=
    for package in $(for work in "$@"; do packages_for "$work"; done | tr ' ' '\n' | sort -u); do
        state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
        [ "$state" = installed ] || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0

    as_root=
    if [ "$(id -u)" -ne 0 ]; then
        as_root='sudo -n'
        if ! sudo -n true 2>/dev/null; then
            printf 'Please install these packages first, then run this again:\n\n' >&2
            printf '    apt-get install%s\n' "$missing" >&2
            exit 1
        fi
    fi
    printf 'Installing:%s\n' "$missing"
    # shellcheck disable=SC2086 # both are lists of words
    {
        $as_root apt-get update -qq
        DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y -qq --no-install-recommends $missing
    } >/dev/null
}
