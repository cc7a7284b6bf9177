#!/usr/bin/env zsh
# Types command lines into a shell on the simulated board, with an installed brisel, and looks at what it
# completes: in bash and zsh through a terminal, in fish by the question that its tab key asks.
#
#   completion_test.zsh bash|zsh|fish BUILD_FOLDER LAUNCHER

zmodload zsh/zpty
shell=$1 launcher=$3
export BRISEL_BUILD=$2
[[ $shell == fish ]] || zpty probe true 2>/dev/null || { print "LEFT OUT: no pseudo-terminal for $shell"; exit 77 }

work=$(mktemp -d)
trap 'rm -rf $work' EXIT
export BRISEL_BOARD=$work/board HOME=$work TERM=dumb
prefix=$work/installed
cmake --install $BRISEL_BUILD --prefix $prefix >$work/log || { cat $work/log; exit 1 }
$launcher -r brisel -r mmc::rdqs >$work/log || { cat $work/log; exit 1 }

cat >$work/bashrc <<END
PS1='ready> '
bind 'set bell-style none'
bind 'set completion-query-items 0'
bind 'set page-completions off'
bind 'set show-all-if-ambiguous on'
bind 'set enable-bracketed-paste off'
. $prefix/share/bash-completion/completions/brisel
. $prefix/share/bash-completion/completions/brisel-tune
END
cat >$work/.zshrc <<END
PS1='ready> '
LISTMAX=1000
fpath=($prefix/share/zsh/site-functions \$fpath)
autoload -U compinit
compinit -u -d $work/compdump
bindkey -e
unset zle_bracketed_paste
END
mkdir -p $work/.config/fish/completions
ln -s $prefix/share/fish/vendor_completions.d/brisel*.fish $work/.config/fish/completions/

# Sets offered to what the terminal shows when the line $1 and a tab are typed, and the shell then
# echoes the line, after a mark that no shell expands: a path would have digits of its own.
type_in() {
    local start
    case $shell in
    bash) start="bash --noprofile --rcfile $work/bashrc -i" ;;
    zsh) start="env ZDOTDIR=$work zsh -d -i" ;;
    esac
    zpty pty "stty cols 120 rows 60; exec $launcher -T $work/trace env PATH=$prefix/bin:$PATH $start"
    zpty -r -m pty offered '*ready> '
    zpty -w -n pty "$1"$'\t\x01echo :\x05\n'
    zpty -r -m pty offered '*:brisel*ready> '
    zpty -w pty exit
    zpty -d pty
}

ask_fish() {
    offered=$($launcher -T $work/trace env PATH=$prefix/bin:$PATH \
        fish -c "complete -C ${(qq)1}" 2>&1)
}

failures=0
# offers LINE PATTERN...: what is offered for the line matches every pattern, or with ! none.
offers() {
    local offered pattern
    if [[ $shell == fish ]]; then ask_fish $1; else type_in $1; fi
    for pattern in ${@:2}; do
        if [[ $pattern == '!'* && $offered == *${~pattern#'!'}* ]] ||
            [[ $pattern != '!'* && $offered != *${~pattern}* ]]; then
            print -r -- "'$1' and a tab: not as wanted ($pattern):"$'\n'"$offered"
            (( ++failures ))
        fi
    done
}

# Names, with their colons, and in whole.
offers 'brisel orlin-ddra::od' 'orlin-ddra::odt'
offers 'brisel orlin-ddra::' 'orlin-ddra::' adrdrv clkdrv dqsdrv odt '!ddrb'
offers 'brisel -x pelune_reg' 'pelune_regulator::microvolts'
offers 'brisel -r i2c15-delay::sd' 'i2c15-delay::sda-delay'
offers 'brisel nonsense' '!delay'
# Behind a quote; fish is asked with the quotes taken off.
[[ $shell == fish ]] || offers 'brisel "mac-rx:' 'mac-rx::delay'
# Values where they are few, and else the range.
offers 'brisel orlin-ddra::odt ' '0*40*60*120' '!--'
offers 'brisel orlin-ddra::odt 1' 120 '!40'
offers 'brisel -x orlin-ddra::odt 0x' 0x0 0x28 0x3c 0x78
offers 'brisel ehci0-phy::tx-crossover ' 0 1 2
offers 'brisel i2c0-delay::sda-delay ' '0 to 15' cycles
offers 'brisel i2c0-delay::sda-delay 1' '!10'
# Options.
offers 'brisel -' -h -i -l -r -x
# The other program.
offers 'brisel-tune ' list get set save diff apply sweep best plot restore '!mac'
offers 'brisel-tune get orlin-ddra::od' 'orlin-ddra::odt'
offers 'brisel-tune sweep orlin-ddra::od' 'orlin-ddra::odt'
offers 'brisel-tune sweep -' --stop --continue '!--force'
touch $work/eye.log
offers "brisel-tune sweep --continue $work/ey" eye.log '!odt'
offers "brisel-tune sweep -o $work/ey" eye.log '!odt'
offers 'brisel-tune plot -' -o '!--force'
offers 'brisel-tune save -' --all -o --wait '!json'

# While another instance holds the lock, everything is offered all the same.
flock -o $BRISEL_BOARD/root/tmp/brisel.lock sleep 60 >/dev/null 2>&1 &
holder=$!
offers 'brisel mac-tx' 'mac-tx::delay'
kill $holder
wait $holder 2>/dev/null

if [[ -s $work/trace ]]; then
    print 'completing opened files of the board:'
    cat $work/trace
    (( ++failures ))
fi

# Without its table it offers nothing, and no message either.
rm $prefix/share/brisel/properties.tsv
offers 'brisel orlin-ddra::od' '!orlin-ddra::odt' '!such file'

(( failures == 0 ))
