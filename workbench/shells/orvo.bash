# Completion of orvo in bash. The program itself says how a line can go on, by the table that its help goes by, so that
# plug-ins, places and standards are there as they are; where it knows nothing, the shell offers files.
_orvo() {
    local IFS=$'\n'
    COMPREPLY=($("${COMP_WORDS[0]}" completion -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null))
}
complete -o default -F _orvo orvo
