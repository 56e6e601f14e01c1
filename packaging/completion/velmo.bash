# bash completion for velmo.
# The subcommands and their options are read from `velmo --help`, so this file
# never lists them: a line "  NAME ..." starts a subcommand's usage, the lines
# indented further continue it. What a word takes comes from the placeholder
# after it in the usage: ID a task's object identifier (from `velmo list`), VIEW
# a view's name, FILE or DIR a path; a lower-case word after NAME is a literal.

_velmo_views="all overdue active completed today next future undated search"

# Prints "NAME<tab>USAGE" for each subcommand, the usage's lines joined.
_velmo_table() {
    command velmo --help 2>/dev/null | awk '
        /^  [a-z]/ { if (name != "") print name "\t" usage
                     head = substr($0, 3); sub(/   .*/, "", head)
                     name = $1; usage = head; next }
        /^    / && name != "" { usage = usage " " $0 }
        END { if (name != "") print name "\t" usage }'
}

# The word after WORD in USAGE (brackets and bars dropped; a usage may name its
# subcommand twice, "list list VIEW"), or nothing.
_velmo_after() {
    local word=$1 usage=$2
    usage=${usage//[\[\]|]/ }
    awk -v w="$word" '{ for (i = 1; i < NF; i++) if ($i == w && $(i + 1) != w) { print $(i + 1); exit } }' <<<"$usage"
}

# Completes a word that takes PLACEHOLDER; false when it takes none we know.
_velmo_value() {
    case $1 in
        ID) COMPREPLY=($(compgen -W "$(command velmo "${root_args[@]}" list 2>/dev/null | cut -f1)" -- "$cur")) ;;
        VIEW) COMPREPLY=($(compgen -W "$_velmo_views" -- "$cur")) ;;
        FILE | PATH) _filedir ;;
        DIR) _filedir -d ;;
        *) return 1 ;;
    esac
}

_velmo() {
    local cur prev words cword
    _init_completion || return

    local root_args=() i=1
    if [[ ${words[1]} == --root ]]; then
        if ((cword == 2)); then _filedir -d; return; fi
        root_args=(--root "${words[2]}")
        i=3
    fi

    local table
    table=$(_velmo_table)
    if ((cword == i)); then
        local names
        names=$(cut -f1 <<<"$table" | sort -u)
        ((i == 1)) && names+=" --root --help --version"
        COMPREPLY=($(compgen -W "$names" -- "$cur"))
        return
    fi

    local command=${words[i]} usage
    usage=$(awk -F'\t' -v c="$command" '$1 == c { printf "%s ", $2 }' <<<"$table")
    [[ -n $usage ]] || return

    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$(grep -oE -- '--[a-z][a-z-]*' <<<"$usage" | sort -u)" -- "$cur"))
        return
    fi
    if ((cword == i + 1)); then
        local literals
        literals=$(awk -v c="$command" '{ gsub(/[\[\]|]/, " ")
            for (i = 1; i < NF; i++) if ($i == c && $(i + 1) != c && $(i + 1) ~ /^[a-z]+$/) print $(i + 1) }' <<<"$usage")
        if [[ -n $literals ]]; then
            COMPREPLY=($(compgen -W "$literals" -- "$cur"))
            return
        fi
        _velmo_value "$(_velmo_after "$command" "$usage")"
        return
    fi
    _velmo_value "$(_velmo_after "$prev" "$usage")"
}
complete -F _velmo velmo
