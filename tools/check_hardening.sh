#!/bin/bash
# check_hardening.sh EXECUTABLE: reads from an executable what a release is hardened with: position-independent code,
# full RELRO, stack protector, checked library calls (_FORTIFY_SOURCE) and, on x86-64, control-flow protection. Names
# each that is missing and fails.
# check_hardening.sh --self-test: compiles small programs that lack one each, and expects it to be named.
set -euo pipefail
export LC_ALL=C

# A pipe into "grep -q" would end what stands before it by a signal, so that texts are taken whole first.
has() { grep -qE "$2" <<<"$1"; }

# missing EXECUTABLE: prints the name of each that is missing.
missing() {
    local header segments dynamic imports code
    header=$(readelf -hW "$1")
    segments=$(readelf -lW "$1")
    dynamic=$(readelf -dW "$1")
    imports=$(readelf -W --dyn-syms "$1")
    code=$(objdump -d --disassemble=main "$1")
    has "$header" 'Type: +DYN' || echo position-independent
    has "$segments" 'GNU_RELRO' || echo relro
    has "$dynamic" 'BIND_NOW|FLAGS_1.*NOW' || echo bind-now
    has "$imports" '__stack_chk_fail' || echo stack-protector
    has "$imports" ' __[a-z]+_chk(@|$| )' || echo fortify
    if has "$header" 'Machine: +.*X86-64'; then
        # The first instruction of the function.
        has "$(grep -A1 '<main>:$' <<<"$code")" 'endbr64' || echo control-flow
    fi
}

self_test() {
    local folder found name option
    folder=$(mktemp -d)
    trap "rm -rf '$folder'" EXIT
    cat >"$folder/program.cpp" <<'END'
#include <cstdio>
#include <cstring>
int main(int count, char** words)
{
    char line[64];
    std::strncpy(line, words[count - 1], sizeof line - 1);
    line[63] = 0;
    return std::printf("%s\n", line) > 0 ? 0 : 1;
}
END
    local hardened=(-O2 -fPIE -pie -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -Wl,-z,relro,-z,now)
    local weaker=(
        "position-independent -fno-pie -no-pie" "relro -Wl,-z,norelro" "bind-now -Wl,-z,lazy"
        "stack-protector -fno-stack-protector" "fortify -U_FORTIFY_SOURCE"
    )
    if [[ $(uname -m) == x86_64 ]]; then
        hardened+=(-fcf-protection=full)
        weaker+=("control-flow -fcf-protection=none")
    fi
    g++ "${hardened[@]}" "$folder/program.cpp" -o "$folder/program"
    found=$(missing "$folder/program")
    [[ -z $found ]] || { echo "check_hardening.sh: a hardened program is said to lack: $found" >&2; return 1; }
    local weak
    for weak in "${weaker[@]}"; do
        read -r name option <<<"$weak"
        # shellcheck disable=SC2086
        g++ "${hardened[@]}" $option "$folder/program.cpp" -o "$folder/program"
        found=$(missing "$folder/program")
        [[ $found == "$name" ]] || { echo "check_hardening.sh: without $name it finds: ${found:-nothing}" >&2; return 1; }
    done
    echo "The hardening check finds each of ${#weaker[@]} weak programs"
}

if [[ ${1:-} == --self-test ]]; then
    self_test
    exit
fi
[[ -f ${1:-} ]] || { echo "check_hardening.sh: no executable ${1:-given}" >&2; exit 2; }
found=$(missing "$1")
[[ -z $found ]] || { echo "check_hardening.sh: $1 lacks:" $found >&2; exit 1; }
echo "$1 is hardened"
