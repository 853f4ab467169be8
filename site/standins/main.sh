#!/bin/sh
# STAND-IN of the demo site for the suite's menu program; it is not that program.
# It notes the argument that it was started with in "Main.log" beside it, and ends.
here=$(dirname -- "$0")
printf '%s\n' "$*" >> "$here/Main.log"
