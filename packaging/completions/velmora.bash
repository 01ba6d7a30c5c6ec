# Completion of velmora's options in bash.
_velmora() {
    mapfile -t COMPREPLY < <(compgen -W '--settings --preview --help --version' -- "$2")
}
complete -F _velmora velmora
