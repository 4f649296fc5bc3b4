# Completion of halcyon_k7ctl: the program's own help names its commands and options.
_halcyon_k7ctl() {
    local current=${COMP_WORDS[COMP_CWORD]} path=() help commands word
    help=$("$1" --help 2>/dev/null)
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}" ''; do
        commands=$(sed -nE '/^Subcommands:/,$ s/^  ([a-z]+) .*/\1/p' <<<"$help")
        if [ -n "$word" ] && grep -qxF -e "$word" <<<"$commands"; then
            path+=("$word")
            help=$("$1" "${path[@]}" --help 2>/dev/null)
        fi
    done
    case $current in
    -*) mapfile -t COMPREPLY < <(compgen -W "$(sed -nE 's/^  (-[a-z],)?(--[a-z-]+).*/\2/p' <<<"$help")" -- "$current") ;;
    *) mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current") ;;
    esac
}
complete -o default -F _halcyon_k7ctl halcyon_k7ctl
