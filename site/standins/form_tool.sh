#!/bin/sh
# STAND-IN of the demo site for an outside form tool; it is not that tool, and prints and shows nothing.
# It takes the command script that stands behind "/c" and copies it beside itself, as NAME.WfdCom.dat. Whatever stands
# before "/c" (the output form of a merge) is left alone.
while [ $# -gt 0 ] && [ "$1" != "/c" ]; do
    shift
done
if [ $# -lt 2 ]; then
    echo "$(basename -- "$0"): /c とコマンドファイルがありません。" >&2
    exit 1
fi
shift
# The command line is not quoted, so a blank in a folder name cuts the path; the pieces belong together. The suite
# writes paths with backslashes.
script=$(printf '%s' "$*" | tr '\\' '/')
cp -- "$script" "$0.WfdCom.dat"
