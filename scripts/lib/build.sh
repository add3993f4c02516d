# Sourced by the scripts, which stand in the root of the repository then.

# build_target PRESET [TARGET [OPTION...]]: configures and builds a preset, all of it or one target, with
# options of cmake; shows the output only where it fails.
build_target() {
    local preset=$1 target=${2:-all}
    local log="build/$preset.log"
    mkdir -p build
    echo "building $target by preset $preset (output in $log)"
    if ! { cmake --preset "$preset" "${@:3}" && cmake --build --preset "$preset" --target "$target"; } \
        >"$log" 2>&1; then
        # A failed compilation among parallel ones is not at the end of the output.
        grep --extended-regexp --after-context=20 '^FAILED|error:|Error' "$log" >&2 || cat "$log" >&2
        echo "building failed; everything is in $PWD/$log" >&2
        return 1
    fi
}
