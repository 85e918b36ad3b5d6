#!/bin/sh
# Renders the drawings in this folder to ../bitmaps and ../icons. Needs rsvg-convert, ImageMagick, icotool and the Liberation fonts.
set -eu
cd "$(dirname "$0")"
face='rgb(240,240,240)' # the 3-D face that every bitmap is seen on
key='rgb(236,233,216)'  # stands for "not drawn" in the bitmaps that are copied transparently
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p ../bitmaps ../icons

# Soft edges are blended with the face; with a ground of "key" what the drawing leaves empty gets the key colour.
while read -r name width height ground; do
    png=$work/$name.png
    rsvg-convert -w "$width" -h "$height" -o "$png" "$name.svg"
    convert -size "${width}x$height" "xc:$(eval "echo \"\$$ground\"")" \
        \( "$png" -background "$face" -flatten \) \( "$png" -alpha extract -threshold 1% \) -composite \
        -strip -type TrueColor "BMP3:../bitmaps/$name.bmp"
done <<TABLE
emblem               65  65 key
wordmark_small       69  20 key
wordmark_large      155  48 key
banner              510 100 key
action_lock_screen   33  33 face
action_log_off       33  33 face
action_standby       33  33 face
action_hibernate     33  33 face
action_shutdown      33  33 face
action_restart       33  33 face
resume               85  16 face
source_ac            32  32 key
source_battery       32  32 key
battery_none         32  32 key
battery_charging     32  32 key
battery_discharging  32  32 key
battery_unknown      32  32 key
license_active      125  16 key
license_inactive    125  16 key
license_expired     125  16 key
machine_on           75  75 key
machine_off          75  75 key
system_panes         80  38 key
system_ring          80  25 key
system_prompt        80  25 face
TABLE

# An icon's sizes: up to 20 and up to 32 from drawings of their own, larger ones from the emblem. The notification area
# asks for 16 to 32, as the screen's scale is.
while read -r name emblem; do
    for size in 16 20 24 32 48 64 256; do
        drawing=$emblem.svg
        [ $size -le 32 ] && drawing=${name}_32.svg
        [ $size -le 20 ] && drawing=${name}_16.svg
        rsvg-convert -w $size -h $size -o "$work/$size.png" "$drawing"
    done
    icotool -c -o "../icons/$name.ico" "$work/16.png" "$work/20.png" "$work/24.png" "$work/32.png" "$work/48.png" \
        "$work/64.png" --raw="$work/256.png"
done <<TABLE
icon_running emblem
icon_paused  emblem_paused
TABLE

# The installer's last page.
rsvg-convert -w 164 -h 314 -o "$work/side.png" ../../packaging/side.svg
convert "$work/side.png" -strip -colors 128 -type Palette -compress None BMP3:../../packaging/side.bmp
