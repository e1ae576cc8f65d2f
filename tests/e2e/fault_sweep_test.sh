#!/usr/bin/env bash
# Makes single system calls of a run fail: 50 of them, or those that the arguments name (--full, --only FAULT).
# Nothing incomplete may have a final name, no run may succeed falsely or fail silently, the next must succeed.
source "$(dirname "$0")/lib.sh" fault_sweep

command -v strace >/dev/null || { say "strace is not installed"; exit 77; }

# A prefix of its own, for a Wine server that can be traced. Without a graphics driver the desktop process of
# Wine ends and is started again by every program, unless the driver is off.
export WINEPREFIX=$top/build/fault_prefix LC_ALL=ja_JP.UTF-8
ensure_wine_prefix
if ! grep -q '"Graphics"="null"' "$WINEPREFIX/user.reg"; then
  wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f </dev/null >/dev/null 2>&1
  wineserver -w
fi
python3 "$top/tests/e2e/fault_sweep.py" "$work" "$qlm_run" "$(archiver_windows)" \
  "$top/tests/host/golden/settings_default.config" "$@"
echo PASS
