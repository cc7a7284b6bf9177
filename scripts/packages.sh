# shellcheck shell=sh
# need_packages PACKAGE...: installs what is missing of these Debian packages, or names it and stops.
# To be sourced.

need_packages() {
    missing=
    for package in "$@"; do
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
