# Completes options of svg2dwg, their values, SVG files and folders. What there is to complete the program's own help says.

_svg2dwg()
{
    local cur prev words cword split help value
    _init_completion -s || return

    help=$(LC_ALL=C "$(dequote "$1")" --help 2>/dev/null)
    # "  -o, --output <FOLDER>  ..." says what comes after -o and --output.
    if [[ $prev == -* && $'\n'$help =~ $'\n  '(-., )?"$prev"(, --[a-z-]+)?' <'([^>]+)'>' ]]; then
        value=${BASH_REMATCH[3]}
        case $value in
            FOLDER) _filedir -d ;;
            FILE | LIST) _filedir ;;
            *'|'*) COMPREPLY=($(compgen -W "${value//|/ }" -- "$cur")) ;;
        esac
        return
    fi
    $split && return

    local word areOptions=yes
    for word in "${words[@]:1:cword-1}"; do
        [[ $word != -- ]] || areOptions=
    done
    if [[ $areOptions && $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$(_parse_help - <<<"$help")" -- "$cur"))
        return
    fi
    _filedir '@(svg|svgz)'
} &&
    complete -F _svg2dwg svg2dwg
