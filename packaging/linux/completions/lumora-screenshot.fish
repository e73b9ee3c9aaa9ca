function __lumora_verb -a verb meaning
    complete -c lumora-screenshot -n __fish_use_subcommand -a $verb -d $meaning
end
# __lumora_option VERBS NAME MEANING [what complete wants for its value]
function __lumora_option -a verbs name meaning
    complete -c lumora-screenshot -n "__fish_seen_subcommand_from $verbs" -l $name -d $meaning $argv[4..]
end

complete -c lumora-screenshot -f
complete -c lumora-screenshot -n __fish_use_subcommand -s h -l help -d 'print how the program is used'
complete -c lumora-screenshot -n __fish_use_subcommand -l version -d 'print the version'
__lumora_verb region 'capture a region'
__lumora_verb full 'capture a display'
__lumora_verb window 'capture the active window'
__lumora_verb reopen 'open the last capture again'
__lumora_verb measure 'measure distances on the screen'
__lumora_verb pick 'pick a colour from the screen'
__lumora_verb menu 'open the menu at the pointer'
__lumora_verb cancel 'end a running capture, countdown or tool'
__lumora_verb quit 'end the program'
__lumora_verb doctor 'say what works, what does not and how to mend it'
__lumora_option full display 'the display of that number or name' -x
__lumora_option region last 'the last region again'
__lumora_option region geometry 'WxH+X+Y, a rectangle of the virtual screen' -x
__lumora_option 'region full window' delay 'begin after a countdown of so many seconds' -x
__lumora_option 'region full window reopen' output 'save there; - writes a PNG to stdout' -r -F
__lumora_option 'region full window reopen' clipboard 'copy instead of saving'
__lumora_option 'region full window reopen doctor' json 'print JSON'
functions -e __lumora_verb __lumora_option
