_lumora_screenshot()
{
    local current=${COMP_WORDS[COMP_CWORD]} offers=""
    case ${COMP_WORDS[COMP_CWORD-1]} in
        --output)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return ;;
        --display | --geometry | --delay) return ;;
    esac
    if [ "$COMP_CWORD" -eq 1 ]; then
        offers="region full window reopen measure pick menu cancel quit doctor --help --version"
    else
        case ${COMP_WORDS[1]} in
            region) offers="--last --geometry --delay --output --clipboard --json" ;;
            full) offers="--display --delay --output --clipboard --json" ;;
            window) offers="--delay --output --clipboard --json" ;;
            reopen) offers="--output --clipboard --json" ;;
            doctor) offers="--json" ;;
        esac
    fi
    mapfile -t COMPREPLY < <(compgen -W "$offers" -- "$current")
}
complete -F _lumora_screenshot lumora-screenshot
