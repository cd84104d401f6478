#!/bin/bash
# Runs tests as on a screen of another resolution, in a Windows of their own.
#   atResolution.sh EMULATOR PREFIX DPI PROGRAM FILTER
set -eu

emulator=$1
export KELVANE_PREFIX=$2
export KELVANE_DPI=$3
program=$4
filter=$5
trap 'rm -rf -- "$KELVANE_PREFIX"' EXIT
rm -rf -- "$KELVANE_PREFIX"

# The emulator makes the prefix. Its last process takes the resolution's old value along.
"$emulator" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$KELVANE_DPI" /f
"$emulator" wineboot -e
"$emulator" "$program" --gtest_filter="$filter" --gtest_brief=1
