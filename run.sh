#!/usr/bin/env bash
# Sets everything up, builds Sheetwright and fills in a sample form.
#
#   ./run.sh          the sample "Appliance Test Record"
#   ./run.sh FORM     a form or template of your own
set -euo pipefail
cd "$(dirname "$0")"
. tools/set_up.sh

install_packages
build release sheetwright-cli

cli=build/release/bin/sheetwright-cli
form=${1:-share/samples/appliance-test-record.aff}
results=build/results
mkdir -p "$results"
name=$(basename "${form%.*}")

echo
echo "== What is in $form"
"$cli" info "$form"
echo
echo "== Every formula run, and saved as a new form"
"$cli" fill "$form" --save "$results/$name.aff"
"$cli" values "$results/$name.aff" > "$results/$name.tsv"
echo
echo "The results:"
echo "  $results/$name.aff  the saved form, an archive that any unzip tool reads"
echo "  $results/$name.tsv  its values, $(($(wc -l < "$results/$name.tsv") - 1)) of them"
