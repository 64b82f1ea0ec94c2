# SPDX-License-Identifier: Apache-2.0
# Shared by the project's scripts; sourced, not run.
# shellcheck shell=bash

set -euo pipefail

MORRANT_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
MORRANT_JOBS=${MORRANT_JOBS:-$(nproc)}

say() { printf '[%s] %s\n' "${STAGE:-setup}" "$*"; }
fail() { printf '[%s] error: %s\n' "${STAGE:-setup}" "$*" >&2; exit 1; }

MORRANT_CACHE=${MORRANT_CACHE_DIR:-${XDG_CACHE_HOME:-${HOME:-}/.cache}/morrant-ui}
mkdir -p "$MORRANT_CACHE" 2> /dev/null && [ -w "$MORRANT_CACHE" ] ||
    fail "the cache folder $MORRANT_CACHE cannot be written; set MORRANT_CACHE_DIR to one that can"
MORRANT_CACHE=$(cd "$MORRANT_CACHE" && pwd)
export MORRANT_CACHE_DIR=$MORRANT_CACHE

# ccache serves any clone: paths below the checkout count as relative, and precompiled headers are
# compared by content.
export CCACHE_DIR=${CCACHE_DIR:-$MORRANT_CACHE/ccache}
export CCACHE_BASEDIR=$MORRANT_ROOT
export CCACHE_NOHASHDIR=1
export CCACHE_SLOPPINESS=pch_defines,time_macros
export CCACHE_MAXSIZE=${CCACHE_MAXSIZE:-12G}

# quietly LOG COMMAND...: runs a command with its output in a log, whose end is shown when it fails.
quietly() {
    local log=$1
    shift
    mkdir -p "$(dirname "$log")"
    "$@" > "$log" 2>&1 || { tail -n 40 "$log" >&2; return 1; }
}

# as_root COMMAND...: as it is for root, through sudo for everybody else.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    else
        sudo env DEBIAN_FRONTEND=noninteractive "$@"
    fi
}

# recipe_key FILE...: what names a build by these recipes. Their licence line is no part of them.
recipe_key() { cat "$@" | sed '/SPDX-License-Identifier/d' | sha256sum | cut -c1-12; }

# compile BUILD_DIR [NINJA_ARGS...]: runs ninja, shows how far it is in tenths, and what failed.
compile() {
    local dir=$1 log status
    shift
    log=$dir/build.log
    if [ -t 1 ]; then
        ninja -C "$dir" -j "$MORRANT_JOBS" "$@" && return
        fail "the build in ${dir#"$MORRANT_ROOT"/} failed"
    fi
    set +e
    NINJA_STATUS='[%f/%t] ' ninja -C "$dir" -j "$MORRANT_JOBS" "$@" 2>&1 | tee "$log" |
        awk -F'[][/]' -v stage="${STAGE:-setup}" '/^\[[0-9]+\/[0-9]+\]/ {
            tenth = int(10 * $2 / $3)
            if (tenth > last && $3 >= 20) { printf "[%s]   %d/%d\n", stage, $2, $3; fflush(); last = tenth }
        }'
    status=${PIPESTATUS[0]}
    set -e
    if [ "$status" != 0 ]; then
        { grep -vE '^\[[0-9]+/[0-9]+\]|^ninja: Entering' "$log" | head -n 80 >&2; } || true
        fail "the build in ${dir#"$MORRANT_ROOT"/} failed"
    fi
}
