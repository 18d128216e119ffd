# What the scripts share; read with "source". Leaves the shell in the repository's root folder.
# shellcheck shell=bash
set -euo pipefail
caller=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# say TEXT...: one line between the outputs of the tools, on standard error.
say()
{
    printf '== %s\n' "$*" >&2
}

die()
{
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# packages_of GROUP...: the package names of the groups in scripts/packages, one a line.
packages_of()
{
    local group
    for group in "$@"; do
        awk -v group="$group:" '$1 == group { for (i = 2; i <= NF; i++) print $i; found = 1 }
            END { exit !found }' scripts/packages || die "scripts/packages has no group \"$group\""
    done | sort -u
}

is_installed()
{
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

# apt ARGUMENT...: apt-get as root, without questions; waits for another run of it to end; prints errors only.
apt()
{
    local as_root=()
    if ((EUID != 0)); then as_root=(sudo); fi
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -y \
        -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 "$@" </dev/null >/dev/null
}

# need_packages GROUP...: installs what is missing of the groups. Silent when nothing is.
need_packages()
{
    local wanted missing=() package
    wanted=$(packages_of "$@")
    if ! command -v apt-get >/dev/null; then
        say "This system has no apt. Needed, under its own names: ${wanted//$'\n'/ }"
        return
    fi
    for package in $wanted; do
        is_installed "$package" || missing+=("$package")
    done
    if ((${#missing[@]} == 0)); then return; fi
    if ((EUID != 0)) && ! command -v sudo >/dev/null; then
        die "Missing packages, and neither root nor sudo to install them. As root, run:" \
            "apt-get install ${missing[*]}"
    fi
    say "Installing ${missing[*]} (with what they need; this can take some minutes)"
    apt update || say "The package lists could not be refreshed; trying with those at hand"
    apt install --no-install-recommends "${missing[@]}" ||
        { sleep 5; apt update && apt install --no-install-recommends "${missing[@]}"; } ||
        die "Could not install: ${missing[*]}"
}

# build PRESET [TARGET...]: configures and builds in build/PRESET.
build()
{
    local preset=$1 targets=()
    shift
    if (($# > 0)); then targets=(--target "$@"); fi
    say "Building ($preset)"
    cmake --preset "$preset" --log-level=NOTICE >/dev/null
    cmake --build --preset "$preset" --parallel "$(nproc)" "${targets[@]}"
}

# start PROGRAM ARGUMENT...: becomes that program of the release build, in the caller's folder.
start()
{
    local program=$PWD/build/release/bin/$1
    shift
    cd "$caller"
    exec "$program" "$@"
}

# sources FOLDER...: the C++ files below the folders, each ended by a NUL.
sources()
{
    find "$@" \( -name '*.h' -o -name '*.cpp' \) -print0 | sort -z
}
