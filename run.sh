#!/usr/bin/env bash
# Sets everything up, builds Sheetwright and opens a sample form in its window. Where there is no display, or with
# --headless, it fills in and recalculates the form without one, saves it and prints it to a PDF file.
#
#   ./run.sh [--headless]          the sample "Appliance Test Record"
#   ./run.sh [--headless] FORM     a form or template of your own
set -euo pipefail
has_display=${DISPLAY:-}${WAYLAND_DISPLAY:-}
if [ "${1:-}" = --headless ]; then
    has_display=
    shift
fi
form=$(realpath -- "${1:-$(dirname "$0")/share/samples/appliance_test_record.aff}")
cd "$(dirname "$0")"
. tools/set_up.sh

install_packages
build release sheetwright-cli sheetwright sheetwright_data

results=$PWD/build/results
mkdir -p "$results"
name=$(basename "${form%.*}")
cd build/release/bin  # where the lists lie that the samples look things up in

if [ -n "$has_display" ]; then
    echo "== $form in its window"
    exec ./sheetwright "$form"
fi

echo
echo "== What is in $form"
./sheetwright-cli info "$form"
echo
echo "== Every formula run, saved as a new form and printed"
./sheetwright-cli fill "$form" --save "$results/$name.aff" --pdf "$results/$name.pdf"
./sheetwright-cli values "$results/$name.aff" > "$results/$name.tsv"
echo
echo "The results:"
echo "  $results/$name.aff  the saved form, an archive that any unzip tool reads"
echo "  $results/$name.pdf  its pages, as a printer would print them"
echo "  $results/$name.tsv  its values, $(($(wc -l < "$results/$name.tsv") - 1)) of them"
