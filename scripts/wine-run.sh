#!/usr/bin/env bash
# wine-run.sh PROGRAM ARGS...: runs a Windows program and returns its exit code.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

(($# > 0)) || die "usage: wine-run.sh PROGRAM ARGS..."
ensure_wine_prefix
export LC_ALL=ja_JP.UTF-8
exec wine "$@"
