#!/bin/sh
# Plays the clips of the selected folders. Written anew at every start of Orvanta.
if [ ! -x @SHELL_PROGRAM@ ]; then
    rm -f -- "$0" # the program is gone, and this goes with it
    exit 0
fi
count=$#
for folder in "$@"; do
    case $folder in
    /*) ;;
    *) folder=$PWD/$folder ;;
    esac
    if [ -d "$folder" ]; then
        set -- "$@" "$folder"
    fi
done
shift "$count"
if [ $# -gt 0 ]; then
    @SHELL_COMMAND@ "$@" &
fi
