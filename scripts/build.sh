# Sourced by the scripts: configuring and building a preset, quietly. `root` is the root of the repository.

say() { printf '%s\n' "$*" >&2; }

# configure PRESET: when it was not done yet or the presets changed; CMake itself notices every other change.
configure() {
    local folder="$root/build/$1"
    if [ -e "$folder/build.ninja" ] && [ ! "$root/CMakePresets.json" -nt "$folder/CMakeCache.txt" ]; then
        return 0
    fi
    (cd "$root" && cmake --preset "$1") >"$folder.log" 2>&1 </dev/null || return 1
    touch "$folder/CMakeCache.txt"
}

# Passes on the builder's progress: nothing in the first seconds, then on a terminal a line that is written over and
# elsewhere one line that says what takes so long.
show_progress() {
    local preset="$1" started="$SECONDS" line told=
    while IFS= read -r line; do
        case "$line" in *'Re-checking globbed'*) continue ;; '['*) ;; *) continue ;; esac
        [ $((SECONDS - started)) -ge 2 ] || continue
        if [ -t 2 ]; then
            printf '\rvetools: building %s %s] ' "$preset" "${line%%]*}" >&2
            told=1
        elif [ -z "$told" ]; then
            say "vetools: building $preset (${line%%]*}] steps done; later runs build only what changed)"
            told=1
        fi
    done
    if [ -n "$told" ] && [ -t 2 ]; then printf '\r\033[K' >&2; fi
}

# build PRESET [TARGET...]: configures and builds; on failure prints what the tools said and returns 1.
build() {
    local preset="$1" folder="$root/build/$1" arguments=()
    shift
    mkdir -p "$root/build"
    if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER:-}" ] && command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    fi
    if [ "$#" -gt 0 ]; then arguments=(--target "$@"); fi

    # Two scripts at the same time build one after the other.
    exec 8>"$folder.lock"
    flock 8
    if configure "$preset" &&
        { cmake --build "$folder" "${arguments[@]}" 2>&1 </dev/null 8>&- | tee "$folder.log" | show_progress "$preset"
          [ "${PIPESTATUS[0]}" -eq 0 ]; }; then
        exec 8>&-
        return 0
    fi
    exec 8>&-
    say "vetools: the build '$preset' failed. What the tools said (also in build/$preset.log):"
    grep -vE '^\[[0-9]+/[0-9]+\] |^-- ' "$folder.log" | tail -n 60 >&2
    return 1
}
