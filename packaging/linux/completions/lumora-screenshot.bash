_lumora_screenshot()
{
    [ "$COMP_CWORD" -eq 1 ] || return 0
    mapfile -t COMPREPLY < <(compgen -W "region full reopen measure pick menu cancel quit --help --version" \
        -- "${COMP_WORDS[COMP_CWORD]}")
}
complete -F _lumora_screenshot lumora-screenshot
