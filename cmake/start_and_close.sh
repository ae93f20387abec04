#!/bin/sh
# start_and_close.sh PATTERN PROGRAM [ARGUMENT...]
# Starts a program that runs until it is asked to end, asks it as soon as a file matches the pattern, and gives its
# exit status. 1 when the program ends before, or lasts for a minute.
pattern=$1
shift
timeout --kill-after=30 60 "$@" &
program=$!
until ls $pattern >/dev/null 2>&1; do
    kill -0 $program 2>/dev/null || { echo "It ended before $pattern appeared"; exit 1; }
    sleep 0.05
done
kill -TERM $program # which timeout hands on
wait $program
status=$?
[ $status -ne 124 ] || { echo "It did not end"; exit 1; }
exit $status
