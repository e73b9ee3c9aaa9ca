# The options and whether they want a file are read from kestrel itself.
_kestrel()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} usage
    usage=$(kestrel --help 2>/dev/null) || return 0
    case $usage in
        *"$previous FILE"*) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
        *"$previous FOLDER"*) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
        *"  $previous "*) ;;
        *) mapfile -t COMPREPLY < <(compgen -W "$(grep -o -- '^  --[a-z0-9-]*' <<<"$usage") --help" -- "$current") ;;
    esac
}
complete -o filenames -F _kestrel kestrel
