# shellcheck shell=sh
# For the sessions: what a command did, in lines that say which stream they were on.

# run COMMAND...: runs brisel or another command, and shows its output, its messages, its status.
run() {
    printf '$'
    for word in "$@"; do
        case $word in
        '' | *[{}]*) printf " '%s'" "$word" ;;
        *) printf ' %s' "$word" ;;
        esac
    done
    echo
    status=0
    # The braces take what the shell has to say of a process that a signal ended.
    { (exec "$@") >/tmp/out 2>/tmp/err || status=$?; } 2>/dev/null
    sed 's/^/out: /' /tmp/out
    sed 's/^/err: /' /tmp/err
    echo "status: $status"
}

# show FILE: its contents, which may lack the newline at the end.
show() {
    printf '%s holds %s\n' "$1" "$(cat "$1")"
}
