#!/bin/sh
# Plays the clips of the selected folders. Written anew at every start of Orvanta.
for folder in "$@"; do
    case $folder in
    /*) ;;
    *) folder=$PWD/$folder ;;
    esac
    if [ -d "$folder" ]; then
        @SHELL_COMMAND@ "/f$folder" &
    fi
done
