# Completion of orvo in bash. The program itself says how a line can go on, by the table that its help goes by, so that
# plug-ins, places and standards are there as they are; where it knows nothing, the shell offers files. The first word may
# be a drawing, too.
_orvo() {
    local IFS=$'\n'
    COMPREPLY=($("${COMP_WORDS[0]}" completion -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null))
    if [ "$COMP_CWORD" -eq 1 ]; then
        compopt -o filenames 2>/dev/null  # blanks in them get a backslash
        COMPREPLY+=($(compgen -f -X '!*.[dD][xX][fF]' -- "${COMP_WORDS[1]}"))
    fi
}
complete -o default -F _orvo orvo
