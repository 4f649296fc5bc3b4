# Completion of halcyon_k7ctl in bash.
_halcyon_k7ctl() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command='' second='' word
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $word in
        show | find | check | diff | export | import | schedule | backup | receiver)
            if [[ -z $command ]]; then command=$word; else second=${second:-$word}; fi ;;
        list | merge | replace | restore | status | load | save) second=${second:-$word} ;;
        esac
    done
    local words='' files=
    case $previous in
    --folder) files=-d ;;
    -o | --output) files=-f ;;
    --list) words='drm am fm fav' ;;
    --day) words='mo tu we th fr sa su' ;;
    --format)
        words='csv json ini html gqrx'
        [[ $command == schedule ]] && words='auto nine eibi hfcc' ;;
    --khz | --at | --target | --first) ;;
    *)
        case $command:$second in
        :) words='show find check diff export import schedule backup receiver --folder --json --dry-run --help --version' ;;
        show:*) words='drm am fm fav receiver backup: --json' files=-f ;;
        find:*) words='receiver --khz --now --at --json' files=-f ;;
        check:*) words='receiver --json' files=-f ;;
        diff:*) words='receiver --ordered --json' files=-f ;;
        export:*) words='receiver --format --output' files=-f ;;
        import:*) words='--list --append --replace --dry-run' files=-f ;;
        schedule:) words='show merge replace' ;;
        schedule:*) words='--format --drm-only --target --day --first --dry-run --json' files=-f ;;
        backup:) words='list show restore' ;;
        backup:list) words='--json' ;;
        backup:show | backup:restore)
            words=$("${COMP_WORDS[0]}" backup list 2>/dev/null | sed -n '2,$s/ .*//p') ;;
        receiver:) words='status load save' ;;
        receiver:*) words='--dry-run --json' ;;
        esac
        ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    if [[ -n $files ]]; then
        mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen $files -- "$current")
    fi
}
complete -o filenames -F _halcyon_k7ctl halcyon_k7ctl
