#!/bin/sh
# Prints what the wizard takes, and the ratios to what sqlite3 and dd take for the same in the same run.
# usage: bench/compare.sh [NODES]; needs python3 and sqlite3, and the preset "bench" built
set -eu
cd "$(dirname "$0")/.."
nodes=${1:-1000000}
bin=build/bench/bin
data=build/bench/data/broad_$nodes
out=build/bench/data/out
export QT_QPA_PLATFORM=offscreen
mkdir -p "$out"
[ -f "$data.xst1" ] || python3 bench/gen_scheme.py --nodes "$nodes" --out "$data"

now() { date +%s%N; }
since() { echo $((($(now) - $1) / 1000000)); }

"$bin/touch_memory"
"$bin/wizard_bench" all "$data" "$out" 2>/dev/null | tee "$out/wizard.txt"

cp "$data.xst1" "$out/nodes.csv"
cp "$data.xst2" "$out/paragraphs.csv"
"$bin/touch_memory"
sqlite3 -cmd ".cd $out" :memory: < bench/rival.sql > "$out/rival.txt"
"$bin/touch_memory"
start=$(now)
sqlite3 -cmd ".cd $out" :memory: < bench/rival.sql > /dev/null
whole=$(since "$start")
# .timer counts statements; what is not a statement is the import.
renumber=$(awk '/^renumber/ {on = 1} /^Run Time/ && on {sum += $4} END {print int(sum * 1000)}' "$out/rival.txt")
load=$((whole - renumber))

start=$(now)
cat "$data.xst1" "$data.xst2" | dd of="$out/copy" bs=4M iflag=fullblock conv=fsync 2>/dev/null
copy=$(since "$start")

value() { awk -v name="$1" 'index($0, name) == 1 {print $NF}' "$out/wizard.txt"; }
ratio() { awk -v a="$1" -v b="$2" 'BEGIN {printf "%.1f", a / b}'; }
echo
echo "sqlite3 imports and indexes both in $load ms: $(ratio "$load" "$(value 'load and draw both')") times as long as the wizard loads and draws"
echo "sqlite3 renumbers both in $renumber ms: $(ratio "$renumber" "$(value 'renumber and redraw')") times as long as Re-Number with redraw"
echo "dd writes the same bytes in $copy ms: saving both takes $(ratio "$(value 'save both')" "$copy") times as long"
echo "deleting a branch takes $(ratio "$(value 'delete a branch')" "$(value 'load and draw both')") times as long as loading and drawing both"
start=$(now); "$bin/empty_program" 2>/dev/null; empty=$(since "$start")
start=$(now); "$bin/wizard_bench" start 2>/dev/null; wizard=$(since "$start")
echo "start to the first window: $wizard ms, an empty Qt program $empty ms"
