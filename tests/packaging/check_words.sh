#!/bin/bash
# Holds what the programs say of themselves, with --help, against their pages, their completions and the documents:
# verbs, the options of each verb, exit codes, files.
#   check_words.sh BUILD SOURCE
set -u
build=$1 source=$2
linux=$source/packaging/linux
failed=0
# same WHAT EXPECTED FOUND: lists of words or lines, in any order.
same() {
    diff <(sort -u <<<"$2") <(sort -u <<<"$3") >/dev/null && return
    echo "FAULT: $1 (< is missing, > is too much)"
    diff <(sort -u <<<"$2") <(sort -u <<<"$3") | grep '^[<>]'
    failed=1
}
usage=$("$build/lumora-screenshot" --help)
verbs=$(sed -nE 's/^  ([a-z]+) .*/\1/p' <<<"$usage")
# A line "--name verb verb" for each option of a verb.
options=$(sed -nE 's/^  (--[a-z-]+)( [^ ]+)?  +([a-z, ]+): .*/\1 \3/p' <<<"$usage" | tr -d ,)
general=$'--help\n--version'
codes=$(sed -n '/^exit codes:/,$p' <<<"$usage" | grep -oE '(^|[ ,])[0-9] ' | tr -d ' ,')
[ -n "$verbs" ] && [ -n "$options" ] && [ -n "$codes" ] || { echo "FAULT: --help says nothing"; exit 1; }
options_of() { grep -w -- "$1" <<<"$options" | cut -d' ' -f1; }

# What stands under ".TP" of a page, its marks taken off; with $2 the line after it, too.
terms() {
    sed -E 's/\\-/-/g; s/\\f.//g' "$linux/$1" | grep --no-group-separator -A"${2-1}" '^\.TP' | sed -E 's/^\.[A-Z]+ ?//; s/[",]//g'
}
page=$(terms lumora-screenshot.1.in)
same "the page's verbs" "$verbs" "$(grep -E '^[a-z]+$' <<<"$page")"
same "the page's exit codes" "$codes" "$(grep -E '^[0-9]+$' <<<"$page")"
same "the page's options" "$general" "$(grep -oE -- '--(help|version)' <<<"$page")"
same "the page's options of verbs" "$options" "$(terms lumora-screenshot.1.in 2 |
    sed -nE '/^--/ { N; s/^(--[a-z-]+)[^\n]*\n([a-z ]*[a-z]) *:$/\1 \2/p }' | tr -s ' ')"
files() { grep -oE '~/[A-Za-z.][^"|`]*' | sed 's/ *$//'; }
same "the page's files" "$(grep -E '^\| `~/' "$source/README.md" | cut -d'|' -f2 | files)" \
    "$(grep -v '^~/.config/autostart/' <<<"$page" | files)"

# offered SHELL WORD...: what its completion offers after these words.
offered_bash() {
    bash -c '. "$0"; COMP_WORDS=("$@" ""); COMP_CWORD=$#; _lumora_screenshot; printf "%s\n" "${COMPREPLY[@]}"' \
        "$linux/completions/lumora-screenshot.bash" "$@"
}
offered_fish() {
    fish --no-config -c 'source $argv[1]; set line (string join " " $argv[2..])
        complete -C "$line "; complete -C "$line --"' "$linux/completions/lumora-screenshot.fish" "$@" | cut -f1
}
offered_zsh() {
    zsh -f -c 'function _describe { print -l -- ${${(P)2}%%:*} }
        function _arguments { print -l -- $@ | grep -oE -- "--[a-z]+\[" | tr -d "[" }
        function complete_words { local words=($@ "") CURRENT=$(($# + 1)); source $file }
        file=$1; shift; complete_words $@' zsh "$linux/completions/_lumora-screenshot" "$@"
}
for shell in bash fish zsh; do
    command -v "$shell" >/dev/null || { echo "not installed, not asked: $shell"; continue; }
    same "$shell's verbs" "$verbs"$'\n'"$general" "$("offered_$shell" lumora-screenshot)"
    for verb in $verbs; do
        same "$shell's options of $verb" "$(options_of "$verb")" "$("offered_$shell" lumora-screenshot "$verb")"
    done
done

same "README's verbs" "$verbs" "$(grep -oE '^\| `lumora-screenshot [a-z]+' "$source/README.md" | cut -d' ' -f3)"
same "README's options of verbs" "$options" \
    "$(sed -nE 's/^\| `(--[a-z]+)[^`]*` \| (`[^|]*) \|.*/\1 \2/p' "$source/README.md" | tr -d '`,')"
same "README's exit codes" "$codes" "$(sed -n '/^| exit code /,/^$/p' "$source/README.md" | grep -oE '^\| [0-9]' | tr -d '| ')"

service=$("$build/kestrel" --help | grep -oE '^  --[a-z0-9-]+' | tr -d ' ')
[ -n "$service" ] || { echo "FAULT: kestrel --help says nothing"; exit 1; }
same "kestrel's page" "$service"$'\n--help' "$(terms kestrel.8.in | grep -oE -- '--[a-z0-9-]+')"
same "the options in docs/service.md" "$service" "$(grep -E '^\| `--' "$source/docs/service.md" | cut -d'|' -f2 | grep -oE -- '--[a-z0-9-]+')"
exit "$failed"
