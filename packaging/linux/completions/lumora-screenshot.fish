complete -c lumora-screenshot -f
complete -c lumora-screenshot -s h -l help -d 'print how the program is used'
complete -c lumora-screenshot -l version -d 'print the version'
function __lumora_verb -a verb meaning
    complete -c lumora-screenshot -n __fish_use_subcommand -a $verb -d $meaning
end
__lumora_verb region 'capture a region'
__lumora_verb full 'capture the display under the pointer'
__lumora_verb reopen 'open the last capture again'
__lumora_verb measure 'measure distances on the screen'
__lumora_verb pick 'pick a colour from the screen'
__lumora_verb menu 'open the menu at the pointer'
__lumora_verb cancel 'end a running capture or tool'
__lumora_verb quit 'end the program'
functions -e __lumora_verb
