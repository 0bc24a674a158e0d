#!/usr/bin/env bash
# Draws the difficult offsets that docs/geometry.md shows.
# usage: scripts/make_offset_gallery.sh [--png] [PROGRAM [FOLDER]]
#        PROGRAM default build/release/tools/qdr, FOLDER default docs/offsets
set -euo pipefail
cd "$(dirname "$0")/.."

kind=svg
if [ "${1:-}" = "--png" ]; then
  kind=png
  shift
fi
program=${1:-build/release/tools/qdr}
folder=${2:-docs/offsets}
mkdir -p "$folder"

# NAME EXIT_CODE DISTANCE OPTIONS : SHAPE
draw() {
  local name=$1 wanted=$2 distance=$3 got=0
  local options=("${@:4:$#-4}") shape=${*: -1}
  "$program" shape offset -d "$distance" "${options[@]}" -o "$folder/$name.$kind" "$shape" \
    > /dev/null 2> "$folder/$name.log" || got=$?
  if [ "$got" -ne "$wanted" ]; then
    echo "$name: exit code $got instead of $wanted: $(cat "$folder/$name.log")" >&2
    rm "$folder/$name.log"
    exit 1
  fi
  rm "$folder/$name.log"
}

star='0.000,10.000 -2.351,3.236 -9.511,3.090 -3.804,-1.236 -5.878,-8.090 0.000,-4.000
  5.878,-8.090 3.804,-1.236 9.511,3.090 2.351,3.236 close'
far_star='1000000.000,-999990.000 999997.649,-999996.764 999990.489,-999996.910
  999996.196,-1000001.236 999994.122,-1000008.090 1000000.000,-1000004.000
  1000005.878,-1000008.090 1000003.804,-1000001.236 1000009.511,-999996.910
  1000002.351,-999996.764 close'

draw star 0 1.2 -s left --both "$star"
draw far_star 0 1.2 -s left --both "$far_star"
draw comb 0 0.6 -s left --both \
  '0,0 13,0 13,8 11,8 11,2 9,2 9,8 7,8 7,2 6,2 6,8 4,8 4,2 2,2 2,8 0,8 close'
draw sawtooth 0 1.5 -s left --both '0,0 2,5 3,0 5,5 6,0 8,5 9,0 11,5 12,0'
draw spiral_band 0 0.7 -s left '1,0(1) -1,0(1) 3,0(1) -3,0(1) 5,0(1) -5,0(1) 7,0(1) -7,0'
draw eight 0 1 -s left --both '0,0 6,4(-1.5) 6,-4 0,0 -6,4(1.5) -6,-4 close'
draw swallowed_arc 0 1.5 -s left '0,0 4,0(1) 6,0 10,0'
draw small_arc_outward 0 1.5 -s left '0,0 4,0(-1) 6,0 10,0'
draw touching_arms 0 1 -s left --both '0,6 0,0 2,0 2,6 5,6 5,0 6.9,0 6.9,6'
draw dumbbell 0 1 -s left '0,0 6,0 6,2.2 10,2.2 10,0 16,0 16,6 10,6 10,3.8 6,3.8 6,6 0,6 close'
draw collapsing 1 4.1 -s left "$star"
draw keyhole 0 0.8 -s left --both '-1,-8 1,-8 1,-2.828(2.414) -1,-2.828 close'
draw two_half_arcs 0 2 -s left --both '5,0(1) -5,0(1) close'
draw rounded_box 0 2 -s left --both \
  '2,0 12,0(0.41421356) 14,2 14,8(0.41421356) 12,10 2,10(0.41421356) 0,8 0,2(0.41421356) close'
draw clover 0 1 -s left --both '2,-2(2.414) 2,2(2.414) -2,2(2.414) -2,-2(2.414) close'
draw hairpin 0 1 -s right '0,0 10,0 3,2 9,5'
draw fine_detail 0 1 -s right '0,0 4,0 4.02,0.03 4.04,0 8,0'
