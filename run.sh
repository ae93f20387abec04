#!/usr/bin/env bash
# Sets everything up, builds Sheetwright and opens a sample form in its window. Where there is no display, or with
# --headless, it makes a new form of a template, imports the table of a test instrument into it, saves it and prints
# it to a PDF file; a form of your own is recalculated, saved and printed.
#
#   ./run.sh [--headless]          the sample "Appliance Test Record"
#   ./run.sh [--headless] FORM     a form or template of your own
set -euo pipefail
has_display=${DISPLAY:-}${WAYLAND_DISPLAY:-}
if [ "${1:-}" = --headless ]; then
    has_display=
    shift
fi
own=${1:+$(realpath -- "$1")}
cd "$(dirname "$0")"
. tools/set_up.sh

install_packages
build release sheetwright-cli sheetwright sheetwright_data

results=$PWD/build/results
mkdir -p "$results"
cd build/release/bin  # where the samples, the drivers and the lists lie that forms look things up in

if [ -n "$has_display" ]; then
    form=${own:-$PWD/samples/appliance_test_record.aff}
    echo "== $form in its window"
    exec ./sheetwright "$form"
fi

if [ -n "$own" ]; then
    form=$own
    edits=()
else
    form=templates/appliance_test_record.aft
    edits=(--set "1:Client=Marlow & Finch Ltd" --set "1:Record Number=MF-2026-0001"
           --set "1:Instrument=AT310" --import drivers/AT310/Data/appliance_test_record.csv --at-page 2)
fi
name=$(basename "${form%.*}")

echo
echo "== What is in $form"
./sheetwright-cli info "$form"
echo
echo "== Filled in, every formula run, saved as a new form and printed"
./sheetwright-cli fill "$form" "${edits[@]}" --save "$results/$name.aff" --pdf "$results/$name.pdf"
./sheetwright-cli values "$results/$name.aff" > "$results/$name.tsv"
echo
echo "The results:"
echo "  $results/$name.aff  the saved form, an archive that any unzip tool reads"
echo "  $results/$name.pdf  its pages, as a printer would print them"
echo "  $results/$name.tsv  its values, $(($(wc -l < "$results/$name.tsv") - 1)) of them"
