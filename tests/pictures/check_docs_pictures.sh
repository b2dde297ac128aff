#!/bin/sh
# Draws the game window, the dialogs and the sheet of every embedded picture again with the tools
# that drew the pictures in docs/, which were checked by eye, and fails on any picture that does
# not come out byte for byte the same: a control moved, a colour, a font or a picture changed.
# The desktop's theme icons the build enlarged must be those in docs/icons, every pixel of the
# 16 x 16 icon an exact square. What came out is left in the working folder for comparing.
#   check_docs_pictures.sh <window_screenshots> <dialog_screenshots> <contact_sheet> <docs> <icons>
set -u
rm -rf drawn && mkdir drawn
"$1" drawn >/dev/null && "$2" drawn && "$3" drawn/pictures.png || exit 1
status=0
for name in pictures main-easy main-medium main-hard main-lost main-won \
    dialog-custom-en dialog-custom-it dialog-fame-en dialog-fame-it \
    dialog-player-en dialog-player-it dialog-about-en dialog-about-it; do
    if ! cmp -s "drawn/$name.png" "$4/$name.png"; then
        echo "drawn/$name.png differs from docs/$name.png"
        status=1
    fi
done
for size in 48 64 128 256; do
    if ! cmp -s "$5/$size.png" "$4/icons/icon-$size.png"; then
        echo "$5/$size.png differs from docs/icons/icon-$size.png"
        status=1
    fi
done
exit $status
