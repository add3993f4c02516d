# Sourced by the scripts, which stand in the root of the repository then.

# build_target PRESET [TARGET [OPTION...]]: configures and builds a preset, all of it or one target, with
# options of cmake; shows the output only where it fails.
build_target() {
    local preset=$1 target=${2:-all}
    local log="build/$preset.log" describer=
    mkdir -p build
    if is_emulated "$preset"; then
        # The machine's own programs write the sources in a tenth of the time. Of those GCC's, whatever compiles the
        # sources: this leaves that build as scripts/test has configured it, which Clang's is not.
        describer=x86-64-gcc
        build_target "$describer" describers || return
        describer=$PWD/build/$describer
    fi
    # An earlier scripts/test may have had it described by another build, with its kernels, or without levels.
    local options=(-D "QSVG_DESCRIBED_BY=$describer" -U QSVG_KERNELS_OF -U QSVG_LEVELS_ABOVE "${@:3}")
    echo "building $target by preset $preset (output in $log)"
    if ! { cmake --preset "$preset" "${options[@]}" && cmake --build --preset "$preset" --target "$target"; } \
        >"$log" 2>&1; then
        # A failed compilation among parallel ones is not at the end of the output.
        grep --extended-regexp --after-context=20 '^FAILED|error:|Error' "$log" >&2 || cat "$log" >&2
        echo "building failed; everything is in $PWD/$log" >&2
        return 1
    fi
}

# The target that the machine's own programs are of.
native_target() {
    case $(dpkg --print-architecture 2>/dev/null || uname --machine) in
        i386 | i[3-6]86) echo ia32 ;;
        arm64 | aarch64) echo aarch64 ;;
        *) echo x86-64 ;;
    esac
}

# targets_here: those that this machine builds for and runs.
targets_here() {
    case $(native_target) in
        aarch64) echo aarch64 ;;
        *) echo x86-64 ia32 ;;
    esac
}

# targets_emulated: those that it builds for and has an emulator of.
targets_emulated() { [[ $(native_target) == aarch64 ]] || echo aarch64; }

# bootstrap_targets [EMULATED...]: installs what `targets` need. Where there are none in it, they become those that this
# machine runs and of EMULATED those whose packages can be installed; `not_installed` are the others.
bootstrap_targets() {
    local target
    not_installed=()
    if [[ ${#targets[@]} -gt 0 ]]; then
        scripts/bootstrap "${targets[@]}"
        return
    fi
    read -ra targets < <(targets_here)
    scripts/bootstrap "${targets[@]}"
    for target in "$@"; do
        if scripts/bootstrap "$target"; then targets+=("$target"); else not_installed+=("$target"); fi
    done
}

# has_preset PRESET: whether there is one of the name.
has_preset() { grep --quiet --fixed-strings "\"name\": \"$1\"" CMakePresets.json; }

# is_emulated PRESET: whether programs that it builds are run by an emulator.
is_emulated() { [[ $1 == aarch64-* && $(native_target) != aarch64 ]]; }

# expect_own_processor PRESET: ends a script that would measure the emulator.
expect_own_processor() {
    is_emulated "$1" || return 0
    echo "scripts/${0##*/}: this machine emulates ${1%-*}, whose speed only such a machine tells" >&2
    exit 2
}

# library_of PRESET: the library that it has built.
library_of() {
    case $1 in
        ia32-*) echo "build/$1/lib/libqsvgent7.so.6.1" ;;
        *) echo "build/$1/lib/libqsvgen.so.6.1" ;;
    esac
}
