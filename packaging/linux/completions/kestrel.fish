# The options are read from kestrel itself, whose usage has a line "  --name VALUE   meaning" for each.
kestrel --help 2>/dev/null | string match -rg '^  --([a-z0-9-]+) ([A-Z:]+) +(.*)' | while read -L name value meaning
    switch $value
        case FILE FOLDER
            complete -c kestrel -l $name -r -F -d $meaning
        case '*'
            complete -c kestrel -l $name -x -d $meaning
    end
end
complete -c kestrel -f -l help -d 'how the service is used'
